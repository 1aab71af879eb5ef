#include "controls/Ta_ColorComponentSelector.h"

#include "core/ColorFunctions.h"
#include "style/Device.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygon>
#include <QWheelEvent>

namespace {
int channel(int v)
{
    return qBound(0, v, 255);
}

// The strip as assistive technology sees it: a slider with the component's name and value.
class StripAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit StripAccessible(Ta_ColorComponentSelector *strip)
        : QAccessibleWidget(strip, QAccessible::Slider)
    {
    }

    Ta_ColorComponentSelector *strip() const
    {
        return static_cast<Ta_ColorComponentSelector *>(widget());
    }

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Name && widget()->accessibleName().isEmpty())
            return strip()->componentName();
        if (t == QAccessible::Value)
            return QString::number(strip()->value());
        return QAccessibleWidget::text(t);
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return strip()->value(); }
    void setCurrentValue(const QVariant &value) override { strip()->stepTo(value.toInt()); }
    QVariant maximumValue() const override { return strip()->maximum(); }
    QVariant minimumValue() const override { return strip()->minimum(); }
    QVariant minimumStepSize() const override { return 1; }
};

QAccessibleInterface *stripAccessible(const QString &className, QObject *object)
{
    if (className == QLatin1String("Ta_ColorComponentSelector") && object && object->isWidgetType())
        return new StripAccessible(static_cast<Ta_ColorComponentSelector *>(object));
    return nullptr;
}
} // namespace

Ta_ColorComponentSelector::Ta_ColorComponentSelector(QWidget *parent)
    : QWidget(parent), mIntValue(&mV), mDoubleValue(&mL)
{
    static const bool installed = (QAccessible::installFactory(stripAccessible), true);
    Q_UNUSED(installed);
    setFocusPolicy(Qt::StrongFocus);
}

Ta_ColorComponentSelector::~Ta_ColorComponentSelector() = default;

void Ta_ColorComponentSelector::setColorMatcher(TAutoPtr<TavoLib::ColorMatcher> matcher)
{
    mColorMatcher = matcher;
    // A Lab strip that had no matcher knows its colour only in RGB: Lab comes from there.
    if (mColorType == Lab && mColorMatcher)
        mColorMatcher->rgbToLab(mR, mG, mB, mL, mA, mLabB);
    refresh();
}

QString Ta_ColorComponentSelector::componentName() const
{
    static const char *const names[] = {
        QT_TR_NOOP("Hue"),
        QT_TR_NOOP("Saturation"),
        QT_TR_NOOP("Value"),
        QT_TR_NOOP("Red"),
        QT_TR_NOOP("Green"),
        QT_TR_NOOP("Blue"),
        QT_TR_NOOP("Cyan"),
        QT_TR_NOOP("Magenta"),
        QT_TR_NOOP("Yellow"),
        QT_TR_NOOP("Black"),
        QT_TR_NOOP("L"),
        QT_TR_NOOP("a"),
        QT_TR_NOOP("b"),
    };
    return tr(names[mComponent]);
}

int Ta_ColorComponentSelector::value() const
{
    return shownValue();
}

void Ta_ColorComponentSelector::stepTo(int v)
{
    setVal(qBound(mMinimum, v, mMaximum));
}

void Ta_ColorComponentSelector::keyPressEvent(QKeyEvent *event)
{
    const int page = qMax(1, (mMaximum - mMinimum + 1) / 10);
    const int now = shownValue();
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        stepTo(now + 1);
        break;
    case Qt::Key_Left:
    case Qt::Key_Down:
        stepTo(now - 1);
        break;
    case Qt::Key_PageUp:
        stepTo(now + page);
        break;
    case Qt::Key_PageDown:
        stepTo(now - page);
        break;
    case Qt::Key_Home:
        stepTo(mMinimum);
        break;
    case Qt::Key_End:
        stepTo(mMaximum);
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}

void Ta_ColorComponentSelector::wheelEvent(QWheelEvent *event)
{
    // Only a focused strip turns with the wheel; otherwise whatever holds it scrolls.
    const int notches = event->angleDelta().y() / 120;
    if (!hasFocus() || notches == 0) {
        event->ignore();
        return;
    }
    stepTo(shownValue() + notches);
    event->accept();
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

int Ta_ColorComponentSelector::lineValue(int i, bool horizontal) const
{
    return horizontal ? x2val(i) : y2val(i);
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
    // Only the left button moves the strip; the others stay free for menus.
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setVal(lineValue(mOrientation == kOrientationVertical ? event->pos().y() : event->pos().x(),
        mOrientation != kOrientationVertical));
}

void Ta_ColorComponentSelector::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) {
        event->ignore();
        return;
    }
    setVal(lineValue(mOrientation == kOrientationVertical ? event->pos().y() : event->pos().x(),
        mOrientation != kOrientationVertical));
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
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent changed(this, shownValue());
        QAccessible::updateAccessibility(&changed);
    }
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
        // kept on purpose: the strip is painted with the plain formula even with a matcher,
        // so with colour management the strip and the colour it gives may differ slightly.
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
            const QRgb color = CalcColor(lineValue(i, horizontal)).rgb();
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

// decided: with a matcher set, CMYK goes through it both ways, so that a colour round-trips.
void Ta_ColorComponentSelector::toCmyk(int r, int g, int b, int &c, int &m, int &y, int &k) const
{
    if (mColorMatcher)
        mColorMatcher->rgbToCmyk(r, g, b, c, m, y, k);
    else
        rgb2cmyk(r, g, b, c, m, y, k);
}

void Ta_ColorComponentSelector::fromCmyk(int c, int m, int y, int k, int &r, int &g, int &b) const
{
    if (mColorMatcher)
        mColorMatcher->cmykToRgb(c, m, y, k, r, g, b);
    else
        cmyk2rgb(c, m, y, k, r, g, b);
}

void Ta_ColorComponentSelector::SynchronizeComponents()
{
    const TavoLib::ColorMatcher *matcher = mColorMatcher.get();
    switch (mColorType) {
    case HSV:
        hsv2rgb(mH, mS, mV, mR, mG, mB);
        if (matcher)
            matcher->rgbToLab(mR, mG, mB, mL, mA, mLabB);
        toCmyk(mR, mG, mB, mC, mM, mY, mK);
        break;
    case RGB:
        rgb2hsv(mR, mG, mB, mH, mS, mV);
        toCmyk(mR, mG, mB, mC, mM, mY, mK);
        if (matcher)
            matcher->rgbToLab(mR, mG, mB, mL, mA, mLabB);
        break;
    case CMYK:
        fromCmyk(mC, mM, mY, mK, mR, mG, mB);
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
        toCmyk(r, g, b, mC, mM, mY, mK);
        break;
    case Lab:
        // Without a matcher the colour is kept in RGB, for Lab to come from once one is set.
        if (mColorMatcher) {
            mColorMatcher->rgbToLab(r, g, b, mL, mA, mLabB);
        } else {
            mR = r;
            mG = g;
            mB = b;
        }
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
        fromCmyk(c, m, y, k, r, g, b);
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
