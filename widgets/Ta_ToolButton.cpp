#include "widgets/Ta_ToolButton.h"
#include "core/ImageFunctions.h"
#include "style/Device.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QStyleOptionToolButton>
#include <QStylePainter>

using TavoLib::Device;

namespace {
const char kColorize[] = "COLORIZEICON";
} // namespace

Ta_ToolButton::Ta_ToolButton(QWidget *parent) : QToolButton(parent)
{
    setProperty(kColorize, true);
    setFocusPolicy(Qt::StrongFocus);
    setAutoRaise(true);
}

Ta_ToolButton::~Ta_ToolButton()
{
    if (mPopup)
        mPopup->close();
}

bool Ta_ToolButton::colorizeIcon() const
{
    return property(kColorize).toBool();
}

void Ta_ToolButton::setColorizeIcon(bool colorize)
{
    setProperty(kColorize, colorize);
    update();
}

void Ta_ToolButton::setIconMenu(QMenu *menu)
{
    if (mPopup)
        mPopup->close();
    mMenu = menu;
    updateGeometry();
    update();
}

int Ta_ToolButton::arrowWidth() const
{
    return mMenu ? int(Device::scale(12.0)) : 0;
}

QRect Ta_ToolButton::arrowRect() const
{
    if (!mMenu)
        return QRect();
    const int width = arrowWidth();
    return QRect(rect().right() - width + 1, 0, width, height());
}

QSize Ta_ToolButton::sizeHint() const
{
    return QToolButton::sizeHint() + QSize(arrowWidth(), 0);
}

QSize Ta_ToolButton::minimumSizeHint() const
{
    return QToolButton::minimumSizeHint() + QSize(arrowWidth(), 0);
}

QIcon Ta_ToolButton::paintedIcon(const QSize &size, qreal ratio)
{
    const QIcon source = icon();
    if (source.isNull() || !colorizeIcon())
        return source;
    QColor colour = palette().color(QPalette::ButtonText);
    if (!isEnabled())
        colour = palette().color(QPalette::Disabled, QPalette::ButtonText);
    else if (underMouse() && !isDown())
        colour = palette().color(QPalette::Highlight);
    if (source.cacheKey() == mColoredKey && colour.rgba() == mColoredRgb && size == mColoredSize
        && ratio == mColoredRatio)
        return mColoredIcon;
    QPixmap pixmap = source.pixmap(size * ratio, QIcon::Normal, isChecked() ? QIcon::On : QIcon::Off);
    QPixmap colored = QPixmap::fromImage(ColorizeImage(pixmap.toImage(), colour));
    colored.setDevicePixelRatio(ratio);
    // One picture for every mode: the colour already says hover and disabled.
    QIcon result;
    for (QIcon::Mode mode : { QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected })
        for (QIcon::State state : { QIcon::Off, QIcon::On })
            result.addPixmap(colored, mode, state);
    mColoredIcon = result;
    mColoredKey = source.cacheKey();
    mColoredRgb = colour.rgba();
    mColoredSize = size;
    mColoredRatio = ratio;
    return result;
}

void Ta_ToolButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const int arrow = arrowWidth();
    option.rect.setWidth(option.rect.width() - arrow);
    option.features &= ~(QStyleOptionToolButton::MenuButtonPopup | QStyleOptionToolButton::HasMenu);
    // The device painted on, also when render() redirects the widget into a pixmap (Qt 6
    // then names the widget as the painter's device).
    const QPaintDevice *target
        = painter.paintEngine() ? painter.paintEngine()->paintDevice() : painter.device();
    option.icon = paintedIcon(option.iconSize, target->devicePixelRatioF());
    if (mPopup)
        option.state |= QStyle::State_On;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    if (!arrow)
        return;
    QStyleOption arrowOption;
    arrowOption.initFrom(this);
    const int side = int(Device::scale(7.0));
    const QRect area = arrowRect();
    arrowOption.rect = QRect(area.center().x() - side / 2, area.center().y() - side / 2, side, side);
    // The arrow takes the icon's colour, so it reads as part of the button.
    if (colorizeIcon() && isEnabled() && underMouse())
        arrowOption.palette.setColor(QPalette::ButtonText, palette().color(QPalette::Highlight));
    painter.drawPrimitive(QStyle::PE_IndicatorArrowDown, arrowOption);
}

bool Ta_ToolButton::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
        update();
        break;
    default:
        break;
    }
    return QToolButton::event(event);
}

void Ta_ToolButton::mousePressEvent(QMouseEvent *event)
{
    if (mMenu && event->button() == Qt::LeftButton
        && (popupMode() == QToolButton::InstantPopup || arrowRect().contains(event->pos()))) {
        event->accept();
        if (mPopup)
            mPopup->close(); // a second press on the arrow closes the open menu
        else
            showIconMenu();
        return;
    }
    QToolButton::mousePressEvent(event);
}

void Ta_ToolButton::keyPressEvent(QKeyEvent *event)
{
    const bool openKey = (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier))
        || (event->key() == Qt::Key_F4 && !event->modifiers())
        || (event->key() == Qt::Key_Space && popupMode() == QToolButton::InstantPopup);
    if (mMenu && openKey) {
        event->accept();
        showIconMenu();
        return;
    }
    QToolButton::keyPressEvent(event);
}

void Ta_ToolButton::showIconMenu()
{
    if (!mMenu || mPopup)
        return;
    auto *popup = new IconMenu(IconMenuConfiguration::light(), mMenu,
        mapToGlobal(QPoint(0, height())), this, nativeParentWidget());
    popup->makePopupWindow();
    mPopup = popup;
    connect(popup, &QObject::destroyed, this, [this] { update(); });
    popup->show();
    update();
}
