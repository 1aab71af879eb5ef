#pragma once

// The user's preferred units, process-wide: for lengths, font sizes and line widths.
// changed() tells every unit field to show its value again.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"
#include "core/units/CUnit.h"

#include <QObject>

namespace TavoLib {

class TAVOLIBCORE_EXPORT UnitsPreferences : public QObject, public MAutoObj
{
    Q_OBJECT
public:
    using Ptr = TAutoPtr<UnitsPreferences>;

    UnitsPreferences();
    ~UnitsPreferences() override;

    static TAutoPtr<UnitsPreferences> defaultInstance();

    unsigned int lengthUnit() const { return mLengthUnit; }
    unsigned int fontSizeUnit() const { return mFontSizeUnit; }
    unsigned int lineWidthUnit() const { return mLineWidthUnit; }
    // Each setter emits changed() when the unit really changes; unknown codes are refused.
    void setLengthUnit(unsigned int unit);
    void setFontSizeUnit(unsigned int unit);
    void setLineWidthUnit(unsigned int unit);

signals:
    void changed();

private:
    void set(unsigned int &field, unsigned int unit);
    unsigned int mLengthUnit = CUnit::MM;
    unsigned int mFontSizeUnit = CUnit::PT;
    unsigned int mLineWidthUnit = CUnit::PT;
};

} // namespace TavoLib
