#include "browser/ViewEditorFactory.h"

#include <QStyle>

#include <algorithm>

template class QtAbstractEditorFactory<TavoLib::ViewPropertyManager>;

namespace TavoLib {

ViewEditorFactory::ViewEditorFactory(QObject *parent, bool liveStringUpdates)
    : QtAbstractEditorFactory<ViewPropertyManager>(parent)
      // The parent belongs to this factory: a member held by value must have none, or the
      // parent would delete it a second time.
      ,
      mFactory(nullptr, liveStringUpdates)
{
    connect(&mFactory, &PropertyEditorFactory::propertyChanged, this,
        &ViewEditorFactory::propertyChanged);
}

ViewEditorFactory::~ViewEditorFactory()
{
    // The inner factory goes first (it is declared last); its signal must not reach the
    // maps on the way.
    mFactory.disconnect(this);
}

QString ViewEditorFactory::translate(const QString &text) const
{
    return mTranslator ? mTranslator->translate(text) : text;
}

void ViewEditorFactory::setBrushProvider(TAutoPtr<BrushProviderQt const> provider)
{
    mFactory.setBrushProvider(provider);
}

void ViewEditorFactory::setFontProvider(TAutoPtr<FontProviderQt const> provider)
{
    mFactory.setFontProvider(provider);
}

void ViewEditorFactory::setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProviderQt const> provider)
{
    mFactory.setLineHeadStyleProvider(provider);
}

void ViewEditorFactory::setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider)
{
    mFactory.setPenStyleProvider(provider);
}

void ViewEditorFactory::setStylesheetManager(TAutoPtr<StylesheetManager const> manager)
{
    mFactory.setStylesheetManager(manager);
}

void ViewEditorFactory::setTranslator(TAutoPtr<Translator const> translator)
{
    mTranslator = translator;
    mFactory.setTranslator(translator);
}

void ViewEditorFactory::setWidgetsTheme(PropertyEditorFactory::WidgetsTheme theme)
{
    mFactory.setWidgetsTheme(theme);
}

void ViewEditorFactory::setWithEditorFrame(bool withFrame)
{
    mFactory.setWithEditorFrame(withFrame);
}

QWidget *ViewEditorFactory::createEditor(
    ViewPropertyManager *manager, QtProperty *property, QWidget *parent)
{
    ViewProperty *view = manager ? manager->toViewProperty(property) : nullptr;
    mCurrentProperty = view;
    const TAutoPtr<Property> data = view ? view->data() : TAutoPtr<Property>();
    if (!data) {
        mCurrentEditor = nullptr;
        return nullptr;
    }
    if (view->isUndefined()) {
        // The editor opens in the undefined look, with its way out of it, also for a
        // property its owner did not make undefinable.
        data->setUndefinable(true);
        data->setUndefined(true);
    }
    QWidget *editor = mFactory.createEditor(data, parent, ownerIdentifier(view->owner()));
    if (editor) {
        if (mEditorToProperty.size() >= mSweepAt)
            sweepDeadEditors();
        // A new widget at a dead editor's address takes its entry over.
        mEditorToProperty[editor] = EditorLink { editor, view };
        RowLinks &links = mRowLinks[view];
        links.editors.erase(
            std::remove(links.editors.begin(), links.editors.end(), nullptr), links.editors.end());
        links.editors.emplace_back(editor);
        if (std::find(links.data.begin(), links.data.end(), data) == links.data.end())
            links.data.push_back(data);
        mPropertyToView[data] = view;
    }
    // The inner factory has given the editor the parent's style already.
    mCurrentEditor = editor;
    return editor;
}

QString ViewEditorFactory::ownerIdentifier(TAutoPtr<const PropertyableObject> owner)
{
    return owner ? QString::number(quintptr(owner.get()), 16) : QString();
}

void ViewEditorFactory::connectPropertyManager(ViewPropertyManager *manager)
{
    // A row the manager deletes (a reload clears it) must not be found again: an editor
    // that outlives its row may still report a change.
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
        &ViewEditorFactory::forgetRow);
}

void ViewEditorFactory::forgetRow(QtProperty *row)
{
    if (mCurrentProperty == row)
        mCurrentProperty = nullptr;
    auto found = mRowLinks.find(row);
    if (found == mRowLinks.end())
        return;
    for (const TAutoPtr<Property> &data : found->second.data) {
        auto entry = mPropertyToView.find(data);
        if (entry != mPropertyToView.end() && entry->second == row)
            mPropertyToView.erase(entry);
    }
    for (const QPointer<QWidget> &editor : found->second.editors) {
        auto entry = editor ? mEditorToProperty.find(editor.data()) : mEditorToProperty.end();
        if (entry != mEditorToProperty.end() && entry->second.row == row)
            entry->second.row = nullptr;
    }
    mRowLinks.erase(found);
}

void ViewEditorFactory::sweepDeadEditors()
{
    for (auto it = mEditorToProperty.begin(); it != mEditorToProperty.end();)
        it = it->second.editor ? std::next(it) : mEditorToProperty.erase(it);
    mSweepAt = std::max<size_t>(64, 2 * mEditorToProperty.size());
}

void ViewEditorFactory::disconnectPropertyManager(ViewPropertyManager *manager)
{
    QObject::disconnect(manager, nullptr, this, nullptr);
}

void ViewEditorFactory::propertyChanged(TavoLib::Property::Ptr data)
{
    ViewProperty *view = toProperty(data);
    if (!view)
        return;
    if (auto *manager = qobject_cast<ViewPropertyManager *>(view->propertyManager()))
        manager->propertyValueChanged(view);
}

void ViewEditorFactory::applyPropertyValues(
    TAutoPtr<Property> property, const QString &ownerIdentifier)
{
    const bool blocked = mFactory.blockSignals(true);
    mFactory.applyPropertyValues(property, ownerIdentifier);
    mFactory.blockSignals(blocked);
}

void ViewEditorFactory::enablePropertyEditors(ViewProperty *view)
{
    if (!view)
        return;
    auto found = mRowLinks.find(view);
    if (found == mRowLinks.end())
        return;
    for (const QPointer<QWidget> &editor : found->second.editors)
        if (editor)
            editor->setEnabled(view->isEnabled());
}

ViewProperty *ViewEditorFactory::toProperty(QWidget *editor)
{
    // A dead editor's entry has a null guard, so a new widget at its address is not taken
    // for it.
    auto found = mEditorToProperty.find(editor);
    if (found == mEditorToProperty.end() || found->second.editor.data() != editor)
        return nullptr;
    return found->second.row;
}

ViewProperty *ViewEditorFactory::toProperty(TAutoPtr<Property> data)
{
    auto found = mPropertyToView.find(data);
    return found == mPropertyToView.end() ? nullptr : found->second;
}

void ViewEditorFactory::activateProperty()
{
    emit resolveUndefinedProperty(mCurrentProperty);
}

} // namespace TavoLib
