#include "browser/PropertyWidgetItem.h"

namespace TavoLib {

PropertyWidgetItem::PropertyWidgetItem(TAutoPtr<const PropertyableObject> owner)
    : mOwner(owner)
{
    TAutoPtr<PropertyDictionary> values(new PropertyDictionary);
    if (owner)
        owner->fillProperties(*values);
    mProperties = values;
}

PropertyWidgetItem::PropertyWidgetItem(
    TAutoPtr<const PropertyableObject> owner, TAutoPtr<const PropertyDictionary> properties)
    : mOwner(owner)
    , mProperties(properties ? properties : TAutoPtr<const PropertyDictionary>(new PropertyDictionary))
{
}

PropertyWidgetItem::PropertyWidgetItem(const PropertyWidgetItem &other)
    : MAutoObj()
    , mOwner(other.mOwner)
    , mProperties(other.mProperties)
{
}

PropertyWidgetItem &PropertyWidgetItem::operator=(const PropertyWidgetItem &other)
{
    mOwner = other.mOwner;
    mProperties = other.mProperties;
    return *this;
}

PropertyWidgetItem::~PropertyWidgetItem() = default;

} // namespace TavoLib
