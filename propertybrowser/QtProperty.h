#pragma once

// One entry of a property tree shown by the property browsers. A QtProperty carries a name
// and the enabled and modified flags; its value text and icon come from the manager that made
// it. Properties form a tree through their sub-properties, and one property may stand under
// several parents at once, so a browser can show it in several places. The manager owns every
// property it made; deleting a property takes it out of every parent first.
#include "propertybrowser/TavoPropertyBrowserExport.h"

#include <QIcon>
#include <QList>
#include <QPointer>
#include <QString>

class QtAbstractPropertyManager;

class TAVOPROPERTYBROWSER_EXPORT QtProperty
{
public:
    virtual ~QtProperty();

    QtAbstractPropertyManager *propertyManager() const;

    QString propertyName() const { return mName; }
    void setPropertyName(const QString &name);

    bool isEnabled() const { return mEnabled; }
    void setEnabled(bool enabled);

    bool isModified() const { return mModified; }
    void setModified(bool modified);

    // Value queries, answered by the manager; false, a null icon and an empty text without one.
    bool hasValue() const;
    QIcon valueIcon() const;
    QString valueText() const;

    // The children in order. A property is a child of a given parent at most once, and never
    // of itself or of one of its own descendants.
    QList<QtProperty *> subProperties() const { return mChildren; }
    void addSubProperty(QtProperty *property);
    // Puts property right after `after`; a null `after` puts it first, an `after` that is not
    // a child of this property puts it last.
    void insertSubProperty(QtProperty *property, QtProperty *after);
    void removeSubProperty(QtProperty *property);

protected:
    explicit QtProperty(QtAbstractPropertyManager *manager);
    // Copies name and flags into a property of the same manager that stands nowhere in a tree
    // and is not owned by the manager; for subclasses with value semantics.
    QtProperty(const QtProperty &other);
    // Copies name and flags only; the place in the tree is kept.
    QtProperty &operator=(const QtProperty &other);

    // Tells the manager's listeners that something shown about this property changed.
    void propertyChanged();

private:
    friend class QtAbstractPropertyManager;

    bool isAncestorOf(const QtProperty *property) const;
    bool hasParent(const QtProperty *parent) const
    {
        return parent
            && (mParent == parent
                || (!mMoreParents.isEmpty()
                    && mMoreParents.contains(const_cast<QtProperty *>(parent))));
    }
    void addParent(QtProperty *parent);
    void removeParent(QtProperty *parent);
    // Emits the destroyed signal and unlinks from parents and children, once.
    void detach();

    // Guarded, because a copy that the manager does not own may outlive it.
    QPointer<QtAbstractPropertyManager> mManager;
    QString mName;
    bool mEnabled = true;
    bool mModified = false;
    bool mOwned = false; // registered with the manager, which will delete it
    bool mDetached = false;
    // The parents, in the order they came: the first here, any others in mMoreParents, so
    // that a property under one parent (nearly all) needs no list.
    QtProperty *mParent = nullptr;
    QList<QtProperty *> mMoreParents;
    QList<QtProperty *> mChildren;
};
