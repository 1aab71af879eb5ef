#pragma once

// Several stylesheet panels loaded, checked and saved as one, with their labels aligned.
#include "attributes/StylesheetBasedWidget.h"
#include "browser/PropertyWidgetGroupWidget.h"

namespace TavoLib {

class TAVOLIBGUI_EXPORT StylesheetBasedWidgetGroupWidget : public PropertyWidgetGroupWidget
{
    Q_OBJECT
public:
    StylesheetBasedWidgetGroupWidget(QWidget *parent, const QString &title, bool withScrollArea);

    void addWidget(StylesheetBasedWidget *widget);
    // The keys of all panels, in order.
    QList<AttributeKey> attributeKeys() const;
    void loadValues(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment);
    bool checkValues();
    void saveValues();

private:
    QList<StylesheetBasedWidget *> stylesheetWidgets() const;
};

} // namespace TavoLib
