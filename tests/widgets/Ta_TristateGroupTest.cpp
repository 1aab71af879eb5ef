// The tristate group: the master follows the boxes (none, some, all) and sets them all by
// click or Space; signals come once per action with the boxes already set; the old accessor
// logs that it is obsolete.
#include "widgets/Ta_TristateGroup.h"
#include "TestRegistry.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

class Ta_TristateGroupTest : public QObject
{
    Q_OBJECT
private slots:
    void masterFollowsAndSetsTheBoxes()
    {
        Ta_TristateGroup group(QStringLiteral("All pages"));
        QVERIFY(!group.masterBox()->isEnabled());
        for (const char *name : { "Page 1", "Page 2", "Page 3" })
            group.addCheckBox(QString::fromLatin1(name));
        group.checkBox(2)->setEnabled(false);
        group.show();
        QVERIFY(QTest::qWaitForWindowExposed(&group));
        QSignalSpy toggled(&group, &Ta_TristateGroup::toggled);
        QSignalSpy state(&group, &Ta_TristateGroup::stateChanged);
        // Each signal sees the whole action done.
        QList<Qt::CheckState> seen;
        connect(&group, &Ta_TristateGroup::toggled, [&] { seen << group.checkState(); });

        QTest::mouseClick(group.checkBox(0), Qt::LeftButton);
        QCOMPARE(group.masterBox()->checkState(), Qt::PartiallyChecked);
        QCOMPARE(state.count(), 1);
        // The master by keyboard: Space checks every enabled box.
        group.masterBox()->setFocus();
        QTest::keyClick(group.masterBox(), Qt::Key_Space);
        QCOMPARE(group.checkedIndexes(), QList<int>({ 0, 1 }));
        QCOMPARE(group.masterBox()->checkState(), Qt::PartiallyChecked);
        QCOMPARE(toggled.count(), 2);
        QCOMPARE(state.count(), 1);
        group.checkBox(2)->setEnabled(true);
        QTest::mouseClick(group.masterBox(), Qt::LeftButton);
        QCOMPARE(group.checkState(), Qt::Checked);
        QCOMPARE(group.masterBox()->checkState(), Qt::Checked);
        QCOMPARE(toggled.count(), 3);
        QCOMPARE(state.count(), 2);
        // All checked: the master unchecks all, the three toggles then one state change.
        QTest::mouseClick(group.masterBox(), Qt::LeftButton);
        QCOMPARE(group.checkState(), Qt::Unchecked);
        QCOMPARE(toggled.count(), 6);
        QCOMPARE(state.count(), 3);
        QCOMPARE(seen.mid(3), (QList<Qt::CheckState>() << Qt::Unchecked << Qt::Unchecked << Qt::Unchecked));
        QCOMPARE(state.last().at(0).value<Qt::CheckState>(), Qt::Unchecked);

        // Tab order: master, then the boxes from the top.
        group.masterBox()->setFocus();
        QTest::keyClick(group.masterBox(), Qt::Key_Tab);
        QVERIFY(group.checkBox(0)->hasFocus());
    }

    void aHostMayDeleteAndTheOldAccessorLogs()
    {
        auto *group = new Ta_TristateGroup;
        group->addCheckBox(QStringLiteral("a"), true);
        group->addCheckBox(QStringLiteral("b"));
        QTest::ignoreMessage(QtDebugMsg, "Funktion: Ta_TristateGroup::checkbox obsolete");
        QCOMPARE(group->checkbox(1), group->checkBox(1));
        delete group->checkBox(1);
        QCOMPARE(group->count(), 1);
        QCOMPARE(group->masterBox()->checkState(), Qt::Checked);
        group->addCheckBox(QStringLiteral("c"));
        connect(group, &Ta_TristateGroup::toggled, [&group] { delete group; });
        group->setAllChecked(true);
        QVERIFY(true); // no access to the deleted group
    }
};

TAVO_TEST(Ta_TristateGroupTest)
#include "Ta_TristateGroupTest.moc"
