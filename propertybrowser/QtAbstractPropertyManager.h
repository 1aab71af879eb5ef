#pragma once

// Base of all property managers. A manager makes the properties of one kind, owns them, and
// answers for them what a browser shows: whether there is a value, its text and its icon.
// Browsers listen to its signals to follow changes of the tree and of the shown values.
// Properties are made with addProperty(name), which asks createProperty for the object and
// then lets initializeProperty prepare it; clear() and the destructor delete them all.
#include "propertybrowser/TavoPropertyBrowserExport.h"

#include <QIcon>
#include <QObject>
#include <QSet>
#include <QString>

class QtProperty;

class TAVOPROPERTYBROWSER_EXPORT QtAbstractPropertyManager : public QObject
{
    Q_OBJECT
public:
    explicit QtAbstractPropertyManager(QObject *parent = nullptr);
    ~QtAbstractPropertyManager() override;

    // The properties of this manager that stand under no parent.
    QSet<QtProperty *> properties() const;
    // Deletes every property of this manager.
    void clear();

    QtProperty *addProperty(const QString &name = QString());

    virtual bool hasValue(const QtProperty *property) const;
    virtual QIcon valueIcon(const QtProperty *property) const;
    virtual QString valueText(const QtProperty *property) const;

signals:
    // `parent` is null for a property that was just made; `after` is the sibling it follows,
    // null when it stands first.
    void propertyInserted(QtProperty *property, QtProperty *parent, QtProperty *after);
    void propertyChanged(QtProperty *property);
    void propertyRemoved(QtProperty *property, QtProperty *parent);
    // Sent while the property is still whole, before it is taken out of the tree.
    void propertyDestroyed(QtProperty *property);

protected:
    virtual void initializeProperty(QtProperty *property) = 0;
    virtual void uninitializeProperty(QtProperty *property);
    virtual QtProperty *createProperty();

private:
    friend class QtProperty;
    friend class QtAbstractPropertyBrowserPrivate;

    void deleteProperty(QtProperty *property);
    // A property deleted directly, not through the manager.
    void forgetProperty(QtProperty *property);

    QSet<QtProperty *> mProperties;
    // Set while clear() runs, and counted per clear, so that a browser showing only
    // properties that are going can drop all its rows at once, once per clear.
    bool mClearing = false;
    quint32 mClearCount = 0;
};
