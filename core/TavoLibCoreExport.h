#pragma once

// Symbol visibility of TavoLibCore: the library builds with hidden visibility, and the classes
// marked TAVOLIBCORE_EXPORT form its public interface.
#include <QtCore/qglobal.h>

#if defined(TAVOLIBCORE_BUILD)
#define TAVOLIBCORE_EXPORT Q_DECL_EXPORT
#else
#define TAVOLIBCORE_EXPORT Q_DECL_IMPORT
#endif
