#pragma once

// Ta_UnitEdit is the single-line field for a measure. The user types a number, a number with
// a unit symbol or a whole expression ("10mm + 2pt"); the field reads it into a UnitValue in
// its unit and keeps limits, a default for empty or unreadable text, an optional special
// value shown as a text of its own ("Auto"), and an optional second unit of another class
// (a length field that also takes a percentage). Typing never gets refused: the value is
// checked, clamped and redisplayed when the user presses Return or leaves the field.
#include "core/units/UnitValue.h"
#include "style/TavoLibGuiExport.h"

#include <QLineEdit>

class TAVOLIBGUI_EXPORT Ta_UnitEdit : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(bool allowEmpty READ allowEmpty WRITE setAllowEmpty)
    Q_PROPERTY(double specialValue READ specialValue WRITE setSpecialValue)
    Q_PROPERTY(QString specialValueText READ specialValueText WRITE setSpecialValueText)
    Q_PROPERTY(UnitType unit READ unit WRITE setUnit)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(double defaultValue READ defaultValue WRITE setDefaultValue)
    Q_PROPERTY(int precision READ precision WRITE setPrecision)
    Q_PROPERTY(bool useSecondUnit READ useSecondUnit WRITE setUseSecondUnit)
    Q_PROPERTY(UnitType secondUnit READ secondUnit WRITE setSecondUnit)
    Q_PROPERTY(double secondMinimum READ secondMinimum WRITE setSecondMinimum)
    Q_PROPERTY(double secondMaximum READ secondMaximum WRITE setSecondMaximum)
    Q_PROPERTY(int secondPrecision READ secondPrecision WRITE setSecondPrecision)

public:
    // The units a field can measure in; the values are the four-character codes of CUnit.
    enum UnitType : unsigned int {
        UnitNo = CUnit::No,
        UnitMeter = CUnit::Meter,
        UnitDP = CUnit::DP,
        UnitMM = CUnit::MM,
        UnitInch = CUnit::Inch,
        UnitCicero = CUnit::Cicero,
        UnitPT = CUnit::PT,
        UnitPDIDOT = CUnit::PDidot,
        UnitDecInch = CUnit::DecInch,
        UnitCM = CUnit::CM,
        UnitPica = CUnit::Pica,
        UnitQ = CUnit::Q,
        UnitRelativePercent = CUnit::RelativePercent,
        UnitPercent = CUnit::Percent,
        UnitGeviert = CUnit::Geviert,
        UnitAngle = CUnit::Angle,
        UnitLPI = CUnit::LPI,
        UnitLPC = CUnit::LPC,
        UnitDPI = CUnit::DPI
    };
    Q_ENUM(UnitType)

    explicit Ta_UnitEdit(QWidget *parent = nullptr);
    ~Ta_UnitEdit() override;

    // Hooks for fields whose text carries a mark beside the number (a font size in "ch",
    // say): marked text and stored number on one side, shown text and number on the other.
    // Here they change nothing.
    virtual QString modifiedText(const QString &text) const;
    virtual QString unmodifiedText(const QString &text) const;
    virtual double modified(const double &value) const;
    virtual double unmodified(const double &value) const;

    // The current text as a value, clamped to the limits of its unit. `ok` (may be null)
    // tells whether the text could be read; if not, the value is the default.
    UnitValue value(bool *ok);
    // Whether `input` is acceptable as it stands.
    bool checkInput(const QString &input);
    QString lastValidValue() const { return mLastValidValue; }
    UnitType currentUnit() const { return mCurrentUnit; }

    bool allowEmpty() const { return mAllowEmpty; }
    void setAllowEmpty(bool allow);
    double specialValue() const { return mSpecialValue; }
    void setSpecialValue(double value);
    QString specialValueText() const { return mSpecialValueText; }
    void setSpecialValueText(const QString &text);
    UnitType unit() const { return mUnit; }
    void setUnit(UnitType unit);
    double minimum() const { return mMinimum; }
    void setMinimum(double minimum);
    void setMinimum(const QString &minimum);
    double maximum() const { return mMaximum; }
    void setMaximum(double maximum);
    void setMaximum(const QString &maximum);
    double defaultValue() const { return mDefaultValue; }
    void setDefaultValue(double value);
    int precision() const { return mPrecision; }
    void setPrecision(int precision);
    bool useSecondUnit() const { return mUseSecondUnit; }
    void setUseSecondUnit(bool use);
    UnitType secondUnit() const { return mSecondUnit; }
    void setSecondUnit(UnitType unit);
    double secondMinimum() const { return mSecondMinimum; }
    void setSecondMinimum(double minimum);
    double secondMaximum() const { return mSecondMaximum; }
    void setSecondMaximum(double maximum);
    int secondPrecision() const { return mSecondPrecision; }
    void setSecondPrecision(int precision);

public slots:
    // Shows `value` in the field's unit (or the second unit), clamped to the limits, or the
    // special text when it is the special value. A value of neither class is ignored.
    virtual void setValue(const UnitValue &value);
    void setValueWithoutSignals(const UnitValue &value);
    void setSpecialValue(double value, const QString &text);

signals:
    // While typing: the value read (not clamped; the default when unreadable) and its text,
    // or "invalid".
    void valueChanged(const UnitValue &value);
    void valueChanged(const QString &text);
    // At a commit (Return or end of editing), with the clamped value.
    void valueByFocusOut(const UnitValue &value);
    void valueOnComplete(const UnitValue &value);

private slots:
    virtual void myTextChangedSlot(const QString &text);
    virtual void inputComplete();

private:
    UnitValue value(const QString &text, bool *ok);
    UnitValue checkRanges(const UnitValue &value);
    void checkRanges();

    bool mAllowEmpty = true;
    bool mUseSecondUnit = false;
    double mMinimum = 0.0;
    double mMaximum = 20000.0;
    double mDefaultValue = 0.0;
    int mPrecision = 3;
    UnitType mUnit = UnitMM;
    QString mLastValidValue;
    QString mLastCompleteText;
    double mSpecialValue = 0.0;
    QString mSpecialValueText;
    double mSecondMinimum = 0.0;
    double mSecondMaximum = 100.0;
    UnitType mSecondUnit = UnitPercent;
    int mSecondPrecision = 0;
    UnitType mCurrentUnit = UnitMM;
};
