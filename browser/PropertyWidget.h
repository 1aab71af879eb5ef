#pragma once

// The base panel of the property framework: form rows for the properties of one or more
// objects, edited on private copies. Nothing reaches an object here; the panel tells which
// objects changed (changedItems) and the caller writes them back. Owners are kept in the
// order of their addresses, so callers must not rely on the order of items().
#include "browser/DialogPropertyBrowser.h"
#include "browser/PropertyWidgetItem.h"
#include "browser/ViewEditorFactory.h"
#include "core/Environment.h"
#include "core/GroupProperty.h"

#include <QHash>
#include <QWidget>
#include <list>
#include <map>

namespace TavoLib {

// Gives every widget of the list the minimum width of the widest size hint (at least
// `minimum`) plus `extra`; objects that are not widgets are skipped.
TAVOLIBGUI_EXPORT void setMaxWidths(QList<QObject *> &objects, int minimum, int extra);

class TAVOLIBGUI_EXPORT PropertyWidget : public QWidget
{
    Q_OBJECT
public:
    // liveStringUpdates: text fields report every keystroke rather than when left.
    explicit PropertyWidget(QWidget *parent = nullptr, const QString &title = QString(),
        bool liveStringUpdates = false);
    ~PropertyWidget() override;

    void setProperties(const std::list<TAutoPtr<const PropertyableObject>> &objects);
    void setItems(const std::list<TAutoPtr<const PropertyWidgetItem>> &items);
    // Takes new values of strings, measures, selectors, booleans and integers into the rows
    // of the item's owner that show them; other kinds keep what the user sees, and a value
    // inside a group is looked up among the top-level names only. Owners not shown are
    // skipped.
    void changeItems(const std::list<TAutoPtr<const PropertyWidgetItem>> &items);
    // The items share the panel's live properties: they follow later edits, and the loaded
    // values share the properties of the dictionaries the caller passed (changing one of
    // those changes what changedItems() compares with).
    std::list<TAutoPtr<const PropertyWidgetItem>> items();
    // The objects whose values read differently from what was loaded. Storing does not take
    // a new snapshot: after a store the same items are still changed.
    std::list<TAutoPtr<const PropertyWidgetItem>> changedItems();

    // One way: once framed, the rows stay in their group box.
    void setWithGroupBox(bool withGroupBox);
    int maxLabelWidth() const;
    void setMaxLabelWidth(int width);

    void setFontProvider(TAutoPtr<const FontProviderQt> provider);
    void setBrushProvider(TAutoPtr<const BrushProviderQt> provider);
    void setPenStyleProvider(TAutoPtr<const PenStyleProviderQt> provider);
    void setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt> provider);
    void setStylesheetManager(TAutoPtr<const StylesheetManager> manager);
    void setTranslator(TAutoPtr<const Translator> translator);
    // The environment's stylesheet manager and brush, pen, line-head and font providers, each
    // given to its setter above (the orders of the setters do not matter).
    void setProviders(const Environment &environment);

signals:
    void signalPropertyChanged();
    void signalPropertyChanged(TavoLib::Property::Ptr property);

protected slots:
    virtual void slotPropertyChanged(QtProperty *property);

protected:
    void clearProperties();
    // kept on purpose: `after` has no effect, the object's rows are appended.
    void insertPropertyableObject(TAutoPtr<const PropertyableObject> object, QtProperty *after);
    void insertPropertyableObjectWithProperties(TAutoPtr<const PropertyableObject> owner,
        const PropertyDictionary &dictionary, QtProperty *after);

    ViewEditorFactory &factory() { return mFactory; }
    ViewPropertyManager *manager() const { return mManager; }
    DialogPropertyBrowser *browser() const { return mBrowser; }

private:
    std::list<TAutoPtr<const PropertyWidgetItem>> getItems(bool onlyChanged);
    // The new values by name; the first of a name wins, as a lookup in the dictionary finds.
    using ValueIndex = QHash<QString, Property::Ptr>;
    void changePropertyValues(TAutoPtr<Property> property, const ValueIndex &values,
        TAutoPtr<const PropertyableObject> owner);
    void restoreFocus(TAutoPtr<const PropertyableObject> owner, const QString &name);

    std::map<TAutoPtr<const PropertyableObject>, TAutoPtr<Property>> mInitialProperties;
    std::map<TAutoPtr<const PropertyableObject>, TAutoPtr<GroupProperty>> mEditedProperties;
    ViewEditorFactory mFactory;
    ViewPropertyManager *mManager = nullptr;
    DialogPropertyBrowser *mBrowser = nullptr;
    bool mWithGroupBox = false;
    // Above 0 while rows are made or dropped: the framework reports rows that change their
    // enabled state then, which is no edit.
    int mLoading = 0;
};

} // namespace TavoLib
