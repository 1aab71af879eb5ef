#pragma once

// RulerWidget is a ruler to drop into a window: a RulerBase that covers a number of pages of
// one length, starting at world position 0, shown from an origin at a zoom. World positions
// are millimetres; a zoom of 1 shows a millimetre at its real size on the screen. Every
// setter repaints, the inherited ones included.
//
// The ruler is laid out in 96-dpi pixels and painted through a painter scaled to the screen's
// density, so that at 150% or 200% without Qt's own scaling its ticks, band and labels grow
// together and a label stays clear of the next tick. Its matrix is made from the zoom and
// density: setMatrix from outside is refused.
#include "controls/RulerBase.h"

#include <QWidget>

class TAVOLIBGUI_EXPORT RulerWidget : public QWidget, public RulerBase
{
    Q_OBJECT
public:
    explicit RulerWidget(Orientation orientation, QWidget *parent = nullptr);

    // The unit of the ruler's own axis (a code of the ruler's division table).
    void setUnit(unsigned int unit);
    unsigned int unit() const;
    void setZoom(double zoom);
    double zoom() const { return mZoom; }
    // The world position, in millimetres, shown at the ruler's start.
    void setOrigin(double origin);
    double origin() const { return mOrigin; }
    // Pages of `length` millimetres each; numbering restarts on every page.
    void setPages(double length, int count);
    void setMirrored(bool mirrored);

    // Device pixels per world millimetre at the present zoom.
    double pixelsPerMillimetre() const;

    QSize sizeHint() const override;

    TavoLib::Point GetStartPosition() override;
    TavoLib::Point GetEndPosition() override;
    TavoLib::Point GetSkipSize() override;
    TavoLib::Point GetDrawSize() override;
    TavoLib::Point WorldToLocal(const TavoLib::Point &world) override;

    void setOrientation(Orientation orientation) override;
    void setMatrix(const QTransform &matrix) override;
    void setDirection(Direction direction) override;
    void setHorizontalUnit(unsigned int unit) override;
    void setVerticalUnit(unsigned int unit) override;
    void setColor(const QColor &color) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updateMatrix();
    void applySizePolicy();
    // Screen pixels per 96-dpi pixel along the ruler's axis.
    double density() const;
    // Ruler (96-dpi) pixels per world millimetre.
    double unitsPerMillimetre() const;

    double mZoom = 1.0;
    double mOrigin = 0.0;
    double mPageSize = 210.0;
    int mPageCount = 1;
};
