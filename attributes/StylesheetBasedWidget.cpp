#include "attributes/StylesheetBasedWidget.h"

#include "attributes/StylesheetBasedWidgetGroupWidget.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/TavoLibKey.h"
#include "core/Translator.h"

namespace TavoLib {

namespace {

// The name of the one entry of the selector a plain group is offered as.
QString wrapperName()
{
    // The text is "Yes" in the context "Stylesheets".
    return TavoLibKey::tr(QStringLiteral("Stylesheets"), QStringLiteral("Yes"));
}

// A group offered as a one-entry selector goes back into the attribute as the group it
// stands for, so that the attribute finds its own property under that name and kind.
PropertyDictionary unwrapped(const PropertyDictionary &shown, const PropertyDictionary &original)
{
    PropertyDictionary result;
    for (const Property::Ptr &property : shown) {
        const TAutoPtr<ExtendedSelectorProperty> selector(property);
        const Property::Ptr own = original.property(property->uniqueName());
        const TAutoPtr<Property> inner = selector ? selector->current() : TAutoPtr<Property>();
        if (selector && own && !TAutoPtr<ExtendedSelectorProperty>(own) && inner
            && inner->uniqueName() == wrapperName()) {
            Property::Ptr group = inner->clone();
            group->setUniqueName(property->uniqueName());
            result.insertProperty(group);
            continue;
        }
        result.insertProperty(property);
    }
    return result;
}

} // namespace

StylesheetBasedWidget::StylesheetBasedWidget(QWidget *parent, const QString &title)
    : PropertyWidget(parent, title)
{
}

StylesheetBasedWidget::~StylesheetBasedWidget() = default;

void StylesheetBasedWidget::setEnvironment(TAutoPtr<Environment> environment)
{
    if (environment) {
        setStylesheetManager(environment->stylesheetManager());
        setBrushProvider(TAutoPtr<const BrushProviderQt>(environment->brushProvider()));
        setPenStyleProvider(TAutoPtr<const PenStyleProviderQt>(environment->penStyleProvider()));
        setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt>(environment->lineHeadStyleProvider()));
        setFontProvider(TAutoPtr<const FontProviderQt>(environment->fontProvider()));
    }
    setTranslator(Translator::defaultTranslator());
}

void StylesheetBasedWidget::makePropertyChildsUndefinable(TAutoPtr<GroupProperty> group)
{
    for (const Property::Ptr &child : *group) {
        if (TAutoPtr<GroupProperty> inner{ child })
            makePropertyChildsUndefinable(inner);
        else
            child->setUndefinable(true);
    }
}

void StylesheetBasedWidget::loadValues(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment)
{
    mAttributes.clear();
    clearProperties();
    mStylesheet = stylesheet;
    mEnvironment = environment;
    setEnvironment(mEnvironment);
    if (!mStylesheet)
        return;
    // Only what this stylesheet sets, without what it inherits.
    mAttributes = mStylesheet->attributes(false);
    for (const AttributeKey &key : qAsConst(mAttributeKeys)) {
        PropertyDictionary dictionary;
        const auto own = mAttributes.find(key);
        TAutoPtr<const Attribute> attribute;
        if (own == mAttributes.end()) {
            attribute = mEnvironment ? mEnvironment->defaultAttribute(key) : TAutoPtr<const Attribute>();
            if (!attribute)
                continue; // no default to show: the key gets no rows
            attribute->fillProperties(dictionary);
            // Undefinable too, so a field shows that nothing is set here (an empty unit
            // field, say) and a value typed in can be taken out again.
            for (const Property::Ptr &property : dictionary) {
                property->setUndefined(true);
                property->setUndefinable(true);
            }
        } else {
            attribute = own->second;
            attribute->fillProperties(dictionary);
            for (const Property::Ptr &property : dictionary)
                property->setUndefinable(true);
        }
        const std::vector<Property::Ptr> properties(dictionary.begin(), dictionary.end());
        for (const Property::Ptr &property : properties) {
            const TAutoPtr<GroupProperty> group(property);
            if (!group)
                continue;
            if (group->areChildsUndefinable()) {
                makePropertyChildsUndefinable(group);
                continue;
            }
            if (TAutoPtr<ExtendedSelectorProperty>(group))
                continue;
            // The group as a whole can be set or not: a selector of one entry.
            Property::Ptr inner = group->clone();
            inner->setUniqueName(wrapperName());
            inner->setUndefined(false);
            PropertyDictionary choices;
            choices.insertProperty(inner);
            TAutoPtr<ExtendedSelectorProperty> selector(
                new ExtendedSelectorProperty(group->uniqueName(), group->visibleName(), choices));
            selector->setUndefinable(true);
            selector->setUndefined(group->isUndefined());
            selector->setCurrent(inner->uniqueName());
            dictionary.insertProperty(selector);
        }
        insertPropertyableObjectWithProperties(attribute, dictionary, nullptr);
    }
}

bool StylesheetBasedWidget::checkValues()
{
    return true;
}

void StylesheetBasedWidget::saveValues()
{
    if (!mStylesheet)
        return;
    const std::list<TAutoPtr<const PropertyWidgetItem>> changed = changedItems();
    AttributeMap result;
    // Back to the stylesheet as it was loaded, so what the user left alone keeps its value.
    for (const AttributeKey &key : qAsConst(mAttributeKeys)) {
        const auto own = mAttributes.find(key);
        if (own != mAttributes.end())
            mStylesheet->insertAttribute(own->second);
        else
            mStylesheet->removeAttribute(key);
    }
    for (const auto &item : changed) {
        const TAutoPtr<const Attribute> attribute(item->propertiesOwner());
        if (!attribute || !item->properties())
            continue;
        bool undefined = false;
        for (const Property::Ptr &property : *item->properties())
            undefined = undefined || property->isUndefined();
        // One undefined property takes the whole attribute out of the stylesheet.
        if (undefined) {
            mStylesheet->removeAttribute(attribute->key());
            continue;
        }
        TAutoPtr<Attribute> clone(attribute->clone());
        if (!clone)
            continue;
        PropertyDictionary original;
        attribute->fillProperties(original);
        clone->applyProperties(unwrapped(*item->properties(), original));
        result.insert(clone);
    }
    mStylesheet->insertAttributes(result);
}

// ---- StylesheetBasedWidgetGroupWidget -----------------------------------------------------

StylesheetBasedWidgetGroupWidget::StylesheetBasedWidgetGroupWidget(
    QWidget *parent, const QString &title, bool withScrollArea)
    : PropertyWidgetGroupWidget(parent, title, withScrollArea)
{
}

void StylesheetBasedWidgetGroupWidget::addWidget(StylesheetBasedWidget *widget)
{
    PropertyWidgetGroupWidget::addWidget(widget);
}

QList<StylesheetBasedWidget *> StylesheetBasedWidgetGroupWidget::stylesheetWidgets() const
{
    QList<StylesheetBasedWidget *> result;
    for (PropertyWidget *widget : widgets())
        if (auto *stylesheetWidget = qobject_cast<StylesheetBasedWidget *>(widget))
            result << stylesheetWidget;
    return result;
}

QList<AttributeKey> StylesheetBasedWidgetGroupWidget::attributeKeys() const
{
    QList<AttributeKey> keys;
    for (StylesheetBasedWidget *widget : stylesheetWidgets())
        keys << widget->attributeKeys();
    return keys;
}

void StylesheetBasedWidgetGroupWidget::loadValues(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment)
{
    for (StylesheetBasedWidget *widget : stylesheetWidgets())
        widget->loadValues(stylesheet, environment);
    synchronizeLabelSizes();
}

bool StylesheetBasedWidgetGroupWidget::checkValues()
{
    for (StylesheetBasedWidget *widget : stylesheetWidgets())
        if (!widget->checkValues())
            return false;
    return true;
}

void StylesheetBasedWidgetGroupWidget::saveValues()
{
    for (StylesheetBasedWidget *widget : stylesheetWidgets())
        widget->saveValues();
}

} // namespace TavoLib
