#pragma once

// A whole number within an inclusive range; setValue clamps into the range.
#include "core/Property.h"

#include <climits>

namespace TavoLib {

class TAVOLIBCORE_EXPORT IntegerProperty : public Property
{
public:
    using Ptr = TAutoPtr<IntegerProperty>;

    IntegerProperty(const QString &uniqueName, const QString &visibleName, int value = 0,
                    int minimum = INT_MIN, int maximum = INT_MAX);

    int minimum() const { return mMinimum; }
    int maximum() const { return mMaximum; }
    void setRange(int minimum, int maximum);
    int value() const { return mValue; }
    void setValue(int value);

    const char *kindName() const override { return "Integer"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    int mValue;
    int mMinimum;
    int mMaximum;
};

} // namespace TavoLib
