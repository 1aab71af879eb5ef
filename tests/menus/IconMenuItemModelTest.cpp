// The rows an icon menu shows for a QMenu: which separators survive, what each role says, and
// how the model follows a menu that changes or goes away.
#include "menus/IconMenuItemModel.h"
#include "TestRegistry.h"

#include <QAction>
#include <QMenu>
#include <QTest>

class IconMenuItemModelTest : public QObject
{
    Q_OBJECT
private:
    static QStringList rows(const IconMenuItemModel &model)
    {
        QStringList out;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex i = model.index(row, 0);
            out << (i.data(Qt::UserRole + 1).toBool() ? QStringLiteral("-") : i.data().toString());
        }
        return out;
    }

private slots:
    void separatorsOnlyBetweenEntries_data()
    {
        QTest::addColumn<QString>("layout");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("doubled and trailing") << "A--B-" << QStringList { "A", "-", "B" };
        QTest::newRow("leading") << "--A" << QStringList { "A" };
        QTest::newRow("hidden entry between") << "A-h-B" << QStringList { "A", "-", "B" };
        QTest::newRow("only separators") << "---" << QStringList {};
        QTest::newRow("empty") << "" << QStringList {};
    }
    void separatorsOnlyBetweenEntries()
    {
        QFETCH(QString, layout);
        QFETCH(QStringList, expected);
        QMenu menu;
        for (const QChar c : layout) {
            if (c == '-')
                menu.addSeparator();
            else if (c == 'h')
                menu.addAction(QStringLiteral("hidden"))->setVisible(false);
            else
                menu.addAction(QString(c));
        }
        IconMenuItemModel model(&menu, nullptr);
        QCOMPARE(rows(model), expected);
    }

    void rolesAndFlags()
    {
        QMenu menu;
        QAction *save = menu.addAction(QStringLiteral("Save && Close"));
        save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
        save->setCheckable(true);
        save->setChecked(true);
        menu.addSeparator();
        QAction *off = menu.addAction(QStringLiteral("Off"));
        off->setEnabled(false);
        IconMenuItemModel model(&menu, nullptr);

        const QModelIndex first = model.index(0, 0);
        QCOMPARE(first.data().toString(), QStringLiteral("Save & Close"));
        QCOMPARE(first.data(Qt::CheckStateRole).toBool(), true);
        QCOMPARE(first.data(Qt::UserRole + 2).toString(),
            QKeySequence(Qt::CTRL | Qt::Key_S).toString(QKeySequence::NativeText));
        QCOMPARE(model.action(first), save);
        QCOMPARE(model.flags(first), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(model.flags(model.index(1, 0)), Qt::NoItemFlags);
        QCOMPARE(model.flags(model.index(2, 0)), Qt::ItemIsSelectable);
        QCOMPARE(model.flags(QModelIndex()), Qt::NoItemFlags);
        QVERIFY(!model.index(3, 0).isValid() && !model.index(-1, 0).isValid());
        QVERIFY(!model.index(0, 1).isValid());
        QCOMPARE(model.action(QModelIndex()), nullptr);
        QVERIFY(!model.data(QModelIndex()).isValid());
    }

    void followsTheMenu()
    {
        auto *menu = new QMenu;
        menu->addAction(QStringLiteral("A"));
        QAction *b = menu->addAction(QStringLiteral("B"));
        IconMenuItemModel model(menu, nullptr);
        QCOMPARE(model.rowCount(), 2);

        delete b; // a deleted action must not stay behind as a row
        QCOMPARE(rows(model), QStringList { "A" });
        menu->addAction(QStringLiteral("C"))->setVisible(false);
        QCOMPARE(model.rowCount(), 1);
        menu->actions().last()->setVisible(true);
        QCOMPARE(rows(model), (QStringList { "A", "C" }));

        delete menu;
        QVERIFY(!model.index(0, 0).isValid());
        QCOMPARE(model.action(model.index(0, 0)), nullptr);
    }
};

TAVO_TEST(IconMenuItemModelTest)
#include "IconMenuItemModelTest.moc"
