#include "TrivialPropertyManager.h"

#include "propertybrowser/QtProperty.h"

#include <QLineEdit>

void TrivialPropertyManager::setValue(QtProperty *property, const QString &value)
{
    mValues.insert(property, value);
    emit propertyChanged(property);
}

void TrivialPropertyManager::setWithoutValue(QtProperty *property, bool withoutValue)
{
    if (withoutValue)
        mWithoutValue.insert(property);
    else
        mWithoutValue.remove(property);
}

bool TrivialPropertyManager::hasValue(const QtProperty *property) const
{
    return !mWithoutValue.contains(property);
}

QString TrivialPropertyManager::valueText(const QtProperty *property) const
{
    return mValues.value(property);
}

void TrivialPropertyManager::initializeProperty(QtProperty *property)
{
    ++mInitialized;
    mValues.insert(property, QString());
}

void TrivialPropertyManager::uninitializeProperty(QtProperty *property)
{
    ++mUninitialized;
    mValues.remove(property);
    mWithoutValue.remove(property);
}

QtProperty *TrivialPropertyManager::createProperty()
{
    return mRefuseCreation ? nullptr : QtAbstractPropertyManager::createProperty();
}

QWidget *TrivialEditorFactory::createEditor(
    TrivialPropertyManager *manager, QtProperty *property, QWidget *parent)
{
    return new QLineEdit(manager->valueText(property), parent);
}
