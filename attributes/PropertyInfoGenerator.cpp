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
    if (TAutoPtr<const BrushProperty> brush{ property }) {
        const TAutoPtr<BrushProvider> provider = mEnvironment ? mEnvironment->brushProvider() : TAutoPtr<BrushProvider>();
        return line(provider ? provider->displayName(brush->brush()) : QString::number(brush->brush()));
    }
    if (TAutoPtr<const FontProperty> font{ property }) {
        const TAutoPtr<FontProvider> provider = mEnvironment ? mEnvironment->fontProvider() : TAutoPtr<FontProvider>();
        return line(provider ? provider->fontName(font->font()) : QString::number(font->font()));
    }
    if (TAutoPtr<const PenStyleProperty> pen{ property }) {
        const TAutoPtr<PenStyleProvider> provider = mEnvironment ? mEnvironment->penStyleProvider() : TAutoPtr<PenStyleProvider>();
        return line(provider ? provider->name(pen->penStyle()) : QString::number(pen->penStyle()));
    }
    if (TAutoPtr<const LineHeadStyleProperty> head{ property }) {
        const TAutoPtr<LineHeadStyleProvider> provider
            = mEnvironment ? mEnvironment->lineHeadStyleProvider() : TAutoPtr<LineHeadStyleProvider>();
        return line(provider ? provider->name(head->style()) : QString::number(head->style()));
    }
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
