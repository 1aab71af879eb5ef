// The pop-up list's parts: the delegate's samples and separators, whole-row selection, and
// a view that never scrolls sideways.
#include "TestFontProvider.h"
#include "TestRegistry.h"
#include "pickers/FontItemDelegate.h"
#include "pickers/FontItemModel.h"
#include "pickers/FontItemSelectionModel.h"
#include "pickers/FontTreeView.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTest>

using namespace TavoLib;
using TavoTest::TestFontProvider;

namespace {

// The smallest rectangle holding every non-white pixel; null when there is none.
QRect inkBounds(const QImage &image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

// Paints one example cell of the given width into a white image.
QImage paintExample(const QString &text, int width, int height = 20)
{
    QStandardItemModel model(1, 2);
    model.setData(model.index(0, 1), text);
    FontItemDelegate delegate(nullptr);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, width, height);
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    option.palette.setColor(QPalette::Text, Qt::black);
    QImage image(width + 20, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    delegate.paint(&painter, option, model.index(0, 1));
    painter.end();
    return image;
}

struct View
{
    View(bool examples)
        : fonts(new TestFontProvider),
          view(nullptr),
          model(new FontItemModel(fonts, &view, examples, false))
    {
        view.setModel(model);
        view.setSelectionModel(new FontItemSelectionModel(model));
        view.setItemDelegate(new FontItemDelegate(&view));
        view.setHeaderHidden(true);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.resize(300, 400);
        if (examples) {
            view.header()->setSectionResizeMode(0, QHeaderView::Fixed);
            view.header()->resizeSection(0, 150);
            view.header()->resizeSection(1, 100);
        }
    }
    TestFontProvider::Ptr fonts;
    FontTreeView view;
    FontItemModel *model;
};

} // namespace

class FontViewTest : public QObject
{
    Q_OBJECT

private slots:
    void exampleIsRightAlignedAndElided()
    {
        const QRect ink = inkBounds(paintExample("Sample", 200));
        QVERIFY2(ink.right() <= 199 && ink.left() > 60, qPrintable(QString::number(ink.left())));
        QVERIFY(ink.bottom() < 20);

        const QImage wide = paintExample("Sample text that is long", 400);
        const QRect narrow = inkBounds(paintExample("Sample text that is long", 50));
        QVERIFY(!narrow.isNull());
        QVERIFY(narrow.right() < 50 && narrow.left() >= 0);
        // Shortened, not squeezed: the glyphs keep the height of the unshortened sample.
        QVERIFY(qAbs(narrow.height() - inkBounds(wide).height()) <= 2);
        // Too narrow for one letter and the dots: nothing at all.
        QVERIFY(inkBounds(paintExample("Sample", 6)).isNull());
        QVERIFY(inkBounds(paintExample(QString(), 200)).isNull());
    }

    void separatorIsOneGreyLine()
    {
        View v(false);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 40, 11);
        QImage image(40, 11, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        FontItemDelegate delegate(nullptr);
        delegate.paint(&painter, option, v.model->index(1, 0));
        painter.end();
        QCOMPARE(inkBounds(image), QRect(0, 5, 40, 1));
        QCOMPARE(QColor(image.pixel(20, 5)), QColor(Qt::darkGray));
    }

    void rowsAreSelectedWholeAndNeverScrollSideways()
    {
        View v(true);
        v.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v.view));
        QItemSelectionModel *selection = v.view.selectionModel();
        QTest::mouseClick(v.view.viewport(), Qt::LeftButton, Qt::NoModifier,
            v.view.visualRect(v.model->index(7, 1)).center());
        QCOMPARE(selection->currentIndex(), v.model->index(7, 0));
        QCOMPARE(selection->selectedIndexes().size(), 2);
        QVERIFY(selection->isSelected(v.model->index(7, 1)));

        // A click on a separator changes nothing; an empty selection is ignored.
        QTest::mouseClick(v.view.viewport(), Qt::LeftButton, Qt::NoModifier,
            v.view.visualRect(v.model->index(1, 0)).center());
        selection->select(QItemSelection(), QItemSelectionModel::Clear);
        QCOMPARE(selection->currentIndex(), v.model->index(7, 0));
        QVERIFY(selection->isSelected(v.model->index(7, 0)));
        selection->select(v.model->index(2, 1), QItemSelectionModel::ClearAndSelect);
        QVERIFY(selection->isSelected(v.model->index(2, 0)));

        v.view.header()->resizeSection(0, 900);
        const int before = v.view.visualRect(v.model->index(0, 0)).left();
        v.view.horizontalScrollBar()->setValue(v.view.horizontalScrollBar()->maximum());
        QTest::keyClick(v.view.viewport(), Qt::Key_Right);
        QCOMPARE(v.view.visualRect(v.model->index(0, 0)).left(), before);

        // A one-column list selects just its one cell.
        View single(false);
        single.view.selectionModel()->select(
            single.model->index(0, 0), QItemSelectionModel::ClearAndSelect);
        QCOMPARE(single.view.selectionModel()->selectedIndexes(),
            QModelIndexList({ single.model->index(0, 0) }));
    }
};

TAVO_TEST(FontViewTest)
#include "FontViewTest.moc"
