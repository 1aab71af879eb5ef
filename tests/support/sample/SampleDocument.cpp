#include "SampleDocument.h"

#include "PropertyJson.h"
#include "SampleAttribute.h"
#include "SampleSchema.h"

#include "core/ListProperty.h"
#include "core/StringProperty.h"

#include <QJsonDocument>

using namespace TavoLib;

namespace Sample {

namespace {
const char kFormat[] = "tavo-sample-document";
}

SampleDocument::SampleDocument() : mStylesheets(SampleSchema::makeStylesheets()) {}

SampleDocument::Ptr SampleDocument::makeDefault()
{
    Ptr doc(new SampleDocument);
    doc->addObject(SampleObject::create(QStringLiteral("TextFrame"), QStringLiteral("Headline frame"),
                                        doc->mStylesheets));
    doc->addObject(SampleObject::create(QStringLiteral("Line"), QStringLiteral("Rule under headline"),
                                        doc->mStylesheets));
    SampleObject::Ptr picture = SampleObject::create(QStringLiteral("PictureBox"), QStringLiteral("Harbour photo"),
                                                     doc->mStylesheets);
    // A clipping path of three points, so the list has elements.
    if (ListProperty::Ptr path = ListProperty::Ptr(picture->value(QStringLiteral("clipPath")))) {
        for (int i = 0; i < 3; ++i)
            path->insertProperty(i);
    }
    doc->addObject(picture);
    return doc;
}

void SampleDocument::addObject(SampleObject::Ptr object)
{
    if (object)
        mObjects.push_back(object);
}

QByteArray SampleDocument::save() const
{
    QJsonArray objects;
    for (const SampleObject::Ptr &object : mObjects) {
        PropertyDictionary values;
        object->fillProperties(values);
        QJsonArray attributes;
        for (const auto &entry : object->attributes()) {
            PropertyDictionary attributeValues;
            entry.second->fillProperties(attributeValues);
            attributes.append(QJsonObject{ { QStringLiteral("key"), entry.first.name() },
                                           { QStringLiteral("properties"), PropertyJson::toJson(attributeValues) } });
        }
        objects.append(QJsonObject{ { QStringLiteral("type"), object->typeName() },
                                    { QStringLiteral("name"), object->name() },
                                    { QStringLiteral("properties"), PropertyJson::toJson(values) },
                                    { QStringLiteral("attributes"), attributes } });
    }
    const QJsonObject root{ { QStringLiteral("format"), QLatin1String(kFormat) },
                            { QStringLiteral("version"), 1 },
                            { QStringLiteral("objects"), objects } };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

SampleDocument::Ptr SampleDocument::load(const QByteArray &json, QString *error)
{
    QJsonParseError parseError;
    const QJsonDocument parsed = QJsonDocument::fromJson(json, &parseError);
    const QJsonObject root = parsed.object();
    if (parseError.error != QJsonParseError::NoError || root.value(QStringLiteral("format")).toString() != QLatin1String(kFormat)) {
        if (error)
            *error = parseError.error != QJsonParseError::NoError ? parseError.errorString()
                                                                  : QStringLiteral("not a sample document");
        return Ptr();
    }
    Ptr doc(new SampleDocument);
    for (const QJsonValue &entry : root.value(QStringLiteral("objects")).toArray()) {
        const QJsonObject o = entry.toObject();
        SampleObject::Ptr object = SampleObject::create(o.value(QStringLiteral("type")).toString(),
                                                        o.value(QStringLiteral("name")).toString(), doc->mStylesheets);
        if (!object)
            continue;
        PropertyDictionary values;
        object->fillProperties(values);
        PropertyJson::read(values, o.value(QStringLiteral("properties")).toArray(), doc->mStylesheets);
        object->applyProperties(values);
        for (const QJsonValue &a : o.value(QStringLiteral("attributes")).toArray()) {
            const QJsonObject ao = a.toObject();
            SampleAttribute::Ptr attribute = SampleAttribute::create(AttributeKey(ao.value(QStringLiteral("key")).toString()));
            if (!attribute)
                continue;
            PropertyDictionary attributeValues;
            attribute->fillProperties(attributeValues);
            PropertyJson::read(attributeValues, ao.value(QStringLiteral("properties")).toArray(), doc->mStylesheets);
            attribute->applyProperties(attributeValues);
            object->setAttribute(attribute);
        }
        doc->addObject(object);
    }
    return doc;
}

} // namespace Sample
