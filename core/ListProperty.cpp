#include "core/ListProperty.h"

#include <QCoreApplication>

namespace TavoLib {

ListProperty::ListProperty(const QString &uniqueName, const QString &visibleName,
                           TAutoPtr<Property const> masterProperty, int minimum, int maximum)
    : Property(uniqueName, visibleName), mMaster(masterProperty),
      mMinimum(qMax(0, qMin(minimum, maximum))), mMaximum(qMax(mMinimum, qMax(minimum, maximum)))
{
}

ListProperty::ListProperty(const ListProperty &other)
    : Property(other), mMaster(other.mMaster), mMinimum(other.mMinimum), mMaximum(other.mMaximum)
{
    mElements.reserve(other.mElements.size());
    for (const Property::Ptr &element : other.mElements)
        mElements.push_back(element->clone());
}

Property::Ptr ListProperty::at(int index) const
{
    if (index < 0 || index >= size())
        return Property::Ptr();
    return mElements[size_t(index)];
}

TAutoPtr<Property> ListProperty::insertProperty(int index)
{
    if (!mMaster || size() >= mMaximum)
        return TAutoPtr<Property>();
    index = qBound(0, index, size());
    TAutoPtr<Property> element = mMaster->clone();
    mElements.insert(mElements.begin() + index, element);
    return element;
}

TAutoPtr<Property> ListProperty::removeProperty(int index)
{
    if (index < 0 || index >= size() || size() <= mMinimum)
        return TAutoPtr<Property>();
    TAutoPtr<Property> element = mElements[size_t(index)];
    mElements.erase(mElements.begin() + index);
    return element;
}

int ListProperty::index(TAutoPtr<Property> element) const
{
    for (size_t i = 0; i < mElements.size(); ++i) {
        if (mElements[i] == element)
            return int(i);
    }
    return -1;
}

QString ListProperty::valueText() const
{
    return size() == 1 ? QCoreApplication::translate("TavoLib::ListProperty", "1 element")
                       : QCoreApplication::translate("TavoLib::ListProperty", "%1 elements").arg(size());
}

TAutoPtr<Property> ListProperty::clone() const
{
    return new ListProperty(*this);
}

void ListProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    auto *o = dynamic_cast<const ListProperty *>(&other);
    if (!o || o == this)
        return;
    mElements.clear();
    for (const Property::Ptr &element : o->mElements)
        mElements.push_back(element->clone());
}

QString ListProperty::valueString() const
{
    return summary(mElements);
}

bool ListProperty::reaches(const PropertyDictionary *dictionary) const
{
    return anyReaches(mElements, dictionary);
}

bool ListProperty::valueCountsWhenUndefined() const
{
    return true;
}

void ListProperty::intersectValue(const Property &other)
{
    auto *o = dynamic_cast<const ListProperty *>(&other);
    if (!o || other.isUndefined() || o->mElements.size() != mElements.size()) {
        setUndefined(true);
        return;
    }
    for (size_t i = 0; i < mElements.size(); ++i)
        mElements[i]->intersect(o->mElements[i]);
}

} // namespace TavoLib
