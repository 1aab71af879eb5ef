#pragma once

// Symbol visibility of TavoLibGui: the library builds with hidden visibility, and the classes
// marked TAVOLIBGUI_EXPORT form its public interface.
#include <QtCore/qglobal.h>

#if defined(TAVOLIBGUI_BUILD)
#define TAVOLIBGUI_EXPORT Q_DECL_EXPORT
#else
#define TAVOLIBGUI_EXPORT Q_DECL_IMPORT
#endif
