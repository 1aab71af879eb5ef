#pragma once

// SearchPathsWidget edits a list of folders an application searches (fonts, images, profiles):
// one row per OmaLib::SearchPath with its path, whether it is kept relative to the list's base
// folder, and whether subfolders are searched. The user adds folders with a folder chooser,
// removes them (Delete), reorders them (the buttons, or Ctrl+Up / Ctrl+Down), and switches a
// row between relative and absolute: switching on goes through MakeRelativePath and is
// refused (the box stays off) when no relative form exists, for instance without a base
// folder or on another drive. Folders that do not exist are marked in red with a tooltip, not
// dropped. searchPathsChanged() follows every change the user makes, none that the host makes.
#include "style/TavoLibGuiExport.h"

#include "core/units/SearchPath.h"

#include <QWidget>

#include <deque>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class TAVOLIBGUI_EXPORT SearchPathsWidget : public QWidget
{
    Q_OBJECT
public:
    enum Column { PathColumn, RelativeColumn, SubfolderColumn };

    explicit SearchPathsWidget(QWidget *parent = nullptr);
    ~SearchPathsWidget() override;

    // The absolute folder relative paths are read against; rows are marked again.
    QString basePath() const { return mBasePath; }
    void setBasePath(const QString &base);

    std::deque<OmaLib::SearchPath> searchPaths() const;
    void setSearchPaths(const std::deque<OmaLib::SearchPath> &paths);

    // The folder an entry names, relative ones resolved against basePath().
    QString absolutePath(const OmaLib::SearchPath &entry) const;
    // Whether the folder of the row exists.
    bool rowExists(int row) const;

    QTreeWidget *view() const { return mView; }

    // Wide enough for both check columns beside a folder column wider than they are together.
    QSize sizeHint() const override;

public slots:
    // Adds `folder` (absolute) as a new last row, made current; a folder already listed only
    // becomes current. Empty text adds nothing. True when a row was added.
    bool addFolder(const QString &folder);
    // Asks for a folder (chooseFolder) and adds it.
    void addWithChooser();
    void removeCurrent();
    void moveCurrentUp();
    void moveCurrentDown();

signals:
    void searchPathsChanged();

protected:
    // Asks the user for a folder starting at `start`; empty when cancelled. Hosts and tests
    // may offer a chooser of their own.
    virtual QString chooseFolder(const QString &start);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fillRow(QTreeWidgetItem *item, const OmaLib::SearchPath &entry);
    OmaLib::SearchPath entryOf(const QTreeWidgetItem *item) const;
    void markRow(QTreeWidgetItem *item);
    void rowChanged(QTreeWidgetItem *item, int column);
    void moveCurrent(int step);
    void updateButtons();

    QString mBasePath;
    QTreeWidget *mView = nullptr;
    QPushButton *mAdd = nullptr;
    QPushButton *mRemove = nullptr;
    QPushButton *mUp = nullptr;
    QPushButton *mDown = nullptr;
    bool mFilling = false;
};
