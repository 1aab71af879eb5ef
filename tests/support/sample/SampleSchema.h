#pragma once

// The shapes of the sample document: which properties each object type and attribute key
// has, with their ranges, items, presets and defaults. Together they give a property of every
// kind, at several depths.
#include "core/AttributeKey.h"
#include "core/Environment.h"
#include "core/PropertyDictionary.h"
#include "core/StylesheetManager.h"

#include <QList>
#include <QStringList>
#include <vector>

namespace Sample {

namespace SampleSchema {

QStringList objectTypes();
TavoLib::PropertyDictionary objectSchema(const QString &type,
                                         TAutoPtr<TavoLib::StylesheetManager const> stylesheets);
QList<TavoLib::AttributeKey> attributeKeys(const QString &type);
QList<TavoLib::AttributeKey> allAttributeKeys();
TavoLib::PropertyDictionary attributeSchema(const TavoLib::AttributeKey &key);
// The top-level properties of every object type, then of every attribute key, in order.
std::vector<TavoLib::Property::Ptr> allSchemas(TAutoPtr<TavoLib::StylesheetManager const> stylesheets);

// The first property of each kind among allSchemas, children of groups included, in the
// order in which the editor factory tries the kinds.
std::vector<TavoLib::Property::Ptr> oneOfEachKind(
    TAutoPtr<TavoLib::StylesheetManager const> stylesheets);

// The stylesheets of the sample document: several types, display texts and parents.
TAutoPtr<TavoLib::StylesheetManager> makeStylesheets();

// Registers a default attribute for every attribute key of the sample document.
void registerDefaultAttributes(TavoLib::Environment &environment);

} // namespace SampleSchema

} // namespace Sample
