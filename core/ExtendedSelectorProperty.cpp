#include "core/ExtendedSelectorProperty.h"

namespace TavoLib {

ExtendedSelectorProperty::ExtendedSelectorProperty(const QString &uniqueName)
    : GroupProperty(uniqueName, uniqueName, PropertyDictionary())
{
}

ExtendedSelectorProperty::ExtendedSelectorProperty(const QString &uniqueName,
                                                   const QString &visibleName,
                                                   const PropertyDictionary &choices)
    : GroupProperty(uniqueName, visibleName, choices)
{
}

TAutoPtr<Property> ExtendedSelectorProperty::current() const
{
    return mCurrent.isEmpty() ? TAutoPtr<Property>() : property(mCurrent);
}

void ExtendedSelectorProperty::setCurrent(const QString &uniqueName)
{
    mCurrent = property(uniqueName) ? uniqueName : QString();
}

QString ExtendedSelectorProperty::valueText() const
{
    const TAutoPtr<Property> chosen = current();
    return chosen ? chosen->visibleName() : QString();
}

TAutoPtr<Property> ExtendedSelectorProperty::clone() const
{
    return new ExtendedSelectorProperty(*this);
}

void ExtendedSelectorProperty::copyValueFrom(const Property &other)
{
    GroupProperty::copyValueFrom(other);
    if (auto *o = dynamic_cast<const ExtendedSelectorProperty *>(&other))
        setCurrent(o->mCurrent);
}

QString ExtendedSelectorProperty::valueString() const
{
    // The chosen child's name first, then what the children hold (a choice without a value
    // of its own adds nothing).
    const TAutoPtr<Property> chosen = current();
    return summary(mProperties, { chosen ? summaryItem(chosen->visibleName()) : QString() });
}

void ExtendedSelectorProperty::intersectValue(const Property &other)
{
    auto *o = dynamic_cast<const ExtendedSelectorProperty *>(&other);
    if (!o || o->mCurrent != mCurrent)
        setUndefined(true);
    GroupProperty::intersectValue(other);
}

} // namespace TavoLib
