// Edits that used to be lost or shown wrong: a preset chosen again, a predefine picked from
// the menu, a colour for an undefined value, style lists after a refresh, the preview and the
// special-value text after an apply, and editors that go while the factory still talks.
#include "FactoryFixture.h"
#include "TestRegistry.h"
#include "core/CustomColorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"
#include "core/StylesheetProperty.h"
#include "widgets/MyDoubleSpinBox.h"
#include "widgets/Ta_ColorView.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace TavoLib;

namespace {

// Chooses row `row` of an open combo box's popup by keys, as a user does.
void chooseInPopup(QComboBox *combo, int row)
{
    combo->setFocus();
    combo->showPopup();
    QAbstractItemView *view = combo->view();
    QVERIFY(QTest::qWaitFor([view] { return view->isVisible(); }));
    view->setCurrentIndex(combo->model()->index(row, 0));
    QTest::keyClick(view, Qt::Key_Return);
}

class Shouting : public Translator
{
public:
    QString translate(const QString &text) const override { return text.toUpper(); }
};

class Preview : public StringProperty::ExampleController
{
public:
    QString example(TAutoPtr<StringProperty const> property) const override
    {
        return QStringLiteral("[%1]").arg(property->value());
    }
};

} // namespace

class EditorKeepsEditsTest : public QObject
{
    Q_OBJECT

private slots:
    void presetChosenAgainIsStored()
    {
        for (bool fontSize : { false, true }) {
            FactoryFixture f;
            UnitValueProperty::Ptr measure(fontSize
                    ? new FontSizeProperty("size", "Size", UnitValue(12, CUnit::PT))
                    : new UnitValueProperty("gap", "Gap", UnitValue(12, CUnit::PT), CUnit::PT, 0, 100, 1));
            measure->setPresets({ UnitValueProperty::Preset(UnitValue(9, CUnit::PT), "Small"),
                UnitValueProperty::Preset(UnitValue(20, CUnit::PT), "Large") });
            measure->setUndefinable(true);
            measure->setUndefined(fontSize);
            QWidget *editor = f.make(measure);
            auto *combo = f.find<QComboBox>(editor);
            QVERIFY(combo->lineEdit());
            chooseInPopup(combo, 0);
            QCOMPARE(measure->value(), UnitValue(9, CUnit::PT));
            QVERIFY(measure->isDefined());
            if (fontSize) {
                // A preset that defines a font size enables its reference size at once.
                QComboBox *reference = f.find<QComboBox>(editor, 1);
                QVERIFY(reference->isEnabled());
                QVERIFY(reference->currentData().isValid());
            }
            // Typing leaves the preset current; choosing it again is an edit of its own.
            combo->lineEdit()->selectAll();
            QTest::keyClicks(combo->lineEdit(), "15pt");
            QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
            QCOMPARE(measure->value(), UnitValue(15, CUnit::PT));
            const int signals_ = f.changed.count();
            chooseInPopup(combo, 0);
            QCOMPARE(measure->value(), UnitValue(9, CUnit::PT));
            QVERIFY(!combo->lineEdit()->text().contains("Small"));
            QCOMPARE(f.changed.count(), signals_ + 1);
        }
    }

    void predefineFromTheMenuIsStored()
    {
        for (bool live : { false, true }) {
            FactoryFixture f;
            PropertyEditorFactory liveFactory(nullptr, true);
            PropertyEditorFactory &factory = live ? liveFactory : f.factory;
            QSignalSpy changed(&factory, &PropertyEditorFactory::propertyChanged);
            StringProperty::Ptr name(new StringProperty("name", "Name", ""));
            name->setPredefines({ StringProperty::PredefineItem("Alpha", "alpha") });
            QWidget *editor = factory.createEditor(name, &f.window, QString());
            auto *elsewhere = new QLineEdit(&f.window);
            elsewhere->move(0, 100);
            f.window.show();
            QApplication::setActiveWindow(&f.window);
            elsewhere->setFocus();
            auto *button = f.find<QToolButton>(editor);
            QVERIFY(!button->toolTip().isEmpty());
            // The menu opens on the click; the user picks the entry; the field never had
            // the focus, so nothing but the choice itself can store it.
            QTimer::singleShot(0, [] {
                if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
                    QTest::keyClick(menu, Qt::Key_Down);
                    QTest::keyClick(menu, Qt::Key_Return);
                }
            });
            changed.clear();
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(name->value(), QStringLiteral("alpha"));
            QCOMPARE(changed.count(), 1);
        }
    }

    void colourChosenForAnUndefinedValueDefinesIt()
    {
        FactoryFixture f;
        CustomColorProperty::Ptr color(new CustomColorProperty("ink", "Ink", 0, 0, 1));
        color->setUndefinable(true);
        color->setUndefined(true);
        QWidget *editor = f.make(color);
        auto *view = f.find<Ta_ColorView>(editor);
        QTimer closer;
        connect(&closer, &QTimer::timeout, [] {
            if (auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget())) {
                dialog->setCurrentColor(Qt::red);
                static_cast<QDialog *>(dialog)->done(QDialog::Accepted);
            }
        });
        closer.start(5);
        // The container hands the focus to the view; Space there asks for a colour.
        QApplication::setActiveWindow(&f.window);
        editor->setFocus();
        QCOMPARE(QApplication::focusWidget(), view);
        QTest::keyClick(view, Qt::Key_Space);
        QVERIFY(color->isDefined());
        QCOMPARE(color->red(), 1.0);
        QCOMPARE(f.changed.count(), 1);
        QCOMPARE(view->toolTip(), QStringLiteral("#ff0000"));
    }

    void fontStylesRefillAfterRefreshAndAny()
    {
        FactoryFixture f;
        FontProperty::Ptr font(new FontProperty("font", "Font", 20)); // Test Classic, one face
        font->setUndefinable(true);
        QWidget *editor = f.make(font);
        auto *family = f.find<QComboBox>(editor, 0);
        auto *style = f.find<QComboBox>(editor, 1);
        QCOMPARE(style->count(), 1);
        // "any", then the same family again: its one style comes back.
        const int serif = family->currentIndex();
        family->setFocus();
        family->setCurrentIndex(0);
        QVERIFY(font->isUndefined() && style->isHidden());
        family->setCurrentIndex(serif);
        QVERIFY(font->isDefined() && !style->isHidden());
        QCOMPARE(style->count(), 1);
        QCOMPARE(font->font(), short(20));

        // A forced refresh, then the apply the caller makes: the styles are there again,
        // and so is the "any" row.
        f.factory.updateEditors(true);
        QVERIFY(family->itemText(0).isEmpty());
        QVERIFY(!family->itemData(0, Qt::UserRole + 5).isNull());
        FontProperty::Ptr again(new FontProperty("font", "Font", 20));
        again->setUndefinable(true);
        f.factory.applyPropertyValues(again);
        QCOMPARE(style->count(), 1);
        QCOMPARE(style->currentText(), QStringLiteral("Roman"));
        QVERIFY(!family->itemText(0).isEmpty()); // the "any" row hides for a defined value
    }

    void previewAndSpecialTextFollowAnApply()
    {
        FactoryFixture f;
        f.factory.setTranslator(new Shouting);
        StringProperty::Ptr title(new StringProperty("title", "Title", "one"));
        title->setExampleController(new Preview);
        UnitValueProperty::Ptr lead(new UnitValueProperty("lead", "Lead", UnitValue(0, CUnit::PT), CUnit::PT, 0, 100, 1));
        lead->setSpecialValue(0, "auto");
        QWidget *titleEditor = f.make(title);
        QWidget *leadEditor = f.make(lead);
        auto *spin = f.find<MyDoubleSpinBox>(leadEditor);
        QCOMPARE(spin->unitEdit()->text(), QStringLiteral("AUTO"));

        StringProperty::Ptr title2(new StringProperty("title", "Title", "two"));
        title2->setExampleController(new Preview);
        f.factory.applyPropertyValues(title2);
        QCOMPARE(f.find<QLabel>(titleEditor)->text(), QStringLiteral("[two]"));
        f.factory.applyPropertyValues(lead->clone());
        QCOMPARE(spin->unitEdit()->text(), QStringLiteral("AUTO"));
        QCOMPARE(f.changed.count(), 0);
    }

    void undefinedLooksTheSameMadeAndApplied()
    {
        FactoryFixture f;
        auto selector = [](int mode, bool undefined) {
            SelectorProperty::Ptr p(
                new SelectorProperty("align", "Align", SelectorProperty::Mode(mode)));
            for (int id : { 1, 2, 3 })
                p->addItem(id, QStringLiteral("Item %1").arg(id));
            p->setValue(2);
            p->setUndefinable(true);
            p->setUndefined(undefined);
            return p;
        };
        QWidget *buttons = f.make(selector(SelectorProperty::ButtonsMode, true));
        for (QToolButton *button : buttons->findChildren<QToolButton *>())
            QVERIFY(!button->isChecked());
        QWidget *menu = f.make(selector(SelectorProperty::MenuButtonMode, true), "menu");
        auto *menuButton = f.find<QToolButton>(menu);
        const QImage madeIcon = menuButton->icon().pixmap(16).toImage();
        QVERIFY(menuButton->toolTip().isEmpty());
        f.factory.applyPropertyValues(selector(SelectorProperty::MenuButtonMode, false), "menu");
        QCOMPARE(menuButton->toolTip(), QStringLiteral("Item 2"));
        f.factory.applyPropertyValues(selector(SelectorProperty::MenuButtonMode, true), "menu");
        QCOMPARE(menuButton->icon().pixmap(16).toImage(), madeIcon);

        StringProperty::Ptr label(new StringProperty("label", "Label", "shown"));
        label->setReadOnly(true);
        label->setUndefinable(true);
        label->setUndefined(true);
        QWidget *readOnly = f.make(label);
        QVERIFY(readOnly->findChild<QLabel *>("text")->text().isEmpty());

        // Applied undefined, an integer that has no box stays usable.
        IntegerProperty::Ptr count(new IntegerProperty("count", "Count", 2, 0, 9));
        QWidget *integer = f.make(count);
        Property::Ptr undefinedCount = count->clone();
        undefinedCount->setUndefined(true);
        f.factory.applyPropertyValues(undefinedCount);
        QVERIFY(f.find<QSpinBox>(integer)->isEnabled());
    }

    void listenersMayDeleteEditors()
    {
        // A listener that deletes a part of the editor on the signal (here the preview): the
        // factory looks the editor up anew afterwards (the sanitizer run checks).
        FactoryFixture f;
        StringProperty::Ptr title(new StringProperty("title", "Title", "one"));
        title->setExampleController(new Preview);
        title->setUndefinable(true);
        QWidget *editor = f.make(title);
        QPointer<QLabel> preview = f.find<QLabel>(editor);
        connect(&f.factory, &PropertyEditorFactory::propertyChanged, this,
            [&] { delete preview.data(); });
        QTest::mouseClick(f.find<QCheckBox>(editor), Qt::LeftButton);
        QVERIFY(preview.isNull());
        QVERIFY(title->isUndefined());

    }

    void lengthCheckedAtCommitOnly()
    {
        // A field that follows the typing says nothing while a text is being typed; a text
        // of the wrong length is refused once, at Return, and stays for correction.
        PropertyEditorFactory factory(nullptr, true);
        QWidget window;
        QSignalSpy changed(&factory, &PropertyEditorFactory::propertyChanged);
        StringProperty::Ptr code(new StringProperty("code", "Code", "abcd"));
        code->setLengthRange(3, 5);
        QWidget *editor = factory.createEditor(code, &window, QString());
        window.show();
        auto *line = editor->findChild<QLineEdit *>();
        line->setFocus();
        int messages = 0;
        QTimer closer;
        connect(&closer, &QTimer::timeout, [&] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                ++messages;
                box->accept();
            }
        });
        closer.start(5);
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Backspace);
        QTest::keyClicks(line, "ab");
        QCOMPARE(messages, 0);
        QCOMPARE(code->value(), QStringLiteral("abcd"));
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(messages, 1);
        QCOMPARE(line->text(), QStringLiteral("ab"));
        QCOMPARE(code->value(), QStringLiteral("abcd"));
        QTest::keyClicks(line, "c");
        QCOMPARE(code->value(), QStringLiteral("abc"));
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(messages, 1);
    }
};

TAVO_TEST(EditorKeepsEditsTest)
#include "EditorKeepsEditsTest.moc"
