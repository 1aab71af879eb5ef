#include "controls/Ta_ColorSelector.h"

#include "style/Device.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

using Strip = Ta_ColorComponentSelector;

namespace {

// A colour held as CMYK (or HSV) is unchanged by the conversion to that model: QColor compares
// the model as well as the numbers.
bool heldAsCmyk(const QColor &c)
{
    return c == c.toCmyk();
}

bool heldAsHsv(const QColor &c)
{
    return c == c.toHsv();
}

QList<Strip::ColorComponentType> componentsOf(Strip::ColorType model)
{
    switch (model) {
    case Strip::HSV:
        return { Strip::kHsvHue, Strip::kHsvSaturation, Strip::kHsvValue };
    case Strip::RGB:
        return { Strip::kRgbRed, Strip::kRgbGreen, Strip::kRgbBlue };
    case Strip::CMYK:
        return { Strip::kCmykCyan, Strip::kCmykMagenta, Strip::kCmykYellow, Strip::kCmykKey };
    case Strip::Lab:
        return { Strip::kLabL, Strip::kLabA, Strip::kLabB };
    }
    return {};
}

// The first component of each model, to index a model's numbers by component.
Strip::ColorComponentType firstOf(Strip::ColorType model)
{
    return componentsOf(model).first();
}

// The colour of `from` set into `to` in the numbers of `model`, with `component` (of that
// model) replaced by `value` unless it is -1: so that a hue survives grey, and Lab its doubles.
void carry(const Strip *from, Strip *to, Strip::ColorType model, int component = -1, int value = 0)
{
    const int at = component - firstOf(model);
    int n[4];
    switch (model) {
    case Strip::HSV:
        from->GetHsv(n[0], n[1], n[2]);
        if (component >= 0)
            n[at] = value;
        to->SetHsv(n[0], n[1], n[2]);
        break;
    case Strip::RGB:
        from->GetRgb(n[0], n[1], n[2]);
        if (component >= 0)
            n[at] = value;
        to->SetRgb(n[0], n[1], n[2]);
        break;
    case Strip::CMYK:
        from->GetCmyk(n[0], n[1], n[2], n[3]);
        if (component >= 0)
            n[at] = value;
        to->SetCmyk(n[0], n[1], n[2], n[3]);
        break;
    case Strip::Lab: {
        double d[3];
        from->GetLab(d[0], d[1], d[2]);
        if (component >= 0)
            d[at] = value;
        to->SetLab(d[0], d[1], d[2]);
        break;
    }
    }
}

// The component's number as its spin box shows it (Lab rounded).
int componentValue(const Strip *strip)
{
    if (strip->getColorType() != Strip::Lab)
        return strip->value();
    double d[3];
    strip->GetLab(d[0], d[1], d[2]);
    return qRound(d[strip->getColorComponentType() - Strip::kLabL]);
}

QColor rgbOf(const Strip *strip)
{
    int r, g, b;
    strip->GetRgb(r, g, b);
    return QColor(r, g, b);
}

void setSwatch(QLabel *swatch, const QColor &color)
{
    swatch->setStyleSheet(QStringLiteral("background: %1; border: 1px solid #808080;").arg(color.name()));
}

} // namespace

Ta_ColorSelector::Ta_ColorSelector(QWidget *parent) : QWidget(parent), mMatcher(new TavoLib::ColorMatcher)
{
    auto *layout = new QVBoxLayout(this);
    mModelCombo = new QComboBox;
    mModelCombo->addItems({ tr("HSV"), tr("RGB"), tr("CMYK"), tr("Lab") });
    mModelCombo->setAccessibleName(tr("Colour model"));
    layout->addWidget(mModelCombo, 0, Qt::AlignLeft);
    mRows = new QGridLayout;
    mRows->setColumnStretch(1, 1);
    layout->addLayout(mRows);

    auto *bottom = new QHBoxLayout;
    const QSize swatchSize(qRound(TavoLib::Device::scale(48)), qRound(TavoLib::Device::scale(24)));
    mOldSwatch = new QLabel;
    mNewSwatch = new QLabel;
    mOldSwatch->setFixedSize(swatchSize);
    mNewSwatch->setFixedSize(swatchSize);
    mOldSwatch->setToolTip(tr("Before"));
    mNewSwatch->setToolTip(tr("Now"));
    mHex = new QLineEdit;
    mHex->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("#?[0-9A-Fa-f]{0,6}")), mHex));
    mHex->setMaximumWidth(qRound(TavoLib::Device::scale(90)));
    mHex->setToolTip(tr("Colour as #rrggbb"));
    mHex->setAccessibleName(tr("Hexadecimal colour"));
    bottom->addWidget(mOldSwatch);
    bottom->addWidget(mNewSwatch);
    bottom->addSpacing(qRound(TavoLib::Device::scale(8)));
    bottom->addWidget(mHex);
    bottom->addStretch(1);
    layout->addLayout(bottom);
    layout->addStretch(1);

    connect(mModelCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int index) { setModel(Model(index)); });
    connect(mHex, &QLineEdit::editingFinished, this, &Ta_ColorSelector::hexEdited);
    buildRows();
    setColor(mColor);
}

Ta_ColorSelector::~Ta_ColorSelector()
{
    // The hex field loses focus while QWidget tears the children down and would
    // report editingFinished to a selector that is already half destroyed.
    mHex->disconnect(this);
}

void Ta_ColorSelector::setColorMatcher(TAutoPtr<TavoLib::ColorMatcher> matcher)
{
    mMatcher = matcher ? matcher : TAutoPtr<TavoLib::ColorMatcher>(new TavoLib::ColorMatcher);
    for (Strip *strip : mStrips)
        strip->setColorMatcher(mMatcher);
    showColor(nullptr);
}

void Ta_ColorSelector::setColor(const QColor &color)
{
    const QColor given = color.isValid() ? color : QColor(Qt::black);
    for (Strip *strip : mStrips) {
        if (heldAsCmyk(given))
            strip->SetCmyk(given.cyan(), given.magenta(), given.yellow(), given.black());
        else if (heldAsHsv(given))
            strip->SetHsv(qMax(0, given.hsvHue()), given.hsvSaturation(), given.value());
        else
            strip->SetRgb(given.red(), given.green(), given.blue());
    }
    mOldColor = heldAsCmyk(given) || heldAsHsv(given) ? given : given.toRgb();
    setSwatch(mOldSwatch, mOldColor.toRgb());
    showColor(nullptr);
}

void Ta_ColorSelector::setLab(double l, double a, double b)
{
    for (Strip *strip : mStrips)
        strip->SetLab(l, a, b);
    showColor(nullptr);
    mOldColor = mColor;
    setSwatch(mOldSwatch, rgbOf(mStrips.first()));
}

void Ta_ColorSelector::lab(double &l, double &a, double &b) const
{
    mStrips.first()->GetLab(l, a, b);
}

void Ta_ColorSelector::setModel(Model model)
{
    if (model == mModel && !mStrips.isEmpty())
        return;
    mModel = model;
    {
        const QSignalBlocker blocker(mModelCombo);
        mModelCombo->setCurrentIndex(int(model));
    }
    buildRows();
    showColor(nullptr);
}

void Ta_ColorSelector::buildRows()
{
    const QList<Strip *> oldStrips = mStrips;
    QList<QWidget *> old;
    for (Strip *w : mStrips)
        old << w;
    for (QSpinBox *w : mNumbers)
        old << w;
    for (QLabel *w : mLabels)
        old << w;
    mStrips.clear();
    mNumbers.clear();
    mLabels.clear();
    for (QWidget *w : old) {
        mRows->removeWidget(w);
        w->hide();
    }
    int row = 0;
    QWidget *previous = mModelCombo;
    for (const Strip::ColorComponentType type : componentsOf(mModel)) {
        auto *strip = new Strip;
        strip->setColorMatcher(mMatcher);
        strip->setColorComponentType(type);
        auto *label = new QLabel(strip->componentName());
        auto *number = new QSpinBox;
        number->setRange(strip->minimum(), strip->maximum());
        number->setAccessibleName(strip->componentName());
        label->setBuddy(number);
        mRows->addWidget(label, row, 0);
        mRows->addWidget(strip, row, 1);
        mRows->addWidget(number, row++, 2);
        mLabels << label;
        mStrips << strip;
        mNumbers << number;
        // The colour in the new model's own numbers, taken from the old rows.
        if (!oldStrips.isEmpty())
            carry(oldStrips.first(), strip, mModel);
        setTabOrder(previous, strip);
        setTabOrder(strip, number);
        previous = number;
        connect(strip, &Strip::rgbChanged, this, [this, strip] { takeFrom(strip); });
        connect(number, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this, strip, type](int value) {
                // A row of another model waits for deletion: its numbers say nothing now.
                if (mUpdating || strip->getColorType() != mModel)
                    return;
                carry(strip, strip, mModel, type, value);
                takeFrom(strip);
            });
    }
    setTabOrder(previous, mHex);
    // A row may be the caller of the host's handler that changed the model: its code is still
    // running, so the old rows go when control is back in the event loop.
    if (mCallingOut > 0) {
        for (QWidget *w : old)
            w->deleteLater();
    } else {
        qDeleteAll(old);
    }
}

void Ta_ColorSelector::takeFrom(Strip *strip)
{
    if (mUpdating)
        return;
    // The other strips take the colour in the model itself, so that a hue survives grey.
    mUpdating = true;
    for (Strip *other : mStrips) {
        if (other != strip)
            carry(strip, other, mModel);
    }
    mUpdating = false;
    showColor(strip);
    announce();
}

void Ta_ColorSelector::announce()
{
    const QPointer<Ta_ColorSelector> alive(this);
    ++mCallingOut;
    emit colorChanged(mColor);
    if (alive)
        --mCallingOut;
}

void Ta_ColorSelector::showColor(Strip *source)
{
    const Strip *from = source ? source : mStrips.first();
    const QColor rgb = rgbOf(from);
    if (mModel == Strip::CMYK) {
        int c, m, y, k;
        from->GetCmyk(c, m, y, k);
        mColor = QColor::fromCmyk(c, m, y, k);
    } else {
        mColor = rgb;
    }
    mUpdating = true;
    for (int i = 0; i < mStrips.size(); ++i)
        mNumbers[i]->setValue(componentValue(mStrips[i]));
    mUpdating = false;
    setSwatch(mNewSwatch, rgb);
    // What the user is typing stays; anything else shows the colour now.
    if (!mHex->isModified())
        mHex->setText(rgb.name());
}

void Ta_ColorSelector::hexEdited()
{
    // editingFinished comes at every focus out: only a text the user changed is applied.
    if (!mHex->isModified())
        return;
    QString text = mHex->text().trimmed();
    if (!text.startsWith(QLatin1Char('#')))
        text.prepend(QLatin1Char('#'));
    const QColor typed(text);
    mHex->setModified(false);
    if (!typed.isValid() || text.size() != 7 || typed == rgbOf(mStrips.first())) {
        mHex->setText(rgbOf(mStrips.first()).name());
        return;
    }
    for (Strip *strip : mStrips)
        strip->SetRgb(typed.red(), typed.green(), typed.blue());
    showColor(nullptr);
    announce();
}
