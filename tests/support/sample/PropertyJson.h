#pragma once

// Saves property values as JSON and reads them back into properties of the same shape (as
// fillProperties builds them). Every kind is covered; unknown or mistyped entries in the text
// are skipped, so a damaged file loses only what is damaged.
#include "core/PropertyDictionary.h"
#include "core/StylesheetManager.h"

#include <QJsonArray>
#include <QJsonObject>

namespace Sample {

namespace PropertyJson {

QJsonObject toJson(const TavoLib::Property &property);
QJsonArray toJson(const TavoLib::PropertyDictionary &properties);

// Reads saved values into `properties`, matching entries by uniqueName. Stylesheets are
// looked up in `stylesheets` by type and name.
void read(TavoLib::PropertyDictionary &properties, const QJsonArray &saved,
          TAutoPtr<TavoLib::StylesheetManager const> stylesheets);
void read(TavoLib::Property &property, const QJsonObject &saved,
          TAutoPtr<TavoLib::StylesheetManager const> stylesheets);

} // namespace PropertyJson

} // namespace Sample
