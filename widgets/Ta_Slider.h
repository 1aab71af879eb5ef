#pragma once

// Ta_Slider is a horizontal or vertical slider for a measure: its value is a UnitValue in the
// slider's unit, between a minimum and a maximum given in that unit, moved in steps of the
// last shown decimal (precision 1 in mm: 0.1 mm a step). The value is shown as a unit field
// shows it ("12.5mm"), in the tooltip and the accessible value, and beside the handle while
// it is dragged.
//
// A Ta_UnitEdit may be attached: it takes the slider's unit, limits and precision and shows
// the slider's value; moving the slider rewrites the field, and a value committed in the field
// (Return or leaving it) moves the slider. Each change reaches the other side once, without
// signals coming back, and unitValueChanged() comes once per change from either side. The
// wheel changes the slider only when it has the focus.
#include "controls/Ta_UnitEdit.h"
#include "core/units/UnitValue.h"
#include "style/TavoLibGuiExport.h"

#include <QPointer>
#include <QSlider>

class TAVOLIBGUI_EXPORT Ta_Slider : public QSlider
{
    Q_OBJECT
public:
    explicit Ta_Slider(QWidget *parent = nullptr);
    explicit Ta_Slider(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~Ta_Slider() override;

    Ta_UnitEdit::UnitType unit() const { return mUnit; }
    // Changes the unit; the limits and the value are converted into it.
    void setUnit(Ta_UnitEdit::UnitType unit);
    double minimumValue() const { return mMinimum; }
    double maximumValue() const { return mMaximum; }
    // Limits in the slider's unit; the value is clamped into them.
    void setValueRange(double minimum, double maximum);
    // Decimals of the shown value and of a step, 0 to 6.
    int precision() const { return mPrecision; }
    void setPrecision(int precision);

    // The value in the slider's unit; exact, also between two steps.
    UnitValue unitValue() const { return UnitValue(mValue, CUnit(mUnit)); }
    // The value as a unit field shows it.
    QString valueText() const;

    // Attaches `edit` (null detaches). The slider does not own it.
    void setUnitEdit(Ta_UnitEdit *edit);
    Ta_UnitEdit *unitEdit() const { return mEdit; }

public slots:
    // Takes `value` converted into the slider's unit and clamped; a value of another unit
    // class is ignored. Sends unitValueChanged() if the value changed.
    void setUnitValue(const UnitValue &value);

signals:
    void unitValueChanged(const UnitValue &value);

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    void init();
    // Sets the integer range and position from the measure without any signal.
    void updatePosition();
    void positionMoved(int position);
    void editCommitted(const UnitValue &value);
    void configureEdit();
    void showValue();
    // Steps per unit: 10 to the precision.
    double factor() const;
    // Takes `value` (in the unit, unclamped); true when it changed.
    bool take(double value);

    Ta_UnitEdit::UnitType mUnit = Ta_UnitEdit::UnitMM;
    double mMinimum = 0.0;
    double mMaximum = 100.0;
    double mValue = 0.0;
    int mPrecision = 1;
    QPointer<Ta_UnitEdit> mEdit;
    int mUpdating = 0;
};
