#include "controls/RulerWidget.h"

#include "style/Device.h"

#include <QPainter>

using TavoLib::Point;

RulerWidget::RulerWidget(Orientation orientation, QWidget *parent)
    : QWidget(parent), RulerBase(orientation)
{
    setSizePolicy(orientation == Horizontal ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  orientation == Horizontal ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    updateMatrix();
}

void RulerWidget::setUnit(unsigned int unit)
{
    setHorizontalUnit(unit);
    setVerticalUnit(unit);
    update();
}

unsigned int RulerWidget::unit() const
{
    return orientation() == Horizontal ? horizontalUnit() : verticalUnit();
}

void RulerWidget::setZoom(double zoom)
{
    mZoom = zoom;
    updateMatrix();
    update();
}

void RulerWidget::setOrigin(double origin)
{
    mOrigin = origin;
    update();
}

void RulerWidget::setPages(double length, int count)
{
    mPageSize = length;
    mPageCount = qMax(0, count);
    update();
}

void RulerWidget::setMirrored(bool mirrored)
{
    setDirection(mirrored ? Mirrored : Normal);
    update();
}

double RulerWidget::pixelsPerMillimetre() const
{
    const int dpi = orientation() == Horizontal ? logicalDpiX() : logicalDpiY();
    return mZoom * dpi / 25.4;
}

QSize RulerWidget::sizeHint() const
{
    const int thickness = qRound(TavoLib::Device::scale(20.0));
    return orientation() == Horizontal ? QSize(qRound(TavoLib::Device::scale(400.0)), thickness)
                                       : QSize(thickness, qRound(TavoLib::Device::scale(400.0)));
}

Point RulerWidget::GetStartPosition()
{
    return Point(0.0, 0.0);
}

Point RulerWidget::GetEndPosition()
{
    const double end = mPageSize * mPageCount;
    return Point(end, end);
}

Point RulerWidget::GetSkipSize()
{
    return Point(mPageSize, mPageSize);
}

Point RulerWidget::GetDrawSize()
{
    return Point(width(), height());
}

Point RulerWidget::WorldToLocal(const Point &world)
{
    // The matrix scales; the origin moves the shown stretch along the ruler's axis.
    Point local(matrix().map(world));
    const double shift = mOrigin * pixelsPerMillimetre();
    local[orientation() == Horizontal] -= shift;
    return local;
}

void RulerWidget::paintEvent(QPaintEvent *)
{
    updateMatrix();
    QPainter painter(this);
    Paint(painter);
}

void RulerWidget::updateMatrix()
{
    const double scale = pixelsPerMillimetre();
    setMatrix(QTransform::fromScale(scale, scale));
}
