#pragma once

// IconMenuConfiguration holds every metric and colour of one icon menu popup. The default
// values give the dark popup with white text used under menu bars; light() gives the bright
// popup of combo boxes and tool buttons. Sizes are in screen pixels, already scaled from the
// 96 dpi design numbers when the value is made.
#include "style/TavoLibGuiExport.h"

#include <QColor>
#include <QString>

struct TAVOLIBGUI_EXPORT IconMenuConfiguration
{
    IconMenuConfiguration();

    // The bright popup of MyComboBox and IconMenuToolButton.
    static IconMenuConfiguration light();

    bool noPointer;
    int leftMargin;
    int rightMargin;
    int itemHeight;
    int iconSize;
    int spacing;
    int frameWidth;
    int cornerRadius;
    int pointerSize;
    double shadowSize;
    int shadowStrength;
    QColor frameColor;
    QColor backgroundColor;
    QColor separatorColor;
    int fontSize;
    bool fontBold;
    QColor textColor;
    QColor disabledTextColor;
    QColor highlightedTextColor;
    double shadowOffset;
    QString checkImage;
};
