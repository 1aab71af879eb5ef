#include "browser/ViewProperty.h"

#include "browser/ViewPropertyManager.h"

namespace TavoLib {

ViewProperty::ViewProperty(ViewPropertyManager *manager)
    : QtProperty(manager)
{
}

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

} // namespace TavoLib
