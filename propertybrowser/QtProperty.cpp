#include "propertybrowser/QtProperty.h"

#include "propertybrowser/QtAbstractPropertyManager.h"

#include <QSet>
#include <vector>

QtProperty::QtProperty(QtAbstractPropertyManager *manager) : mManager(manager) { }

QtAbstractPropertyManager *QtProperty::propertyManager() const
{
    return mManager.data();
}

QtProperty::QtProperty(const QtProperty &other)
    : mManager(other.mManager),
      mName(other.mName),
      mEnabled(other.mEnabled),
      mModified(other.mModified)
{
}

QtProperty &QtProperty::operator=(const QtProperty &other)
{
    if (this == &other)
        return *this;
    const bool changed
        = mName != other.mName || mEnabled != other.mEnabled || mModified != other.mModified;
    mName = other.mName;
    mEnabled = other.mEnabled;
    mModified = other.mModified;
    if (changed)
        propertyChanged();
    return *this;
}

QtProperty::~QtProperty()
{
    // Deleted directly rather than through the manager: the listeners hear of it here, when
    // only the base part is left, which is all they may look at.
    detach();
    if (mOwned && mManager)
        mManager->forgetProperty(this);
}

void QtProperty::detach()
{
    if (mDetached)
        return;
    mDetached = true;
    // Also for a copy the manager does not own: a browser may show it all the same.
    if (mManager)
        emit mManager->propertyDestroyed(this);
    while (mParent)
        mParent->removeSubProperty(this);
    while (!mChildren.isEmpty())
        removeSubProperty(mChildren.first());
}

void QtProperty::setPropertyName(const QString &name)
{
    if (mName == name)
        return;
    mName = name;
    propertyChanged();
}

void QtProperty::setEnabled(bool enabled)
{
    if (mEnabled == enabled)
        return;
    mEnabled = enabled;
    propertyChanged();
}

void QtProperty::setModified(bool modified)
{
    if (mModified == modified)
        return;
    mModified = modified;
    propertyChanged();
}

bool QtProperty::hasValue() const
{
    return mManager ? mManager->hasValue(this) : false;
}

QIcon QtProperty::valueIcon() const
{
    return mManager ? mManager->valueIcon(this) : QIcon();
}

QString QtProperty::valueText() const
{
    return mManager ? mManager->valueText(this) : QString();
}

void QtProperty::propertyChanged()
{
    if (mManager && !mDetached)
        emit mManager->propertyChanged(this);
}

void QtProperty::addSubProperty(QtProperty *property)
{
    insertSubProperty(property, mChildren.isEmpty() ? nullptr : mChildren.last());
}

bool QtProperty::isAncestorOf(const QtProperty *property) const
{
    // Walks up from `property` through all its parents; a property may have several, so the
    // walk is over a graph and remembers where it has been.
    std::vector<const QtProperty *> pending { property };
    QSet<const QtProperty *> seen;
    while (!pending.empty()) {
        const QtProperty *current = pending.back();
        pending.pop_back();
        const auto visit = [&](const QtProperty *parent) {
            if (parent != this && !seen.contains(parent)) {
                seen.insert(parent);
                pending.push_back(parent);
            }
            return parent == this;
        };
        if (current->mParent && visit(current->mParent))
            return true;
        for (const QtProperty *parent : current->mMoreParents) {
            if (visit(parent))
                return true;
        }
    }
    return false;
}

void QtProperty::insertSubProperty(QtProperty *property, QtProperty *after)
{
    if (!property || property == this || mDetached || property->mDetached)
        return;
    // Only a property with children can be an ancestor; a fresh leaf skips the walk.
    if (property->hasParent(this)
        || (!property->mChildren.isEmpty() && property->isAncestorOf(this)))
        return;

    int position = 0;
    if (after) {
        // Search from the end: appending is the common case and then costs nothing.
        const int index = mChildren.lastIndexOf(after);
        position = index < 0 ? mChildren.size() : index + 1;
    }
    QtProperty *const previous = position > 0 ? mChildren.at(position - 1) : nullptr;
    mChildren.insert(position, property);
    property->addParent(this);
    if (mManager)
        emit mManager->propertyInserted(property, this, previous);
}

void QtProperty::removeSubProperty(QtProperty *property)
{
    if (!property || !property->hasParent(this))
        return;
    // Listeners hear of the removal while the child still stands here, so that a browser can
    // still count it among its siblings.
    if (mManager)
        emit mManager->propertyRemoved(property, this);
    // A listener may have changed the tree meanwhile; unlink only what is still linked.
    const int index = mChildren.indexOf(property);
    if (index < 0)
        return;
    mChildren.removeAt(index);
    property->removeParent(this);
}

void QtProperty::addParent(QtProperty *parent)
{
    if (!mParent)
        mParent = parent;
    else
        mMoreParents.append(parent);
}

void QtProperty::removeParent(QtProperty *parent)
{
    if (mParent == parent)
        mParent = mMoreParents.isEmpty() ? nullptr : mMoreParents.takeFirst();
    else
        mMoreParents.removeOne(parent);
}
