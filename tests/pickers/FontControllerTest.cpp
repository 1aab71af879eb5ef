// Font picking through combo boxes and menus: population, reading and setting the choice,
// the stored setting, the rebuild rules of the style list and the overflowing menu chain.
#include "TestFontProvider.h"
#include "TestRegistry.h"
#include "pickers/FontControllerQt.h"
#include "pickers/PickerRoles.h"
#include "style/Device.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace TavoLib;
using TavoTest::TestFontProvider;

namespace {

QStringList texts(const QList<QAction *> &actions)
{
    QStringList result;
    for (const QAction *action : actions)
        result << action->text();
    return result;
}

QMenu *overflowOf(QMenu *menu)
{
    const QList<QAction *> actions = menu->actions();
    if (actions.isEmpty() || actions.first()->data().toString() != "[more]")
        return nullptr;
    return actions.first()->menu();
}

} // namespace

class FontControllerTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir mHome;
    TestFontProvider::Ptr mFonts;

private slots:
    void initTestCase()
    {
        QVERIFY(mHome.isValid());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mHome.path());
    }

    void init() { mFonts = new TestFontProvider; }

    void settingIsStoredPerUser()
    {
        QCOMPARE(FontControllerQt::loadDefaultSettings().showExamples, false);
        QSettings("Tavo Technology", "Font Controller")
            .setValue("Preferences/Show Font Examples", true);
        // A new controller reads it; setShowExamples stores nothing.
        FontControllerQt controller(mFonts);
        QComboBox combo;
        controller.populateFamilies(&combo, -1, false);
        QCOMPARE(combo.model()->columnCount(), 2);
        controller.setShowExamples(false);
        controller.populateFamilies(&combo, -1, false);
        QCOMPARE(combo.model()->columnCount(), 1);
        QCOMPARE(FontControllerQt::loadDefaultSettings().showExamples, true);
        FontControllerQt::saveDefaultSettings(FontControllerQt::Settings());
        QVERIFY(!QSettings("Tavo Technology", "Font Controller")
                     .value("Preferences/Show Font Examples")
                     .toBool());
    }

    void familiesSelectAndReadBack()
    {
        FontControllerQt controller(mFonts);
        QComboBox family;
        QComboBox style;
        QSignalSpy changes(&family, QOverload<int>::of(&QComboBox::currentIndexChanged));
        controller.populateFamilies(&family, 3, false);
        QCOMPARE(family.currentText(), QStringLiteral("Test Sans"));
        // Only the final selection is announced, not the building.
        QCOMPARE(changes.size(), 1);

        controller.populateStyles(&style, &family);
        QCOMPARE(style.count(), 5);
        // The last font of the family is what the style list was built for.
        QCOMPARE(style.property("current font id").toInt(), 5);
        QVERIFY(controller.setCurrentFont(&family, &style, 3));
        QCOMPARE(style.currentText(), QStringLiteral("Bold"));
        QCOMPARE(controller.currentFont(&family, &style), short(3));

        // A missing font answers from the family list and empties the styles.
        QVERIFY(controller.setCurrentFont(&family, &style, 91));
        QCOMPARE(family.currentText(), QStringLiteral("{Lost Serif}"));
        QCOMPARE(style.count(), 0);
        QCOMPARE(controller.currentFont(&family, &style), short(91));

        QVERIFY(controller.setCurrentFont(&family, &style, -1));
        QCOMPARE(family.currentText(), QStringLiteral("{Lost Serif}"));
        QVERIFY(!controller.setCurrentFont(&family, &style, 777));
        // An unknown font has no name and must not land on a separator.
        controller.populateFamilies(&family, 777, false);
        QCOMPARE(family.currentText(), QStringLiteral("Test Symbols"));

        // With omitMissing the missing font is not there to select.
        controller.populateFamilies(&family, 91, true);
        QVERIFY(family.findText("{Lost Serif}") < 0);
        QVERIFY(!controller.setCurrentFont(&family, &style, 91));
    }

    void pickingFromThePopup()
    {
        FontControllerQt controller(mFonts);
        controller.setShowExamples(true);
        QComboBox family;
        QComboBox style;
        controller.populateFamilies(&family, 1, false);
        controller.populateStyles(&style, 1);
        family.show();
        QVERIFY(QTest::qWaitForWindowExposed(&family));
        family.showPopup();
        QAbstractItemView *view = family.view();
        QVERIFY(QTest::qWaitFor([view] { return view->isVisible(); }));
        // Separator rows (row 1) are thinner than font rows in the open list.
        const int separator = view->visualRect(view->model()->index(1, 0)).height();
        QCOMPARE(separator, Device::scaleSize(QSize(20, 10)).height());
        QVERIFY(view->visualRect(view->model()->index(0, 0)).height() > separator);
        // Click the example of "Test Serif" (row 8).
        const QRect cell = view->visualRect(view->model()->index(8, 1));
        QVERIFY(cell.isValid());
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
        QVERIFY(QTest::qWaitFor([view] { return !view->isVisible(); }));
        QCOMPARE(family.currentText(), QStringLiteral("Test Serif"));
        controller.populateStyles(&style, &family);
        QCOMPARE(controller.currentFont(&family, &style), short(11));
    }

    void styleListRebuildsOnlyWhenNeeded()
    {
        FontControllerQt controller(mFonts);
        QComboBox style;
        controller.populateStyles(&style, 2);
        QAbstractItemModel *first = style.model();
        QCOMPARE(style.currentText(), QStringLiteral("Italic"));
        controller.populateStyles(&style, 2);
        QCOMPARE(style.model(), first);

        // A changed provider forces a rebuild even for the same font.
        mFonts->addFont(6, "Test Sans", "Black", FontProvider::TrueType);
        controller.populateStyles(&style, 2);
        QVERIFY(style.model() != first);
        QCOMPARE(style.count(), 6);
        QCOMPARE(style.property("FontProvider hash").toInt(), mFonts->hash());

        // An unknown font (empty family) leaves the list and its marks alone.
        QAbstractItemModel *current = style.model();
        controller.populateStyles(&style, 555);
        QCOMPARE(style.model(), current);
        QCOMPARE(style.property("current font id").toInt(), 2);
    }

    void menuOfFamiliesAndStyles()
    {
        FontControllerQt controller(mFonts);
        QMenu menu;
        controller.populateMenu(&menu, -1);
        const QList<QAction *> actions = menu.actions();
        QCOMPARE(texts(actions),
            QStringList({ "More", "{Gone Sans Bold}", "{Lost Serif}", "Test Classic", "Test Mincho",
                "Test Naskh", "Test Plain", "Test Sans", "Test Serif", "Test Symbols" }));
        // Everything fits: the one "More" is hidden; nothing is checked.
        QVERIFY(!actions.first()->isVisible());
        QCOMPARE(controller.currentFont(&menu), short(-1));

        QCOMPARE(controller.currentFont(actions.at(3)), short(20)); // one font: no submenu
        QAction *sans = actions.at(7);
        QCOMPARE(controller.currentFont(sans), short(-1));
        QCOMPARE(texts(sans->menu()->actions()),
            QStringList({ "Regular", "Italic", "Bold", "Bold Italic", "Light" }));
        QVERIFY(actions.at(8)->menu()->actions().first()->font().bold());
        QCOMPARE(controller.currentFont(actions.at(1)), short(90));

        controller.setCurrentFont(&menu, 4);
        QVERIFY(sans->isChecked());
        QCOMPARE(controller.currentFont(&menu), short(4));
        controller.setCurrentFont(&menu, 0);
        QCOMPARE(controller.currentFont(&menu), short(1));
        controller.setCurrentFont(&menu, 91);
        QCOMPARE(controller.currentFont(&menu), short(91));
        QVERIFY(!sans->isChecked());
        controller.setCurrentFont(&menu, -1);
        QCOMPARE(controller.currentFont(&menu), short(-1));

        QMenu checked;
        controller.populateMenu(&checked, 11);
        QCOMPARE(controller.currentFont(&checked), short(11));
    }

    void longMenuOverflowsIntoAChain()
    {
        TestFontProvider::Ptr many(new TestFontProvider(TestFontProvider::Empty));
        QStringList families;
        for (int i = 0; i < 120; ++i) {
            families << QString("Family %1").arg(i, 3, 10, QChar('0'));
            many->addFont(short(i + 1), families.last(), "Regular");
        }
        FontControllerQt controller(many);
        QMenu menu;
        controller.populateMenu(&menu, 120);

        const int limit = QGuiApplication::primaryScreen()->availableGeometry().height() - 70;
        QStringList all;
        int menus = 0;
        for (QMenu *m = &menu; m; m = overflowOf(m), ++menus) {
            QVERIFY(m->sizeHint().height() <= limit);
            QList<QAction *> actions = m->actions();
            QCOMPARE(actions.first()->text(), QStringLiteral("More"));
            // Only the last "More", which leads nowhere, is hidden.
            QCOMPARE(actions.first()->isVisible(), overflowOf(m) != nullptr);
            actions.removeFirst();
            all += texts(actions);
        }
        QVERIFY(menus > 2);
        // Every family once, in order, across the chain.
        QCOMPARE(all, families);

        // Checking reaches into the chain; reading stops at the first menu.
        controller.setCurrentFont(&menu, 120);
        controller.setCurrentFont(&menu, 2);
        QCOMPARE(controller.currentFont(&menu), short(2));
        controller.setCurrentFont(&menu, 119);
        QCOMPARE(controller.currentFont(&menu), short(-1));
        controller.setCurrentFont(&menu, -1);
        for (QMenu *m = &menu; m; m = overflowOf(m))
            QCOMPARE(controller.currentFont(m), short(-1));
    }

    void emptyOrNullProviders()
    {
        FontControllerQt controller(new TestFontProvider(TestFontProvider::Empty));
        QComboBox family, style;
        controller.populateFamilies(&family, 1, false);
        controller.populateStyles(&style, &family);
        QCOMPARE(family.count() + style.count(), 0);
        QMenu menu;
        controller.populateMenu(&menu, -1);
        controller.setCurrentFont(&menu, 0);
        QCOMPARE(controller.currentFont(&menu), short(-1));

        FontControllerQt none { TAutoPtr<const FontProviderQt>() };
        none.populateStyles(&style, 1);
        none.populateMenu(&menu, 1);
        QVERIFY(menu.actions().isEmpty());
        QVERIFY(!none.setCurrentFont(&family, &style, 1));
    }
};

TAVO_TEST(FontControllerTest)
#include "FontControllerTest.moc"
