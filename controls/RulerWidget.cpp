#include "controls/RulerWidget.h"

#include "style/Device.h"

#include <QPainter>

using TavoLib::Point;

RulerWidget::RulerWidget(Orientation orientation, QWidget *parent)
    : QWidget(parent), RulerBase(orientation)
{
    applySizePolicy();
    updateMatrix();
}

void RulerWidget::applySizePolicy()
{
    setSizePolicy(orientation() == Horizontal ? QSizePolicy::Expanding : QSizePolicy::Fixed,
        orientation() == Horizontal ? QSizePolicy::Fixed : QSizePolicy::Expanding);
}

void RulerWidget::setOrientation(Orientation orientation)
{
    RulerBase::setOrientation(orientation);
    applySizePolicy();
    updateMatrix();
    updateGeometry();
    update();
}

void RulerWidget::setMatrix(const QTransform &)
{
    // Refused: the matrix follows the zoom and the screen, and is made again at every paint.
}

void RulerWidget::setDirection(Direction direction)
{
    RulerBase::setDirection(direction);
    update();
}

void RulerWidget::setHorizontalUnit(unsigned int unit)
{
    RulerBase::setHorizontalUnit(unit);
    update();
}

void RulerWidget::setVerticalUnit(unsigned int unit)
{
    RulerBase::setVerticalUnit(unit);
    update();
}

void RulerWidget::setColor(const QColor &color)
{
    RulerBase::setColor(color);
    update();
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
    return unitsPerMillimetre() * density();
}

double RulerWidget::density() const
{
    const int dpi = orientation() == Horizontal ? logicalDpiX() : logicalDpiY();
    return dpi > 0 ? dpi / 96.0 : 1.0;
}

double RulerWidget::unitsPerMillimetre() const
{
    return mZoom * 96.0 / 25.4;
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
    return Point(width() / density(), height() / density());
}

Point RulerWidget::WorldToLocal(const Point &world)
{
    // The matrix scales; the origin moves the shown stretch along the ruler's axis.
    Point local(matrix().map(world));
    const double shift = mOrigin * unitsPerMillimetre();
    local[orientation() == Horizontal] -= shift;
    return local;
}

void RulerWidget::paintEvent(QPaintEvent *)
{
    updateMatrix();
    const double f = density();
    QPainter painter(this);
    if (qFuzzyCompare(f, 1.0)) {
        Paint(painter);
        return;
    }
    // In 96-dpi pixels onto an image of 96 dpi, so that the labels' point size is measured in
    // those pixels too, then shown at the screen's density.
    const qreal ratio = devicePixelRatioF();
    QImage image(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    const int dotsPerMetre = qRound(96.0 / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    image.fill(Qt::transparent);
    {
        QPainter scaled(&image);
        scaled.scale(f, f);
        Paint(scaled);
    }
    painter.drawImage(QPoint(0, 0), image);
}

void RulerWidget::updateMatrix()
{
    const double scale = unitsPerMillimetre();
    RulerBase::setMatrix(QTransform::fromScale(scale, scale));
}
