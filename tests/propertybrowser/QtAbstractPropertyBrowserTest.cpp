#include "RecordingPropertyBrowser.h"
#include "TestRegistry.h"
#include "TrivialPropertyManager.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(QtBrowserItem *)

// The browser base keeps its items in step with the property trees it shows.
class QtAbstractPropertyBrowserTest : public QObject
{
    Q_OBJECT

    // Opens the protected hook of the factory to the test.
    class OpenFactory : public TrivialEditorFactory
    {
    public:
        using QtAbstractEditorFactoryBase::breakConnection;
    };

    static QStringList paths(const QList<QtBrowserItem *> &items)
    {
        QStringList result;
        for (const QtBrowserItem *item : items)
            result << RecordingPropertyBrowser::path(item);
        return result;
    }

private slots:
    void initTestCase() { qRegisterMetaType<QtBrowserItem *>(); }

    void insertedAndRemovedInTreeOrder()
    {
        TrivialPropertyManager manager;
        RecordingPropertyBrowser browser;
        QtProperty *group = manager.addProperty("group");
        QtProperty *a = manager.addProperty("a");
        QtProperty *b = manager.addProperty("b");
        QtProperty *a1 = manager.addProperty("a1");
        group->addSubProperty(a);
        group->addSubProperty(b);
        a->addSubProperty(a1);

        QtBrowserItem *item = browser.addProperty(group);
        QVERIFY(item);
        QCOMPARE(browser.takeLog(),
            QStringList(
                { "+group first", "+group/a first", "+group/a/a1 first", "+group/b after a" }));
        QCOMPARE(item->children().at(1)->parent(), item);
        QCOMPARE(browser.addProperty(group), item); // already there: nothing happens
        QVERIFY(browser.takeLog().isEmpty());

        // Children go before their parent, each while its parent still counts it.
        browser.removeProperty(group);
        QCOMPARE(browser.takeLog(),
            QStringList({ "-group/a/a1 of 1", "-group/a of 2", "-group/b of 1", "-group of 0" }));
        QVERIFY(browser.items(a1).isEmpty());
        browser.removeProperty(group);
        browser.removeProperty(nullptr);
        QCOMPARE(browser.addProperty(nullptr), nullptr);
        QVERIFY(browser.takeLog().isEmpty());

        // At the top level: after the given property, first for none, last for a stranger.
        QtProperty *x = manager.addProperty("x");
        QtProperty *y = manager.addProperty("y");
        QtProperty *z = manager.addProperty("z");
        browser.addProperty(x);
        browser.addProperty(y);
        browser.insertProperty(z, x);
        browser.insertProperty(b, nullptr);
        QCOMPARE(browser.properties(), QList<QtProperty *>({ b, x, z, y }));
        browser.removeProperty(x);
        browser.insertProperty(x, a1);
        QCOMPARE(browser.properties(), QList<QtProperty *>({ b, z, y, x }));
        QCOMPARE(browser.takeLog(),
            QStringList(
                { "+x first", "+y after x", "+z after x", "+b first", "-x of 0", "+x after y" }));
    }

    void sharedPropertyHasOneItemPerPlace()
    {
        TrivialPropertyManager manager;
        RecordingPropertyBrowser browser;
        QtProperty *left = manager.addProperty("left");
        QtProperty *right = manager.addProperty("right");
        QtProperty *shared = manager.addProperty("shared");
        QtProperty *leaf = manager.addProperty("leaf");
        left->addSubProperty(shared);
        right->addSubProperty(shared);
        shared->addSubProperty(leaf);
        browser.addProperty(left);
        browser.addProperty(right);
        browser.addProperty(shared);
        QCOMPARE(paths(browser.items(leaf)),
            QStringList({ "left/shared/leaf", "right/shared/leaf", "shared/leaf" }));

        browser.takeLog();
        manager.setValue(leaf, "1");
        QCOMPARE(browser.takeLog(),
            QStringList({ "~left/shared/leaf", "~right/shared/leaf", "~shared/leaf" }));

        // Changing the shared subtree reaches every place, in the order of the places.
        QtProperty *extra = manager.addProperty("extra");
        shared->insertSubProperty(extra, nullptr);
        QCOMPARE(browser.takeLog(),
            QStringList({ "+left/shared/extra first", "+right/shared/extra first",
                "+shared/extra first" }));
        right->removeSubProperty(shared);
        QCOMPARE(browser.takeLog(),
            QStringList(
                { "-right/shared/extra of 2", "-right/shared/leaf of 1", "-right/shared of 1" }));
        QCOMPARE(paths(browser.items(shared)), QStringList({ "left/shared", "shared" }));
        // The first place goes: the later ones stay, in order, and still hear of changes.
        shared->insertSubProperty(manager.addProperty("more"), extra);
        browser.takeLog();
        left->removeSubProperty(shared);
        QCOMPARE(paths(browser.items(shared)), QStringList({ "shared" }));
        QCOMPARE(paths(browser.items(leaf)), QStringList({ "shared/leaf" }));
        manager.setValue(leaf, "2");
        QCOMPARE(browser.takeLog().last(), QString("~shared/leaf"));

        // Deleting the property takes all its places with it.
        delete shared;
        QCOMPARE(browser.properties(), QList<QtProperty *>({ left, right }));
        QVERIFY(browser.items(leaf).isEmpty());
    }

    void currentItemFollowsRemovalAndBrowsersMayGoFirst()
    {
        TrivialPropertyManager manager;
        TrivialEditorFactory factory;
        RecordingPropertyBrowser browser;
        auto *other = new RecordingPropertyBrowser;
        QVERIFY(other->addFactory(&manager, &factory));
        QtProperty *group = manager.addProperty("group");
        QtProperty *child = manager.addProperty("child");
        group->addSubProperty(child);
        browser.addProperty(group);
        QtBrowserItem *foreign = other->addProperty(group);

        QSignalSpy changed(&browser, &QtAbstractPropertyBrowser::currentItemChanged);
        QtBrowserItem *childItem = browser.items(child).first();
        browser.setCurrentItem(childItem);
        browser.setCurrentItem(childItem);
        browser.setCurrentItem(foreign);
        QCOMPARE(browser.currentItem(), childItem);
        QCOMPARE(changed.count(), 1);

        group->removeSubProperty(child);
        QCOMPARE(browser.currentItem(), nullptr);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(other->items(child).size(), 0);

        // A browser that goes first leaves the tree, its manager and the factory working.
        delete other;
        group->addSubProperty(child);
        manager.setValue(child, "x");
        manager.clear();
        QVERIFY(browser.topLevelItems().isEmpty());
    }

    void editorsComeFromTheManagersFactory()
    {
        TrivialPropertyManager manager;
        TrivialPropertyManager unserved;
        OpenFactory factory;
        RecordingPropertyBrowser browser;
        QVERIFY(browser.addFactory(&manager, &factory));
        QVERIFY(!browser.addFactory(&manager, &factory));
        QVERIFY(!browser.addFactory(nullptr, &factory) && !browser.addFactory(&manager, nullptr));

        // The factory makes editors only once it is wired to the manager, and is wired once.
        QtProperty *p = manager.addProperty("p");
        manager.setValue(p, "abc");
        QCOMPARE(browser.createEditor(p, &browser), nullptr);
        factory.addPropertyManager(&manager);
        factory.addPropertyManager(&manager);
        factory.addPropertyManager(nullptr);
        QCOMPARE(factory.mConnected, 1);
        QScopedPointer<QWidget> editor(browser.createEditor(p, &browser));
        QVERIFY(qobject_cast<QLineEdit *>(editor.data()));
        QCOMPARE(static_cast<QLineEdit *>(editor.data())->text(), QString("abc"));
        QCOMPARE(browser.createEditor(unserved.addProperty("q"), &browser), nullptr);
        QCOMPARE(browser.createEditor(nullptr, &browser), nullptr);

        // Breaking with another manager changes nothing; with its own it ends the service once.
        factory.breakConnection(&unserved);
        QCOMPARE(factory.mDisconnected, 0);
        factory.breakConnection(&manager);
        factory.removePropertyManager(&manager);
        QCOMPARE(factory.mDisconnected, 1);
        QCOMPARE(browser.createEditor(p, &browser), nullptr);
        factory.addPropertyManager(&manager);

        // A second factory for the manager replaces the first.
        TrivialEditorFactory unwired;
        QVERIFY(browser.addFactory(&manager, &unwired));
        QCOMPARE(browser.createEditor(p, &browser), nullptr);
    }

    void removalsOfTreesAndClearsAreAnnounced()
    {
        TrivialPropertyManager manager;
        RecordingPropertyBrowser browser;
        QtProperty *group = manager.addProperty("group");
        QtProperty *a = manager.addProperty("a");
        group->addSubProperty(a);
        a->addSubProperty(manager.addProperty("a1"));
        QtProperty *loose = manager.addProperty("loose");
        browser.addProperty(group);
        browser.addProperty(loose);
        browser.addProperty(manager.addProperty("last"));
        browser.takeLog();

        // A tree of several items is announced before it goes; a single item is not.
        browser.removeProperty(loose);
        a->removeSubProperty(a->subProperties().first());
        QVERIFY(browser.mAnnounced.isEmpty());
        a->addSubProperty(manager.addProperty("a2"));
        browser.removeProperty(group);
        QCOMPARE(browser.mAnnounced, QStringList({ "group" }));
        QCOMPARE(browser.takeLog(),
            QStringList({ "-loose of 0", "-group/a/a1 of 1", "+group/a/a2 first",
                "-group/a/a2 of 1", "-group/a of 1", "-group of 0" }));

        // A clear that takes every item announces the top level once, and then takes each
        // tree in order, children first, whatever order the properties are deleted in.
        browser.mAnnounced.clear();
        browser.addProperty(group);
        browser.insertProperty(loose, nullptr);
        browser.takeLog();
        QSignalSpy current(&browser, &QtAbstractPropertyBrowser::currentItemChanged);
        browser.setCurrentItem(browser.items(a).first());
        manager.clear();
        QCOMPARE(browser.mAnnounced, QStringList({ "loose,last,group" }));
        QCOMPARE(browser.takeLog(),
            QStringList({ "-loose of 0", "-last of 0", "-group/a/a2 of 1", "-group/a of 1",
                "-group of 0" }));
        QCOMPARE(current.count(), 2);
        QCOMPARE(current.last().first().value<QtBrowserItem *>(), nullptr);
        QVERIFY(browser.topLevelItems().isEmpty());

        // Items of another manager stay: the clear goes item by item.
        browser.mAnnounced.clear();
        TrivialPropertyManager others;
        QtProperty *kept = others.addProperty("kept");
        kept->addSubProperty(manager.addProperty("borrowed"));
        browser.addProperty(kept);
        browser.addProperty(manager.addProperty("own"));
        browser.takeLog();
        manager.clear();
        QVERIFY(browser.mAnnounced.isEmpty());
        QStringList log = browser.takeLog();
        log.sort();
        QCOMPARE(log, QStringList({ "-kept/borrowed of 1", "-own of 0" }));
        QCOMPARE(browser.properties(), QList<QtProperty *>({ kept }));
    }

    void managerDestroyedWhileShown()
    {
        // The manager's properties stand at the top level and under another manager's group.
        TrivialPropertyManager groups;
        auto *values = new TrivialPropertyManager;
        TrivialEditorFactory factory;
        RecordingPropertyBrowser browser;
        QVERIFY(browser.addFactory(values, &factory));
        factory.addPropertyManager(values);
        QtProperty *group = groups.addProperty("group");
        QtProperty *first = groups.addProperty("first");
        group->addSubProperty(first);
        browser.addProperty(group);
        QtProperty *top = values->addProperty("top");
        top->addSubProperty(values->addProperty("child"));
        browser.setCurrentItem(browser.addProperty(top));
        browser.takeLog();
        // A child of another manager is followed through its own manager.
        QtProperty *value = values->addProperty("value");
        group->addSubProperty(value);
        values->setValue(value, "7");
        QCOMPARE(browser.takeLog(), QStringList({ "+group/value after first", "~group/value" }));

        delete values;
        QStringList log = browser.takeLog();
        log.sort();
        QCOMPARE(log, QStringList({ "-group/value of 2", "-top of 0", "-top/child of 1" }));
        QCOMPARE(group->subProperties(), QList<QtProperty *>({ first }));
        QCOMPARE(browser.properties(), QList<QtProperty *>({ group }));
        QCOMPARE(browser.currentItem(), nullptr);
        QVERIFY(factory.propertyManagers().isEmpty());
        QCOMPARE(factory.mDisconnected, 0);

        // The browser goes on working with a new manager.
        TrivialPropertyManager next;
        QVERIFY(browser.addFactory(&next, &factory));
        browser.addProperty(next.addProperty("again"));
        QCOMPARE(browser.takeLog(), QStringList({ "+again after group" }));
    }
};

TAVO_TEST(QtAbstractPropertyBrowserTest)
#include "QtAbstractPropertyBrowserTest.moc"
