#include "core/BoolProperty.h"

#include <QCoreApplication>

namespace TavoLib {

BoolProperty::BoolProperty(const QString &uniqueName, const QString &visibleName, bool on)
    : Property(uniqueName, visibleName), mOn(on)
{
}

QString BoolProperty::valueText() const
{
    return mOn ? QCoreApplication::translate("TavoLib::BoolProperty", "Yes")
               : QCoreApplication::translate("TavoLib::BoolProperty", "No");
}

TAutoPtr<Property> BoolProperty::clone() const
{
    return new BoolProperty(*this);
}

void BoolProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const BoolProperty *>(&other))
        mOn = o->mOn;
}

QString BoolProperty::valueString() const
{
    return mOn ? QStringLiteral("Yes") : QStringLiteral("No");
}

} // namespace TavoLib
