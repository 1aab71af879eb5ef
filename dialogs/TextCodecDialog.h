#pragma once

// TextCodecDialog asks in which encoding a host's text file is written (an imported text, a
// tagged text, a CSV of a data merge). It offers the library's codec table (DialogUtilities::
// initCodecs, "None" first) and shows the host's bytes decoded in the codec chosen, so the
// user sees at once which choice gives readable text. "None" previews the bytes in the
// system's own encoding. A codec this system does not have says so in the preview. Only the
// first kPreviewBytes bytes are previewed; bytes invalid in a codec show as replacement
// characters.
#include "dialogs/DialogBase.h"

#include <QByteArray>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;

namespace TavoLib {

class TAVOLIBGUI_EXPORT TextCodecDialog : public DialogBase
{
    Q_OBJECT
public:
    static constexpr int kPreviewBytes = 64 * 1024;

    explicit TextCodecDialog(QWidget *parent = nullptr);
    ~TextCodecDialog() override;

    // The bytes to preview.
    void setSample(const QByteArray &bytes);
    QByteArray sample() const { return mSample; }

    // The codec name of the table, or empty for "None".
    QString codec() const;
    // Selects `codec` by its exact table name; "None" for any other.
    void setCodec(const QString &codec);

    // The text the preview shows now.
    QString previewText() const;

signals:
    void codecChanged(const QString &codec);

private:
    void updatePreview();

    QByteArray mSample;
    QComboBox *mCodecs = nullptr;
    QPlainTextEdit *mPreview = nullptr;
    QDialogButtonBox *mButtons = nullptr;
};

} // namespace TavoLib
