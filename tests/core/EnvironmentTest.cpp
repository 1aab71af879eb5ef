#include "TestEnvironment.h"
#include "TestRegistry.h"

#include "core/BrushProviderQt.h"
#include "core/FontProviderQt.h"
#include "core/LineHeadStyleProviderQt.h"
#include "core/PenStyleProviderQt.h"
#include "core/SystemFontProvider.h"

#include <QTest>

using namespace TavoLib;
using namespace TavoTest;

namespace {
// The smallest attribute: a key and nothing to edit.
class KeyOnlyAttribute : public Attribute
{
public:
    KeyOnlyAttribute(const QString &key, int tag) : mKey(key), mTag(tag) { }
    AttributeKey key() const override { return mKey; }
    TAutoPtr<PropertyableObject> clone() const override { return new KeyOnlyAttribute(*this); }
    void applyProperties(const PropertyDictionary &) override { }
    void fillProperties(PropertyDictionary &) const override { }
    int tag() const { return mTag; }

private:
    AttributeKey mKey;
    int mTag;
};
} // namespace

// The environment hands out Qt forms of its providers and the registered default attributes;
// the test environment is the same on every machine.
class EnvironmentTest : public QObject
{
    Q_OBJECT
private slots:
    void standardProvidersInTheirQtForms()
    {
        TAutoPtr<Environment> env(new Environment);
        QVERIFY(env->stylesheetManager());
        const TAutoPtr<BrushProviderQt const> brushes(env->brushProvider());
        const TAutoPtr<PenStyleProviderQt const> pens(env->penStyleProvider());
        const TAutoPtr<LineHeadStyleProviderQt const> heads(env->lineHeadStyleProvider());
        const TAutoPtr<FontProviderQt const> fonts(env->fontProvider());
        QVERIFY(brushes && pens && heads && fonts);
        QVERIFY(TAutoPtr<SystemFontProvider>(env->fontProvider()));
        // The same provider every time, so pickers see one font set.
        QCOMPARE(env->fontProvider(), env->fontProvider());
        QCOMPARE(env->brushProvider(), env->brushProvider());
    }

    void providersAndManagerCanBeReplaced()
    {
        TAutoPtr<Environment> env(new Environment);
        TAutoPtr<TestPenStyleProvider> pens(new TestPenStyleProvider);
        env->setPenStyleProvider(pens);
        QCOMPARE(env->penStyleProvider(), pens);
        env->setPenStyleProvider(nullptr);
        QVERIFY(env->penStyleProvider());
        QVERIFY(env->penStyleProvider() != pens);

        TAutoPtr<StylesheetManager> manager(new StylesheetManager);
        env->setStylesheetManager(manager);
        QCOMPARE(env->stylesheetManager(), manager);
        env->setStylesheetManager(nullptr);
        QVERIFY(env->stylesheetManager());
        QVERIFY(env->stylesheetManager() != manager);
    }

    void defaultAttributes()
    {
        Environment env;
        QVERIFY(!env.defaultAttribute(AttributeKey("Fill")));
        env.setDefaultAttribute(new KeyOnlyAttribute("Fill", 1));
        env.setDefaultAttribute(new KeyOnlyAttribute("Line", 2));
        env.setDefaultAttribute(TAutoPtr<Attribute const>());
        TAutoPtr<KeyOnlyAttribute const> fill(env.defaultAttribute(AttributeKey("Fill")));
        QVERIFY(fill);
        QCOMPARE(fill->tag(), 1);
        // A second default for a key replaces the first.
        env.setDefaultAttribute(new KeyOnlyAttribute("Fill", 3));
        fill = TAutoPtr<KeyOnlyAttribute const>(env.defaultAttribute(AttributeKey("Fill")));
        QCOMPARE(fill->tag(), 3);
        QCOMPARE(env.defaultAttributeKeys(),
            std::list<AttributeKey>({ AttributeKey("Fill"), AttributeKey("Line") }));
        QVERIFY(env.removeDefaultAttribute(AttributeKey("Line")));
        QVERIFY(!env.removeDefaultAttribute(AttributeKey("Line")));
        QVERIFY(!env.defaultAttribute(AttributeKey()));
    }

    void testEnvironmentStylesheets()
    {
        TAutoPtr<TestEnvironment> env(new TestEnvironment);
        TAutoPtr<StylesheetManager> manager = env->stylesheetManager();
        QCOMPARE(manager->types(), QStringList({ "Paragraph", "Character", "Frame" }));
        QCOMPARE(manager->stylesheetsWithType("Paragraph").size(), size_t(4));
        const TAutoPtr<const Stylesheet> heading2 = manager->stylesheet("Paragraph", "Heading 2");
        QVERIFY(heading2);
        QCOMPARE(heading2->parent()->name(), QString("Heading 1"));
        QCOMPARE(heading2->parent()->displayText(), QString("Heading One"));
        QCOMPARE(heading2->parent()->parent()->name(), QString("Body"));
        QCOMPARE(
            manager->stylesheet("Character", "Strong")->displayText(), QString("Strong Emphasis"));
        QVERIFY(
            TestEnvironment(TestEnvironment::NoStylesheets).stylesheetManager()->types().isEmpty());
    }

    void testFontProviderSections()
    {
        TAutoPtr<TestEnvironment> env(new TestEnvironment);
        TAutoPtr<FontProviderQt const> fonts(env->fontProvider());
        QCOMPARE(fonts->familyName(fonts->defaultFont()), QString("Test Sans"));
        QStringList families;
        for (short id : fonts->fontList(false))
            if (!families.contains(fonts->familyName(id)))
                families << fonts->familyName(id);
        QCOMPARE(families,
            QStringList({ "Gone Sans", "Lost Serif", "Test Classic", "Test Mincho", "Test Naskh",
                "Test Plain", "Test Sans", "Test Serif", "Test Symbols" }));
        QCOMPARE(fonts->baseWritingSystems(10), QList<int>({ QFontDatabase::Latin }));
        QCOMPARE(fonts->baseWritingSystems(40),
            QList<int>({ QFontDatabase::SimplifiedChinese, QFontDatabase::Japanese }));
        QVERIFY(fonts->baseWritingSystems(60).isEmpty());
        QVERIFY(fonts->isSymbolFamily("Test Symbols"));
        QVERIFY(fonts->isMissing(90));
        QCOMPARE(fonts->fontName(90), QString("Gone Sans Bold"));
        QCOMPARE(fonts->fontsOfFamily("Test Sans"), std::list<short>({ 1, 2, 3, 4, 5 }));
        QCOMPARE(fonts->fontType(20), int(FontProvider::Type1));
        QVERIFY(fonts->isEmphasized(10) && !fonts->isEmphasized(1));
        QCOMPARE(fonts->exampleText(30), FontProvider::sampleText(QFontDatabase::Arabic));
        QVERIFY(fonts->qFont(3, -1).bold());

        // Every change to the set shows in the hash.
        const int hash = fonts->hash();
        env->testFontProvider()->addFont(70, "Test Extra", "Regular");
        QVERIFY(fonts->hash() != hash);
    }
};

TAVO_TEST(EnvironmentTest)
#include "EnvironmentTest.moc"
