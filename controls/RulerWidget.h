#pragma once

// RulerWidget is a ruler to drop into a window: a RulerBase that covers a number of pages of
// one length, starting at world position 0, shown from an origin at a zoom. World positions
// are millimetres; a zoom of 1 shows a millimetre at its real size on the screen. Every
// setter repaints.
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

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updateMatrix();

    double mZoom = 1.0;
    double mOrigin = 0.0;
    double mPageSize = 210.0;
    int mPageCount = 1;
};
