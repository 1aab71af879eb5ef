#pragma once

// An editor factory for the properties of one manager type. It keeps the set of managers it
// serves, answers createEditor only for their properties, and leaves the making of the widget
// and the wiring to a manager to the subclass.
#include "propertybrowser/QtAbstractEditorFactoryBase.h"
#include "propertybrowser/QtAbstractPropertyManager.h"
#include "propertybrowser/QtProperty.h"

#include <QSet>

template <class PropertyManager> class QtAbstractEditorFactory : public QtAbstractEditorFactoryBase
{
public:
    explicit QtAbstractEditorFactory(QObject *parent = nullptr)
        : QtAbstractEditorFactoryBase(parent)
    {
    }

    QWidget *createEditor(QtProperty *property, QWidget *parent) override
    {
        PropertyManager *manager = propertyManager(property);
        return manager ? createEditor(manager, property, parent) : nullptr;
    }

    // Starts serving the manager; a manager already served is left as it is.
    void addPropertyManager(PropertyManager *manager)
    {
        if (!manager || mManagers.contains(manager))
            return;
        mManagers.insert(manager);
        connectPropertyManager(manager);
        QObject::connect(
            manager, &QObject::destroyed, this, &QtAbstractEditorFactory::managerDestroyed);
    }

    void removePropertyManager(PropertyManager *manager)
    {
        if (!manager || !mManagers.contains(manager))
            return;
        QObject::disconnect(
            manager, &QObject::destroyed, this, &QtAbstractEditorFactory::managerDestroyed);
        mManagers.remove(manager);
        disconnectPropertyManager(manager);
    }

    QSet<PropertyManager *> propertyManagers() const { return mManagers; }

    // The served manager that made the property, or null.
    PropertyManager *propertyManager(QtProperty *property) const
    {
        if (!property)
            return nullptr;
        const QtAbstractPropertyManager *owner = property->propertyManager();
        if (!owner)
            return nullptr;
        for (PropertyManager *manager : mManagers) {
            if (static_cast<const QtAbstractPropertyManager *>(manager) == owner)
                return manager;
        }
        return nullptr;
    }

protected:
    virtual QWidget *createEditor(PropertyManager *manager, QtProperty *property, QWidget *parent)
        = 0;
    virtual void connectPropertyManager(PropertyManager *manager) = 0;
    virtual void disconnectPropertyManager(PropertyManager *manager) = 0;

    void breakConnection(QtAbstractPropertyManager *manager) override
    {
        for (PropertyManager *served : mManagers) {
            if (static_cast<QtAbstractPropertyManager *>(served) == manager) {
                removePropertyManager(served);
                return;
            }
        }
    }

    void managerDestroyed(QObject *manager) override
    {
        // The manager is inside QObject's destructor now, so it is compared by address only;
        // Qt requires QObject to be the first base, so both addresses are the same.
        for (auto it = mManagers.begin(); it != mManagers.end(); ++it) {
            if (static_cast<const void *>(*it) == static_cast<const void *>(manager)) {
                mManagers.erase(it);
                return;
            }
        }
    }

private:
    QSet<PropertyManager *> mManagers;
};
