#pragma once

// A row of a property browser that carries one Property (shared, never copied: an edit
// through it changes the caller's property) and the object the property belongs to. A row
// without an owner is a heading: it has no value, no editor. A row can also be undefined on
// top of its property (a value that differs between objects); its children are then taken
// out of the tree and come back in their order when it is defined again.
#include "core/Property.h"
#include "core/PropertyableObject.h"
#include "propertybrowser/QtProperty.h"
#include "style/TavoLibGuiExport.h"

#include <QList>

namespace TavoLib {

class ViewPropertyManager;

class TAVOLIBGUI_EXPORT ViewProperty : public QtProperty
{
public:
    explicit ViewProperty(ViewPropertyManager *manager);
    ViewProperty(const ViewProperty &other);
    ViewProperty &operator=(const ViewProperty &other);
    ~ViewProperty() override;

    TAutoPtr<Property> data() { return mData; }
    TAutoPtr<const Property> data() const { return mData; }
    void setData(TAutoPtr<Property> data) { mData = data; }

    TAutoPtr<const PropertyableObject> owner() const { return mOwner; }
    void setOwner(TAutoPtr<const PropertyableObject> owner) { mOwner = owner; }

    bool isUndefined() const { return mUndefined; }
    // Hides the children while undefined and restores them, in order, when defined again.
    // The value column follows through the manager's propertyValueChanged.
    void setUndefined(bool undefined);
    // The children as they stand, shown or hidden: the manager's refresh replaces these,
    // so that a row made undefined keeps one set of children.
    QList<QtProperty *> children() const;
    void setChildren(const QList<QtProperty *> &children);

    // A back link for the caller's use; the manager never reads it.
    QtProperty *parentProperty() { return mParentProperty; }
    const QtProperty *parentProperty() const { return mParentProperty; }
    void setParentProperty(QtProperty *parent) { mParentProperty = parent; }

private:
    TAutoPtr<Property> mData;
    TAutoPtr<const PropertyableObject> mOwner;
    bool mUndefined = false;
    QList<QtProperty *> mHiddenSubProperties;
    QtProperty *mParentProperty = nullptr;
};

} // namespace TavoLib
