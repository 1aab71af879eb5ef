// The rows an icon menu shows for a QMenu: which separators survive, their texts, and
// how the model follows a menu that changes or goes away.
#include "menus/IconMenuItemModel.h"
#include "TestRegistry.h"

#include <QMenu>
#include <QTest>

class IconMenuItemModelTest : public QObject
{
    Q_OBJECT
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
    }
    void separatorsOnlyBetweenEntries()
    {
        QFETCH(QString, layout);
        QMenu menu;
        for (const QChar c : layout) {
            if (c == '-')
                menu.addSeparator();
            else
                menu.addAction(QString(c))->setVisible(c != 'h');
        }
        QTEST(rows(IconMenuItemModel(&menu, nullptr)), "expected");
    }

    void followsTheMenu()
    {
        auto *menu = new QMenu;
        menu->addAction(QStringLiteral("A && B"));
        QAction *gone = menu->addAction(QStringLiteral("Gone"));
        IconMenuItemModel model(menu, nullptr);
        delete gone; // a deleted action must not stay behind as a row
        QCOMPARE(rows(model), QStringList { "A & B" });
        menu->addAction(QStringLiteral("C"))->setVisible(false);
        QCOMPARE(model.rowCount(), 1);
        menu->actions().last()->setVisible(true);
        QCOMPARE(rows(model), (QStringList { "A & B", "C" }));
        delete menu;
        QVERIFY(!model.index(0, 0).isValid());
        QCOMPARE(model.action(model.index(0, 0)), nullptr);
    }
};

TAVO_TEST(IconMenuItemModelTest)
#include "IconMenuItemModelTest.moc"
