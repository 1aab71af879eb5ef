#pragma once

// A font size: a measure that also says which height of the face the size refers to.
#include "core/UnitValueProperty.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT FontSizeProperty : public UnitValueProperty
{
public:
    using Ptr = TAutoPtr<FontSizeProperty>;

    enum ReferenceSizeType { AscentHeight = 0, CapHeight = 1 };

    FontSizeProperty(const QString &uniqueName, const QString &visibleName, const UnitValue &value,
                     unsigned int displayUnit = CUnit::PT, double minimum = 1.0,
                     double maximum = 1000.0, int precision = 2);

    ReferenceSizeType referenceSizeType() const { return mReferenceSizeType; }
    void setReferenceSizeType(ReferenceSizeType type) { mReferenceSizeType = type; }

    const char *kindName() const override { return "FontSize"; }
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    ReferenceSizeType mReferenceSizeType = AscentHeight;
};

} // namespace TavoLib
