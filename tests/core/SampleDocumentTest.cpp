// The sample document that tests and the gallery build on: save, load, save gives the same
// bytes, and damaged input loads what it can.
#include "TestRegistry.h"
#include "sample/SampleDocument.h"
#include "sample/SampleSchema.h"

#include "core/ActivatableGroupProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueSelectorProperty.h"

#include <QTest>

using namespace TavoLib;
using namespace Sample;

namespace {

QString textOf(const SampleDocument &doc)
{
    QString text;
    for (const SampleObject::Ptr &o : doc.objects()) {
        PropertyDictionary d;
        o->fillProperties(d);
        text += o->typeName() + o->name();
        for (const Property::Ptr &p : d)
            text += p->uniqueName() + p->toString();
        for (const auto &a : o->attributes()) {
            PropertyDictionary ad;
            a.second->fillProperties(ad);
            for (const Property::Ptr &p : ad)
                text += p->uniqueName() + p->toString();
        }
    }
    return text;
}

} // namespace

class SampleDocumentTest : public QObject
{
    Q_OBJECT
private slots:
    void saveLoadSaveGivesSameBytes()
    {
        SampleDocument::Ptr doc = SampleDocument::makeDefault();
        // Change values of several kinds, at several depths.
        SampleObject::Ptr frame = doc->objects()[0];
        PropertyDictionary d;
        frame->fillProperties(d);
        StringProperty::Ptr(d.property("text"))->setValue(QString::fromUtf8("Grüße \"quoted\"\nline 2"));
        ActivatableGroupProperty::Ptr corners(d.property("roundCorners"));
        corners->setActive(true);
        d.property("columns")->setUndefined(true);
        StylesheetProperty::Ptr(d.property("paragraphStyle"))
            ->setStylesheet(doc->stylesheets()->stylesheet("Paragraph", "Heading"));
        frame->applyProperties(d);

        SampleObject::Ptr picture = doc->objects()[2];
        PropertyDictionary pd;
        picture->fillProperties(pd);
        ExtendedSelectorProperty::Ptr(pd.property("effect"))->setCurrent("glow");
        UnitValueSelectorProperty::Ptr scaling(pd.property("scaling"));
        scaling->setValue(1);
        scaling->setItemValue(0, UnitValue(1.0 / 3.0, CUnit::Percent));
        ListProperty::Ptr(pd.property("clipPath"))->removeProperty(1);
        picture->applyProperties(pd);

        const QByteArray first = doc->save();
        QString error;
        SampleDocument::Ptr loaded = SampleDocument::load(first, &error);
        QVERIFY2(loaded, qPrintable(error));
        QCOMPARE(loaded->objects().size(), doc->objects().size());
        QCOMPARE(textOf(*loaded), textOf(*doc));
        QCOMPARE(loaded->save(), first);
    }

    void damagedInputIsSafe()
    {
        QString error;
        QVERIFY(!SampleDocument::load("{not json", &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!SampleDocument::load("{\"format\":\"other\"}", &error));
        // Wrong kinds and types are skipped; the rest loads.
        const QByteArray text = R"({"format":"tavo-sample-document","objects":[
            {"type":"Line","name":"l","properties":[
                {"name":"width","kind":"Integer","value":5},
                {"name":"penStyle","kind":"PenStyle","value":99999},
                {"name":"color","kind":"CustomColor","value":"red"}]},
            {"type":"Spaceship","name":"s"},
            {"type":"PictureBox","name":"p","properties":[
                {"name":"clipPath","kind":"List","value":[{},{},{}]}]}]})";
        SampleDocument::Ptr doc = SampleDocument::load(text, &error);
        QVERIFY(doc);
        QCOMPARE(int(doc->objects().size()), 2);
        QCOMPARE(ListProperty::Ptr(doc->objects()[1]->value("clipPath"))->size(), 3);
    }
};

TAVO_TEST(SampleDocumentTest)
#include "SampleDocumentTest.moc"
