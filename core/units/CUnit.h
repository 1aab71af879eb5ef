#pragma once

// CUnit wraps one four-character unit code (Latin-1, first character in the most significant
// byte, blank-padded). Units of one class convert into each other: all lengths share one
// class and measure in millimetres, the world unit of GetConversion; the other classes are
// per cent, relative per cent, the em square, angle, screen ruling, resolution and "no unit".
#include "core/units/OmaLibExport.h"

#include <QString>

class OMALIB_EXPORT CUnit
{
public:
    // The codes known to the library; Ta_UnitEdit::UnitType carries the same numbers.
    enum Code : unsigned int {
        No = 0x20202020u,
        Meter = 0x6D657472u,
        DP = 0x64702020u, // decipoint, a tenth of a point
        MM = 0x6D6D2020u,
        Inch = 0x22202020u,
        Cicero = 0x63696365u, // 12 Didot points
        PT = 0x70742020u, // the DTP point, 1/72 inch
        PDidot = 0x64642020u, // the Didot point, 0.376065 mm
        DecInch = 0x647A2020u, // decimal inch: an inch, divided in tenths
        CM = 0x636D2020u,
        Pica = 0x70696361u, // 12 points
        Q = 0x71202020u, // a quarter millimetre
        RelativePercent = 0x72656C25u,
        Percent = 0x25202020u,
        Geviert = 0x67202020u, // the em square
        Angle = 0xB0202020u, // degrees
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

    CUnit(unsigned int code = No) : mCode(code) { }

    unsigned int GetUnitID() const { return mCode; }
    // The unit's class; ClassUnknown for a code that is not in the table.
    unsigned int GetClassID() const;
    // World units per one of this unit: millimetres for lengths, the class's base unit
    // otherwise (per cent, em, degree, lines per centimetre, pixels per inch). 0 if unknown.
    double GetConversion() const;
    bool isKnown() const { return GetClassID() != ClassUnknown; }

    // The symbol written after a number, as Latin-1 text ("mm", "pt", "\"", "°", ...).
    QString symbol() const;
    // The same symbol as Latin-1 bytes; empty for UnitNo and unknown codes.
    const char *latin1Symbol() const;
    // The code written as `symbol` (case-insensitive; the printed symbols and a few longer
    // forms such as "in", "pc", "deg", "dpi"), or 0 when none is.
    static unsigned int codeForSymbol(const QString &symbol);
    // The same over Latin-1 bytes, for the parser.
    static unsigned int codeForSymbol(const char *symbol, int length);
    // Every known code, in the order of Ta_UnitEdit::UnitType.
    static const unsigned int *allCodes(int *count);

    bool operator==(const CUnit &other) const { return mCode == other.mCode; }
    bool operator!=(const CUnit &other) const { return mCode != other.mCode; }

private:
    unsigned int mCode;
};
