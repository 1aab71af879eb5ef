// The path label: folders lose from their middle before the file name does, the whole path
// is tooltip and accessible name, and copying gives the whole path whenever the selection
// holds the ellipsis.
#include "widgets/Ta_PathLabel.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QTest>

namespace {
const QString kPath = QStringLiteral("/home/designer/projects/autumn catalogue/Brochure.tvd");
const QChar kEllipsis(0x2026);
}

class Ta_PathLabelTest : public QObject
{
    Q_OBJECT
private slots:
    void elidesTheFoldersFirst()
    {
        const QFontMetrics metrics(QApplication::font());
        const int name = metrics.horizontalAdvance(QStringLiteral("Brochure.tvd"));
        for (int width : { name * 3, name * 2, name + metrics.horizontalAdvance("/h…/") }) {
            const QString shown = Ta_PathLabel::elidedPath(kPath, metrics, width);
            QVERIFY2(shown.endsWith(QStringLiteral("/Brochure.tvd")), qPrintable(shown));
            QVERIFY(shown.startsWith(QLatin1Char('/')));
            QVERIFY(shown.contains(kEllipsis));
            QVERIFY(metrics.horizontalAdvance(shown) <= width);
        }
        // Narrower than the name: the name loses from its middle, keeping its extension.
        const QString narrow = Ta_PathLabel::elidedPath(kPath, metrics, name * 2 / 3);
        QVERIFY2(narrow.startsWith(QString(kEllipsis) + '/'), qPrintable(narrow));
        QVERIFY(narrow.endsWith(QStringLiteral("d")));
        QCOMPARE(Ta_PathLabel::elidedPath(kPath, metrics, 10000), kPath);
        QCOMPARE(Ta_PathLabel::elidedPath(QStringLiteral("C:\\Work\\Very long folder name\\a.txt"),
                     metrics, metrics.horizontalAdvance("C:\\Work\\…\\a.txt"))
                     .right(6),
            QStringLiteral("\\a.txt"));
    }

    void followsTheWidthAndCopiesTheWholePath()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *label = new Ta_PathLabel(kPath);
        layout->addWidget(label);
        // Its own size: a top-level window's first size is also bounded by the (small) screen.
        window.resize(window.sizeHint());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(label->text(), kPath);
        QCOMPARE(label->toolTip(), kPath);
        QCOMPARE(label->accessibleName(), kPath);
        QVERIFY(!label->isElided());

        window.resize(label->fontMetrics().horizontalAdvance(QStringLiteral("/home/Brochure.tvd")) + 60,
            window.height());
        QTRY_VERIFY(label->isElided());
        QVERIFY(label->text().endsWith(QStringLiteral("Brochure.tvd")));

        // By keyboard: Tab to it, select all, copy.
        label->setFocus();
        QTest::keyClick(label, Qt::Key_A, Qt::ControlModifier);
        QVERIFY(label->hasSelectedText());
        QApplication::clipboard()->clear();
        QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), kPath);

        // Wide again: a part of the text selected is copied as it is.
        window.resize(label->sizeHint().width() + 40, window.height());
        QTRY_VERIFY(!label->isElided());
        label->setSelection(label->text().size() - 12, 12);
        QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Brochure.tvd"));
    }
};

TAVO_TEST(Ta_PathLabelTest)
#include "Ta_PathLabelTest.moc"
