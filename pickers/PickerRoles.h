#pragma once

// Item data roles under which the style resource pickers store identifiers and names in
// their models and combo boxes. The numbers are shared with hosts that read a picker's
// items directly, so they must not change.
#include <Qt>

namespace TavoLib {

enum PickerRole {
    // Brush identifier of a combo box item, as an int.
    BrushIdRole = 0x10F,
    // Pen style or line-head style identifier of a combo box item, as an int.
    StyleIdRole = 0x119,
    // Font identifier of a font row, as an int: a missing font, or a style.
    FontIdRole = 0x11F,
    // Family name of an available family's row, as a string.
    FontFamilyRole = 0x120
};

} // namespace TavoLib
