#pragma once

// Base of all editor factories: what a browser needs to ask any factory for an editor widget,
// whatever manager type the factory serves. QtAbstractEditorFactory<Manager> adds the typed
// bookkeeping of managers on top.
#include "propertybrowser/TavoPropertyBrowserExport.h"

#include <QObject>

class QWidget;
class QtProperty;
class QtAbstractPropertyManager;

class TAVOPROPERTYBROWSER_EXPORT QtAbstractEditorFactoryBase : public QObject
{
    Q_OBJECT
public:
    // A new editor for the property with the given parent, or null when this factory does not
    // serve the property's manager or makes no editor for it.
    virtual QWidget *createEditor(QtProperty *property, QWidget *parent) = 0;

protected:
    explicit QtAbstractEditorFactoryBase(QObject *parent = nullptr);

    // Stops serving the manager if it is served.
    virtual void breakConnection(QtAbstractPropertyManager *manager) = 0;

protected slots:
    // The manager is being destroyed: forget it without talking to it any more.
    virtual void managerDestroyed(QObject *manager) = 0;

private:
    friend class QtAbstractPropertyBrowser;
};
