// The family and style lists: sections by writing system, missing fonts, separators, and
// the model operations a combo box uses on them.
#include "pickers/FontItemModel.h"
#include "TestFontProvider.h"
#include "TestRegistry.h"
#include "pickers/FontStyleItemModel.h"
#include "pickers/PickerRoles.h"

#include <QTest>
#include <QTreeView>
#include <climits>

using namespace TavoLib;
using TavoTest::TestFontProvider;

namespace {

QStringList names(const QAbstractItemModel &model)
{
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        result << (index.data(Qt::AccessibleDescriptionRole).toString() == "separator"
                ? QStringLiteral("--")
                : index.data().toString());
    }
    return result;
}

} // namespace

class FontItemModelTest : public QObject
{
    Q_OBJECT

private slots:
    void sectionsFollowWritingSystemsWithSymbolsFirst()
    {
        QTreeView view;
        TestFontProvider::Ptr fonts(new TestFontProvider);
        FontItemModel model(fonts, &view, false, false);
        // Symbols; no writing system (missing fonts, Test Plain); Latin; Greek; Cyrillic;
        // Arabic; Simplified Chinese; Japanese.
        const QStringList expected = { "Test Symbols", "--", "{Gone Sans Bold}", "{Lost Serif}",
            "Test Plain", "--", "Test Classic", "Test Sans", "Test Serif", "--", "Test Sans", "--",
            "Test Sans", "--", "Test Naskh", "--", "Test Mincho", "--", "Test Mincho" };
        QCOMPARE(names(model), expected);
    }

    void rolesTellFamiliesFromMissingFonts()
    {
        QTreeView view;
        TestFontProvider::Ptr fonts(new TestFontProvider);
        FontItemModel model(fonts, &view, true, false);

        const QModelIndex missing = model.index(2, 0);
        QCOMPARE(missing.data().toString(), QStringLiteral("{Gone Sans Bold}"));
        QCOMPARE(missing.data(FontIdRole), QVariant(90));
        QVERIFY(!missing.data(FontFamilyRole).isValid());
        QVERIFY(model.index(2, 1).data().toString().isEmpty());
        QVERIFY(missing.data(Qt::DecorationRole).value<QIcon>().isNull());

        const QModelIndex sans = model.index(7, 0);
        QCOMPARE(sans.data().toString(), QStringLiteral("Test Sans"));
        QCOMPARE(sans.data(FontFamilyRole), QVariant(QStringLiteral("Test Sans")));
        QVERIFY(!sans.data(FontIdRole).isValid());
        QVERIFY(!sans.data(Qt::DecorationRole).value<QIcon>().isNull());
        QCOMPARE(model.index(7, 1).data().toString(), QStringLiteral("AaBbCc Gg"));
        QCOMPARE(model.index(7, 1).data(Qt::FontRole).value<QFont>().family(),
            QStringLiteral("Test Sans"));

        // Emphasized families are bold in the name column, others keep the view's font.
        const QModelIndex serif = model.index(8, 0);
        QVERIFY(serif.data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(!sans.data(Qt::FontRole).isValid());
        // Test Plain has no known format: no icon.
        QVERIFY(model.index(4, 0).data(Qt::DecorationRole).value<QIcon>().isNull());

        // Rows take the view's pixel size; a font in points leaves the default size.
        QFont pixelFont = view.font();
        pixelFont.setPixelSize(19);
        view.setFont(pixelFont);
        FontItemModel sized(fonts, &view, true, false);
        QCOMPARE(sized.index(7, 1).data(Qt::FontRole).value<QFont>().pixelSize(), 19);
    }

    void separatorsAndRowOperations()
    {
        QTreeView view;
        TestFontProvider::Ptr fonts(new TestFontProvider);
        FontItemModel model(fonts, &view, false, false);
        const int rows = model.rowCount();
        QCOMPARE(model.flags(model.index(1, 0)), Qt::NoItemFlags);
        QCOMPARE(model.flags(model.index(0, 0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QVERIFY(!model.index(1, 0).data(FontIdRole).isValid());
        QVERIFY(!model.index(1, 0).data(FontFamilyRole).isValid());

        // A combo box adds a separator by inserting a row and marking it.
        QVERIFY(model.insertRows(1, 1));
        QCOMPARE(model.flags(model.index(1, 0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QVERIFY(model.setData(model.index(1, 0), "separator", Qt::AccessibleDescriptionRole));
        QCOMPARE(model.flags(model.index(1, 0)), Qt::NoItemFlags);
        // A stored value wins over the computed one.
        QVERIFY(model.setData(model.index(0, 0), "Renamed", Qt::DisplayRole));
        QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("Renamed"));
        QVERIFY(!model.setData(QModelIndex(), 1, Qt::DisplayRole));
        QVERIFY(model.removeRows(1, 1));

        QVERIFY(!model.insertRows(-1, 1));
        QVERIFY(!model.insertRows(rows + 1, 1));
        QVERIFY(!model.insertRows(0, 1, model.index(0, 0)));
        QVERIFY(!model.insertRows(1, INT_MAX));
        QVERIFY(!model.removeRows(0, 0));
        QVERIFY(!model.removeRows(-1, 1));
        QVERIFY(!model.removeRows(rows - 1, 2));
        QVERIFY(!model.removeRows(1, INT_MAX));
        QCOMPARE(model.rowCount(), rows);
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        QVERIFY(!model.index(0, 0, model.index(0, 0)).isValid());
        // Indexes outside the rows answer nothing instead of reading past the end.
        QVERIFY(!model.index(rows + 5, 3).data().isValid());
        QCOMPARE(model.flags(model.index(rows + 5, 0)), Qt::NoItemFlags);
    }

    void styleListFollowsTheProvider()
    {
        QTreeView view;
        TestFontProvider::Ptr fonts(new TestFontProvider);
        FontStyleItemModel model(fonts, "Test Sans", &view, true);
        QCOMPARE(
            names(model), QStringList({ "Regular", "Italic", "Bold", "Bold Italic", "Light" }));
        QCOMPARE(model.index(4, 0).data(FontIdRole), QVariant(5));
        QCOMPARE(model.flags(model.index(4, 1)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QVERIFY(model.index(2, 1).data(Qt::FontRole).value<QFont>().bold());
        QCOMPARE(FontStyleItemModel(fonts, "No Such", &view, false).rowCount(), 0);
        QVERIFY(!model.removeRows(1, INT_MAX));
        QVERIFY(model.removeRows(0, 5));
        QVERIFY(!model.removeRows(0, 1));
    }
};

TAVO_TEST(FontItemModelTest)
#include "FontItemModelTest.moc"
