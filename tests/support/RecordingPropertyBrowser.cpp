#include "RecordingPropertyBrowser.h"

#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"

QString RecordingPropertyBrowser::path(const QtBrowserItem *item)
{
    QStringList names;
    for (; item; item = item->parent())
        names.prepend(item->property()->propertyName());
    return names.join(QLatin1Char('/'));
}

QStringList RecordingPropertyBrowser::takeLog()
{
    QStringList log;
    log.swap(mLog);
    return log;
}

void RecordingPropertyBrowser::itemInserted(QtBrowserItem *item, QtBrowserItem *afterItem)
{
    mLog << QStringLiteral("+%1 %2").arg(path(item),
        afterItem ? QStringLiteral("after ") + afterItem->property()->propertyName()
                  : QStringLiteral("first"));
}

void RecordingPropertyBrowser::itemRemoved(QtBrowserItem *item)
{
    const int siblings = item->parent() ? item->parent()->children().size() : 0;
    mLog << QStringLiteral("-%1 of %2").arg(path(item)).arg(siblings);
}

void RecordingPropertyBrowser::itemChanged(QtBrowserItem *item)
{
    mLog << QStringLiteral("~") + path(item);
}

void RecordingPropertyBrowser::itemsAboutToBeRemoved(const QList<QtBrowserItem *> &items)
{
    QStringList paths;
    for (const QtBrowserItem *item : items)
        paths << path(item);
    mAnnounced << paths.join(QLatin1Char(','));
}
