// The style kinds of PropertyEditorFactory: brushes, pen styles, line heads and fonts over
// the host's providers, and their refresh when a provider changed.
#include "core/QtCompat_p.h"
#include "property/PropertyEditorFactory.h"

#include "property/EditorKit_p.h"

#include "core/BrushProperty.h"
#include "core/FontProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/PenStyleProperty.h"
#include "pickers/BrushControllerQt.h"
#include "pickers/FontControllerQt.h"
#include "pickers/LineHeadStyleControllerQt.h"
#include "pickers/PenStyleControllerQt.h"
#include "widgets/MyWidget.h"

#include <QAction>

namespace TavoLib {

using namespace EditorKit;

QComboBox *PropertyEditorFactory::makeIndexCombo(const Property::Ptr &property, QWidget *parent,
    EditorMap &editors, std::map<Property::Ptr, QPointer<QWidget>> &combos,
    const std::function<void(QComboBox *)> &populate, void (PropertyEditorFactory::*slot)(int))
{
    QComboBox *combo = newCombo(parent, false);
    if (property->isUndefinable())
        addBlankRow(combo);
    populate(combo);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, slot);
    combos[property] = combo;
    registerEditor(combo, editors, property);
    return combo;
}

QWidget *PropertyEditorFactory::makeBrushEditor(
    TAutoPtr<BrushProperty> brush, QWidget *parent, EditorMap &editors)
{
    return makeIndexCombo(
        brush, parent, editors, mBrushEditors,
        [&](QComboBox *combo) {
            if (mBrushProvider)
                BrushControllerQt(mBrushProvider)
                    .populate(combo, brush->onlyColors(),
                        brush->isUndefined() ? NoIndex : brush->brush());
        },
        &PropertyEditorFactory::brushPropertyChanged);
}

QWidget *PropertyEditorFactory::makePenStyleEditor(
    TAutoPtr<PenStyleProperty> pen, QWidget *parent, EditorMap &editors)
{
    return makeIndexCombo(
        pen, parent, editors, mPenStyleEditors,
        [&](QComboBox *combo) {
            if (mPenStyleProvider)
                PenStyleControllerQt(mPenStyleProvider)
                    .populate(combo, pen->isUndefined() ? NoIndex : pen->penStyle());
        },
        &PropertyEditorFactory::penStylePropertyChanged);
}

QWidget *PropertyEditorFactory::makeLineHeadStyleEditor(
    TAutoPtr<LineHeadStyleProperty> head, QWidget *parent, EditorMap &editors)
{
    return makeIndexCombo(
        head, parent, editors, mLineHeadStyleEditors,
        [&](QComboBox *combo) {
            if (mLineHeadStyleProvider)
                LineHeadStyleControllerQt(mLineHeadStyleProvider)
                    .populate(
                        head->isAtLineEnd(), combo, head->isUndefined() ? NoIndex : head->style());
        },
        &PropertyEditorFactory::lineHeadStylePropertyChanged);
}

QWidget *PropertyEditorFactory::makeFontEditor(
    TAutoPtr<FontProperty> font, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(font);
    const int gap = gapWidth();
    auto *widget = new MyWidget(parent);
    widget->setContentsMargins(0, 0, 0, 0);
    auto *layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QWidget *family = nullptr;
    QWidget *style = nullptr;
    QWidget *third = nullptr;
    createFontEditors(font, widget, family, style, third);
    layout->addWidget(family);
    layout->addItem(new QSpacerItem(gap, gap, QSizePolicy::Fixed, QSizePolicy::Minimum));
    layout->addWidget(style);
    registerEditor(family, editors, property);
    registerEditor(style, editors, property);
    mFontControls[property] = FontControls { family, style };
    widget->setFocusProxy(family);
    registerEditor(widget, editors, property);
    return widget;
}

void PropertyEditorFactory::createFontEditors(TAutoPtr<FontProperty> property, QWidget *parent,
    QWidget *&family, QWidget *&style, QWidget *&third)
{
    Q_UNUSED(third)
    auto *familyCombo = new QComboBox(parent);
    // The field asks for room for a usual family name, not for the longest one installed:
    // a panel does not widen with the font list, and that list (hundreds of names) is not
    // measured again for every font field of every load. The pop-up still shows whole names.
    familyCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    familyCombo->setMinimumContentsLength(16);
    if (mFontProvider)
        FontControllerQt(mFontProvider).populateFamilies(familyCombo, property->font(), false);
    if (property->isUndefinable())
        insertAnyFamilyRow(familyCombo);
    const QString name = translate(property->visibleName());
    familyCombo->setAccessibleName(tr("%1 family").arg(name));
    familyCombo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    familyCombo->setFrame(mWithEditorFrame);
    auto *styleCombo = new QComboBox(parent);
    if (mFontProvider)
        FontControllerQt(mFontProvider).populateStyles(styleCombo, property->font());
    styleCombo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    styleCombo->setFrame(mWithEditorFrame);
    styleCombo->setAccessibleName(tr("%1 style").arg(name));
    if (property->isUndefined()) {
        familyCombo->setCurrentIndex(0);
        styleCombo->hide();
    }
    connect(familyCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    connect(styleCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    family = familyCombo;
    style = styleCombo;
}

void PropertyEditorFactory::applyBrush(
    TAutoPtr<BrushProperty> brush, const QList<QWidget *> &widgets)
{
    auto *combo = qobject_cast<QComboBox *>(widgets.first());
    if (!combo || !mBrushProvider)
        return;
    const BrushControllerQt controller(mBrushProvider);
    // Only for brushes are the rows removed with the combo box's signals blocked.
    applyIndex(
        combo, *brush, [&](QComboBox *c) { return controller.brushAt(0, c) == NoIndex; },
        [&] { controller.setCurrentBrush(combo, brush->brush()); }, true);
}

void PropertyEditorFactory::applyPenStyle(
    TAutoPtr<PenStyleProperty> pen, const QList<QWidget *> &widgets)
{
    auto *combo = qobject_cast<QComboBox *>(widgets.first());
    if (!combo || !mPenStyleProvider)
        return;
    const PenStyleControllerQt controller(mPenStyleProvider);
    applyIndex(
        combo, *pen, [&](QComboBox *c) { return controller.penStyleAt(0, c) == NoIndex; },
        [&] { controller.setCurrentPenStyle(combo, pen->penStyle()); });
}

void PropertyEditorFactory::applyLineHeadStyle(
    TAutoPtr<LineHeadStyleProperty> head, const QList<QWidget *> &widgets)
{
    auto *combo = qobject_cast<QComboBox *>(widgets.first());
    if (!combo || !mLineHeadStyleProvider)
        return;
    const LineHeadStyleControllerQt controller(mLineHeadStyleProvider);
    applyIndex(
        combo, *head, [&](QComboBox *c) { return controller.styleAt(0, c) == NoIndex; },
        [&] { controller.setCurrentStyle(combo, head->style()); });
}

void PropertyEditorFactory::applyFont(TAutoPtr<FontProperty> font, const QList<QWidget *> &widgets)
{
    const FontControls controls = toFontControls(toProperty(widgets.first()));
    auto *family = qobject_cast<QComboBox *>(controls.family.data());
    auto *style = qobject_cast<QComboBox *>(controls.style.data());
    if (!family || !style)
        return;
    disconnect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    disconnect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    const auto blankText = [](QComboBox *c) { return c->itemText(0).isEmpty(); };
    if (font->isDefined()) {
        hideBlankRow(family, blankText);
        if (mFontProvider)
            FontControllerQt(mFontProvider).setCurrentFont(family, style, font->font());
        style->show();
    } else {
        showBlankRow(family, blankText);
        family->setItemData(0, QStringLiteral("any"), FamilyMarkerRole);
        style->hide();
        clearStyleCombo(style);
    }
    connect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    connect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
}

void PropertyEditorFactory::updateFontEditors(bool force)
{
    if (!mFontProvider || (!force && mFontProvider->hash() == mFontProviderStamp))
        return;
    const FontControllerQt controller(mFontProvider);
    for (const auto &entry : mFontControls) {
        auto *family = qobject_cast<QComboBox *>(entry.second.family.data());
        auto *style = qobject_cast<QComboBox *>(entry.second.style.data());
        if (!family || !style)
            continue;
        bool blocked = family->blockSignals(true);
        family->clear();
        controller.populateFamilies(family, -1, false);
        // The "any" row of an undefinable font comes back with the list, as the blank row
        // of a brush, pen or line head does.
        if (TAutoPtr<FontProperty> font { entry.first })
            if (font->isUndefinable())
                insertAnyFamilyRow(family);
        family->blockSignals(blocked);
        blocked = style->blockSignals(true);
        clearStyleCombo(style);
        style->blockSignals(blocked);
    }
    mFontProviderStamp = mFontProvider->hash();
}

void PropertyEditorFactory::updateBrushEditors(bool force)
{
    if (!mBrushProvider || (!force && mBrushProvider->hash() == mBrushProviderStamp))
        return;
    const BrushControllerQt controller(mBrushProvider);
    const CountingScope applying(mApplying);
    repopulate<BrushProperty>(mBrushEditors, [&](QComboBox *combo, const BrushProperty &p) {
        controller.populate(combo, p.onlyColors(), p.isUndefined() ? NoIndex : p.brush());
    });
    mBrushProviderStamp = mBrushProvider->hash();
}

void PropertyEditorFactory::updatePenStyleEditors(bool)
{
    if (!mPenStyleProvider)
        return;
    const PenStyleControllerQt controller(mPenStyleProvider);
    const CountingScope applying(mApplying);
    repopulate<PenStyleProperty>(
        mPenStyleEditors, [&](QComboBox *combo, const PenStyleProperty &p) {
            controller.populate(combo, p.isUndefined() ? NoIndex : p.penStyle());
        });
}

void PropertyEditorFactory::updateLineHeadStyleEditors(bool)
{
    if (!mLineHeadStyleProvider)
        return;
    const LineHeadStyleControllerQt controller(mLineHeadStyleProvider);
    const CountingScope applying(mApplying);
    repopulate<LineHeadStyleProperty>(
        mLineHeadStyleEditors, [&](QComboBox *combo, const LineHeadStyleProperty &p) {
            controller.populate(p.isAtLineEnd(), combo, p.isUndefined() ? NoIndex : p.style());
        });
}

void PropertyEditorFactory::brushPropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<BrushProperty> property(editedProperty(sender()));
    if (!property || !combo || !mBrushProvider)
        return;
    writeIndex(*property, BrushControllerQt(mBrushProvider).currentBrush(combo),
        &BrushProperty::brush, &BrushProperty::setBrush);
    emit propertyChanged(property);
}

void PropertyEditorFactory::penStylePropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<PenStyleProperty> property(editedProperty(sender()));
    if (!property || !combo || !mPenStyleProvider)
        return;
    writeIndex(*property, PenStyleControllerQt(mPenStyleProvider).currentPenStyle(combo),
        &PenStyleProperty::penStyle, &PenStyleProperty::setPenStyle);
    emit propertyChanged(property);
}

void PropertyEditorFactory::lineHeadStylePropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<LineHeadStyleProperty> property(editedProperty(sender()));
    if (!property || !combo || !mLineHeadStyleProvider)
        return;
    writeIndex(*property, LineHeadStyleControllerQt(mLineHeadStyleProvider).currentStyle(combo),
        &LineHeadStyleProperty::style, &LineHeadStyleProperty::setStyle);
    emit propertyChanged(property);
}

void PropertyEditorFactory::fontFamilyPropertyChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    const FontControls controls = toFontControls(editedProperty(sender()));
    auto *family = qobject_cast<QComboBox *>(controls.family.data());
    auto *style = qobject_cast<QComboBox *>(controls.style.data());
    if (!family || !style)
        return;
    disconnect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    disconnect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    const QString remembered = style->currentText();
    clearStyleCombo(style);
    const bool any = !family->currentData(FamilyMarkerRole).isNull();
    style->setVisible(!any);
    if (!any && mFontProvider) {
        const FontControllerQt controller(mFontProvider);
        controller.populateStyles(style, family);
        const int found = style->findData(remembered, Qt::DisplayRole, Qt::MatchCaseSensitive);
        if (found >= 0) {
            style->setCurrentIndex(found);
        } else if (style->count() > 0) {
            int chosen = 0;
            for (int row = 0; row < style->count(); ++row) {
                style->setCurrentIndex(row);
                const short font = controller.currentFont(family, style);
                if (font != -1 && !mFontProvider->isMissing(font)) {
                    chosen = row;
                    break;
                }
            }
            style->setCurrentIndex(chosen);
        }
    }
    connect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    connect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    fontPropertyChanged();
}

void PropertyEditorFactory::fontStylePropertyChanged()
{
    fontPropertyChanged();
}

void PropertyEditorFactory::fontPropertyChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    TAutoPtr<FontProperty> property(editedProperty(sender()));
    if (!property)
        return;
    const FontControls controls = toFontControls(property);
    auto *family = qobject_cast<QComboBox *>(controls.family.data());
    auto *style = qobject_cast<QComboBox *>(controls.style.data());
    if (!family || !style)
        return;
    property->setUndefined(!family->currentData(FamilyMarkerRole).isNull());
    if (property->isDefined() && mFontProvider) {
        const short font = FontControllerQt(mFontProvider).currentFont(family, style);
        if (font != property->font() && font != -1)
            property->setFont(font);
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::fontPropertyByMenuChanged(QAction *action)
{
    // A font menu made by FontControllerQt::populateMenu that a host connected: the chosen
    // action's font goes into the property registered for the menu's widget.
    if (!action || !mFontProvider)
        return;
    QWidget *host = nullptr;
    for (QWidget *widget : QtCompat::associatedWidgets(action))
        if (toProperty(widget)) {
            host = widget;
            break;
        }
    TAutoPtr<FontProperty> property(
        host && writesAllowed() ? toProperty(host) : TAutoPtr<Property>());
    if (!property)
        return;
    const short font = FontControllerQt(mFontProvider).currentFont(action);
    if (font == -1)
        return;
    property->setUndefined(false);
    if (property->font() != font)
        property->setFont(font);
    emit propertyChanged(property);
}

} // namespace TavoLib
