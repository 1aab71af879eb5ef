#pragma once

// Symbol visibility of TavoPropertyBrowser: the library builds with hidden visibility, and the
// classes marked TAVOPROPERTYBROWSER_EXPORT form its public interface.
#include <QtCore/qglobal.h>

#if defined(TAVOPROPERTYBROWSER_BUILD)
#define TAVOPROPERTYBROWSER_EXPORT Q_DECL_EXPORT
#else
#define TAVOPROPERTYBROWSER_EXPORT Q_DECL_IMPORT
#endif
