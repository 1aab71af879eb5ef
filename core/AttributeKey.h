#pragma once

// Names one kind of attribute ("Fill", "Character", ...). Keys order and compare by name.
#include "core/TavoLibCoreExport.h"

#include <QString>

namespace TavoLib {

class TAVOLIBCORE_EXPORT AttributeKey
{
public:
    AttributeKey() = default;
    explicit AttributeKey(const QString &name) : mName(name) {}

    QString name() const { return mName; }
    bool isNull() const { return mName.isEmpty(); }

    bool operator<(const AttributeKey &other) const { return mName < other.mName; }
    bool operator==(const AttributeKey &other) const { return mName == other.mName; }
    bool operator!=(const AttributeKey &other) const { return mName != other.mName; }

private:
    QString mName;
};

} // namespace TavoLib
