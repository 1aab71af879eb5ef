#pragma once

// RulerDivision says, per unit, by which factors a ruler's step may grow and shrink. A list's
// element 0 is the index of its starting element; every other positive element e is the
// factor e / 2; a negative element is a link that turns each end of the list into a cycle
// (walking onto it moves by its value, against the direction of the walk).
#include "style/TavoLibGuiExport.h"

class TAVOLIBGUI_EXPORT RulerDivision
{
public:
    // The division list of `unit`, or null for a unit the table does not know.
    static const int *Find(unsigned int unit);

    // The factor at `position` of `list` (e / 2).
    static double factor(const int *list, int position);
    // Follows a link at `position`, if there is one; a link ahead of the starting element is
    // reached walking back and leads forward, one behind it leads back.
    static int follow(const int *list, int position);
};
