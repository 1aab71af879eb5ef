// Making editors: which widget each kind gets under each theme, what it shows first, and
// that building never reports a change.
#include "FactoryFixture.h"
#include "TestRegistry.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BrushProperty.h"
#include "core/FontSizeProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueProperty.h"
#include "property/ListPropertyWidget.h"
#include "sample/SampleSchema.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace TavoLib;

class EditorMakingTest : public QObject
{
    Q_OBJECT

private slots:
    // Every kind of the sample schema under every theme, defined and undefined, with and
    // without frame: an editor or a deliberate null, and not one propertyChanged.
    void everyKindBuildsSilently()
    {
        FactoryFixture f;
        const auto stylesheets = Sample::SampleSchema::makeStylesheets();
        int made = 0;
        for (int theme = 0; theme < 4; ++theme)
            for (bool undefined : { false, true })
                for (bool frame : { true, false }) {
                    f.factory.setWidgetsTheme(PropertyEditorFactory::WidgetsTheme(theme));
                    f.factory.setWithEditorFrame(frame);
                    for (const QString &type : Sample::SampleSchema::objectTypes())
                        for (const auto &property :
                            Sample::SampleSchema::objectSchema(type, stylesheets)) {
                            property->setUndefinable(undefined);
                            property->setUndefined(undefined);
                            made += f.make(property) ? 1 : 0;
                        }
                }
        QVERIFY(made > 100);
        QCOMPARE(f.changed.count(), 0);
    }

    void nullsAndKindOrder()
    {
        FactoryFixture f;
        QVERIFY(!f.make(Property::Ptr()));
        QVERIFY(!f.make(new Property("bare", "Bare")));
        QVERIFY(!f.make(new GroupProperty("group", "Group")));
        // A font size is never taken for its base: it has the reference combo.
        QWidget *size = f.make(new FontSizeProperty("size", "Size", UnitValue(12, CUnit::PT)));
        QCOMPARE(f.find<QComboBox>(size)->itemText(1), QStringLiteral("Cap Height"));
        // A list is a size spin box in a tree, a list widget elsewhere.
        Property::Ptr list(new ListProperty("tabs", "Tabs", new IntegerProperty("tab", "Tab"), 0, 5));
        f.factory.setWidgetsTheme(PropertyEditorFactory::WidgetsThemeTree);
        QVERIFY(qobject_cast<QSpinBox *>(f.make(list)));
        f.factory.setWidgetsTheme(PropertyEditorFactory::WidgetsThemeForm);
        QVERIFY(qobject_cast<ListPropertyWidget *>(f.make(list)));
        // A read-only string has no editor in a tree.
        StringProperty::Ptr text(new StringProperty("name", "Name", "Plain"));
        text->setReadOnly(true);
        QCOMPARE(f.find<QLabel>(f.make(text), 1)->text(), QStringLiteral("Plain"));
        f.factory.setWidgetsTheme(PropertyEditorFactory::WidgetsThemeTree);
        QVERIFY(!f.make(text));
    }

    void selectorModes()
    {
        FactoryFixture f;
        SelectorProperty::Ptr selector(new SelectorProperty("align", "Align"));
        for (int id : { 4, 7, 9 })
            selector->addItem(id, QString::number(id));
        selector->setValue(7);
        QCOMPARE(f.find<QComboBox>(f.make(selector))->currentText(), QStringLiteral("7"));
        // An undefined undefinable selector shows the blank row.
        selector->setUndefinable(true);
        selector->setUndefined(true);
        QComboBox *combo = f.find<QComboBox>(f.make(selector));
        QCOMPARE(combo->count(), 5);
        QCOMPARE(combo->currentText(), QString());

        selector->setUndefined(false);
        selector->setValue(9);
        selector->setMode(SelectorProperty::ButtonsMode);
        selector->setFirstItemVisible(false);
        const auto buttons = f.make(selector)->findChildren<QToolButton *>();
        QCOMPARE(buttons.size(), 2);
        QVERIFY(buttons.at(1)->isChecked() && !buttons.at(0)->isChecked());

        selector->setUndefinable(false);
        selector->setMode(SelectorProperty::MenuButtonMode);
        auto *button = f.find<QToolButton>(f.make(selector));
        const auto actions = button->menu()->actions();
        QCOMPARE(actions.size(), 5);
        QVERIFY(actions.at(0)->text().isEmpty() && actions.at(1)->isSeparator());
        QCOMPARE(actions.at(4)->isChecked(), true);
    }

    void stringEditors()
    {
        FactoryFixture f;
        StringProperty::Ptr name(new StringProperty("name", "Name", "Anna"));
        name->setPredefines({ StringProperty::PredefineItem("Bob", "Bob") });
        name->setUndefinable(true);
        QWidget *editor = f.make(name);
        auto *button = f.find<QToolButton>(editor);
        QCOMPARE(button->arrowType(), Qt::LeftArrow);
        auto *line = f.find<QLineEdit>(editor);
        QVERIFY(line->isEnabled());
        QVERIFY(f.find<QCheckBox>(editor)->isChecked());
        // A predefine goes in at the cursor and is committed with the field.
        line->setCursorPosition(0);
        QTimer::singleShot(0, [] {
            QWidget *menu = QApplication::activePopupWidget();
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(line->text(), QStringLiteral("BobAnna"));
        line->setFocus();
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(name->value(), QStringLiteral("BobAnna"));
    }

};

TAVO_TEST(EditorMakingTest)
#include "EditorMakingTest.moc"
