#pragma once

// The rounded, lightly graded face shared by the framed icon-menu tool button and MyComboBox:
// a grey gradient body, a faint outline and an inner white glow. `inverted` darkens it while
// the button's popup is open or it is pressed; `flipWhenInverted` also turns the gradient.
#include <QRect>

class QPainter;

namespace TavoLib {

void paintButtonFace(QPainter &painter, const QRect &rect, bool inverted, bool flipWhenInverted,
    bool focused, bool enabled);

} // namespace TavoLib
