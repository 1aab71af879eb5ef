#pragma once

// A property manager for tests: each property holds a plain text value, and properties can
// be marked as having no value. It counts the calls of its hooks.
#include "propertybrowser/QtAbstractEditorFactory.h"
#include "propertybrowser/QtAbstractPropertyManager.h"

#include <QHash>
#include <QSet>

class TrivialPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT
public:
    using QtAbstractPropertyManager::QtAbstractPropertyManager;

    void setValue(QtProperty *property, const QString &value);
    void setWithoutValue(QtProperty *property, bool withoutValue);

    bool hasValue(const QtProperty *property) const override;
    QString valueText(const QtProperty *property) const override;

    // When set, createProperty gives null.
    bool mRefuseCreation = false;
    int mInitialized = 0;
    int mUninitialized = 0;

protected:
    void initializeProperty(QtProperty *property) override;
    void uninitializeProperty(QtProperty *property) override;
    QtProperty *createProperty() override;

private:
    QHash<const QtProperty *, QString> mValues;
    QSet<const QtProperty *> mWithoutValue;
};

// An editor factory for TrivialPropertyManager that makes a QLineEdit showing the value and
// counts how often it was wired to a manager.
class TrivialEditorFactory : public QtAbstractEditorFactory<TrivialPropertyManager>
{
    Q_OBJECT
public:
    using QtAbstractEditorFactory::QtAbstractEditorFactory;

    int mConnected = 0;
    int mDisconnected = 0;

protected:
    QWidget *createEditor(
        TrivialPropertyManager *manager, QtProperty *property, QWidget *parent) override;
    void connectPropertyManager(TrivialPropertyManager *) override { ++mConnected; }
    void disconnectPropertyManager(TrivialPropertyManager *) override { ++mDisconnected; }
};
