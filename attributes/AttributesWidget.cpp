#include "attributes/AttributesWidget.h"

#include "core/ActivatableGroupProperty.h"
#include "core/GroupProperty.h"
#include "core/Translator.h"

namespace TavoLib {

namespace {

// An editor shows a value as undefined (an empty field, a blank entry) only when the value
// may be undefined; a value the objects differ in must show so, not as the first entry.
void allowUndefined(const PropertyDictionary &dictionary)
{
    for (const Property::Ptr &property : dictionary) {
        if (property->isUndefined())
            property->setUndefinable(true);
        if (TAutoPtr<GroupProperty> group{ property })
            allowUndefined(*group);
    }
}

} // namespace

AttributesWidgetCommon::AttributesWidgetCommon() = default;
AttributesWidgetCommon::AttributesWidgetCommon(const AttributesWidgetCommon &other) = default;
AttributesWidgetCommon &AttributesWidgetCommon::operator=(const AttributesWidgetCommon &other) = default;
AttributesWidgetCommon::~AttributesWidgetCommon() = default;

void AttributesWidgetCommon::setEnvironment(TAutoPtr<Environment> environment)
{
    mEnvironment = environment;
}

void AttributesWidgetCommon::setAttributes(const QList<AttributeKey> &keys)
{
    mAttributeKeys = keys;
}

AttributesWidget::AttributesWidget(QWidget *parent, const QString &title)
    : PropertyWidget(parent, title)
{
}

AttributesWidget::~AttributesWidget() = default;

TAutoPtr<PropertyDictionary> AttributesWidget::addAttribute(TAutoPtr<const Attribute> attribute)
{
    mAttributes.insert(attribute);
    TAutoPtr<PropertyDictionary> dictionary(new PropertyDictionary);
    attribute->fillProperties(*dictionary);
    mDictionaries[attribute] = dictionary;
    mKeyToAttribute[attribute->key()] = attribute;
    return dictionary;
}

void AttributesWidget::intersectAttributes(const AttributeMap &objectAttributes)
{
    // kept on purpose: only keys of the incoming map are touched, so an attribute a later
    // object lacks stays as the earlier objects gave it (shown as if all had it).
    for (const auto &entry : objectAttributes) {
        const TAutoPtr<const Attribute> &attribute = entry.second;
        if (!attribute)
            continue;
        const auto shown = mAttributes.find(entry.first);
        if (shown == mAttributes.end()) {
            // The first object with this attribute gives its values.
            addAttribute(attribute);
            continue;
        }
        const auto stored = mDictionaries.find(shown->second);
        if (stored == mDictionaries.end() || !stored->second)
            continue;
        PropertyDictionary incoming;
        attribute->fillProperties(incoming);
        // In step, by position: what the incoming object lacks is undefined.
        int i = 0;
        for (const Property::Ptr &property : *stored->second) {
            const Property::Ptr counterpart = incoming.at(i++);
            if (counterpart)
                property->intersect(counterpart);
            else
                property->setUndefined(true);
        }
    }
}

void AttributesWidget::createProperties()
{
    for (const AttributeKey &key : qAsConst(mAttributeKeys)) {
        TAutoPtr<const Attribute> attribute = mKeyToAttribute[key];
        auto entry = attribute ? mDictionaries.find(attribute) : mDictionaries.end();
        if (entry == mDictionaries.end()) {
            // No selected object has it: its default, all undefined. An environment that
            // has no default for the key shows no rows for it.
            attribute = mEnvironment ? mEnvironment->defaultAttribute(key) : TAutoPtr<const Attribute>();
            if (!attribute)
                continue;
            const TAutoPtr<PropertyDictionary> dictionary = addAttribute(attribute);
            for (const Property::Ptr &property : *dictionary)
                property->setUndefined(true);
            entry = mDictionaries.find(attribute);
        }
        allowUndefined(*entry->second);
        insertPropertyableObjectWithProperties(attribute, *entry->second, nullptr);
    }
}

void AttributesWidget::loadValues()
{
    mDictionaries.clear();
    mAttributes.clear();
    mOriginalAttributes.clear();
    mKeyToAttribute.clear();
    clearProperties();
    loadAttributes();
    createProperties();
}

bool AttributesWidget::checkValues()
{
    return true;
}

void AttributesWidget::saveValues()
{
    restoreValues();
    saveAttributes(changedItems());
}

void AttributesWidget::restoreValues()
{
}

void AttributesWidget::saveAttributes(const std::list<TAutoPtr<const PropertyWidgetItem>> &)
{
}

AttributesWidgetCommon::AttributesState AttributesWidget::attributesState()
{
    const std::list<TAutoPtr<const PropertyWidgetItem>> shown = items();
    if (shown.size() != 1 || !shown.front()->properties() || shown.front()->properties()->size() != 1)
        return NotActive;
    const TAutoPtr<const ActivatableGroupProperty> group(shown.front()->properties()->at(0));
    if (!group)
        return NotActive;
    if (group->isDefined() && group->isActive())
        return Active;
    return group->isUndefined() ? Undefined : NotActive;
}

void AttributesWidget::setEnvironment(TAutoPtr<Environment> environment)
{
    AttributesWidgetCommon::setEnvironment(environment);
    if (environment)
        setProviders(*environment);
    setTranslator(Translator::defaultTranslator());
}

} // namespace TavoLib
