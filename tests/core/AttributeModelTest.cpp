// Attributes, stylesheets with parents, the stylesheet manager and the small services of the
// model (translator, units preferences, file info).
#include "TestRegistry.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleSchema.h"

#include "core/AttributeDictionary.h"
#include "core/Environment.h"
#include "core/IntegerProperty.h"
#include "core/OmaFileInfo.h"
#include "core/UnitsPreferences.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace TavoLib;

namespace {
const AttributeKey kCharacter(QStringLiteral("Character"));
const AttributeKey kFill(QStringLiteral("Fill"));

Attribute::Ptr characterWithTracking(int tracking)
{
    Attribute::Ptr a(Sample::SampleAttribute::create(kCharacter));
    PropertyDictionary d;
    a->fillProperties(d);
    IntegerProperty::Ptr(d.property("tracking"))->setValue(tracking);
    a->applyProperties(d);
    return a;
}
} // namespace

class AttributeModelTest : public QObject
{
    Q_OBJECT
private slots:
    void mapInsertReplacesAndComparesByValue()
    {
        AttributeMap a, b;
        a.insert(characterWithTracking(5));
        QCOMPARE(int(a.size()), 1);
        a.insert(characterWithTracking(7)); // same key: replaced
        QCOMPARE(int(a.size()), 1);
        b.insert(characterWithTracking(7));
        QVERIFY(a.isEqual(b)); // two objects, equal values
        b.insert(characterWithTracking(8));
        QVERIFY(!a.isEqual(b));
        b.insert(Sample::SampleAttribute::create(kFill));
        QVERIFY(!a.isEqual(b));
        // Nothing is stored for a null attribute.
        QVERIFY(!a.insert(nullptr));
        QCOMPARE(int(a.size()), 1);
        QVERIFY(a.find(AttributeKey()) == a.end());
    }

    void stylesheetInheritsFromParent()
    {
        Stylesheet::Ptr body(new Stylesheet("Paragraph", "Body", "Body text"));
        body->insertAttribute(characterWithTracking(1));
        body->insertAttribute(Sample::SampleAttribute::create(kFill));
        Stylesheet::Ptr heading(new Stylesheet("Paragraph", "Heading", QString(), body));
        heading->insertAttribute(characterWithTracking(2));

        QCOMPARE(int(heading->attributes(false).size()), 1);
        const AttributeMap all = heading->attributes(true);
        QCOMPARE(int(all.size()), 2);
        QVERIFY(all.at(kCharacter)->hasSameValues(*characterWithTracking(2))); // own wins
        QCOMPARE(heading->displayText(), QString("Heading"));
        QVERIFY(!body->setParent(heading)); // no cycles
        QVERIFY(!heading->insertAttribute(nullptr));
        QVERIFY(heading->removeAttribute(kCharacter));
        QVERIFY(!heading->removeAttribute(kCharacter));
        AttributeMap two;
        two.insert(characterWithTracking(3));
        two.insert(Sample::SampleAttribute::create(kFill));
        QCOMPARE(heading->insertAttributes(two), 2);
    }

    void managerByTypeAndName()
    {
        TAutoPtr<StylesheetManager> sheets = Sample::SampleSchema::makeStylesheets();
        QCOMPARE(int(sheets->stylesheetsWithType("Paragraph").size()), 3);
        QVERIFY(sheets->stylesheetsWithType("Nothing").empty());
        QVERIFY(!sheets->stylesheet("Character", "Heading"));
        sheets->addStylesheet(new Stylesheet("Paragraph", "Heading", "Replaced"));
        QCOMPARE(int(sheets->stylesheetsWithType("Paragraph").size()), 3);
        QCOMPARE(sheets->stylesheet("Paragraph", "Heading")->displayText(), QString("Replaced"));
        QVERIFY(sheets->removeStylesheet("Paragraph", "Heading"));
        QVERIFY(!sheets->stylesheet("Paragraph", "Heading"));
    }

    void servicesBehave()
    {
        UnitsPreferences prefs;
        QSignalSpy spy(&prefs, &UnitsPreferences::changed);
        prefs.setLengthUnit(CUnit::Inch);
        prefs.setLengthUnit(CUnit::Inch);
        prefs.setLengthUnit(0x12345678); // unknown code refused
        QCOMPARE(spy.count(), 1);
        QCOMPARE(prefs.lengthUnit(), unsigned(CUnit::Inch));

        QTemporaryDir dir;
        QFile db(dir.filePath("styles.sqlite"));
        QVERIFY(db.open(QIODevice::WriteOnly));
        db.close();
        OmaFileInfo file { QFileInfo(db.fileName()) };
        QVERIFY(file.isFile() && file.isDatabaseSource() && !file.isDir());
        QCOMPARE(file.suffix(), QString("sqlite"));
        QVERIFY(OmaFileInfo(QFileInfo("/")).isRoot());
        QVERIFY(OmaFileInfo(QFileInfo("https://example.invalid/share/a.txt")).isWebDrive());
    }
};

TAVO_TEST(AttributeModelTest)
#include "AttributeModelTest.moc"
