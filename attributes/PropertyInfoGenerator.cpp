#include "attributes/PropertyInfoGenerator.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/PenStyleProperty.h"
#include "core/TavoLibKey.h"

namespace TavoLib {

namespace {

// The name a provider of the environment gives an id, else the id as a number.
template <typename Provider, typename Text>
QString providerText(const Environment *environment, TAutoPtr<Provider> (Environment::*get)() const,
    Text text, int id)
{
    const TAutoPtr<Provider> provider = environment ? (environment->*get)() : TAutoPtr<Provider>();
    return provider ? text(*provider) : QString::number(id);
}

} // namespace

PropertyInfoGenerator::PropertyInfoGenerator(
    TAutoPtr<const Environment> environment, TAutoPtr<const Translator> translator)
    : mEnvironment(environment), mTranslator(translator)
{
}

QString PropertyInfoGenerator::translate(const QString &text) const
{
    return mTranslator ? mTranslator->translate(text) : text;
}

QString PropertyInfoGenerator::generateText(const PropertyDictionary &dictionary, const QString &prefix)
{
    QString text;
    for (const Property::Ptr &property : dictionary)
        text += generateText(property, prefix);
    return text;
}

QString PropertyInfoGenerator::generateText(TAutoPtr<const Property> property, const QString &prefix)
{
    if (!property || property->isUndefined())
        return QString();
    const QString name = translate(property->visibleName());
    const QString deeper = prefix + QLatin1Char('\t');
    // kept on purpose: the value is filled in by a second arg(), so a "%2" in a name takes it.
    const auto line = [&](const QString &value) {
        return prefix + QStringLiteral("%1: %2\n").arg(name).arg(value);
    };
    const auto yesNo = [&](bool yes) {
        return translate(TavoLibKey::tr(QString(), yes ? QStringLiteral("Yes") : QStringLiteral("No")));
    };
    if (TAutoPtr<const BoolProperty> boolean{ property })
        return line(yesNo(boolean->on()));
    if (TAutoPtr<const BrushProperty> brush{ property })
        return line(providerText(mEnvironment.get(), &Environment::brushProvider,
            [&](BrushProvider &provider) { return provider.displayName(brush->brush()); }, brush->brush()));
    if (TAutoPtr<const FontProperty> font{ property })
        return line(providerText(mEnvironment.get(), &Environment::fontProvider,
            [&](FontProvider &provider) { return provider.fontName(font->font()); }, font->font()));
    if (TAutoPtr<const PenStyleProperty> pen{ property })
        return line(providerText(mEnvironment.get(), &Environment::penStyleProvider,
            [&](PenStyleProvider &provider) { return provider.name(pen->penStyle()); }, pen->penStyle()));
    if (TAutoPtr<const LineHeadStyleProperty> head{ property })
        return line(providerText(mEnvironment.get(), &Environment::lineHeadStyleProvider,
            [&](LineHeadStyleProvider &provider) { return provider.name(head->style()); }, head->style()));
    if (TAutoPtr<const ExtendedSelectorProperty> selector{ property }) {
        const TAutoPtr<const Property> current = selector->current();
        // A selector without a current entry has nothing to tell.
        if (!current)
            return QString();
        QString text = line(translate(current->visibleName()));
        if (TAutoPtr<const GroupProperty> group{ current })
            text += generateText(*group, deeper);
        else
            text += generateText(current, deeper);
        return text;
    }
    if (TAutoPtr<const ActivatableGroupProperty> activatable{ property }) {
        QString text = line(yesNo(activatable->isActive()));
        if (activatable->isActive())
            text += generateText(*activatable, deeper);
        return text;
    }
    if (TAutoPtr<const GroupProperty> group{ property })
        return prefix + QStringLiteral("%1\n").arg(name) + generateText(*group, deeper);
    const QString value = property->toString();
    if (value.isEmpty())
        return QString();
    return line(translate(value));
}

} // namespace TavoLib
