#include "style/GuiStyle.h"

#include "core/ImageFunctions.h"
#include "style/Device.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyleOption>
#include <QToolButton>

namespace TavoLib {

namespace {

const QString TitleCapLeft = QStringLiteral(":res/images/title_cap_left.png");
const QString TitleCapRight = QStringLiteral(":res/images/title_cap_right.png");
const QString TitleStretch = QStringLiteral(":res/images/title_stretch.png");
const QString SliderBar = QStringLiteral(":res/images/slider_bar.png");
const QString SliderThumb = QStringLiteral(":res/images/slider_thumb_on.png");
const QString RadioOff = QStringLiteral(":res/images/radiobutton_off.png");
const QString RadioOn = QStringLiteral(":res/images/radiobutton_on.png");
const QString RadioPressed = QStringLiteral(":res/images/radiobutton-on.png");

bool hovered(const QStyleOption *option)
{
    return (option->state & QStyle::State_Enabled) && (option->state & QStyle::State_MouseOver);
}

bool takesHover(const QWidget *widget)
{
    return qobject_cast<const QPushButton *>(widget) || qobject_cast<const QRadioButton *>(widget)
        || qobject_cast<const QSlider *>(widget);
}

QPen outlinePen(const QColor &color, qreal width)
{
    return QPen(
        QBrush(color, Qt::SolidPattern), width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

} // namespace

GuiStyle::GuiStyle() : QProxyStyle() { }

QPixmap GuiStyle::cachedResourcePixmap(const QString &name, int width, int height)
{
    const QString key
        = QStringLiteral("%1: %2x%3").arg(name, QString::number(width), QString::number(height));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = Device::pixmap(name, width, height, nullptr);
    if (pixmap.isNull())
        return QPixmap();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

int GuiStyle::pixelMetric(
    PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    if (metric == PM_SliderLength)
        return int(Device::scale(13.0));
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void GuiStyle::polish(QPalette &palette)
{
    // Kept on purpose: the base is not called; only the window colour changes.
    palette.setColor(QPalette::All, QPalette::Window, QColor(241, 241, 241, 255));
}

void GuiStyle::polish(QWidget *widget)
{
    // Kept on purpose: the base is not called (nor in unpolish).
    if (!widget)
        return;
    if (auto *group = qobject_cast<QGroupBox *>(widget)) {
        if (QLayout *layout = group->layout()) {
            const bool nested
                = !group->findChildren<QGroupBox *>(QString(), Qt::FindChildrenRecursively)
                       .isEmpty();
            const int margin = int(Device::scale(nested ? 13.0 : 12.0));
            if (!nested)
                layout->setSpacing(0);
            layout->setContentsMargins(margin, margin, margin, margin);
        }
    }
    if (takesHover(widget))
        widget->setAttribute(Qt::WA_Hover, true);
}

void GuiStyle::unpolish(QWidget *widget)
{
    if (takesHover(widget))
        widget->setAttribute(Qt::WA_Hover, false);
}

QSize GuiStyle::sizeFromContents(
    ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        result.setHeight(int(Device::scale(26.0)));
        break;
    case CT_RadioButton:
        result += Device::scaleSize(QSize(20, 0));
        break;
    case CT_Slider:
        result.setHeight(int(Device::scale(27.0)));
        break;
    default:
        break;
    }
    return result;
}

QRect GuiStyle::subElementRect(
    SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    QRect result;
    if (element == SE_RadioButtonContents && widget)
        result = widget->rect().adjusted(int(Device::scale(20.0)), 0, 0, 0);
    else if (element == SE_RadioButtonClickRect && widget)
        result = widget->rect();
    else
        result = QProxyStyle::subElementRect(element, option, widget);
    if (qobject_cast<const QRadioButton *>(widget))
        result.adjust(int(Device::scale(5.0)), 0, int(Device::scale(-5.0)), 0);
    return result;
}

int GuiStyle::titleWidth(const QStyleOptionGroupBox *option)
{
    return int(
        QFontMetrics(option->fontMetrics).horizontalAdvance(option->text) + Device::scale(20.0));
}

QRect GuiStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
    SubControl subControl, const QWidget *widget) const
{
    if (control == CC_GroupBox) {
        const auto *group = qstyleoption_cast<const QStyleOptionGroupBox *>(option);
        if (!group)
            return QRect();
        if (subControl == SC_GroupBoxLabel) {
            const QPixmap left = cachedResourcePixmap(TitleCapLeft, 4, 18);
            const QPixmap right = cachedResourcePixmap(TitleCapRight, 4, 18);
            const QPixmap stretch = cachedResourcePixmap(TitleStretch, 1, 18);
            const int w = titleWidth(group);
            const QPoint centre = group->rect.center();
            const int leftWidth = Device::logicalSize(left).width();
            const int rightWidth = Device::logicalSize(right).width();
            return QRect(centre.x() - w / 2 + leftWidth, 0, w - leftWidth - rightWidth,
                Device::logicalSize(stretch).height());
        }
        if (subControl == SC_GroupBoxFrame)
            return group->rect;
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    }
    QRect result = QProxyStyle::subControlRect(control, option, subControl, widget);
    if (control == CC_Slider) {
        if (subControl == SC_SliderHandle) {
            result.setWidth(int(Device::scale(13.0)));
            result.setHeight(int(Device::scale(27.0)));
        } else if (subControl == SC_SliderGroove) {
            result.setHeight(int(Device::scale(9.0)));
            result.moveTop(int(Device::scale(9.0)));
        }
    }
    return result;
}

void GuiStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_FrameFocusRect:
        return; // focus is shown by the controls themselves, never by a dotted frame
    case PE_FrameGroupBox:
        drawGroupFrame(option, painter);
        return;
    case PE_PanelButtonCommand:
        drawButtonPanel(option, painter, widget);
        return;
    case PE_IndicatorRadioButton:
        drawRadioIndicator(option, painter, widget);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void GuiStyle::drawGroupFrame(const QStyleOption *option, QPainter *painter) const
{
    if (!qstyleoption_cast<const QStyleOptionFrame *>(option))
        return;
    const QRect rect = option->rect.adjusted(1, 1, -1, -1);
    const int radius = int(Device::scale(5.0));
    painter->save();
    painter->setBrush(QBrush(QColor(0, 0, 0, 100), Qt::SolidPattern));
    painter->setPen(outlinePen(QColor(255, 255, 255, 100), 2.0));
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->drawRoundedRect(rect, radius, radius);
    painter->restore();
}

void GuiStyle::drawButtonPanel(
    const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    if (!qstyleoption_cast<const QStyleOptionButton *>(option))
        return;
    const bool hover = hovered(option);
    const bool pressed = option->state & (State_Sunken | State_On);
    const QRect rect = option->rect;

    // Inside a group box the button's corners show the box's gradient, not the window colour.
    const auto *button = qobject_cast<const QPushButton *>(widget);
    if (button) {
        if (auto *parent = qobject_cast<const QGroupBox *>(button->parentWidget())) {
            QLinearGradient gradient(0, 0, 0, parent->height());
            gradient.setColorAt(0, QColor(224, 224, 224, 255));
            gradient.setColorAt(1, QColor(255, 255, 255, 255));
            painter->setPen(Qt::NoPen);
            painter->setBrush(gradient);
            painter->setBrushOrigin(-button->mapToParent(QPoint(0, 0)));
            painter->drawRect(rect);
            painter->setBrushOrigin(0, 0);
        }
    }

    QPixmap left, right, stretch;
    if (pressed) {
        left = cachedResourcePixmap(
            QStringLiteral(":res/images/button_pressed_cap_left.png"), 17, 25);
        right = cachedResourcePixmap(
            QStringLiteral(":res/images/button_pressed_cap_right.png"), 17, 25);
        stretch
            = cachedResourcePixmap(QStringLiteral(":res/images/button_pressed_stretch.png"), 1, 26);
    } else {
        left = cachedResourcePixmap(
            QStringLiteral(":res/images/button_normal_cap_left.png"), 10, 26);
        right = cachedResourcePixmap(
            QStringLiteral(":res/images/button_normal_cap_right.png"), 10, 26);
        stretch
            = cachedResourcePixmap(QStringLiteral(":res/images/button_normal_stretch.png"), 15, 26);
    }
    painter->drawPixmap(rect.topLeft(), left);
    const QSize leftSize = Device::logicalSize(left);
    const int rightWidth = Device::logicalSize(right).width();
    const QRect middle(rect.left() + leftSize.width(), rect.top(),
        rect.width() - leftSize.width() - rightWidth, leftSize.height());
    if (!stretch.isNull() && middle.isValid())
        painter->drawTiledPixmap(middle, stretch, QPoint());
    painter->drawPixmap(QPoint(rect.left() - rightWidth + rect.width(), rect.top()), right);

    if (hover && widget)
        painter->fillRect(widget->rect().adjusted(3, 5, -3, -5), QColor(31, 127, 31, 63));
}

void GuiStyle::drawHoverRect(QPainter *painter, const QRect &rect) const
{
    const qreal x = rect.x();
    const qreal y = rect.y();
    const qreal w = rect.width();
    const qreal h = rect.height();
    QPainterPath path;
    path.addRect(QRectF(x + h * 0.5, y, w - h * 0.5 * 2.0, h));
    path.addEllipse(QRectF(x, y, h, h));
    path.addEllipse(QRectF(x + w - h, y, h, h));
    path.setFillRule(Qt::WindingFill);
    painter->save();
    painter->setPen(Qt::NoPen);
    painter->setBrush(QBrush(QColor(200, 200, 200, 150), Qt::SolidPattern));
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->drawPath(path);
    painter->restore();
}

void GuiStyle::drawRadioIndicator(
    const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    if (!qstyleoption_cast<const QStyleOptionButton *>(option))
        return;
    painter->save();
    if (hovered(option))
        drawHoverRect(painter, widget ? widget->rect() : option->rect);
    QString name = RadioOff;
    if (option->state & State_Sunken)
        name = RadioPressed;
    else if (option->state & State_On)
        name = RadioOn;
    painter->drawPixmap(option->rect.topLeft(), cachedResourcePixmap(name, 12, 14));
    painter->restore();
}

void GuiStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
    QPainter *painter, const QWidget *widget) const
{
    switch (control) {
    case CC_Slider:
        drawSlider(option, painter, widget);
        return;
    case CC_GroupBox:
        drawGroupBox(option, painter, widget);
        return;
    case CC_ToolButton:
        drawToolButton(option, painter, widget);
        return;
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

void GuiStyle::drawSlider(
    const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (!slider)
        return;
    // Kept on purpose: this style's own rectangles, not those of proxy().
    const QRect groove = subControlRect(CC_Slider, slider, SC_SliderGroove, widget);
    const QRect handle = subControlRect(CC_Slider, slider, SC_SliderHandle, widget);
    painter->save();
    const bool hover = hovered(option);
    if ((slider->subControls & SC_SliderGroove) && groove.isValid()) {
        const QPixmap bar = cachedResourcePixmap(SliderBar, 107, 9);
        const QRect target(int(groove.x() + Device::scale(5.0)), groove.y(),
            int(groove.width() - Device::scale(10.0)), Device::logicalSize(bar).height());
        if (!bar.isNull())
            painter->drawPixmap(target, bar);
    }
    if ((slider->subControls & SC_SliderHandle) && handle.isValid()) {
        const QIcon thumb(cachedResourcePixmap(SliderThumb, 13, 27));
        thumb.paint(
            painter, handle, Qt::AlignCenter, hover ? QIcon::Selected : QIcon::Normal, QIcon::On);
    }
    painter->restore();
}

void GuiStyle::drawGroupBox(
    const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    const auto *group = qstyleoption_cast<const QStyleOptionGroupBox *>(option);
    if (!group)
        return;
    QStyleOptionGroupBox copy(*group);
    copy.subControls &= ~SC_GroupBoxLabel;
    // Kept on purpose: the base is called directly, not through proxy().
    QProxyStyle::drawComplexControl(CC_GroupBox, &copy, painter, widget);
    if (!(group->subControls & SC_GroupBoxLabel))
        return;

    const QPixmap left = cachedResourcePixmap(TitleCapLeft, 4, 18);
    const QPixmap right = cachedResourcePixmap(TitleCapRight, 4, 18);
    const QPixmap stretch = cachedResourcePixmap(TitleStretch, 1, 18);
    const int w = titleWidth(group);
    painter->drawPixmap(QPoint(group->rect.center().x() - w / 2, 0), left);
    const QRect label = subControlRect(CC_GroupBox, group, SC_GroupBoxLabel, widget);
    if (!stretch.isNull() && label.isValid())
        painter->drawTiledPixmap(label, stretch, QPoint());
    painter->drawPixmap(QPoint(label.x() + label.width(), 0), right);

    // White text over a soft shadow, one pixel below.
    painter->save();
    painter->setPen(QColor(0, 0, 0, 31));
    painter->drawText(label.translated(0, 1), Qt::AlignCenter, group->text);
    painter->drawText(label.translated(2, 1), Qt::AlignCenter, group->text);
    painter->setPen(QColor(0, 0, 0, 62));
    painter->drawText(label.translated(1, 1), Qt::AlignCenter, group->text);
    painter->setPen(Qt::white);
    painter->drawText(label, Qt::AlignCenter, group->text);
    painter->restore();
}

void GuiStyle::drawToolButton(
    const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    const auto *tool = qstyleoption_cast<const QStyleOptionToolButton *>(option);
    if (!tool)
        return;
    const auto *button = qobject_cast<const QToolButton *>(widget);
    const QRect rect = proxy()->subControlRect(CC_ToolButton, option, SC_ToolButton, widget);
    const bool down = button ? button->isDown() : bool(option->state & State_Sunken);
    const bool checked = button ? button->isChecked() : bool(option->state & State_On);
    const bool enabled = button ? button->isEnabled() : bool(option->state & State_Enabled);

    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (tool->text.isEmpty()) {
        // Icon-only buttons are flat: the icon itself is recoloured to show the state.
        QColor color(Qt::white);
        if (down) {
            color = color.darker(150);
        } else {
            if (checked) {
                painter->setClipping(false);
                painter->save();
                const int radius = int(Device::scale(3.0));
                painter->setBrush(QColor(0, 0, 0, 100));
                painter->setPen(outlinePen(QColor(255, 255, 255, 100), 1.0));
                painter->setRenderHint(QPainter::Antialiasing, true);
                painter->drawRoundedRect(option->rect.adjusted(1, 1, -1, -1), radius, radius);
                painter->restore();
            }
            if ((option->state & State_MouseOver) && (option->state & State_Enabled))
                color = widget ? widget->palette().color(QPalette::Highlight)
                               : option->palette.color(QPalette::Highlight);
            else if (!enabled)
                color = color.darker(150);
        }
        const QIcon icon = button ? button->icon() : tool->icon;
        QPixmap pixmap = icon.pixmap(rect.size(), QIcon::Normal, QIcon::Off);
        if (!pixmap.isNull()) {
            pixmap.setDevicePixelRatio(Device::pixelRatio());
            const QImage image = ColorizeImage(pixmap.toImage(), color);
            const qreal ratio = image.devicePixelRatio();
            painter->translate(rect.topLeft());
            painter->drawImage(QPoint(int((rect.width() - image.width() / ratio) * 0.5),
                                   int((rect.height() - image.height() / ratio) * 0.5)),
                image);
        }
    } else {
        if (down || checked || (option->state & State_MouseOver)) {
            painter->setClipping(false);
            painter->save();
            const QRect frame = option->rect.adjusted(1, 1, -1, -1);
            QLinearGradient gradient(frame.topLeft(), frame.bottomLeft());
            if (down || checked) {
                painter->setPen(outlinePen(QColor(0, 0, 0, 150), 0));
                // Kept on purpose: both stops at position 0, so the backdrop is flat grey.
                gradient.setColorAt(0, Qt::darkGray);
                gradient.setColorAt(0, Qt::darkGray);
            } else {
                painter->setPen(outlinePen(QColor(255, 255, 255, 50), 0));
                gradient.setColorAt(0, QColor(160, 160, 160, 255).lighter(130));
                gradient.setColorAt(1, QColor(160, 160, 160, 255));
            }
            painter->setRenderHint(QPainter::Antialiasing, true);
            painter->setBrush(gradient);
            const int radius = int(Device::scale(2.0));
            painter->drawRoundedRect(frame, radius, radius);
            painter->restore();
        }
        QStyleOptionToolButton label(*tool);
        proxy()->drawControl(CE_ToolButtonLabel, &label, painter, widget);
    }
    painter->restore();
}

void GuiStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
    const QWidget *widget) const
{
    if (element == CE_ToolButtonLabel
        && qstyleoption_cast<const QStyleOptionToolButton *>(option)) {
        drawToolButtonLabel(option, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void GuiStyle::drawToolButtonLabel(
    const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    const auto *tool = qstyleoption_cast<const QStyleOptionToolButton *>(option);
    const QRect rect = tool->rect;
    const bool hasArrow = tool->features & QStyleOptionToolButton::Arrow;
    const bool enabled = tool->state & State_Enabled;
    int flags = Qt::TextShowMnemonic;
    if (!proxy()->styleHint(SH_UnderlineShortcut, option, widget))
        flags |= Qt::TextHideMnemonic;

    if (tool->toolButtonStyle == Qt::ToolButtonTextOnly
        || (!hasArrow && tool->icon.isNull() && !tool->text.isEmpty())) {
        proxy()->drawItemText(painter, rect, flags | Qt::AlignCenter, tool->palette, enabled,
            tool->text, QPalette::ButtonText);
        return;
    }

    QPixmap pixmap;
    QSize logical = tool->iconSize;
    if (!tool->icon.isNull()) {
        QIcon::Mode mode = QIcon::Normal;
        if (!enabled)
            mode = QIcon::Disabled;
        else if ((tool->state & State_MouseOver) && (tool->state & State_AutoRaise))
            mode = QIcon::Active;
        const QIcon::State state = (tool->state & State_On) ? QIcon::On : QIcon::Off;
        pixmap = tool->icon.pixmap(rect.size().boundedTo(tool->iconSize), mode, state);
        if (tool->state & State_On) {
            const qreal ratio = pixmap.devicePixelRatio();
            pixmap
                = QPixmap::fromImage(ColorizeImage(pixmap.toImage(), QColor(200, 200, 200, 255)));
            pixmap.setDevicePixelRatio(ratio);
        }
        logical = Device::logicalSize(pixmap);
    }

    if (tool->toolButtonStyle == Qt::ToolButtonIconOnly) {
        if (!hasArrow)
            proxy()->drawItemPixmap(painter, rect, Qt::AlignCenter, pixmap);
        return;
    }

    painter->setFont(tool->font);
    QRect pixmapRect = rect;
    QRect textRect = rect;
    if (tool->toolButtonStyle == Qt::ToolButtonTextUnderIcon) {
        pixmapRect.setHeight(logical.height() + 6);
        textRect.adjust(0, pixmapRect.height() - 1, 0, -1);
        if (!hasArrow)
            proxy()->drawItemPixmap(painter, pixmapRect, Qt::AlignCenter, pixmap);
        flags |= Qt::AlignCenter;
    } else {
        pixmapRect.setWidth(int(logical.width() + Device::scale(10.0)));
        textRect.setLeft(textRect.left() + pixmapRect.width());
        if (!hasArrow)
            proxy()->drawItemPixmap(painter, QStyle::visualRect(tool->direction, rect, pixmapRect),
                Qt::AlignCenter, pixmap);
        flags |= Qt::AlignLeft | Qt::AlignVCenter;
    }
    QPalette palette = tool->palette;
    if (tool->state & State_On)
        palette.setBrush(
            QPalette::ButtonText, QBrush(QColor(200, 200, 200, 255), Qt::SolidPattern));
    proxy()->drawItemText(painter, QStyle::visualRect(tool->direction, rect, textRect), flags,
        palette, enabled, tool->text, QPalette::ButtonText);
}

} // namespace TavoLib
