#pragma once

// Describes properties as indented plain text, one "Name: value" line each, for tool tips
// and information panes about stylesheets and objects. Groups give a heading line and their
// children one tab deeper; undefined properties, and values without text, give no line.
// Names of brushes, fonts, pen styles and line heads come from the environment's providers.
#include "core/Environment.h"
#include "core/PropertyDictionary.h"
#include "core/Translator.h"
#include "style/TavoLibGuiExport.h"

namespace TavoLib {

class TAVOLIBGUI_EXPORT PropertyInfoGenerator
{
public:
    PropertyInfoGenerator(TAutoPtr<const Environment> environment, TAutoPtr<const Translator> translator);

    // `prefix` goes in front of every line; start with an empty one.
    QString generateText(const PropertyDictionary &dictionary, const QString &prefix);
    QString generateText(TAutoPtr<const Property> property, const QString &prefix);

private:
    QString translate(const QString &text) const;

    TAutoPtr<const Environment> mEnvironment;
    TAutoPtr<const Translator> mTranslator;
};

} // namespace TavoLib
