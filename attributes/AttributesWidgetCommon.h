#pragma once

// What every page of the attributes dialog offers, whatever widget it is: it loads the
// attributes of the selection, checks and saves them, undoes a save for the preview, and
// tells whether it holds active content. AttributesWidget is the usual page; a host can add
// pages of its own that implement this as well.
#include "core/AttributeKey.h"
#include "core/Environment.h"
#include "style/TavoLibGuiExport.h"

#include <QList>

namespace TavoLib {

class TAVOLIBGUI_EXPORT AttributesWidgetCommon
{
public:
    // Shown on the page's label in the dialog: no mark, bold, or bold and italic.
    enum AttributesState { NotActive = 0, Active = 1, Undefined = 2 };

    AttributesWidgetCommon();
    AttributesWidgetCommon(const AttributesWidgetCommon &other);
    AttributesWidgetCommon &operator=(const AttributesWidgetCommon &other);
    virtual ~AttributesWidgetCommon();

    virtual void loadValues() = 0;
    virtual bool checkValues() = 0;
    // Repeatable: the preview saves on every change, and restoreValues undoes it.
    virtual void saveValues() = 0;
    virtual void restoreValues() = 0;
    virtual AttributesState attributesState() = 0;
    virtual void setEnvironment(TAutoPtr<Environment> environment);

    // The attributes the page edits, in display order.
    void setAttributes(const QList<AttributeKey> &keys);
    QList<AttributeKey> attributeKeys() const { return mAttributeKeys; }

protected:
    TAutoPtr<Environment> mEnvironment;
    QList<AttributeKey> mAttributeKeys;
};

} // namespace TavoLib
