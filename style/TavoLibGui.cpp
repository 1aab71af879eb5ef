// The widget library. Its resources (the SVG icons under :/TavoLib/ and the style images
// under :/res/images/) are compiled in by rcc, whose generated code registers them from a
// static initialiser when the library is loaded; nothing else runs at load time.
#include "style/TavoLibGuiExport.h"
