#pragma once

// Lets a host treat any settings widget alike: a title, and load, check and save. The widget
// is tracked, not owned; once it has gone, every operation does nothing or gives its
// default. StylesheetWidgetController drives the stylesheet panels.
#include "core/Environment.h"
#include "core/MAutoObj.h"
#include "core/Stylesheet.h"
#include "style/TavoLibGuiExport.h"

#include <QPointer>
#include <QWidget>

namespace TavoLib {

class TAVOLIBGUI_EXPORT WidgetController : public virtual MAutoObj
{
public:
    WidgetController();
    WidgetController(const WidgetController &other);
    WidgetController &operator=(const WidgetController &other);
    ~WidgetController() override;

    void setWidget(QWidget *widget) { mWidget = widget; }
    QWidget *widget() const { return mWidget.data(); }

    // The widget's window title; empty once the widget has gone.
    virtual QString title() const;
    virtual void loadValues();
    virtual bool checkValues() const;
    virtual void saveValues();

private:
    QPointer<QWidget> mWidget;
};

// The controller of a stylesheet panel (a StylesheetBasedWidget, or a group of them): loads a
// stylesheet's attributes into the panel, checks them and saves the user's changes back.
class TAVOLIBGUI_EXPORT StylesheetWidgetController : public WidgetController
{
public:
    StylesheetWidgetController();
    StylesheetWidgetController(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment);

    // Takes effect at the next loadValues().
    void setStylesheet(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment);
    QList<AttributeKey> attributeKeys() const;

    void loadValues() override;
    bool checkValues() const override;
    void saveValues() override;

private:
    TAutoPtr<Stylesheet> mStylesheet;
    TAutoPtr<Environment> mEnvironment;
};

} // namespace TavoLib
