// The property model: canonical text, merging for multiple selections, deep copies,
// dictionaries and lists, and Property::Ptr through queued signals.
#include "TestRegistry.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/CustomColorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/Point.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"

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
    void canonicalTextTellsValuesApart()
    {
        IntegerProperty a("n", "N", 5), b("other", "Other", 5);
        QCOMPARE(a.toString(), b.toString()); // same value, names do not count
        b.setValue(6);
        QVERIFY(a.toString() != b.toString());
        b.setValue(5);
        b.setUndefined(true);
        QVERIFY(a.toString() != b.toString());
        a.setUndefined(true);
        QCOMPARE(a.toString(), b.toString());

        // Quoting keeps strings of different structure apart.
        StringProperty s1("s", "S", "a\";\"b"), s2("s", "S", "a");
        QVERIFY(s1.toString() != s2.toString());
        StringProperty undefinedLooking("s", "S", "U");
        StringProperty undefinedOne("s", "S");
        undefinedOne.setUndefined(true);
        QVERIFY(undefinedLooking.toString() != undefinedOne.toString());

        // A group's text follows every child in order.
        GroupProperty::Ptr g1 = makeGroup(2, "x"), g2 = makeGroup(2, "x");
        QCOMPARE(g1->toString(), g2->toString());
        IntegerProperty::Ptr(g2->property("columns"))->setValue(3);
        QVERIFY(g1->toString() != g2->toString());
        // ... also below an undefined group.
        g1->setUndefined(true);
        g2->setUndefined(true);
        QVERIFY(g1->toString() != g2->toString());
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

    void valueTextsForDisplay()
    {
        UnitValueProperty u("u", "U", UnitValue(25.4, CUnit::MM), CUnit::Inch, 0, 100, 2);
        QCOMPARE(u.valueText(), UnitValue(1.0, CUnit::Inch).strWithUnit(2));
        u.setSpecialValue(0, "Auto");
        u.setValue(UnitValue(0, CUnit::MM));
        QCOMPARE(u.valueText(), QString("Auto"));

        SelectorProperty s("s", "S");
        s.addItem(3, "Three");
        s.addItem(7, "Seven");
        QCOMPARE(s.value(), 3);
        QVERIFY(!s.setValue(5));
        QCOMPARE(s.value(), 3);
        QVERIFY(s.setValue(7));
        QCOMPARE(s.valueText(), QString("Seven"));
        QVERIFY(s.itemIcon(7).isNull());

        UnitValueSelectorProperty us("us", "US");
        us.addItem(1, "Fixed", UnitValue(12, CUnit::PT), 0, 100, 1);
        QCOMPARE(us.itemName(9), QString());
        us.setValue(9); // unknown id ignored
        QCOMPARE(us.value(), 1);
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

        // A renamed entry is still found under its new name.
        d.at(0)->setUniqueName("renamed");
        QVERIFY(d.property("renamed"));
        QVERIFY(!d.property("a"));
        QVERIFY(d.removeProperty("b"));
        QVERIFY(!d.removeProperty("b"));
        QCOMPARE(d.at(1)->uniqueName(), QString("c"));
        QVERIFY(!d.at(5));
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

        StylesheetProperty s("style", "Style", "Paragraph");
        QVERIFY(!s.stylesheet());
        s.setStylesheet(new Stylesheet("Paragraph", "Body"));
        QCOMPARE(s.valueText(), QString("Body"));
        s.unsetStylesheet("Paragraph");
        QVERIFY(!s.stylesheet());
    }

    void undefinedWithoutWayBack()
    {
        IntegerProperty p("p", "P", 1);
        p.setUndefined(true);
        QVERIFY(!p.isUndefinable());
        QVERIFY(p.isUndefined());
        p.setValue(3); // setters do not clear the state
        QVERIFY(p.isUndefined());
        QVERIFY(!p.isDefined());
    }

    void pointSelectors()
    {
        Point p(3.0, 4.0);
        QCOMPARE(p[0], 4.0);
        QCOMPARE(p[1], 3.0);
        p[true] = 7.0;
        QCOMPARE(p.x(), 7.0);
        QCOMPARE(Point(QPoint(1, 2)).y(), 2.0);
        QCOMPARE(Point().x(), 0.0);
    }

    void pointerTravelsThroughQueuedSignals()
    {
        QVERIFY(QMetaType::type("TavoLib::Property::Ptr") != QMetaType::UnknownType);
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
