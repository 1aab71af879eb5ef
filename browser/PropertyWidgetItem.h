#pragma once

// One edited object with its values: what a property panel is loaded with and what it
// gives back.
#include "core/PropertyDictionary.h"
#include "core/PropertyableObject.h"
#include "style/TavoLibGuiExport.h"

namespace TavoLib {

class TAVOLIBGUI_EXPORT PropertyWidgetItem : public MAutoObj
{
public:
    // The object's present values, through its fillProperties.
    explicit PropertyWidgetItem(TAutoPtr<const PropertyableObject> owner);
    PropertyWidgetItem(
        TAutoPtr<const PropertyableObject> owner, TAutoPtr<const PropertyDictionary> properties);
    PropertyWidgetItem(const PropertyWidgetItem &other);
    PropertyWidgetItem &operator=(const PropertyWidgetItem &other);
    ~PropertyWidgetItem() override;

    TAutoPtr<const PropertyDictionary> properties() const { return mProperties; }
    TAutoPtr<const PropertyableObject> propertiesOwner() const { return mOwner; }

private:
    TAutoPtr<const PropertyableObject> mOwner;
    TAutoPtr<const PropertyDictionary> mProperties;
};

} // namespace TavoLib
