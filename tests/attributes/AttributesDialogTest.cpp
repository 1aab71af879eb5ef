// Editing the attributes of three selected objects in a dialog of two pages: what they share
// shows, what differs is undefined; a preview writes, a cancel takes it back, an accepted
// edit reaches every object and leaves what differs alone. Also the dialog's page marks and
// a check that fails.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "attributes/AttributesDialog.h"
#include "attributes/AttributesWidget.h"
#include "attributes/StylesheetBasedWidgetGroupWidget.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BrushProperty.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"
#include "core/UnitValueProperty.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleObject.h"
#include "sample/SampleSchema.h"
#include "sample/SelectionPage.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

using namespace TavoLib;
using Sample::SampleObject;

namespace {

const AttributeKey kFill("Fill");
const AttributeKey kLine("Line");
const AttributeKey kParagraph("Paragraph");

Property::Ptr valueOf(const SampleObject::Ptr &object, const AttributeKey &key, const QString &name)
{
    PropertyDictionary values;
    object->attributes().at(key)->fillProperties(values);
    return values.property(name);
}

using Sample::SelectionPage;

// The host's dialog: its hooks load, check and save the pages.
class Dialog : public AttributesDialog
{
public:
    explicit Dialog(Type type) : AttributesDialog(type, nullptr, Qt::WindowFlags(), true) { }
    bool failCheck = false;

protected:
    void loadWidgetValues(QWidget *widget) override
    {
        if (auto *page = dynamic_cast<AttributesWidgetCommon *>(widget))
            page->loadValues();
    }
    bool checkWidgetValues(QWidget *) override { return !failCheck; }
    void saveWidgetValues(QWidget *widget) override
    {
        if (auto *page = dynamic_cast<AttributesWidgetCommon *>(widget))
            page->saveValues();
    }
};

QLineEdit *widthField(QWidget *page)
{
    for (QLineEdit *line : page->findChildren<QLineEdit *>())
        if (line->text().startsWith(QLatin1String("1")) && line->text().contains(QLatin1String("pt")))
            return line;
    return nullptr;
}

// Every value of every attribute of the objects, as texts, children of groups included.
QStringList snapshot(const std::vector<SampleObject::Ptr> &objects)
{
    QStringList result;
    std::function<void(const QString &, const PropertyDictionary &)> walk
        = [&](const QString &prefix, const PropertyDictionary &values) {
              for (const Property::Ptr &property : values) {
                  result << prefix + property->uniqueName() + '=' + property->toString();
                  if (TAutoPtr<GroupProperty> group{ property })
                      walk(prefix + property->uniqueName() + '/', *group);
              }
          };
    for (const SampleObject::Ptr &object : objects)
        for (const auto &entry : object->attributes()) {
            PropertyDictionary values;
            entry.second->fillProperties(values);
            walk(object->name() + ':' + entry.first.name() + ':', values);
        }
    return result;
}

// Three text frames whose fills differ.
std::vector<SampleObject::Ptr> threeFills()
{
    std::vector<SampleObject::Ptr> objects;
    for (int i = 0; i < 3; ++i) {
        SampleObject::Ptr object = SampleObject::create("TextFrame", QStringLiteral("frame %1").arg(i));
        PropertyDictionary fill;
        object->attributes().at(kFill)->fillProperties(fill);
        TAutoPtr<BrushProperty>(fill.property("brush"))->setBrush(short(i + 1));
        TAutoPtr<Attribute> own(object->attributes().at(kFill)->clone());
        own->applyProperties(fill);
        object->setAttribute(own);
        objects.push_back(object);
    }
    return objects;
}

// Shows a page as a user does: a click on its tab or its name in the page tree.
void openPage(AttributesDialog &dialog, int index)
{
    if (auto *tabs = dialog.findChild<QTabBar *>()) {
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
    } else if (auto *tree = dialog.findChild<QTreeWidget *>()) {
        const QRect rect = tree->visualItemRect(tree->topLevelItem(index));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, rect.center());
    }
}

void typeWidth(QWidget *page, const QString &text)
{
    QLineEdit *field = widthField(page);
    QVERIFY(field);
    QVERIFY(field->isVisible());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

} // namespace

class AttributesDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void threeObjectsPreviewCancelAccept()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        const std::vector<SampleObject::Ptr> objects = threeFills();
        const auto width = [&](int i) {
            return TAutoPtr<UnitValueProperty>(valueOf(objects[size_t(i)], kLine, "width"))->value().value();
        };
        const auto brush = [&](int i) {
            return TAutoPtr<BrushProperty>(valueOf(objects[size_t(i)], kFill, "brush"))->brush();
        };

        Dialog dialog(AttributesDialog::Tabs);
        auto *fillPage = new SelectionPage(objects, { kFill });
        auto *linePage = new SelectionPage(objects, { kLine });
        for (SelectionPage *page : { fillPage, linePage })
            page->setEnvironment(env);
        dialog.addWidget(dialog.addTab("Fill"), fillPage);
        dialog.addWidget(dialog.addTab("Line"), linePage);

        // First run: the fill differs, the width agrees; a new width previewed, then cancelled.
        QTimer::singleShot(0, this, [&] {
            const auto shown = fillPage->items();
            QVERIFY(shown.front()->properties()->property("brush")->isUndefined());
            QLineEdit *field = widthField(linePage);
            QVERIFY(field);
            field->selectAll();
            QTest::keyClicks(field, "2pt");
            QTest::keyClick(field, Qt::Key_Return);
            QTest::mouseClick(dialog.mPreview, Qt::LeftButton, {}, QPoint(5, dialog.mPreview->height() / 2));
            QCOMPARE(width(0), 2.0);
            QCOMPARE(width(2), 2.0);
            QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        });
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QCOMPARE(width(1), 1.0);

        // Second run: changed and accepted; each object keeps its own fill.
        QTimer::singleShot(0, this, [&] {
            QLineEdit *field = widthField(linePage);
            QVERIFY(field);
            field->selectAll();
            QTest::keyClicks(field, "3pt");
            QTest::keyClick(field, Qt::Key_Return);
            QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(width(i), 3.0);
            QCOMPARE(brush(i), short(i + 1));
        }
    }

    // Three objects whose fills differ, in a dialog whose pages each restore before they save:
    // a width edited on a page that is not the last survives the pages after it, in the
    // preview and on OK; a cancel puts everything back; nothing else changes.
    void widthOnAnyPage_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("linePage");
        QTest::newRow("tabs, first page") << int(AttributesDialog::Tabs) << 0;
        QTest::newRow("tabs, middle page") << int(AttributesDialog::Tabs) << 1;
        QTest::newRow("page tree, first page") << int(AttributesDialog::PageTree) << 0;
        QTest::newRow("page tree, middle page") << int(AttributesDialog::PageTree) << 1;
    }
    void widthOnAnyPage()
    {
        QFETCH(int, type);
        QFETCH(int, linePage);
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        const std::vector<SampleObject::Ptr> objects = threeFills();
        const QStringList before = snapshot(objects);

        Dialog dialog{ AttributesDialog::Type(type) };
        QList<AttributeKey> keys = { kFill, AttributeKey("Character") };
        keys.insert(linePage, kLine);
        SelectionPage *line = nullptr;
        for (const AttributeKey &key : keys) {
            auto *page = new SelectionPage(objects, { key }, env);
            dialog.addWidget(dialog.addTab(key.name()), page);
            if (key == kLine)
                line = page;
        }

        QTimer::singleShot(0, this, [&] {
            openPage(dialog, linePage);
            typeWidth(line, "2pt");
            QTest::mouseClick(dialog.mPreview, Qt::LeftButton, {}, QPoint(5, dialog.mPreview->height() / 2));
            for (int i = 0; i < 3; ++i)
                QCOMPARE(TAutoPtr<UnitValueProperty>(valueOf(objects[size_t(i)], kLine, "width"))->value().value(), 2.0);
            QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        });
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QCOMPARE(snapshot(objects), before);

        QTimer::singleShot(0, this, [&] {
            openPage(dialog, linePage);
            typeWidth(line, "3pt");
            QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QStringList expected = before;
        for (QString &entry : expected)
            if (entry.contains(QLatin1String(":Line:width=")))
                entry = entry.left(entry.indexOf('=') + 1) + QStringLiteral("3pt");
        QCOMPARE(snapshot(objects), expected);
    }

    // Two frames whose hyphenation differs below the switch, and whose alignment differs: no
    // alignment button shows pressed; a new indent is written and each frame keeps its own
    // shortest word.
    void undefinedChildrenKeepEachObjectsValue()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        std::vector<SampleObject::Ptr> objects;
        for (int i = 0; i < 2; ++i) {
            SampleObject::Ptr object = SampleObject::create("TextFrame", QStringLiteral("frame %1").arg(i));
            PropertyDictionary values;
            object->attributes().at(kParagraph)->fillProperties(values);
            TAutoPtr<IntegerProperty>(TAutoPtr<GroupProperty>(values.property("hyphenation"))->property("minimumWord"))
                ->setValue(3 + i);
            TAutoPtr<SelectorProperty>(values.property("alignment"))->setValue(i);
            TAutoPtr<Attribute> own(object->attributes().at(kParagraph)->clone());
            own->applyProperties(values);
            object->setAttribute(own);
            objects.push_back(object);
        }
        SelectionPage page(objects, { kParagraph }, env);
        page.loadValues();
        page.show();
        for (QToolButton *button : page.findChildren<QToolButton *>())
            if (button->accessibleName().startsWith(QLatin1String("Alignment")))
                QVERIFY2(!button->isChecked(), qPrintable(button->accessibleName()));
        QLineEdit *indent = nullptr;
        for (QLineEdit *line : page.findChildren<QLineEdit *>())
            if (line->text() == QLatin1String("0mm"))
                indent = line;
        QVERIFY(indent);
        indent->setFocus();
        indent->selectAll();
        QTest::keyClicks(indent, "4mm");
        QTest::keyClick(indent, Qt::Key_Return);
        page.saveValues();
        for (int i = 0; i < 2; ++i) {
            PropertyDictionary values;
            objects[size_t(i)]->attributes().at(kParagraph)->fillProperties(values);
            QCOMPARE(values.property("leftIndent")->toString(), QStringLiteral("4mm"));
            const TAutoPtr<GroupProperty> hyphenation(values.property("hyphenation"));
            QCOMPARE(hyphenation->property("minimumWord")->toString(), QString::number(3 + i));
            QVERIFY(hyphenation->isDefined() && hyphenation->property("minimumWord")->isDefined());
            QCOMPARE(TAutoPtr<SelectorProperty>(values.property("alignment"))->value(), i);
        }
    }

    // A page widget or a panel the host deletes is forgotten: running, previewing, switching
    // pages, accepting and destroying touch only what is alive.
    void deletedPagesAreForgotten()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        for (AttributesDialog::Type type : { AttributesDialog::Tabs, AttributesDialog::PageTree }) {
            const std::vector<SampleObject::Ptr> objects = threeFills();
            Dialog dialog(type);
            auto *fill = new SelectionPage(objects, { kFill }, env);
            auto *line = new SelectionPage(objects, { kLine }, env);
            dialog.addWidget(dialog.addTab("Fill"), fill);
            dialog.addWidget(dialog.addTab("Line"), line);
            delete fill;
            QTimer::singleShot(0, this, [&] {
                openPage(dialog, 0);
                openPage(dialog, 1);
                QTest::mouseClick(dialog.mPreview, Qt::LeftButton, {}, QPoint(5, dialog.mPreview->height() / 2));
                typeWidth(line, "2pt");
                QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
            });
            QCOMPARE(dialog.exec(), int(QDialog::Accepted));
            QCOMPARE(TAutoPtr<UnitValueProperty>(valueOf(objects[2], kLine, "width"))->value().value(), 2.0);
        }

        StylesheetBasedWidgetGroupWidget group(nullptr, "Group", false);
        auto *first = new StylesheetBasedWidget(nullptr, "First");
        auto *second = new StylesheetBasedWidget(nullptr, "Second");
        first->setAttributeKeys({ kFill });
        second->setAttributeKeys({ kLine });
        group.addWidget(first);
        group.addWidget(second);
        delete first;
        Stylesheet::Ptr sheet(new Stylesheet("Frame", "Box"));
        group.loadValues(sheet, env);
        group.synchronizeLabelSizes();
        QCOMPARE(group.widgets().size(), 1);
        QCOMPARE(group.attributeKeys(), QList<AttributeKey>({ kLine }));
        group.saveValues();
    }

    // Pages with active content are marked in the page tree, and the dialog opens on the
    // first; a failing check keeps the dialog open and writes nothing.
    void pageMarksAndFailingCheck()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        SampleObject::Ptr frame = SampleObject::create("TextFrame", "frame");
        Dialog dialog(AttributesDialog::PageTree);
        auto *fillPage = new SelectionPage({ frame }, { kFill });
        // One activatable group alone on a page: the paragraph's hyphenation, switched on.
        struct HyphenPage : SelectionPage
        {
            using SelectionPage::SelectionPage;
            AttributesState attributesState() override { return Active; }
        };
        auto *hyphenPage = new HyphenPage({ frame }, { kParagraph });
        for (SelectionPage *page : { static_cast<SelectionPage *>(fillPage), static_cast<SelectionPage *>(hyphenPage) })
            page->setEnvironment(env);
        dialog.addWidget(dialog.addTab("Fill"), fillPage);
        dialog.addWidget(dialog.addTab("Paragraph"), hyphenPage);
        dialog.failCheck = true;
        const double before = TAutoPtr<UnitValueProperty>(valueOf(frame, kLine, "width"))->value().value();
        QTimer::singleShot(0, this, [&] {
            auto *tree = dialog.findChild<QTreeWidget *>();
            QVERIFY(tree->topLevelItem(1)->font(0).bold());
            QVERIFY(!tree->topLevelItem(0)->font(0).bold());
            QCOMPARE(tree->currentItem(), tree->topLevelItem(1));
            dialog.accept();
            QVERIFY(dialog.isVisible());
            dialog.failCheck = false;
            dialog.reject();
        });
        dialog.exec();
        QCOMPARE(TAutoPtr<UnitValueProperty>(valueOf(frame, kLine, "width"))->value().value(), before);
    }

    // No default for a listed key, no key at all, no object, a page that is no attributes
    // page, a long chain of parent stylesheets: each gives a clear result.
    void badInput()
    {
        TAutoPtr<Environment> bare(new Environment);
        SelectionPage noDefaults({}, { kFill, kLine });
        noDefaults.setEnvironment(bare);
        noDefaults.loadValues();
        QVERIFY(noDefaults.items().empty());

        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        SelectionPage noKeys({ SampleObject::create("TextFrame", "frame") }, {});
        noKeys.setEnvironment(env);
        noKeys.loadValues();
        noKeys.saveValues();
        QVERIFY(noKeys.items().empty());
        SelectionPage noObjects({}, { kFill });
        noObjects.setEnvironment(env);
        noObjects.loadValues();
        QVERIFY(noObjects.items().front()->properties()->at(0)->isUndefined());

        // Any other number than 1 or 2 gives one plain page (checked by the sanitizer build).
        for (int number : { 4, -1 }) {
            Dialog plain{ AttributesDialog::Type(number) };
            QVERIFY(!plain.findChild<QTabWidget *>() && !plain.findChild<QTreeWidget *>());
        }

        Dialog dialog(AttributesDialog::PageTree);
        dialog.addWidget(dialog.addTab("Note"), new QLabel("not a page of attributes"));
        QTimer::singleShot(0, this, [&] {
            QTest::mouseClick(dialog.mPreview, Qt::LeftButton, {}, QPoint(5, dialog.mPreview->height() / 2));
            dialog.reject();
        });
        dialog.exec();

        Stylesheet::Ptr sheet(new Stylesheet("Paragraph", "root"));
        sheet->insertAttribute(Sample::SampleAttribute::create(kFill));
        for (int i = 0; i < 3000; ++i)
            sheet = new Stylesheet("Paragraph", QStringLiteral("s%1").arg(i), QString(), sheet);
        QCOMPARE(int(sheet->attributes(true).size()), 1);
        QVERIFY(!sheet->setParent(sheet));
    }
};

TAVO_TEST(AttributesDialogTest)
#include "AttributesDialogTest.moc"
