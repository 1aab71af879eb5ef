#pragma once

// RulerBase paints a measuring ruler with a QPainter, for the units of RulerDivision, at any
// zoom. It is not a widget: a host derives from it, supplies the range to cover (start and
// end in world coordinates, millimetres for lengths) and the mapping to its own pixels, and
// calls Paint. Numbered ticks lie about 36 to 56 pixels apart, each step is subdivided by
// shorter ticks down to 1 pixel as far as there is room, and numbering restarts at 0 on every
// page (GetSkipSize is the size of a page).
#include "core/Point.h"
#include "style/TavoLibGuiExport.h"

#include <QColor>
#include <QTransform>

class QPainter;

class TAVOLIBGUI_EXPORT RulerBase
{
public:
    // 0 is horizontal; any other value is vertical.
    enum Orientation { Horizontal = 0, Vertical = 1 };
    // Mirrored counts a horizontal ruler's positions from its right edge.
    enum Direction { Normal = 0, Mirrored = 1 };

    explicit RulerBase(Orientation orientation);
    RulerBase(const RulerBase &other) = default;
    RulerBase &operator=(const RulerBase &other) = default;
    virtual ~RulerBase();

    virtual void Paint(QPainter &painter);
    virtual void setOrientation(Orientation orientation);
    virtual void setMatrix(const QTransform &matrix);
    virtual void setDirection(Direction direction);
    virtual void setHorizontalUnit(unsigned int unit);
    virtual void setVerticalUnit(unsigned int unit);
    virtual void setColor(const QColor &color);
    // Stored only.
    virtual void setOpacity(int opacity);
    virtual QTransform matrix() const;
    virtual Orientation orientation() const;
    virtual Direction direction() const;
    virtual unsigned int horizontalUnit() const;
    virtual unsigned int verticalUnit() const;
    virtual QColor color() const;
    virtual int opacity() const;
    // Where the first page starts and where the last one ends, in world coordinates.
    virtual TavoLib::Point GetStartPosition() = 0;
    virtual TavoLib::Point GetEndPosition() = 0;
    // The size of a page in world coordinates; GetSize() unless overridden.
    virtual TavoLib::Point GetSkipSize();
    // The painted size in pixels; GetSize() unless overridden.
    virtual TavoLib::Point GetDrawSize();
    virtual TavoLib::Point GetSize();
    // World to the painter's coordinates, and those to global ones; both unchanged by default.
    // WorldToLocal must be affine along the ruler's axis (a scale and a shift): Paint finds the
    // pages and steps on screen from two of its points, so a mapping with gaps of its own
    // (spreads laid out with a space between them) would leave pages far along undrawn.
    virtual TavoLib::Point WorldToLocal(const TavoLib::Point &world);
    virtual TavoLib::Point LocalToGlobal(const TavoLib::Point &local);

    double drawLength() { return GetDrawSize().x(); }
    double drawWidth() { return GetDrawSize().y(); }

    // The step of numbered ticks chosen by the last Paint, in ruler units, on each axis.
    TavoLib::Point majorStep() const { return mMajorStep; }

protected:
    int GetDrawWidth() { return int(drawLength()); }
    int GetDrawHeight() { return int(drawWidth()); }

    Orientation mOrientation;
    // The local position of the ruler's clipped start; ticks before it are not drawn.
    QPoint mOffset;
    TavoLib::Point mConversion;
    double mPageStart = 0.0;
    TavoLib::Point mSkipSize;
    double mPageLength = 0.0;
    short mPageEnd = 0;
    TavoLib::Point mMajorStep;
    unsigned int mHorizontalUnit = 0x70742020u;
    unsigned int mVerticalUnit = 0x70742020u;
    QColor mColor = QColor(0, 0, 255, 255);
    int mOpacity = 255;
    QTransform mMatrix;
    Direction mDirection = Normal;

private:
    bool horizontal() const { return mOrientation == Horizontal; }
    void chooseStep(int axis, double unitsPerPixel, const int *list);
    void DrawPage(QPainter &painter, double start, double end);
    // The indices of `count` steps of `stride` from world position `world` that can show
    // within the drawn length; false when none can.
    bool visibleSteps(double world, double stride, double count, qint64 &first, qint64 &last);
    void DrawMajor(QPainter &painter, double from, double to, int position);
    void DrawMinor(QPainter &painter, double from, double to, int position, int size);
    // The local position on the axis of a world position on the axis.
    double localOnAxis(double world);
    // The local and global points of a position on the current page, in ruler units.
    void place(double position, TavoLib::Point &local, TavoLib::Point &global);
    double tickX(const TavoLib::Point &local);

    // The list of the ruler's axis and the list position of the chosen step on each axis.
    const int *mList = nullptr;
    int mStepPosition[2] = { 0, 0 };
};
