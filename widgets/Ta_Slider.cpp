#include "widgets/Ta_Slider.h"

#include <QStyle>
#include <QStyleOptionSlider>
#include <QToolTip>
#include <QWheelEvent>
#include <cmath>

namespace {

// A slider position for a measure, kept inside the int range.
int toPosition(double steps)
{
    return int(qBound(-2.0e9, std::round(steps), 2.0e9));
}

} // namespace

Ta_Slider::Ta_Slider(QWidget *parent) : QSlider(Qt::Horizontal, parent)
{
    init();
}

Ta_Slider::Ta_Slider(Qt::Orientation orientation, QWidget *parent) : QSlider(orientation, parent)
{
    init();
}

Ta_Slider::~Ta_Slider() = default;

void Ta_Slider::init()
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractSlider::valueChanged, this, &Ta_Slider::positionMoved);
    updatePosition();
    showValue();
}

double Ta_Slider::factor() const
{
    return std::pow(10.0, mPrecision);
}

void Ta_Slider::setUnit(Ta_UnitEdit::UnitType unit)
{
    if (unit == mUnit)
        return;
    const CUnit from(mUnit), to(unit);
    mMinimum = UnitValue(mMinimum, from).get(to);
    mMaximum = UnitValue(mMaximum, from).get(to);
    mValue = UnitValue(mValue, from).get(to);
    mUnit = unit;
    updatePosition();
    configureEdit();
    showValue();
}

void Ta_Slider::setValueRange(double minimum, double maximum)
{
    mMinimum = minimum;
    mMaximum = qMax(minimum, maximum);
    const bool changed = take(mValue);
    updatePosition();
    configureEdit();
    showValue();
    if (changed)
        emit unitValueChanged(unitValue());
}

void Ta_Slider::setPrecision(int precision)
{
    mPrecision = qBound(0, precision, 6);
    updatePosition();
    configureEdit();
    showValue();
}

QString Ta_Slider::valueText() const
{
    return unitValue().strWithUnit(mPrecision);
}

void Ta_Slider::setUnitEdit(Ta_UnitEdit *edit)
{
    if (edit == mEdit)
        return;
    if (mEdit)
        disconnect(mEdit, nullptr, this, nullptr);
    mEdit = edit;
    if (!edit)
        return;
    // Only a committed entry moves the slider: the text being typed may be half an
    // expression.
    connect(edit, &Ta_UnitEdit::valueOnComplete, this, &Ta_Slider::editCommitted);
    configureEdit();
}

void Ta_Slider::setUnitValue(const UnitValue &value)
{
    if (!value.unit().isKnown() || value.unit().GetClassID() != CUnit(mUnit).GetClassID())
        return;
    const bool changed = take(value.get(CUnit(mUnit)));
    updatePosition();
    showValue();
    if (changed)
        emit unitValueChanged(unitValue());
}

bool Ta_Slider::take(double value)
{
    const double clamped = qBound(mMinimum, value, mMaximum);
    if (clamped == mValue)
        return false;
    mValue = clamped;
    return true;
}

void Ta_Slider::updatePosition()
{
    ++mUpdating;
    const double f = factor();
    const int low = toPosition(mMinimum * f);
    const int high = toPosition(mMaximum * f);
    setRange(low, high);
    setSingleStep(1);
    setPageStep(qMax(1, (high - low) / 10));
    setSliderPosition(toPosition(mValue * f));
    --mUpdating;
}

void Ta_Slider::positionMoved(int position)
{
    if (mUpdating)
        return;
    // The ends are the limits exactly, not their rounded steps.
    double value = position / factor();
    if (position == minimum())
        value = mMinimum;
    else if (position == maximum())
        value = mMaximum;
    if (!take(value))
        return;
    showValue();
    if (isSliderDown()) {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect handle
            = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
        QToolTip::showText(mapToGlobal(handle.bottomLeft()), valueText(), this);
    }
    emit unitValueChanged(unitValue());
}

void Ta_Slider::editCommitted(const UnitValue &value)
{
    const bool changed = value.unit().GetClassID() == CUnit(mUnit).GetClassID()
        && take(value.get(CUnit(mUnit)));
    updatePosition();
    showValue();
    if (changed)
        emit unitValueChanged(unitValue());
}

void Ta_Slider::configureEdit()
{
    if (!mEdit)
        return;
    mEdit->setUnit(mUnit);
    mEdit->setPrecision(mPrecision);
    mEdit->setMinimum(mMinimum);
    mEdit->setMaximum(mMaximum);
    mEdit->setValueWithoutSignals(unitValue());
}

void Ta_Slider::showValue()
{
    const QString text = valueText();
    setToolTip(text);
    setAccessibleDescription(text);
    if (mEdit)
        mEdit->setValueWithoutSignals(unitValue());
}

void Ta_Slider::wheelEvent(QWheelEvent *event)
{
    // A slider passed over while scrolling a panel keeps its value.
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    QSlider::wheelEvent(event);
}
