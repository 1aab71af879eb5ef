#pragma once

// ImagePreviewView previews one image (a placed picture, a file about to be placed). It fits
// the image into the view by default (large images shrink, small ones stay at their size) and
// always keeps its aspect ratio. The user zooms with Ctrl+wheel (about the mouse), Ctrl++ and
// Ctrl+- (or + and -), Ctrl+0 to fit again and Ctrl+1 for actual size, and pans with the
// scroll bars, the arrow keys or by dragging. A zoom of 1 is one image pixel per logical
// pixel; shrunken images are drawn from a pixmap made at the screen's device pixel ratio and
// enlarged ones without smoothing, so the preview is crisp on any screen. A file that cannot be
// read (missing, not an image, damaged) shows a message in the view instead; so does no image.
#include "style/TavoLibGuiExport.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <QPixmap>

class TAVOLIBGUI_EXPORT ImagePreviewView : public QAbstractScrollArea
{
    Q_OBJECT
    Q_PROPERTY(double zoom READ zoom WRITE setZoom NOTIFY zoomChanged)
    Q_PROPERTY(bool fitToView READ fitToView WRITE setFitToView)
public:
    static constexpr double kMinZoom = 1.0 / 64;
    static constexpr double kMaxZoom = 64;

    explicit ImagePreviewView(QWidget *parent = nullptr);
    ~ImagePreviewView() override;

    // Reads `fileName`; false, with message() set and no image, when it cannot be read.
    bool setFileName(const QString &fileName);
    void setImage(const QImage &image);
    QImage image() const { return mImage; }
    void clear();

    // What the view shows instead of an image; empty while an image is shown.
    QString message() const { return mImage.isNull() ? mMessage : QString(); }
    // The text shown when there is no image and no error.
    void setEmptyText(const QString &text);

    double zoom() const { return mZoom; }
    bool fitToView() const { return mFit; }
    void setFitToView(bool fit);

    // Where the image is drawn, in viewport coordinates.
    QRectF displayedRect() const;

    QSize sizeHint() const override;

public slots:
    // Sets the zoom (kept to kMinZoom..kMaxZoom) and leaves fitting.
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();
    void fit() { setFitToView(true); }
    void actualSize() { setZoom(1.0); }

signals:
    void zoomChanged(double zoom);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void zoomAbout(double zoom, const QPointF &anchor);
    double fitZoom() const;
    void updateScrollBars();

    QImage mImage;
    QString mMessage;
    QString mEmptyText;
    double mZoom = 1.0;
    bool mFit = true;
    QPixmap mCache; // the image at the shown size, for shrunken views
    QPoint mDragFrom;
    bool mDragging = false;
};
