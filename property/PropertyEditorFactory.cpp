#include "property/PropertyEditorFactory.h"

#include "controls/Ta_UnitEdit.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/SelectorProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"
#include "menus/MyComboBox.h"
#include "pickers/BrushControllerQt.h"
#include "pickers/FontControllerQt.h"
#include "pickers/LineHeadStyleControllerQt.h"
#include "pickers/PenStyleControllerQt.h"
#include "property/EditorKit_p.h"
#include "property/ListPropertyWidget.h"
#include "style/Device.h"
#include "widgets/MyDoubleSpinBox.h"
#include "widgets/MyWidget.h"
#include "widgets/Ta_ColorView.h"

#include <algorithm>

#include <QAbstractSpinBox>
#include <QActionGroup>
#include <QEvent>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMetaType>
#include <QSpinBox>
#include <QStyle>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextFrame>
#include <QToolButton>
#include <QVBoxLayout>

namespace TavoLib {

using namespace EditorKit;

PropertyEditorFactory::PropertyEditorFactory(QObject *parent, bool liveStringUpdates)
    : QObject(parent), mLiveStringUpdates(liveStringUpdates)
{
    static bool registered = false;
    if (!registered) {
        qRegisterMetaType<Property::Ptr>("TavoLib_Property_Ptr");
        registered = true;
    }
}

PropertyEditorFactory::~PropertyEditorFactory() = default;

void PropertyEditorFactory::setWidgetsTheme(WidgetsTheme theme)
{
    mWidgetsTheme = theme;
}

void PropertyEditorFactory::setWithEditorFrame(bool withFrame)
{
    mWithEditorFrame = withFrame;
}

void PropertyEditorFactory::setBrushProvider(TAutoPtr<BrushProviderQt const> provider)
{
    if (provider == mBrushProvider)
        return;
    mBrushProvider = provider;
    // kept on purpose: without force, so a provider with the same stamp (the default 0
    // included) refreshes nothing.
    updateBrushEditors(false);
}

void PropertyEditorFactory::setFontProvider(TAutoPtr<FontProviderQt const> provider)
{
    if (provider == mFontProvider)
        return;
    mFontProvider = provider;
    // kept on purpose: without force; a refresh leaves the font fields without a selection
    // until the next apply, which nothing here starts.
    updateFontEditors(false);
}

void PropertyEditorFactory::setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider)
{
    mPenStyleProvider = provider;
}

void PropertyEditorFactory::setLineHeadStyleProvider(
    TAutoPtr<LineHeadStyleProviderQt const> provider)
{
    mLineHeadStyleProvider = provider;
}

void PropertyEditorFactory::setTranslator(TAutoPtr<Translator const> translator)
{
    mTranslator = translator;
}

void PropertyEditorFactory::setStylesheetManager(TAutoPtr<StylesheetManager const> manager)
{
    mStylesheetManager = manager;
}

QString PropertyEditorFactory::translate(const QString &text) const
{
    return mTranslator ? mTranslator->translate(text) : text;
}

void PropertyEditorFactory::registerEditor(
    QWidget *editor, EditorMap &editors, TAutoPtr<Property> property)
{
    editors[editor] = property;
    QList<QWidget *> &named = mByName[property ? property->uniqueName() : QString()];
    if (!named.contains(editor))
        named.append(editor);
    connect(editor, &QObject::destroyed, this, &PropertyEditorFactory::editorDestroyed,
        Qt::UniqueConnection);
}

TAutoPtr<Property> PropertyEditorFactory::toProperty(QWidget *editor) const
{
    for (const auto &owner : mEditors) {
        auto found = owner.second.constFind(editor);
        if (found != owner.second.constEnd())
            return found.value();
    }
    return TAutoPtr<Property>();
}

TAutoPtr<Property> PropertyEditorFactory::editedProperty(QObject *sender) const
{
    // While values are applied the widgets signal as their rows change; those signals are
    // not edits and must not write into the property being applied.
    if (!writesAllowed())
        return TAutoPtr<Property>();
    return toProperty(qobject_cast<QWidget *>(sender));
}

PropertyEditorFactory::FontControls PropertyEditorFactory::toFontControls(
    TAutoPtr<Property> property) const
{
    auto found = mFontControls.find(property);
    return found == mFontControls.end() ? FontControls() : found->second;
}

QList<QWidget *> PropertyEditorFactory::propertyEditors(TAutoPtr<Property const> property) const
{
    QList<QWidget *> result;
    if (!property)
        return result;
    for (const auto &owner : mEditors)
        for (auto it = owner.second.constBegin(); it != owner.second.constEnd(); ++it)
            if (it.value() == property)
                result.append(it.key());
    return result;
}

void PropertyEditorFactory::clear()
{
    // kept on purpose: the side maps are emptied only here, never pruned as editors die.
    mFontControls.clear();
    mEditors.clear();
    mReferenceSizeEditors.clear();
    mBrushEditors.clear();
    mPenStyleEditors.clear();
    mLineHeadStyleEditors.clear();
    mPresetCombos.clear();
    mByName.clear();
    mCurrentProperty = nullptr;
    mCurrentEditor = nullptr;
}

// ---- Making editors -----------------------------------------------------------------------

QWidget *PropertyEditorFactory::createEditor(
    TAutoPtr<Property> property, QWidget *parent, const QString &ownerIdentifier)
{
    mCurrentProperty = property;
    EditorMap &editors = mEditors[ownerIdentifier];
    QWidget *result = property ? makeEditor(property, parent, editors) : nullptr;
    mCurrentEditor = result;
    if (!result)
        return nullptr;
    // A widget that already draws with the parent's style is left as it is: setting the
    // same style again only repolishes it.
    QStyle *style = parent ? parent->style() : nullptr;
    QList<QWidget *> widgets = result->findChildren<QWidget *>();
    widgets.append(result);
    const QString name = translate(property->visibleName());
    for (QWidget *widget : qAsConst(widgets)) {
        if (style && widget->style() != style)
            widget->setStyle(style);
        finishEditor(widget, name);
    }
    // A list's cells were scaled once by the list's own factory, and rows it adds later are
    // scaled there too; scaling the whole list again would scale its first cells twice.
    if (!qobject_cast<ListPropertyWidget *>(result))
        Device::scale(result);
    return result;
}

void PropertyEditorFactory::finishEditor(QWidget *widget, const QString &name)
{
    if (widget->focusPolicy() != Qt::NoFocus && widget->accessibleName().isEmpty())
        widget->setAccessibleName(name);
    // A combo box or spin box of a panel changes under the wheel only with the focus;
    // otherwise the wheel scrolls the panel. The unit spin box guards itself.
    if ((qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractSpinBox *>(widget))
        && !qobject_cast<MyDoubleSpinBox *>(widget)) {
        widget->setFocusPolicy(Qt::StrongFocus);
        widget->installEventFilter(this);
    }
}

bool PropertyEditorFactory::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel) {
        auto *widget = static_cast<QWidget *>(watched);
        if (!widget->hasFocus()) {
            // Ignored and filtered: Qt hands the wheel on to the parent, which scrolls.
            event->ignore();
            return true;
        }
    } else if (event->type() == QEvent::FocusOut) {
        // Leaving a several-line text is its commit, where its length is checked.
        if (auto *text = qobject_cast<QTextEdit *>(watched)) {
            TAutoPtr<StringProperty> string(toProperty(static_cast<QWidget *>(text)));
            if (string && writesAllowed() && !mWarning && text->toPlainText() != string->value())
                commitString(string, text, true, true);
        }
    }
    return QObject::eventFilter(watched, event);
}

QWidget *PropertyEditorFactory::makeEditor(
    TAutoPtr<Property> property, QWidget *parent, EditorMap &editors)
{
    // The kinds are tried in this fixed order, first match wins: a font size before its base
    // unit value.
    if (TAutoPtr<IntegerProperty> integer { property })
        return makeIntegerEditor(integer, parent, editors);
    if (TAutoPtr<StringProperty> string { property })
        return makeStringEditor(string, parent, editors);
    if (TAutoPtr<SelectorProperty> selector { property }) {
        if (selector->mode() == SelectorProperty::ButtonsMode)
            return makeSelectorButtons(selector, parent, editors);
        if (selector->mode() == SelectorProperty::MenuButtonMode)
            return makeSelectorMenuButton(selector, parent, editors);
        return makeSelectorCombo(selector, parent, editors);
    }
    if (TAutoPtr<StylesheetProperty> stylesheet { property })
        return makeStylesheetEditor(stylesheet, parent, editors);
    if (TAutoPtr<ExtendedSelectorProperty> extended { property })
        return makeExtendedSelectorEditor(extended, parent, editors);
    if (TAutoPtr<ActivatableGroupProperty> activatable { property })
        return makeActivatableGroupEditor(activatable, parent, editors);
    if (TAutoPtr<ListProperty> list { property })
        return makeListEditor(list, parent, editors);
    if (TAutoPtr<BoolProperty> boolean { property })
        return makeBoolEditor(boolean, parent, editors);
    if (TAutoPtr<CustomColorProperty> color { property })
        return makeCustomColorEditor(color, parent, editors);
    if (TAutoPtr<BrushProperty> brush { property })
        return makeBrushEditor(brush, parent, editors);
    if (TAutoPtr<PenStyleProperty> pen { property })
        return makePenStyleEditor(pen, parent, editors);
    if (TAutoPtr<LineHeadStyleProperty> head { property })
        return makeLineHeadStyleEditor(head, parent, editors);
    if (TAutoPtr<FontProperty> font { property })
        return makeFontEditor(font, parent, editors);
    if (TAutoPtr<FontSizeProperty> size { property })
        return makeFontSizeEditor(size, parent, editors);
    if (TAutoPtr<UnitValueProperty> measure { property })
        return makeUnitValueEditor(measure, parent, editors);
    if (TAutoPtr<UnitValueSelectorProperty> measures { property })
        return makeUnitValueSelectorEditor(measures, parent, editors);
    return nullptr;
}

bool PropertyEditorFactory::isFormTheme() const
{
    return mWidgetsTheme == WidgetsThemeForm || mWidgetsTheme == WidgetsThemeCompact;
}

int PropertyEditorFactory::gapWidth() const
{
    return mWithEditorFrame ? int(Device::scale(4.0)) : 1;
}

// ---- Applying values ----------------------------------------------------------------------

void PropertyEditorFactory::applyPropertyValues(TavoLib::Property::Ptr property)
{
    applyPropertyValues(property, QString());
}

void PropertyEditorFactory::applyPropertyValues(
    TavoLib::Property::Ptr property, QString ownerIdentifier)
{
    if (!property)
        return;
    EditorMap &editors = mEditors[ownerIdentifier];
    Property::Ptr old;
    QList<QWidget *> widgets;
    // The candidates in widget order, as the owner's map holds them.
    QList<QWidget *> candidates = mByName.value(property->uniqueName());
    std::sort(candidates.begin(), candidates.end());
    for (QWidget *candidate : qAsConst(candidates)) {
        auto it = editors.find(candidate);
        if (it == editors.end() || !it.value()
            || it.value()->uniqueName() != property->uniqueName())
            continue;
        old = it.value();
        it.value() = property;
        widgets.append(it.key());
    }
    if (widgets.isEmpty())
        return;
    if (old) {
        // kept on purpose: applying the registered object itself drops its side entries, as
        // the copy is erased under the same key.
        auto move = [&](auto &map) {
            auto found = map.find(old);
            if (found == map.end())
                return;
            auto entry = found->second;
            map[property] = entry;
            map.erase(old);
        };
        move(mFontControls);
        move(mReferenceSizeEditors);
        move(mBrushEditors);
        move(mPenStyleEditors);
        move(mLineHeadStyleEditors);
    }
    // The widgets signal as their rows and values change; those signals must not write into
    // the property being applied, so the slots stand still until the end.
    const CountingScope applying(mApplying);
    applyValues(property, widgets);
}

void PropertyEditorFactory::applyValues(
    TAutoPtr<Property> property, const QList<QWidget *> &widgets)
{
    // The kinds in the fixed order of the apply; the last five follow their applied property
    // too, so that an editor never goes on showing the value of an object that is no longer
    // registered.
    if (TAutoPtr<FontSizeProperty> size { property })
        applyFontSize(size, widgets);
    else if (TAutoPtr<BoolProperty> boolean { property })
        applyBool(boolean, widgets);
    else if (TAutoPtr<StringProperty> string { property })
        applyString(string, widgets);
    else if (TAutoPtr<UnitValueProperty> measure { property })
        applyUnitValue(measure, widgets);
    else if (TAutoPtr<UnitValueSelectorProperty> measures { property })
        applyUnitValueSelector(measures, widgets);
    else if (TAutoPtr<SelectorProperty> selector { property })
        applySelector(selector, widgets);
    else if (TAutoPtr<ExtendedSelectorProperty> extended { property })
        applyExtendedSelector(extended, widgets);
    else if (TAutoPtr<BrushProperty> brush { property })
        applyBrush(brush, widgets);
    else if (TAutoPtr<PenStyleProperty> pen { property })
        applyPenStyle(pen, widgets);
    else if (TAutoPtr<LineHeadStyleProperty> head { property })
        applyLineHeadStyle(head, widgets);
    else if (TAutoPtr<FontProperty> font { property })
        applyFont(font, widgets);
    else if (TAutoPtr<IntegerProperty> integer { property })
        applyInteger(integer, widgets);
    else if (TAutoPtr<StylesheetProperty> stylesheet { property })
        applyStylesheet(stylesheet, widgets);
    else if (TAutoPtr<ActivatableGroupProperty> activatable { property })
        applyActivatableGroup(activatable, widgets);
    else if (TAutoPtr<ListProperty> list { property })
        applyList(list, widgets);
    else if (TAutoPtr<CustomColorProperty> color { property })
        applyCustomColor(color, widgets);
}

void PropertyEditorFactory::updateEditors(bool force)
{
    updateFontEditors(force);
    updateBrushEditors(force);
    updatePenStyleEditors(force);
    updateLineHeadStyleEditors(force);
}

void PropertyEditorFactory::editorDestroyed(QObject *obj)
{
    // Only the address is compared: the widget part of obj is already gone, so no cast
    // that looks at the object may be used.
    QWidget *widget = reinterpret_cast<QWidget *>(obj);
    for (auto &owner : mEditors) {
        auto found = owner.second.find(widget);
        if (found != owner.second.end()) {
            if (found.value()) {
                auto named = mByName.find(found.value()->uniqueName());
                if (named != mByName.end() && named->removeAll(widget) > 0 && named->isEmpty())
                    mByName.erase(named);
            }
            owner.second.erase(found);
            return;
        }
    }
}

} // namespace TavoLib
