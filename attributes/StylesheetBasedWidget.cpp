#include "attributes/StylesheetBasedWidget.h"

#include "attributes/StylesheetBasedWidgetGroupWidget.h"
#include "core/ActivatableGroupProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/StringProperty.h"
#include "core/TavoLibKey.h"
#include "core/Translator.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <functional>

namespace TavoLib {

namespace {

// The name of the one entry of the selector a plain group is offered as.
QString wrapperName()
{
    // The text is "Yes" in the context "Stylesheets".
    return TavoLibKey::tr(QStringLiteral("Stylesheets"), QStringLiteral("Yes"));
}

// The property and, through groups (choices and switchable groups included), every property
// below it. A list's elements are its own value and are not visited.
void forEachDeep(const Property::Ptr &property, const std::function<void(const Property::Ptr &)> &visit)
{
    if (!property)
        return;
    visit(property);
    if (TAutoPtr<GroupProperty> group{ property })
        for (const Property::Ptr &child : *group)
            forEachDeep(child, visit);
}

// The group a shown selector stands for, when `own` (the attribute's property of that name)
// is a plain group and the selector holds one group: a wrapper, known by its shape alone.
// decided: a wrapped group is recognised by its structure, never by its translated name.
TAutoPtr<GroupProperty> wrappedGroup(const Property::Ptr &shown, const Property::Ptr &own)
{
    const TAutoPtr<ExtendedSelectorProperty> selector(shown);
    const TAutoPtr<GroupProperty> ownGroup(own);
    if (!selector || !ownGroup || TAutoPtr<ExtendedSelectorProperty>(own) || selector->size() != 1)
        return TAutoPtr<GroupProperty>();
    const TAutoPtr<GroupProperty> inner(selector->at(0));
    return inner && !TAutoPtr<ExtendedSelectorProperty>(inner) ? inner : TAutoPtr<GroupProperty>();
}

// A group offered as a one-entry selector goes back into the attribute as the group it
// stands for, so that the attribute finds its own property under that name and kind.
PropertyDictionary unwrapped(const PropertyDictionary &shown, const PropertyDictionary &original)
{
    PropertyDictionary result;
    for (const Property::Ptr &property : shown) {
        const Property::Ptr own = original.property(property->uniqueName());
        if (const TAutoPtr<GroupProperty> inner = wrappedGroup(property, own)) {
            Property::Ptr group = inner->clone();
            group->setUniqueName(own->uniqueName());
            group->setVisibleName(own->visibleName());
            result.insertProperty(group);
            continue;
        }
        result.insertProperty(property);
    }
    return result;
}

// Calls `visit` with each shown property that has no children of its own and the inherited
// property it stands for, looking through wrappers, groups and choices by name.
void forEachInherited(const PropertyDictionary &shown, const PropertyDictionary &inherited,
    const std::function<void(const Property::Ptr &, const Property::Ptr &)> &visit)
{
    for (const Property::Ptr &property : shown) {
        const Property::Ptr base = inherited.property(property->uniqueName());
        if (!base)
            continue;
        if (const TAutoPtr<GroupProperty> inner = wrappedGroup(property, base)) {
            forEachInherited(*inner, *TAutoPtr<GroupProperty>(base), visit);
        } else if (TAutoPtr<GroupProperty> group{ property }) {
            if (TAutoPtr<GroupProperty> baseGroup{ base })
                forEachInherited(*group, *baseGroup, visit);
            visit(property, base);
        } else {
            visit(property, base);
        }
    }
}

// Shows `text` greyed in the empty editors of a property.
void setPlaceholder(const QList<QWidget *> &editors, const QString &text)
{
    for (QWidget *editor : editors) {
        auto *line = qobject_cast<QLineEdit *>(editor);
        if (!line)
            if (auto *combo = qobject_cast<QComboBox *>(editor); combo && !combo->isEditable())
                combo->setPlaceholderText(text);
        if (!line)
            line = editor->findChild<QLineEdit *>();
        if (line)
            line->setPlaceholderText(text);
    }
}

} // namespace

StylesheetBasedWidget::StylesheetBasedWidget(QWidget *parent, const QString &title)
    : PropertyWidget(parent, title)
{
}

StylesheetBasedWidget::~StylesheetBasedWidget() = default;

void StylesheetBasedWidget::setEnvironment(TAutoPtr<Environment> environment)
{
    if (environment)
        setProviders(*environment);
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

TAutoPtr<const Attribute> StylesheetBasedWidget::inheritedAttribute(const AttributeKey &key) const
{
    if (mStylesheet && mStylesheet->parent()) {
        const AttributeMap inherited = mStylesheet->parent()->attributes(true);
        const auto found = inherited.find(key);
        if (found != inherited.end() && found->second)
            return found->second;
    }
    return mEnvironment ? mEnvironment->defaultAttribute(key) : TAutoPtr<const Attribute>();
}

PropertyDictionary StylesheetBasedWidget::dictionaryFor(const AttributeKey &key, TAutoPtr<const Attribute> &owner)
{
    PropertyDictionary dictionary;
    const auto own = mAttributes.find(key);
    const bool setHere = own != mAttributes.end() && own->second;
    // decided: an attribute is set or not as a whole; one it does not set starts from what
    // it inherits, so an edit there keeps the inherited values of the rest.
    owner = setHere ? own->second : inheritedAttribute(key);
    if (!owner)
        return dictionary; // no default to show: the key gets no rows
    owner->fillProperties(dictionary);
    // Undefinable at every depth, so a field can show that nothing is set here and a value
    // typed in can be taken out again.
    for (const Property::Ptr &property : dictionary)
        forEachDeep(property, [setHere](const Property::Ptr &each) {
            each->setUndefinable(true);
            if (!setHere)
                each->setUndefined(true);
        });
    mSetHere[key] = setHere;
    return dictionary;
}

void StylesheetBasedWidget::offerGroupsAsSelectors(PropertyDictionary &dictionary)
{
    const std::vector<Property::Ptr> properties(dictionary.begin(), dictionary.end());
    for (const Property::Ptr &property : properties) {
        const TAutoPtr<GroupProperty> group(property);
        if (!group)
            continue;
        if (group->areChildsUndefinable()) {
            makePropertyChildsUndefinable(group);
            continue;
        }
        // decided: a switchable group keeps its on/off box; partly checked is "not set here".
        if (TAutoPtr<ExtendedSelectorProperty>(group) || TAutoPtr<ActivatableGroupProperty>(group))
            continue;
        // The group as a whole can be set or not: a selector of one entry, which reads "Yes".
        Property::Ptr inner = group->clone();
        inner->setUniqueName(wrapperName());
        inner->setVisibleName(wrapperName());
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
}

void StylesheetBasedWidget::loadValues(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment)
{
    const QScopedValueRollback<bool> loading(mLoading, true);
    mAttributes.clear();
    mInherited.clear();
    mSetHere.clear();
    clearProperties();
    mStylesheet = stylesheet;
    mEnvironment = environment;
    setEnvironment(mEnvironment);
    if (!mStylesheet)
        return;
    // Only what this stylesheet sets, without what it inherits.
    mAttributes = mStylesheet->attributes(false);
    for (const AttributeKey &key : qAsConst(mAttributeKeys)) {
        TAutoPtr<const Attribute> attribute;
        PropertyDictionary dictionary = dictionaryFor(key, attribute);
        if (!attribute)
            continue;
        if (const TAutoPtr<const Attribute> inherited = inheritedAttribute(key))
            mInherited.insert(inherited);
        offerGroupsAsSelectors(dictionary);
        insertPropertyableObjectWithProperties(attribute, dictionary, nullptr);
    }
    showPlaceholders();
}

void StylesheetBasedWidget::showPlaceholders()
{
    for (const auto &item : items()) {
        const TAutoPtr<const Attribute> attribute(item->propertiesOwner());
        if (!attribute || !item->properties())
            continue;
        const auto inherited = mInherited.find(attribute->key());
        if (inherited == mInherited.end())
            continue;
        PropertyDictionary values;
        inherited->second->fillProperties(values);
        forEachInherited(*item->properties(), values, [this](const Property::Ptr &shown, const Property::Ptr &base) {
            const QString text = base->toString();
            if (TAutoPtr<StringProperty> string{ shown })
                string->setPlaceholderText(text);
            setPlaceholder(factory().propertyEditorFactory().propertyEditors(shown), text);
        });
    }
}

void StylesheetBasedWidget::slotPropertyChanged(QtProperty *property)
{
    ViewProperty *view = property ? manager()->toViewProperty(property) : nullptr;
    if (mAdjusting) {
        // A row the panel itself changed: its editors follow, the host hears nothing.
        if (view)
            factory().enablePropertyEditors(view);
        return;
    }
    if (view && !mLoading)
        keepWhole(view->owner());
    PropertyWidget::slotPropertyChanged(property);
}

void StylesheetBasedWidget::keepWhole(TAutoPtr<const PropertyableObject> owner)
{
    const TAutoPtr<const Attribute> attribute(owner);
    if (!attribute)
        return;
    const AttributeKey key = attribute->key();
    PropertyDictionary shown;
    for (const auto &item : items())
        if (item->propertiesOwner() == owner && item->properties())
            shown = *item->properties();
    bool anyDefined = false;
    bool anyUndefined = false;
    for (const Property::Ptr &property : shown)
        forEachDeep(property, [&](const Property::Ptr &each) {
            (each->isUndefined() ? anyUndefined : anyDefined) = true;
        });
    // decided: clearing one value takes the whole attribute out, and the rows show what is
    // inherited; giving one value sets the whole attribute from what is inherited.
    bool &setHere = mSetHere[key];
    if (setHere && anyUndefined)
        setHere = false;
    else if (!setHere && anyDefined)
        setHere = true;
    else
        return;
    const auto inherited = mInherited.find(key);
    if (!setHere && inherited != mInherited.end()) {
        PropertyDictionary values;
        inherited->second->fillProperties(values);
        forEachInherited(shown, values, [](const Property::Ptr &row, const Property::Ptr &base) {
            // A plain group's value is its children, which have just been visited.
            if (qstrcmp(row->kindName(), "Group") != 0)
                row->copyValueFrom(*base);
        });
    }
    const QScopedValueRollback<bool> adjusting(mAdjusting, true);
    for (const Property::Ptr &property : shown)
        forEachDeep(property, [&](const Property::Ptr &each) { each->setUndefined(!setHere); });
    for (const Property::Ptr &property : shown)
        forEachDeep(property, [&](const Property::Ptr &each) {
            factory().applyPropertyValues(each, ViewEditorFactory::ownerIdentifier(owner));
            ViewProperty *row = factory().toProperty(each);
            // A choice's rows are made again by the manager; the editor being typed in may
            // be among them, so only switchable groups are refreshed through it.
            if (row && TAutoPtr<ActivatableGroupProperty>(each))
                manager()->propertyValueChanged(row);
            else if (row)
                factory().enablePropertyEditors(row);
        });
    showPlaceholders();
}

bool StylesheetBasedWidget::checkValues()
{
    return true;
}

void StylesheetBasedWidget::resetToLoaded()
{
    for (const AttributeKey &key : qAsConst(mAttributeKeys)) {
        const auto own = mAttributes.find(key);
        if (own != mAttributes.end())
            mStylesheet->insertAttribute(own->second);
        else
            mStylesheet->removeAttribute(key);
    }
}

void StylesheetBasedWidget::saveValues()
{
    if (!mStylesheet)
        return;
    const std::list<TAutoPtr<const PropertyWidgetItem>> changed = changedItems();
    AttributeMap result;
    // Back to the stylesheet as it was loaded, so what the user left alone keeps its value.
    resetToLoaded();
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
