// The measure kinds of PropertyEditorFactory: font sizes, unit values with or without
// presets, and measure selectors.
#include "property/PropertyEditorFactory.h"

#include "property/EditorKit_p.h"

#include "core/FontSizeProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"
#include "widgets/MyDoubleSpinBox.h"

#include <QLabel>
#include <QPointer>

namespace TavoLib {

using namespace EditorKit;

QWidget *PropertyEditorFactory::makeFontSizeEditor(
    TAutoPtr<FontSizeProperty> size, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(size);
    const int gap = gapWidth();
    auto *container = new QWidget(parent);
    container->setContentsMargins(0, 0, 0, 0);
    auto *layout = rowLayout(container);
    layout->setSpacing(0);
    auto *edit = new Ta_UnitEdit(container);
    if (size->hasPresets()) {
        QComboBox *combo = CreateUnitValueComboBox(size, edit, container);
        mPresetCombos[combo] = edit;
        registerEditor(combo, editors, property);
        layout->addWidget(combo);
    } else {
        layout->addWidget(edit);
    }
    layout->addItem(new QSpacerItem(gap, gap, QSizePolicy::Fixed, QSizePolicy::Minimum));
    MyDoubleSpinBox::configureUnitEdit(edit, *size, translate(size->specialValueText()));
    container->setFocusProxy(edit);
    auto *reference = new QComboBox(parent);
    reference->setFrame(mWithEditorFrame);
    if (size->isUndefined())
        reference->addItem(QString(), QVariant());
    reference->addItem(tr("Ascent Height"), QVariant(int(0)));
    reference->addItem(tr("Cap Height"), QVariant(int(1)));
    reference->setCurrentIndex(size->isUndefined()
            ? 0
            : (size->referenceSizeType() == FontSizeProperty::CapHeight ? 1 : 0));
    connect(reference, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::referenceSizeTypeChanged);
    reference->setEnabled(!size->isUndefined());
    layout->addWidget(reference);
    registerEditor(edit, editors, property);
    registerEditor(reference, editors, property);
    mReferenceSizeEditors[property] = reference;
    registerEditor(container, editors, property);
    connect(edit, &Ta_UnitEdit::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
    connect(edit, &Ta_UnitEdit::valueOnComplete, this, &PropertyEditorFactory::fontSizeChanged);
    return container;
}

QWidget *PropertyEditorFactory::makeUnitValueEditor(
    TAutoPtr<UnitValueProperty> measure, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(measure);
    const bool formTheme = isFormTheme();
    if (measure->readOnly()) {
        const CUnit unit(measure->unit());
        auto *label
            = new QLabel(UnitValue(measure->value().get(unit), unit).strWithUnit(3), parent);
        label->setObjectName(QStringLiteral("text"));
        if (mWidgetsTheme == WidgetsThemeCompact)
            label->setFixedSize(80, 18);
        registerEditor(label, editors, property);
        return label;
    }
    QWidget *container = rowContainer(parent);
    auto *layout = static_cast<QHBoxLayout *>(container->layout());
    if (!measure->hasPresets()) {
        auto *spin = new MyDoubleSpinBox(container);
        spin->setFrame(mWithEditorFrame);
        spin->setUnitValueProperty(measure, translate(measure->specialValueText()));
        container->setFocusProxy(spin);
        layout->addWidget(spin);
        if (formTheme) {
            addStretch(layout);
            spin->setMinimumWidth(90);
            spin->setMaximumWidth(130);
        }
        spin->setSpecialValueText(translate(measure->specialValueText()));
        connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
        registerEditor(spin, editors, property);
        registerEditor(spin->unitEdit(), editors, property);
        return container;
    }
    auto *edit = new Ta_UnitEdit(container);
    QComboBox *combo = CreateUnitValueComboBox(measure, edit, container);
    mPresetCombos[combo] = edit;
    registerEditor(combo, editors, property);
    layout->addWidget(combo);
    combo->setMinimumWidth(90);
    container->setFocusProxy(edit);
    if (formTheme)
        addStretch(layout);
    MyDoubleSpinBox::configureUnitEdit(edit, *measure, translate(measure->specialValueText()));
    registerEditor(edit, editors, property);
    connect(edit, &Ta_UnitEdit::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
    return container;
}

QWidget *PropertyEditorFactory::makeUnitValueSelectorEditor(
    TAutoPtr<UnitValueSelectorProperty> measures, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(measures);
    const bool formTheme = isFormTheme();
    if (measures->readOnly()) {
        auto *label = new QLabel(measures->valueText(), parent);
        label->setObjectName(QStringLiteral("text"));
        registerEditor(label, editors, property);
        return label;
    }
    QWidget *container = rowContainer(parent);
    auto *layout = static_cast<QHBoxLayout *>(container->layout());
    auto *spin = new MyDoubleSpinBox(container);
    spin->setFrame(mWithEditorFrame);
    auto *combo = new QComboBox(container);
    combo->setFrame(mWithEditorFrame);
    layout->addWidget(spin);
    layout->addWidget(combo);
    fillMeasureSelector(measures, spin, combo);
    container->setFocusProxy(spin);
    if (formTheme) {
        addStretch(layout);
        spin->setMinimumWidth(90);
        spin->setMaximumWidth(130);
    }
    connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        QOverload<int>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    registerEditor(spin, editors, property);
    registerEditor(spin->unitEdit(), editors, property);
    registerEditor(combo, editors, property);
    return container;
}

void PropertyEditorFactory::fillMeasureSelector(
    TAutoPtr<UnitValueSelectorProperty> property, MyDoubleSpinBox *spin, QComboBox *combo)
{
    if (property->isUndefinable()) {
        // kept on purpose: the blank row carries the id 0, not a null value, so choosing it
        // selects the item of id 0.
        combo->addItem(QString(), QVariant(int(0)));
        combo->insertSeparator(1);
        spin->setUnitValue(UnitValue(0, CUnit(BlankUnit)), BlankUnit, 0, 0, 0, false, false);
        // The blank row shows a blank field, not the number it carries; the field may stay
        // empty until a real item is chosen.
        spin->unitEdit()->setAllowEmpty(true);
        spin->unitEdit()->setText(QString());
        spin->setEnabled(false);
        combo->setCurrentIndex(0);
    }
    for (int id : *property) {
        combo->addItem(translate(property->itemName(id)), QVariant(int(id)));
        if (property->isDefined() && id == property->value()) {
            const UnitValue value = property->itemValue(id);
            spin->setUnitValue(value, value.unit().GetUnitID(), property->itemMinimum(id),
                property->itemMaximum(id), property->itemPrecision(id), false, false);
            // A real item is current: the spin box edits it, also after a blank row.
            spin->setEnabled(true);
            combo->setCurrentIndex(combo->count() - 1);
        }
    }
}

QComboBox *PropertyEditorFactory::CreateUnitValueComboBox(
    TAutoPtr<UnitValueProperty> property, QLineEdit *edit, QWidget *parent)
{
    auto *combo = new QComboBox(parent);
    combo->setFrame(mWithEditorFrame);
    // Made editable by the setLineEdit below: setEditable(true) would make a line edit of its
    // own only to have it replaced, and a widget deleted while a panel loads costs a walk
    // through every event still queued for the new widgets.
    combo->setInsertPolicy(QComboBox::NoInsert);
    for (const auto &preset : property->presets()) {
        if (preset.isSeparator())
            combo->insertSeparator(combo->count());
        else
            combo->addItem(translate(preset.name()), preset.value().strWithUnit(3));
    }
    combo->setCurrentIndex(-1);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::unitValuePresetChanged);
    // Choosing the preset that is already current changes no index: Qt then writes the
    // item's name into the field and says only activated. The slot's compare keeps a fresh
    // choice, which says both, to one write.
    connect(combo, QOverload<int>::of(&QComboBox::activated), this,
        &PropertyEditorFactory::unitValuePresetChanged);
    // The order matters: the line edit after the connection, and no completer after the
    // line edit, which brings one of its own.
    combo->setLineEdit(edit);
    combo->setEditText(property->valueText());
    combo->setMaxVisibleItems(30);
    combo->setCompleter(nullptr);
    return combo;
}

void PropertyEditorFactory::applyFontSize(
    TAutoPtr<FontSizeProperty> size, const QList<QWidget *> &widgets)
{
    Ta_UnitEdit *edit = firstOf<Ta_UnitEdit>(widgets);
    QComboBox *combo = nullptr;
    for (QWidget *widget : widgets)
        if (auto *candidate = qobject_cast<QComboBox *>(widget))
            if (!combo || combo->lineEdit())
                combo = candidate;
    if (combo && combo->lineEdit())
        combo = nullptr;
    if (!edit || !combo)
        return;
    disconnect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::referenceSizeTypeChanged);
    disconnect(edit, &Ta_UnitEdit::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
    disconnect(edit, &Ta_UnitEdit::valueOnComplete, this, &PropertyEditorFactory::fontSizeChanged);
    // kept on purpose: the undefined state, not the undefinable flag, allows the empty field.
    edit->setAllowEmpty(size->isUndefined());
    combo->setEnabled(!size->isUndefined());
    if (size->isDefined()) {
        if (combo->count() > 0 && combo->itemText(0).isEmpty())
            combo->removeItem(0);
        combo->setCurrentIndex(size->referenceSizeType() == FontSizeProperty::CapHeight ? 1 : 0);
        edit->setUnit(Ta_UnitEdit::UnitType(size->unit()));
        edit->setValue(size->value());
    } else {
        if (combo->count() == 0 || !combo->itemText(0).isEmpty())
            combo->insertItem(0, QString(), QVariant());
        combo->setCurrentIndex(0);
        edit->setText(QString());
    }
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::referenceSizeTypeChanged);
    connect(edit, &Ta_UnitEdit::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
    connect(edit, &Ta_UnitEdit::valueOnComplete, this, &PropertyEditorFactory::fontSizeChanged);
}

void PropertyEditorFactory::applyUnitValue(
    TAutoPtr<UnitValueProperty> measure, const QList<QWidget *> &widgets)
{
    if (measure->readOnly()) {
        if (auto *label = qobject_cast<QLabel *>(widgets.first())) {
            const CUnit unit(measure->unit());
            label->setText(UnitValue(measure->value().get(unit), unit).strWithUnit(3));
        }
        return;
    }
    for (QWidget *widget : widgets) {
        if (auto *spin = qobject_cast<MyDoubleSpinBox *>(widget)) {
            spin->setUnitValueProperty(measure, translate(measure->specialValueText()));
            return;
        }
        if (auto *edit = qobject_cast<Ta_UnitEdit *>(widget)) {
            if (auto *spin = qobject_cast<MyDoubleSpinBox *>(edit->parentWidget())) {
                spin->setUnitValueProperty(measure, translate(measure->specialValueText()));
                return;
            }
            const bool selected = allOrNothingSelected(edit);
            edit->setAllowEmpty(measure->isUndefinable());
            if (measure->isDefined()) {
                edit->setUnit(Ta_UnitEdit::UnitType(measure->unit()));
                edit->setValue(measure->value());
            } else {
                edit->setText(QString());
            }
            if (selected)
                edit->selectAll();
            return;
        }
    }
}

void PropertyEditorFactory::applyUnitValueSelector(
    TAutoPtr<UnitValueSelectorProperty> measures, const QList<QWidget *> &widgets)
{
    if (measures->readOnly()) {
        if (auto *label = qobject_cast<QLabel *>(widgets.first()))
            label->setText(measures->valueText());
        return;
    }
    auto *spin = firstOf<MyDoubleSpinBox>(widgets);
    auto *combo = firstOf<QComboBox>(widgets);
    if (!spin || !combo)
        return;
    disconnect(spin, &MyDoubleSpinBox::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    disconnect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        QOverload<int>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    combo->clear();
    fillMeasureSelector(measures, spin, combo);
    connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
        QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        QOverload<int>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
}

void PropertyEditorFactory::doublePropertyChanged(double)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *spin = qobject_cast<MyDoubleSpinBox *>(sender());
    TAutoPtr<UnitValueProperty> property(editedProperty(sender()));
    if (!property || !spin)
        return;
    const bool empty = spin->unitEdit()->text().isEmpty();
    property->setUndefined(empty);
    if (!empty) {
        const UnitValue value = spin->unitEdit()->value(nullptr);
        if (value == property->value())
            return;
        property->setValue(value);
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::referenceSizeTypeChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<FontSizeProperty> property(editedProperty(sender()));
    if (!property || !combo)
        return;
    const QVariant data = combo->currentData(Qt::UserRole);
    if (!data.isValid())
        return;
    property->setReferenceSizeType(FontSizeProperty::ReferenceSizeType(data.toInt() == 1 ? 1 : 0));
    emit propertyChanged(property);
}

void PropertyEditorFactory::unitValuePropertyChanged(const UnitValue &)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *edit = qobject_cast<Ta_UnitEdit *>(sender());
    if (!edit)
        if (auto *spin = qobject_cast<MyDoubleSpinBox *>(sender()))
            edit = spin->unitEdit();
    if (edit && writesAllowed())
        unitValuePropertyChanged(edit);
}

void PropertyEditorFactory::unitValuePropertyChanged(Ta_UnitEdit *edit)
{
    TAutoPtr<UnitValueProperty> property(toProperty(static_cast<QWidget *>(edit)));
    if (!property)
        return;
    const bool empty = edit->text().isEmpty();
    if (empty) {
        if (property->isUndefined())
            return;
        property->setUndefined(true);
        emit propertyChanged(property);
        return;
    }
    const UnitValue value = edit->value(nullptr);
    if (property->isDefined() && value == property->value())
        return;
    property->setUndefined(false);
    if (property->value() != value)
        property->setValue(value);
    emit propertyChanged(property);
}

void PropertyEditorFactory::unitValuePresetChanged(int itemIndex)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    auto found = mPresetCombos.find(combo);
    if (found == mPresetCombos.end() || !writesAllowed() || itemIndex < 0)
        return;
    Ta_UnitEdit *edit = found->second;
    combo->setEditText(combo->itemData(itemIndex).toString());
    // The property lives through the write even if a listener reloads.
    const TAutoPtr<Property> property(toProperty(static_cast<QWidget *>(edit)));
    QPointer<Ta_UnitEdit> guard(edit);
    unitValuePropertyChanged(edit);
    // A preset that defines a font size also enables its reference size, as typing does.
    if (guard && TAutoPtr<FontSizeProperty>(property))
        showFontSizeReference(property, edit);
}

void PropertyEditorFactory::fontSizeChanged(const UnitValue &)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *edit = qobject_cast<Ta_UnitEdit *>(sender());
    const TAutoPtr<Property> property(editedProperty(sender()));
    if (edit && property)
        showFontSizeReference(property, edit);
}

void PropertyEditorFactory::showFontSizeReference(TAutoPtr<Property> property, Ta_UnitEdit *edit)
{
    auto *combo = qobject_cast<QComboBox *>(mReferenceSizeEditors[property].data());
    if (!combo)
        return;
    // An emptied field reads as not ok: the reference size then has nothing to refer to.
    const bool empty = edit->text().isEmpty();
    bool ok = false;
    edit->value(&ok);
    ok = ok && !empty;
    combo->setEnabled(ok);
    // The blank row comes and goes for display only: the moving current row is no choice
    // of the user and must not write a reference size.
    const bool blocked = combo->blockSignals(true);
    const bool blank = !combo->itemData(0, Qt::UserRole).isValid();
    if (ok && blank) {
        combo->removeItem(0);
        if (TAutoPtr<FontSizeProperty> size { property })
            combo->setCurrentIndex(
                size->referenceSizeType() == FontSizeProperty::CapHeight ? 1 : 0);
    } else if (!ok && !blank) {
        combo->insertItem(0, QString(), QVariant());
        combo->setCurrentIndex(0);
    }
    combo->blockSignals(blocked);
}

void PropertyEditorFactory::unitValueSelectorPropertyChanged(const UnitValue &)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *spin = qobject_cast<MyDoubleSpinBox *>(sender());
    TAutoPtr<UnitValueSelectorProperty> property(editedProperty(sender()));
    if (!property || !spin)
        return;
    Ta_UnitEdit *edit = spin->unitEdit();
    const bool empty = edit->text().isEmpty();
    if (empty) {
        if (property->isUndefined())
            return;
        property->setUndefined(true);
        emit propertyChanged(property);
        return;
    }
    const UnitValue value = edit->value(nullptr);
    if (property->isDefined() && value == property->itemValue(property->value()))
        return;
    property->setUndefined(false);
    if (property->itemValue(property->value()) != value)
        property->setItemValue(property->value(), value);
    emit propertyChanged(property);
}

void PropertyEditorFactory::unitValueSelectorPropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<UnitValueSelectorProperty> property(editedProperty(sender()));
    if (!property || !combo)
        return;
    const int previous = property->value();
    const bool wasUndefined = property->isUndefined();
    int id = previous;
    MyDoubleSpinBox *spin = firstOf<MyDoubleSpinBox>(propertyEditors(property));
    // decided: only this editor's spin box is disconnected; taken literally ("all
    // senders"), every other measure selector would lose its spin box for good, since only
    // this one is connected again below.
    if (spin)
        disconnect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(
                &PropertyEditorFactory::unitValueSelectorPropertyChanged));
    const QVariant data = combo->currentData(Qt::UserRole);
    if (spin) {
        Ta_UnitEdit *edit = spin->unitEdit();
        const bool selected = allOrNothingSelected(edit);
        if (!data.isValid()) {
            property->setUndefined(true);
            configureEdit(edit, UnitValue(0, CUnit(BlankUnit)), 0, 0, 0);
            spin->setEnabled(false);
        } else {
            id = data.toInt();
            property->setUndefined(false);
            configureEdit(edit, property->itemValue(id), property->itemMinimum(id),
                property->itemMaximum(id), property->itemPrecision(id));
            spin->setEnabled(true);
        }
        if (selected)
            edit->selectAll();
        connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(
                &PropertyEditorFactory::unitValueSelectorPropertyChanged));
    } else if (data.isValid()) {
        id = data.toInt();
        property->setUndefined(false);
    } else {
        property->setUndefined(true);
    }
    // Also a change of the undefined state alone is an edit the listeners must hear.
    if (previous != id || wasUndefined != property->isUndefined()) {
        if (previous != id)
            property->setValue(id);
        emit propertyChanged(property);
    }
}

} // namespace TavoLib
