#pragma once

// Base of the property browsers. It keeps the browser's tree of QtBrowserItems in step with
// the QtProperty trees it shows: properties added at the top level, and every change of their
// sub-properties that their managers report, become calls of itemInserted, itemRemoved and
// itemChanged, in tree order: a parent before its children on insertion, the children before
// their parent on removal. A subclass turns these calls into widgets; editors come from the
// factory registered for a property's manager with addFactory.
#include "propertybrowser/TavoPropertyBrowserExport.h"

#include <QList>
#include <QWidget>
#include <memory>

class QtProperty;
class QtBrowserItem;
class QtAbstractPropertyManager;
class QtAbstractEditorFactoryBase;
class QtAbstractPropertyBrowserPrivate;

class TAVOPROPERTYBROWSER_EXPORT QtAbstractPropertyBrowser : public QWidget
{
    Q_OBJECT
public:
    explicit QtAbstractPropertyBrowser(QWidget *parent = nullptr);
    ~QtAbstractPropertyBrowser() override;

    // The top-level properties and their items, in order.
    QList<QtProperty *> properties() const;
    QList<QtBrowserItem *> topLevelItems() const;
    // Every item of the property in this browser, in the order they were made.
    QList<QtBrowserItem *> items(QtProperty *property) const;

    // Adds the property at the end of the top level and returns its top-level item. A property
    // already at the top level stays where it is, and its item is returned.
    QtBrowserItem *addProperty(QtProperty *property);
    // Puts the property at the top level right after `after`; a null `after` puts it first, an
    // `after` that is not a top-level property puts it last.
    QtBrowserItem *insertProperty(QtProperty *property, QtProperty *after);
    // Takes the property off the top level; its places under other properties stay.
    void removeProperty(QtProperty *property);

    QtBrowserItem *currentItem() const;
    // Items of another browser are ignored.
    void setCurrentItem(QtBrowserItem *item);

    // Makes the factory give the editors for the properties of the manager, replacing an
    // earlier factory of that manager. True when the pair is newly connected; false for a
    // null argument or a pair that was already connected. The caller adds the manager to the
    // factory itself.
    bool addFactory(QtAbstractPropertyManager *manager, QtAbstractEditorFactoryBase *factory);

    // An editor from the factory of the property's manager, or null.
    virtual QWidget *createEditor(QtProperty *property, QWidget *parent);

signals:
    void currentItemChanged(QtBrowserItem *current);

protected:
    // `afterItem` is the sibling the new item follows, null when it stands first.
    virtual void itemInserted(QtBrowserItem *item, QtBrowserItem *afterItem) = 0;
    // Called while the item still stands among its parent's children.
    virtual void itemRemoved(QtBrowserItem *item) = 0;
    virtual void itemChanged(QtBrowserItem *item) = 0;
    // The trees under these items go right after this call, each through itemRemoved as
    // above. Told before a tree of several items goes, and before a manager's clear takes
    // every item of the browser at once, so that a subclass can take its widgets for them
    // away in one step; the default does nothing.
    virtual void itemsAboutToBeRemoved(const QList<QtBrowserItem *> &items);

private:
    friend class QtAbstractPropertyBrowserPrivate;
    std::unique_ptr<QtAbstractPropertyBrowserPrivate> d;
};
