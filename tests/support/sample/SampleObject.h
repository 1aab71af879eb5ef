#pragma once

// An object of the sample document: a text frame, a line or a picture box. It keeps its
// values as a dictionary of properties built from its type's schema (SampleSchema):
// fillProperties hands out a deep copy, applyProperties takes values back by uniqueName and
// keeps the schema's ranges and items. So every kind of property appears with little code,
// and tests can check that no value is lost on the way.
#include "core/AttributeMap.h"
#include "core/PropertyableObject.h"
#include "core/StylesheetManager.h"

#include <QString>

namespace Sample {

class SampleObject : public TavoLib::PropertyableObject
{
public:
    using Ptr = TAutoPtr<SampleObject>;

    // An object of `type` ("TextFrame", "Line", "PictureBox") with its schema's defaults and
    // a default attribute for each of the type's attribute keys. Null for an unknown type.
    static Ptr create(const QString &type, const QString &name,
                      TAutoPtr<TavoLib::StylesheetManager const> stylesheets = nullptr);

    QString typeName() const { return mType; }
    QString name() const { return mName; }
    void setName(const QString &name) { mName = name; }

    // The attributes applied to the object, by key.
    const TavoLib::AttributeMap &attributes() const { return mAttributes; }
    void setAttribute(TAutoPtr<TavoLib::Attribute const> attribute);
    // Takes the values an edit of several objects set (the defined ones, at every depth) into
    // this object's own attribute of that key; what is undefined, a child of a group included,
    // keeps this object's value. False when the object has no attribute of that key.
    bool takeSetValues(const TavoLib::Attribute &edited, const TavoLib::PropertyDictionary &values);

    TAutoPtr<TavoLib::PropertyableObject> clone() const override;
    void fillProperties(TavoLib::PropertyDictionary &properties) const override;
    void applyProperties(const TavoLib::PropertyDictionary &properties) override;

    // The live value of one property, for tests and the gallery; null when absent.
    TavoLib::Property::Ptr value(const QString &uniqueName) const;

private:
    SampleObject(const QString &type, const QString &name, const TavoLib::PropertyDictionary &schema);
    SampleObject(const SampleObject &other);

    QString mType;
    QString mName;
    TavoLib::PropertyDictionary mValues;
    TavoLib::AttributeMap mAttributes;
};

// Copies values by uniqueName from `source` into `target`; entries of another kind or
// unknown names are skipped.
void applyByName(TavoLib::PropertyDictionary &target, const TavoLib::PropertyDictionary &source);

} // namespace Sample
