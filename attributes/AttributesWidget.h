#pragma once

// A page that edits a list of attributes for all objects of a selection at once. The
// subclass reports each selected object's attributes from loadAttributes() through
// intersectAttributes(); a value shows where all objects agree and is undefined where they
// differ. Every listed key gets rows: a key no object has shows its default, undefined, and
// is written back only if the user gives it a value. saveAttributes() gets the changed
// attributes only.
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
    // Merges one selected object's attributes into what the page shows.
    void intersectAttributes(const AttributeMap &objectAttributes);

private:
    std::map<TAutoPtr<const Attribute>, TAutoPtr<PropertyDictionary>> mDictionaries;
    AttributeMap mAttributes;
    AttributeMap mOriginalAttributes;
    std::map<AttributeKey, TAutoPtr<const Attribute>> mKeyToAttribute;
};

} // namespace TavoLib
