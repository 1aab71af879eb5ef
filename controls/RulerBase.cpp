#include "controls/RulerBase.h"

#include "controls/RulerDivision.h"
#include "core/units/CUnit.h"
#include "core/units/NumToStr.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtGlobal>
#include <climits>
#include <cmath>

using TavoLib::Point;

namespace {

// At most this many steps of a division list, pages or ticks of one level are walked in
// one paint, whatever the range, zoom or matrix a host gives.
constexpr int kMaxWalk = 4096;

// The indices k in [0, count) whose local position l0 + k * stride lies within [lo, hi],
// widened by one on each side; false when none can be found.
bool visibleIndices(double l0, double stride, double lo, double hi, double count, qint64 &first,
                    qint64 &last)
{
    if (!(count > 0.0) || !std::isfinite(l0))
        return false;
    const double end = std::min(std::ceil(count), 1e15);
    if (!std::isfinite(stride) || stride == 0.0) {
        first = 0;
        last = qint64(std::min(end, double(kMaxWalk))) - 1;
        return l0 >= lo && l0 <= hi;
    }
    const double a = (lo - l0) / stride;
    const double b = (hi - l0) / stride;
    const double from = std::max(0.0, std::floor(std::min(a, b)) - 1.0);
    const double to = std::min(end - 1.0, std::ceil(std::max(a, b)) + 1.0);
    if (!(from <= to))
        return false;
    first = qint64(from);
    last = std::min(qint64(to), first + kMaxWalk);
    return true;
}

} // namespace

RulerBase::RulerBase(Orientation orientation) : mOrientation(orientation) { }

RulerBase::~RulerBase() = default;

void RulerBase::Paint(QPainter &painter)
{
    painter.setPen(QPen(QBrush(color()), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    mConversion = Point(CUnit(horizontalUnit()).GetConversion(), CUnit(verticalUnit()).GetConversion());
    const int *lists[2] = { RulerDivision::Find(verticalUnit()), RulerDivision::Find(horizontalUnit()) };
    const QPointF d = mMatrix.map(QPointF(1.0, 1.0)) - mMatrix.map(QPointF(0.0, 0.0));
    const Point pixel(d);

    // An unknown unit, or a matrix that shows nothing measurable, paints nothing at all.
    const int axis = horizontal();
    for (int a : { 0, 1 }) {
        const double unitsPerPixel = (1.0 / std::abs(pixel[a])) / mConversion[a];
        const bool usable = lists[a] && mConversion[a] > 0.0 && std::isfinite(unitsPerPixel)
            && unitsPerPixel > 0.0;
        if (usable)
            chooseStep(a, unitsPerPixel, lists[a]);
        else if (a == axis)
            return;
    }
    mList = lists[axis];

    mSkipSize = GetSkipSize();
    Point start = GetStartPosition();
    const Point end = GetEndPosition();

    const int width = GetDrawWidth();
    const int height = GetDrawHeight();
    if (horizontal())
        painter.drawLine(0, height - 1, width, height - 1);
    else
        painter.drawLine(width - 1, 0, width - 1, height);
    painter.setFont(QFont(QStringLiteral("Helvetica"), 7));

    // Pages, numbered from 0 each; those far outside the drawn length are passed over.
    double skip = mSkipSize[axis];
    if (!(skip > 0.0) || !std::isfinite(skip))
        skip = end[axis] - start[axis];
    if (!(skip > 0.0) || !std::isfinite(skip) || !std::isfinite(start[axis]))
        return;
    qint64 first = 0, last = -1;
    if (!visibleSteps(start[axis], skip, (end[axis] - start[axis]) / skip, first, last))
        return;
    for (qint64 k = first; k <= last; ++k) {
        const double pageStart = start[axis] + double(k) * skip;
        if (!(pageStart < end[axis]))
            break;
        DrawPage(painter, pageStart, pageStart + skip);
    }
}

bool RulerBase::visibleSteps(double world, double stride, double count, qint64 &first, qint64 &last)
{
    const double l0 = localOnAxis(world);
    const double localStride = localOnAxis(world + stride) - l0;
    const double margin = 60.0 + std::abs(localStride);
    const double length = horizontal() ? GetDrawWidth() : GetDrawHeight();
    return visibleIndices(l0, localStride,
        qMin(0.0, double(horizontal() ? mOffset.x() : mOffset.y())) - margin, length + margin,
        count, first, last);
}

void RulerBase::chooseStep(int axis, double unitsPerPixel, const int *list)
{
    int p = list[0];
    double step = 1.0;
    const double low = unitsPerPixel * 36.0;
    const double high = unitsPerPixel * 56.0;
    int walked = 0;
    if (step > high) {
        if (step / RulerDivision::factor(list, p) > high) {
            do {
                step /= RulerDivision::factor(list, p);
                p = RulerDivision::follow(list, p + 1);
            } while (step / RulerDivision::factor(list, p) > high && ++walked < kMaxWalk);
            p = p - 1; // kept on purpose: no link check here; the subdivision follows it
        }
    } else if (step < low) {
        do {
            p = RulerDivision::follow(list, p - 1);
            step *= RulerDivision::factor(list, p);
        } while (step < low && ++walked < kMaxWalk);
    }
    mMajorStep[axis] = step;
    mStepPosition[axis] = p;
}

void RulerBase::DrawPage(QPainter &painter, double start, double end)
{
    const int axis = horizontal();
    const double conversion = mConversion[axis];
    mPageStart = start / conversion;
    mPageLength = end / conversion - mPageStart;
    Point pageEnd;
    pageEnd[axis] = (mPageStart + mPageLength) * conversion;
    const double global = LocalToGlobal(WorldToLocal(pageEnd))[axis];
    mPageEnd = short(qBound(double(SHRT_MIN), std::isfinite(global) ? global : 0.0, double(SHRT_MAX)));

    // Numbered steps from 0; only those near the drawn length are walked.
    const double step = mMajorStep[axis];
    qint64 first = 0, last = -1;
    if (!visibleSteps(mPageStart * conversion, step * conversion, mPageLength / step, first, last))
        return;
    for (qint64 k = first; k <= last; ++k) {
        const double a = double(k) * step;
        DrawMajor(painter, a, a + step, mStepPosition[axis]);
    }
}

void RulerBase::DrawMajor(QPainter &painter, double from, double to, int position)
{
    if (!(from < mPageLength))
        return;
    const int axis = horizontal();
    Point local, global;
    place(from, local, global);
    const Point first = LocalToGlobal(Point(mOffset));
    if (global[axis] > first[axis] - 50.0) {
        const QString label = NumToStr().get(from, 4);
        const QFontMetricsF metrics(painter.font());
        const double ascent = metrics.ascent();
        if (horizontal()) {
            const double x = tickX(local);
            painter.drawLine(QPointF(x, 0.0), QPointF(x, GetDrawHeight() - 1));
            const double width = metrics.horizontalAdvance(label);
            if (mDirection == Mirrored) {
                // kept on purpose: a mirrored label is checked against the ruler's left edge
                // only, never against the page's end.
                if (x - 2.0 - width >= 0.0)
                    painter.drawText(QPointF(x - 2.0 - width, ascent), label);
            } else if (x + 2.0 + width < mPageEnd) {
                painter.drawText(QPointF(x + 2.0, ascent), label);
            }
        } else {
            painter.drawLine(QPointF(0.0, local.y()), QPointF(GetDrawWidth(), local.y()));
            if (global.y() + label.size() * (ascent + 1.0) < mPageEnd) {
                double y = local.y();
                for (const QChar c : label) {
                    const bool stop = c == QLatin1Char('.');
                    y += stop ? ascent / 2.0 : ascent + 1.0;
                    painter.drawText(QPointF(stop ? 4.0 : 1.0, y), QString(c));
                }
            }
        }
    }
    DrawMinor(painter, from, to, position, 4);
}

void RulerBase::DrawMinor(QPainter &painter, double from, double to, int position, int size)
{
    position = RulerDivision::follow(mList, position);
    const double n = RulerDivision::factor(mList, position);
    const int axis = horizontal();
    Point span;
    span[axis] = (to - from) * mConversion[axis];
    const double pixels = std::abs(Point(mMatrix.map(span) - mMatrix.map(QPointF()))[axis]);
    if (!(pixels / n > 3.0))
        return;
    // A factor of 1 would never shrink the interval; the division lists have none.
    if (n <= 1.0)
        return;
    const double w = (to - from) / n;
    const Point first = LocalToGlobal(Point(mOffset));
    double a = from;
    for (int i = 1; i <= n; ++i) {
        const double b = a + w;
        DrawMinor(painter, a, b, position + 1, size > 1 ? size / 2 : size);
        if (i < n && b < mPageLength) {
            Point local, global;
            place(b, local, global);
            if (global[axis] > first[axis]) {
                if (horizontal()) {
                    const double x = tickX(local);
                    painter.drawLine(QPointF(x, GetDrawHeight() - size - 1), QPointF(x, GetDrawHeight() - 1));
                } else {
                    painter.drawLine(QPointF(GetDrawWidth() - size - 1, local.y()),
                                     QPointF(GetDrawWidth(), local.y()));
                }
            }
        }
        a = b;
    }
}

double RulerBase::localOnAxis(double world)
{
    Point p;
    p[horizontal()] = world;
    return WorldToLocal(p)[horizontal()];
}

void RulerBase::place(double position, Point &local, Point &global)
{
    Point world;
    world[horizontal()] = (position + mPageStart) * mConversion[horizontal()];
    local = WorldToLocal(world);
    global = LocalToGlobal(local);
}

double RulerBase::tickX(const Point &local)
{
    return mDirection == Mirrored ? int(GetDrawSize().x()) - local.x() : local.x();
}

void RulerBase::setOrientation(Orientation orientation) { mOrientation = orientation; }
void RulerBase::setMatrix(const QTransform &matrix) { mMatrix = matrix; }
void RulerBase::setDirection(Direction direction) { mDirection = direction; }
void RulerBase::setHorizontalUnit(unsigned int unit) { mHorizontalUnit = unit; }
void RulerBase::setVerticalUnit(unsigned int unit) { mVerticalUnit = unit; }
void RulerBase::setColor(const QColor &color) { mColor = color; }
void RulerBase::setOpacity(int opacity) { mOpacity = opacity; }
QTransform RulerBase::matrix() const { return mMatrix; }
RulerBase::Orientation RulerBase::orientation() const { return mOrientation; }
RulerBase::Direction RulerBase::direction() const { return mDirection; }
unsigned int RulerBase::horizontalUnit() const { return mHorizontalUnit; }
unsigned int RulerBase::verticalUnit() const { return mVerticalUnit; }
QColor RulerBase::color() const { return mColor; }
int RulerBase::opacity() const { return mOpacity; }
Point RulerBase::GetSkipSize() { return GetSize(); }
Point RulerBase::GetDrawSize() { return GetSize(); }
Point RulerBase::GetSize() { return Point(100.0, 100.0); }
Point RulerBase::WorldToLocal(const Point &world) { return world; }
Point RulerBase::LocalToGlobal(const Point &local) { return local; }
