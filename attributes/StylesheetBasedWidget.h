#pragma once

// Edits the attributes a stylesheet sets itself. "Undefined" here means "not set by this
// stylesheet": a key it does not set shows its default, undefined, and stays unset unless
// the user gives it a value; a key it sets can be made undefined, and saving then removes it.
// A plain group of an attribute is offered as a one-entry selector, so the group can be
// set or unset as a whole. Saving starts again from the stylesheet as it was loaded, so it
// can be repeated (the preview saves on every change).
#include "browser/PropertyWidget.h"
#include "core/AttributeMap.h"
#include "core/Environment.h"
#include "core/Stylesheet.h"

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

private:
    void setEnvironment(TAutoPtr<Environment> environment);
    void makePropertyChildsUndefinable(TAutoPtr<GroupProperty> group);

    QList<AttributeKey> mAttributeKeys;
    TAutoPtr<Stylesheet> mStylesheet;
    TAutoPtr<Environment> mEnvironment;
    AttributeMap mAttributes;
};

} // namespace TavoLib
