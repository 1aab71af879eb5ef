#include "core/units/CUnit.h"

namespace {

struct UnitInfo
{
    unsigned int code;
    unsigned int classId;
    double conversion;
    const char *symbol; // Latin-1
};

constexpr double kInch = 25.4;
constexpr double kPoint = kInch / 72.0;
constexpr double kDidot = 0.376065;

// In the order of Ta_UnitEdit::UnitType.
const UnitInfo kUnits[] = {
    { CUnit::No, CUnit::ClassNone, 1.0, "" },
    { CUnit::Meter, CUnit::ClassLength, 1000.0, "m" },
    { CUnit::DP, CUnit::ClassLength, kPoint / 10.0, "dp" },
    { CUnit::MM, CUnit::ClassLength, 1.0, "mm" },
    { CUnit::Inch, CUnit::ClassLength, kInch, "\"" },
    { CUnit::Cicero, CUnit::ClassLength, 12.0 * kDidot, "c" },
    { CUnit::PT, CUnit::ClassLength, kPoint, "pt" },
    { CUnit::PDidot, CUnit::ClassLength, kDidot, "dd" },
    { CUnit::DecInch, CUnit::ClassLength, kInch, "dz" },
    { CUnit::CM, CUnit::ClassLength, 10.0, "cm" },
    { CUnit::Pica, CUnit::ClassLength, 12.0 * kPoint, "pi" },
    { CUnit::Q, CUnit::ClassLength, 0.25, "q" },
    { CUnit::RelativePercent, CUnit::ClassRelativePercent, 1.0, "rel%" },
    { CUnit::Percent, CUnit::ClassPercent, 1.0, "%" },
    { CUnit::Geviert, CUnit::ClassGeviert, 1.0, "g" },
    { CUnit::Angle, CUnit::ClassAngle, 1.0, "\xB0" },
    { CUnit::LPI, CUnit::ClassScreenRuling, 1.0 / 2.54, "lpi" },
    { CUnit::LPC, CUnit::ClassScreenRuling, 1.0, "lpcm" },
    { CUnit::DPI, CUnit::ClassResolution, 1.0, "ppi" },
};

const UnitInfo *find(unsigned int code)
{
    for (const UnitInfo &info : kUnits) {
        if (info.code == code)
            return &info;
    }
    return nullptr;
}

} // namespace

unsigned int CUnit::GetClassID() const
{
    const UnitInfo *info = find(mCode);
    return info ? info->classId : ClassUnknown;
}

double CUnit::GetConversion() const
{
    const UnitInfo *info = find(mCode);
    return info ? info->conversion : 0.0;
}

QString CUnit::symbol() const
{
    const UnitInfo *info = find(mCode);
    return info ? QString::fromLatin1(info->symbol) : QString();
}

unsigned int CUnit::codeForSymbol(const QString &symbol)
{
    for (const UnitInfo &info : kUnits) {
        if (info.symbol[0] && symbol.compare(QLatin1String(info.symbol), Qt::CaseInsensitive) == 0)
            return info.code;
    }
    return 0;
}

const unsigned int *CUnit::allCodes(int *count)
{
    static unsigned int codes[sizeof(kUnits) / sizeof(kUnits[0])];
    static const bool filled = [] {
        int i = 0;
        for (const UnitInfo &info : kUnits)
            codes[i++] = info.code;
        return true;
    }();
    Q_UNUSED(filled);
    if (count)
        *count = int(sizeof(kUnits) / sizeof(kUnits[0]));
    return codes;
}
