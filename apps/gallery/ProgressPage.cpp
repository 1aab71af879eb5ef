// Gallery page "Progress and dialogs": a progress dialog with two sections in the middle of
// their jobs (labels, a picture, stop buttons), shown in the page, and the codec choice of the
// dialog services.
#include "GalleryPage.h"
#include "dialogs/DialogUtilities.h"
#include "dialogs/ProgressDialog.h"
#include "style/Device.h"

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

QWidget *makeProgressPage()
{
    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);

    // The dialog of the jobs, taken into the page so that it shows beside the other pieces.
    auto *jobs = new QGroupBox(QObject::tr("Progress dialog, mid-job"));
    auto *jobsLayout = new QVBoxLayout(jobs);
    auto *dialog = new ProgressDialog(jobs);
    dialog->setTitle(QObject::tr("Exporting"));
    auto *sections = new QList<TAutoPtr<Progress>>;
    TAutoPtr<Progress> pictures = dialog->newProgress(ProgressDialog::MainText | ProgressDialog::DetailText
                                                      | ProgressDialog::StopButton | ProgressDialog::Image);
    pictures->setText(QObject::tr("Placing pictures of the harbour guide, chapter 3, with a text far too long "
                                  "for its line"));
    pictures->setDetailText(QObject::tr("harbour-at-dawn.tif"));
    pictures->setImage(previewImage());
    pictures->setRange(0, 120);
    pictures->setValue(47);
    TAutoPtr<Progress> pages = dialog->newProgress(ProgressDialog::MainText | ProgressDialog::StopButton);
    pages->setText(QObject::tr("Writing pages"));
    pages->setRange(0, 10);
    pages->setValue(8);
    *sections << pictures << pages;
    QWidget *inner = *dialog;
    inner->setParent(jobs, Qt::Widget);
    jobsLayout->addWidget(inner);
    jobsLayout->addStretch(1);
    QObject::connect(page, &QObject::destroyed, [dialog, sections] {
        delete sections;
        delete dialog;
    });
    layout->addWidget(jobs);

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
