#include "core/UnitValueSelectorProperty.h"

namespace TavoLib {

UnitValueSelectorProperty::UnitValueSelectorProperty(const QString &uniqueName,
                                                     const QString &visibleName)
    : Property(uniqueName, visibleName)
{
}

void UnitValueSelectorProperty::addItem(int id, const QString &name, const UnitValue &value,
                                        double minimum, double maximum, int precision)
{
    if (!mItems.contains(id)) {
        if (mIds.empty())
            mValue = id;
        mIds.push_back(id);
    }
    mItems.insert(id, Item{ name, value, qMin(minimum, maximum), qMax(minimum, maximum),
                            qBound(0, precision, 10) });
}

QString UnitValueSelectorProperty::itemName(int id) const
{
    return mItems.value(id).name;
}

UnitValue UnitValueSelectorProperty::itemValue(int id) const
{
    return mItems.value(id).value;
}

void UnitValueSelectorProperty::setItemValue(int id, const UnitValue &value)
{
    auto it = mItems.find(id);
    if (it != mItems.end())
        it->value = value;
}

double UnitValueSelectorProperty::itemMinimum(int id) const
{
    return mItems.value(id).minimum;
}

double UnitValueSelectorProperty::itemMaximum(int id) const
{
    return mItems.value(id).maximum;
}

int UnitValueSelectorProperty::itemPrecision(int id) const
{
    return mItems.value(id).precision;
}

void UnitValueSelectorProperty::setValue(int id)
{
    if (mItems.contains(id))
        mValue = id;
}

QString UnitValueSelectorProperty::valueText() const
{
    auto it = mItems.constFind(mValue);
    if (it == mItems.constEnd())
        return QString();
    return it->name + QLatin1Char(' ') + it->value.strWithUnit(it->precision);
}

TAutoPtr<Property> UnitValueSelectorProperty::clone() const
{
    return new UnitValueSelectorProperty(*this);
}

void UnitValueSelectorProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    auto *o = dynamic_cast<const UnitValueSelectorProperty *>(&other);
    if (!o)
        return;
    for (auto it = o->mItems.constBegin(); it != o->mItems.constEnd(); ++it)
        setItemValue(it.key(), it->value);
    setValue(o->mValue);
}

QString UnitValueSelectorProperty::valueString() const
{
    // The chosen mode and every mode's number: a number kept for another mode is part of
    // the value, since the editor shows it again when that mode is chosen.
    QString text = QString::number(mValue);
    for (int id : mIds) {
        const UnitValue &v = mItems[id].value;
        text += QLatin1Char(' ') + QString::number(id) + QLatin1Char('=')
            + QString::number(v.value(), 'g', 17) + QLatin1Char('/')
            + QString::number(v.unit().GetUnitID(), 16);
    }
    return text;
}

} // namespace TavoLib
