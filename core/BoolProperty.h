#pragma once

// An on/off value, shown as a check box or, with an icon, as a checkable tool button.
#include "core/Property.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT BoolProperty : public Property
{
public:
    using Ptr = TAutoPtr<BoolProperty>;

    BoolProperty(const QString &uniqueName, const QString &visibleName, bool on = false);

    bool on() const { return mOn; }
    void setOn(bool on) { mOn = on; }

    const char *kindName() const override { return "Bool"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    bool mOn;
};

} // namespace TavoLib
