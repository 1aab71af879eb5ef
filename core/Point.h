#pragma once

// A point of two doubles. operator[] picks a coordinate by a selector: 0 is y and 1 is x,
// so a ruler passes "is horizontal" as the selector and gets the coordinate along it.
#include "core/TavoLibCoreExport.h"

#include <QPoint>
#include <QPointF>

namespace TavoLib {

class TAVOLIBCORE_EXPORT Point : public QPointF
{
public:
    using Selector = int;

    Point() : QPointF(0.0, 0.0) {}
    Point(double x, double y) : QPointF(x, y) {}
    Point(const QPointF &p) : QPointF(p) {}
    Point(const QPoint &p) : QPointF(p) {}

    double &operator[](Selector selector) { return selector ? rx() : ry(); }
    double operator[](Selector selector) const { return selector ? x() : y(); }
};

} // namespace TavoLib
