#pragma once

// The gallery's main window: the list of pages on the left, the current page on the right.
#include "GalleryPage.h"

#include <QMainWindow>

class QListWidget;
class QStackedWidget;

class GalleryWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit GalleryWindow(QWidget *parent = nullptr);

    int pageCount() const;
    void showPage(int index);
    // Writes one PNG per page into `directory`; gives the number written.
    int writeScreenshots(const QString &directory);

private:
    QListWidget *mList;
    QStackedWidget *mStack;
    std::vector<Gallery::Page> mPages;
};
