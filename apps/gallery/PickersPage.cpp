// Gallery page "Pickers": the style resource pickers over the reference environment. Font
// family and style combo boxes without and with examples (the latter's list shown open in
// the screenshot), the font menu, a brush combo box with the gradient menu, and pen style
// and line-head combo boxes. Each font pair reports the identifier it reads back.
#include "GalleryPage.h"

#include "core/BrushProviderQt.h"
#include "core/Environment.h"
#include "core/FontProviderQt.h"
#include "core/LineHeadStyleProviderQt.h"
#include "core/PenStyleProviderQt.h"
#include "pickers/BrushControllerQt.h"
#include "pickers/FontControllerQt.h"
#include "pickers/LineHeadStyleControllerQt.h"
#include "pickers/PenStyleControllerQt.h"
#include "style/Device.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

const char *const kOpenCombo = "pickersFamiliesWithExamples";

// A family and a style combo box kept in step, and a label with the font they read back.
QWidget *fontPair(TAutoPtr<const FontProviderQt> fonts, bool examples, const QString &name)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *family = new QComboBox;
    family->setObjectName(name);
    auto *style = new QComboBox;
    auto *readBack = new QLabel;
    family->setMinimumWidth(int(Device::scale(200)));
    style->setMinimumWidth(int(Device::scale(130)));
    layout->addWidget(family);
    layout->addWidget(style);
    layout->addWidget(readBack, 1);

    FontControllerQt controller(fonts);
    controller.setShowExamples(examples);
    const short current = fonts->defaultFont();
    controller.populateFamilies(family, current, false);
    controller.populateStyles(style, current);

    auto refresh = [fonts, examples, family, style, readBack] {
        FontControllerQt c(fonts);
        c.setShowExamples(examples);
        readBack->setText(QStringLiteral("currentFont: %1").arg(c.currentFont(family, style)));
    };
    QObject::connect(family, QOverload<int>::of(&QComboBox::activated), row,
        [fonts, examples, family, style, refresh] {
            FontControllerQt c(fonts);
            c.setShowExamples(examples);
            c.populateStyles(style, family);
            refresh();
        });
    QObject::connect(style, QOverload<int>::of(&QComboBox::activated), row, refresh);
    refresh();
    return row;
}

QWidget *makePickersPage()
{
    TAutoPtr<Environment> env(new Environment);
    const TAutoPtr<const FontProviderQt> fonts(env->fontProvider());
    const TAutoPtr<const BrushProviderQt> brushes(env->brushProvider());
    const TAutoPtr<const PenStyleProviderQt> pens(env->penStyleProvider());
    const TAutoPtr<const LineHeadStyleProviderQt> heads(env->lineHeadStyleProvider());

    // Two columns, so that the open family list leaves the other pickers in view.
    auto *page = new QWidget;
    auto *columns = new QHBoxLayout(page);
    auto *left = new QVBoxLayout;
    auto *right = new QVBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);

    auto *fontBox = new QGroupBox(QObject::tr("Fonts"));
    auto *fontForm = new QFormLayout(fontBox);
    if (fonts) {
        fontForm->addRow(QObject::tr("Without examples"), fontPair(fonts, false, "families"));
        fontForm->addRow(QObject::tr("With examples"), fontPair(fonts, true, kOpenCombo));
    }
    right->addWidget(fontBox);
    right->addStretch(1);

    auto *menuBox = new QGroupBox(QObject::tr("Font menu"));
    auto *menuForm = new QFormLayout(menuBox);
    if (fonts) {
        auto *menuButton = new QPushButton(QObject::tr("Font"));
        auto *menu = new QMenu(menuButton);
        FontControllerQt(fonts).populateMenu(menu, fonts->defaultFont());
        menuButton->setMenu(menu);
        auto *chosen = new QLabel;
        QObject::connect(menu, &QMenu::triggered, chosen, [fonts, menu, chosen](QAction *) {
            chosen->setText(
                QStringLiteral("currentFont: %1").arg(FontControllerQt(fonts).currentFont(menu)));
        });
        auto *menuRow = new QHBoxLayout;
        menuRow->addWidget(menuButton);
        menuRow->addWidget(chosen, 1);
        menuForm->addRow(QObject::tr("Families"), menuRow);
    }
    left->addWidget(menuBox);

    auto *brushBox = new QGroupBox(QObject::tr("Brushes"));
    auto *brushForm = new QFormLayout(brushBox);
    if (brushes) {
        BrushControllerQt controller(brushes);
        auto *combo = new QComboBox;
        combo->setMinimumWidth(int(Device::scale(200)));
        const std::list<short> all = brushes->brushList();
        controller.populate(combo, false, all.empty() ? short(-100) : all.front());
        brushForm->addRow(QObject::tr("Brush"), combo);

        auto *gradients = new QToolButton;
        auto *menu = new QMenu(gradients);
        controller.populateGradients(menu, -100);
        gradients->setMenu(menu);
        gradients->setPopupMode(QToolButton::InstantPopup);
        gradients->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        gradients->setText(QObject::tr("Gradients"));
        gradients->setIconSize(Device::size(Device::SizeType4));
        if (!menu->actions().isEmpty())
            gradients->setIcon(menu->actions().first()->icon());
        QObject::connect(menu, &QMenu::triggered, gradients,
            [gradients](QAction *action) { gradients->setIcon(action->icon()); });
        brushForm->addRow(QObject::tr("Gradient menu"), gradients);
    }
    left->addWidget(brushBox);

    auto *lineBox = new QGroupBox(QObject::tr("Lines"));
    auto *lineForm = new QFormLayout(lineBox);
    if (pens) {
        auto *combo = new QComboBox;
        PenStyleControllerQt(pens).populate(combo, -100);
        lineForm->addRow(QObject::tr("Pen style"), combo);
    }
    if (heads) {
        auto *start = new QComboBox;
        auto *end = new QComboBox;
        const std::list<short> all = heads->styleList();
        LineHeadStyleControllerQt controller(heads);
        controller.populate(true, start, -100);
        controller.populate(false, end, all.size() > 1 ? *std::next(all.begin()) : short(-100));
        lineForm->addRow(QObject::tr("Line start"), start);
        lineForm->addRow(QObject::tr("Line end"), end);
    }
    left->addWidget(lineBox);
    left->addStretch(1);
    return page;
}

void openFamilies(QWidget *page)
{
    if (auto *combo = page->findChild<QComboBox *>(QString::fromLatin1(kOpenCombo)))
        combo->showPopup();
    QApplication::processEvents();
}

// The open list is a window of its own: paint it onto the grab of the main window.
QImage shootWithPopup(QWidget *window, QWidget *page)
{
    QImage image = window->grab().toImage();
    auto *combo = page->findChild<QComboBox *>(QString::fromLatin1(kOpenCombo));
    if (!combo || !combo->view()->isVisible())
        return image;
    QWidget *popup = combo->view()->window();
    // The offscreen screen is smaller than the gallery window and pushes the list into its
    // corner; it is drawn where a drop-down list opens, under the combo box.
    const QPoint at = combo->mapTo(window, QPoint(0, combo->height()));
    QPainter painter(&image);
    painter.drawPixmap(at, popup->grab());
    painter.end();
    combo->hidePopup();
    return image;
}

} // namespace

TAVO_GALLERY_PAGE_EX(50, "Pickers", makePickersPage, openFamilies, shootWithPopup)
