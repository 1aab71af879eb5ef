#include "GalleryWindow.h"

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>

namespace Gallery {
std::vector<Page> &pages()
{
    static std::vector<Page> all;
    return all;
}
} // namespace Gallery

GalleryWindow::GalleryWindow(QWidget *parent)
    : QMainWindow(parent), mList(new QListWidget), mStack(new QStackedWidget)
{
    setWindowTitle(tr("TavoLibGui Gallery"));
    mPages = Gallery::pages();
    std::stable_sort(mPages.begin(), mPages.end(),
                     [](const Gallery::Page &a, const Gallery::Page &b) { return a.order < b.order; });
    for (const Gallery::Page &page : mPages) {
        mList->addItem(page.title);
        QWidget *widget = page.make();
        widget->setObjectName(page.title);
        mStack->addWidget(widget);
    }
    // Wide enough for the longest page title, without a scroll bar.
    mList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    mList->setFixedWidth(qMax(180, mList->sizeHintForColumn(0) + 2 * mList->frameWidth() + 8));
    auto *central = new QWidget;
    auto *layout = new QHBoxLayout(central);
    layout->addWidget(mList);
    layout->addWidget(mStack, 1);
    setCentralWidget(central);
    connect(mList, &QListWidget::currentRowChanged, mStack, &QStackedWidget::setCurrentIndex);
    if (!mPages.empty())
        mList->setCurrentRow(0);
    resize(1280, 820);
}

int GalleryWindow::pageCount() const
{
    return int(mPages.size());
}

void GalleryWindow::showPage(int index)
{
    mList->setCurrentRow(index);
}

int GalleryWindow::writeScreenshots(const QString &directory)
{
    QDir().mkpath(directory);
    int written = 0;
    for (int i = 0; i < pageCount(); ++i) {
        showPage(i);
        QWidget *page = mStack->widget(i);
        QApplication::processEvents();
        if (mPages[size_t(i)].prepareShot)
            mPages[size_t(i)].prepareShot(page);
        // Let layouts, timers of zero delay and deferred paints settle.
        for (int n = 0; n < 5; ++n) {
            QApplication::processEvents();
            QTest::qWait(20);
        }
        const QImage image = mPages[size_t(i)].shoot ? mPages[size_t(i)].shoot(this, page)
                                                     : grab().toImage();
        QString name = mPages[size_t(i)].title.toLower();
        name.replace(QRegularExpression(QStringLiteral("[^a-z0-9]+")), QStringLiteral("-"));
        const QString file = QDir(directory).filePath(
            QStringLiteral("%1-%2.png").arg(i + 1, 2, 10, QLatin1Char('0')).arg(name));
        if (image.save(file))
            ++written;
        else
            qWarning("gallery: cannot write %s", qPrintable(file));
    }
    return written;
}
