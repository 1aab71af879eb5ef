#include "propertybrowser/QtProperty.h"
#include "TestRegistry.h"
#include "TrivialPropertyManager.h"

#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(QtProperty *)

// The property tree and its manager, without a browser.
class QtPropertyTest : public QObject
{
    Q_OBJECT

    static QStringList names(const QList<QtProperty *> &properties)
    {
        QStringList result;
        for (const QtProperty *property : properties)
            result << property->propertyName();
        return result;
    }

private slots:
    void initTestCase() { qRegisterMetaType<QtProperty *>(); }

    void managerMakesAndOwnsProperties()
    {
        TrivialPropertyManager manager;
        QSignalSpy inserted(&manager, &QtAbstractPropertyManager::propertyInserted);
        QtProperty *a = manager.addProperty("a");
        QCOMPARE(manager.mInitialized, 1);
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(inserted.at(0).at(1).value<QtProperty *>(), nullptr);
        manager.mRefuseCreation = true;
        QCOMPARE(manager.addProperty("refused"), nullptr);
        QCOMPARE(manager.mInitialized, 1);
        manager.mRefuseCreation = false;

        // Only properties under no parent count as the manager's top level.
        QtProperty *b = manager.addProperty("b");
        a->addSubProperty(b);
        QCOMPARE(manager.properties(), QSet<QtProperty *>({ a }));
        a->removeSubProperty(b);
        QCOMPARE(manager.properties(), QSet<QtProperty *>({ a, b }));

        // Flags and name report only real changes.
        QSignalSpy changed(&manager, &QtAbstractPropertyManager::propertyChanged);
        a->setEnabled(true);
        a->setModified(false);
        a->setPropertyName("a");
        QCOMPARE(changed.count(), 0);
        a->setEnabled(false);
        a->setModified(true);
        a->setPropertyName("q");
        QCOMPARE(changed.count(), 3);
        QVERIFY(!a->isEnabled() && a->isModified());

        QSignalSpy destroyed(&manager, &QtAbstractPropertyManager::propertyDestroyed);
        manager.clear();
        QCOMPARE(destroyed.count(), 2);
        QCOMPARE(manager.mUninitialized, 2);
        QVERIFY(manager.properties().isEmpty());
    }

    void subPropertyPlacementAndDeletion()
    {
        TrivialPropertyManager manager;
        QtProperty *parent = manager.addProperty("parent");
        QtProperty *other = manager.addProperty("other");
        QtProperty *a = manager.addProperty("a");
        QtProperty *b = manager.addProperty("b");
        QtProperty *c = manager.addProperty("c");
        QtProperty *d = manager.addProperty("d");
        QtProperty *stranger = manager.addProperty("stranger");

        QSignalSpy inserted(&manager, &QtAbstractPropertyManager::propertyInserted);
        parent->addSubProperty(a);
        parent->insertSubProperty(b, nullptr); // first
        parent->insertSubProperty(c, b); // after b
        parent->insertSubProperty(d, stranger); // unknown anchor: last
        QCOMPARE(names(parent->subProperties()), QStringList({ "b", "c", "a", "d" }));
        QCOMPARE(inserted.at(3).at(2).value<QtProperty *>(), a);

        // A second link to the same parent, a link to itself and a cycle are all refused.
        parent->addSubProperty(a);
        parent->addSubProperty(parent);
        a->addSubProperty(stranger);
        stranger->addSubProperty(parent);
        a->addSubProperty(nullptr);
        QCOMPARE(inserted.count(), 5);
        QCOMPARE(names(parent->subProperties()), QStringList({ "b", "c", "a", "d" }));
        QVERIFY(stranger->subProperties().isEmpty());

        QSignalSpy removed(&manager, &QtAbstractPropertyManager::propertyRemoved);
        parent->removeSubProperty(stranger); // not a child
        parent->removeSubProperty(c);
        QCOMPARE(removed.count(), 1);

        // Deleting a property under two parents takes it out of both; its child stays.
        other->addSubProperty(a);
        QSignalSpy destroyed(&manager, &QtAbstractPropertyManager::propertyDestroyed);
        delete a;
        QCOMPARE(manager.mUninitialized, 1);
        QCOMPARE(destroyed.count(), 1);
        QCOMPARE(removed.count(), 4);
        QCOMPARE(names(parent->subProperties()), QStringList({ "b", "d" }));
        QVERIFY(other->subProperties().isEmpty());
        QVERIFY(manager.properties().contains(stranger));

        // When its first parent lets it go, the second still counts as its parent, and as
        // its ancestor against cycles.
        parent->addSubProperty(stranger);
        other->addSubProperty(stranger);
        parent->removeSubProperty(stranger);
        QVERIFY(!manager.properties().contains(stranger));
        stranger->addSubProperty(other);
        QVERIFY(stranger->subProperties().isEmpty());
        other->addSubProperty(stranger);
        QCOMPARE(names(other->subProperties()), QStringList({ "stranger" }));
        other->removeSubProperty(stranger);
        QVERIFY(manager.properties().contains(stranger));
    }

    void copiesStandOutsideTheTree()
    {
        // What a subclass with value semantics gets from the base.
        struct Copyable : QtProperty
        {
            explicit Copyable(QtAbstractPropertyManager *manager) : QtProperty(manager) { }
            Copyable(const Copyable &) = default;
            Copyable &operator=(const Copyable &) = default;
        };
        TrivialPropertyManager manager;
        Copyable original(&manager);
        original.setPropertyName("original");
        original.setModified(true);
        QtProperty *parent = manager.addProperty("parent");
        parent->addSubProperty(&original);
        original.addSubProperty(manager.addProperty("child"));
        {
            Copyable copy(original);
            QVERIFY(copy.propertyName() == "original" && copy.isModified());
            QVERIFY(copy.subProperties().isEmpty());
            copy.setPropertyName("copy");
            original = copy;
        }
        // Assignment keeps the target's place in the tree; copies are never the manager's.
        QCOMPARE(original.propertyName(), QString("copy"));
        QCOMPARE(original.subProperties().size(), 1);
        QCOMPARE(parent->subProperties(), QList<QtProperty *>({ &original }));
        QCOMPARE(manager.properties(), QSet<QtProperty *>({ parent }));
    }

    void deepChainIsSafe()
    {
        // Neither the cycle test nor deletion recurses, so a long chain is fine.
        TrivialPropertyManager manager;
        QtProperty *top = manager.addProperty("0");
        QtProperty *last = top;
        for (int i = 1; i < 20000; ++i) {
            QtProperty *next = manager.addProperty(QString::number(i));
            last->addSubProperty(next);
            last = next;
        }
        last->addSubProperty(top);
        QVERIFY(last->subProperties().isEmpty());
        manager.clear();
        QVERIFY(manager.properties().isEmpty());
    }
};

TAVO_TEST(QtPropertyTest)
#include "QtPropertyTest.moc"
