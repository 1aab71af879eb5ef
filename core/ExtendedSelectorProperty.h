#pragma once

// A choice among its children: each child is one option (its uniqueName the key, its
// visibleName the text, its iconName the icon), and the chosen child's own properties are
// edited below the choice.
#include "core/GroupProperty.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT ExtendedSelectorProperty : public GroupProperty
{
public:
    using Ptr = TAutoPtr<ExtendedSelectorProperty>;

    explicit ExtendedSelectorProperty(const QString &uniqueName);
    ExtendedSelectorProperty(const QString &uniqueName, const QString &visibleName,
                             const PropertyDictionary &choices = PropertyDictionary());

    // The chosen child; null when none is chosen.
    TAutoPtr<Property> current() const;
    // Chooses the child named `uniqueName`; an empty or unknown name chooses none.
    void setCurrent(const QString &uniqueName);
    QString currentName() const { return mCurrent; }

    const char *kindName() const override { return "ExtendedSelector"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;
    void intersectValue(const Property &other) override;

private:
    QString mCurrent;
};

} // namespace TavoLib
