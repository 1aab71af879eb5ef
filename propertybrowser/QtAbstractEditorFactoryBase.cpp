#include "propertybrowser/QtAbstractEditorFactoryBase.h"

QtAbstractEditorFactoryBase::QtAbstractEditorFactoryBase(QObject *parent) : QObject(parent) { }
