#pragma once

// The attributes palette of the gallery, over the sample objects: the attributes of the
// selected objects merged in two tabs ("Frame": an "Appearance" heading with fill and line;
// "Text": character and paragraph). Where the selected objects differ, or one of them lacks
// the attribute, the rows are undefined; an edit goes to every selected object. Header only,
// so that the sample library itself needs no widgets.
#include "attributes/AttributesTreeWidget.h"
#include "sample/SampleObject.h"

#include <functional>
#include <vector>

namespace Sample {

// The attributes the objects share: per key, the first object's attribute with every value
// the others do not share made undefined. A key some object lacks is left out.
inline TavoLib::AttributeMap mergedAttributes(const std::vector<SampleObject::Ptr> &objects)
{
    using namespace TavoLib;
    AttributeMap result;
    if (objects.empty())
        return result;
    for (const auto &entry : objects.front()->attributes()) {
        PropertyDictionary values;
        entry.second->fillProperties(values);
        bool everywhere = true;
        for (size_t i = 1; i < objects.size() && everywhere; ++i) {
            const auto other = objects[i]->attributes().find(entry.first);
            if (other == objects[i]->attributes().end()) {
                everywhere = false;
                break;
            }
            PropertyDictionary theirs;
            other->second->fillProperties(theirs);
            for (const Property::Ptr &value : values)
                value->intersect(theirs.property(value->uniqueName()));
        }
        if (!everywhere)
            continue;
        TAutoPtr<Attribute> attribute(entry.second->clone());
        attribute->applyProperties(values);
        result.insert(attribute);
    }
    return result;
}

class SamplePalette : public TavoLib::AttributesTreeWidget
{
public:
    using Selection = std::function<std::vector<SampleObject::Ptr>()>;

    explicit SamplePalette(Selection selection)
        : AttributesTreeWidget(nullptr, TAutoPtr<TavoLib::Translator>(new TavoLib::Translator))
        , mSelection(std::move(selection))
    {
        // Tabs once, here; the attributes in createAttributes, which runs again after a clear.
        addTab(tr("Frame"));
        addTab(tr("Text"));
    }

    void selectionChanged() override { setAttributes(mergedAttributes(mSelection())); }

    // Called after each edit has reached the selected objects.
    std::function<void(TAutoPtr<const TavoLib::Attribute>)> onEdit;

protected:
    void createAttributes() override
    {
        using TavoLib::AttributeKey;
        createAttributeGroup(QStringLiteral("appearance"), tr("Appearance"),
            { AttributeKey(QStringLiteral("Fill")), AttributeKey(QStringLiteral("Line")) }, 0);
        createAttribute(AttributeKey(QStringLiteral("Character")), 1);
        createAttribute(AttributeKey(QStringLiteral("Paragraph")), 1);
    }

    void attributeChanged(TAutoPtr<const TavoLib::Attribute> attribute) override
    {
        // Only the values the user set: the undefined ones keep each object's own.
        TavoLib::PropertyDictionary edited;
        attribute->fillProperties(edited);
        for (const SampleObject::Ptr &object : mSelection())
            if (!object->takeSetValues(*attribute, edited))
                object->setAttribute(attribute);
        if (onEdit)
            onEdit(attribute);
        selectionChanged();
    }

private:
    Selection mSelection;
};

} // namespace Sample
