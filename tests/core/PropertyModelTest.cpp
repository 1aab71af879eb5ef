// The property model: readable canonical text, merging for multiple selections, deep copies,
// dictionaries and lists, and Property::Ptr through queued signals.
#include "TestRegistry.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/Point.h"
#include "core/QtCompat_p.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"

#include <QSet>
#include <QTest>

using namespace TavoLib;

namespace {

GroupProperty::Ptr makeGroup(int columns, const QString &title)
{
    PropertyDictionary d;
    d.insertProperty(new IntegerProperty("columns", "Columns", columns, 1, 20));
    d.insertProperty(new StringProperty("title", "Title", title));
    return new GroupProperty("frame", d);
}

class Emitter : public QObject
{
    Q_OBJECT
public:
    TavoLib::Property::Ptr received;
signals:
    void propertyChanged(TavoLib::Property::Ptr);
public slots:
    void take(TavoLib::Property::Ptr p) { received = p; }
};

} // namespace

class PropertyModelTest : public QObject
{
    Q_OBJECT
private slots:
    // Every kind's text as a user reads it, over values that differ in small ways. No two
    // values of one kind read alike, and a group holding one child of each kind reads
    // differently for every one of them: the group's text is the whole change test.
    void textIsReadableAndTellsValuesApart()
    {
        const auto undefined = [](Property *p) {
            p->setUndefined(true);
            return Property::Ptr(p);
        };
        const auto selector = [](int value) {
            auto *s = new SelectorProperty("sel", "Sel");
            s->addItem(1, "Left");
            s->addItem(2, "Right");
            s->addItem(3, "Right");
            s->setValue(value);
            return s;
        };
        const auto extended = [](const QString &current, int blur) {
            auto *e = new ExtendedSelectorProperty("fx");
            e->insertProperty(new Property("none", "None"));
            e->insertProperty(new IntegerProperty("blur", "Blur", blur));
            e->setCurrent(current);
            return e;
        };
        const auto activatable = [](bool on) {
            PropertyDictionary d;
            d.insertProperty(new IntegerProperty("n", "N", 1));
            return new ActivatableGroupProperty("act", "Act", d, on);
        };
        const auto measure = [](double value, unsigned int unit) {
            auto *u = new UnitValueProperty("m", "M", UnitValue(value, CUnit(unit)), CUnit::MM, -100, 100);
            u->setSpecialValue(0, "Auto");
            return u;
        };
        const auto fontSize = [](bool capHeight) {
            auto *f = new FontSizeProperty("fs", "FS", UnitValue(12, CUnit::PT));
            f->setReferenceSizeType(capHeight ? FontSizeProperty::CapHeight : FontSizeProperty::AscentHeight);
            return f;
        };
        const auto spacing = [](int mode, double exactly) {
            auto *u = new UnitValueSelectorProperty("sp", "Sp");
            u->addItem(1, "Exactly", UnitValue(exactly, CUnit::PT), 0, 100, 1);
            u->addItem(2, "At least", UnitValue(10, CUnit::PT), 0, 100, 1);
            u->setValue(mode);
            return u;
        };
        const auto list = [](int elements, bool undefinedLast) {
            auto *l = new ListProperty("l", "L", Property::Ptr(new StringProperty("e", "E")));
            for (int i = 0; i < elements; ++i)
                l->insertProperty(i);
            if (undefinedLast && elements)
                l->at(elements - 1)->setUndefined(true);
            return l;
        };
        const auto group = [](const QString &text) {
            PropertyDictionary d;
            d.insertProperty(new IntegerProperty("n", "N", 2));
            d.insertProperty(new StringProperty("s", "S", text));
            return new GroupProperty("g", d);
        };
        const auto sheet = [](const QString &name) {
            return new StylesheetProperty("ss", "SS", "Paragraph",
                                          name.isEmpty() ? nullptr : new Stylesheet("Paragraph", name));
        };

        // Per kind: properties of different values, each with the text a user reads.
        const QList<QList<QPair<Property::Ptr, QString>>> kinds{
            { { new IntegerProperty("i", "I", 5), "5" }, { new IntegerProperty("i", "I", -5), "-5" },
              { undefined(new IntegerProperty("i", "I", 5)), QString(QChar(0x2013)) } },
            { { new BoolProperty("b", "B", true), "Yes" }, { new BoolProperty("b", "B", false), "No" },
              { undefined(new BoolProperty("b", "B")), QString(QChar(0x2013)) } },
            { { new StringProperty("s", "S", ""), "" },
              { new StringProperty("s", "S", "a, b"), "a, b" },
              { new StringProperty("s", "S", QString(QChar(0x2013))), QString("\"%1\"").arg(QChar(0x2013)) },
              { new StringProperty("s", "S", "\"x\""), "\"\\\"x\\\"\"" },
              { undefined(new StringProperty("s", "S", "")), QString(QChar(0x2013)) } },
            { { selector(1), "Left" }, { selector(2), "Right #2" }, { selector(3), "Right #3" } },
            { { extended("none", 2), "None, 2" }, { extended("blur", 2), "Blur, 2" },
              { extended("blur", 3), "Blur, 3" }, { extended("", 2), ", 2" } },
            { { activatable(true), "On, 1" }, { activatable(false), "Off, 1" },
              { undefined(activatable(true)), QString(QChar(0x2013)) + "(On, 1)" } },
            { { group("x"), "2, x" }, { group(""), "2, \"\"" }, { group("a, b"), "2, \"a, b\"" },
              { undefined(group("x")), QString(QChar(0x2013)) + "(2, x)" } },
            { { list(0, false), "" }, { list(1, false), "\"\"" }, { list(2, false), "\"\", \"\"" },
              { list(2, true), QString("\"\", %1").arg(QChar(0x2013)) } },
            { { measure(12.5, CUnit::MM), "12.5mm" },
              { measure(0.1 + 0.2, CUnit::PT), "0.30000000000000004pt" },
              { measure(0.3, CUnit::PT), "0.3pt" },
              { measure(25.4, CUnit::MM), "25.4mm" },
              { measure(1, CUnit::Inch), "1\"" },
              { measure(0, CUnit::MM), "Auto" },
              { measure(0, CUnit::PT), "0pt" } },
            { { fontSize(false), "12pt" }, { fontSize(true), "12pt Cap Height" } },
            { { spacing(1, 12), "Exactly 12pt [At least 10pt]" },
              { spacing(1, 12.25), "Exactly 12.25pt [At least 10pt]" },
              { spacing(2, 12), "At least 10pt [Exactly 12pt]" } },
            { { new FontProperty("f", "F", 3), "3" }, { new FontProperty("f", "F", 4), "4" } },
            { { new BrushProperty("br", "Br", 3), "3" }, { new BrushProperty("br", "Br", -100), "-100" } },
            { { new PenStyleProperty("p", "P", 1), "1" }, { new PenStyleProperty("p", "P", 2), "2" } },
            { { new LineHeadStyleProperty("h", "H", 1), "1" }, { new LineHeadStyleProperty("h", "H", 2), "2" } },
            { { new CustomColorProperty("c", "C", 1, 128 / 255.0, 0), "#ff8000" },
              { new CustomColorProperty("c", "C", 1, 0.5, 0), "#ff8000 (1 0.5 0)" } },
            { { sheet(""), "" }, { sheet("Body"), "Body" } },
        };

        QSet<QString> groupTexts;
        int variants = 0;
        for (int k = 0; k < kinds.size(); ++k) {
            QSet<QString> texts;
            for (const auto &variant : kinds[k]) {
                QCOMPARE(variant.first->toString(), variant.second);
                texts.insert(variant.first->toString());
                // The same value once more in a group of every kind's first value, nested
                // one level down.
                PropertyDictionary inner;
                for (int other = 0; other < kinds.size(); ++other)
                    inner.insertProperty(other == k ? variant.first->clone() : kinds[other][0].first->clone());
                PropertyDictionary outer;
                outer.insertProperty(new GroupProperty("inner", inner));
                groupTexts.insert(GroupProperty("outer", outer).toString());
                ++variants;
            }
            QCOMPARE(texts.size(), kinds[k].size());
        }
        // Each kind's first value makes the same group once per kind.
        QCOMPARE(groupTexts.size(), variants - kinds.size() + 1);
    }

    void largeDictionariesFindNamesLikeSmallOnes()
    {
        // Above the size where names are indexed: the same answers as a scan, also after a
        // rename in place, a removal and a replacement.
        PropertyDictionary d;
        for (int i = 0; i < 300; ++i)
            d.insertProperty(new IntegerProperty(QStringLiteral("n%1").arg(i), "N", i));
        QCOMPARE(d.size(), 300);
        QCOMPARE(TAutoPtr<IntegerProperty>(d.property("n250"))->value(), 250);
        d.insertProperty(new IntegerProperty("n10", "N", -10)); // replaces where it stands
        QCOMPARE(d.size(), 300);
        QCOMPARE(TAutoPtr<IntegerProperty>(d.at(10))->value(), -10);
        d.property("n20")->setUniqueName("renamed");
        QVERIFY(!d.property("n20"));
        QCOMPARE(TAutoPtr<IntegerProperty>(d.property("renamed"))->value(), 20);
        d.insertProperty(new IntegerProperty("renamed", "N", 7)); // the renamed entry's place
        QCOMPARE(d.size(), 300);
        QCOMPARE(TAutoPtr<IntegerProperty>(d.at(20))->value(), 7);
        QVERIFY(d.removeProperty("n0"));
        QCOMPARE(TAutoPtr<IntegerProperty>(d.property("n299"))->value(), 299);
        QCOMPARE(d.at(298), d.property("n299"));
        // Two entries of one name after a rename: the first is found, as a scan finds it.
        d.property("n5")->setUniqueName("n6");
        QCOMPARE(d.property("n6"), d.at(4));
        PropertyDictionary copy = d;
        QCOMPARE(copy.property("n150"), d.property("n150"));
        d.clearProperties();
        QVERIFY(!d.property("n150"));
    }

    void intersectMergesChildByChild()
    {
        GroupProperty::Ptr shown = makeGroup(2, "same");
        GroupProperty::Ptr other = makeGroup(3, "same");
        shown->intersect(other);
        QVERIFY(shown->property("columns")->isUndefined());
        QVERIFY(shown->property("title")->isDefined());
        QCOMPARE(StringProperty::Ptr(shown->property("title"))->value(), QString("same"));

        // Another kind, or nothing, makes it undefined.
        IntegerProperty::Ptr n(new IntegerProperty("n", "N", 1));
        n->intersect(Property::Ptr(new BoolProperty("n", "N")));
        QVERIFY(n->isUndefined());
        IntegerProperty::Ptr m(new IntegerProperty("n", "N", 1));
        m->intersect(nullptr);
        QVERIFY(m->isUndefined());

        // Lists: a different length is undefined as a whole; same length merges elements.
        ListProperty::Ptr l1(new ListProperty("l", "L", Property::Ptr(new IntegerProperty("e", "E", 1))));
        ListProperty::Ptr l2(new ListProperty("l", "L", Property::Ptr(new IntegerProperty("e", "E", 1))));
        l1->insertProperty(0);
        l1->insertProperty(1);
        l2->insertProperty(0);
        ListProperty::Ptr l3 = ListProperty::Ptr(l1->clone());
        l1->intersect(l2);
        QVERIFY(l1->isUndefined());
        IntegerProperty::Ptr(l3->at(1))->setValue(7);
        ListProperty::Ptr l4 = ListProperty::Ptr(l3->clone());
        IntegerProperty::Ptr(l4->at(1))->setValue(8);
        l3->intersect(l4);
        QVERIFY(l3->isDefined());
        QVERIFY(l3->at(0)->isDefined());
        QVERIFY(l3->at(1)->isUndefined());

        // Activatable groups and extended selectors compare their own state too.
        ActivatableGroupProperty::Ptr on(new ActivatableGroupProperty("a", "A", PropertyDictionary(), true));
        on->intersect(Property::Ptr(new ActivatableGroupProperty("a", "A", PropertyDictionary(), false)));
        QVERIFY(on->isUndefined());
    }

    void cloneIsDeepAndCopyKeepsIdentity()
    {
        GroupProperty::Ptr original = makeGroup(4, "a");
        GroupProperty::Ptr copy = GroupProperty::Ptr(original->clone());
        QVERIFY(copy);
        QCOMPARE(copy->toString(), original->toString());
        QVERIFY(copy->property("columns") != original->property("columns"));
        IntegerProperty::Ptr(copy->property("columns"))->setValue(9);
        QCOMPARE(IntegerProperty::Ptr(original->property("columns"))->value(), 4);

        Property::Ptr columnsBefore = original->property("columns");
        original->copyValueFrom(*copy);
        QVERIFY(original->property("columns") == columnsBefore);
        QCOMPARE(original->toString(), copy->toString());
        QCOMPARE(original->uniqueName(), QString("frame"));

        // Every kind clones to its own kind with an equal text.
        UnitValueProperty::Ptr u(new UnitValueProperty("u", "U", UnitValue(10, CUnit::MM), CUnit::PT, 0, 100));
        FontSizeProperty::Ptr f(new FontSizeProperty("f", "F", UnitValue(12, CUnit::PT)));
        f->setReferenceSizeType(FontSizeProperty::CapHeight);
        CustomColorProperty::Ptr c(new CustomColorProperty("c", "C", 2.0, -1.0, 0.5));
        const QList<Property::Ptr> all{ u, f, c };
        for (const Property::Ptr &p : all) {
            Property::Ptr q = p->clone();
            QCOMPARE(QString(q->kindName()), QString(p->kindName()));
            QCOMPARE(q->toString(), p->toString());
        }
        QVERIFY(FontSizeProperty::Ptr(Property::Ptr(f->clone())));
        QCOMPARE(c->red(), 1.0); // clamped
        QCOMPARE(c->green(), 0.0);
    }

    void dictionaryOrderLookupAndReplace()
    {
        PropertyDictionary d;
        d.insertProperty(new IntegerProperty("a", "A", 1));
        d.insertProperty(new IntegerProperty("b", "B", 2));
        d.insertProperty(new IntegerProperty("c", "C", 3));
        d.insertProperty(nullptr);
        d.insertProperty(new IntegerProperty("b", "B", 20)); // replaces in place
        QCOMPARE(d.size(), 3);
        QStringList order;
        for (const Property::Ptr &p : d)
            order << p->uniqueName();
        QCOMPARE(order, QStringList({ "a", "b", "c" }));
        QCOMPARE(IntegerProperty::Ptr(d.property("b"))->value(), 20);
        QVERIFY(!d.property("missing"));

        // A renamed entry is found, and replaced, under its new name.
        d.at(0)->setUniqueName("renamed");
        QVERIFY(!d.property("a"));
        d.insertProperty(new IntegerProperty("renamed", "R", 9));
        QCOMPARE(d.size(), 3);
        QCOMPARE(IntegerProperty::Ptr(d.property("renamed"))->value(), 9);
        QVERIFY(d.removeProperty("b"));
        QVERIFY(!d.removeProperty("b"));
        QCOMPARE(d.at(1)->uniqueName(), QString("c"));
        QVERIFY(!d.at(5));

        // A group never goes into itself or below itself, also through a list element.
        GroupProperty::Ptr outer = makeGroup(1, "o");
        GroupProperty::Ptr inner = makeGroup(2, "i");
        outer->insertProperty(inner);
        inner->insertProperty(outer);
        outer->insertProperty(outer);
        QCOMPARE(inner->size(), 2);
        QCOMPARE(outer->size(), 3);
        ListProperty::Ptr list(new ListProperty("l", "L", Property::Ptr(makeGroup(1, ""))));
        outer->insertProperty(list);
        GroupProperty::Ptr(list->insertProperty(0))->insertProperty(outer);
        QCOMPARE(GroupProperty::Ptr(list->at(0))->size(), 2);
        QVERIFY(!outer->toString().isEmpty()); // terminates
    }

    void listInsertRemoveAndBounds()
    {
        PropertyDictionary cols;
        cols.insertProperty(new IntegerProperty("x", "X", 0));
        cols.insertProperty(new IntegerProperty("y", "Y", 0));
        ListProperty list("points", "Points", Property::Ptr(new GroupProperty("pt", cols)), 1, 3);
        QVERIFY(GroupProperty::Ptr(Property::Ptr(list.masterProperty()->clone())));
        Property::Ptr first = list.insertProperty(0);
        Property::Ptr front = list.insertProperty(-5); // clamped to the front
        Property::Ptr back = list.insertProperty(99);  // clamped to the back
        QVERIFY(first && front && back);
        QVERIFY(!list.insertProperty(0)); // at the maximum
        QCOMPARE(list.index(front), 0);
        QCOMPARE(list.index(first), 1);
        QCOMPARE(list.index(back), 2);
        QCOMPARE(list.index(Property::Ptr(new IntegerProperty("x", "X"))), -1);
        QVERIFY(!list.removeProperty(3));
        QVERIFY(list.removeProperty(0) == front);
        QVERIFY(list.removeProperty(0) == first);
        QVERIFY(!list.removeProperty(0)); // at the minimum
        QCOMPARE(list.size(), 1);
        ListProperty noPattern("l", "L", nullptr);
        QVERIFY(!noPattern.insertProperty(0));
    }

    void extendedSelectorAndStylesheet()
    {
        ExtendedSelectorProperty::Ptr e(new ExtendedSelectorProperty("effect"));
        QVERIFY(!e->current());
        e->insertProperty(new Property("none", "None"));
        e->insertProperty(new IntegerProperty("blur", "Blur", 2));
        e->setCurrent("blur");
        QCOMPARE(e->current()->uniqueName(), QString("blur"));
        e->setCurrent("unknown");
        QVERIFY(!e->current());

        StylesheetProperty s("style", "Style", "Paragraph", new Stylesheet("Paragraph", "Body"));
        s.unsetStylesheet("Paragraph");
        QVERIFY(!s.stylesheet());
    }

    void pointerTravelsThroughQueuedSignals()
    {
        QVERIFY(QtCompat::metaTypeRegistered("TavoLib::Property::Ptr"));
        Emitter emitter, receiver;
        // String-based, queued: the written signature must resolve and the value must be
        // copied into the event.
        QVERIFY(QObject::connect(&emitter, SIGNAL(propertyChanged(TavoLib::Property::Ptr)), &receiver,
                                 SLOT(take(TavoLib::Property::Ptr)), Qt::QueuedConnection));
        Property::Ptr sent(new IntegerProperty("n", "N", 4));
        emit emitter.propertyChanged(sent);
        sent = nullptr; // the queued copy keeps the property alive
        QVERIFY(!receiver.received);
        QTRY_VERIFY(receiver.received);
        QCOMPARE(IntegerProperty::Ptr(receiver.received)->value(), 4);
        QCOMPARE(receiver.received->refCount(), 1);
    }
};

TAVO_TEST(PropertyModelTest)
#include "PropertyModelTest.moc"
