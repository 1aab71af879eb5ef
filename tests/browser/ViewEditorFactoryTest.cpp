// The way of an edit through a browser's factory: the editor writes the row's property, the
// manager reports the row; values pushed in do not echo; dead editors and managers are
// forgotten.
#include "RecordingPropertyBrowser.h"
#include "TestRegistry.h"
#include "sample/EmptyObject.h"
#include "browser/ViewEditorFactory.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using namespace TavoLib;

class ViewEditorFactoryTest : public QObject
{
    Q_OBJECT

private slots:
    void editsComeBackAsRowChanges()
    {
        RecordingPropertyBrowser browser;
        auto *manager = new ViewPropertyManager(&browser, &browser);
        ViewEditorFactory factory;
        factory.addPropertyManager(manager);
        QList<QtProperty *> rowChanged;
        connect(manager, &QtAbstractPropertyManager::propertyChanged, this,
            [&](QtProperty *p) { rowChanged << p; });
        IntegerProperty::Ptr count(new IntegerProperty("count", "Count", 3, 0, 9));
        ViewProperty *row = manager->addProperty(count, new Sample::EmptyObject);
        QWidget parent;
        QWidget *editor = factory.createEditor(row, &parent);
        QVERIFY(editor);
        QCOMPARE(factory.toProperty(count), row);
        auto *spin = editor->findChild<QSpinBox *>();
        spin->setValue(5);
        QCOMPARE(count->value(), 5);
        QCOMPARE(rowChanged.count(), 1);
        QCOMPARE(rowChanged.value(0), static_cast<QtProperty *>(row));

        // A value from outside: the editor shows it, nothing echoes, a caller's block stays.
        factory.blockSignals(true);
        IntegerProperty::Ptr loaded(new IntegerProperty("count", "Count", 7, 0, 9));
        factory.applyPropertyValues(loaded, ViewEditorFactory::ownerIdentifier(row->owner()));
        QVERIFY(factory.signalsBlocked());
        factory.blockSignals(false);
        QCOMPARE(spin->value(), 7);
        QCOMPARE(rowChanged.count(), 1);

        // A disabled row disables its editors; a dead editor is skipped.
        row->setEnabled(false);
        factory.enablePropertyEditors(row);
        QVERIFY(!editor->isEnabled());
        delete editor;
        factory.enablePropertyEditors(row);
        QVERIFY(!factory.toProperty(static_cast<QWidget *>(&parent)));
    }

    void undefinedRowsAndGoneManagers()
    {
        RecordingPropertyBrowser browser;
        auto *manager = new ViewPropertyManager(&browser);
        ViewEditorFactory factory;
        factory.addPropertyManager(manager);
        SelectorProperty::Ptr align(new SelectorProperty("align", "Align"));
        align->addItem(1, "Left");
        align->addItem(2, "Right");
        ViewProperty *row = manager->addProperty(align, new Sample::EmptyObject);
        row->setUndefined(true);
        QWidget parent;
        auto *combo = qobject_cast<QComboBox *>(factory.createEditor(row, &parent));
        // The row's undefined state opens the editor on its blank row.
        QVERIFY(combo && combo->currentText().isEmpty());
        QVERIFY(align->isUndefinable() && align->isUndefined());
        QtProperty *resolved = nullptr;
        connect(&factory, &ViewEditorFactory::resolveUndefinedProperty, this,
            [&](QtProperty *p) { resolved = p; });
        factory.activateProperty();
        QCOMPARE(resolved, static_cast<QtProperty *>(row));

        delete manager;
        QVERIFY(factory.propertyManagers().isEmpty());
    }
};

TAVO_TEST(ViewEditorFactoryTest)
#include "ViewEditorFactoryTest.moc"
