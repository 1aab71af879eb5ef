// Gallery page "Progress and dialogs": a progress dialog with two sections in the middle of
// their jobs (labels, a picture, stop buttons), shown in the page, the same dialog's stop button
// under the library's own style (which has no stop picture, so the button shows its text), and
// the codec choice of the dialog services.
#include "GalleryPage.h"
#include "dialogs/DialogUtilities.h"
#include "dialogs/ProgressDialog.h"
#include "style/Device.h"
#include "style/GuiStyle.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QVBoxLayout>

using TavoLib::Device;

namespace {

QImage previewImage()
{
    QImage image(300, 150, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, 150);
    sky.setColorAt(0, QColor(90, 140, 200));
    sky.setColorAt(1, QColor(220, 230, 240));
    painter.fillRect(image.rect(), sky);
    painter.setBrush(QColor(60, 90, 60));
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygon({ QPoint(0, 150), QPoint(90, 70), QPoint(160, 120), QPoint(230, 60),
                                   QPoint(300, 150) }));
    return image;
}

// A progress dialog taken into a group of the page, so that it shows beside the other pieces;
// with `style`, the dialog is made under that style.
QGroupBox *jobsGroup(QWidget *page, const QString &title, QStyle *style, bool withPicture)
{
    auto *jobs = new QGroupBox(title);
    auto *jobsLayout = new QVBoxLayout(jobs);
    auto *dialog = new ProgressDialog(jobs);
    dialog->setTitle(QObject::tr("Exporting"));
    if (style)
        static_cast<QWidget *>(*dialog)->setStyle(style);
    auto *sections = new QList<TAutoPtr<Progress>>;
    if (withPicture) {
        TAutoPtr<Progress> pictures = dialog->newProgress(ProgressDialog::MainText
            | ProgressDialog::DetailText | ProgressDialog::StopButton | ProgressDialog::Image);
        pictures->setText(
            QObject::tr("Placing pictures of the harbour guide, chapter 3, with a text far too "
                        "long for its line"));
        pictures->setDetailText(QObject::tr("harbour-at-dawn.tif"));
        pictures->setImage(previewImage());
        pictures->setRange(0, 120);
        pictures->setValue(47);
        *sections << pictures;
    }
    TAutoPtr<Progress> pages = dialog->newProgress(ProgressDialog::MainText | ProgressDialog::StopButton);
    pages->setText(QObject::tr("Writing pages"));
    pages->setRange(0, 10);
    pages->setValue(8);
    *sections << pages;
    QWidget *inner = *dialog;
    inner->setParent(jobs, Qt::Widget);
    jobsLayout->addWidget(inner);
    jobsLayout->addStretch(1);
    QObject::connect(page, &QObject::destroyed, [dialog, sections] {
        delete sections;
        delete dialog;
    });
    return jobs;
}

QWidget *makeProgressPage()
{
    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);
    auto *column = new QVBoxLayout;
    column->addWidget(jobsGroup(page, QObject::tr("Progress dialog, mid-job"), nullptr, true));
    static TavoLib::GuiStyle *guiStyle = new TavoLib::GuiStyle;
    column->addWidget(jobsGroup(page, QObject::tr("Under GuiStyle"), guiStyle, false));
    column->addStretch(1);
    layout->addLayout(column);

    auto *services = new QGroupBox(QObject::tr("Dialog services"));
    auto *form = new QFormLayout(services);
    auto *codecs = new QComboBox;
    TavoLib::DialogUtilities::initCodecs(codecs);
    TavoLib::DialogUtilities::setCurrentCodec(codecs, QStringLiteral("UTF-8"));
    auto *chosen = new QLabel;
    QObject::connect(codecs, QOverload<int>::of(&QComboBox::currentIndexChanged), chosen, [codecs, chosen] {
        chosen->setText(TavoLib::DialogUtilities::currentCodec(codecs));
    });
    chosen->setText(TavoLib::DialogUtilities::currentCodec(codecs));
    form->addRow(QObject::tr("Text codec"), codecs);
    form->addRow(QObject::tr("Codec name"), chosen);
    layout->addWidget(services, 1, Qt::AlignTop);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(85, "Progress and dialogs", makeProgressPage)
