#pragma once

// CUnit wraps one four-character unit code (Latin-1, first character in the most significant
// byte, blank-padded). Units of one class convert into each other; lengths share one class
// and measure in millimetres, the world unit of GetConversion.
#include "core/units/OmaLibExport.h"

#include <QString>

class OMALIB_EXPORT CUnit
{
public:
    // The codes known to the library; Ta_UnitEdit::UnitType carries the same numbers.
    enum Code : unsigned int {
        No = 0x20202020u,
        Meter = 0x6D657472u,
        DP = 0x64702020u,
        MM = 0x6D6D2020u,
        Inch = 0x22202020u,
        Cicero = 0x63696365u,
        PT = 0x70742020u,
        PDidot = 0x64642020u,
        DecInch = 0x647A2020u,
        CM = 0x636D2020u,
        Pica = 0x70696361u,
        Q = 0x71202020u,
        RelativePercent = 0x72656C25u,
        Percent = 0x25202020u,
        Geviert = 0x67202020u,
        Angle = 0xB0202020u,
        LPI = 0x6C70696Eu,
        LPC = 0x6C70636Du,
        DPI = 0x70706920u,
    };

    // Unit classes; only equality between two of them means anything to callers.
    enum ClassId : unsigned int {
        ClassUnknown = 0,
        ClassNone = 1,
        ClassLength = 2,
        ClassPercent = 3,
        ClassRelativePercent = 4,
        ClassGeviert = 5,
        ClassAngle = 6,
        ClassScreenRuling = 7,
        ClassResolution = 8,
    };

    CUnit(unsigned int code = No) : mCode(code) {}

    unsigned int GetUnitID() const { return mCode; }
    unsigned int GetClassID() const;
    // World units per one of this unit: millimetres for lengths, the class's base unit
    // otherwise (per cent, em, degree, lines per centimetre, pixels per inch). 0 if unknown.
    double GetConversion() const;
    bool isKnown() const { return GetClassID() != ClassUnknown; }

    // The symbol written after a number, as Latin-1 text ("mm", "pt", "\"", "°", ...).
    QString symbol() const;
    // The code whose written symbol is `symbol` (case-insensitive), or 0 when none is.
    static unsigned int codeForSymbol(const QString &symbol);
    // Every known code, in the order of Ta_UnitEdit::UnitType.
    static const unsigned int *allCodes(int *count);

    bool operator==(const CUnit &other) const { return mCode == other.mCode; }
    bool operator!=(const CUnit &other) const { return mCode != other.mCode; }

private:
    unsigned int mCode;
};
