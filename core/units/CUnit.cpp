#include "core/units/CUnit.h"

#include <cstring>

namespace {

struct UnitInfo
{
    unsigned int code;
    unsigned int classId;
    double conversion;
    const char *symbol; // Latin-1
};

constexpr double kInch = 25.4; // mm
constexpr double kPoint = kInch / 72.0;
constexpr double kDidot = 0.376065; // the traditional Didot point

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
constexpr int kUnitCount = int(sizeof(kUnits) / sizeof(kUnits[0]));

// Longer forms the parser also reads; the printed symbols above come first.
struct Alias
{
    const char *symbol;
    unsigned int code;
};
const Alias kAliases[] = {
    { "in", CUnit::Inch },
    { "inch", CUnit::Inch },
    { "pc", CUnit::Pica },
    { "pica", CUnit::Pica },
    { "cicero", CUnit::Cicero },
    { "deg", CUnit::Angle },
    { "dpi", CUnit::DPI },
    { "lpc", CUnit::LPC },
    { "em", CUnit::Geviert },
};

// A switch keeps the lookup cheap: the parser asks for every number it reads.
const UnitInfo *find(unsigned int code)
{
    switch (code) {
    case CUnit::No:
        return &kUnits[0];
    case CUnit::Meter:
        return &kUnits[1];
    case CUnit::DP:
        return &kUnits[2];
    case CUnit::MM:
        return &kUnits[3];
    case CUnit::Inch:
        return &kUnits[4];
    case CUnit::Cicero:
        return &kUnits[5];
    case CUnit::PT:
        return &kUnits[6];
    case CUnit::PDidot:
        return &kUnits[7];
    case CUnit::DecInch:
        return &kUnits[8];
    case CUnit::CM:
        return &kUnits[9];
    case CUnit::Pica:
        return &kUnits[10];
    case CUnit::Q:
        return &kUnits[11];
    case CUnit::RelativePercent:
        return &kUnits[12];
    case CUnit::Percent:
        return &kUnits[13];
    case CUnit::Geviert:
        return &kUnits[14];
    case CUnit::Angle:
        return &kUnits[15];
    case CUnit::LPI:
        return &kUnits[16];
    case CUnit::LPC:
        return &kUnits[17];
    case CUnit::DPI:
        return &kUnits[18];
    default:
        return nullptr;
    }
}

char lowerAscii(char c)
{
    return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c;
}

bool equalsIgnoringCase(const char *text, int length, const char *symbol)
{
    int i = 0;
    for (; i < length; ++i) {
        if (symbol[i] == '\0' || lowerAscii(text[i]) != symbol[i])
            return false;
    }
    return symbol[i] == '\0';
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
    return QString::fromLatin1(latin1Symbol());
}

const char *CUnit::latin1Symbol() const
{
    const UnitInfo *info = find(mCode);
    return info ? info->symbol : "";
}

unsigned int CUnit::codeForSymbol(const QString &symbol)
{
    const QByteArray bytes = symbol.toLatin1();
    return codeForSymbol(bytes.constData(), bytes.size());
}

unsigned int CUnit::codeForSymbol(const char *symbol, int length)
{
    if (!symbol || length <= 0)
        return 0;
    for (const UnitInfo &info : kUnits) {
        if (info.symbol[0] && equalsIgnoringCase(symbol, length, info.symbol))
            return info.code;
    }
    for (const Alias &alias : kAliases) {
        if (equalsIgnoringCase(symbol, length, alias.symbol))
            return alias.code;
    }
    return 0;
}

const unsigned int *CUnit::allCodes(int *count)
{
    static const auto codes = [] {
        struct Codes
        {
            unsigned int values[kUnitCount];
        } c {};
        for (int i = 0; i < kUnitCount; ++i)
            c.values[i] = kUnits[i].code;
        return c;
    }();
    if (count)
        *count = kUnitCount;
    return codes.values;
}
