#include "widgets/SearchPathsWidget.h"

#include "core/units/MakeRelativePath.h"
#include "style/Device.h"
#include "widgets/OmaFileIconProvider.h"
#include "widgets/Ta_HeaderView.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Flags of a row kept beside its text: the stored path is the row's data, the text may differ
// in nothing but is kept for the screen.
constexpr int kPathRole = Qt::UserRole + 1;

} // namespace

SearchPathsWidget::SearchPathsWidget(QWidget *parent) : QWidget(parent)
{
    mView = new QTreeWidget;
    mView->setHeader(new Ta_HeaderView(Qt::Horizontal, mView));
    mView->setColumnCount(3);
    mView->setHeaderLabels({ tr("Folder"), tr("Relative"), tr("Subfolders") });
    mView->setRootIsDecorated(false);
    mView->setUniformRowHeights(true);
    mView->setSelectionMode(QAbstractItemView::SingleSelection);
    mView->setAccessibleName(tr("Search folders"));
    mView->header()->setStretchLastSection(false);
    mView->header()->setSectionResizeMode(PathColumn, QHeaderView::Stretch);
    mView->header()->setSectionResizeMode(RelativeColumn, QHeaderView::ResizeToContents);
    mView->header()->setSectionResizeMode(SubfolderColumn, QHeaderView::ResizeToContents);
    mView->installEventFilter(this);

    mAdd = new QPushButton(tr("&Add..."));
    mRemove = new QPushButton(tr("&Remove"));
    mUp = new QPushButton(tr("Move &Up"));
    mDown = new QPushButton(tr("Move &Down"));
    auto *buttons = new QVBoxLayout;
    for (QPushButton *button : { mAdd, mRemove, mUp, mDown })
        buttons->addWidget(button);
    buttons->addStretch();
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mView, 1);
    layout->addLayout(buttons);

    connect(mAdd, &QPushButton::clicked, this, &SearchPathsWidget::addWithChooser);
    connect(mRemove, &QPushButton::clicked, this, &SearchPathsWidget::removeCurrent);
    connect(mUp, &QPushButton::clicked, this, &SearchPathsWidget::moveCurrentUp);
    connect(mDown, &QPushButton::clicked, this, &SearchPathsWidget::moveCurrentDown);
    connect(mView, &QTreeWidget::itemChanged, this, &SearchPathsWidget::rowChanged);
    connect(mView, &QTreeWidget::currentItemChanged, this, [this] { updateButtons(); });
    connect(mView, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *item) {
        // Activating a row chooses another folder for it.
        const OmaLib::SearchPath before = entryOf(item);
        const int row = mView->indexOfTopLevelItem(item);
        const QString folder = chooseFolder(absolutePath(before));
        // The chooser ran its own event loop: the row may be gone or moved by now.
        if (folder.isEmpty() || mView->topLevelItem(row) != item)
            return;
        OmaLib::SearchPath entry = entryOf(item);
        entry.path = QDir::cleanPath(folder);
        entry.relative = false;
        fillRow(item, entry);
        emit searchPathsChanged();
    });
    setTabOrder(mView, mAdd);
    setTabOrder(mAdd, mRemove);
    setTabOrder(mRemove, mUp);
    setTabOrder(mUp, mDown);
    updateButtons();
}

SearchPathsWidget::~SearchPathsWidget() = default;

void SearchPathsWidget::setBasePath(const QString &base)
{
    mBasePath = base;
    for (int row = 0; row < mView->topLevelItemCount(); ++row)
        markRow(mView->topLevelItem(row));
}

std::deque<OmaLib::SearchPath> SearchPathsWidget::searchPaths() const
{
    std::deque<OmaLib::SearchPath> paths;
    for (int row = 0; row < mView->topLevelItemCount(); ++row)
        paths.push_back(entryOf(mView->topLevelItem(row)));
    return paths;
}

void SearchPathsWidget::setSearchPaths(const std::deque<OmaLib::SearchPath> &paths)
{
    mView->clear();
    for (const OmaLib::SearchPath &entry : paths)
        fillRow(new QTreeWidgetItem(mView), entry);
    if (mView->topLevelItemCount() > 0)
        mView->setCurrentItem(mView->topLevelItem(0));
    updateButtons();
}

QSize SearchPathsWidget::sizeHint() const
{
    // The tree's own hint is a fixed width: at higher densities the check columns alone would
    // fill it and push the folder column out of view.
    const QSize hint = QWidget::sizeHint();
    const QHeaderView *header = mView->header();
    const int boxes
        = header->sectionSizeHint(RelativeColumn) + header->sectionSizeHint(SubfolderColumn);
    const int view = boxes + qMax(boxes, int(TavoLib::Device::scale(240.0)))
        + 2 * mView->frameWidth() + mView->verticalScrollBar()->sizeHint().width();
    return QSize(hint.width() + qMax(0, view - mView->sizeHint().width()), hint.height());
}

QString SearchPathsWidget::absolutePath(const OmaLib::SearchPath &entry) const
{
    if (entry.path.isEmpty())
        return QString();
    if (!entry.relative || QDir::isAbsolutePath(entry.path))
        return QDir::cleanPath(entry.path);
    if (mBasePath.isEmpty())
        return QString();
    return QDir::cleanPath(QDir(mBasePath).absoluteFilePath(entry.path));
}

bool SearchPathsWidget::rowExists(int row) const
{
    const QTreeWidgetItem *item = mView->topLevelItem(row);
    if (!item)
        return false;
    const QString path = absolutePath(entryOf(item));
    return !path.isEmpty() && QFileInfo(path).isDir();
}

bool SearchPathsWidget::addFolder(const QString &folder)
{
    if (folder.trimmed().isEmpty())
        return false;
    const QString clean = QDir::cleanPath(folder);
    for (int row = 0; row < mView->topLevelItemCount(); ++row) {
        QTreeWidgetItem *item = mView->topLevelItem(row);
        if (absolutePath(entryOf(item)) == clean) {
            mView->setCurrentItem(item);
            return false;
        }
    }
    OmaLib::SearchPath entry;
    entry.path = clean;
    entry.relative = false;
    entry.subfolder = false;
    auto *item = new QTreeWidgetItem(mView);
    fillRow(item, entry);
    mView->setCurrentItem(item);
    updateButtons();
    emit searchPathsChanged();
    return true;
}

void SearchPathsWidget::addWithChooser()
{
    const QTreeWidgetItem *current = mView->currentItem();
    const QString start = current ? absolutePath(entryOf(current)) : mBasePath;
    const QString folder = chooseFolder(start);
    if (!folder.isEmpty())
        addFolder(folder);
}

void SearchPathsWidget::removeCurrent()
{
    QTreeWidgetItem *item = mView->currentItem();
    if (!item)
        return;
    delete item;
    updateButtons();
    emit searchPathsChanged();
}

void SearchPathsWidget::moveCurrentUp()
{
    moveCurrent(-1);
}

void SearchPathsWidget::moveCurrentDown()
{
    moveCurrent(1);
}

QString SearchPathsWidget::chooseFolder(const QString &start)
{
    return QFileDialog::getExistingDirectory(this, tr("Choose a Folder"), start);
}

bool SearchPathsWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == mView && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier) {
            removeCurrent();
            return true;
        }
        if ((key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)
            && key->modifiers() == Qt::ControlModifier) {
            moveCurrent(key->key() == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SearchPathsWidget::fillRow(QTreeWidgetItem *item, const OmaLib::SearchPath &entry)
{
    mFilling = true;
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setData(PathColumn, kPathRole, entry.path);
    item->setText(PathColumn, QDir::toNativeSeparators(entry.path));
    item->setIcon(PathColumn, OmaFileIconProvider::iconOf(OmaFileIconProvider::Folder));
    item->setCheckState(RelativeColumn, entry.relative ? Qt::Checked : Qt::Unchecked);
    item->setCheckState(SubfolderColumn, entry.subfolder ? Qt::Checked : Qt::Unchecked);
    mFilling = false;
    markRow(item);
}

OmaLib::SearchPath SearchPathsWidget::entryOf(const QTreeWidgetItem *item) const
{
    OmaLib::SearchPath entry;
    entry.path = item->data(PathColumn, kPathRole).toString();
    entry.relative = item->checkState(RelativeColumn) == Qt::Checked;
    entry.subfolder = item->checkState(SubfolderColumn) == Qt::Checked;
    return entry;
}

void SearchPathsWidget::markRow(QTreeWidgetItem *item)
{
    const QString path = absolutePath(entryOf(item));
    const bool exists = !path.isEmpty() && QFileInfo(path).isDir();
    mFilling = true;
    item->setForeground(PathColumn, exists ? palette().brush(QPalette::Text) : QBrush(QColor(0xc6, 0x28, 0x28)));
    item->setToolTip(PathColumn,
        exists ? QDir::toNativeSeparators(path)
               : tr("This folder does not exist: %1")
                     .arg(QDir::toNativeSeparators(path.isEmpty() ? entryOf(item).path : path)));
    item->setData(PathColumn, Qt::AccessibleDescriptionRole,
        exists ? QString() : tr("Folder does not exist"));
    mFilling = false;
}

void SearchPathsWidget::rowChanged(QTreeWidgetItem *item, int column)
{
    if (mFilling)
        return;
    if (column == SubfolderColumn) {
        emit searchPathsChanged();
        return;
    }
    if (column != RelativeColumn)
        return;
    OmaLib::SearchPath entry = entryOf(item);
    const QString stored = item->data(PathColumn, kPathRole).toString();
    if (entry.relative) {
        // The row was absolute: its stored path is the folder itself.
        QString relative;
        if (mBasePath.isEmpty() || !MakeRelativePath(QDir::cleanPath(stored), QDir::cleanPath(mBasePath), relative)) {
            QApplication::beep();
            entry.relative = false;
            entry.path = stored;
            fillRow(item, entry); // refused: the box goes back off
            return;
        }
        entry.path = relative;
    } else {
        OmaLib::SearchPath old = entry;
        old.relative = true;
        const QString absolute = absolutePath(old);
        entry.path = absolute.isEmpty() ? stored : absolute;
    }
    fillRow(item, entry);
    emit searchPathsChanged();
}

void SearchPathsWidget::moveCurrent(int step)
{
    QTreeWidgetItem *item = mView->currentItem();
    if (!item)
        return;
    const int row = mView->indexOfTopLevelItem(item);
    const int target = row + step;
    if (target < 0 || target >= mView->topLevelItemCount())
        return;
    mFilling = true;
    mView->takeTopLevelItem(row);
    mView->insertTopLevelItem(target, item);
    mFilling = false;
    mView->setCurrentItem(item);
    updateButtons();
    emit searchPathsChanged();
}

void SearchPathsWidget::updateButtons()
{
    const QTreeWidgetItem *item = mView->currentItem();
    const int row = item ? mView->indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(item)) : -1;
    mRemove->setEnabled(row >= 0);
    mUp->setEnabled(row > 0);
    mDown->setEnabled(row >= 0 && row + 1 < mView->topLevelItemCount());
}
