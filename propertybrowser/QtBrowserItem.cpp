#include "propertybrowser/QtBrowserItem.h"

QtBrowserItem::QtBrowserItem(
    QtAbstractPropertyBrowser *browser, QtProperty *property, QtBrowserItem *parent)
    : mBrowser(browser), mProperty(property), mParent(parent)
{
}

QtBrowserItem::~QtBrowserItem() = default;
