#include "TestPenStyleProvider.h"
#include "TestRegistry.h"

#include "core/Environment.h"
#include "core/PenStyleProviderQt.h"

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

// The environment hands out Qt forms of its providers and the registered default attributes.
class EnvironmentTest : public QObject
{
    Q_OBJECT
private slots:
    void providersAndManagerCanBeReplaced()
    {
        TAutoPtr<Environment> env(new Environment);
        TAutoPtr<TestPenStyleProvider> pens(new TestPenStyleProvider);
        env->setPenStyleProvider(pens);
        QCOMPARE(env->penStyleProvider(), pens);
        env->setPenStyleProvider(nullptr);
        QVERIFY(env->penStyleProvider());
        QVERIFY(env->penStyleProvider() != pens);
        // The same font provider every time, so pickers see one font set.
        QCOMPARE(env->fontProvider(), env->fontProvider());

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
};

TAVO_TEST(EnvironmentTest)
#include "EnvironmentTest.moc"
