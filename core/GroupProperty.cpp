#include "core/GroupProperty.h"

#include <QStringList>

namespace TavoLib {

GroupProperty::GroupProperty(const QString &uniqueName, const PropertyDictionary &children)
    : Property(uniqueName, uniqueName), PropertyDictionary(children)
{
}

GroupProperty::GroupProperty(const QString &uniqueName, const QString &visibleName,
                             const PropertyDictionary &children)
    : Property(uniqueName, visibleName), PropertyDictionary(children)
{
}

GroupProperty::GroupProperty(const GroupProperty &other)
    : AAutoObj(), Property(other), PropertyDictionary(other.cloneProperties()),
      mChildsUndefinable(other.mChildsUndefinable)
{
}

GroupProperty::~GroupProperty() = default;

QString GroupProperty::valueText() const
{
    QStringList parts;
    for (const Property::Ptr &child : mProperties) {
        if (child->isDefined()) {
            const QString text = child->valueText();
            if (!text.isEmpty())
                parts << text;
        }
    }
    return parts.join(QStringLiteral(", "));
}

TAutoPtr<Property> GroupProperty::clone() const
{
    return new GroupProperty(*this);
}

void GroupProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    auto *group = dynamic_cast<const GroupProperty *>(&other);
    if (!group)
        return;
    const size_t n = qMin(mProperties.size(), group->mProperties.size());
    for (size_t i = 0; i < n; ++i)
        mProperties[i]->copyValueFrom(*group->mProperties[i]);
}

QString GroupProperty::valueString() const
{
    return summary(mProperties);
}

bool GroupProperty::reaches(const PropertyDictionary *dictionary) const
{
    return static_cast<const PropertyDictionary *>(this) == dictionary
        || anyReaches(mProperties, dictionary);
}

bool GroupProperty::valueCountsWhenUndefined() const
{
    return true;
}

void GroupProperty::intersectValue(const Property &other)
{
    auto *group = dynamic_cast<const GroupProperty *>(&other);
    if (!group) {
        setUndefined(true);
        return;
    }
    if (other.isUndefined())
        setUndefined(true);
    // Children are merged by position, not by name; children without a counterpart
    // become undefined.
    const size_t n = group->mProperties.size();
    for (size_t i = 0; i < mProperties.size(); ++i) {
        if (i < n)
            mProperties[i]->intersect(group->mProperties[i]);
        else
            mProperties[i]->setUndefined(true);
    }
}

} // namespace TavoLib
