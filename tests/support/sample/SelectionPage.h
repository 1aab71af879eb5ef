#pragma once

// The sample host's attributes page over the selected objects, shared by the gallery and the
// tests: it remembers the objects' attributes as loaded, to undo a preview, and writes to each
// object only the values the user set. Header-only, as the sample library does not link the
// widgets.
#include "SampleObject.h"

#include "attributes/AttributesWidget.h"

#include <vector>

namespace Sample {

class SelectionPage : public TavoLib::AttributesWidget
{
public:
    SelectionPage(const std::vector<SampleObject::Ptr> &objects,
        const QList<TavoLib::AttributeKey> &keys,
        TAutoPtr<TavoLib::Environment> environment = TAutoPtr<TavoLib::Environment>())
        : TavoLib::AttributesWidget(nullptr, QString()), mObjects(objects)
    {
        if (environment)
            setEnvironment(environment);
        setAttributes(keys);
    }

    // Puts back this page's attributes only: the dialog saves its pages in turn, each
    // restoring first, so touching another page's keys would undo that page's edit.
    void restoreValues() override
    {
        for (size_t i = 0; i < mObjects.size() && i < mLoaded.size(); ++i)
            for (const TavoLib::AttributeKey &key : attributeKeys()) {
                const auto loaded = mLoaded[i].find(key);
                if (loaded != mLoaded[i].end())
                    mObjects[i]->setAttribute(loaded->second);
            }
    }

protected:
    void loadAttributes() override
    {
        mLoaded.clear();
        for (const SampleObject::Ptr &object : mObjects) {
            mLoaded.push_back(object->attributes());
            intersectAttributes(object->attributes());
        }
    }
    void saveAttributes(const std::list<TAutoPtr<const TavoLib::PropertyWidgetItem>> &changed) override
    {
        for (const auto &item : changed) {
            const TAutoPtr<const TavoLib::Attribute> edited(item->propertiesOwner());
            if (!edited || !item->properties())
                continue;
            for (const SampleObject::Ptr &object : mObjects)
                object->takeSetValues(*edited, *item->properties());
        }
    }

private:
    std::vector<SampleObject::Ptr> mObjects;
    std::vector<TavoLib::AttributeMap> mLoaded;
};

} // namespace Sample
