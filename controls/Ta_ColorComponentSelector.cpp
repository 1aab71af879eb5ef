#include "controls/Ta_ColorComponentSelector.h"

#include "core/ColorFunctions.h"
#include "style/Device.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPolygon>

namespace {
int channel(int v)
{
    return qBound(0, v, 255);
}
} // namespace

Ta_ColorComponentSelector::Ta_ColorComponentSelector(QWidget *parent)
    : QWidget(parent), mIntValue(&mV), mDoubleValue(&mL)
{
}

Ta_ColorComponentSelector::~Ta_ColorComponentSelector() = default;

void Ta_ColorComponentSelector::setColorMatcher(TAutoPtr<TavoLib::ColorMatcher> matcher)
{
    mColorMatcher = matcher;
}

QSize Ta_ColorComponentSelector::sizeHint() const
{
    const int length = qRound(TavoLib::Device::scale(200.0));
    const int thickness = qRound(TavoLib::Device::scale(22.0));
    return mOrientation == kOrientationHorizontal ? QSize(length, thickness) : QSize(thickness, length);
}

void Ta_ColorComponentSelector::setOrientationType(OrientationType type)
{
    mOrientation = type;
    mImage = QImage();
    updateGeometry();
    update();
}

void Ta_ColorComponentSelector::setColorComponentType(ColorComponentType type)
{
    if (mBusy)
        return;
    struct Entry
    {
        ColorType model;
        int minimum;
        int maximum;
        int *intValue;
        double *doubleValue;
    };
    const Entry table[] = {
        { HSV, 0, 359, &mH, nullptr },     { HSV, 0, 255, &mS, nullptr },     { HSV, 0, 255, &mV, nullptr },
        { RGB, 0, 255, &mR, nullptr },     { RGB, 0, 255, &mG, nullptr },     { RGB, 0, 255, &mB, nullptr },
        { CMYK, 0, 255, &mC, nullptr },    { CMYK, 0, 255, &mM, nullptr },    { CMYK, 0, 255, &mY, nullptr },
        { CMYK, 0, 255, &mK, nullptr },    { Lab, 0, 100, nullptr, &mL },     { Lab, -128, 127, nullptr, &mA },
        { Lab, -128, 127, nullptr, &mLabB },
    };
    if (type < kHsvHue || type > kLabB)
        return;
    const Entry &e = table[type];
    mComponent = type;
    mColorType = e.model;
    mMinimum = e.minimum;
    mMaximum = e.maximum;
    mIntValue = e.intValue;
    mDoubleValue = e.doubleValue;
    // Kept on purpose: the strip is not redrawn here; the caller follows with a colour.
}

int Ta_ColorComponentSelector::shownValue() const
{
    return mIntValue ? *mIntValue : int(*mDoubleValue);
}

// Kept on purpose: the minimum takes no part in y2val, unlike x2val, so a vertical Lab a or b
// strip runs from 0 to the maximum inside its margins.
int Ta_ColorComponentSelector::x2val(int x) const
{
    if (x < 5)
        return mMinimum;
    if (x >= width() - 4)
        return mMaximum;
    return (mMaximum - mMinimum) * (x - 4) / (width() - 9) + mMinimum;
}

int Ta_ColorComponentSelector::y2val(int y) const
{
    if (y < 5)
        return mMaximum;
    if (y >= height() - 4)
        return mMinimum;
    return mMaximum - (y - 4) * mMaximum / (height() - 9);
}

int Ta_ColorComponentSelector::val2x(int v) const
{
    return (width() - 9) * (v - mMinimum) / (mMaximum - mMinimum) + 4;
}

int Ta_ColorComponentSelector::val2y(int v) const
{
    return (mMaximum - v) * (height() - 9) / (mMaximum - mMinimum) + 4;
}

void Ta_ColorComponentSelector::mousePressEvent(QMouseEvent *event)
{
    setVal(mOrientation == kOrientationVertical ? y2val(event->y()) : x2val(event->x()));
}

void Ta_ColorComponentSelector::mouseMoveEvent(QMouseEvent *event)
{
    setVal(mOrientation == kOrientationVertical ? y2val(event->y()) : x2val(event->x()));
}

void Ta_ColorComponentSelector::setVal(int v)
{
    if (mBusy || shownValue() == v)
        return;
    if (mIntValue)
        *mIntValue = qBound(0, v, mMaximum);
    else
        *mDoubleValue = qBound(mMinimum, v, mMaximum);
    mImage = QImage();
    repaint();
    SynchronizeComponents();
    const bool wasBusy = mBusy;
    mBusy = true;
    emit valueChanged(v);
    emit hsvChanged(mH, mS, mV);
    emit labChanged(mL, mA, mLabB);
    emit rgbChanged(mR, mG, mB);
    emit cmykChanged(mC, mM, mY, mK);
    mBusy = wasBusy;
}

QColor Ta_ColorComponentSelector::CalcColor(int value) const
{
    switch (mComponent) {
    case kHsvHue:
        return QColor::fromHsv(qBound(0, value, 359), mS, mV);
    case kHsvSaturation:
        return QColor::fromHsv(mH, channel(value), mV);
    case kHsvValue:
        return QColor::fromHsv(mH, mS, channel(value));
    case kRgbRed:
        return QColor::fromRgb(channel(value), mG, mB);
    case kRgbGreen:
        return QColor::fromRgb(mR, channel(value), mB);
    case kRgbBlue:
        return QColor::fromRgb(mR, mG, channel(value));
    case kCmykCyan:
    case kCmykMagenta:
    case kCmykYellow:
    case kCmykKey: {
        int cmyk[4] = { mC, mM, mY, mK };
        cmyk[mComponent - kCmykCyan] = value;
        int r, g, b;
        cmyk2rgb(cmyk[0], cmyk[1], cmyk[2], cmyk[3], r, g, b);
        return QColor::fromRgb(r, g, b);
    }
    case kLabL:
    case kLabA:
    case kLabB: {
        if (!mColorMatcher)
            return QColor();
        double lab[3] = { mL, mA, mLabB };
        lab[mComponent - kLabL] = value;
        int r, g, b;
        mColorMatcher->labToRgb(lab[0], lab[1], lab[2], r, g, b);
        return QColor::fromRgb(channel(r), channel(g), channel(b));
    }
    }
    return QColor();
}

void Ta_ColorComponentSelector::paintEvent(QPaintEvent *)
{
    const bool horizontal = mOrientation == kOrientationHorizontal;
    const QRect strip = horizontal ? QRect(3, 1, width() - 8, height() - 7) : QRect(1, 3, width() - 7, height() - 8);
    if (strip.width() <= 0 || strip.height() <= 0)
        return;
    if (mImage.isNull() || mImage.size() != strip.size()) {
        mImage = QImage(strip.size(), QImage::Format_RGB32);
        const int lines = horizontal ? strip.width() : strip.height();
        for (int i = 4; i < lines + 4; ++i) {
            int value;
            if (horizontal)
                value = i < 5 ? mMinimum
                    : i >= width() - 4 ? mMaximum
                                       : (mMaximum - mMinimum) * (i - 4) / (width() - 9) + mMinimum;
            else
                value = i < 5 ? mMaximum
                    : i >= height() - 4 ? mMinimum
                                        : mMaximum - (i - 4) * mMaximum / (height() - 9);
            const QRgb color = CalcColor(value).rgb();
            if (horizontal) {
                for (int y = 0; y < mImage.height(); ++y)
                    mImage.setPixel(i - 4, y, color);
            } else {
                auto *line = reinterpret_cast<QRgb *>(mImage.scanLine(i - 4));
                std::fill(line, line + mImage.width(), color);
            }
        }
    }
    QPainter painter(this);
    painter.drawImage(strip.topLeft(), mImage);
    painter.setPen(Qt::darkGray);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(strip).adjusted(0, 0, -0.5, -0.5));

    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().windowText());
    QPolygon marker;
    if (horizontal) {
        const int x = val2x(shownValue());
        const int y = strip.bottom() + 1;
        marker << QPoint(x, y) << QPoint(x - 5, y + 5) << QPoint(x + 5, y + 5);
    } else {
        const int y = val2y(shownValue());
        const int x = strip.right() + 1;
        marker << QPoint(x, y) << QPoint(x + 5, y - 5) << QPoint(x + 5, y + 5);
    }
    painter.drawPolygon(marker);
}

void Ta_ColorComponentSelector::SynchronizeComponents()
{
    const TavoLib::ColorMatcher *matcher = mColorMatcher.get();
    const auto toCmyk = [&] {
        if (matcher)
            matcher->rgbToCmyk(mR, mG, mB, mC, mM, mY, mK);
        else
            rgb2cmyk(mR, mG, mB, mC, mM, mY, mK);
    };
    switch (mColorType) {
    case HSV:
        hsv2rgb(mH, mS, mV, mR, mG, mB);
        if (matcher)
            matcher->rgbToLab(mR, mG, mB, mL, mA, mLabB);
        toCmyk();
        break;
    case RGB:
        rgb2hsv(mR, mG, mB, mH, mS, mV);
        toCmyk();
        if (matcher)
            matcher->rgbToLab(mR, mG, mB, mL, mA, mLabB);
        break;
    case CMYK:
        if (matcher)
            matcher->cmykToRgb(mC, mM, mY, mK, mR, mG, mB);
        else
            cmyk2rgb(mC, mM, mY, mK, mR, mG, mB);
        rgb2hsv(mR, mG, mB, mH, mS, mV);
        if (matcher)
            matcher->cmykToLab(mC, mM, mY, mK, mL, mA, mLabB);
        break;
    case Lab:
        if (matcher)
            matcher->labToRgb(mL, mA, mLabB, mR, mG, mB);
        rgb2hsv(mR, mG, mB, mH, mS, mV);
        if (matcher)
            matcher->labToCmyk(mL, mA, mLabB, mC, mM, mY, mK);
        break;
    }
}

void Ta_ColorComponentSelector::storeRgb(int r, int g, int b)
{
    r = channel(r);
    g = channel(g);
    b = channel(b);
    switch (mColorType) {
    case HSV:
        rgb2hsv(r, g, b, mH, mS, mV);
        break;
    case RGB:
        mR = r;
        mG = g;
        mB = b;
        break;
    case CMYK:
        if (mColorMatcher)
            mColorMatcher->rgbToCmyk(r, g, b, mC, mM, mY, mK);
        else
            rgb2cmyk(r, g, b, mC, mM, mY, mK);
        break;
    case Lab:
        if (mColorMatcher)
            mColorMatcher->rgbToLab(r, g, b, mL, mA, mLabB);
        break;
    }
}

void Ta_ColorComponentSelector::refresh()
{
    SynchronizeComponents();
    mImage = QImage();
    repaint();
}

void Ta_ColorComponentSelector::SetHsv(int h, int s, int v)
{
    if (mBusy)
        return;
    if (mColorType == HSV) {
        mH = ((h % 360) + 360) % 360;
        mS = channel(s);
        mV = channel(v);
    } else {
        int r, g, b;
        hsv2rgb(h, s, v, r, g, b);
        storeRgb(r, g, b);
    }
    refresh();
}

void Ta_ColorComponentSelector::SetRgb(int r, int g, int b)
{
    if (mBusy)
        return;
    storeRgb(r, g, b);
    refresh();
}

void Ta_ColorComponentSelector::SetCmyk(int c, int m, int y, int k)
{
    if (mBusy)
        return;
    if (mColorType == CMYK) {
        mC = channel(c);
        mM = channel(m);
        mY = channel(y);
        mK = channel(k);
    } else if (mColorType == Lab) {
        if (mColorMatcher)
            mColorMatcher->cmykToLab(c, m, y, k, mL, mA, mLabB);
    } else {
        int r, g, b;
        if (mColorMatcher)
            mColorMatcher->cmykToRgb(c, m, y, k, r, g, b);
        else
            cmyk2rgb(c, m, y, k, r, g, b);
        storeRgb(r, g, b);
    }
    refresh();
}

void Ta_ColorComponentSelector::SetLab(double l, double a, double b)
{
    if (mBusy)
        return;
    if (mColorType == Lab) {
        mL = qBound(0.0, qIsFinite(l) ? l : 0.0, 100.0);
        mA = qBound(-128.0, qIsFinite(a) ? a : 0.0, 127.0);
        mLabB = qBound(-128.0, qIsFinite(b) ? b : 0.0, 127.0);
    } else if (mColorMatcher) {
        if (mColorType == CMYK) {
            mColorMatcher->labToCmyk(l, a, b, mC, mM, mY, mK);
        } else {
            int r, g, bl;
            mColorMatcher->labToRgb(l, a, b, r, g, bl);
            storeRgb(r, g, bl);
        }
    }
    refresh();
}

void Ta_ColorComponentSelector::GetHsv(int &h, int &s, int &v) const
{
    h = mH;
    s = mS;
    v = mV;
}

void Ta_ColorComponentSelector::GetLab(double &l, double &a, double &b) const
{
    l = mL;
    a = mA;
    b = mLabB;
}

void Ta_ColorComponentSelector::GetRgb(int &r, int &g, int &b) const
{
    r = mR;
    g = mG;
    b = mB;
}

void Ta_ColorComponentSelector::GetCmyk(int &c, int &m, int &y, int &k) const
{
    c = mC;
    m = mM;
    y = mY;
    k = mK;
}
