#include "controls/RulerDivision.h"

#include "core/units/CUnit.h"

namespace {

const int kMetric[] = { 4, -3, 10, 4, 4, 10, -2 };
const int kInch[] = { 4, -3, 10, 4, 4, -1 };
const int kPoint[] = { 5, -3, 10, 4, 24, 4, 10, -2 };
const int kCicero[] = { 4, -3, 10, 4, 24, 4, 10, -2 };

struct Entry
{
    unsigned int unit;
    const int *list;
};

// Searched in order; the end mark "????" carries no list.
const Entry kTable[] = {
    { CUnit::DP, kMetric },     { CUnit::MM, kMetric },     { CUnit::CM, kMetric },
    { CUnit::DecInch, kMetric }, { CUnit::Q, kMetric },      { CUnit::Inch, kInch },
    { CUnit::PDidot, kPoint },  { CUnit::PT, kPoint },      { CUnit::Cicero, kCicero },
    { CUnit::Pica, kCicero },   { 0x3F3F3F3Fu, nullptr },
};

} // namespace

const int *RulerDivision::Find(unsigned int unit)
{
    for (const Entry &entry : kTable) {
        if (entry.unit == unit || !entry.list)
            return entry.list;
    }
    return nullptr;
}

double RulerDivision::factor(const int *list, int position)
{
    return list[position] / 2.0;
}

int RulerDivision::follow(const int *list, int position)
{
    const int value = list[position];
    if (value >= 0)
        return position;
    return position < list[0] ? position - value : position + value;
}
