// Gallery page "Icon menus": a menu bar strip with a submenu open under it, the icon menu tool
// buttons in both styles, the light combo box closed and open, and a combo popup taller than
// the screen with both scroll marks. Popups are windows of their own; the screenshot opens
// each in turn and paints it over the window at its place.
#include "GalleryPage.h"
#include "menus/IconMenu.h"
#include "menus/IconMenuBarView.h"
#include "menus/IconMenuItemModel.h"
#include "menus/IconMenuToolButton.h"
#include "menus/MyComboBox.h"
#include "menus/MyToolButton.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

namespace {

// Simple glyphs of our own: 0 page, 1 text, 2 picture, 3 shapes, 4 table, 5 grid.
QIcon glyph(int kind, int side, const QColor &colour)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.scale(side / 32.0, side / 32.0);
    p.setPen(QPen(colour, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    switch (kind % 6) {
    case 0:
        p.drawPolygon(QPolygonF({ { 8, 3 }, { 20, 3 }, { 26, 9 }, { 26, 29 }, { 8, 29 } }));
        p.drawLine(QPointF(20, 3), QPointF(20, 9));
        p.drawLine(QPointF(20, 9), QPointF(26, 9));
        break;
    case 1:
        p.drawLine(QPointF(7, 6), QPointF(25, 6));
        p.drawLine(QPointF(16, 6), QPointF(16, 27));
        p.drawLine(QPointF(12, 27), QPointF(20, 27));
        break;
    case 2:
        p.drawRoundedRect(QRectF(4, 6, 24, 20), 2, 2);
        p.drawPolyline(QPolygonF({ { 6, 23 }, { 13, 14 }, { 19, 21 }, { 22, 18 }, { 27, 23 } }));
        p.drawEllipse(QPointF(22, 11), 2, 2);
        break;
    case 3:
        p.drawEllipse(QPointF(12, 12), 7, 7);
        p.drawRect(QRectF(14, 15, 13, 13));
        break;
    case 4:
        p.drawRect(QRectF(4, 6, 24, 20));
        p.drawLine(QPointF(4, 13), QPointF(28, 13));
        p.drawLine(QPointF(4, 19.5), QPointF(28, 19.5));
        p.drawLine(QPointF(14, 6), QPointF(14, 26));
        break;
    default:
        for (int i = 0; i < 4; ++i)
            p.drawRoundedRect(QRectF(5 + (i % 2) * 12, 5 + (i / 2) * 12, 9, 9), 2, 2);
    }
    return QIcon(pixmap);
}

struct IconMenusDemo
{
    QMenu *root = nullptr;
    IconMenuBarView *bar = nullptr;
    MyComboBox *openCombo = nullptr;
    MyComboBox *tallCombo = nullptr;
};

IconMenusDemo &demo()
{
    static IconMenusDemo d;
    return d;
}

QMenu *buildMenus(QWidget *owner)
{
    const QColor dark(70, 70, 70);
    const QColor light(225, 225, 225);
    auto *root = new QMenu(owner);
    QMenu *file = root->addMenu(glyph(0, 32, dark), QObject::tr("Document"));
    file->addAction(glyph(0, 24, light), QObject::tr("New page"))->setShortcut(QKeySequence::New);
    file->addAction(glyph(5, 24, light), QObject::tr("Open..."))->setShortcut(QKeySequence::Open);
    file->addSeparator();
    file->addAction(glyph(2, 24, light), QObject::tr("Place picture"));
    QAction *off = file->addAction(glyph(4, 24, light), QObject::tr("Export table"));
    off->setEnabled(false);
    file->addAction(glyph(1, 24, light), QObject::tr("Text && styles"));
    QMenu *insert = root->addMenu(glyph(1, 32, dark), QObject::tr("Text"));
    insert->addAction(QObject::tr("Frame"));
    root->addSeparator();
    QMenu *pictures = root->addMenu(glyph(2, 32, dark), QObject::tr("Pictures"));
    pictures->addAction(QObject::tr("Import"));
    root->addMenu(glyph(3, 32, dark), QObject::tr("Shapes"))->addAction(QObject::tr("Ellipse"));
    root->addSeparator();
    root->addAction(glyph(4, 32, dark), QObject::tr("Table"));
    QAction *grid = root->addAction(glyph(5, 32, dark), QObject::tr("Grid"));
    grid->setEnabled(false);
    return root;
}

QWidget *makeIconMenusPage()
{
    auto *page = new QWidget;
    IconMenusDemo &d = demo();
    d.root = buildMenus(page);
    d.bar = new IconMenuBarView(d.root, nullptr, page);
    d.bar->setAttribute(Qt::WA_DeleteOnClose, false);
    d.bar->setGeometry(100, 0, 580, 60);

    auto *toolsLabel = new QLabel(QObject::tr("Tool buttons, bare and framed"), page);
    toolsLabel->setGeometry(0, 290, 380, 20);
    auto *toolMenu = new QMenu(page);
    for (int i = 0; i < 4; ++i)
        toolMenu->addAction(glyph(i, 24, QColor(60, 60, 60)), QObject::tr("Choice %1").arg(i + 1));
    int x = 0;
    for (int style = 0; style < 2; ++style) {
        for (int withMenu = 0; withMenu < 2; ++withMenu) {
            auto *button = new IconMenuToolButton(
                IconMenuToolButton::StyleType(style), IconMenuToolButton::ResultType1, page);
            button->setIcon(glyph(style * 2 + withMenu + 1, 32, Qt::black));
            if (withMenu)
                button->setMenu(toolMenu);
            button->move(x, 316);
            x += button->width() + 12;
        }
    }
    auto *flat = new MyToolButton(page);
    flat->setIcon(glyph(5, 20, QColor(60, 60, 60)));
    flat->setGeometry(x, 316, 22, 22);

    auto *comboLabel = new QLabel(QObject::tr("Combo boxes: closed, and open"), page);
    comboLabel->setGeometry(0, 360, 300, 20);
    auto *closed = new MyComboBox(page);
    closed->addItems(
        { QObject::tr("Left aligned"), QObject::tr("Centred"), QObject::tr("Right aligned") });
    closed->setGeometry(0, 386, 170, 22);
    d.openCombo = new MyComboBox(page);
    d.openCombo->addItems({ QObject::tr("Points"), QObject::tr("Picas"), QObject::tr("Millimetres"),
        QObject::tr("Centimetres"), QObject::tr("Inches") });
    d.openCombo->setCurrentIndex(2);
    d.openCombo->setGeometry(200, 440, 170, 22);

    auto *tallLabel = new QLabel(QObject::tr("60 rows: scroll marks"), page);
    tallLabel->setGeometry(610, 316, 200, 22);
    tallLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    d.tallCombo = new MyComboBox(page);
    for (int i = 1; i <= 60; ++i)
        d.tallCombo->addItem(QObject::tr("Style sheet %1").arg(i));
    d.tallCombo->setCurrentIndex(30);
    d.tallCombo->setGeometry(820, 316, 160, 22);
    return page;
}

IconMenu *topPopup()
{
    for (QWidget *w : QApplication::topLevelWidgets()) {
        auto *popup = qobject_cast<IconMenu *>(w);
        if (popup && popup->isVisible())
            return popup;
    }
    return nullptr;
}

void settle()
{
    for (int n = 0; n < 3; ++n) {
        QApplication::processEvents();
        QTest::qWait(10);
    }
}

void paintWidget(QPainter &p, QWidget *window, QWidget *w)
{
    p.drawPixmap(w->mapTo(window, QPoint(0, 0)), w->grab());
}

// Paints a popup where it stands on the screen; with `leftAt`, at that window x instead (the
// offscreen screen is narrower than the gallery window, so a popup opened from the right-hand
// side of the page is pushed left on the screen but drawn where a wide screen would show it).
void paintPopup(QPainter &p, QWidget *window, IconMenu *popup, int leftAt = -1)
{
    if (!popup)
        return;
    QPoint at = popup->mapToGlobal(QPoint(0, 0)) - window->mapToGlobal(QPoint(0, 0));
    if (leftAt >= 0)
        at.setX(leftAt);
    p.drawPixmap(at, popup->grab());
    popup->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QImage shootIconMenus(QWidget *window, QWidget *)
{
    IconMenusDemo &d = demo();
    // The submenu of the first entry, with the strip showing it open.
    const QModelIndex first = d.bar->model()->index(0, 0);
    d.bar->showSubMenu(d.bar->menuModel()->action(first), first);
    settle();
    IconMenu *submenu = topPopup();
    if (submenu) // a highlighted row, as under the mouse
        submenu->selectionModel()->setCurrentIndex(
            submenu->model()->index(1, 0), QItemSelectionModel::Select);
    settle();
    QImage shot = window->grab().toImage();
    QPainter p(&shot);
    paintPopup(p, window, submenu);

    d.openCombo->showPopup();
    settle();
    paintWidget(p, window, d.openCombo);
    paintPopup(p, window, topPopup());

    d.tallCombo->showPopup();
    settle();
    paintWidget(p, window, d.tallCombo);
    paintPopup(p, window, topPopup(), d.tallCombo->mapTo(window, QPoint(0, 0)).x());
    return shot;
}

} // namespace

TAVO_GALLERY_PAGE_EX(60, "Icon menus", makeIconMenusPage, nullptr, shootIconMenus)
