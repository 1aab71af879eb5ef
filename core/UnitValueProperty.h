#pragma once

// A measure: a UnitValue shown in a display unit, with a range and precision in that unit,
// an optional special value with a text of its own, an optional second accepted unit with
// its own range and precision (per cent beside a length, say), and ready-made presets.
#include "core/Property.h"
#include "core/units/UnitValue.h"

#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT UnitValueProperty : public Property
{
public:
    using Ptr = TAutoPtr<UnitValueProperty>;

    // A ready-made value with an untranslated name; a separator has no meaningful value.
    class TAVOLIBCORE_EXPORT Preset
    {
    public:
        Preset(const UnitValue &value, const QString &name);
        static Preset separator();
        const UnitValue &value() const { return mValue; }
        const QString &name() const { return mName; }
        bool isSeparator() const { return mSeparator; }

    private:
        Preset() = default;
        UnitValue mValue;
        QString mName;
        bool mSeparator = false;
    };

    UnitValueProperty(const QString &uniqueName, const QString &visibleName,
                      const UnitValue &value, unsigned int displayUnit, double minimum,
                      double maximum, int precision = 3);

    UnitValue value() const { return mValue; }
    void setValue(const UnitValue &value) { mValue = value; }
    unsigned int unit() const { return mUnit; }
    void setUnit(unsigned int unit) { mUnit = unit; }
    double minimum() const { return mMinimum; }
    double maximum() const { return mMaximum; }
    void setRange(double minimum, double maximum);
    int precision() const { return mPrecision; }
    void setPrecision(int precision) { mPrecision = precision; }

    double specialValue() const { return mSpecialValue; }
    QString specialValueText() const { return mSpecialValueText; }
    void setSpecialValue(double value, const QString &text);

    bool useSecondUnit() const { return mUseSecondUnit; }
    unsigned int secondUnit() const { return mSecondUnit; }
    double secondMinimum() const { return mSecondMinimum; }
    double secondMaximum() const { return mSecondMaximum; }
    int secondPrecision() const { return mSecondPrecision; }
    void setSecondUnit(unsigned int unit, double minimum, double maximum, int precision);

    bool hasPresets() const { return !mPresets.empty(); }
    const std::list<Preset> &presets() const { return mPresets; }
    void setPresets(const std::list<Preset> &presets) { mPresets = presets; }

    const char *kindName() const override { return "UnitValue"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    UnitValue mValue;
    unsigned int mUnit;
    double mMinimum;
    double mMaximum;
    int mPrecision;
    double mSpecialValue = 0.0;
    QString mSpecialValueText;
    bool mUseSecondUnit = false;
    unsigned int mSecondUnit = CUnit::Percent;
    double mSecondMinimum = 0.0;
    double mSecondMaximum = 0.0;
    int mSecondPrecision = 0;
    std::list<Preset> mPresets;
};

} // namespace TavoLib
