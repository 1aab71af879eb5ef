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

    void countsFromFreshToShared()
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
    }

    void assignmentTakesBeforeGivingUp()
    {
        TAutoPtr<Counted> empty;
        TAutoPtr<Counted> alsoEmpty;
        empty = alsoEmpty;
        QVERIFY(!empty);

        TAutoPtr<Counted> p(new Counted);
        TAutoPtr<Counted> &self = p;
        p = self;
        QCOMPARE(p->refCount(), 1);
        QCOMPARE(gDestroyed.load(), 0);
        p = p.get();
        QCOMPARE(p->refCount(), 1);
        QCOMPARE(gDestroyed.load(), 0);

        p = new Counted;
        QCOMPARE(gDestroyed.load(), 1);
        p = nullptr;
        QCOMPARE(gDestroyed.load(), 2);
    }

    void destroysThroughAnyStaticType()
    {
        {
            TAutoPtr<Base> base(new Derived);
            TAutoPtr<Derived const> derived(base);
            QVERIFY(derived);
            QCOMPARE(base->refCount(), 2);
            base = nullptr;
            QCOMPARE(gDestroyed.load(), 0);
        }
        QCOMPARE(gDestroyed.load(), 1);
    }

    void copyOfObjectStartsFresh()
    {
        TAutoPtr<TavoLib::IntegerProperty> held(new TavoLib::IntegerProperty("a", "A", 3));
        TavoLib::IntegerProperty copy(*held);
        QCOMPARE(copy.refCount(), -1);
        QCOMPARE(held->refCount(), 1);
    }

    void checkedConversion()
    {
        TAutoPtr<Base> other(new Other);
        QCOMPARE(other->refCount(), 1);
        {
            TAutoPtr<Derived> wrong(other);
            QVERIFY(!wrong);
            QVERIFY(wrong == nullptr);
        }
        QCOMPARE(other->refCount(), 1);

        TAutoPtr<Base> empty;
        TAutoPtr<Derived> fromEmpty(empty);
        QVERIFY(fromEmpty.isNull());

        // The library's idiom: ask a property for its kind.
        TavoLib::Property::Ptr p(new TavoLib::BoolProperty("b", "B", true));
        QVERIFY(!TavoLib::IntegerProperty::Ptr(p));
        QVERIFY(TavoLib::BoolProperty::Ptr(p)->on());
        // A group is a dictionary of the same object and the same count.
        TavoLib::Property::Ptr group(new TavoLib::GroupProperty("g", TavoLib::PropertyDictionary()));
        TAutoPtr<TavoLib::PropertyDictionary> dict(group);
        QVERIFY(dict);
        QCOMPARE(group->refCount(), 2);
    }

    void constAndOrdering()
    {
        TAutoPtr<Counted> a(new Counted);
        TAutoPtr<Counted const> c = a; // implicit T -> T const
        QVERIFY(c == a);
        QCOMPARE(a->refCount(), 2);
        QVERIFY(!(std::is_convertible<TAutoPtr<Counted const>, TAutoPtr<Counted>>::value));
        QVERIFY(!(std::is_same<TAutoPtr<Counted>, TAutoPtr<Counted const>>::value));

        // Ordered maps key by address: equal contents are still two keys.
        std::map<TavoLib::Property::Ptr, int> byObject;
        TavoLib::Property::Ptr x(new TavoLib::IntegerProperty("n", "N", 1));
        TavoLib::Property::Ptr y(new TavoLib::IntegerProperty("n", "N", 1));
        byObject[x] = 1;
        byObject[y] = 2;
        byObject[x] = 3;
        QCOMPARE(int(byObject.size()), 2);
        QCOMPARE((x < y), (static_cast<const void *>(x.get()) < static_cast<const void *>(y.get())));
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
