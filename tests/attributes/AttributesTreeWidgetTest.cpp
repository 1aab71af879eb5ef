// The attributes palette over the sample attributes: selections shown, unchanged selections
// costing nothing, missing attributes undefined, an edit by mouse and keys reaching the hook
// once, hidden tabs returning to their place, expansion remembered; and the ways a palette
// can crash: the selection changing under an open editor, a clear from inside the hook, a
// queued request for a row that has gone.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "attributes/AttributesTreeWidget.h"
#include "browser/TreePropertyBrowser.h"
#include "browser/ViewEditorFactory.h"
#include "core/IntegerProperty.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleSchema.h"

#include <QApplication>
#include <QHeaderView>
#include <QPointer>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

using namespace TavoLib;

namespace {

const AttributeKey kFill("Fill");
const AttributeKey kLine("Line");
const AttributeKey kCharacter("Character");
const AttributeKey kParagraph("Paragraph");

class Palette : public AttributesTreeWidget
{
public:
    explicit Palette(bool withEnvironment = true)
        : AttributesTreeWidget(nullptr, TAutoPtr<Translator>(new Translator))
    {
        addTab("Frame");
        addTab("Text");
        if (!withEnvironment)
            return;
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        setEnvironment(env);
    }
    using AttributesTreeWidget::editorFactory;
    using AttributesTreeWidget::setAttributes;
    void selectionChanged() override { setAttributes(selection); }

    AttributeMap selection;
    QList<TAutoPtr<const Attribute>> changes;
    std::function<void()> onChange;

protected:
    void createAttributes() override
    {
        ++declared;
        createAttributeGroup("appearance", "Appearance", { kFill, kLine }, 0);
        createAttribute(kCharacter, 1);
        createAttribute(kParagraph, 1);
    }
    void attributeChanged(TAutoPtr<const Attribute> attribute) override
    {
        changes << attribute;
        if (onChange)
            onChange();
    }

public:
    int declared = 0;
};

// The line attribute with another tracking or width, as a selected object would carry it.
TAutoPtr<const Attribute> withValue(const AttributeKey &key, const QString &name, int value)
{
    TAutoPtr<Attribute> attribute(Sample::SampleAttribute::create(key));
    PropertyDictionary values;
    attribute->fillProperties(values);
    if (TAutoPtr<IntegerProperty> integer{ values.property(name) })
        integer->setValue(value);
    attribute->applyProperties(values);
    return attribute;
}

int tracking(const TAutoPtr<const Attribute> &attribute)
{
    PropertyDictionary values;
    attribute->fillProperties(values);
    const TAutoPtr<IntegerProperty> integer(values.property("tracking"));
    return integer ? integer->value() : -1;
}

QTreeWidget *treeOf(Palette &palette, int page)
{
    return palette.widget(page)->findChild<QTreeWidget *>();
}

QTreeWidgetItem *rowOf(QTreeWidget *tree, const QString &label)
{
    return tree->findItems(label, Qt::MatchExactly | Qt::MatchRecursive, 0).value(0);
}

void clickValue(QTreeWidget *tree, const QString &label)
{
    QRect cell = tree->visualItemRect(rowOf(tree, label));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
        QPoint(tree->header()->sectionPosition(1) + 8, cell.center().y()));
}

QWidget *editorIn(QTreeWidget *tree)
{
    return tree->findChild<QWidget *>(QStringLiteral("editor"));
}

} // namespace

class AttributesTreeWidgetTest : public QObject
{
    Q_OBJECT
    QTemporaryDir mHome;

private slots:
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mHome.path()); }

    void selectionsAndAnEdit()
    {
        Palette palette;
        // The first use declares every row; an empty selection shows them undefined.
        palette.setAttributes(AttributeMap());
        QCOMPARE(palette.declared, 1);
        QTreeWidget *text = treeOf(palette, 1);
        QVERIFY(rowOf(text, "Tracking"));
        QVERIFY(rowOf(text, "Tracking")->text(1).isEmpty());

        AttributeMap selection;
        selection.insert(withValue(kCharacter, "tracking", 40));
        palette.setAttributes(selection);
        QCOMPARE(rowOf(text, "Tracking")->text(1), QStringLiteral("40"));
        // The same selection again costs no row.
        QTreeWidgetItem *before = rowOf(text, "Tracking");
        AttributeMap same;
        same.insert(withValue(kCharacter, "tracking", 40));
        palette.setAttributes(same);
        QCOMPARE(rowOf(text, "Tracking"), before);

        // A step by mouse and key reaches the hook once, with the new value.
        palette.setCurrentIndex(1);
        palette.show();
        QApplication::setActiveWindow(&palette);
        clickValue(text, "Tracking");
        QTRY_VERIFY(editorIn(text));
        auto *spin = editorIn(text)->findChild<QAbstractSpinBox *>();
        if (!spin)
            spin = qobject_cast<QAbstractSpinBox *>(editorIn(text));
        QVERIFY(spin);
        QTest::keyClick(spin, Qt::Key_Up);
        QTRY_COMPARE(palette.changes.size(), 1);
        QCOMPARE(tracking(palette.changes.last()), 41);
        // The host's echo of the change rebuilds nothing.
        QTreeWidgetItem *edited = rowOf(text, "Tracking");
        palette.selection = palette.attributes();
        palette.selectionChanged();
        QCOMPARE(rowOf(text, "Tracking"), edited);
    }

    void tabsAndRememberedExpansion()
    {
        {
            Palette palette;
            palette.setAttributes(AttributeMap());
            palette.setTabVisible(0, false);
            QCOMPARE(palette.count(), 1);
            palette.setTabVisible(0, true);
            QCOMPARE(palette.tabText(0), QStringLiteral("Frame"));
            auto *browser = palette.widget(0)->findChild<TreePropertyBrowser *>();
            if (!browser)
                browser = qobject_cast<TreePropertyBrowser *>(palette.widget(0));
            QVERIFY(browser);
            browser->setExpanded(browser->topLevelItems().value(0), false);
        } // saved as the palette goes
        Palette again;
        again.setAttributes(AttributeMap());
        auto *browser = qobject_cast<TreePropertyBrowser *>(again.widget(0));
        QVERIFY(browser && !browser->isExpanded(browser->topLevelItems().value(0)));
    }

    // One click on a switchable group is one edit, heard once after the rows are whole,
    // however many of its children change their enabled state.
    void oneHookCallPerEdit()
    {
        Palette palette;
        AttributeMap selection;
        selection.insert(TAutoPtr<const Attribute>(Sample::SampleAttribute::create(kParagraph)));
        palette.setAttributes(selection);
        palette.setCurrentIndex(1);
        palette.show();
        QApplication::setActiveWindow(&palette);
        QTreeWidget *text = treeOf(palette, 1);
        clickValue(text, "Hyphenation");
        QApplication::processEvents();
        QTRY_COMPARE(palette.changes.size(), 1);
        QTest::qWait(20);
        QCOMPARE(palette.changes.size(), 1);
        QVERIFY(!rowOf(text, "Shortest word")->flags().testFlag(Qt::ItemIsEnabled));
    }

    // Without an environment no row is declared, and selections declare the headings once.
    void declaredOnceWithoutEnvironment()
    {
        Palette palette(false);
        for (int i = 0; i < 3; ++i)
            palette.setAttributes(AttributeMap());
        QCOMPARE(palette.declared, 1);
        QCOMPARE(treeOf(palette, 0)->findItems("Appearance", Qt::MatchExactly).size(), 1);
    }

    // A top-level row collapsed by the user stays collapsed when selections rebuild it.
    void collapsedRowsStayCollapsed()
    {
        Palette palette;
        AttributeMap selection;
        selection.insert(TAutoPtr<const Attribute>(Sample::SampleAttribute::create(kParagraph)));
        palette.setAttributes(selection);
        palette.setCurrentIndex(1);
        palette.show();
        QApplication::setActiveWindow(&palette);
        QTreeWidget *text = treeOf(palette, 1);
        QVERIFY(rowOf(text, "Hyphenation")->isExpanded());
        text->setFocus();
        text->setCurrentItem(rowOf(text, "Hyphenation"), 0);
        QTest::keyClick(text, Qt::Key_Left);
        QVERIFY(!rowOf(text, "Hyphenation")->isExpanded());
        palette.setAttributes(AttributeMap());
        palette.setAttributes(selection);
        QVERIFY(rowOf(text, "Hyphenation"));
        QVERIFY(!rowOf(text, "Hyphenation")->isExpanded());
        auto *browser = qobject_cast<TreePropertyBrowser *>(palette.widget(1));
        QtBrowserItem *item = nullptr;
        for (QtBrowserItem *top : browser->topLevelItems())
            if (top->property()->propertyName() == QLatin1String("Hyphenation"))
                item = top;
        QVERIFY(item && !browser->isExpanded(item));
    }

    // The selection changes while the user is typing into a row that goes and a row that
    // stays: the editor goes without a trace, the other rows keep working.
    void selectionChangesUnderAnOpenEditor()
    {
        Palette palette;
        palette.setAttributes(AttributeMap());
        palette.setCurrentIndex(1);
        palette.show();
        QApplication::setActiveWindow(&palette);
        QTreeWidget *text = treeOf(palette, 1);
        clickValue(text, "Tracking");
        QTRY_VERIFY(editorIn(text));
        QPointer<QWidget> editor = editorIn(text);
        QTest::keyClicks(QApplication::focusWidget(), "12");
        AttributeMap selection;
        selection.insert(withValue(kCharacter, "tracking", 7));
        palette.setAttributes(selection);
        QTRY_VERIFY(!editor);
        QCOMPARE(rowOf(text, "Tracking")->text(1), QStringLiteral("7"));
        QVERIFY(palette.changes.isEmpty());
        clickValue(text, "Tracking");
        QTRY_VERIFY(editorIn(text));
    }

    // The host clears the palette from inside the hook; a queued request to leave the
    // undefined state arrives for a row that has gone.
    void clearFromTheHookAndLateRequests()
    {
        Palette palette;
        palette.setAttributes(AttributeMap());
        palette.setCurrentIndex(1);
        palette.show();
        QApplication::setActiveWindow(&palette);
        QTreeWidget *text = treeOf(palette, 1);
        palette.onChange = [&] { palette.clearAttributes(); };
        AttributeMap selection;
        selection.insert(withValue(kCharacter, "tracking", 3));
        palette.setAttributes(selection);
        clickValue(text, "Tracking");
        QTRY_VERIFY(editorIn(text));
        QTest::keyClicks(QApplication::focusWidget(), "9");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(palette.changes.size(), 1);
        QTRY_VERIFY(!editorIn(text));
        QVERIFY(palette.attributes().empty());

        // A row asks to leave the undefined state, and is gone before the answer comes.
        palette.onChange = nullptr;
        palette.setAttributes(AttributeMap());
        clickValue(text, "Tracking");
        QTRY_VERIFY(editorIn(text));
        palette.editorFactory()->activateProperty();
        palette.clearAttributes();
        QApplication::processEvents();
        QCOMPARE(palette.changes.size(), 1);

        // Answered while the row is there, the request gives the row its default value,
        // which counts as an edit.
        palette.setAttributes(AttributeMap());
        clickValue(text, "Tracking");
        QTRY_VERIFY(editorIn(text));
        palette.editorFactory()->activateProperty();
        QTRY_COMPARE(palette.changes.size(), 2);
        QCOMPARE(tracking(palette.changes.last()), 0);
        QVERIFY(!rowOf(text, "Tracking")->text(1).isEmpty());
    }
};

TAVO_TEST(AttributesTreeWidgetTest)
#include "AttributesTreeWidgetTest.moc"
