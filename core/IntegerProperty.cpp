#include "core/IntegerProperty.h"

#include <QtGlobal>

namespace TavoLib {

IntegerProperty::IntegerProperty(const QString &uniqueName, const QString &visibleName, int value,
                                 int minimum, int maximum)
    : Property(uniqueName, visibleName), mValue(0), mMinimum(qMin(minimum, maximum)),
      mMaximum(qMax(minimum, maximum))
{
    setValue(value);
}

void IntegerProperty::setRange(int minimum, int maximum)
{
    mMinimum = qMin(minimum, maximum);
    mMaximum = qMax(minimum, maximum);
    mValue = qBound(mMinimum, mValue, mMaximum);
}

void IntegerProperty::setValue(int value)
{
    mValue = qBound(mMinimum, value, mMaximum);
}

QString IntegerProperty::valueText() const
{
    return QString::number(mValue);
}

TAutoPtr<Property> IntegerProperty::clone() const
{
    return new IntegerProperty(*this);
}

void IntegerProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const IntegerProperty *>(&other))
        mValue = qBound(mMinimum, o->mValue, mMaximum);
}

QString IntegerProperty::valueString() const
{
    return QString::number(mValue);
}

} // namespace TavoLib
