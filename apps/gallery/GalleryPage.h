#pragma once

// Pages of the gallery. Each page lives in a file of its own and registers itself:
//
//     static QWidget *makeUnitsPage() { ... }
//     TAVO_GALLERY_PAGE(40, "Units", makeUnitsPage)
//
// Pages are listed by their order number. A page may also register a function that runs
// once the page is shown, before its screenshot is taken (to open a popup, say), and one
// that composes its screenshot itself (to include popups, which are windows of their own).
#include <QImage>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

namespace Gallery {

struct Page
{
    int order = 0;
    QString title;
    std::function<QWidget *()> make;
    // Optional: called after the page is shown, before the screenshot.
    std::function<void(QWidget *page)> prepareShot;
    // Optional: gives the screenshot; by default the main window is grabbed.
    std::function<QImage(QWidget *window, QWidget *page)> shoot;
};

std::vector<Page> &pages();

struct PageRegistrar
{
    explicit PageRegistrar(Page page) { pages().push_back(std::move(page)); }
};

} // namespace Gallery

#define TAVO_GALLERY_CONCAT2(a, b) a##b
#define TAVO_GALLERY_CONCAT(a, b) TAVO_GALLERY_CONCAT2(a, b)
#define TAVO_GALLERY_PAGE(order, title, make)                                                   \
    static Gallery::PageRegistrar TAVO_GALLERY_CONCAT(galleryPage_, __LINE__)(                   \
        Gallery::Page{ order, QStringLiteral(title), make, nullptr, nullptr });
#define TAVO_GALLERY_PAGE_EX(order, title, make, prepare, shoot)                                \
    static Gallery::PageRegistrar TAVO_GALLERY_CONCAT(galleryPage_, __LINE__)(                   \
        Gallery::Page{ order, QStringLiteral(title), make, prepare, shoot });
