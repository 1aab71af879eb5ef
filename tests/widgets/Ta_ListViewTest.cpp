// The library's list and header: the header's saved sections come back whole or not at all,
// whatever bytes a host hands in; the list shows its placeholder only while empty and moves
// rows by keyboard only when the host allows it.
#include "widgets/Ta_HeaderView.h"
#include "widgets/Ta_ListView.h"
#include "TestRegistry.h"

#include <QDataStream>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

namespace {

struct HeaderHost
{
    QStandardItemModel model { 2, 4 };
    Ta_HeaderView header { Qt::Horizontal };
    HeaderHost()
    {
        header.setModel(&model);
        header.resize(600, 30);
        header.show();
    }
};

} // namespace

class Ta_ListViewTest : public QObject
{
    Q_OBJECT
private slots:
    void headerSectionsComeBack()
    {
        HeaderHost saved;
        saved.header.moveSection(0, 3);
        saved.header.resizeSection(1, 140);
        saved.header.setSectionHidden(2, true);
        const QByteArray state = saved.header.saveSections();

        HeaderHost restored;
        QVERIFY(restored.header.restoreSections(state));
        for (int logical = 0; logical < 4; ++logical)
            QCOMPARE(restored.header.visualIndex(logical), saved.header.visualIndex(logical));
        QCOMPARE(restored.header.sectionSize(1), 140);
        QVERIFY(restored.header.isSectionHidden(2));
        QCOMPARE(restored.header.saveSections(), state);
    }

    void headerRefusesWhatIsNoStateOfIt()
    {
        HeaderHost source;
        source.header.moveSection(3, 0);
        const QByteArray good = source.header.saveSections();

        HeaderHost target;
        target.header.resizeSection(0, 77);
        const QByteArray before = target.header.saveSections();
        auto refused = [&](const QByteArray &bytes) {
            const bool applied = target.header.restoreSections(bytes);
            return !applied && target.header.saveSections() == before;
        };
        QVERIFY(refused(QByteArray()));
        QVERIFY(refused("not a state at all"));
        QVERIFY(refused(target.header.saveState())); // Qt's own format is another one
        for (int cut = 0; cut < good.size(); ++cut)
            QVERIFY2(refused(good.left(cut)), qPrintable(QString::number(cut)));
        QVERIFY(refused(good + '\0'));

        // Hand-made states: another count, a repeated or out-of-range position.
        auto make = [](qint32 count, const QVector<qint32> &visuals, qint32 size) {
            QByteArray bytes;
            QDataStream stream(&bytes, QIODevice::WriteOnly);
            stream.setVersion(QDataStream::Qt_5_0);
            stream << quint32(0x54614856) << quint8(1) << count;
            for (qint32 visual : visuals)
                stream << visual << size << false;
            return bytes;
        };
        QVERIFY(refused(make(3, { 0, 1, 2 }, 50)));
        QVERIFY(refused(make(4, { 0, 1, 1, 2 }, 50)));
        QVERIFY(refused(make(4, { 0, 1, 2, 4 }, 50)));
        QVERIFY(refused(make(4, { 0, 1, 2, -1 }, 50)));
        QVERIFY(refused(make(4, { 0, 1, 2, 3 }, -5)));
        // A huge size is kept to the bound, not taken.
        QVERIFY(target.header.restoreSections(make(4, { 3, 2, 1, 0 }, 2000000000)));
        QCOMPARE(target.header.sectionSize(0), int(Ta_HeaderView::kMaxSectionSize));
        QCOMPARE(target.header.logicalIndex(0), 3);

        // Flipped bytes of a good state: applied whole or refused, never half.
        QRandomGenerator random(24);
        for (int round = 0; round < 500; ++round) {
            QByteArray bytes = good;
            bytes[random.bounded(bytes.size())] = char(random.bounded(256));
            HeaderHost fuzzed;
            const QByteArray was = fuzzed.header.saveSections();
            if (fuzzed.header.restoreSections(bytes)) {
                QVector<bool> seen(4, false);
                for (int logical = 0; logical < 4; ++logical)
                    seen[fuzzed.header.visualIndex(logical)] = true;
                QVERIFY(!seen.contains(false));
            } else {
                QCOMPARE(fuzzed.header.saveSections(), was);
            }
        }
    }

    void placeholderOnlyWhileEmpty()
    {
        QStringListModel model;
        Ta_ListView view;
        view.resize(200, 120);
        view.setPlaceholderText("No fonts in this folder");
        QVERIFY(view.isShowingPlaceholder()); // no model yet
        view.setModel(&model);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QVERIFY(view.isShowingPlaceholder());
        const QImage withText = view.viewport()->grab().toImage();
        view.setPlaceholderText(QString());
        const QImage blank = view.viewport()->grab().toImage();
        QVERIFY(withText != blank);
        view.setPlaceholderText("No fonts in this folder");
        model.setStringList({ "Serif" });
        QVERIFY(!view.isShowingPlaceholder());
    }

    void keyboardReorderOnlyWhenSwitchedOn()
    {
        QStringListModel model({ "a", "b", "c" });
        Ta_ListView view;
        view.setModel(&model);
        view.show();
        view.setCurrentIndex(model.index(0, 0));
        QTest::keyClick(&view, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(model.stringList(), QStringList({ "a", "b", "c" }));

        view.setDragReorderEnabled(true);
        QCOMPARE(view.dragDropMode(), QAbstractItemView::InternalMove);
        view.setCurrentIndex(model.index(0, 0));
        QTest::keyClick(&view, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(model.stringList(), QStringList({ "b", "a", "c" }));
        QCOMPARE(view.currentIndex().row(), 1);
        QTest::keyClick(&view, Qt::Key_Down, Qt::ControlModifier);
        QTest::keyClick(&view, Qt::Key_Down, Qt::ControlModifier); // at the end: stays
        QCOMPARE(model.stringList(), QStringList({ "b", "c", "a" }));
        QTest::keyClick(&view, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(model.stringList(), QStringList({ "b", "a", "c" }));
        QCOMPARE(view.currentIndex().data().toString(), QString("a"));
    }
};

TAVO_TEST(Ta_ListViewTest)
#include "Ta_ListViewTest.moc"
