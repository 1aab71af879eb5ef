// Gallery page "Ruler": horizontal rulers in millimetres, points, inches and ciceros at three
// zooms, one mirrored, and vertical rulers beside them; every ruler covers two pages, so the
// numbering starts again at 0 where the second page begins.
#include "GalleryPage.h"
#include "controls/RulerWidget.h"
#include "core/units/CUnit.h"
#include "style/Device.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using TavoLib::Device;

namespace {

RulerWidget *makeRuler(RulerBase::Orientation orientation, unsigned int unit, double zoom, double origin)
{
    auto *ruler = new RulerWidget(orientation);
    ruler->setUnit(unit);
    ruler->setZoom(zoom);
    ruler->setOrigin(origin);
    ruler->setPages(150.0, 2);
    ruler->setAutoFillBackground(true);
    QPalette palette = ruler->palette();
    palette.setColor(QPalette::Window, QColor(250, 250, 246));
    ruler->setPalette(palette);
    if (orientation == RulerBase::Horizontal)
        ruler->setFixedHeight(int(Device::scale(22)));
    else
        ruler->setFixedWidth(int(Device::scale(22)));
    return ruler;
}

QWidget *makeRulerPage()
{
    auto *page = new QWidget;
    auto *outer = new QHBoxLayout(page);
    auto *grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(int(Device::scale(10)));
    struct Row
    {
        const char *label;
        unsigned int unit;
        double zoom;
        double origin;
        bool mirrored;
    };
    const Row rows[] = {
        { "mm, 50%", CUnit::MM, 0.5, 0, false },          { "mm, 100%", CUnit::MM, 1.0, 0, false },
        { "mm, 400%, page 2", CUnit::MM, 4.0, 140, false }, { "pt, 100%", CUnit::PT, 1.0, 0, false },
        { "pt, 300%", CUnit::PT, 3.0, 0, false },         { "inch, 100%", CUnit::Inch, 1.0, 0, false },
        { "inch, 25%", CUnit::Inch, 0.25, 0, false },     { "cicero, 100%", CUnit::Cicero, 1.0, 0, false },
        { "cicero, 200%", CUnit::Cicero, 2.0, 0, false }, { "mm, 100%, mirrored", CUnit::MM, 1.0, 0, true },
    };
    int r = 0;
    for (const Row &row : rows) {
        grid->addWidget(new QLabel(QString::fromLatin1(row.label)), r, 0);
        RulerWidget *ruler = makeRuler(RulerBase::Horizontal, row.unit, row.zoom, row.origin);
        ruler->setMirrored(row.mirrored);
        grid->addWidget(ruler, r++, 1);
    }
    grid->setRowStretch(r, 1);
    outer->addLayout(grid, 1);
    for (unsigned int unit : { unsigned(CUnit::MM), unsigned(CUnit::PT), unsigned(CUnit::Cicero) })
        outer->addWidget(makeRuler(RulerBase::Vertical, unit, 1.0, 0));
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(45, "Ruler", makeRulerPage)
