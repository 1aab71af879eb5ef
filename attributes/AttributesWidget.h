#pragma once

// A page that edits a list of attributes for all objects of a selection at once. The
// subclass reports each selected object's attributes from loadAttributes() through
// intersectAttributes(); a value shows where all objects agree and is undefined where they
// differ. An object that lacks an attribute leaves it as the others gave it: a fill that one
// object has and another has not shows as if both had it. Every listed key gets rows: a key
// no object has shows its default, undefined, and is written back only if the user gives it
// a value. saveAttributes() gets the changed attributes only.
//
// What a host must know to write them back:
// - saveValues() calls restoreValues() first and then saveAttributes(). The dialog saves its
//   pages in turn, each restoring first, so restoreValues() must undo only this page's keys
//   (attributeKeys()); putting back every attribute would undo the pages saved before.
// - restoreValues() is empty here: a page without its own cannot be cancelled after a preview.
// - A changed item's owner is the first object's own attribute, or the environment's shared
//   default for a key no object has. Its dictionary is the whole attribute: values the objects
//   differ in are undefined at any depth (a group can be defined with an undefined child) and
//   still carry the first object's value. Write only the defined values, into each object's
//   own attribute; never copy the owner with the whole dictionary to every object.
// - intersectAttributes() works only inside loadAttributes(). Called later it changes the
//   load-time snapshot (the stored dictionaries are the panel's own) but not the rows, and
//   changedItems() then misreports.
#include "attributes/AttributesWidgetCommon.h"
#include "browser/PropertyWidget.h"
#include "core/AttributeMap.h"

#include <map>

namespace TavoLib {

class TAVOLIBGUI_EXPORT AttributesWidget : public PropertyWidget, public virtual AttributesWidgetCommon
{
    Q_OBJECT
public:
    AttributesWidget(QWidget *parent, const QString &title);
    ~AttributesWidget() override;

    void loadValues() override;
    bool checkValues() override;
    void saveValues() override;
    void restoreValues() override;
    AttributesState attributesState() override;
    void setEnvironment(TAutoPtr<Environment> environment) override;

protected:
    // Reports every selected object with intersectAttributes().
    virtual void loadAttributes() = 0;
    // Writes the changed attributes to the selected objects; nothing by default.
    virtual void saveAttributes(const std::list<TAutoPtr<const PropertyWidgetItem>> &changedItems);

    void createProperties();
    // Merges one selected object's attributes into what the page shows; from loadAttributes()
    // only.
    void intersectAttributes(const AttributeMap &objectAttributes);

private:
    // Stores an attribute with a new dictionary of its values, by itself and by key.
    TAutoPtr<PropertyDictionary> addAttribute(TAutoPtr<const Attribute> attribute);

    std::map<TAutoPtr<const Attribute>, TAutoPtr<PropertyDictionary>> mDictionaries;
    AttributeMap mAttributes;
    // kept on purpose: part of the page's data, cleared with mAttributes and never read.
    AttributeMap mOriginalAttributes;
    std::map<AttributeKey, TAutoPtr<const Attribute>> mKeyToAttribute;
};

} // namespace TavoLib
