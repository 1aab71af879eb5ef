#pragma once

// Symbol visibility of OmaLib: the library builds with hidden visibility, and the classes
// marked OMALIB_EXPORT form its public interface.
#include <QtCore/qglobal.h>

#if defined(OMALIB_BUILD)
#define OMALIB_EXPORT Q_DECL_EXPORT
#else
#define OMALIB_EXPORT Q_DECL_IMPORT
#endif
