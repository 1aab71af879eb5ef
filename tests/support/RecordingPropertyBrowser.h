#pragma once

// A property browser for tests that shows nothing and writes down every call it gets from
// the framework, one line per call, naming each item by its path of property names.
#include "propertybrowser/QtAbstractPropertyBrowser.h"

#include <QStringList>

class RecordingPropertyBrowser : public QtAbstractPropertyBrowser
{
    Q_OBJECT
public:
    using QtAbstractPropertyBrowser::QtAbstractPropertyBrowser;

    // "A/B" for the item of B under the item of A.
    static QString path(const QtBrowserItem *item);
    // Takes the lines written so far.
    QStringList takeLog();

    // Lines: "+path after sibling" (or "+path first"), "-path of n" where n is the number of
    // children the parent item still counts (0 at the top level), "~path".
    QStringList mLog;
    // One line per announcement of removals: the paths of the items, joined by ",".
    QStringList mAnnounced;

protected:
    void itemInserted(QtBrowserItem *item, QtBrowserItem *afterItem) override;
    void itemRemoved(QtBrowserItem *item) override;
    void itemChanged(QtBrowserItem *item) override;
    void itemsAboutToBeRemoved(const QList<QtBrowserItem *> &items) override;
};
