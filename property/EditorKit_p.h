#pragma once

// Small helpers shared by the files of PropertyEditorFactory: blank rows, row containers,
// the undefined box and the unit-field setup. Internal to the library.
#include "controls/Ta_UnitEdit.h"
#include "core/CustomColorProperty.h"
#include "core/Property.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>

#include <functional>
#include <map>

namespace TavoLib {
namespace EditorKit {

// The short index that stands for no value: the controllers select the blank row for it.
inline constexpr short NoIndex = -100;
// The unit code of the blank row of a measure selector.
inline constexpr unsigned int BlankUnit = 0x20202020;
// The role that marks the family row "any" of an undefinable font.
inline constexpr int FamilyMarkerRole = Qt::UserRole + 5;

inline void showBlankRow(QComboBox *combo, const std::function<bool(QComboBox *)> &isBlank)
{
    if (combo->count() == 0 || !isBlank(combo)) {
        combo->insertItem(0, QString(), QVariant());
        combo->insertSeparator(1);
    }
    combo->setCurrentIndex(0);
}

inline void hideBlankRow(QComboBox *combo, const std::function<bool(QComboBox *)> &isBlank)
{
    if (combo->count() > 0 && isBlank(combo)) {
        combo->removeItem(1);
        combo->removeItem(0);
    }
}

inline void addBlankRow(QComboBox *combo)
{
    combo->addItem(QString(), QVariant());
    combo->insertSeparator(combo->count());
}

inline QHBoxLayout *rowLayout(QWidget *container)
{
    auto *layout = new QHBoxLayout(container);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

inline QWidget *rowContainer(QWidget *parent)
{
    auto *container = new QWidget(parent);
    rowLayout(container);
    return container;
}

inline void addStretch(QBoxLayout *layout)
{
    layout->addItem(new QSpacerItem(0, 5, QSizePolicy::Expanding, QSizePolicy::Minimum));
}

// The box beside an undefinable field: ticked, the field has a value of its own. Named and
// explained, since it carries no text.
inline QCheckBox *undefinedBox(QWidget *container, const QString &name)
{
    auto *box = new QCheckBox(container);
    box->setFixedWidth(box->sizeHint().height());
    box->setToolTip(QCoreApplication::translate("TavoLib::PropertyEditorFactory",
        "Ticked: the value is set here. Unticked: it is left undefined."));
    box->setAccessibleName(
        QCoreApplication::translate("TavoLib::PropertyEditorFactory", "%1 defined").arg(name));
    return box;
}

// Empties the style combo box of a font field, with the marks by which the font controller
// knows it is already filled for a font: a later fill must not take it for up to date.
inline void clearStyleCombo(QComboBox *style)
{
    style->clear();
    style->setProperty("FontProvider hash", QVariant());
    style->setProperty("current font id", QVariant());
}

// The family row "any" of an undefinable font, with its separator, at the top.
inline void insertAnyFamilyRow(QComboBox *family)
{
    family->insertItem(0, QString(), QVariant());
    family->setItemData(0, QStringLiteral("any"), FamilyMarkerRole);
    family->insertSeparator(1);
}

template <class T> T *firstOf(const QList<QWidget *> &widgets)
{
    for (QWidget *widget : widgets)
        if (auto *found = qobject_cast<T *>(widget))
            return found;
    return nullptr;
}

inline bool allOrNothingSelected(const QLineEdit *edit)
{
    return edit->text().isEmpty() || edit->selectedText() == edit->text();
}

inline void configureEdit(
    Ta_UnitEdit *edit, const UnitValue &value, double minimum, double maximum, int precision)
{
    edit->setUnit(Ta_UnitEdit::UnitType(value.unit().GetUnitID()));
    edit->setMinimum(minimum);
    edit->setMaximum(maximum);
    edit->setPrecision(precision);
    edit->setValue(value);
    edit->setAllowEmpty(false);
}

// The write of the brush, pen and line-head slots: the index -100 is the blank row.
template <class Kind>
void writeIndex(Kind &property, short index, short (Kind::*get)() const, void (Kind::*set)(short))
{
    property.setUndefined(index == NoIndex);
    if (index != NoIndex && (property.*get)() != index)
        (property.*set)(index);
}

// Rebuilds the list of every live combo box of one side map: cleared, the blank row again
// for an undefinable property, then filled by `populate` with the current index.
template <class Kind, class Populate>
void repopulate(const std::map<Property::Ptr, QPointer<QWidget>> &editors, Populate populate)
{
    for (const auto &entry : editors) {
        TAutoPtr<Kind> property(entry.first);
        auto *combo = qobject_cast<QComboBox *>(entry.second.data());
        if (!combo || !property)
            continue;
        combo->clear();
        if (property->isUndefinable())
            addBlankRow(combo);
        populate(combo, *property);
    }
}

// Applies a short index to the combo box of a brush, pen or line head: the blank row
// shown when undefined, hidden and the index made current when defined.
template <class Blank, class SetCurrent>
void applyIndex(QComboBox *combo, const Property &property, Blank isBlank, SetCurrent setCurrent,
    bool quietRemoval = false)
{
    if (property.isDefined()) {
        const bool blocked = quietRemoval ? combo->blockSignals(true) : combo->signalsBlocked();
        hideBlankRow(combo, isBlank);
        combo->blockSignals(blocked);
        setCurrent();
    } else {
        showBlankRow(combo, isBlank);
    }
}

// The colour a custom colour property holds, opaque.
inline QColor colorOf(const CustomColorProperty &color)
{
    QColor shown;
    shown.setRgbF(color.red(), color.green(), color.blue(), 1.0);
    return shown;
}

// Counts up for its lifetime: the factory's apply guard, also right when an exception passes.
class CountingScope
{
public:
    explicit CountingScope(int &count) : mCount(count) { ++mCount; }
    ~CountingScope() { --mCount; }
    CountingScope(const CountingScope &) = delete;
    CountingScope &operator=(const CountingScope &) = delete;

private:
    int &mCount;
};

// A first row is blank when it carries no data (selectors and extended selectors).
inline bool isBlankData(QComboBox *combo)
{
    return combo->itemData(0).isNull();
}

} // namespace EditorKit
} // namespace TavoLib
