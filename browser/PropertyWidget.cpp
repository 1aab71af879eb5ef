#include "browser/PropertyWidget.h"

#include "core/BoolProperty.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueProperty.h"
#include "propertybrowser/QtBrowserItem.h"

#include <QApplication>
#include <QGroupBox>
#include <QPointer>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <functional>

namespace TavoLib {

void setMaxWidths(QList<QObject *> &objects, int minimum, int extra)
{
    int largest = minimum;
    for (QObject *object : objects)
        if (auto *widget = qobject_cast<QWidget *>(object))
            largest = qMax(largest, widget->sizeHint().width());
    for (QObject *object : objects)
        if (auto *widget = qobject_cast<QWidget *>(object))
            widget->setMinimumWidth(largest + extra);
}

PropertyWidget::PropertyWidget(QWidget *parent, const QString &title, bool liveStringUpdates)
    : QWidget(parent), mFactory(nullptr, liveStringUpdates)
{
    auto *layout = new QVBoxLayout(this);
    setWindowTitle(title);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    mBrowser = new DialogPropertyBrowser(this);
    mBrowser->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    layout->addWidget(mBrowser);
    layout->setContentsMargins(0, 0, 0, 0);
    // The manager has no parent object: it goes in the destructor, after the browser's rows.
    mManager = new ViewPropertyManager(mBrowser);
    if (mBrowser->addFactory(mManager, &mFactory))
        mFactory.addPropertyManager(mManager);
    // Edits only, once the manager and the browser are done: a change of a row's enabled
    // state reaches its editor through the browser and is no edit.
    connect(
        mManager, &ViewPropertyManager::propertyEdited, this, &PropertyWidget::slotPropertyChanged);
}

PropertyWidget::~PropertyWidget()
{
    // An editor that loses focus while the rows go still commits: nothing of that may
    // reach the host from a panel that is being destroyed.
    blockSignals(true);
    disconnect(mManager, nullptr, this, nullptr);
    mFactory.blockSignals(true);
    // The rows and their editors go first, then the manager that owns the row items.
    delete mBrowser;
    mBrowser = nullptr;
    delete mManager;
}

void PropertyWidget::setWithGroupBox(bool withGroupBox)
{
    if (withGroupBox == mWithGroupBox)
        return;
    mWithGroupBox = withGroupBox;
    if (!withGroupBox)
        return; // kept on purpose: the group box stays once made
    layout()->removeWidget(mBrowser);
    auto *box = new QGroupBox(windowTitle(), this);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    layout()->addWidget(box);
    auto *inner = new QVBoxLayout(box);
    mBrowser->setParent(box);
    inner->addWidget(mBrowser);
    mBrowser->show();
}

int PropertyWidget::maxLabelWidth() const
{
    return mBrowser->maxLabelWidth();
}

void PropertyWidget::setMaxLabelWidth(int width)
{
    mBrowser->setMaxLabelWidth(width);
}

void PropertyWidget::setFontProvider(TAutoPtr<const FontProviderQt> provider)
{
    mFactory.setFontProvider(provider);
    mManager->setFontProvider(provider);
}

void PropertyWidget::setBrushProvider(TAutoPtr<const BrushProviderQt> provider)
{
    mFactory.setBrushProvider(provider);
    mManager->setBrushProvider(provider);
}

void PropertyWidget::setPenStyleProvider(TAutoPtr<const PenStyleProviderQt> provider)
{
    mFactory.setPenStyleProvider(provider);
    mManager->setPenStyleProvider(provider);
}

void PropertyWidget::setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt> provider)
{
    mFactory.setLineHeadStyleProvider(provider);
    mManager->setLineHeadStyleProvider(provider);
}

void PropertyWidget::setStylesheetManager(TAutoPtr<const StylesheetManager> manager)
{
    mFactory.setStylesheetManager(manager);
    mManager->setStylesheetManager(manager);
}

void PropertyWidget::setTranslator(TAutoPtr<const Translator> translator)
{
    mFactory.setTranslator(translator);
    mManager->setTranslator(translator);
}

void PropertyWidget::setProviders(const Environment &environment)
{
    setStylesheetManager(environment.stylesheetManager());
    setBrushProvider(TAutoPtr<const BrushProviderQt>(environment.brushProvider()));
    setPenStyleProvider(TAutoPtr<const PenStyleProviderQt>(environment.penStyleProvider()));
    setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt>(environment.lineHeadStyleProvider()));
    setFontProvider(TAutoPtr<const FontProviderQt>(environment.fontProvider()));
}

void PropertyWidget::clearProperties()
{
    const QScopedValueRollback<int> loading(mLoading, mLoading + 1);
    mManager->clear();
    mInitialProperties.clear();
    mEditedProperties.clear();
}

void PropertyWidget::setProperties(const std::list<TAutoPtr<const PropertyableObject>> &objects)
{
    clearProperties();
    for (const auto &object : objects)
        insertPropertyableObject(object, nullptr);
}

void PropertyWidget::setItems(const std::list<TAutoPtr<const PropertyWidgetItem>> &items)
{
    // The row that has the focus gets it back after the reload: the editor of the same
    // owner and name, else the first editor.
    QWidget *focused = QApplication::focusWidget();
    const bool hadFocus = focused && isAncestorOf(focused);
    TAutoPtr<const PropertyableObject> focusOwner;
    QString focusName;
    if (hadFocus) {
        for (QWidget *w = focused; w && w != this; w = w->parentWidget())
            if (ViewProperty *row = mFactory.toProperty(w)) {
                focusOwner = row->owner();
                focusName = row->data() ? row->data()->uniqueName() : QString();
                break;
            }
    }
    clearProperties();
    for (const auto &item : items)
        if (item && item->properties())
            insertPropertyableObjectWithProperties(
                item->propertiesOwner(), *item->properties(), nullptr);
    // The new rows are shown once control is back in the event loop; the focus goes there
    // after them.
    if (hadFocus)
        QMetaObject::invokeMethod(
            this, [this, focusOwner, focusName] { restoreFocus(focusOwner, focusName); },
            Qt::QueuedConnection);
}

void PropertyWidget::restoreFocus(TAutoPtr<const PropertyableObject> owner, const QString &name)
{
    QWidget *first = nullptr;
    QWidget *same = nullptr;
    for (QtBrowserItem *item : mBrowser->itemsInFormOrder()) {
        QWidget *editor = mBrowser->editorOf(item);
        if (!editor || !editor->isEnabled()
            || (editor->focusPolicy() == Qt::NoFocus && !editor->focusProxy()))
            continue;
        if (!first)
            first = editor;
        const ViewProperty *row = mManager->toViewProperty(item->property());
        if (row->owner() == owner && row->data() && row->data()->uniqueName() == name) {
            same = editor;
            break;
        }
    }
    if (QWidget *target = same ? same : first)
        target->setFocus(Qt::OtherFocusReason);
}

void PropertyWidget::insertPropertyableObject(
    TAutoPtr<const PropertyableObject> object, QtProperty *)
{
    PropertyDictionary values;
    if (object)
        object->fillProperties(values);
    insertPropertyableObjectWithProperties(object, values, nullptr);
}

void PropertyWidget::insertPropertyableObjectWithProperties(
    TAutoPtr<const PropertyableObject> owner, const PropertyDictionary &dictionary,
    QtProperty *after)
{
    const QScopedValueRollback<int> loading(mLoading, mLoading + 1);
    TAutoPtr<GroupProperty> initial(
        new GroupProperty(QStringLiteral("temporary property"), QString(), dictionary));
    mInitialProperties[owner] = initial;
    TAutoPtr<GroupProperty> edited(initial->clone());
    mEditedProperties[owner] = edited;
    if (!edited)
        return;
    for (const auto &child : *edited) {
        ViewProperty *view = mManager->addProperty(child, owner);
        if (!view)
            continue;
        view->setUndefined(false);
        if (after)
            mBrowser->insertProperty(view, after);
        else
            mBrowser->addProperty(view);
    }
    // Each editor took its row's enabled state when the browser placed it.
}

std::list<TAutoPtr<const PropertyWidgetItem>> PropertyWidget::getItems(bool onlyChanged)
{
    std::list<TAutoPtr<const PropertyWidgetItem>> result;
    for (const auto &entry : mInitialProperties) {
        auto edited = mEditedProperties.find(entry.first);
        if (edited == mEditedProperties.end() || !edited->second)
            continue;
        // The text is the whole test: a change toString() does not show is no change.
        if (onlyChanged && entry.second && entry.second->toString() == edited->second->toString())
            continue;
        const PropertyDictionary &values = *edited->second;
        result.push_back(new PropertyWidgetItem(entry.first, new PropertyDictionary(values)));
    }
    return result;
}

std::list<TAutoPtr<const PropertyWidgetItem>> PropertyWidget::items()
{
    return getItems(false);
}

std::list<TAutoPtr<const PropertyWidgetItem>> PropertyWidget::changedItems()
{
    return getItems(true);
}

void PropertyWidget::changeItems(const std::list<TAutoPtr<const PropertyWidgetItem>> &items)
{
    for (const auto &item : items) {
        if (!item || !item->properties())
            continue;
        auto edited = mEditedProperties.find(item->propertiesOwner());
        if (edited == mEditedProperties.end() || !edited->second)
            continue;
        // Indexed once: a lookup per row in a dictionary of thousands would be n squared.
        ValueIndex values;
        for (const Property::Ptr &value : *item->properties())
            if (!values.contains(value->uniqueName()))
                values.insert(value->uniqueName(), value);
        changePropertyValues(edited->second, values, item->propertiesOwner());
    }
}

void PropertyWidget::changePropertyValues(
    TAutoPtr<Property> property, const ValueIndex &values, TAutoPtr<const PropertyableObject> owner)
{
    // kept on purpose: a property inside a group is looked up among the top-level names of
    // the new values, so a new value inside a group of the new dictionary is not seen.
    if (TAutoPtr<GroupProperty> group { property }) {
        for (const auto &child : *group)
            changePropertyValues(child, values, owner);
        return;
    }
    // kept on purpose: only these kinds take new values here; the others keep theirs.
    if (!TAutoPtr<StringProperty> { property } && !TAutoPtr<UnitValueProperty> { property }
        && !TAutoPtr<SelectorProperty> { property } && !TAutoPtr<BoolProperty> { property }
        && !TAutoPtr<IntegerProperty> { property })
        return;
    const Property::Ptr found = values.value(property->uniqueName());
    if (!found || found->toString() == property->toString())
        return;
    property->copyValueFrom(*found);
    // Only the editors of this owner's rows: the same name in another object's rows keeps
    // its own property.
    mFactory.applyPropertyValues(property, ViewEditorFactory::ownerIdentifier(owner));
}

void PropertyWidget::slotPropertyChanged(QtProperty *property)
{
    if (mLoading > 0)
        return;
    // A listener may reload or delete the panel: nothing of it is touched after the first
    // signal but through this guard, and the property lives in a local.
    QPointer<PropertyWidget> self(this);
    if (ViewProperty *view = property ? mManager->toViewProperty(property) : nullptr) {
        mFactory.enablePropertyEditors(view);
        const Property::Ptr data = view->data();
        emit signalPropertyChanged(data);
    }
    if (self)
        emit signalPropertyChanged();
}

} // namespace TavoLib
