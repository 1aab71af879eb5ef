#include "dialogs/TextCodecDialog.h"

#include "dialogs/DialogUtilities.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextCodec>
#include <QVBoxLayout>

namespace TavoLib {

TextCodecDialog::TextCodecDialog(QWidget *parent) : DialogBase(parent)
{
    setWindowTitle(tr("Text Encoding"));
    mCodecs = new QComboBox;
    DialogUtilities::initCodecs(mCodecs);
    mCodecs->setAccessibleName(tr("Encoding"));
    auto *label = new QLabel(tr("&Encoding:"));
    label->setBuddy(mCodecs);
    mPreview = new QPlainTextEdit;
    mPreview->setReadOnly(true);
    mPreview->setTabChangesFocus(true);
    mPreview->setAccessibleName(tr("Preview"));
    auto *previewLabel = new QLabel(tr("Pre&view:"));
    previewLabel->setBuddy(mPreview);
    mButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto *form = new QFormLayout;
    form->addRow(label, mCodecs);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(previewLabel);
    layout->addWidget(mPreview, 1);
    layout->addWidget(mButtons);
    connect(mButtons, &QDialogButtonBox::accepted, this, &TextCodecDialog::accept);
    connect(mButtons, &QDialogButtonBox::rejected, this, &TextCodecDialog::reject);
    connect(mCodecs, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        updatePreview();
        emit codecChanged(codec());
    });
    updatePreview();
}

TextCodecDialog::~TextCodecDialog() = default;

void TextCodecDialog::setSample(const QByteArray &bytes)
{
    mSample = bytes.left(kPreviewBytes);
    updatePreview();
}

QString TextCodecDialog::codec() const
{
    return DialogUtilities::currentCodec(mCodecs);
}

void TextCodecDialog::setCodec(const QString &codec)
{
    DialogUtilities::setCurrentCodec(mCodecs, codec);
}

QString TextCodecDialog::previewText() const
{
    return mPreview->toPlainText();
}

void TextCodecDialog::updatePreview()
{
    const QString name = codec();
    QTextCodec *textCodec = name.isEmpty() ? QTextCodec::codecForLocale()
                                           : QTextCodec::codecForName(name.toLatin1());
    if (!textCodec) {
        mPreview->setPlainText(tr("The encoding %1 is not available on this system.").arg(name));
        return;
    }
    // A decoder of its own: no state is carried over from an earlier preview.
    QTextDecoder decoder(textCodec, QTextCodec::ConvertInvalidToNull);
    QString text = decoder.toUnicode(mSample);
    // Control characters other than line breaks and tabs show as the replacement character.
    for (QChar &c : text)
        if (c.category() == QChar::Other_Control && c != QLatin1Char('\n') && c != QLatin1Char('\t')
            && c != QLatin1Char('\r'))
            c = QChar::ReplacementCharacter;
    mPreview->setPlainText(text);
}

} // namespace TavoLib
