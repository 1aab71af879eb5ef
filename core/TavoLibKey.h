#pragma once

// Translates a key of the core library: tr(context, key), through Qt's translation system.
#include "core/TavoLibCoreExport.h"

#include <QString>

namespace TavoLib {

class TAVOLIBCORE_EXPORT TavoLibKey
{
public:
    static QString tr(const QString &context, const QString &key);
};

} // namespace TavoLib
