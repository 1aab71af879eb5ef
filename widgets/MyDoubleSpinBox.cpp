#include "widgets/MyDoubleSpinBox.h"

#include "core/UnitValueProperty.h"

#include <QStyleOptionSpinBox>
#include <QWheelEvent>
#include <cmath>

namespace {

bool sameClass(const CUnit &a, const CUnit &b)
{
    return a.GetClassID() == b.GetClassID();
}

// Decimals beyond this no longer fit a double's integer grid at the field's usual sizes.
const int kMaxStepPrecision = 15;

} // namespace

MyDoubleSpinBox::MyDoubleSpinBox(QWidget *parent)
    : QAbstractSpinBox(parent), mEdit(new Ta_UnitEdit(this))
{
    setLineEdit(mEdit);
    // Strong rather than wheel focus: a wheel turned over a field that has no focus scrolls
    // the form around it instead of taking the focus and changing the value.
    setFocusPolicy(Qt::StrongFocus);
    connect(mEdit, &Ta_UnitEdit::valueOnComplete, this, &MyDoubleSpinBox::valueOnComplete);
    // The arrows show whether a step is possible from what is typed.
    connect(mEdit, &QLineEdit::textChanged, this, [this] { update(); });
}

MyDoubleSpinBox::~MyDoubleSpinBox() = default;

void MyDoubleSpinBox::setUnitValueProperty(
    TAutoPtr<const TavoLib::UnitValueProperty> property, const QString &specialValueText)
{
    if (!property)
        return;
    const QString special
        = specialValueText.isNull() ? property->specialValueText() : specialValueText;
    configureUnitEdit(mEdit, *property, special);
    QAbstractSpinBox::setSpecialValueText(special);
    updateGeometry();
}

void MyDoubleSpinBox::configureUnitEdit(
    Ta_UnitEdit *edit, const TavoLib::UnitValueProperty &property, const QString &specialValueText)
{
    edit->setUnit(Ta_UnitEdit::UnitType(property.unit()));
    edit->setMinimum(property.minimum());
    edit->setMaximum(property.maximum());
    edit->setPrecision(property.precision());
    edit->setSpecialValue(property.specialValue(), specialValueText);
    edit->setUseSecondUnit(property.useSecondUnit());
    if (property.useSecondUnit()) {
        edit->setSecondUnit(Ta_UnitEdit::UnitType(property.secondUnit()));
        edit->setSecondMinimum(property.secondMinimum());
        edit->setSecondMaximum(property.secondMaximum());
        edit->setSecondPrecision(property.secondPrecision());
    }
    edit->setValue(property.value());
    edit->setAllowEmpty(property.isUndefinable());
    if (property.isUndefined())
        edit->setText(QString());
}

void MyDoubleSpinBox::setUnitValue(const UnitValue &value, unsigned int unit, double minimum,
    double maximum, int precision, bool allowEmpty, bool useSecondUnit)
{
    mEdit->setUnit(Ta_UnitEdit::UnitType(unit));
    mEdit->setMinimum(minimum);
    mEdit->setMaximum(maximum);
    mEdit->setPrecision(precision);
    mEdit->setUseSecondUnit(useSecondUnit);
    mEdit->setAllowEmpty(allowEmpty);
    mEdit->setValue(value);
    updateGeometry();
}

bool MyDoubleSpinBox::isUndefined() const
{
    return mEdit->text().trimmed().isEmpty();
}

bool MyDoubleSpinBox::allowEmpty() const
{
    return mEdit->allowEmpty();
}

void MyDoubleSpinBox::setSpecialValueText(const QString &text)
{
    // A field that shows the old text shows the new one: the factory translates the text
    // after the value is in place.
    const QString old = mEdit->specialValueText();
    const bool shown = !old.isEmpty() && mEdit->text().trimmed().toLower() == old.toLower();
    mEdit->setSpecialValueText(text);
    QAbstractSpinBox::setSpecialValueText(text);
    if (shown)
        mEdit->setValue(UnitValue(mEdit->specialValue(), CUnit(mEdit->unit())));
    updateGeometry();
}

MyDoubleSpinBox::Range MyDoubleSpinBox::rangeFor(const CUnit &unit) const
{
    if (mEdit->useSecondUnit() && !sameClass(unit, CUnit(mEdit->unit()))
        && sameClass(unit, CUnit(mEdit->secondUnit())))
        return { mEdit->secondMinimum(), mEdit->secondMaximum(), mEdit->secondPrecision() };
    return { mEdit->minimum(), mEdit->maximum(), mEdit->precision() };
}

void MyDoubleSpinBox::stepBy(int steps)
{
    if (isReadOnly() || steps == 0)
        return;
    UnitValue current;
    if (isUndefined()) {
        // The default is what an empty field stands for; the limits may have moved past it.
        const double start = qBound(mEdit->minimum(), mEdit->defaultValue(), mEdit->maximum());
        current = UnitValue(start, CUnit(mEdit->unit()));
    } else {
        bool ok = false;
        current = mEdit->value(&ok);
        if (!ok)
            return; // the commit deals with unreadable text, with its message
    }
    const Range range = rangeFor(current.unit());
    // On the grid of the shown digits, so that a step from 1.2345 shows 1.24, not 1.2445.
    const double scale = std::pow(10.0, qBound(0, range.precision, kMaxStepPrecision));
    const double next = qBound(
        range.minimum, (std::round(current.value() * scale) + steps) / scale, range.maximum);

    const QString before = mEdit->text();
    mEdit->setValue(UnitValue(next, current.unit()));
    selectAll();
    if (mEdit->text() != before)
        emit valueOnComplete(mEdit->value(nullptr));
}

QAbstractSpinBox::StepEnabled MyDoubleSpinBox::stepEnabled() const
{
    if (isReadOnly())
        return StepNone;
    if (isUndefined())
        return StepUpEnabled | StepDownEnabled;
    bool ok = false;
    const UnitValue current = mEdit->value(&ok);
    if (!ok)
        return StepNone;
    const Range range = rangeFor(current.unit());
    StepEnabled enabled = StepNone;
    if (current.value() < range.maximum)
        enabled |= StepUpEnabled;
    if (current.value() > range.minimum)
        enabled |= StepDownEnabled;
    return enabled;
}

void MyDoubleSpinBox::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore(); // on to the parent, which scrolls
        return;
    }
    QAbstractSpinBox::wheelEvent(event);
}

QSize MyDoubleSpinBox::hintFor(int height) const
{
    ensurePolished();
    // Wide enough for any number within the limits at the shown precision: the digits of
    // the larger limit, all decimals, a sign and the unit, every digit the widest one,
    // measured as one text, as the field lays it out.
    const QFontMetricsF metrics(mEdit->font());
    QChar widest = QLatin1Char('0');
    for (char digit = '1'; digit <= '9'; ++digit) {
        if (metrics.horizontalAdvance(QLatin1Char(digit)) > metrics.horizontalAdvance(widest))
            widest = QLatin1Char(digit);
    }
    auto numberWidth = [&](double minimum, double maximum, int precision, unsigned int unit) {
        const double largest = qMax(std::fabs(minimum), std::fabs(maximum));
        const int integers = largest >= 1.0 ? int(std::floor(std::log10(largest))) + 1 : 1;
        QString sample = minimum < 0 ? QStringLiteral("-") : QString();
        sample += QString(qMin(integers, 18), widest);
        if (precision > 0)
            sample += QLatin1Char('.') + QString(qMin(precision, kMaxStepPrecision), widest);
        return int(std::ceil(metrics.horizontalAdvance(sample + CUnit(unit).symbol())));
    };
    int width = numberWidth(mEdit->minimum(), mEdit->maximum(), mEdit->precision(), mEdit->unit());
    if (mEdit->useSecondUnit()) {
        width = qMax(width,
            numberWidth(mEdit->secondMinimum(), mEdit->secondMaximum(), mEdit->secondPrecision(),
                mEdit->secondUnit()));
    }
    width = qMax(width, int(std::ceil(metrics.horizontalAdvance(mEdit->specialValueText()))));

    // The line edit's own margins: two pixels a side, the text margins, the cursor, a frame.
    const QMargins margins = mEdit->textMargins();
    width += 4 + margins.left() + margins.right() + 1;
    if (mEdit->hasFrame())
        width += 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, mEdit);

    QStyleOptionSpinBox option;
    initStyleOption(&option);
    QSize hint = style()->sizeFromContents(QStyle::CT_SpinBox, &option, QSize(width, height), this);
    // Styles may size the arrows by the height and leave the text less room than they add
    // for them: widen until the text field itself has the width.
    for (int round = 0; round < 3; ++round) {
        option.rect = QRect(QPoint(), hint);
        const QRect field = style()->subControlRect(
            QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, this);
        if (field.width() >= width)
            break;
        hint.rwidth() += width - field.width();
    }
    return hint;
}

QSize MyDoubleSpinBox::sizeHint() const
{
    return hintFor(mEdit->sizeHint().height());
}

QSize MyDoubleSpinBox::minimumSizeHint() const
{
    return hintFor(mEdit->minimumSizeHint().height());
}
