// Applying new values to editors that exist: the registry moves to the new object, the
// widgets show it, owners stay apart, and the applied property keeps exactly what it had.
#include "ComboTexts.h"
#include "FactoryFixture.h"
#include "TestRegistry.h"
#include "core/BrushProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueProperty.h"
#include "pickers/BrushControllerQt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace TavoLib;

namespace {

SelectorProperty::Ptr selector(int value, bool undefined, SelectorProperty::Mode mode)
{
    SelectorProperty::Ptr p(new SelectorProperty("align", "Align", mode));
    for (int id : { 1, 2, 3 })
        p->addItem(id, QString::number(id));
    p->setValue(value);
    p->setUndefinable(true);
    p->setUndefined(undefined);
    return p;
}

} // namespace

class EditorApplyingTest : public QObject
{
    Q_OBJECT

private slots:
    void ownersAndRegistry()
    {
        FactoryFixture f;
        IntegerProperty::Ptr a(new IntegerProperty("n", "N", 1, 0, 10));
        IntegerProperty::Ptr other(new IntegerProperty("n", "N", 2, 0, 10));
        QWidget *first = f.make(a);
        QWidget *second = f.make(a);
        QWidget *elsewhere = f.make(other, "other");
        IntegerProperty::Ptr fresh(new IntegerProperty("n", "N", 7, 0, 10));
        f.factory.applyPropertyValues(fresh);
        QCOMPARE(f.factory.propertyEditors(fresh).size(), 2);
        QCOMPARE(f.factory.propertyEditors(a).size(), 0);
        QCOMPARE(f.find<QSpinBox>(first)->value(), 7);
        QCOMPARE(f.find<QSpinBox>(second)->value(), 7);
        QCOMPARE(f.find<QSpinBox>(elsewhere)->value(), 2);
        // An editor its host deleted is forgotten; applying again touches nothing dead.
        delete first;
        f.factory.applyPropertyValues(IntegerProperty::Ptr(new IntegerProperty("n", "N", 3, 0, 10)));
        QCOMPARE(f.find<QSpinBox>(second)->value(), 3);
        // An edit after a clear() reaches no property.
        f.factory.clear();
        f.find<QSpinBox>(second)->setValue(5);
        QCOMPARE(f.changed.count(), 0);
    }

    // Rows come and go while applying; the applied property keeps its value and state.
    void blankRowsKeepTheAppliedValue()
    {
        FactoryFixture f;
        QComboBox *combo = f.find<QComboBox>(f.make(selector(2, true, SelectorProperty::ComboBoxMode)));
        for (int round = 0; round < 2; ++round) {
            SelectorProperty::Ptr undefined = selector(3, true, SelectorProperty::ComboBoxMode);
            f.factory.applyPropertyValues(undefined);
            QCOMPARE(combo->count(), 5);
            QVERIFY(undefined->isUndefined());
        }
        SelectorProperty::Ptr defined = selector(3, false, SelectorProperty::ComboBoxMode);
        f.factory.applyPropertyValues(defined);
        QCOMPARE(TavoTest::comboTexts(*combo), QStringList({ "1", "2", "3" }));
        QCOMPARE(combo->currentText(), QStringLiteral("3"));
        QVERIFY(defined->isDefined() && defined->value() == 3);

        BrushProperty::Ptr brush(new BrushProperty("b", "Brush", 3));
        brush->setUndefinable(true);
        QComboBox *brushes = f.find<QComboBox>(f.make(brush));
        BrushProperty::Ptr blank(new BrushProperty("b", "Brush", 3));
        blank->setUndefinable(true);
        blank->setUndefined(true);
        f.factory.applyPropertyValues(blank);
        QVERIFY(blank->isUndefined() && brushes->currentText().isEmpty());
        BrushProperty::Ptr red(new BrushProperty("b", "Brush", 10));
        f.factory.applyPropertyValues(red);
        QVERIFY(red->isDefined() && red->brush() == 10);
        QCOMPARE(BrushControllerQt(f.environment->testBrushProvider()).currentBrush(brushes), short(10));
        QCOMPARE(f.changed.count(), 0);
    }

    void buttonsAndMenuButton()
    {
        FactoryFixture f;
        QWidget *buttons = f.make(selector(2, false, SelectorProperty::ButtonsMode));
        auto checked = [&] {
            int n = 0;
            for (auto *b : buttons->findChildren<QToolButton *>())
                n += b->isChecked() ? 1 : 0;
            return n;
        };
        f.factory.applyPropertyValues(selector(2, true, SelectorProperty::ButtonsMode));
        QCOMPARE(checked(), 0);
        f.factory.applyPropertyValues(selector(3, false, SelectorProperty::ButtonsMode));
        QCOMPARE(checked(), 1);
        QVERIFY(buttons->findChildren<QToolButton *>().at(2)->isChecked());
    }

    void fontSizeWithPresetsAndFonts()
    {
        FactoryFixture f;
        FontSizeProperty::Ptr size(new FontSizeProperty("size", "Size", UnitValue(12, CUnit::PT)));
        size->setPresets({ UnitValueProperty::Preset(UnitValue(9, CUnit::PT), "Small") });
        size->setUndefinable(true);
        QWidget *editor = f.make(size);
        QComboBox *reference = f.find<QComboBox>(editor, 1);
        QVERIFY(!reference->lineEdit());
        FontSizeProperty::Ptr undefined(new FontSizeProperty("size", "Size", UnitValue(12, CUnit::PT)));
        undefined->setUndefinable(true);
        undefined->setUndefined(true);
        f.factory.applyPropertyValues(undefined);
        QVERIFY(!reference->isEnabled() && reference->currentText().isEmpty());
        QVERIFY(f.find<QLineEdit>(editor)->text().isEmpty());
        FontSizeProperty::Ptr cap(new FontSizeProperty("size", "Size", UnitValue(14, CUnit::PT)));
        cap->setReferenceSizeType(FontSizeProperty::CapHeight);
        f.factory.applyPropertyValues(cap);
        QCOMPARE(reference->currentText(), QStringLiteral("Cap Height"));
        QCOMPARE(reference->count(), 2);

        FontProperty::Ptr font(new FontProperty("font", "Font", 3));
        font->setUndefinable(true);
        QWidget *fonts = f.make(font);
        QComboBox *family = f.find<QComboBox>(fonts, 0);
        QComboBox *style = f.find<QComboBox>(fonts, 1);
        QCOMPARE(style->currentText(), QStringLiteral("Bold"));
        FontProperty::Ptr any(new FontProperty("font", "Font", 3));
        any->setUndefinable(true);
        any->setUndefined(true);
        f.factory.applyPropertyValues(any);
        QVERIFY(family->currentText().isEmpty() && style->isHidden() && any->isUndefined());
        FontProperty::Ptr serif(new FontProperty("font", "Font", 11));
        f.factory.applyPropertyValues(serif);
        QCOMPARE(family->currentText(), QStringLiteral("Test Serif"));
        QCOMPARE(style->currentText(), QStringLiteral("Bold"));
        QVERIFY(serif->font() == 11 && !style->isHidden());
        QCOMPARE(f.changed.count(), 0);
    }
};

TAVO_TEST(EditorApplyingTest)
#include "EditorApplyingTest.moc"
