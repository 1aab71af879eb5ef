#include "attributes/AttributesTreeWidget.h"

#include "browser/TreePropertyBrowser.h"
#include "browser/ViewEditorFactory.h"
#include "browser/ViewProperty.h"
#include "browser/ViewPropertyManager.h"
#include "core/UnitsPreferences.h"
#include "propertybrowser/QtBrowserItem.h"

#include <QApplication>
#include <QEvent>
#include <QSettings>
#include <memory>

Q_DECLARE_METATYPE(QtProperty *)

namespace TavoLib {

namespace {

ViewProperty *viewOf(QtProperty *property)
{
    return dynamic_cast<ViewProperty *>(property);
}

// The attribute a row stands for, or null for a heading and a row of another kind.
TAutoPtr<const Attribute> attributeOf(ViewProperty *view)
{
    return view ? TAutoPtr<const Attribute>(view->owner()) : TAutoPtr<const Attribute>();
}

// Takes a row that has left the browser out of its manager, with the rows below it. Rows
// are replaced on every change of the selection, so keeping them would grow without end.
void deleteRow(QtProperty *property)
{
    if (ViewProperty *view = viewOf(property))
        view->setUndefined(false); // brings hidden children back, to go with their parent
    const QList<QtProperty *> children = property->subProperties();
    delete property;
    for (QtProperty *child : children)
        deleteRow(child);
}

} // namespace

AttributesTreeWidget::AttributesTreeWidget(QWidget *parent, TAutoPtr<Translator> translator)
    : QTabWidget(parent)
    , mEditorFactory(new ViewEditorFactory(nullptr, false))
    , mTranslator(translator)
{
    setAutoFillBackground(false);
    QPalette colours = palette();
    colours.setBrush(QPalette::All, QPalette::Base, QBrush(QColor(200, 200, 200)));
    setPalette(colours);
    resize(300, 460);
    setMinimumSize(300, 0);
    setTabPosition(QTabWidget::North);
    setTabShape(QTabWidget::Rounded);
    mEditorFactory->setWithEditorFrame(false);
    mEditorFactory->setWidgetsTheme(PropertyEditorFactory::WidgetsTheme(0));
    mEditorFactory->setTranslator(translator);
    qRegisterMetaType<QtProperty *>("QtPropertyPtr");
    qRegisterMetaType<QtProperty *>();
    // Queued: the answer rebuilds the row whose editor is asking.
    connect(mEditorFactory, &ViewEditorFactory::resolveUndefinedProperty, this,
        &AttributesTreeWidget::resolveUndefinedProperty, Qt::QueuedConnection);
    connect(UnitsPreferences::defaultInstance().get(), &UnitsPreferences::changed, this,
        &AttributesTreeWidget::unitsPreferencesChanged, Qt::QueuedConnection);
}

AttributesTreeWidget::~AttributesTreeWidget()
{
    clearAttributes();
    // Browsers (with any open editor) first, then their managers, then the shared factory.
    for (Tab &tab : mTabs) {
        delete tab.browser;
        delete tab.manager;
    }
    mTabs.clear();
    delete mEditorFactory;
}

int AttributesTreeWidget::addTab(const QString &name)
{
    auto *browser = new TreePropertyBrowser(this);
    browser->setAlternatingRowColors(false);
    browser->setHeaderVisible(false);
    browser->setRootIsDecorated(false);
    auto *manager = new ViewPropertyManager(browser, nullptr);
    manager->setWidgetsTheme(PropertyEditorFactory::WidgetsTheme(0));
    manager->setTranslator(mTranslator);
    QTabWidget::addTab(browser, name);
    if (browser->addFactory(manager, mEditorFactory))
        mEditorFactory->addPropertyManager(manager);
    Tab tab;
    tab.manager = manager;
    tab.browser = browser;
    tab.name = name;
    mTabs.push_back(tab);
    connect(manager, &QtAbstractPropertyManager::propertyChanged, this,
        &AttributesTreeWidget::propertyChanged);
    connect(manager, &QtAbstractPropertyManager::propertyInserted, this,
        &AttributesTreeWidget::propertyInserted);
    giveProviders(manager);
    return int(mTabs.size()) - 1;
}

void AttributesTreeWidget::setTabName(int tab, const QString &name)
{
    if (tab < 0 || tab >= int(mTabs.size()))
        return;
    mTabs[size_t(tab)].name = name;
    const int index = indexOf(mTabs[size_t(tab)].browser);
    if (index >= 0)
        setTabText(index, name);
}

void AttributesTreeWidget::setTabVisible(int tab, bool visible)
{
    if (tab < 0 || tab >= int(mTabs.size()))
        return;
    const Tab &record = mTabs[size_t(tab)];
    const int index = indexOf(record.browser);
    if (!visible) {
        if (index >= 0)
            removeTab(index);
        return;
    }
    if (index >= 0)
        return;
    int position = 0;
    for (int i = 0; i < tab; ++i)
        if (indexOf(mTabs[size_t(i)].browser) >= 0)
            ++position;
    insertTab(position, record.browser, record.name);
}

void AttributesTreeWidget::setEnvironment(TAutoPtr<Environment> environment)
{
    if (environment == mEnvironment)
        return;
    mEnvironment = environment;
    clearAttributes();
    if (!environment)
        return;
    for (Tab &tab : mTabs)
        giveProviders(tab.manager);
    giveProviders(mEditorFactory);
}

template <class Target> void AttributesTreeWidget::giveProviders(Target *target) const
{
    if (!mEnvironment)
        return;
    target->setStylesheetManager(mEnvironment->stylesheetManager());
    target->setBrushProvider(TAutoPtr<const BrushProviderQt>(mEnvironment->brushProvider()));
    target->setPenStyleProvider(TAutoPtr<const PenStyleProviderQt>(mEnvironment->penStyleProvider()));
    target->setLineHeadStyleProvider(
        TAutoPtr<const LineHeadStyleProviderQt>(mEnvironment->lineHeadStyleProvider()));
    target->setFontProvider(TAutoPtr<const FontProviderQt>(mEnvironment->fontProvider()));
}

void AttributesTreeWidget::clearAttributes()
{
    if (!mItems.empty())
        saveState();
    mItems.clear();
    mDictionaries.clear();
    mAttributes.clear();
    mLastAttributes.clear();
    mPendingChanges.clear();
    mDeclared = false;
    ++mRebuilding;
    for (Tab &tab : mTabs)
        tab.manager->clear();
    --mRebuilding;
}

void AttributesTreeWidget::languageChanged()
{
    clearAttributes();
    selectionChanged();
}

void AttributesTreeWidget::unitsPreferencesChanged()
{
    clearAttributes();
    selectionChanged();
}

void AttributesTreeWidget::changeEvent(QEvent *event)
{
    QTabWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        languageChanged();
}

int AttributesTreeWidget::tabOf(const AttributeKey &key)
{
    // kept on purpose: an attribute nobody placed goes to the first tab.
    return mAttributeTabs[key];
}

void AttributesTreeWidget::createAttributeGroup(
    const QString &uniqueName, const QString &visibleName, const QList<AttributeKey> &keys, int tab)
{
    if (tab < 0 || tab >= int(mTabs.size()))
        return;
    const Tab &record = mTabs[size_t(tab)];
    ViewProperty *heading
        = record.manager->addProperty(new Property(uniqueName, visibleName), TAutoPtr<const PropertyableObject>());
    if (!heading)
        return;
    record.browser->addProperty(heading);
    for (const AttributeKey &key : keys) {
        mAttributeTabs[key] = tab;
        setAttribute(mEnvironment ? mEnvironment->defaultAttribute(key) : TAutoPtr<const Attribute>(),
            nullptr, false, heading);
    }
}

void AttributesTreeWidget::createAttribute(const AttributeKey &key, int tab)
{
    mAttributeTabs[key] = tab;
    setAttribute(mEnvironment ? mEnvironment->defaultAttribute(key) : TAutoPtr<const Attribute>(),
        nullptr, false, nullptr);
}

void AttributesTreeWidget::setAttribute(
    TAutoPtr<const Attribute> attribute, QtProperty *preceding, bool undefined, QtProperty *parent)
{
    // A key the environment has no default for shows nothing.
    if (!attribute)
        return;
    const AttributeKey key = attribute->key();
    const int tab = tabOf(key);
    if (tab < 0 || tab >= int(mTabs.size()))
        return;
    const Tab &record = mTabs[size_t(tab)];
    TAutoPtr<const Attribute> clone(attribute->clone());
    if (!clone)
        return;
    ++mRebuilding;
    record.browser->blockUpdateGeometries(true);
    TAutoPtr<PropertyDictionary> dictionary(new PropertyDictionary);
    attribute->fillProperties(*dictionary);
    // Each fresh row follows the one before, so rows that replace others stand where those
    // stood and keep their order.
    QtProperty *after = preceding;
    std::set<QtBrowserItem *> &rows = mItems[key];
    for (const Property::Ptr &property : *dictionary) {
        ViewProperty *row = record.manager->addProperty(property, clone);
        if (!row)
            continue;
        row->setUndefined(undefined);
        QtBrowserItem *item = nullptr;
        if (!parent) {
            item = preceding ? record.browser->insertProperty(row, after) : record.browser->addProperty(row);
        } else {
            if (preceding)
                parent->insertSubProperty(row, after);
            else
                parent->addSubProperty(row);
            item = record.browser->items(row).value(0);
        }
        if (item)
            rows.insert(item);
        after = row;
    }
    mDictionaries[key] = dictionary;
    mAttributes.insert(clone);
    record.browser->blockUpdateGeometries(false);
    --mRebuilding;
}

QtBrowserItem *AttributesTreeWidget::firstRow(const AttributeKey &key) const
{
    const auto found = mItems.find(key);
    if (found == mItems.end() || found->second.empty())
        return nullptr;
    // The set is ordered by address; the first row is the first on screen.
    QtBrowserItem *first = nullptr;
    int firstIndex = 0;
    for (QtBrowserItem *item : found->second) {
        const QList<QtBrowserItem *> siblings
            = item->parent() ? item->parent()->children() : item->browser()->topLevelItems();
        const int index = siblings.indexOf(item);
        if (!first || index < firstIndex) {
            first = item;
            firstIndex = index;
        }
    }
    return first;
}

void AttributesTreeWidget::removeRows(const AttributeKey &key, const std::set<QtBrowserItem *> &rows)
{
    const int tab = tabOf(key);
    if (tab < 0 || tab >= int(mTabs.size()))
        return;
    TreePropertyBrowser *browser = mTabs[size_t(tab)].browser;
    std::set<QtBrowserItem *> &current = mItems[key];
    for (QtBrowserItem *item : rows) {
        // The item is gone once its row leaves the browser: read it first.
        QtProperty *property = item->property();
        ViewProperty *view = viewOf(property);
        QtProperty *parent = view ? view->parentProperty() : nullptr;
        current.erase(item);
        if (!parent)
            browser->removeProperty(property);
        else
            parent->removeSubProperty(property);
        deleteRow(property);
    }
}

void AttributesTreeWidget::replaceAttribute(
    const AttributeKey &key, TAutoPtr<const Attribute> attribute, bool undefined)
{
    QtBrowserItem *first = firstRow(key);
    ViewProperty *view = first ? viewOf(first->property()) : nullptr;
    if (!view || !attribute)
        return;
    rebuildRows(attribute, view, undefined);
}

void AttributesTreeWidget::rebuildRows(TAutoPtr<const Attribute> attribute, ViewProperty *preceding, bool undefined)
{
    const AttributeKey key = attribute->key();
    const std::set<QtBrowserItem *> old = mItems[key];
    ++mRebuilding;
    setAttribute(attribute, preceding, undefined, preceding->parentProperty());
    removeRows(key, old);
    --mRebuilding;
}

void AttributesTreeWidget::setAttributes(const AttributeMap &attributes)
{
    // Declared by a flag, not by the attributes shown: without an environment's defaults the
    // headings come while no attribute does.
    if (!mDeclared) {
        mDeclared = true;
        createAttributes();
        restoreState();
    } else if (mLastAttributes.isEqual(attributes)) {
        return;
    }
    mLastAttributes = attributes;
    const bool blocked = blockSignals(true);
    for (const auto &entry : attributes) {
        const auto shown = mAttributes.find(entry.first);
        if (shown == mAttributes.end() || !entry.second || !shown->second)
            continue; // an attribute the palette does not declare
        if (!shown->second->hasSameValues(*entry.second))
            replaceAttribute(entry.first, entry.second, false);
    }
    activateAttributes(attributes);
    blockSignals(blocked);
}

void AttributesTreeWidget::activateAttributes(const AttributeMap &attributes)
{
    std::vector<AttributeKey> keys;
    for (const auto &entry : mItems)
        keys.push_back(entry.first);
    for (const AttributeKey &key : keys) {
        const bool absent = attributes.find(key) == attributes.end();
        // The rows of an attribute share its owner and undefined state: any one tells. The
        // first on screen is looked for only when the rows are rebuilt.
        const std::set<QtBrowserItem *> &rows = mItems[key];
        ViewProperty *view = rows.empty() ? nullptr : viewOf((*rows.begin())->property());
        if (!view || view->isUndefined() == absent)
            continue;
        replaceAttribute(key, attributeOf(view), absent);
    }
}

void AttributesTreeWidget::propertyChanged(QtProperty *property)
{
    noteEdit(property, false);
}

void AttributesTreeWidget::noteEdit(QtProperty *property, bool always)
{
    // Rows being made or rebuilt report their setup, and an editor that goes with its row
    // commits on its way out: neither is the user's edit.
    if (mRebuilding > 0)
        return;
    ViewProperty *view = viewOf(property);
    const TAutoPtr<const Attribute> attribute = attributeOf(view);
    if (!attribute)
        return;
    const auto dictionary = mDictionaries.find(attribute->key());
    if (dictionary == mDictionaries.end() || !dictionary->second)
        return;
    TAutoPtr<Attribute> clone(attribute->clone());
    if (!clone)
        return;
    clone->applyProperties(*dictionary->second);
    const TAutoPtr<Property> data = view->data();
    bool resolved = false;
    if (data && !data->isUndefined() && data->isUndefinable()) {
        // The user has just given an undefined row a value.
        data->setUndefinable(false);
        view->setUndefined(false);
        resolved = true;
        // kept on purpose: the keyboard focus leaves the palette once the row is defined.
        if (QWidget *focus = QApplication::focusWidget())
            focus->clearFocus();
    }
    // The manager also reports changes of a row's enabled state, name or modified mark (a
    // switchable group flips its children): they are no edit when the values stay.
    const auto shown = mAttributes.find(clone->key());
    if (!always && !resolved && shown != mAttributes.end() && shown->second
        && shown->second->hasSameValues(*clone))
        return;
    mAttributes.insert(clone);
    // The host's echo of this change then makes setAttributes return at once.
    mLastAttributes.insert(clone);
    // decided: the host hears of the edit once, after the manager and browsers are done.
    const bool scheduled = !mPendingChanges.empty();
    mPendingChanges[clone->key()] = clone;
    if (!scheduled)
        QMetaObject::invokeMethod(this, &AttributesTreeWidget::reportEdits, Qt::QueuedConnection);
}

void AttributesTreeWidget::reportEdits()
{
    // The host may clear or rebuild the palette from its hook: take one change at a time.
    while (!mPendingChanges.empty()) {
        const TAutoPtr<const Attribute> change = mPendingChanges.begin()->second;
        mPendingChanges.erase(mPendingChanges.begin());
        attributeChanged(change);
    }
}

void AttributesTreeWidget::propertyInserted(QtProperty *newProperty, QtProperty *parentProperty, QtProperty *)
{
    if (ViewProperty *view = viewOf(newProperty))
        view->setParentProperty(parentProperty);
}

bool AttributesTreeWidget::isPropertyValid(QtProperty *property) const
{
    if (!property)
        return false;
    for (const auto &entry : mItems)
        for (QtBrowserItem *item : entry.second)
            if (item->property() == property)
                return true;
    return false;
}

void AttributesTreeWidget::resolveUndefinedProperty(QtProperty *property)
{
    // Queued: the row may have gone in the meantime.
    if (!isPropertyValid(property) || !mEnvironment)
        return;
    ViewProperty *view = viewOf(property);
    const TAutoPtr<const Attribute> attribute = attributeOf(view);
    if (!attribute)
        return;
    const AttributeKey key = attribute->key();
    const TAutoPtr<const Attribute> fallback = mEnvironment->defaultAttribute(key);
    if (!fallback)
        return;
    rebuildRows(fallback, view, false);
    // The default value counts as the user's edit.
    if (QtBrowserItem *first = firstRow(key))
        noteEdit(first->property(), true);
}

namespace {

// The settings group of the palette's saved expansion, one key per tab.
std::unique_ptr<QSettings> openStates()
{
    auto settings = std::make_unique<QSettings>(
        QSettings::UserScope, QStringLiteral("Tavo Technology"), QStringLiteral("States"));
    settings->beginGroup(QStringLiteral("Attributes Palette"));
    settings->beginGroup(QStringLiteral("1"));
    return settings;
}

} // namespace

void AttributesTreeWidget::saveState() const
{
    const std::unique_ptr<QSettings> settings = openStates();
    for (size_t i = 0; i < mTabs.size(); ++i)
        settings->setValue(QString::number(i), mTabs[i].browser->saveState());
}

void AttributesTreeWidget::restoreState()
{
    const std::unique_ptr<QSettings> settings = openStates();
    for (size_t i = 0; i < mTabs.size(); ++i) {
        const QByteArray state = settings->value(QString::number(i)).toByteArray();
        if (!state.isEmpty())
            mTabs[i].browser->restoreState(state);
    }
}

} // namespace TavoLib
