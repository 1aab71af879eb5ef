#include "propertybrowser/QtAbstractPropertyManager.h"

#include "propertybrowser/QtProperty.h"

#include <algorithm>

QtAbstractPropertyManager::QtAbstractPropertyManager(QObject *parent) : QObject(parent) { }

QtAbstractPropertyManager::~QtAbstractPropertyManager()
{
    clear();
}

QSet<QtProperty *> QtAbstractPropertyManager::properties() const
{
    QSet<QtProperty *> result;
    for (QtProperty *property : mProperties) {
        if (!property->mParent)
            result.insert(property);
    }
    return result;
}

void QtAbstractPropertyManager::clear()
{
    const bool wasClearing = mClearing;
    mClearing = true;
    ++mClearCount;
    // Listeners may delete properties themselves, or make new ones, while one is going; so
    // each is looked up again before it is deleted, and the loop runs until none is left.
    // Properties under no parent go first: each takes its whole tree out of the browsers in
    // one piece, and its children are then deleted where nobody shows them any more.
    // The set keeps its buckets while it empties, else it rehashes each time it halves.
    mProperties.reserve(mProperties.size());
    while (!mProperties.isEmpty()) {
        QList<QtProperty *> snapshot = mProperties.values();
        std::stable_partition(snapshot.begin(), snapshot.end(),
            [](const QtProperty *property) { return !property->mParent; });
        for (QtProperty *property : qAsConst(snapshot)) {
            if (mProperties.contains(property))
                deleteProperty(property);
        }
    }
    mProperties.squeeze();
    mClearing = wasClearing;
}

void QtAbstractPropertyManager::deleteProperty(QtProperty *property)
{
    // Listeners hear of it while the property is whole and still has its value; the manager's
    // own data for it goes last. It leaves the set first, so that a listener that clears the
    // manager meanwhile does not delete it a second time.
    mProperties.remove(property);
    property->detach();
    uninitializeProperty(property);
    property->mOwned = false;
    delete property;
}

void QtAbstractPropertyManager::forgetProperty(QtProperty *property)
{
    uninitializeProperty(property);
    mProperties.remove(property);
}

QtProperty *QtAbstractPropertyManager::addProperty(const QString &name)
{
    QtProperty *property = createProperty();
    if (!property)
        return nullptr;
    if (property->mManager != this || property->mOwned) {
        qWarning("QtAbstractPropertyManager::addProperty: createProperty gave a property of "
                 "another manager");
        if (!property->mOwned)
            delete property;
        return nullptr;
    }
    property->mName = name;
    property->mOwned = true;
    mProperties.insert(property);
    initializeProperty(property);
    emit propertyInserted(property, nullptr, nullptr);
    return property;
}

bool QtAbstractPropertyManager::hasValue(const QtProperty *) const
{
    return true;
}

QIcon QtAbstractPropertyManager::valueIcon(const QtProperty *) const
{
    return QIcon();
}

QString QtAbstractPropertyManager::valueText(const QtProperty *) const
{
    return QString();
}

void QtAbstractPropertyManager::uninitializeProperty(QtProperty *) { }

QtProperty *QtAbstractPropertyManager::createProperty()
{
    return new QtProperty(this);
}
