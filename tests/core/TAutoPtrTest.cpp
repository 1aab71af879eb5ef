// The counting rules of the intrusive pointer, its conversions, and sharing across threads.
#include "TestRegistry.h"
#include "core/BoolProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"

#include <QTest>
#include <atomic>
#include <map>
#include <thread>

namespace {

std::atomic<int> gDestroyed{ 0 };

class Counted : public MAutoObj
{
public:
    ~Counted() override { ++gDestroyed; }
};

class Base : public MAutoObj
{
public:
    ~Base() override { ++gDestroyed; }
};

class Derived : public Base
{
};

class Other : public Base
{
};

} // namespace

class TAutoPtrTest : public QObject
{
    Q_OBJECT
private slots:
    void init() { gDestroyed = 0; }

    void countsAndAssignment()
    {
        auto *object = new Counted;
        QCOMPARE(object->refCount(), -1);
        {
            TAutoPtr<Counted> first(object);
            QCOMPARE(object->refCount(), 1);
            TAutoPtr<Counted> second = first;
            QCOMPARE(object->refCount(), 2);
        }
        QCOMPARE(gDestroyed.load(), 1);

        // Assignment to itself, also through the plain pointer, takes before it gives up.
        TAutoPtr<Counted> p(new Counted);
        TAutoPtr<Counted> &self = p;
        p = self;
        p = p.get();
        QCOMPARE(p->refCount(), 1);
        QCOMPARE(gDestroyed.load(), 1);
        p = new Counted;
        QCOMPARE(gDestroyed.load(), 2);

        // A copy of a held object starts fresh.
        TAutoPtr<TavoLib::IntegerProperty> held(new TavoLib::IntegerProperty("a", "A", 3));
        TavoLib::IntegerProperty copy(*held);
        QCOMPARE(copy.refCount(), -1);
        QCOMPARE(held->refCount(), 1);
    }

    void checkedConversion()
    {
        {
            TAutoPtr<Base> base(new Derived);
            TAutoPtr<Derived const> derived(base);
            QVERIFY(derived);
            base = nullptr;
            QCOMPARE(gDestroyed.load(), 0);
        }
        QCOMPARE(gDestroyed.load(), 1); // through the other static type

        TAutoPtr<Base> other(new Other);
        {
            TAutoPtr<Derived> wrong(other);
            QVERIFY(!wrong);
        }
        QCOMPARE(other->refCount(), 1);
        QVERIFY(TAutoPtr<Derived>(TAutoPtr<Base>()).isNull());

        // The library's idiom: ask a property for its kind.
        TavoLib::Property::Ptr p(new TavoLib::BoolProperty("b", "B", true));
        QVERIFY(!TavoLib::IntegerProperty::Ptr(p));
        QVERIFY(TavoLib::BoolProperty::Ptr(p)->on());
    }

    void comparisonAcrossKinds()
    {
        TAutoPtr<Counted> a(new Counted);
        TAutoPtr<Counted const> c = a; // implicit T -> T const
        QVERIFY(c == a);
        QVERIFY(!(std::is_convertible<TAutoPtr<Counted const>, TAutoPtr<Counted>>::value));

        // A group seen as a property and as a dictionary is one object with one count, and
        // compares equal both ways, also through the base that neither names.
        TavoLib::Property::Ptr group(new TavoLib::GroupProperty("g", TavoLib::PropertyDictionary()));
        TAutoPtr<TavoLib::PropertyDictionary> dict(group);
        TAutoPtr<TavoLib::GroupProperty const> asGroup(group);
        QCOMPARE(group->refCount(), 3);
        QVERIFY(group == dict && dict == group && asGroup == dict && asGroup == group);
        QVERIFY(!(group < dict) && !(dict < group));
        TavoLib::Property::Ptr another(new TavoLib::GroupProperty("g", TavoLib::PropertyDictionary()));
        QVERIFY(another != dict);
        QVERIFY((another < dict) != (dict < another));

        // Ordered maps key by address: equal contents are still two keys.
        std::map<TavoLib::Property::Ptr, int> byObject;
        TavoLib::Property::Ptr x(new TavoLib::IntegerProperty("n", "N", 1));
        TavoLib::Property::Ptr y(new TavoLib::IntegerProperty("n", "N", 1));
        byObject[x] = 1;
        byObject[y] = 2;
        byObject[x] = 3;
        QCOMPARE(int(byObject.size()), 2);
    }

    void twoThreadsShareOneObject()
    {
        TAutoPtr<Counted> shared(new Counted);
        auto work = [&shared] {
            for (int i = 0; i < 200000; ++i) {
                TAutoPtr<Counted> copy = shared;
                TAutoPtr<Counted> another(copy);
                copy = nullptr;
            }
        };
        std::thread t1(work);
        std::thread t2(work);
        t1.join();
        t2.join();
        QCOMPARE(shared->refCount(), 1);
        QCOMPARE(gDestroyed.load(), 0);
        shared = nullptr;
        QCOMPARE(gDestroyed.load(), 1);
    }

    void firstShareRaceCountsBoth()
    {
        // Two threads take the very first share at once: both shares must count.
        for (int round = 0; round < 200; ++round) {
            gDestroyed = 0;
            auto *object = new Counted;
            TAutoPtr<Counted> a, b;
            std::atomic<bool> go{ false };
            std::thread t1([&] { while (!go) {} a = object; });
            std::thread t2([&] { while (!go) {} b = object; });
            go = true;
            t1.join();
            t2.join();
            QCOMPARE(object->refCount(), 2);
            a = nullptr;
            b = nullptr;
            QCOMPARE(gDestroyed.load(), 1);
        }
    }
};

TAVO_TEST(TAutoPtrTest)
#include "TAutoPtrTest.moc"
