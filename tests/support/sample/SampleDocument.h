#pragma once

// A small page-layout document for tests and the gallery: a few objects with attributes,
// over the sample stylesheets, saved as and loaded from JSON.
#include "SampleObject.h"

#include <QByteArray>
#include <vector>

namespace Sample {

class SampleDocument : public MAutoObj
{
public:
    using Ptr = TAutoPtr<SampleDocument>;

    SampleDocument();

    // A document with one object of each type, some values changed from the defaults.
    static Ptr makeDefault();
    // Null, with a message in `error`, when the text is no sample document. Objects of
    // unknown type and damaged entries are skipped.
    static Ptr load(const QByteArray &json, QString *error = nullptr);
    QByteArray save() const;

    const std::vector<SampleObject::Ptr> &objects() const { return mObjects; }
    void addObject(SampleObject::Ptr object);
    TAutoPtr<TavoLib::StylesheetManager> stylesheets() const { return mStylesheets; }

private:
    std::vector<SampleObject::Ptr> mObjects;
    TAutoPtr<TavoLib::StylesheetManager> mStylesheets;
};

} // namespace Sample
