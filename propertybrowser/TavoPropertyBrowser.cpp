// The property-browser framework: QtProperty, managers, editor factories and browsers.
#include "propertybrowser/TavoPropertyBrowserExport.h"
