// Edits by keys and clicks: each writes the property once, compares before it writes, and
// says so with one propertyChanged.
#include "FactoryFixture.h"
#include "TestRegistry.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueSelectorProperty.h"
#include "widgets/MyDoubleSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace TavoLib;

class EditorEditingTest : public QObject
{
    Q_OBJECT

private slots:
    void stringLengthsAndUndefinedBox()
    {
        FactoryFixture f;
        StringProperty::Ptr name(new StringProperty("name", "Name", "abc"));
        name->setLengthRange(2, 4);
        name->setUndefinable(true);
        QWidget *editor = f.make(name);
        auto *line = f.find<QLineEdit>(editor);
        line->setMaxLength(10); // let the test type past the maximum
        line->setFocus();
        // Unchanged text still reports.
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(f.changed.count(), 1);
        for (const QString &text : { QStringLiteral("ab"), QStringLiteral("abcd") }) {
            line->selectAll();
            QTest::keyClicks(line, text);
            QTest::keyClick(line, Qt::Key_Return);
            QCOMPARE(name->value(), text);
        }
        QString message;
        acceptNextMessage(&message);
        line->selectAll();
        QTest::keyClicks(line, "abcde");
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(message, QStringLiteral("That is the wrong value!"));
        QCOMPARE(name->value(), QStringLiteral("abcd"));
        QCOMPARE(line->text(), QStringLiteral("abcde"));
        QCOMPARE(f.changed.count(), 4);

        // The box off: undefined and a disabled field; on again: the field's text back in.
        line->setText("xyz");
        auto *box = f.find<QCheckBox>(editor);
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(name->isUndefined() && !line->isEnabled());
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(name->isDefined() && line->isEnabled());
        QCOMPARE(name->value(), QStringLiteral("xyz"));
    }

    void unitFieldsDefineAndUndefine()
    {
        FactoryFixture f;
        FontSizeProperty::Ptr size(new FontSizeProperty("size", "Size", UnitValue(12, CUnit::PT)));
        size->setUndefinable(true);
        QWidget *editor = f.make(size);
        auto *edit = f.find<QLineEdit>(editor);
        QComboBox *reference = f.find<QComboBox>(editor);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(size->isUndefined());
        QVERIFY(!reference->isEnabled());
        QCOMPARE(f.changed.count(), 1);
        QTest::keyClicks(edit, "14");
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(size->isDefined());
        QCOMPARE(size->value().get(CUnit::PT), 14.0);
        QVERIFY(reference->isEnabled());
        QCOMPARE(f.changed.count(), 2);
        // The same value again: nothing written, nothing said.
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(f.changed.count(), 2);
    }

    void buttonsClicks()
    {
        FactoryFixture f;
        SelectorProperty::Ptr p(new SelectorProperty("s", "S", SelectorProperty::ButtonsMode));
        for (int id : { 5, 6, 7 })
            p->addItem(id, QString::number(id));
        p->setValue(6);
        p->setFirstItemVisible(false);
        const auto hidden = f.make(p)->findChildren<QToolButton *>();
        // Unticking the only ticked button selects the hidden first item.
        QTest::mouseClick(hidden.at(0), Qt::LeftButton);
        QCOMPARE(p->value(), 5);
        QCOMPARE(f.changed.count(), 1);
        QTest::mouseClick(hidden.at(1), Qt::LeftButton);
        QCOMPARE(p->value(), 7);
        QVERIFY(!hidden.at(0)->isChecked());

        SelectorProperty::Ptr q(new SelectorProperty("t", "T", SelectorProperty::ButtonsMode));
        for (int id : { 5, 6 })
            q->addItem(id, QString::number(id));
        q->setValue(6);
        const auto visible = f.make(q)->findChildren<QToolButton *>();
        f.changed.clear();
        QTest::mouseClick(visible.at(1), Qt::LeftButton);
        QCOMPARE(f.changed.count(), 0);
        QTest::mouseClick(visible.at(0), Qt::LeftButton);
        QCOMPARE(q->value(), 5);
        QCOMPARE(f.changed.count(), 1);
    }

    void measureSelectorBlankRow()
    {
        FactoryFixture f;
        UnitValueSelectorProperty::Ptr scaling(new UnitValueSelectorProperty("scale", "Scale"));
        scaling->addItem(0, "Fit", UnitValue(100, CUnit::Percent), 1, 1000, 1);
        scaling->addItem(1, "Fixed", UnitValue(50, CUnit::MM), 1, 500, 2);
        scaling->setUndefinable(true);
        scaling->setUndefined(true);
        scaling->setValue(1);
        QWidget *editor = f.make(scaling);
        auto *spin = f.find<MyDoubleSpinBox>(editor);
        QComboBox *combo = f.find<QComboBox>(editor);
        QVERIFY(!spin->isEnabled());
        QVERIFY(spin->unitEdit()->text().isEmpty());
        // kept on purpose: the blank row carries the id 0 and so selects that item.
        combo->setCurrentIndex(0);
        combo->setCurrentIndex(3);
        QVERIFY(scaling->isDefined() && spin->isEnabled());
        QCOMPARE(scaling->value(), 1);
        combo->setCurrentIndex(0);
        QCOMPARE(scaling->value(), 0);
        QCOMPARE(spin->unitEdit()->value(nullptr).get(CUnit::Percent), 100.0);
    }

    void fontFamilyAnyAndListSize()
    {
        FactoryFixture f;
        FontProperty::Ptr font(new FontProperty("font", "Font", 11));
        font->setUndefinable(true);
        QWidget *editor = f.make(font);
        QComboBox *family = f.find<QComboBox>(editor, 0);
        QComboBox *style = f.find<QComboBox>(editor, 1);
        family->setCurrentIndex(family->findText("Test Sans"));
        QCOMPARE(style->currentText(), QStringLiteral("Bold"));
        QCOMPARE(font->font(), short(3));
        family->setCurrentIndex(0);
        QVERIFY(font->isUndefined() && style->isHidden());
        QCOMPARE(f.changed.count(), 2);

        ListProperty::Ptr list(new ListProperty("l", "L", new IntegerProperty("e", "E"), 0, 6));
        f.factory.setWidgetsTheme(PropertyEditorFactory::WidgetsThemeTree);
        auto *spin = qobject_cast<QSpinBox *>(f.make(list));
        spin->setValue(5);
        QCOMPARE(list->size(), 5);
        spin->setValue(2);
        QCOMPARE(list->size(), 2);
        // A list without a pattern refuses elements and stays as it is.
        ListProperty::Ptr empty(new ListProperty("m", "M", Property::ConstPtr(), 0, 6));
        qobject_cast<QSpinBox *>(f.make(empty))->setValue(3);
        QCOMPARE(empty->size(), 0);
    }
};

TAVO_TEST(EditorEditingTest)
#include "EditorEditingTest.moc"
