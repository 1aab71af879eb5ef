#include "widgets/WindowButton.h"
#include "style/Device.h"
#include "style/GuiStyle.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionToolButton>

using TavoLib::Device;

WindowButton::WindowButton(ButtonType type, QWidget *parent) : QAbstractButton(parent), mType(type)
{
    setFocusPolicy(Qt::TabFocus);
    setCheckable(type == CollapseButton);
    setAttribute(Qt::WA_Hover);
    updateName();
    connect(this, &QAbstractButton::toggled, this, &WindowButton::updateName);
}

WindowButton::~WindowButton() = default;

void WindowButton::updateName()
{
    QString name;
    switch (mType) {
    case CloseButton:
        name = tr("Close");
        break;
    case CollapseButton:
        name = isChecked() ? tr("Expand") : tr("Collapse");
        break;
    case FloatButton:
        name = tr("Float");
        break;
    }
    setAccessibleName(name);
    setToolTip(name);
}

QSize WindowButton::sizeHint() const
{
    const int side = int(Device::scale(16.0) + 0.5);
    return QSize(side, side);
}

bool WindowButton::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void WindowButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hover = isEnabled() && underMouse();
    if (hover || isDown() || hasFocus()) {
        if (auto *guiStyle = qobject_cast<const TavoLib::GuiStyle *>(style())) {
            guiStyle->drawHoverRect(&painter, rect());
        } else {
            QStyleOptionToolButton option;
            option.initFrom(this);
            option.state |= QStyle::State_AutoRaise | QStyle::State_Raised;
            if (isDown())
                option.state |= QStyle::State_Sunken;
            style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
        }
    }
    // The glyph on a 16 unit grid, centred.
    const qreal unit = qMin(width(), height()) / 16.0;
    painter.translate((width() - 16 * unit) / 2, (height() - 16 * unit) / 2);
    painter.scale(unit, unit);
    QColor colour = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
        QPalette::ButtonText);
    if (isDown())
        colour = colour.lighter(150);
    QPen pen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    QPainterPath glyph;
    switch (mType) {
    case CloseButton:
        glyph.moveTo(4.5, 4.5);
        glyph.lineTo(11.5, 11.5);
        glyph.moveTo(11.5, 4.5);
        glyph.lineTo(4.5, 11.5);
        break;
    case CollapseButton:
        if (isChecked()) { // collapsed: points right, to open
            glyph.moveTo(6, 4);
            glyph.lineTo(10.5, 8);
            glyph.lineTo(6, 12);
        } else {
            glyph.moveTo(4, 6);
            glyph.lineTo(8, 10.5);
            glyph.lineTo(12, 6);
        }
        break;
    case FloatButton:
        glyph.addRect(QRectF(3.5, 5.5, 7, 7));
        glyph.moveTo(6.5, 3.5);
        glyph.lineTo(12.5, 3.5);
        glyph.lineTo(12.5, 9.5);
        break;
    }
    painter.drawPath(glyph);
}
