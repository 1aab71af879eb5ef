#include "core/SelectorProperty.h"

namespace TavoLib {

SelectorProperty::SelectorProperty(const QString &uniqueName, const QString &visibleName, Mode mode)
    : Property(uniqueName, visibleName), mMode(mode)
{
}

void SelectorProperty::addItem(int id, const QString &name, const QIcon &icon)
{
    if (!mItems.contains(id)) {
        if (mIds.empty())
            mValue = id;
        mIds.push_back(id);
    }
    mItems.insert(id, Item{ name, icon });
}

QString SelectorProperty::itemName(int id) const
{
    return mItems.value(id).name;
}

QIcon SelectorProperty::itemIcon(int id) const
{
    return mItems.value(id).icon;
}

bool SelectorProperty::setValue(int id)
{
    if (!mItems.contains(id))
        return false;
    mValue = id;
    return true;
}

QString SelectorProperty::valueText() const
{
    return itemName(mValue);
}

TAutoPtr<Property> SelectorProperty::clone() const
{
    return new SelectorProperty(*this);
}

void SelectorProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const SelectorProperty *>(&other))
        setValue(o->mValue);
}

QString SelectorProperty::valueString() const
{
    // The item's name; an empty name, or one that another item shares, gets its id as well,
    // so that two items never read alike.
    const QString name = itemName(mValue);
    bool shared = name.isEmpty();
    for (auto it = mItems.constBegin(); !shared && it != mItems.constEnd(); ++it)
        shared = it.key() != mValue && it->name == name;
    return shared ? name + QStringLiteral(" #") + QString::number(mValue) : name;
}

} // namespace TavoLib
