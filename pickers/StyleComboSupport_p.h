#pragma once

// Helpers the pen and line-head controllers share: they fill and read a combo box the same
// way and differ only in the provider and the preview. Internal to the pickers.
#include <QPixmap>
#include <QSize>
#include <functional>
#include <list>

class QComboBox;

namespace TavoLib {
namespace StyleComboSupport {

// Appends one item per style with its name, preview and identifier, after measuring a row
// with a placeholder item, and selects `current` or index 0.
void populate(QComboBox *combo, const std::list<short> &styles, short current, double width,
    const std::function<QString(short)> &name,
    const std::function<QPixmap(short, const QSize &)> &preview);
bool setCurrent(QComboBox *combo, short style);
short current(QComboBox *combo);
short at(int index, QComboBox *combo);
// A logical size in device pixels, each side rounded; and a provider's device-pixel
// pixmap marked with the screen's pixel ratio.
QSize devicePixels(const QSize &size);
QPixmap withPixelRatio(QPixmap pixmap);

} // namespace StyleComboSupport
} // namespace TavoLib
