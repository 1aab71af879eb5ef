// Gallery page "Device and artwork": the metrics Device reads from the screen, and a sheet of
// every resource of the library and of the gallery at several sizes, plain and recoloured.
#include "GalleryPage.h"
#include "style/Device.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

using TavoLib::Device;

namespace {

QLabel *imageLabel(const QPixmap &pixmap, const QString &tip)
{
    auto *label = new QLabel;
    label->setPixmap(pixmap);
    label->setAlignment(Qt::AlignCenter);
    label->setToolTip(tip);
    label->setMinimumSize(40, 40);
    label->setStyleSheet(QStringLiteral("background: #fafafa; border: 1px solid #d8d8d8;"));
    return label;
}

QLabel *caption(const QString &text)
{
    auto *label = new QLabel(text);
    label->setStyleSheet(QStringLiteral("color: #555; font-size: 8pt;"));
    return label;
}

QWidget *metrics()
{
    auto *box = new QGroupBox(QObject::tr("Device metrics"));
    auto *form = new QFormLayout(box);
    QScreen *screen = QGuiApplication::primaryScreen();
    form->addRow(
        QObject::tr("Logical dpi"), new QLabel(QString::number(screen->logicalDotsPerInch())));
    form->addRow(QObject::tr("Physical dpi"),
        new QLabel(QString::number(screen->physicalDotsPerInch(), 'f', 1)));
    form->addRow(QObject::tr("scale(7.0)"), new QLabel(QString::number(Device::scale(7.0))));
    form->addRow(QObject::tr("Pixel ratio"), new QLabel(QString::number(Device::pixelRatio())));
    const QSize s = Device::scaleSize(QSize(12, 12));
    form->addRow(QObject::tr("scaleSize(12 x 12)"),
        new QLabel(QStringLiteral("%1 x %2").arg(s.width()).arg(s.height())));
    form->addRow(QObject::tr("viewScale(12 pt)"),
        new QLabel(QString::number(Device::viewScale(12.0), 'f', 2)));
    QStringList sizes;
    for (int t = 0; t <= 10; ++t) {
        const QSize size = Device::size(Device::SizeType(t));
        sizes << QStringLiteral("%1: %2").arg(t).arg(size.width());
    }
    auto *types = new QLabel(sizes.join(QStringLiteral("  ")));
    types->setWordWrap(true);
    form->addRow(QObject::tr("size(SizeType)"), types);
    return box;
}

QWidget *iconSheet()
{
    auto *box = new QGroupBox(QObject::tr("Icons at 12 to 48 pixels, and recoloured"));
    auto *grid = new QGridLayout(box);
    const QStringList names = { QStringLiteral(":/TavoLib/Controls/check-undefined"),
        QStringLiteral(":/TavoLib/Controls/combobox-arrow"),
        QStringLiteral(":/TavoLib/FontHandler/truetypefont-icon"),
        QStringLiteral(":/TavoLib/FontHandler/opentypefont-icon"),
        QStringLiteral(":/TavoLib/FontHandler/type1font-icon"), QStringLiteral(":/checked-black"),
        QStringLiteral(":/yes.png") };
    const QColor blue(40, 90, 200), green(31, 127, 31), red(190, 40, 40);
    int row = 0;
    for (const QString &name : names) {
        grid->addWidget(caption(name.section(QLatin1Char('/'), -1)), row, 0);
        int column = 1;
        for (int size : { 12, 16, 24, 32, 48 })
            grid->addWidget(imageLabel(Device::pixmap(name, size, size), name), row, column++);
        for (const QColor *color : { &blue, &green, &red })
            grid->addWidget(imageLabel(Device::pixmap(name, 24, 24, color), name), row, column++);
        ++row;
    }
    return box;
}

QWidget *imageSheet(const QString &title, const QStringList &names, int columns)
{
    auto *box = new QGroupBox(title);
    auto *grid = new QGridLayout(box);
    const QColor slate(60, 70, 90);
    int index = 0;
    for (const QString &name : names) {
        const QPixmap plain = Device::pixmap(name);
        auto *cell = new QWidget;
        auto *layout = new QGridLayout(cell);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(imageLabel(plain, name), 0, 0);
        layout->addWidget(imageLabel(Device::pixmap(name, &slate), name), 0, 1);
        QString file = name.section(QLatin1Char('/'), -1);
        file.chop(file.endsWith(QLatin1String(".png")) ? 4 : 0);
        auto *text = caption(
            QStringLiteral("%1\n%2 x %3").arg(file).arg(plain.width()).arg(plain.height()));
        layout->addWidget(text, 1, 0, 1, 2);
        grid->addWidget(cell, index / columns, index % columns);
        ++index;
    }
    return box;
}

QWidget *makeDevicePage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *top = new QHBoxLayout;
    top->addWidget(metrics(), 2);
    top->addWidget(iconSheet(), 3);
    layout->addLayout(top);

    QStringList styleImages;
    for (const char *n : { "button_normal_cap_left", "button_normal_stretch",
             "button_normal_cap_right", "button_pressed_cap_left", "button_pressed_stretch",
             "button_pressed_cap_right", "title_cap_left", "title_stretch", "title_cap_right",
             "slider_bar", "slider_thumb_on", "radiobutton_off", "radiobutton_on", "radiobutton-on",
             "frame_topleft", "frame_top", "frame_topright", "frame_left", "frame_right",
             "frame_bottomleft", "frame_bottom", "frame_bottomright" })
        styleImages << QStringLiteral(":res/images/%1.png").arg(QLatin1String(n));
    layout->addWidget(
        imageSheet(QObject::tr("Style images, plain and recoloured"), styleImages, 8));
    layout->addWidget(imageSheet(QObject::tr("Images the application supplies"),
        { QStringLiteral(":/lessoptions_icon.png"), QStringLiteral(":/moreoptions_icon.png"),
            QStringLiteral(":/combobox_tool_arrow.png"), QStringLiteral(":/combobox_arrows.png"),
            QStringLiteral(":/checked-white") },
        6));
    layout->addStretch(1);

    auto *scroll = new QScrollArea;
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    return scroll;
}

} // namespace

TAVO_GALLERY_PAGE(70, "Device and artwork", makeDevicePage)
