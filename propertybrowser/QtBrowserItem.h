#pragma once

// One place of a property in a browser's tree. A property that stands under several parents,
// or under a parent that itself stands in several places, has one browser item per place.
// Items are made and deleted by their browser only.
#include "propertybrowser/TavoPropertyBrowserExport.h"

#include <QList>

class QtProperty;
class QtAbstractPropertyBrowser;

class TAVOPROPERTYBROWSER_EXPORT QtBrowserItem
{
public:
    QtProperty *property() const { return mProperty; }
    // The item this one stands under, null at the top level.
    QtBrowserItem *parent() const { return mParent; }
    QList<QtBrowserItem *> children() const { return mChildren; }
    QtAbstractPropertyBrowser *browser() const { return mBrowser; }

private:
    friend class QtAbstractPropertyBrowser;
    friend class QtAbstractPropertyBrowserPrivate;

    QtBrowserItem(QtAbstractPropertyBrowser *browser, QtProperty *property, QtBrowserItem *parent);
    ~QtBrowserItem();
    Q_DISABLE_COPY(QtBrowserItem)

    QtAbstractPropertyBrowser *mBrowser;
    QtProperty *mProperty;
    QtBrowserItem *mParent;
    QList<QtBrowserItem *> mChildren;
    // The next item of the same property in this browser, in the order they came: the
    // browser's table holds only the first, so that a property at one place needs no list.
    QtBrowserItem *mNextOfProperty = nullptr;
};
