#include "browser/ViewPropertyManager.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/GroupProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "pickers/BrushControllerQt.h"
#include "style/Device.h"

#include <QMetaObject>
#include <QScopedValueRollback>
#include <QVariant>

namespace TavoLib {

ViewPropertyManager::ViewPropertyManager(QtAbstractPropertyBrowser *browser, QObject *parent)
    : QtAbstractPropertyManager(parent), mBrowser(browser)
{
}

ViewPropertyManager::~ViewPropertyManager() = default;

ViewProperty *ViewPropertyManager::toViewProperty(QtProperty *property)
{
    return static_cast<ViewProperty *>(property);
}

const ViewProperty *ViewPropertyManager::toViewProperty(const QtProperty *property) const
{
    return static_cast<const ViewProperty *>(property);
}

QtProperty *ViewPropertyManager::createProperty()
{
    return new ViewProperty(this);
}

void ViewPropertyManager::initializeProperty(QtProperty *) { }

void ViewPropertyManager::uninitializeProperty(QtProperty *property)
{
    // A row that goes (a listener reloads) is never told about afterwards.
    mPendingEdits.removeAll(property);
}

void ViewPropertyManager::setStylesheetManager(TAutoPtr<const StylesheetManager> manager)
{
    mStylesheetManager = manager;
}

void ViewPropertyManager::setBrushProvider(TAutoPtr<const BrushProviderQt> provider)
{
    mBrushProvider = provider;
}

void ViewPropertyManager::setPenStyleProvider(TAutoPtr<const PenStyleProviderQt> provider)
{
    mPenStyleProvider = provider;
}

void ViewPropertyManager::setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt> provider)
{
    mLineHeadStyleProvider = provider;
}

void ViewPropertyManager::setFontProvider(TAutoPtr<const FontProviderQt> provider)
{
    mFontProvider = provider;
}

void ViewPropertyManager::setTranslator(TAutoPtr<const Translator> translator)
{
    mTranslator = translator;
}

void ViewPropertyManager::setWidgetsTheme(PropertyEditorFactory::WidgetsTheme theme)
{
    mWidgetsTheme = theme;
}

QString ViewPropertyManager::translate(const QString &text) const
{
    return mTranslator ? mTranslator->translate(text) : text;
}

ViewProperty *ViewPropertyManager::addProperty(
    TAutoPtr<Property> property, TAutoPtr<const PropertyableObject> owner)
{
    if (!property)
        return nullptr;
    const QString name = translate(property->visibleName());
    ViewProperty *item = nullptr;
    if (TAutoPtr<ExtendedSelectorProperty> { property }) {
        // Its children are those of the chosen option, added below.
        item = toViewProperty(QtAbstractPropertyManager::addProperty(name));
    } else if (TAutoPtr<GroupProperty> group { property }) {
        item = toViewProperty(QtAbstractPropertyManager::addProperty(name));
        if (item)
            for (const auto &child : *group)
                if (ViewProperty *row = addProperty(child, owner))
                    item->addSubProperty(row);
    } else {
        item = toViewProperty(QtAbstractPropertyManager::addProperty(name));
        if (TAutoPtr<ListProperty> list { property })
            if (item)
                for (const auto &element : *list)
                    if (ViewProperty *row = addProperty(element, owner))
                        item->addSubProperty(row);
    }
    if (!item)
        return nullptr;
    item->setOwner(owner);
    item->setData(property);
    updateSubProperties(item);
    return item;
}

void ViewPropertyManager::addProperties(
    PropertyDictionary &dictionary, TAutoPtr<const PropertyableObject> owner)
{
    if (mBrowser)
        mBrowser->setProperty("BLOCK_UPDATE_GEOMETRY", true);
    for (const auto &property : dictionary) {
        ViewProperty *row = addProperty(property, owner);
        if (mBrowser && row)
            mBrowser->addProperty(row);
    }
    if (mBrowser) {
        mBrowser->setProperty("BLOCK_UPDATE_GEOMETRY", false);
        // A browser that lays out rows lazily (the tree browser) catches up once here.
        if (mBrowser->metaObject()->indexOfMethod("forceUpdateGeometries()") >= 0)
            QMetaObject::invokeMethod(mBrowser, "forceUpdateGeometries", Qt::DirectConnection);
    }
}

QList<QtProperty *> ViewPropertyManager::rowsOf(
    const PropertyDictionary &children, ViewProperty *parent)
{
    QList<QtProperty *> rows;
    for (const auto &child : children)
        if (ViewProperty *row = addProperty(child, parent->owner()))
            rows.append(row);
    return rows;
}

void ViewPropertyManager::updateSubProperties(QtProperty *property)
{
    ViewProperty *item = toViewProperty(property);
    if (!item || !item->data())
        return;
    const TAutoPtr<Property> data = item->data();
    // kept on purpose: replaced rows leave the tree only; they stay in this manager (and in
    // the editor factory's tables) until the next reload clears it.
    if (TAutoPtr<ExtendedSelectorProperty> selector { data }) {
        const TAutoPtr<Property> current = selector->current();
        QList<QtProperty *> rows;
        if (TAutoPtr<GroupProperty> group { current }) {
            rows = rowsOf(*group, item);
        } else if (TAutoPtr<ListProperty> { current }) {
            if (ViewProperty *row = addProperty(current, item->owner()))
                rows.append(row);
        }
        // An undefined row takes its new children hidden: one set, shown when defined.
        item->setChildren(rows);
    }
    if (TAutoPtr<ActivatableGroupProperty> activatable { data }) {
        const bool enabled = activatable->isDefined() && activatable->isActive();
        for (QtProperty *child : item->children())
            child->setEnabled(enabled);
    }
    if (TAutoPtr<ListProperty> list { data }) {
        // kept on purpose: outside the tree theme a list shows no children; the rows made by
        // addProperty a moment before are dropped here.
        QList<QtProperty *> rows;
        if (mWidgetsTheme == PropertyEditorFactory::WidgetsThemeTree)
            for (const auto &element : *list)
                if (ViewProperty *row = addProperty(element, item->owner()))
                    rows.append(row);
        item->setChildren(rows);
    }
}

bool ViewPropertyManager::hasValue(const QtProperty *property) const
{
    return property && toViewProperty(property)->owner();
}

QString ViewPropertyManager::valueText(const QtProperty *property) const
{
    const ViewProperty *item = property ? toViewProperty(property) : nullptr;
    if (!item || !item->data())
        return QString();
    const TAutoPtr<const Property> data = item->data();
    if (item->isUndefined() || data->isUndefined())
        return QString();
    if (TAutoPtr<const StringProperty> string { data })
        if (data->toString().isEmpty() && !string->placeholderText().isEmpty())
            return translate(string->placeholderText());
    // A browser that shows these kinds must have been given their providers; without one
    // the text falls back to the property's own.
    if (TAutoPtr<const FontProperty> font { data }) {
        if (mFontProvider) {
            const QString name = mFontProvider->familyName(font->font());
            return mFontProvider->isMissing(font->font())
                ? QLatin1Char('{') + mFontProvider->fontName(font->font()) + QLatin1Char('}')
                : name;
        }
    } else if (TAutoPtr<const BrushProperty> brush { data }) {
        if (mBrushProvider)
            return mBrushProvider->displayName(brush->brush());
    } else if (TAutoPtr<const PenStyleProperty> pen { data }) {
        if (mPenStyleProvider)
            return mPenStyleProvider->name(pen->penStyle());
    } else if (TAutoPtr<const LineHeadStyleProperty> head { data }) {
        if (mLineHeadStyleProvider)
            return mLineHeadStyleProvider->name(head->style());
    } else if (TAutoPtr<const StylesheetProperty> stylesheet { data }) {
        if (stylesheet->stylesheet() && mStylesheetManager)
            return mStylesheetManager->displayText(stylesheet->stylesheet());
    } else if (TAutoPtr<const BoolProperty> { data }) {
        return QString();
    }
    return translate(data->toString());
}

QIcon ViewPropertyManager::valueIcon(const QtProperty *property) const
{
    const ViewProperty *item = property ? toViewProperty(property) : nullptr;
    if (!item || !item->data())
        return QIcon();
    const TAutoPtr<const Property> data = item->data();
    const bool undefined = item->isUndefined() || data->isUndefined();
    QString iconName;
    if (!undefined) {
        if (TAutoPtr<const BrushProperty> brush { data }) {
            BrushControllerQt controller(mBrushProvider, 1);
            return QIcon(controller.brushPreview(brush->brush(), Device::size(Device::SizeType5)));
        }
        iconName = data->iconName();
    } else if (TAutoPtr<const BoolProperty> { data }) {
        iconName = QStringLiteral(":/TavoLib/Controls/check-undefined");
    }
    if (iconName.isEmpty())
        return QIcon();
    if (data->allowColorizeIcon() && mBrowser) {
        const QColor colour = mBrowser->palette().buttonText().color();
        return QIcon(Device::pixmap(iconName, Device::SizeType5, &colour));
    }
    return QIcon(Device::pixmap(iconName, Device::SizeType5));
}

void ViewPropertyManager::propertyValueChanged(QtProperty *property)
{
    if (!property)
        return;
    {
        // decided: no listener of an edit runs while rows are being replaced; an editor that
        // commits as its row goes is told after the refresh that removed it.
        const QScopedValueRollback<int> refreshing(mRefreshing, mRefreshing + 1);
        updateSubProperties(property);
        emit propertyChanged(property);
    }
    if (!mPendingEdits.contains(property))
        mPendingEdits.append(property);
    if (mRefreshing > 0)
        return;
    // A listener may clear the rows: each one is taken out before it is told, and rows that
    // go meanwhile leave the list through uninitializeProperty.
    while (!mPendingEdits.isEmpty())
        emit propertyEdited(mPendingEdits.takeFirst());
}

} // namespace TavoLib
