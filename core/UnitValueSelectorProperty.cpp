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
    // The chosen mode with its number, then the other modes' numbers in brackets: a number
    // kept for another mode is part of the value, since the editor shows it again when that
    // mode is chosen. "Exactly 12pt [At least 10pt; Multiple 1.2]"
    const auto modeText = [this](int id) {
        const Item &item = mItems[id];
        return item.name + QLatin1Char(' ') + item.value.strWithUnit();
    };
    QString text = mItems.contains(mValue) ? modeText(mValue) : QString();
    QStringList others;
    for (int id : mIds) {
        if (id != mValue)
            others << modeText(id);
    }
    if (!others.isEmpty())
        text += QStringLiteral(" [") + others.join(QStringLiteral("; ")) + QLatin1Char(']');
    return text;
}

} // namespace TavoLib
