// Editing the attributes of three selected objects in a dialog of two pages: what they share
// shows, what differs is undefined; a preview writes, a cancel takes it back, an accepted
// edit reaches every object and leaves what differs alone. Also the dialog's page marks and
// a check that fails.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "attributes/AttributesDialog.h"
#include "attributes/AttributesWidget.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BrushProperty.h"
#include "core/UnitValueProperty.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleObject.h"
#include "sample/SampleSchema.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
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

// A page over the selected objects: it remembers them as loaded, to undo a preview, and
// writes to each object only the values the user set.
class SelectionPage : public AttributesWidget
{
public:
    SelectionPage(const std::vector<SampleObject::Ptr> &objects, const QList<AttributeKey> &keys)
        : AttributesWidget(nullptr, QString()), mObjects(objects)
    {
        setAttributes(keys);
    }
    void restoreValues() override
    {
        for (size_t i = 0; i < mObjects.size() && i < mLoaded.size(); ++i)
            for (const auto &entry : mLoaded[i])
                mObjects[i]->setAttribute(entry.second);
    }

protected:
    void loadAttributes() override
    {
        mLoaded.clear();
        for (const SampleObject::Ptr &object : mObjects) {
            mLoaded.push_back(object->attributes());
            intersectAttributes(object->attributes());
        }
    }
    void saveAttributes(const std::list<TAutoPtr<const PropertyWidgetItem>> &changed) override
    {
        for (const auto &item : changed) {
            const TAutoPtr<const Attribute> edited(item->propertiesOwner());
            for (const SampleObject::Ptr &object : mObjects)
                object->takeSetValues(*edited, *item->properties());
        }
    }

private:
    std::vector<SampleObject::Ptr> mObjects;
    std::vector<AttributeMap> mLoaded;
};

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

} // namespace

class AttributesDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void threeObjectsPreviewCancelAccept()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
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
