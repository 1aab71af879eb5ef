#pragma once

// AOperand is the result of an expression evaluated by CParser: a reference-counted number
// in the unit that was asked for. Callers hold it as TAutoPtr<AOperand>; a null pointer is
// the parser's one way of saying that the text was no valid expression.
#include "core/MAutoObj.h"
#include "core/units/OmaLibExport.h"

class OMALIB_EXPORT AOperand : public MAutoObj
{
public:
    ~AOperand() override;
    // The number, in the unit passed to CParser::Calc.
    virtual double Value() const = 0;
};
