#include "controls/Ta_UnitEdit.h"

#include "core/units/CParser.h"
#include "widgets/Ta_MessageBox.h"

#include <QValidator>

namespace {

// Marks the text as acceptable or not, but never refuses a keystroke: a half-typed
// expression is normal, and the field sorts it out at the commit.
class MyValidator : public QValidator
{
public:
    explicit MyValidator(Ta_UnitEdit *edit) : QValidator(edit), mEdit(edit) { }

    State validate(QString &input, int &pos) const override
    {
        Q_UNUSED(pos);
        return mEdit->checkInput(input) ? Acceptable : Intermediate;
    }

    void fixup(QString &input) const override { input = mEdit->lastValidValue(); }

private:
    Ta_UnitEdit *mEdit;
};

TAutoPtr<AOperand> calc(const QByteArray &bytes, unsigned int unit)
{
    CParser parser(std::string(bytes.constData(), std::size_t(bytes.size())));
    return parser.Calc(CUnit(unit));
}

bool sameClass(const CUnit &a, const CUnit &b)
{
    return a.GetClassID() == b.GetClassID();
}

} // namespace

Ta_UnitEdit::Ta_UnitEdit(QWidget *parent) : QLineEdit(parent)
{
    qRegisterMetaType<UnitValue>("UnitValue");
    connect(this, &QLineEdit::textChanged, this, &Ta_UnitEdit::myTextChangedSlot);
    connect(this, &QLineEdit::editingFinished, this, &Ta_UnitEdit::inputComplete);
    connect(this, &QLineEdit::returnPressed, this, &Ta_UnitEdit::inputComplete);
    setValidator(new MyValidator(this));
}

Ta_UnitEdit::~Ta_UnitEdit() = default;

QString Ta_UnitEdit::modifiedText(const QString &text) const
{
    return text;
}

QString Ta_UnitEdit::unmodifiedText(const QString &text) const
{
    return text;
}

double Ta_UnitEdit::modified(const double &value) const
{
    return value;
}

double Ta_UnitEdit::unmodified(const double &value) const
{
    return value;
}

UnitValue Ta_UnitEdit::value(const QString &text, bool *ok)
{
    const QString trimmed = text.trimmed();
    if (!trimmed.isEmpty() && trimmed.toLower() == mSpecialValueText.toLower()) {
        if (ok)
            *ok = true;
        mCurrentUnit = mUnit;
        return UnitValue(mSpecialValue, CUnit(mUnit));
    }
    if (!trimmed.isEmpty()) {
        const QString unmarked = unmodifiedText(trimmed);
        const bool wasMarked = unmarked != trimmed;
        const QByteArray bytes = unmarked.toLatin1();
        TAutoPtr<AOperand> result = calc(bytes, mUnit);
        if (ok)
            *ok = false;
        if (!result && mUseSecondUnit) {
            result = calc(bytes, mSecondUnit);
            mCurrentUnit = mSecondUnit;
        } else {
            mCurrentUnit = mUnit;
        }
        if (result) {
            if (ok)
                *ok = true;
            double number = result->Value();
            if (wasMarked)
                number = modified(number);
            return UnitValue(number, CUnit(mCurrentUnit));
        }
    } else if (!mAllowEmpty) {
        // An empty field is refilled at once rather than at the commit.
        if (!mLastCompleteText.isEmpty())
            setText(mLastCompleteText);
        else
            setText(UnitValue(mDefaultValue, CUnit(mUnit)).strWithUnit(mPrecision));
    }
    mCurrentUnit = mUnit;
    return UnitValue(mDefaultValue, CUnit(mUnit));
}

UnitValue Ta_UnitEdit::value(bool *ok)
{
    return checkRanges(value(text(), ok));
}

UnitValue Ta_UnitEdit::checkRanges(const UnitValue &v)
{
    UnitValue r = v;
    double lower;
    double upper;
    UnitType reference;
    if (sameClass(r.unit(), CUnit(mUnit))) {
        lower = mMinimum;
        upper = mMaximum;
        reference = mUnit;
    } else if (mUseSecondUnit && sameClass(r.unit(), CUnit(mSecondUnit))) {
        lower = mSecondMinimum;
        upper = mSecondMaximum;
        reference = mSecondUnit;
    } else {
        return r;
    }
    if (!mSpecialValueText.isEmpty() && r.get(CUnit(reference)) == mSpecialValue)
        return r;
    // Values arrive here from value(text, ok), already in the reference unit.
    const double x = unmodified(r.value());
    if (x < lower)
        r.setValue(modified(lower));
    if (x > upper)
        r.setValue(modified(upper));
    return r;
}

void Ta_UnitEdit::checkRanges()
{
    // Kept on purpose: value(nullptr) is already clamped, so this never redisplays; after a
    // limit setter the text follows at the next commit.
    const UnitValue clamped = checkRanges(value(nullptr));
    if (clamped != value(nullptr))
        setValue(clamped);
}

bool Ta_UnitEdit::checkInput(const QString &input)
{
    if (input == mLastCompleteText)
        return true;
    if (input.trimmed().isEmpty())
        return mAllowEmpty;
    bool ok = false;
    value(input, &ok);
    return ok;
}

void Ta_UnitEdit::setValue(const UnitValue &v)
{
    UnitType unit;
    double lower;
    double upper;
    int precision;
    if (sameClass(v.unit(), CUnit(mUnit))) {
        unit = mUnit;
        lower = mMinimum;
        upper = mMaximum;
        precision = mPrecision;
    } else if (mUseSecondUnit && sameClass(v.unit(), CUnit(mSecondUnit))) {
        unit = mSecondUnit;
        lower = mSecondMinimum;
        upper = mSecondMaximum;
        precision = mSecondPrecision;
    } else {
        mLastCompleteText = text();
        return;
    }

    const double n = v.get(CUnit(unit));
    const UnitValue raw(n, CUnit(unit));
    UnitValue shown(unmodified(n), CUnit(unit));
    if (shown.value() < lower)
        shown.setValue(lower);
    if (shown.value() > upper)
        shown.setValue(upper);

    if (!mSpecialValueText.isEmpty() && n == mSpecialValue)
        setText(mSpecialValueText);
    else if (shown.value() == raw.value())
        setText(shown.strWithUnit(precision));
    else
        setText(modifiedText(shown.strWithUnit(precision)));
    mCurrentUnit = unit;
    mLastCompleteText = text();
}

void Ta_UnitEdit::setValueWithoutSignals(const UnitValue &v)
{
    const bool wasBlocked = blockSignals(true);
    setValue(v);
    blockSignals(wasBlocked);
}

void Ta_UnitEdit::myTextChangedSlot(const QString &text)
{
    // An allowed empty text counts as a valid entry (of the default value).
    bool ok = mAllowEmpty;
    // An emptied field that may not be empty is refilled inside value(), which reports the
    // new text first; the emptied text is then reported too, as its own keystroke.
    const UnitValue v = value(text, &ok);
    if (!ok) {
        emit valueChanged(tr("invalid"));
    } else {
        mLastValidValue = text;
        emit valueChanged(v.strWithUnit(mCurrentUnit == mUnit ? mPrecision : mSecondPrecision));
    }
    emit valueChanged(v);
}

void Ta_UnitEdit::inputComplete()
{
    if (text() == mLastCompleteText)
        return;

    const char *message = nullptr;
    if (text().trimmed().isEmpty()) {
        if (mAllowEmpty) {
            mCurrentUnit = mUnit;
            const UnitValue v(mDefaultValue, CUnit(mUnit));
            emit valueByFocusOut(v);
            emit valueOnComplete(v);
        } else {
            if (!mLastValidValue.isEmpty())
                setText(mLastValidValue);
            else
                setValue(UnitValue(mDefaultValue, CUnit(mUnit)));
            message = QT_TR_NOOP("An empty field is not allowed and the\nlast valid entry will be "
                                 "reset");
        }
    } else {
        bool ok = false;
        value(text(), &ok);
        if (ok) {
            checkRanges();
            const UnitValue v = value(&ok);
            setValue(v);
            emit valueByFocusOut(v);
            emit valueOnComplete(v);
        } else {
            setText(mLastValidValue);
            message = QT_TR_NOOP("The entry contains syntax errors and will\ntherefore be reset "
                                 "to the last valid entry");
        }
    }
    mLastCompleteText = text();

    if (message) {
        Ta_MessageBox::warning(
            topLevelWidget(), tr("Error"), tr(message), tr("OK"), QString(), QString(), 0, -1);
    }
}

void Ta_UnitEdit::setAllowEmpty(bool allow)
{
    mAllowEmpty = allow;
}

void Ta_UnitEdit::setSpecialValue(double value)
{
    mSpecialValue = value;
}

void Ta_UnitEdit::setSpecialValue(double value, const QString &text)
{
    mSpecialValue = value;
    mSpecialValueText = text;
}

void Ta_UnitEdit::setSpecialValueText(const QString &text)
{
    mSpecialValueText = text;
}

void Ta_UnitEdit::setUnit(UnitType unit)
{
    const CUnit from(mUnit);
    const CUnit to(unit);
    if (sameClass(from, to)) {
        mMinimum = UnitValue(mMinimum, from).get(to);
        mMaximum = UnitValue(mMaximum, from).get(to);
        mDefaultValue = UnitValue(mDefaultValue, from).get(to);
        if (!mSpecialValueText.isEmpty())
            mSpecialValue = UnitValue(mSpecialValue, from).get(to);
    }
    mUnit = unit;
    setValue(value(nullptr));
}

void Ta_UnitEdit::setMinimum(double minimum)
{
    mMinimum = minimum;
    if (mMaximum < minimum)
        mMaximum = minimum;
    if (mDefaultValue < minimum)
        mDefaultValue = minimum;
    checkRanges();
}

void Ta_UnitEdit::setMinimum(const QString &minimum)
{
    TAutoPtr<AOperand> result = calc(minimum.toLatin1(), mUnit);
    if (!result) {
        qWarning("%s",
            qPrintable(QStringLiteral("Ta_UnitEdit::setMinimum: \"%1\" konnte nicht "
                                      "gesetzt werden")
                           .arg(minimum)));
        return;
    }
    setMinimum(result->Value());
}

void Ta_UnitEdit::setMaximum(double maximum)
{
    mMaximum = maximum;
    if (mMinimum > maximum)
        mMinimum = maximum;
    if (mDefaultValue > maximum)
        mDefaultValue = maximum;
    checkRanges();
}

void Ta_UnitEdit::setMaximum(const QString &maximum)
{
    TAutoPtr<AOperand> result = calc(maximum.toLatin1(), mUnit);
    if (!result) {
        qWarning("%s",
            qPrintable(QStringLiteral("Ta_UnitEdit::setMaximum: \"%1\" konnte nicht "
                                      "gesetzt werden")
                           .arg(maximum)));
        return;
    }
    setMaximum(result->Value());
}

void Ta_UnitEdit::setDefaultValue(double value)
{
    mDefaultValue = value;
    if (mMaximum < value)
        mMaximum = value;
    if (mMinimum > value)
        mMinimum = value;
    checkRanges();
}

void Ta_UnitEdit::setPrecision(int precision)
{
    mPrecision = precision;
}

void Ta_UnitEdit::setUseSecondUnit(bool use)
{
    mUseSecondUnit = use;
}

void Ta_UnitEdit::setSecondUnit(UnitType unit)
{
    const CUnit from(mSecondUnit);
    const CUnit to(unit);
    if (sameClass(from, to)) {
        mSecondMinimum = UnitValue(mSecondMinimum, from).get(to);
        mSecondMaximum = UnitValue(mSecondMaximum, from).get(to);
        if (!mSpecialValueText.isEmpty())
            mSpecialValue = UnitValue(mSpecialValue, from).get(to);
    }
    mSecondUnit = unit;
    setValue(value(nullptr));
}

void Ta_UnitEdit::setSecondMinimum(double minimum)
{
    mSecondMinimum = minimum;
    if (mSecondMaximum < minimum)
        mSecondMaximum = minimum;
    checkRanges();
}

void Ta_UnitEdit::setSecondMaximum(double maximum)
{
    mSecondMaximum = maximum;
    if (mSecondMinimum > maximum)
        mSecondMinimum = maximum;
    checkRanges();
}

void Ta_UnitEdit::setSecondPrecision(int precision)
{
    mSecondPrecision = precision;
}
