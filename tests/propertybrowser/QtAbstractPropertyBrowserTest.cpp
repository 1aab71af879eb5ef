#include "RecordingPropertyBrowser.h"
#include "TestRegistry.h"
#include "TrivialPropertyManager.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"

#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(QtBrowserItem *)

// The browser base keeps its items in step with the property trees it shows.
class QtAbstractPropertyBrowserTest : public QObject
{
    Q_OBJECT

    static QStringList paths(const QList<QtBrowserItem *> &items)
    {
        QStringList result;
        for (const QtBrowserItem *item : items)
            result << RecordingPropertyBrowser::path(item);
        return result;
    }

private slots:
    void initTestCase() { qRegisterMetaType<QtBrowserItem *>(); }

    void subtreeInsertedAndRemovedInTreeOrder()
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
        QCOMPARE(item->children().size(), 2);
        QCOMPARE(item->children().at(1)->parent(), item);
        QCOMPARE(browser.addProperty(group), item); // already there: nothing happens
        QVERIFY(browser.takeLog().isEmpty());

        // Children go before their parent, each while its parent still counts it.
        browser.removeProperty(group);
        QCOMPARE(browser.takeLog(),
            QStringList({ "-group/a/a1 of 1", "-group/a of 2", "-group/b of 1", "-group of 0" }));
        QVERIFY(browser.topLevelItems().isEmpty());
        QVERIFY(browser.items(a1).isEmpty());
        browser.removeProperty(group);
        browser.removeProperty(nullptr);
        QCOMPARE(browser.addProperty(nullptr), nullptr);
        QVERIFY(browser.takeLog().isEmpty());
    }

    void topLevelInsertionAfterAGivenProperty()
    {
        TrivialPropertyManager manager;
        RecordingPropertyBrowser browser;
        QtProperty *x = manager.addProperty("x");
        QtProperty *y = manager.addProperty("y");
        QtProperty *z = manager.addProperty("z");
        QtProperty *w = manager.addProperty("w");
        QtProperty *outside = manager.addProperty("outside");
        browser.addProperty(x);
        browser.addProperty(y);
        browser.insertProperty(z, x);
        browser.insertProperty(w, nullptr);
        QCOMPARE(browser.properties(), QList<QtProperty *>({ w, x, z, y }));
        browser.removeProperty(x);
        browser.insertProperty(x, outside); // unknown anchor: last
        QCOMPARE(browser.properties(), QList<QtProperty *>({ w, z, y, x }));
        QCOMPARE(browser.takeLog(),
            QStringList(
                { "+x first", "+y after x", "+z after x", "+w first", "-x of 0", "+x after y" }));
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

        // Deleting the property takes all its places with it.
        delete shared;
        QCOMPARE(browser.properties(), QList<QtProperty *>({ left, right }));
        QVERIFY(browser.items(leaf).isEmpty());
        QVERIFY(browser.items(extra).isEmpty());
    }

    void treeMixingManagers()
    {
        // A child of another manager is followed through its own manager, and goes with it.
        TrivialPropertyManager groups;
        auto *values = new TrivialPropertyManager;
        RecordingPropertyBrowser browser;
        QtProperty *group = groups.addProperty("group");
        QtProperty *first = groups.addProperty("first");
        group->addSubProperty(first);
        browser.addProperty(group);
        browser.takeLog();
        QtProperty *value = values->addProperty("value");
        group->addSubProperty(value);
        values->setValue(value, "7");
        QCOMPARE(browser.takeLog(), QStringList({ "+group/value after first", "~group/value" }));

        delete values;
        QCOMPARE(browser.takeLog(), QStringList({ "-group/value of 2" }));
        QCOMPARE(group->subProperties(), QList<QtProperty *>({ first }));
    }

    void currentItemFollowsRemoval()
    {
        TrivialPropertyManager manager;
        RecordingPropertyBrowser browser;
        RecordingPropertyBrowser other;
        QtProperty *group = manager.addProperty("group");
        QtProperty *child = manager.addProperty("child");
        group->addSubProperty(child);
        browser.addProperty(group);
        QtBrowserItem *foreign = other.addProperty(group);

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
        QCOMPARE(other.items(child).size(), 0);
    }

    void editorsComeFromTheManagersFactory()
    {
        TrivialPropertyManager manager;
        TrivialPropertyManager unserved;
        TrivialEditorFactory factory;
        RecordingPropertyBrowser browser;
        QVERIFY(browser.addFactory(&manager, &factory));
        QVERIFY(!browser.addFactory(&manager, &factory));
        QVERIFY(!browser.addFactory(nullptr, &factory));
        QVERIFY(!browser.addFactory(&manager, nullptr));
        factory.addPropertyManager(&manager);

        QtProperty *p = manager.addProperty("p");
        manager.setValue(p, "abc");
        QScopedPointer<QWidget> editor(browser.createEditor(p, &browser));
        QVERIFY(qobject_cast<QLineEdit *>(editor.data()));
        QCOMPARE(static_cast<QLineEdit *>(editor.data())->text(), QString("abc"));
        QCOMPARE(browser.createEditor(unserved.addProperty("q"), &browser), nullptr);
        QCOMPARE(browser.createEditor(nullptr, &browser), nullptr);

        // A factory registered with the browser but not wired to the manager makes nothing.
        TrivialEditorFactory unwired;
        QVERIFY(browser.addFactory(&manager, &unwired));
        QCOMPARE(browser.createEditor(p, &browser), nullptr);
    }

    void managerDestroyedBeforeBrowser()
    {
        RecordingPropertyBrowser browser;
        TrivialEditorFactory factory;
        auto *manager = new TrivialPropertyManager;
        QVERIFY(browser.addFactory(manager, &factory));
        factory.addPropertyManager(manager);
        QtProperty *group = manager->addProperty("group");
        group->addSubProperty(manager->addProperty("child"));
        browser.addProperty(group);
        browser.setCurrentItem(browser.topLevelItems().first());
        browser.takeLog();

        delete manager;
        QVERIFY(browser.topLevelItems().isEmpty());
        QVERIFY(browser.properties().isEmpty());
        QCOMPARE(browser.currentItem(), nullptr);
        QCOMPARE(browser.takeLog(), QStringList({ "-group/child of 1", "-group of 0" }));
        QVERIFY(factory.propertyManagers().isEmpty());
        QCOMPARE(factory.mDisconnected, 0);

        // The browser goes on working with a new manager.
        TrivialPropertyManager next;
        QVERIFY(browser.addFactory(&next, &factory));
        browser.addProperty(next.addProperty("again"));
        QCOMPARE(browser.takeLog(), QStringList({ "+again first" }));
    }

    void browserDestroyedBeforeManager()
    {
        TrivialPropertyManager manager;
        TrivialEditorFactory factory;
        QtProperty *group = manager.addProperty("group");
        QtProperty *child = manager.addProperty("child");
        group->addSubProperty(child);
        {
            RecordingPropertyBrowser browser;
            QVERIFY(browser.addFactory(&manager, &factory));
            browser.addProperty(group);
            browser.addProperty(child);
        }
        // Nothing listens any more; the tree still changes and goes without harm.
        group->addSubProperty(manager.addProperty("late"));
        manager.setValue(child, "x");
        group->removeSubProperty(child);
        manager.clear();
    }
};

TAVO_TEST(QtAbstractPropertyBrowserTest)
#include "QtAbstractPropertyBrowserTest.moc"
