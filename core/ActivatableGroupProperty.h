#pragma once

// A group that can be switched on and off as a whole ("Drop shadow" with its settings):
// the children apply only while the group is active.
#include "core/GroupProperty.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT ActivatableGroupProperty : public GroupProperty
{
public:
    using Ptr = TAutoPtr<ActivatableGroupProperty>;

    ActivatableGroupProperty(const QString &uniqueName, const QString &visibleName,
                             const PropertyDictionary &children = PropertyDictionary(),
                             bool active = false);

    bool isActive() const { return mActive; }
    void setActive(bool active) { mActive = active; }

    const char *kindName() const override { return "ActivatableGroup"; }
    // "Off" while inactive, else the children's values.
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;
    void intersectValue(const Property &other) override;

private:
    bool mActive;
};

} // namespace TavoLib
