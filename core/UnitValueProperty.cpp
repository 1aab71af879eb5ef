#include "core/UnitValueProperty.h"

#include <QtGlobal>

namespace TavoLib {

UnitValueProperty::Preset::Preset(const UnitValue &value, const QString &name)
    : mValue(value), mName(name)
{
}

UnitValueProperty::Preset UnitValueProperty::Preset::separator()
{
    Preset preset;
    preset.mSeparator = true;
    return preset;
}

UnitValueProperty::UnitValueProperty(const QString &uniqueName, const QString &visibleName,
                                     const UnitValue &value, unsigned int displayUnit,
                                     double minimum, double maximum, int precision)
    : Property(uniqueName, visibleName), mValue(value), mUnit(displayUnit),
      mMinimum(qMin(minimum, maximum)), mMaximum(qMax(minimum, maximum)),
      mPrecision(qBound(0, precision, 10))
{
}

void UnitValueProperty::setRange(double minimum, double maximum)
{
    mMinimum = qMin(minimum, maximum);
    mMaximum = qMax(minimum, maximum);
}

void UnitValueProperty::setSpecialValue(double value, const QString &text)
{
    mSpecialValue = value;
    mSpecialValueText = text;
}

void UnitValueProperty::setSecondUnit(unsigned int unit, double minimum, double maximum,
                                      int precision)
{
    mUseSecondUnit = true;
    mSecondUnit = unit;
    mSecondMinimum = qMin(minimum, maximum);
    mSecondMaximum = qMax(minimum, maximum);
    mSecondPrecision = qBound(0, precision, 10);
}

QString UnitValueProperty::valueText() const
{
    const CUnit display(mUnit);
    const bool inSecond = mUseSecondUnit && mValue.unit().GetClassID() == CUnit(mSecondUnit).GetClassID()
        && mValue.unit().GetClassID() != display.GetClassID();
    const CUnit shown = inSecond ? CUnit(mSecondUnit) : display;
    const double number = mValue.get(shown);
    if (!mSpecialValueText.isEmpty() && !inSecond && qFuzzyCompare(number + 1.0, mSpecialValue + 1.0))
        return mSpecialValueText;
    return UnitValue(number, shown).strWithUnit(inSecond ? mSecondPrecision : mPrecision);
}

TAutoPtr<Property> UnitValueProperty::clone() const
{
    return new UnitValueProperty(*this);
}

void UnitValueProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const UnitValueProperty *>(&other))
        mValue = o->mValue;
}

QString UnitValueProperty::valueString() const
{
    // The special value reads as its text only when it is exactly that number in the display
    // unit; every other value reads in its own unit at full precision.
    if (!mSpecialValueText.isEmpty() && mValue.unit() == CUnit(mUnit)
        && mValue.value() == mSpecialValue)
        return mSpecialValueText;
    return mValue.strWithUnit();
}

} // namespace TavoLib
