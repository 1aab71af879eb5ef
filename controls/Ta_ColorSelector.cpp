#include "controls/Ta_ColorSelector.h"

#include "style/Device.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

using Strip = Ta_ColorComponentSelector;

namespace {

struct Component
{
    const char *name;
    Strip::ColorComponentType type;
    int minimum;
    int maximum;
};

QList<Component> componentsOf(Strip::ColorType model)
{
    switch (model) {
    case Strip::HSV:
        return { { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Hue"), Strip::kHsvHue, 0, 359 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Saturation"), Strip::kHsvSaturation, 0, 255 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Value"), Strip::kHsvValue, 0, 255 } };
    case Strip::RGB:
        return { { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Red"), Strip::kRgbRed, 0, 255 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Green"), Strip::kRgbGreen, 0, 255 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Blue"), Strip::kRgbBlue, 0, 255 } };
    case Strip::CMYK:
        return { { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Cyan"), Strip::kCmykCyan, 0, 255 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Magenta"), Strip::kCmykMagenta, 0, 255 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Yellow"), Strip::kCmykYellow, 0, 255 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "Black"), Strip::kCmykKey, 0, 255 } };
    case Strip::Lab:
        return { { QT_TRANSLATE_NOOP("Ta_ColorSelector", "L"), Strip::kLabL, 0, 100 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "a"), Strip::kLabA, -128, 127 },
                 { QT_TRANSLATE_NOOP("Ta_ColorSelector", "b"), Strip::kLabB, -128, 127 } };
    }
    return {};
}

// The component's number in the strip's colour.
int componentValue(const Strip *strip)
{
    int h, s, v, r, g, b, c, m, y, k;
    double l, la, lb;
    strip->GetHsv(h, s, v);
    strip->GetRgb(r, g, b);
    strip->GetCmyk(c, m, y, k);
    strip->GetLab(l, la, lb);
    const int values[] = { h, s, v, r, g, b, c, m, y, k, qRound(l), qRound(la), qRound(lb) };
    return values[strip->getColorComponentType()];
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
    showColor(mColor, nullptr);
}

void Ta_ColorSelector::setColor(const QColor &color)
{
    mOldColor = color.isValid() ? color.toRgb() : QColor(Qt::black);
    setSwatch(mOldSwatch, mOldColor);
    showColor(mOldColor, nullptr);
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
    showColor(mColor, nullptr);
}

void Ta_ColorSelector::buildRows()
{
    QList<QWidget *> old;
    for (Strip *w : mStrips)
        old << w;
    for (QSpinBox *w : mNumbers)
        old << w;
    for (QLabel *w : mLabels)
        old << w;
    qDeleteAll(old);
    mStrips.clear();
    mNumbers.clear();
    mLabels.clear();
    int row = 0;
    for (const Component &c : componentsOf(mModel)) {
        auto *label = new QLabel(tr(c.name));
        auto *strip = new Strip;
        strip->setColorMatcher(mMatcher);
        strip->setColorComponentType(c.type);
        auto *number = new QSpinBox;
        number->setRange(c.minimum, c.maximum);
        mRows->addWidget(label, row, 0);
        mRows->addWidget(strip, row, 1);
        mRows->addWidget(number, row++, 2);
        mLabels << label;
        mStrips << strip;
        mNumbers << number;
        connect(strip, &Strip::rgbChanged, this, [this, strip] { takeFrom(strip); });
        connect(number, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, strip, c](int value) {
            if (mUpdating)
                return;
            // The number stands for the strip's component: set the model's colour with it.
            int h, s, v, cy, m, y, k;
            double l, a, b;
            strip->GetHsv(h, s, v);
            strip->GetCmyk(cy, m, y, k);
            strip->GetLab(l, a, b);
            int rgb[3];
            strip->GetRgb(rgb[0], rgb[1], rgb[2]);
            switch (c.type) {
            case Strip::kHsvHue: h = value; break;
            case Strip::kHsvSaturation: s = value; break;
            case Strip::kHsvValue: v = value; break;
            case Strip::kRgbRed: rgb[0] = value; break;
            case Strip::kRgbGreen: rgb[1] = value; break;
            case Strip::kRgbBlue: rgb[2] = value; break;
            case Strip::kCmykCyan: cy = value; break;
            case Strip::kCmykMagenta: m = value; break;
            case Strip::kCmykYellow: y = value; break;
            case Strip::kCmykKey: k = value; break;
            case Strip::kLabL: l = value; break;
            case Strip::kLabA: a = value; break;
            case Strip::kLabB: b = value; break;
            }
            switch (mModel) {
            case Strip::HSV: strip->SetHsv(h, s, v); break;
            case Strip::RGB: strip->SetRgb(rgb[0], rgb[1], rgb[2]); break;
            case Strip::CMYK: strip->SetCmyk(cy, m, y, k); break;
            case Strip::Lab: strip->SetLab(l, a, b); break;
            }
            takeFrom(strip);
        });
    }
}

void Ta_ColorSelector::takeFrom(Strip *strip)
{
    if (mUpdating)
        return;
    int r, g, b;
    strip->GetRgb(r, g, b);
    // The other strips take the colour in the model itself, so that a hue survives grey.
    mUpdating = true;
    for (Strip *other : mStrips) {
        if (other == strip)
            continue;
        int h, s, v, c, m, y, k;
        double l, a, bb;
        strip->GetHsv(h, s, v);
        strip->GetCmyk(c, m, y, k);
        strip->GetLab(l, a, bb);
        switch (mModel) {
        case Strip::HSV: other->SetHsv(h, s, v); break;
        case Strip::RGB: other->SetRgb(r, g, b); break;
        case Strip::CMYK: other->SetCmyk(c, m, y, k); break;
        case Strip::Lab: other->SetLab(l, a, bb); break;
        }
    }
    mUpdating = false;
    showColor(QColor(r, g, b), strip);
    emit colorChanged(mColor);
}

void Ta_ColorSelector::showColor(const QColor &color, Strip *except)
{
    mColor = color;
    mUpdating = true;
    for (int i = 0; i < mStrips.size(); ++i) {
        if (!except)
            mStrips[i]->SetRgb(color.red(), color.green(), color.blue());
        mNumbers[i]->setValue(componentValue(mStrips[i]));
    }
    mUpdating = false;
    setSwatch(mNewSwatch, mColor);
    if (!mHex->hasFocus())
        mHex->setText(mColor.name());
}

void Ta_ColorSelector::hexEdited()
{
    QString text = mHex->text().trimmed();
    if (!text.startsWith(QLatin1Char('#')))
        text.prepend(QLatin1Char('#'));
    const QColor typed(text);
    if (!typed.isValid() || text.size() != 7) {
        mHex->setText(mColor.name());
        return;
    }
    if (typed == mColor)
        return;
    showColor(typed, nullptr);
    emit colorChanged(mColor);
}
