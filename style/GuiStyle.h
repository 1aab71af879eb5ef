#pragma once

// GuiStyle is the library's application style: a proxy over the application's default style
// that gives push buttons, radio buttons, sliders, group boxes and tool buttons the library's
// own images and gradients, paints no focus rectangles, and leaves every other control to the
// base style. Install it with QApplication::setStyle(new TavoLib::GuiStyle).
#include "style/TavoLibGuiExport.h"

#include <QProxyStyle>
#include <QStyleOption>

namespace TavoLib {

class TAVOLIBGUI_EXPORT GuiStyle : public QProxyStyle
{
    Q_OBJECT
public:
    GuiStyle();

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QWidget *widget) override;
    void unpolish(QWidget *widget) override;
    void polish(QPalette &palette) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
        const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
        QPainter *painter, const QWidget *widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option,
        SubControl subControl, const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
        const QWidget *widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
        const QWidget *widget = nullptr) const override;

    // The translucent grey pill behind a hovered radio button: a rectangle with half circles
    // at both ends, filling the height of rect.
    void drawHoverRect(QPainter *painter, const QRect &rect) const;

private:
    // One of the style's resource images at a design size, cached per name and size; a
    // missing image gives a null pixmap that is not cached.
    static QPixmap cachedResourcePixmap(const QString &name, int width, int height);

    void drawGroupFrame(const QStyleOption *option, QPainter *painter) const;
    void drawButtonPanel(
        const QStyleOption *option, QPainter *painter, const QWidget *widget) const;
    void drawRadioIndicator(
        const QStyleOption *option, QPainter *painter, const QWidget *widget) const;
    void drawSlider(
        const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const;
    void drawGroupBox(
        const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const;
    void drawToolButton(
        const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const;
    void drawToolButtonLabel(
        const QStyleOption *option, QPainter *painter, const QWidget *widget) const;
    // Width of a group box title bar including its two caps.
    static int titleWidth(const QStyleOptionGroupBox *option);
};

} // namespace TavoLib
