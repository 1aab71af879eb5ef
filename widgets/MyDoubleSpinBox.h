#pragma once

// MyDoubleSpinBox is the measure field with arrows: a spin box whose text field is a
// Ta_UnitEdit, so the user types numbers, units and expressions as in any unit field and
// steps the value by the smallest shown digit with the arrows, the Up and Down keys (Page Up
// and Page Down step ten times as far) or the wheel. The wheel turns the value only while the
// field has the focus; otherwise it scrolls whatever holds the field. A step is a commit of
// its own: it sends valueOnComplete once, as Return or leaving the field does.
#include "controls/Ta_UnitEdit.h"
#include "core/TAutoPtr.h"
#include "style/TavoLibGuiExport.h"

#include <QAbstractSpinBox>

namespace TavoLib {
class UnitValueProperty;
}

class TAVOLIBGUI_EXPORT MyDoubleSpinBox : public QAbstractSpinBox
{
    Q_OBJECT
public:
    explicit MyDoubleSpinBox(QWidget *parent = nullptr);
    ~MyDoubleSpinBox() override;

    // Takes everything from a measure property: unit, limits, precision, special value and
    // text, the second unit when the property uses one, allowEmpty from isUndefinable(), and
    // the value, or an empty field when the property is undefined.
    // `specialValueText` is the text shown for the special value, translated by the caller;
    // a null string takes the property's own, untranslated.
    void setUnitValueProperty(TAutoPtr<const TavoLib::UnitValueProperty> property,
        const QString &specialValueText = QString());
    // Sets up any unit field from a measure property, as setUnitValueProperty does for the
    // spin box's own field.
    static void configureUnitEdit(Ta_UnitEdit *edit, const TavoLib::UnitValueProperty &property,
        const QString &specialValueText);
    // Shows `value` in `unit` with the limits and precision given. `allowEmpty` lets the user
    // empty the field (the undefined value); `useSecondUnit` also accepts the second unit
    // the inner edit is set up with (per cent from 0 to 100 unless set otherwise on it).
    void setUnitValue(const UnitValue &value, unsigned int unit, double minimum, double maximum,
        int precision, bool allowEmpty, bool useSecondUnit);

    // The field is empty: the value is undefined.
    bool isUndefined() const;
    bool allowEmpty() const;
    // The text shown for the special value, which keeps its number; a field showing the old
    // text shows the new one. Hides QAbstractSpinBox's, which knows nothing of the field.
    void setSpecialValueText(const QString &text);

    // The inner field, which holds the value and the limits. After changing the limits on it
    // directly, call updateGeometry() so that the size hint follows.
    Ta_UnitEdit *unitEdit() const { return mEdit; }

    // Moves the value by `steps` times the smallest shown digit, within the limits of the
    // unit in use, and commits it. An empty field first takes the default value, kept inside
    // the limits, and steps from there; unreadable text and a read-only field do not step.
    void stepBy(int steps) override;
    // Which arrows work: none when read-only or the text is unreadable, both from an empty
    // field, and none past a limit of the unit in use.
    StepEnabled stepEnabled() const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // Once per commit: Return, leaving the field after a change, or a step.
    void valueOnComplete(const UnitValue &value);

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    // The limits and precision that apply to a value of `unit`'s class.
    struct Range
    {
        double minimum;
        double maximum;
        int precision;
    };
    Range rangeFor(const CUnit &unit) const;
    QSize hintFor(int height) const;

    Ta_UnitEdit *mEdit;
};
