#include "widgets/ImagePreviewView.h"

#include "style/Device.h"

#include <QImageReader>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

using TavoLib::Device;

namespace {

constexpr double kStep = 1.25;
constexpr qint64 kMaxPixels = qint64(16384) * 16384;

} // namespace

ImagePreviewView::ImagePreviewView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Image preview")); // a host names it more precisely
    mEmptyText = tr("No image");
    mMessage = mEmptyText;
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
}

ImagePreviewView::~ImagePreviewView() = default;

bool ImagePreviewView::setFileName(const QString &fileName)
{
    QImageReader reader(fileName);
    QImage image;
    // A preview never needs more than this; a forged header asking for more is refused
    // before anything is allocated.
    const QSize size = reader.size();
    const bool tooLarge = size.isValid() && qint64(size.width()) * size.height() > kMaxPixels;
    if (!fileName.isEmpty() && !tooLarge && reader.canRead())
        image = reader.read();
    if (image.isNull()) {
        setImage(QImage());
        mMessage = tr("This image cannot be shown: %1")
                       .arg(fileName.isEmpty() ? tr("no file")
                               : tooLarge             ? tr("it is too large")
                                                      : reader.errorString());
        viewport()->update();
        return false;
    }
    setImage(image);
    return true;
}

void ImagePreviewView::setImage(const QImage &image)
{
    mImage = image;
    mMessage = mEmptyText;
    mCache = QPixmap();
    mFit = true;
    const double old = mZoom;
    mZoom = fitZoom();
    updateScrollBars();
    viewport()->update();
    if (!qFuzzyCompare(old, mZoom))
        emit zoomChanged(mZoom);
}

void ImagePreviewView::clear()
{
    setImage(QImage());
}

void ImagePreviewView::setEmptyText(const QString &text)
{
    if (mMessage == mEmptyText)
        mMessage = text;
    mEmptyText = text;
    viewport()->update();
}

void ImagePreviewView::setFitToView(bool fit)
{
    mFit = fit;
    if (fit)
        zoomAbout(fitZoom(), QPointF(viewport()->rect().center()));
}

QRectF ImagePreviewView::displayedRect() const
{
    if (mImage.isNull())
        return QRectF();
    const QSizeF shown = QSizeF(mImage.size()) * mZoom;
    const QSizeF area = viewport()->size();
    // Centred while smaller than the view, scrolled otherwise.
    const double x = shown.width() <= area.width() ? (area.width() - shown.width()) / 2
                                                   : -horizontalScrollBar()->value();
    const double y = shown.height() <= area.height() ? (area.height() - shown.height()) / 2
                                                     : -verticalScrollBar()->value();
    return QRectF(QPointF(x, y), shown);
}

QSize ImagePreviewView::sizeHint() const
{
    return Device::scaleSize(QSize(240, 180));
}

void ImagePreviewView::setZoom(double zoom)
{
    mFit = false;
    zoomAbout(zoom, QPointF(viewport()->rect().center()));
}

void ImagePreviewView::zoomIn()
{
    setZoom(mZoom * kStep);
}

void ImagePreviewView::zoomOut()
{
    setZoom(mZoom / kStep);
}

double ImagePreviewView::fitZoom() const
{
    if (mImage.isNull() || viewport()->width() <= 0 || viewport()->height() <= 0)
        return 1.0;
    const double zoom = qMin(double(viewport()->width()) / mImage.width(),
        double(viewport()->height()) / mImage.height());
    return qBound(kMinZoom, qMin(1.0, zoom), kMaxZoom);
}

void ImagePreviewView::zoomAbout(double zoom, const QPointF &anchor)
{
    zoom = qBound(kMinZoom, zoom, kMaxZoom);
    if (!std::isfinite(zoom))
        return;
    // The image point under `anchor` stays under it.
    const QRectF before = displayedRect();
    const QPointF imagePoint = mImage.isNull() ? QPointF() : (anchor - before.topLeft()) / mZoom;
    const bool changed = !qFuzzyCompare(zoom, mZoom);
    mZoom = zoom;
    mCache = QPixmap();
    updateScrollBars();
    if (!mImage.isNull()) {
        const QPointF shown = imagePoint * mZoom;
        horizontalScrollBar()->setValue(qRound(shown.x() - anchor.x()));
        verticalScrollBar()->setValue(qRound(shown.y() - anchor.y()));
    }
    viewport()->update();
    if (changed)
        emit zoomChanged(mZoom);
}

void ImagePreviewView::updateScrollBars()
{
    const QSize shown = mImage.isNull() ? QSize() : (QSizeF(mImage.size()) * mZoom).toSize();
    const QSize area = viewport()->size();
    horizontalScrollBar()->setRange(0, qMax(0, shown.width() - area.width()));
    verticalScrollBar()->setRange(0, qMax(0, shown.height() - area.height()));
    horizontalScrollBar()->setPageStep(area.width());
    verticalScrollBar()->setPageStep(area.height());
    horizontalScrollBar()->setSingleStep(qMax(1, area.width() / 20));
    verticalScrollBar()->setSingleStep(qMax(1, area.height() / 20));
}

void ImagePreviewView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    if (mImage.isNull()) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        const int margin = qRound(Device::scale(8));
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
            Qt::AlignCenter | Qt::TextWordWrap, mMessage);
        return;
    }
    const QRectF target = displayedRect();
    const double ratio = viewport()->devicePixelRatioF();
    if (mZoom * ratio < 1.0) {
        // Shrunken: a pixmap at the screen's own pixels, smoothed once.
        const QSize physical = (target.size() * ratio).toSize().expandedTo(QSize(1, 1));
        if (mCache.isNull() || mCache.size() != physical) {
            mCache = QPixmap::fromImage(
                mImage.scaled(physical, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
            mCache.setDevicePixelRatio(ratio);
        }
        painter.drawPixmap(target.topLeft(), mCache);
        return;
    }
    // Enlarged: the visible part only, each image pixel a sharp square.
    const QRectF visible = target.intersected(QRectF(viewport()->rect()));
    if (visible.isEmpty())
        return;
    const QRectF source((visible.topLeft() - target.topLeft()) / mZoom, visible.size() / mZoom);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(visible, mImage, source);
}

void ImagePreviewView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (mFit)
        zoomAbout(fitZoom(), QPointF(viewport()->rect().center()));
    else
        updateScrollBars();
}

void ImagePreviewView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier) {
        const int delta = event->angleDelta().y();
        if (delta != 0 && !mImage.isNull()) {
            mFit = false;
            zoomAbout(mZoom * std::pow(kStep, delta / 120.0), event->position());
        }
        event->accept();
        return;
    }
    QAbstractScrollArea::wheelEvent(event);
}

void ImagePreviewView::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    if (key == Qt::Key_Plus || key == Qt::Key_Equal) {
        zoomIn();
    } else if (key == Qt::Key_Minus) {
        zoomOut();
    } else if (ctrl && key == Qt::Key_0) {
        fit();
    } else if (ctrl && key == Qt::Key_1) {
        actualSize();
    } else {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    event->accept();
}

void ImagePreviewView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !mImage.isNull()) {
        mDragging = true;
        mDragFrom = event->pos();
        viewport()->setCursor(Qt::ClosedHandCursor);
        event->accept();
        return;
    }
    QAbstractScrollArea::mousePressEvent(event);
}

void ImagePreviewView::mouseMoveEvent(QMouseEvent *event)
{
    if (mDragging) {
        const QPoint delta = event->pos() - mDragFrom;
        mDragFrom = event->pos();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - delta.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - delta.y());
        event->accept();
        return;
    }
    QAbstractScrollArea::mouseMoveEvent(event);
}

void ImagePreviewView::mouseReleaseEvent(QMouseEvent *event)
{
    if (mDragging && event->button() == Qt::LeftButton) {
        mDragging = false;
        viewport()->unsetCursor();
        event->accept();
        return;
    }
    QAbstractScrollArea::mouseReleaseEvent(event);
}

void ImagePreviewView::scrollContentsBy(int, int)
{
    viewport()->update();
}
