#pragma once

// The attributes palette: tabs of tree browsers that show the attributes of the current
// selection at all times. A subclass adds its tabs once, in its constructor, and declares the
// headings and attributes in createAttributes(), which runs at the first setAttributes() and
// again after every clearAttributes() (a new environment, a change of units or language),
// while the tabs stay. It then hands each selection's attributes to setAttributes(). The
// palette writes nothing back itself: an edit produces a changed copy of the attribute and
// goes to attributeChanged().
#include "core/AttributeMap.h"
#include "core/Environment.h"
#include "core/Translator.h"
#include "style/TavoLibGuiExport.h"

#include <QList>
#include <QTabWidget>
#include <map>
#include <set>
#include <vector>

class QtBrowserItem;
class QtProperty;

namespace TavoLib {

class TreePropertyBrowser;
class ViewEditorFactory;
class ViewProperty;
class ViewPropertyManager;

class TAVOLIBGUI_EXPORT AttributesTreeWidget : public QTabWidget
{
    Q_OBJECT
public:
    AttributesTreeWidget(QWidget *parent, TAutoPtr<Translator> translator);
    ~AttributesTreeWidget() override;

    // Adds a page and gives back its number.
    int addTab(const QString &name);
    void setTabName(int tab, const QString &name);
    // A hidden tab keeps its rows and number, and comes back in its old place.
    void setTabVisible(int tab, bool visible);

    const AttributeMap &attributes() const { return mAttributes; }
    TAutoPtr<Environment> environment() { return mEnvironment; }

    virtual void setEnvironment(TAutoPtr<Environment> environment);

public slots:
    // Asks the subclass for the attributes of the selection (it calls setAttributes).
    virtual void selectionChanged() = 0;
    // Forgets all rows and attributes; the next setAttributes() declares them anew.
    virtual void clearAttributes();

protected:
    virtual void languageChanged();
    // Declares headings and attributes with createAttributeGroup and createAttribute.
    virtual void createAttributes() = 0;
    // An edit: the attribute as the user has just changed it.
    virtual void attributeChanged(TAutoPtr<const Attribute> attribute) = 0;
    // A heading row with the attributes of the keys below it.
    virtual void createAttributeGroup(
        const QString &uniqueName, const QString &visibleName, const QList<AttributeKey> &keys, int tab);
    virtual void createAttribute(const AttributeKey &key, int tab);

    // Shows the attributes of a selection: those the map lacks stay as undefined rows.
    void setAttributes(const AttributeMap &attributes);
    // The factory of all tabs; an action that lets the current row leave its undefined state
    // calls its activateProperty().
    ViewEditorFactory *editorFactory() const { return mEditorFactory; }

    void changeEvent(QEvent *event) override;

private slots:
    void propertyChanged(QtProperty *property);
    void propertyInserted(QtProperty *newProperty, QtProperty *parentProperty, QtProperty *precedingProperty);
    void resolveUndefinedProperty(QtProperty *property);
    void unitsPreferencesChanged();

private:
    struct Tab
    {
        ViewPropertyManager *manager = nullptr;
        TreePropertyBrowser *browser = nullptr;
        QString name;
    };

    // A row's property changed: an edit when its attribute's values did (or always).
    void noteEdit(QtProperty *property, bool always);
    // Calls attributeChanged() for the edits noted since the last turn of the event loop.
    void reportEdits();
    void setAttribute(TAutoPtr<const Attribute> attribute, QtProperty *preceding, bool undefined,
        QtProperty *parent);
    void activateAttributes(const AttributeMap &attributes);
    // Rebuilds the rows of one attribute in place of the old ones.
    void replaceAttribute(const AttributeKey &key, TAutoPtr<const Attribute> attribute, bool undefined);
    void removeRows(const AttributeKey &key, const std::set<QtBrowserItem *> &rows);
    // New rows of the attribute after the row preceding, then the old rows out.
    void rebuildRows(TAutoPtr<const Attribute> attribute, ViewProperty *preceding, bool undefined);
    // The environment's providers and stylesheets, for a tab's manager or the factory.
    template <class Target> void giveProviders(Target *target) const;
    QtBrowserItem *firstRow(const AttributeKey &key) const;
    bool isPropertyValid(QtProperty *property) const;
    int tabOf(const AttributeKey &key);
    void saveState() const;
    void restoreState();

    std::vector<Tab> mTabs;
    std::map<AttributeKey, int> mAttributeTabs;
    std::map<AttributeKey, TAutoPtr<PropertyDictionary>> mDictionaries;
    std::map<AttributeKey, std::set<QtBrowserItem *>> mItems;
    TAutoPtr<Environment> mEnvironment;
    ViewEditorFactory *mEditorFactory;
    AttributeMap mAttributes;
    TAutoPtr<Translator> mTranslator;
    AttributeMap mLastAttributes;
    // Rows are being rebuilt: a commit of an editor that goes with its row is not an edit.
    int mRebuilding = 0;
    // createAttributes() has run since the last clearAttributes().
    bool mDeclared = false;
    // Edits waiting for reportEdits(), one per attribute, the latest.
    std::map<AttributeKey, TAutoPtr<const Attribute>> mPendingChanges;
};

} // namespace TavoLib
