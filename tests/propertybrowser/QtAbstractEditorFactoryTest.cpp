#include "TestRegistry.h"
#include "TrivialPropertyManager.h"
#include "propertybrowser/QtProperty.h"

#include <QTest>

// The manager bookkeeping of the typed editor factory.
class QtAbstractEditorFactoryTest : public QObject
{
    Q_OBJECT

    // Opens the protected hooks of the factory to the test.
    class OpenFactory : public TrivialEditorFactory
    {
    public:
        using QtAbstractEditorFactoryBase::breakConnection;
    };

private slots:
    void managersAreServedOnce()
    {
        OpenFactory factory;
        // The subclass's createEditor hides the base's, as in every factory.
        QtAbstractEditorFactoryBase &base = factory;
        TrivialPropertyManager manager;
        TrivialPropertyManager other;
        factory.addPropertyManager(&manager);
        factory.addPropertyManager(&manager);
        factory.addPropertyManager(nullptr);
        QCOMPARE(factory.mConnected, 1);
        QCOMPARE(factory.propertyManagers(), QSet<TrivialPropertyManager *>({ &manager }));

        QtProperty *mine = manager.addProperty("mine");
        QtProperty *theirs = other.addProperty("theirs");
        QCOMPARE(factory.propertyManager(mine), &manager);
        QCOMPARE(factory.propertyManager(theirs), nullptr);
        QCOMPARE(factory.propertyManager(nullptr), nullptr);
        QScopedPointer<QWidget> editor(base.createEditor(mine, nullptr));
        QVERIFY(editor);
        QCOMPARE(base.createEditor(theirs, nullptr), nullptr);

        factory.breakConnection(&other);
        QCOMPARE(factory.mDisconnected, 0);
        factory.breakConnection(&manager);
        QCOMPARE(factory.mDisconnected, 1);
        QVERIFY(factory.propertyManagers().isEmpty());
        factory.removePropertyManager(&manager);
        QCOMPARE(factory.mDisconnected, 1);
        QCOMPARE(base.createEditor(mine, nullptr), nullptr);

        // A destroyed manager leaves the set without a disconnect call.
        auto *doomed = new TrivialPropertyManager;
        factory.addPropertyManager(doomed);
        factory.addPropertyManager(&other);
        delete doomed;
        QCOMPARE(factory.propertyManagers(), QSet<TrivialPropertyManager *>({ &other }));
        QCOMPARE(factory.mDisconnected, 1);
    }
};

TAVO_TEST(QtAbstractEditorFactoryTest)
#include "QtAbstractEditorFactoryTest.moc"
