#pragma once

// Ta_ColorComponentSelector is a slider strip for one component of a colour in one of four
// models (HSV, RGB, CMYK, Lab). The strip shows the colour at every value of that component
// with the other components held, and a triangle marks the current value. The colour is kept
// in all four models at once; a change by the user announces it in all of them, a colour set
// from outside announces nothing. Lab needs a ColorMatcher; without one Lab stays as it was.
//
// It is a slider for the keyboard too: arrows step by one, Page Up and Page Down by a tenth
// of the range, Home and End go to the ends, and the wheel turns it while it has the focus.
// Only the left button moves it. Assistive technology sees a slider named after its
// component (or after its accessibleName, when the host gives one).
#include "core/ColorMatcher.h"
#include "style/TavoLibGuiExport.h"

#include <QImage>
#include <QWidget>

class TAVOLIBGUI_EXPORT Ta_ColorComponentSelector : public QWidget
{
    Q_OBJECT
public:
    enum ColorType { HSV = 0, RGB = 1, CMYK = 2, Lab = 3 };
    enum OrientationType { kOrientationHorizontal = 0, kOrientationVertical = 1 };
    Q_ENUM(OrientationType)
    enum ColorComponentType {
        kHsvHue = 0,
        kHsvSaturation = 1,
        kHsvValue = 2,
        kRgbRed = 3,
        kRgbGreen = 4,
        kRgbBlue = 5,
        kCmykCyan = 6,
        kCmykMagenta = 7,
        kCmykYellow = 8,
        kCmykKey = 9,
        kLabL = 10,
        kLabA = 11,
        kLabB = 12
    };
    Q_ENUM(ColorComponentType)
    Q_PROPERTY(OrientationType orientationType READ getOrientationType WRITE setOrientationType)
    Q_PROPERTY(ColorComponentType colorComponentType READ getColorComponentType WRITE setColorComponentType)

    explicit Ta_ColorComponentSelector(QWidget *parent = nullptr);
    ~Ta_ColorComponentSelector() override;

    ColorType getColorType() const { return mColorType; }
    TAutoPtr<TavoLib::ColorMatcher> colorMatcher() const { return mColorMatcher; }
    void setColorMatcher(TAutoPtr<TavoLib::ColorMatcher> matcher);

    QSize sizeHint() const override;

    // The component's range and its value now (Lab truncated), and its translated name.
    int minimum() const { return mMinimum; }
    int maximum() const { return mMaximum; }
    int value() const;
    QString componentName() const;
    // Moves to `v`, kept within the range, as the user would: a change is announced.
    void stepTo(int v);

signals:
    void valueChanged(int v);
    void hsvChanged(int h, int s, int v);
    void labChanged(double l, double a, double b);
    void rgbChanged(int r, int g, int b);
    void cmykChanged(int c, int m, int y, int k);

public slots:
    OrientationType getOrientationType() const { return mOrientation; }
    void setOrientationType(OrientationType type);
    ColorComponentType getColorComponentType() const { return mComponent; }
    void setColorComponentType(ColorComponentType type);
    void SetHsv(int h, int s, int v);
    void SetLab(double l, double a, double b);
    void SetRgb(int r, int g, int b);
    void SetCmyk(int c, int m, int y, int k);
    void GetHsv(int &h, int &s, int &v) const;
    void GetLab(double &l, double &a, double &b) const;
    void GetRgb(int &r, int &g, int &b) const;
    void GetCmyk(int &c, int &m, int &y, int &k) const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QColor CalcColor(int value) const;
    void SynchronizeComponents();
    void setVal(int v);
    int val2x(int v) const;
    int val2y(int v) const;
    int x2val(int x) const;
    int y2val(int y) const;
    // The component shown, as an integer (Lab truncated).
    int shownValue() const;
    // The value at pixel line `i` along the strip.
    int lineValue(int i, bool horizontal) const;
    // CMYK through the matcher when there is one, else through the plain formulas.
    void toCmyk(int r, int g, int b, int &c, int &m, int &y, int &k) const;
    void fromCmyk(int c, int m, int y, int k, int &r, int &g, int &b) const;
    // Stores an RGB colour in the master model.
    void storeRgb(int r, int g, int b);
    void refresh();

    bool mBusy = false;
    int *mIntValue;
    double *mDoubleValue;
    int mMinimum = 0;
    int mMaximum = 255;
    int mV = 100, mH = 100, mS = 100;
    int mR = 100, mG = 100, mB = 100;
    double mL = 100.0, mA = 100.0, mLabB = 100.0;
    int mC = 100, mM = 100, mY = 100, mK = 100;
    QImage mImage;
    OrientationType mOrientation = kOrientationHorizontal;
    ColorType mColorType = HSV;
    ColorComponentType mComponent = kHsvValue;
    TAutoPtr<TavoLib::ColorMatcher> mColorMatcher;
};
