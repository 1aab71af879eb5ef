// Gallery page "Style": the same set of controls under GuiStyle and under the platform style,
// side by side. Some controls are marked as under the mouse so that hover looks show.
#include "GalleryPage.h"
#include "style/GuiStyle.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>
#include <cmath>

namespace {

// Small black glyphs; icon-only tool buttons recolour them.
QIcon glyph(int kind)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    switch (kind) {
    case 0: // align left
        for (int i = 0; i < 4; ++i)
            p.drawRect(QRectF(1, 2 + i * 3.5, i % 2 ? 9 : 14, 2));
        break;
    case 1: // grid
        for (int i = 0; i < 4; ++i)
            p.drawRoundedRect(QRectF(1 + (i % 2) * 8, 1 + (i / 2) * 8, 6, 6), 1.5, 1.5);
        break;
    default: { // star
        QPainterPath star;
        for (int i = 0; i < 10; ++i) {
            const double r = i % 2 ? 3.2 : 7.5;
            const double a = -M_PI / 2 + i * M_PI / 5;
            const QPointF pt(8 + r * std::cos(a), 8.5 + r * std::sin(a));
            i ? star.lineTo(pt) : star.moveTo(pt);
        }
        star.closeSubpath();
        p.drawPath(star);
    }
    }
    return QIcon(pixmap);
}

void markUnderMouse(QWidget *w)
{
    w->setAttribute(Qt::WA_UnderMouse, true);
}

QToolButton *tool(int kind, const QString &text, bool checked, bool enabled)
{
    auto *button = new QToolButton;
    button->setIcon(glyph(kind));
    button->setIconSize(QSize(16, 16));
    button->setCheckable(true);
    button->setChecked(checked);
    button->setEnabled(enabled);
    button->setAutoRaise(true);
    if (!text.isEmpty()) {
        button->setText(text);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setMinimumWidth(84);
    }
    return button;
}

QWidget *demo()
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(new QPushButton(QObject::tr("OK")));
    auto *hovered = new QPushButton(QObject::tr("Hovered"));
    markUnderMouse(hovered);
    buttons->addWidget(hovered);
    auto *toggled = new QPushButton(QObject::tr("Toggled"));
    toggled->setCheckable(true);
    toggled->setChecked(true);
    buttons->addWidget(toggled);
    auto *disabled = new QPushButton(QObject::tr("Disabled"));
    disabled->setEnabled(false);
    buttons->addWidget(disabled);
    layout->addLayout(buttons);

    auto *radios = new QHBoxLayout;
    auto *first = new QRadioButton(QObject::tr("Portrait"));
    first->setChecked(true);
    radios->addWidget(first);
    auto *second = new QRadioButton(QObject::tr("Landscape (hovered)"));
    markUnderMouse(second);
    radios->addWidget(second);
    auto *third = new QRadioButton(QObject::tr("Disabled"));
    third->setEnabled(false);
    radios->addWidget(third);
    radios->addStretch(1);
    layout->addLayout(radios);

    auto *slider = new QSlider(Qt::Horizontal);
    slider->setValue(35);
    layout->addWidget(slider);
    auto *hoverSlider = new QSlider(Qt::Horizontal);
    hoverSlider->setValue(70);
    markUnderMouse(hoverSlider);
    layout->addWidget(hoverSlider);

    auto *plain = new QGroupBox(QObject::tr("Page"));
    auto *plainLayout = new QVBoxLayout(plain);
    plainLayout->addWidget(new QRadioButton(QObject::tr("Single sided")));
    auto *facing = new QRadioButton(QObject::tr("Facing pages"));
    facing->setChecked(true);
    plainLayout->addWidget(facing);
    plainLayout->addWidget(new QPushButton(QObject::tr("Apply")));
    layout->addWidget(plain);

    auto *outer = new QGroupBox(QObject::tr("Layout"));
    auto *outerLayout = new QVBoxLayout(outer);
    auto *inner = new QGroupBox(QObject::tr("Margins"));
    auto *innerLayout = new QVBoxLayout(inner);
    auto *margin = new QSlider(Qt::Horizontal);
    margin->setValue(20);
    innerLayout->addWidget(margin);
    outerLayout->addWidget(inner);
    outerLayout->addWidget(new QPushButton(QObject::tr("Reset")));
    layout->addWidget(outer);

    // Icon-only tool buttons are white glyphs, made for a dark tool bar.
    auto *bar = new QWidget;
    bar->setAutoFillBackground(true);
    QPalette dark = bar->palette();
    dark.setColor(QPalette::Window, QColor(58, 64, 74));
    bar->setPalette(dark);
    auto *barLayout = new QHBoxLayout(bar);
    barLayout->addWidget(tool(0, QString(), false, true));
    barLayout->addWidget(tool(1, QString(), true, true));
    auto *hoverTool = tool(2, QString(), false, true);
    markUnderMouse(hoverTool);
    barLayout->addWidget(hoverTool);
    barLayout->addWidget(tool(2, QString(), false, false));
    barLayout->addStretch(1);
    layout->addWidget(bar);

    auto *texts = new QHBoxLayout;
    texts->addWidget(tool(0, QObject::tr("Align"), false, true));
    texts->addWidget(tool(1, QObject::tr("Grid"), true, true));
    auto *hoverText = tool(2, QObject::tr("Mark"), false, true);
    markUnderMouse(hoverText);
    texts->addWidget(hoverText);
    texts->addWidget(tool(2, QObject::tr("Off"), false, false));
    texts->addStretch(1);
    layout->addLayout(texts);
    layout->addStretch(1);
    return column;
}

void applyStyle(QWidget *root, QStyle *style)
{
    root->setStyle(style);
    for (QWidget *w : root->findChildren<QWidget *>())
        w->setStyle(style);
}

QWidget *makeStylePage()
{
    static TavoLib::GuiStyle *guiStyle = new TavoLib::GuiStyle;
    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);
    for (bool custom : { true, false }) {
        auto *column = new QVBoxLayout;
        auto *title = new QLabel(custom ? QObject::tr("GuiStyle") : QObject::tr("Platform style"));
        QFont font = title->font();
        font.setBold(true);
        title->setFont(font);
        column->addWidget(title);
        QWidget *controls = demo();
        if (custom) {
            QPalette palette = controls->palette();
            guiStyle->polish(palette);
            controls->setPalette(palette);
            controls->setAutoFillBackground(true);
            applyStyle(controls, guiStyle);
        }
        column->addWidget(controls, 1);
        layout->addLayout(column, 1);
    }
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(75, "Style", makeStylePage)
