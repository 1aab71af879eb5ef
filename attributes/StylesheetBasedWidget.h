#pragma once

// Edits the attributes a stylesheet sets itself. "Undefined" here means "not set by this
// stylesheet", and an attribute is set or not as a whole:
// - a key the stylesheet does not set shows empty fields with what it inherits (the parent's
//   value, else the environment's default) greyed in as a placeholder;
// - giving one of its values sets the whole attribute here, the others taking the inherited
//   values, which then show as set;
// - clearing one value of a set attribute takes the whole attribute out, and every row of it
//   shows the inherited placeholder again at once.
// A plain group is offered as a one-entry selector, so it can be set or unset as a whole; a
// switchable group keeps its own on/off box, whose partly checked state means "not set here".
// Saving starts again from the stylesheet as it was loaded, so it can be repeated (the
// preview saves on every change). The panel tells its host of one edit once, after the
// attribute is whole again.
#include "browser/PropertyWidget.h"
#include "core/AttributeMap.h"
#include "core/Environment.h"
#include "core/Stylesheet.h"

#include <map>

namespace TavoLib {

class TAVOLIBGUI_EXPORT StylesheetBasedWidget : public PropertyWidget
{
    Q_OBJECT
public:
    StylesheetBasedWidget(QWidget *parent, const QString &title);
    ~StylesheetBasedWidget() override;

    QList<AttributeKey> attributeKeys() const { return mAttributeKeys; }
    void setAttributeKeys(const QList<AttributeKey> &keys) { mAttributeKeys = keys; }

    virtual void loadValues(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment);
    virtual bool checkValues();
    virtual void saveValues();

protected slots:
    void slotPropertyChanged(QtProperty *property) override;

private:
    void setEnvironment(TAutoPtr<Environment> environment);
    void makePropertyChildsUndefinable(TAutoPtr<GroupProperty> group);
    // The rows of one key: the stylesheet's own attribute, else the inherited one unset.
    PropertyDictionary dictionaryFor(const AttributeKey &key, TAutoPtr<const Attribute> &owner);
    void offerGroupsAsSelectors(PropertyDictionary &dictionary);
    // What the stylesheet would show for `key` without its own attribute.
    TAutoPtr<const Attribute> inheritedAttribute(const AttributeKey &key) const;
    // Puts the stylesheet back as it was loaded.
    void resetToLoaded();
    // After an edit: sets or takes out the whole attribute of `owner`, as its rows now say.
    void keepWhole(TAutoPtr<const PropertyableObject> owner);
    void showPlaceholders();

    QList<AttributeKey> mAttributeKeys;
    TAutoPtr<Stylesheet> mStylesheet;
    TAutoPtr<Environment> mEnvironment;
    AttributeMap mAttributes;
    // The inherited attribute of each key shown, and whether the rows now set it here.
    AttributeMap mInherited;
    std::map<AttributeKey, bool> mSetHere;
    bool mLoading = false;
    bool mAdjusting = false;
};

} // namespace TavoLib
