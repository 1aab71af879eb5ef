#include "menus/IconMenuConfiguration.h"

#include "style/Device.h"

using TavoLib::Device;

namespace {
// 5 mm and 2 mm at 72 points per inch, in 96 dpi pixels.
constexpr double kDarkShadow = 14.173228346456694;
constexpr double kLightShadow = 5.669291338582678;

int scaled(double value)
{
    return int(Device::scale(value));
}
} // namespace

IconMenuConfiguration::IconMenuConfiguration()
    : noPointer(true),
      leftMargin(scaled(16.0)),
      rightMargin(scaled(20.0)),
      itemHeight(scaled(24.0)),
      iconSize(scaled(24.0)),
      spacing(scaled(2.0)),
      frameWidth(scaled(2.0)),
      cornerRadius(scaled(6.0)),
      pointerSize(scaled(10.0)),
      shadowSize(Device::scale(kDarkShadow)),
      shadowStrength(50),
      frameColor(255, 255, 255, 100),
      backgroundColor(0, 0, 0, 210),
      separatorColor(220, 220, 220, 180),
      fontSize(9),
      fontBold(true),
      textColor(220, 220, 220, 255),
      disabledTextColor(150, 150, 150, 200),
      highlightedTextColor(220, 220, 220, 255),
      shadowOffset(Device::scale(kDarkShadow)),
      checkImage(QStringLiteral(":/checked-white"))
{
}

IconMenuConfiguration IconMenuConfiguration::light()
{
    IconMenuConfiguration c;
    c.noPointer = true;
    c.leftMargin = scaled(16.0);
    c.rightMargin = scaled(20.0);
    c.itemHeight = scaled(24.0);
    c.iconSize = scaled(24.0);
    c.spacing = scaled(2.0);
    c.frameWidth = scaled(1.0);
    c.cornerRadius = scaled(4.0);
    c.pointerSize = scaled(15.0);
    c.shadowSize = Device::scale(kLightShadow);
    c.shadowOffset = Device::scale(kLightShadow);
    c.shadowStrength = 50;
    c.frameColor = QColor(0, 0, 0, 30);
    c.backgroundColor = QColor(255, 255, 255, 240);
    c.separatorColor = QColor(220, 220, 220, 180);
    c.fontSize = 8;
    c.fontBold = false;
    c.textColor = QColor(50, 50, 50, 255);
    c.highlightedTextColor = QColor(255, 255, 255, 255);
    c.disabledTextColor = QColor(150, 150, 150, 200);
    c.checkImage = QStringLiteral(":/checked-black");
    return c;
}
