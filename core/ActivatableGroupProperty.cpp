#include "core/ActivatableGroupProperty.h"

#include <QCoreApplication>

namespace TavoLib {

ActivatableGroupProperty::ActivatableGroupProperty(const QString &uniqueName,
                                                   const QString &visibleName,
                                                   const PropertyDictionary &children, bool active)
    : GroupProperty(uniqueName, visibleName, children), mActive(active)
{
}

QString ActivatableGroupProperty::valueText() const
{
    return mActive ? GroupProperty::valueText()
                   : QCoreApplication::translate("TavoLib::ActivatableGroupProperty", "Off");
}

TAutoPtr<Property> ActivatableGroupProperty::clone() const
{
    return new ActivatableGroupProperty(*this);
}

void ActivatableGroupProperty::copyValueFrom(const Property &other)
{
    GroupProperty::copyValueFrom(other);
    if (auto *o = dynamic_cast<const ActivatableGroupProperty *>(&other))
        mActive = o->mActive;
}

QString ActivatableGroupProperty::valueString() const
{
    return summary(mProperties, { mActive ? QStringLiteral("On") : QStringLiteral("Off") });
}

void ActivatableGroupProperty::intersectValue(const Property &other)
{
    auto *o = dynamic_cast<const ActivatableGroupProperty *>(&other);
    if (!o || o->mActive != mActive)
        setUndefined(true);
    GroupProperty::intersectValue(other);
}

} // namespace TavoLib
