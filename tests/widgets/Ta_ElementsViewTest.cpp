// The elements view: copy, cut and paste by keys keep the elements and their order; whatever
// else the clipboard holds (another type, a damaged envelope, elements the model refuses)
// pastes nothing.
#include "widgets/Ta_ElementsView.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

namespace {

// A host's page: each element's bytes are "EL:" and its name; anything else is refused.
class PageModel : public QStandardItemModel
{
public:
    explicit PageModel(const QStringList &names)
    {
        for (const QString &name : names) {
            auto *item = new QStandardItem(name);
            item->setData(QByteArray("EL:") + name.toUtf8(), Ta_ElementsView::ElementDataRole);
            appendRow(item);
        }
    }
    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role == Ta_ElementsView::ElementDataRole) {
            const QByteArray bytes = value.toByteArray();
            if (!bytes.startsWith("EL:"))
                return false;
            QStandardItemModel::setData(index, QString::fromUtf8(bytes.mid(3)), Qt::DisplayRole);
        }
        return QStandardItemModel::setData(index, value, role);
    }
    QStringList names() const
    {
        QStringList list;
        for (int row = 0; row < rowCount(); ++row)
            list << index(row, 0).data().toString();
        return list;
    }
};

void putOnClipboard(const QByteArray &bytes, const QString &type = Ta_ElementsView::mimeType())
{
    auto *data = new QMimeData;
    data->setData(type, bytes);
    QApplication::clipboard()->setMimeData(data);
}

} // namespace

class Ta_ElementsViewTest : public QObject
{
    Q_OBJECT
private slots:
    void copyCutPasteByKeys()
    {
        PageModel model({ "Masthead", "Photo", "Caption" });
        Ta_ElementsView view;
        view.setModel(&model);
        view.show();
        QSignalSpy pasted(&view, &Ta_ElementsView::elementsPasted);

        // Ctrl+click selection of the first and last rows, then copy.
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.visualRect(model.index(2, 0)).center());
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, view.visualRect(model.index(0, 0)).center());
        QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->mimeData()->hasFormat("ipobject/TavoIP"));
        QVERIFY(view.canPaste());

        view.setCurrentIndex(model.index(1, 0));
        QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(model.names(), QStringList({ "Masthead", "Photo", "Masthead", "Caption", "Caption" }));
        QCOMPARE(pasted.count(), 1);
        QCOMPARE(pasted.at(0).at(1).toInt(), 2);
        QCOMPARE(pasted.at(0).at(2).toInt(), 3);
        QCOMPARE(view.selectionModel()->selectedRows().size(), 2);

        // Cut takes the pasted pair out and keeps it for the next paste.
        QTest::keyClick(&view, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(model.names(), QStringList({ "Masthead", "Photo", "Caption" }));
        view.setCurrentIndex(QModelIndex());
        view.clearSelection();
        QVERIFY(view.paste());
        QCOMPARE(model.names(), QStringList({ "Masthead", "Photo", "Caption", "Masthead", "Caption" }));

        // Nothing selected, nothing current: copy leaves the clipboard alone.
        view.setCurrentIndex(QModelIndex());
        view.clearSelection();
        putOnClipboard("kept", "text/plain");
        view.copy();
        view.cut();
        QCOMPARE(QApplication::clipboard()->mimeData()->data("text/plain"), QByteArray("kept"));
        QCOMPARE(model.rowCount(), 5);
    }

    void foreignOrDamagedDataPastesNothing()
    {
        PageModel model({ "A", "B" });
        Ta_ElementsView view;
        view.setModel(&model);
        view.show();
        view.setCurrentIndex(model.index(0, 0));
        QSignalSpy pasted(&view, &Ta_ElementsView::elementsPasted);
        auto nothing = [&] {
            const bool done = view.paste();
            return !done && model.names() == QStringList({ "A", "B" }) && pasted.isEmpty();
        };

        QApplication::clipboard()->setText("EL:plain text");
        QVERIFY(nothing());
        putOnClipboard(Ta_ElementsView::encodeElements({ "EL:X" }), "application/x-other");
        QVERIFY(nothing());
        putOnClipboard(QByteArray());
        QVERIFY(nothing());
        putOnClipboard("garbage that is no envelope");
        QVERIFY(nothing());

        const QByteArray good = Ta_ElementsView::encodeElements({ "EL:X", "EL:Y" });
        for (int cut = 0; cut < good.size(); ++cut) {
            putOnClipboard(good.left(cut));
            QVERIFY2(nothing(), qPrintable(QString::number(cut)));
        }
        putOnClipboard(good + 'z');
        QVERIFY(nothing());
        putOnClipboard(Ta_ElementsView::encodeElements({}));
        QVERIFY(nothing());
        // An element the model refuses takes the whole paste back.
        putOnClipboard(Ta_ElementsView::encodeElements({ "EL:X", "not an element" }));
        QVERIFY(nothing());

        // Forged counts and lengths: no huge allocation, no paste.
        auto forged = [](qint32 count, quint32 length) {
            QByteArray bytes;
            QDataStream stream(&bytes, QIODevice::WriteOnly);
            stream.setVersion(QDataStream::Qt_5_0);
            stream << quint32(0x54614950) << quint16(1) << count << length;
            bytes.append("EL:");
            return bytes;
        };
        putOnClipboard(forged(2000000000, 3));
        QVERIFY(nothing());
        putOnClipboard(forged(1, 0x7ffffff0));
        QVERIFY(nothing());
        putOnClipboard(forged(-1, 3));
        QVERIFY(nothing());

        // Flipped bytes: a paste is whole or nothing.
        QRandomGenerator random(24);
        for (int round = 0; round < 300; ++round) {
            QByteArray bytes = good;
            bytes[random.bounded(bytes.size())] = char(random.bounded(256));
            putOnClipboard(bytes);
            const int before = model.rowCount();
            if (view.paste()) {
                QCOMPARE(model.rowCount(), before + 2);
                model.removeRows(1, 2);
            }
            QCOMPARE(model.rowCount(), before);
        }
        // Without a model, nothing at all.
        Ta_ElementsView empty;
        putOnClipboard(good);
        QVERIFY(!empty.paste());
        empty.copy();
        empty.cut();
    }
};

TAVO_TEST(Ta_ElementsViewTest)
#include "Ta_ElementsViewTest.moc"
