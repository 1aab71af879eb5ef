// Gallery page "Window chrome and controls": the small controls of the library, each live.
// A swatch frame that counts its clicks (mouse, Space or Return), path labels in a wide and a
// narrow column, a tristate group of pages, a measure slider with its unit field, and tool
// buttons with recoloured icons, one of them with an icon menu, the cursors, and two palettes
// under their title bars, one collapsed.
#include "GalleryPage.h"
#include "style/Device.h"
#include "widgets/CursorFactory.h"
#include "widgets/OmaTitleBar.h"
#include "widgets/Ta_ClickFrame.h"
#include "widgets/Ta_PathLabel.h"
#include "widgets/Ta_Slider.h"
#include "widgets/Ta_ToolButton.h"
#include "widgets/Ta_TristateGroup.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

using TavoLib::Device;

namespace {

QGroupBox *clickFrames()
{
    auto *box = new QGroupBox(QStringLiteral("Click frames"));
    auto *layout = new QHBoxLayout(box);
    auto *count = new QLabel(QStringLiteral("Click a swatch, or Tab to one and press Space"));
    int clicks = 0;
    for (const QColor &colour : { QColor(200, 60, 40), QColor(40, 120, 200), QColor(60, 160, 80) }) {
        auto *frame = new Ta_ClickFrame;
        frame->setAccessibleName(colour.name());
        frame->setFixedSize(int(Device::scale(48.0)), int(Device::scale(32.0)));
        frame->setAutoFillBackground(true);
        QPalette palette = frame->palette();
        palette.setColor(QPalette::Window, colour);
        frame->setPalette(palette);
        QObject::connect(frame, &Ta_ClickFrame::clicked, count, [count, colour, clicks]() mutable {
            count->setText(QStringLiteral("%1 clicked (%2)").arg(colour.name()).arg(++clicks));
        });
        layout->addWidget(frame);
    }
    layout->addWidget(count, 1);
    return box;
}

QGroupBox *pathLabels()
{
    auto *box = new QGroupBox(QStringLiteral("Path labels"));
    auto *grid = new QGridLayout(box);
    const QString path
        = QStringLiteral("/home/designer/projects/autumn catalogue/images/cover/Brochure cover.tvd");
    grid->addWidget(new QLabel(QStringLiteral("Wide:")), 0, 0);
    grid->addWidget(new Ta_PathLabel(path), 0, 1, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("Narrow:")), 1, 0);
    auto *narrow = new Ta_PathLabel(path);
    narrow->setFixedWidth(int(Device::scale(260.0)));
    grid->addWidget(narrow, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("Very narrow:")), 2, 0);
    auto *tiny = new Ta_PathLabel(path);
    tiny->setFixedWidth(int(Device::scale(90.0)));
    grid->addWidget(tiny, 2, 1);
    grid->setColumnStretch(2, 1);
    return box;
}

QGroupBox *tristateGroup()
{
    auto *box = new QGroupBox(QStringLiteral("Tristate group"));
    auto *layout = new QVBoxLayout(box);
    auto *group = new Ta_TristateGroup(QStringLiteral("All pages"));
    for (int i = 1; i <= 4; ++i)
        group->addCheckBox(QStringLiteral("Page %1").arg(i), i % 2 == 1);
    layout->addWidget(group);
    layout->addStretch();
    return box;
}

QGroupBox *slider()
{
    auto *box = new QGroupBox(QStringLiteral("Measure slider"));
    auto *layout = new QGridLayout(box);
    auto *slider = new Ta_Slider;
    slider->setValueRange(0.0, 50.0);
    slider->setPrecision(1);
    slider->setUnitValue(UnitValue(12.5, CUnit(CUnit::MM)));
    auto *edit = new Ta_UnitEdit;
    edit->setMaximumWidth(int(Device::scale(90.0)));
    slider->setUnitEdit(edit);
    auto *label = new QLabel(QStringLiteral("&Indent:"));
    label->setBuddy(slider);
    slider->setAccessibleName(QStringLiteral("Indent"));
    edit->setAccessibleName(QStringLiteral("Indent"));
    layout->addWidget(label, 0, 0);
    layout->addWidget(slider, 0, 1);
    layout->addWidget(edit, 0, 2);
    auto *readout = new QLabel;
    const auto show = [readout](const UnitValue &value) {
        readout->setText(QStringLiteral("unitValueChanged: %1").arg(value.strWithUnit(2)));
    };
    QObject::connect(slider, &Ta_Slider::unitValueChanged, readout, show);
    show(slider->unitValue());
    layout->addWidget(readout, 1, 1, 1, 2);
    layout->setRowStretch(2, 1);
    return box;
}

// Three text lines aligned left, centred or right, drawn on transparent at 32 pixels.
QIcon alignmentIcon(Qt::Alignment alignment, const QColor &colour = Qt::black)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const int widths[] = { 26, 18, 22, 14 };
    for (int i = 0; i < 4; ++i) {
        const int w = widths[i];
        const int x = alignment == Qt::AlignLeft ? 3 : alignment == Qt::AlignRight ? 29 - w : 16 - w / 2;
        painter.fillRect(x, 5 + i * 6, w, 3, colour);
    }
    return QIcon(pixmap);
}

QGroupBox *toolButtons(QWidget *page)
{
    auto *box = new QGroupBox(QStringLiteral("Tool buttons"));
    auto *layout = new QHBoxLayout(box);
    const struct
    {
        const char *name;
        Qt::Alignment alignment;
    } kinds[] = { { "Align left", Qt::AlignLeft }, { "Centre", Qt::AlignHCenter },
        { "Align right", Qt::AlignRight } };
    for (const auto &kind : kinds) {
        auto *button = new Ta_ToolButton;
        button->setIcon(alignmentIcon(kind.alignment));
        button->setIconSize(QSize(int(Device::scale(16.0)), int(Device::scale(16.0))));
        button->setCheckable(true);
        button->setChecked(kind.alignment == Qt::AlignLeft);
        button->setAutoExclusive(true);
        button->setToolTip(QString::fromLatin1(kind.name));
        button->setAccessibleName(QString::fromLatin1(kind.name));
        layout->addWidget(button);
    }
    auto *menu = new QMenu(page);
    for (const char *name : { "Justify", "Justify all lines", "Force justify" })
        menu->addAction(QString::fromLatin1(name));
    auto *withMenu = new Ta_ToolButton;
    withMenu->setIcon(alignmentIcon(Qt::AlignHCenter));
    withMenu->setIconSize(QSize(int(Device::scale(16.0)), int(Device::scale(16.0))));
    withMenu->setIconMenu(menu);
    withMenu->setToolTip(QStringLiteral("Justification (Alt+Down for the menu)"));
    withMenu->setAccessibleName(QStringLiteral("Justification"));
    layout->addWidget(withMenu);
    auto *own = new Ta_ToolButton;
    own->setIcon(alignmentIcon(Qt::AlignRight, QColor(200, 60, 40)));
    own->setIconSize(QSize(int(Device::scale(16.0)), int(Device::scale(16.0))));
    own->setColorizeIcon(false);
    own->setAccessibleName(QStringLiteral("Own colours"));
    layout->addWidget(own);
    layout->addWidget(new QLabel(QStringLiteral("the last keeps its own colours")));
    layout->addStretch();
    return box;
}

// Two palettes in the page, each a frame under its own title bar: drag a bar to move its
// palette, double-click or press the arrow to collapse it.
QGroupBox *titleBars()
{
    auto *box = new QGroupBox(QStringLiteral("Title bars"));
    auto *layout = new QHBoxLayout(box);
    const struct
    {
        const char *title;
        bool collapsed;
    } palettes[] = { { "Swatches", false }, { "Layers", true } };
    for (const auto &kind : palettes) {
        auto *palette = new QFrame;
        palette->setFrameStyle(QFrame::Box | QFrame::Plain);
        palette->setWindowTitle(QString::fromLatin1(kind.title));
        palette->setWindowIcon(alignmentIcon(Qt::AlignLeft));
        auto *column = new QVBoxLayout(palette);
        column->setContentsMargins(1, 1, 1, 1);
        column->setSpacing(0);
        auto *bar = new OmaTitleBar;
        bar->setTarget(palette);
        auto *content = new QLabel(QStringLiteral("The %1 palette").arg(kind.title));
        content->setMargin(int(Device::scale(12.0)));
        column->addWidget(bar);
        column->addWidget(content);
        bar->setContentWidget(content);
        bar->setCollapsed(kind.collapsed);
        palette->setFixedWidth(int(Device::scale(240.0)));
        layout->addWidget(palette, 0, Qt::AlignTop);
    }
    layout->addStretch();
    return box;
}

// Each cursor's picture and name; over its tile the mouse shows the cursor itself.
QGroupBox *cursors()
{
    using TavoLib::CursorFactory;
    auto *box = new QGroupBox(QStringLiteral("Cursors"));
    auto *layout = new QHBoxLayout(box);
    const struct
    {
        CursorFactory::CursorType type;
        const char *name;
    } kinds[] = { { CursorFactory::PipetteCursor, "Pipette" }, { CursorFactory::ZoomInCursor, "Zoom in" },
        { CursorFactory::ZoomOutCursor, "Zoom out" }, { CursorFactory::RotateCursor, "Rotate" },
        { CursorFactory::CropCursor, "Crop" } };
    for (const auto &kind : kinds) {
        const QCursor cursor = CursorFactory::cursor(kind.type);
        auto *tile = new QLabel;
        tile->setPixmap(cursor.pixmap());
        tile->setCursor(cursor);
        tile->setAlignment(Qt::AlignCenter);
        tile->setFrameStyle(QFrame::StyledPanel);
        tile->setAutoFillBackground(true);
        tile->setBackgroundRole(QPalette::Base);
        tile->setFixedSize(int(Device::scale(44.0)), int(Device::scale(44.0)));
        auto *column = new QVBoxLayout;
        column->addWidget(tile, 0, Qt::AlignHCenter);
        column->addWidget(new QLabel(QString::fromLatin1(kind.name)), 0, Qt::AlignHCenter);
        layout->addLayout(column);
    }
    layout->addStretch();
    return box;
}

QWidget *makeWindowChromePage()
{
    auto *page = new QWidget;
    auto *layout = new QGridLayout(page);
    layout->addWidget(clickFrames(), 0, 0, 1, 2);
    layout->addWidget(pathLabels(), 1, 0, 1, 2);
    layout->addWidget(tristateGroup(), 2, 0, 2, 1);
    layout->addWidget(slider(), 2, 1);
    layout->addWidget(toolButtons(page), 3, 1);
    layout->addWidget(cursors(), 4, 0, 1, 2);
    layout->addWidget(titleBars(), 5, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(6, 1);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(90, "Window chrome and controls", makeWindowChromePage)
