#pragma once

// The one property manager of the library's browsers: it turns a Property tree into a tree
// of ViewProperty rows, keeps the children of choices, switchable groups and lists up to
// date, and gives each row's value text and icon. A browser never touches a Property; it
// asks this manager, and the editors come from ViewEditorFactory.
#include "browser/ViewProperty.h"
#include "core/BrushProviderQt.h"
#include "core/FontProviderQt.h"
#include "core/LineHeadStyleProviderQt.h"
#include "core/PenStyleProviderQt.h"
#include "core/PropertyDictionary.h"
#include "core/StylesheetManager.h"
#include "core/Translator.h"
#include "property/PropertyEditorFactory.h"
#include "propertybrowser/QtAbstractPropertyBrowser.h"
#include "propertybrowser/QtAbstractPropertyManager.h"

namespace TavoLib {

class TAVOLIBGUI_EXPORT ViewPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT
public:
    ViewPropertyManager(QtAbstractPropertyBrowser *browser, QObject *parent = nullptr);
    ~ViewPropertyManager() override;

    // Adds a row for each property of the dictionary to the browser, in one geometry pass.
    void addProperties(PropertyDictionary &dictionary, TAutoPtr<const PropertyableObject> owner);
    // The row tree of one property (children of groups and lists included); null when the
    // base refuses to make a row.
    ViewProperty *addProperty(
        TAutoPtr<Property> property, TAutoPtr<const PropertyableObject> owner);

    // Plain downcasts: every row of this manager is a ViewProperty.
    ViewProperty *toViewProperty(QtProperty *property);
    const ViewProperty *toViewProperty(const QtProperty *property) const;

    // Each only stores; rows already shown are not refreshed.
    void setStylesheetManager(TAutoPtr<const StylesheetManager> manager);
    void setBrushProvider(TAutoPtr<const BrushProviderQt> provider);
    void setPenStyleProvider(TAutoPtr<const PenStyleProviderQt> provider);
    void setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt> provider);
    void setFontProvider(TAutoPtr<const FontProviderQt> provider);
    void setTranslator(TAutoPtr<const Translator> translator);
    void setWidgetsTheme(PropertyEditorFactory::WidgetsTheme theme);

    bool hasValue(const QtProperty *property) const override;
    QIcon valueIcon(const QtProperty *property) const override;
    QString valueText(const QtProperty *property) const override;

public slots:
    // An editor changed the row's property: refresh its children, then tell the browser,
    // then the panel (propertyEdited).
    void propertyValueChanged(QtProperty *property);

signals:
    // One user edit of the row's property, told once the manager and the browsers are done
    // with it: an edit that arrives while a refresh runs (an editor that commits as its row
    // goes) waits for the end of that refresh. A change of a row's enabled state is no edit
    // (the browsers hear of it through propertyChanged). A listener may clear the rows.
    void propertyEdited(QtProperty *property);

protected:
    void initializeProperty(QtProperty *property) override;
    void uninitializeProperty(QtProperty *property) override;
    QtProperty *createProperty() override;

private:
    void updateSubProperties(QtProperty *property);
    QList<QtProperty *> rowsOf(const PropertyDictionary &children, ViewProperty *parent);
    QString translate(const QString &text) const;

    TAutoPtr<const StylesheetManager> mStylesheetManager;
    TAutoPtr<const BrushProviderQt> mBrushProvider;
    TAutoPtr<const PenStyleProviderQt> mPenStyleProvider;
    TAutoPtr<const LineHeadStyleProviderQt> mLineHeadStyleProvider;
    TAutoPtr<const FontProviderQt> mFontProvider;
    TAutoPtr<const Translator> mTranslator;
    QtAbstractPropertyBrowser *mBrowser;
    PropertyEditorFactory::WidgetsTheme mWidgetsTheme = PropertyEditorFactory::WidgetsThemeForm;
    // Above 0 while a refresh runs; edits met meanwhile wait in mPendingEdits.
    int mRefreshing = 0;
    QList<QtProperty *> mPendingEdits;
};

} // namespace TavoLib
