#pragma once

// A dialog that edits attributes over several pages: one plain page, tabs, or a tree of
// page names beside a stack. It loads its page widgets, keeps their labels aligned, marks
// the names of pages with active content (bold, or bold italic while undefined) and opens on
// the first of them, saves on every change while "Preview" is ticked and restores when it is
// unticked or the dialog is cancelled, and on acceptance checks every page, then saves.
#include "attributes/PropertyDialog.h"

#include <QMap>
#include <list>

class QSplitter;
class QStackedWidget;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace TavoLib {

class TAVOLIBGUI_EXPORT AttributesDialog : public PropertyDialog
{
    Q_OBJECT
public:
    // Tabs (1), a page tree beside a stack (2), or one plain page (any other value).
    enum Type { SinglePage = 0, Tabs = 1, PageTree = 2 };
    enum PageLabelMark { NoMark = 0, BoldMark = 1, BoldItalicMark = 2 };

    AttributesDialog(Type type, QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags(),
        bool previewEnabled = true, int minimumWidth = 0);
    ~AttributesDialog() override;

    // A new page; with neither tabs nor a page tree it is returned unplaced.
    QWidget *addTab(const QString &name);
    // A widget on a page, above the page's bottom spacer.
    void addWidget(QWidget *page, QWidget *widget);
    // A widget in the dialog's main area, outside the pages.
    void addWidget(QWidget *widget);
    void setCurrentTab(QWidget *page);

    int exec() override;

public slots:
    void accept() override;
    void reject() override;

protected:
    // Extension points for subclasses; the dialog itself does not call them.
    virtual void prepareDialog() { }
    virtual void prepareWidgets() { }
    virtual void loadValues();
    virtual void loadWidgetValues(QWidget *widget);
    virtual bool checkValues();
    virtual bool checkWidgetValues(QWidget *widget);
    virtual void saveValues();
    virtual void saveWidgetValues(QWidget *widget);
    virtual void setupWidget(QWidget *widget);

    // Fits the labels of the attribute pages that share the widget's parent to one edge.
    void synchronizeLabelSizes(QWidget *widget);
    // What exec() does before the dialog runs: load the pages, align their labels, mark the
    // page names and choose the first page with active content, and take the size of the
    // contents. For a subclass that shows the dialog without running it.
    void prepareToRun();

private slots:
    void anyPropertyChanged();
    void previewButtonClicked();
    void currentPageChanged();

private:
    QMap<QTreeWidgetItem *, PageLabelMark> pageLabelMarks() const;
    void markPageLabels(const QMap<QTreeWidgetItem *, PageLabelMark> &marks);

    std::list<QWidget *> mWidgets;
    QTabWidget *mTabWidget = nullptr;
    QStackedWidget *mStackedWidget = nullptr;
    QTreeWidget *mPageTree = nullptr;
    QSplitter *mSplitter = nullptr;
    QMap<QString, QWidget *> mPages;
    QMap<QWidget *, QTreeWidgetItem *> mPageItems;
    bool mPreviewEnabled;
};

} // namespace TavoLib
