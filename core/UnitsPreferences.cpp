#include "core/UnitsPreferences.h"

namespace TavoLib {

UnitsPreferences::UnitsPreferences() = default;
UnitsPreferences::~UnitsPreferences() = default;

TAutoPtr<UnitsPreferences> UnitsPreferences::defaultInstance()
{
    static const TAutoPtr<UnitsPreferences> instance(new UnitsPreferences());
    return instance;
}

void UnitsPreferences::setLengthUnit(unsigned int unit)
{
    set(mLengthUnit, unit);
}

void UnitsPreferences::setFontSizeUnit(unsigned int unit)
{
    set(mFontSizeUnit, unit);
}

void UnitsPreferences::setLineWidthUnit(unsigned int unit)
{
    set(mLineWidthUnit, unit);
}

void UnitsPreferences::set(unsigned int &field, unsigned int unit)
{
    if (field == unit || !CUnit(unit).isKnown())
        return;
    field = unit;
    emit changed();
}

} // namespace TavoLib
