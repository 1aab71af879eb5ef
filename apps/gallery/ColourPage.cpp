// Gallery page "Colour": the strips of all four colour models for one colour, kept in step:
// dragging any strip moves the others, and the line below shows the colour in each model.
// Under them, two colour selectors, in HSV and in CMYK.
#include "GalleryPage.h"
#include "controls/Ta_ColorComponentSelector.h"
#include "controls/Ta_ColorSelector.h"
#include "style/Device.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

using TavoLib::Device;
using Selector = Ta_ColorComponentSelector;

namespace {

QWidget *makeColourPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    layout->addLayout(grid);
    const struct
    {
        const char *label;
        Selector::ColorComponentType component;
    } strips[] = {
        { "Hue", Selector::kHsvHue },        { "Saturation", Selector::kHsvSaturation },
        { "Value", Selector::kHsvValue },    { "Red", Selector::kRgbRed },
        { "Green", Selector::kRgbGreen },    { "Blue", Selector::kRgbBlue },
        { "Cyan", Selector::kCmykCyan },     { "Magenta", Selector::kCmykMagenta },
        { "Yellow", Selector::kCmykYellow }, { "Black", Selector::kCmykKey },
        { "L", Selector::kLabL },            { "a", Selector::kLabA },
        { "b", Selector::kLabB },
    };
    auto *swatch = new QFrame;
    swatch->setFrameStyle(QFrame::Box);
    swatch->setFixedSize(int(Device::scale(120)), int(Device::scale(40)));
    swatch->setAutoFillBackground(true);
    auto *readout = new QLabel;
    TAutoPtr<TavoLib::ColorMatcher> matcher(new TavoLib::ColorMatcher);
    QList<Selector *> selectors;
    int row = 0;
    for (const auto &s : strips) {
        auto *selector = new Selector;
        selector->setColorMatcher(matcher);
        selector->setColorComponentType(s.component);
        selector->SetRgb(222, 120, 40);
        selector->setMinimumWidth(int(Device::scale(360)));
        grid->addWidget(new QLabel(QString::fromLatin1(s.label)), row, 0);
        grid->addWidget(selector, row++, 1);
        selectors << selector;
    }
    const auto show = [swatch, readout](int r, int g, int b, Selector *from) {
        QPalette palette = swatch->palette();
        palette.setColor(QPalette::Window, QColor(r, g, b));
        swatch->setPalette(palette);
        int h, s, v, c, m, y, k;
        double l, a, bb;
        from->GetHsv(h, s, v);
        from->GetCmyk(c, m, y, k);
        from->GetLab(l, a, bb);
        readout->setText(QStringLiteral("RGB %1 %2 %3    HSV %4 %5 %6    CMYK %7 %8 %9 %10    Lab %11 %12 %13")
                             .arg(r).arg(g).arg(b).arg(h).arg(s).arg(v).arg(c).arg(m).arg(y).arg(k)
                             .arg(l, 0, 'f', 1).arg(a, 0, 'f', 1).arg(bb, 0, 'f', 1));
    };
    for (Selector *selector : selectors) {
        QObject::connect(selector, &Selector::rgbChanged, page, [selectors, selector, show](int r, int g, int b) {
            for (Selector *other : selectors) {
                if (other != selector)
                    other->SetRgb(r, g, b);
            }
            show(r, g, b, selector);
        });
    }
    show(222, 120, 40, selectors.first());
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(swatch);
    bottom->addWidget(readout, 1);
    layout->addLayout(bottom);

    auto *pickers = new QHBoxLayout;
    for (auto model : { Ta_ColorComponentSelector::HSV, Ta_ColorComponentSelector::CMYK }) {
        auto *picker = new Ta_ColorSelector;
        picker->setModel(model);
        picker->setColor(QColor(40, 110, 180));
        pickers->addWidget(picker, 1);
    }
    layout->addLayout(pickers);
    layout->addStretch(1);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(47, "Colour", makeColourPage)
