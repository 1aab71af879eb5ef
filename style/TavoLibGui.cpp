// The widget library: its resources are registered when it is loaded.
#include "style/TavoLibGuiExport.h"
