#include "browser/ViewProperty.h"

#include "browser/ViewPropertyManager.h"

namespace TavoLib {

ViewProperty::ViewProperty(ViewPropertyManager *manager) : QtProperty(manager) { }

ViewProperty::ViewProperty(const ViewProperty &other) = default;
ViewProperty &ViewProperty::operator=(const ViewProperty &other) = default;
ViewProperty::~ViewProperty() = default;

void ViewProperty::setUndefined(bool undefined)
{
    if (undefined == mUndefined)
        return;
    mUndefined = undefined;
    if (undefined) {
        mHiddenSubProperties = subProperties();
        for (QtProperty *child : qAsConst(mHiddenSubProperties))
            removeSubProperty(child);
    } else {
        while (!mHiddenSubProperties.isEmpty())
            addSubProperty(mHiddenSubProperties.takeFirst());
    }
}

QList<QtProperty *> ViewProperty::children() const
{
    return mUndefined ? mHiddenSubProperties : subProperties();
}

void ViewProperty::setChildren(const QList<QtProperty *> &children)
{
    // An undefined row keeps its new children hidden; the tree sees them when it is defined.
    if (mUndefined) {
        mHiddenSubProperties = children;
        return;
    }
    for (QtProperty *child : subProperties())
        removeSubProperty(child);
    for (QtProperty *child : children)
        addSubProperty(child);
}

} // namespace TavoLib
