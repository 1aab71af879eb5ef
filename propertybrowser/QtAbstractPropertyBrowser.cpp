#include "propertybrowser/QtAbstractPropertyBrowser.h"

#include "propertybrowser/QtAbstractEditorFactoryBase.h"
#include "propertybrowser/QtAbstractPropertyManager.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"

#include <QHash>
#include <QPointer>
#include <QVarLengthArray>
#include <vector>

namespace {

// The position of an item among its siblings. Searched from both ends at once, since items
// are mostly appended and taken away at the front or the back.
int indexIn(const QList<QtBrowserItem *> &list, const QtBrowserItem *item)
{
    for (int front = 0, back = list.size() - 1; front <= back; ++front, --back) {
        if (list.at(front) == item)
            return front;
        if (list.at(back) == item)
            return back;
    }
    return -1;
}

} // namespace

// The item tree of a browser and its connections to managers and factories. Items are found
// by property through a hash, so each structural change costs only the items it touches.
class QtAbstractPropertyBrowserPrivate
{
public:
    explicit QtAbstractPropertyBrowserPrivate(QtAbstractPropertyBrowser *browser) : q(browser) { }

    QtBrowserItem *insertTree(QtProperty *property, QtBrowserItem *parent, QtBrowserItem *after);
    // `announce` tells the subclass first when the tree has more than the one item.
    void removeTree(QtBrowserItem *item, bool announce = true);
    // Every item, when they all show properties the manager's clear is about to delete
    // (`going` is the one being deleted now, already out of the manager's set).
    void removeAllForClear(QtAbstractPropertyManager *manager, const QtProperty *going);
    void watchManager(QtAbstractPropertyManager *manager);
    void managerGone(QtAbstractPropertyManager *manager);

    void propertyInserted(QtProperty *property, QtProperty *parent, QtProperty *after);
    void propertyRemoved(QtProperty *property, QtProperty *parent);
    void propertyChanged(QtProperty *property);
    void propertyDestroyed(QtProperty *property);

    QList<QtBrowserItem *> &siblingsOf(QtBrowserItem *item)
    {
        return item->mParent ? item->mParent->mChildren : mTopLevelItems;
    }

    // The first item of the property, or null; the others follow through mNextOfProperty.
    QtBrowserItem *firstItem(const QtProperty *property) const
    {
        return mPropertyToItems.value(const_cast<QtProperty *>(property));
    }
    using ItemList = QVarLengthArray<QtBrowserItem *, 4>;
    // The property's items as they are now, for calls that may change them.
    ItemList itemsOf(const QtProperty *property) const
    {
        ItemList items;
        for (QtBrowserItem *item = firstItem(property); item; item = item->mNextOfProperty)
            items.append(item);
        return items;
    }
    // Puts a new item last among its property's items.
    void link(QtBrowserItem *item)
    {
        QtBrowserItem *&first = mPropertyToItems[item->mProperty];
        QtBrowserItem **slot = &first;
        while (*slot)
            slot = &(*slot)->mNextOfProperty;
        *slot = item;
    }
    void unlink(QtBrowserItem *item)
    {
        const auto found = mPropertyToItems.find(item->mProperty);
        if (found == mPropertyToItems.end())
            return;
        if (*found == item) {
            if (item->mNextOfProperty)
                *found = item->mNextOfProperty;
            else
                mPropertyToItems.erase(found);
        } else {
            for (QtBrowserItem *before = *found; before; before = before->mNextOfProperty) {
                if (before->mNextOfProperty == item) {
                    before->mNextOfProperty = item->mNextOfProperty;
                    break;
                }
            }
        }
        item->mNextOfProperty = nullptr;
    }

    // The item of the property at the top level, or null.
    QtBrowserItem *topLevelItem(QtProperty *property) const
    {
        for (QtBrowserItem *item = firstItem(property); item; item = item->mNextOfProperty) {
            if (!item->mParent)
                return item;
        }
        return nullptr;
    }

    // Whether `item` is `root` or stands under it.
    static bool inTree(const QtBrowserItem *item, const QtBrowserItem *root)
    {
        for (; item; item = item->mParent) {
            if (item == root)
                return true;
        }
        return false;
    }
    // Whether `item` is still one of the property's items; the pointers are only compared.
    bool holds(const QtProperty *property, const QtBrowserItem *item) const
    {
        for (const QtBrowserItem *held = firstItem(property); held; held = held->mNextOfProperty) {
            if (held == item)
                return true;
        }
        return false;
    }
    void releaseCurrentItem()
    {
        mCurrentItem = nullptr;
        emit q->currentItemChanged(nullptr);
    }

    QtAbstractPropertyBrowser *q;
    QList<QtBrowserItem *> mTopLevelItems;
    // The first item of each property shown.
    QHash<QtProperty *, QtBrowserItem *> mPropertyToItems;
    QHash<QtAbstractPropertyManager *, QPointer<QtAbstractEditorFactoryBase>> mFactories;
    QList<QtAbstractPropertyManager *> mManagers;
    QtBrowserItem *mCurrentItem = nullptr;
    // The clear of a manager already looked at: (manager, its count of clears).
    const QtAbstractPropertyManager *mClearManager = nullptr;
    quint32 mClearCount = 0;
};

QtBrowserItem *QtAbstractPropertyBrowserPrivate::insertTree(
    QtProperty *property, QtBrowserItem *parent, QtBrowserItem *after)
{
    // Depth first and without recursion, so that a deep tree cannot exhaust the stack. Each
    // item is announced before its children; the children are appended in order.
    struct Pending
    {
        QtProperty *property;
        QtBrowserItem *parent;
    };
    QtBrowserItem *root = nullptr;
    std::vector<Pending> pending { { property, parent } };
    bool first = true;
    while (!pending.empty()) {
        const Pending next = pending.back();
        pending.pop_back();

        QList<QtBrowserItem *> &siblings = next.parent ? next.parent->mChildren : mTopLevelItems;
        QtBrowserItem *previous = nullptr;
        int position = siblings.size();
        if (first) {
            position = 0;
            if (after) {
                const int index = indexIn(siblings, after);
                position = index < 0 ? siblings.size() : index + 1;
            }
        }
        if (position > 0)
            previous = siblings.at(position - 1);

        auto *item = new QtBrowserItem(q, next.property, next.parent);
        siblings.insert(position, item);
        link(item);
        watchManager(next.property->propertyManager());
        if (first) {
            root = item;
            first = false;
        }

        // Taken before the call, so that children a subclass adds meanwhile are not made twice.
        const QList<QtProperty *> children = next.property->subProperties();
        for (auto it = children.crbegin(); it != children.crend(); ++it)
            pending.push_back({ *it, item });
        q->itemInserted(item, previous);
    }
    return root;
}

void QtAbstractPropertyBrowserPrivate::removeTree(QtBrowserItem *item, bool announce)
{
    if (announce) {
        // A current item in the tree is let go before anything is taken, while the tree
        // still stands whole; a listener may change the tree, so the item is looked up again.
        if (mCurrentItem && inTree(mCurrentItem, item)) {
            QtProperty *property = item->mProperty;
            releaseCurrentItem();
            if (!holds(property, item))
                return;
        }
        if (!item->mChildren.isEmpty())
            q->itemsAboutToBeRemoved({ item });
    }
    // Post order without recursion: children first, in their order, each while it still
    // stands among its siblings.
    struct Pending
    {
        QtBrowserItem *item;
        bool expanded;
    };
    std::vector<Pending> pending { { item, false } };
    while (!pending.empty()) {
        Pending &top = pending.back();
        if (!top.expanded) {
            top.expanded = true;
            const QList<QtBrowserItem *> children = top.item->mChildren;
            for (auto it = children.crbegin(); it != children.crend(); ++it)
                pending.push_back({ *it, false });
            continue;
        }
        QtBrowserItem *done = top.item;
        pending.pop_back();

        if (mCurrentItem == done) {
            mCurrentItem = nullptr;
            emit q->currentItemChanged(nullptr);
        }
        q->itemRemoved(done);

        QList<QtBrowserItem *> &siblings = siblingsOf(done);
        const int index = indexIn(siblings, done);
        if (index >= 0)
            siblings.removeAt(index);
        unlink(done);
        delete done;
    }
}

void QtAbstractPropertyBrowserPrivate::watchManager(QtAbstractPropertyManager *manager)
{
    if (!manager || mManagers.contains(manager))
        return;
    mManagers.append(manager);
    QObject::connect(manager, &QtAbstractPropertyManager::propertyInserted, q,
        [this](QtProperty *property, QtProperty *parent, QtProperty *after) {
            propertyInserted(property, parent, after);
        });
    QObject::connect(manager, &QtAbstractPropertyManager::propertyRemoved, q,
        [this](QtProperty *property, QtProperty *parent) { propertyRemoved(property, parent); });
    QObject::connect(manager, &QtAbstractPropertyManager::propertyChanged, q,
        [this](QtProperty *property) { propertyChanged(property); });
    QObject::connect(manager, &QtAbstractPropertyManager::propertyDestroyed, q,
        [this](QtProperty *property) { propertyDestroyed(property); });
    // The pointer is only compared once the manager is going, never used.
    QObject::connect(manager, &QObject::destroyed, q, [this, manager] { managerGone(manager); });
}

void QtAbstractPropertyBrowserPrivate::managerGone(QtAbstractPropertyManager *manager)
{
    mManagers.removeOne(manager);
    mFactories.remove(manager);
}

void QtAbstractPropertyBrowserPrivate::propertyInserted(
    QtProperty *property, QtProperty *parent, QtProperty *after)
{
    if (!parent)
        return;
    const ItemList parentItems = itemsOf(parent);
    for (QtBrowserItem *parentItem : parentItems) {
        QtBrowserItem *afterItem = nullptr;
        if (after) {
            // The sibling's item under this parent item; searched from the end, where an
            // appended child finds it at once.
            const QList<QtBrowserItem *> &children = parentItem->mChildren;
            for (int i = children.size() - 1; i >= 0; --i) {
                if (children.at(i)->mProperty == after) {
                    afterItem = children.at(i);
                    break;
                }
            }
            if (!afterItem && !children.isEmpty())
                afterItem = children.last();
        }
        insertTree(property, parentItem, afterItem);
    }
}

void QtAbstractPropertyBrowserPrivate::propertyRemoved(QtProperty *property, QtProperty *parent)
{
    const ItemList items = itemsOf(property);
    for (QtBrowserItem *item : items) {
        // A listener of an earlier removal may have taken this item already.
        if (!holds(property, item))
            continue;
        if (item->mParent && item->mParent->mProperty == parent)
            removeTree(item);
    }
}

void QtAbstractPropertyBrowserPrivate::propertyChanged(QtProperty *property)
{
    const ItemList items = itemsOf(property);
    for (int i = 0; i < items.size(); ++i) {
        // A subclass told of one item may have removed the others.
        if (i == 0 || holds(property, items[i]))
            q->itemChanged(items[i]);
    }
}

void QtAbstractPropertyBrowserPrivate::removeAllForClear(
    QtAbstractPropertyManager *manager, const QtProperty *going)
{
    // Once per clear: the first property that goes decides for all.
    if (mClearManager == manager && mClearCount == manager->mClearCount)
        return;
    mClearManager = manager;
    mClearCount = manager->mClearCount;
    // Only when every item shows a property the clear deletes.
    const auto allGoing = [this, manager, going] {
        for (auto it = mPropertyToItems.cbegin(); it != mPropertyToItems.cend(); ++it) {
            if (it.key() != going && !manager->mProperties.contains(it.key()))
                return false;
        }
        return !mTopLevelItems.isEmpty();
    };
    if (!allGoing())
        return;
    if (mCurrentItem) {
        // Let go while all still stands; a listener may change the items, so look again.
        releaseCurrentItem();
        if (!allGoing())
            return;
    }
    const QList<QtBrowserItem *> items = mTopLevelItems;
    q->itemsAboutToBeRemoved(items);
    // The table keeps its buckets while it empties, else it rehashes each time it halves.
    mPropertyToItems.reserve(mPropertyToItems.size());
    for (QtBrowserItem *item : items) {
        // A listener of a removal may have changed the top level meanwhile.
        if ((!mTopLevelItems.isEmpty() && mTopLevelItems.first() == item)
            || mTopLevelItems.contains(item))
            removeTree(item, false);
    }
    mPropertyToItems.squeeze();
}

void QtAbstractPropertyBrowserPrivate::propertyDestroyed(QtProperty *property)
{
    QtAbstractPropertyManager *manager = property->propertyManager();
    if (manager && manager->mClearing)
        removeAllForClear(manager, property);
    // Each removal may take further items of the property with it, when one place stands
    // inside another; so the list is read again after each.
    while (QtBrowserItem *first = firstItem(property))
        removeTree(first);
}

QtAbstractPropertyBrowser::QtAbstractPropertyBrowser(QWidget *parent)
    : QWidget(parent), d(new QtAbstractPropertyBrowserPrivate(this))
{
}

QtAbstractPropertyBrowser::~QtAbstractPropertyBrowser()
{
    // The subclass is gone, so nothing is reported any more: the items are just freed, and
    // the managers and factories stop talking to this browser before the base widget goes.
    for (QtAbstractPropertyManager *manager : qAsConst(d->mManagers))
        disconnect(manager, nullptr, this, nullptr);
    for (QtBrowserItem *first : qAsConst(d->mPropertyToItems)) {
        for (QtBrowserItem *item = first; item;) {
            QtBrowserItem *next = item->mNextOfProperty;
            delete item;
            item = next;
        }
    }
    d->mPropertyToItems.clear();
    d->mTopLevelItems.clear();
    d->mCurrentItem = nullptr;
}

QList<QtProperty *> QtAbstractPropertyBrowser::properties() const
{
    QList<QtProperty *> result;
    result.reserve(d->mTopLevelItems.size());
    for (const QtBrowserItem *item : qAsConst(d->mTopLevelItems))
        result.append(item->property());
    return result;
}

QList<QtBrowserItem *> QtAbstractPropertyBrowser::topLevelItems() const
{
    return d->mTopLevelItems;
}

QList<QtBrowserItem *> QtAbstractPropertyBrowser::items(QtProperty *property) const
{
    QList<QtBrowserItem *> result;
    for (QtBrowserItem *item = d->firstItem(property); item; item = item->mNextOfProperty)
        result.append(item);
    return result;
}

QtBrowserItem *QtAbstractPropertyBrowser::addProperty(QtProperty *property)
{
    return insertProperty(
        property, d->mTopLevelItems.isEmpty() ? nullptr : d->mTopLevelItems.last()->property());
}

QtBrowserItem *QtAbstractPropertyBrowser::insertProperty(QtProperty *property, QtProperty *after)
{
    if (!property)
        return nullptr;
    if (QtBrowserItem *existing = d->topLevelItem(property))
        return existing;
    QtBrowserItem *afterItem = nullptr;
    if (after) {
        afterItem = d->topLevelItem(after);
        if (!afterItem && !d->mTopLevelItems.isEmpty())
            afterItem = d->mTopLevelItems.last();
    }
    return d->insertTree(property, nullptr, afterItem);
}

void QtAbstractPropertyBrowser::removeProperty(QtProperty *property)
{
    if (QtBrowserItem *item = d->topLevelItem(property))
        d->removeTree(item);
}

QtBrowserItem *QtAbstractPropertyBrowser::currentItem() const
{
    return d->mCurrentItem;
}

void QtAbstractPropertyBrowser::setCurrentItem(QtBrowserItem *item)
{
    if (item == d->mCurrentItem)
        return;
    if (item) {
        if (item->browser() != this)
            return;
        if (!d->holds(item->property(), item))
            return;
    }
    d->mCurrentItem = item;
    emit currentItemChanged(item);
}

bool QtAbstractPropertyBrowser::addFactory(
    QtAbstractPropertyManager *manager, QtAbstractEditorFactoryBase *factory)
{
    if (!manager || !factory)
        return false;
    auto found = d->mFactories.find(manager);
    if (found != d->mFactories.end() && found->data() == factory)
        return false;
    d->watchManager(manager);
    d->mFactories.insert(manager, factory);
    return true;
}

void QtAbstractPropertyBrowser::itemsAboutToBeRemoved(const QList<QtBrowserItem *> &) { }

QWidget *QtAbstractPropertyBrowser::createEditor(QtProperty *property, QWidget *parent)
{
    if (!property)
        return nullptr;
    QtAbstractEditorFactoryBase *factory = d->mFactories.value(property->propertyManager());
    return factory ? factory->createEditor(property, parent) : nullptr;
}
