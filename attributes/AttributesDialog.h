#pragma once

// A dialog that edits attributes over several pages: one plain page, tabs, or a tree of
// page names beside a stack. It keeps the labels of its page widgets aligned, marks the names
// of pages with active content (bold, or bold italic while undefined) and opens on the first
// of them.
//
// Which hooks run when:
// - exec() calls loadValues(), which calls loadWidgetValues() for each widget, in the order
//   they were added; then it aligns labels, marks pages and runs the dialog.
// - OK calls checkValues() (checkWidgetValues() for each widget, stopping at the first
//   false), closes the dialog and then calls saveValues() (saveWidgetValues() for each).
// - The preview and Cancel call the pages' own AttributesWidgetCommon::saveValues() and
//   restoreValues() directly: ticking "Preview" and every later change save each page, and
//   unticking it or Cancel restore each page.
// loadWidgetValues() and saveWidgetValues() do nothing here: a plain AttributesDialog shows
// pages that were never loaded and writes nothing on OK, while its preview does write. A
// subclass must forward the two hooks to its pages, for example
//     void loadWidgetValues(QWidget *w) override
//     { if (auto *page = dynamic_cast<AttributesWidgetCommon *>(w)) page->loadValues(); }
// and the same for saveWidgetValues() with saveValues().
//
// A widget added with addWidget() is reparented into its page (or the dialog) and deleted
// with the dialog. The host may delete a page widget earlier (to drop a page that does not
// apply to this selection); the dialog then forgets it.
#include "attributes/PropertyDialog.h"

#include <QMap>
#include <QPointer>
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
    // Tabs (1), a page tree beside a stack (2), or one plain page (any other value: the
    // fixed underlying type makes every int a valid value).
    enum Type : int { SinglePage = 0, Tabs = 1, PageTree = 2 };
    enum PageLabelMark { NoMark = 0, BoldMark = 1, BoldItalicMark = 2 };

    AttributesDialog(Type type, QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags(),
        bool previewEnabled = true, int minimumWidth = 0);
    ~AttributesDialog() override;

    // A new page; with neither tabs nor a page tree it is returned unplaced.
    QWidget *addTab(const QString &name);
    // A widget on a page, above the page's bottom spacer; the page owns it from now on.
    void addWidget(QWidget *page, QWidget *widget);
    // A widget in the dialog's main area, outside the pages.
    void addWidget(QWidget *widget);
    void setCurrentTab(QWidget *page);

    int exec() override;

public slots:
    // Checks, closes, then saves: accepted() and finished() are emitted before the values are
    // written, so a host that opens the dialog with open() or show() and refreshes its
    // document from those signals sees the old values. Only exec() returns after the save.
    void accept() override;
    void reject() override;

protected:
    // Extension points for subclasses; the dialog itself does not call these two.
    virtual void prepareDialog() { }
    virtual void prepareWidgets() { }
    // Called by exec() and on OK, as the class comment says; the widget hooks are empty here.
    virtual void loadValues();
    virtual void loadWidgetValues(QWidget *widget);
    virtual bool checkValues();
    virtual bool checkWidgetValues(QWidget *widget);
    virtual void saveValues();
    virtual void saveWidgetValues(QWidget *widget);
    virtual void setupWidget(QWidget *widget);

    // Fits the labels of the attribute pages that share the widget's parent to one edge.
    void synchronizeLabelSizes(QWidget *widget);
    // What exec() does before the dialog runs: loadValues() (which loads the pages through
    // the subclass's loadWidgetValues()), align their labels, mark the page names and choose
    // the first page with active content, and take the size of the contents. For a subclass
    // that shows the dialog without running it.
    void prepareToRun();

private slots:
    void anyPropertyChanged();
    void previewButtonClicked();
    void currentPageChanged();

private:
    QMap<QTreeWidgetItem *, PageLabelMark> pageLabelMarks();
    void markPageLabels(const QMap<QTreeWidgetItem *, PageLabelMark> &marks);
    // The page widgets still alive, in order of adding.
    QList<QWidget *> widgets();
    void alignLabels();
    void openOnFirstMarkedPage();
    void savePages();
    void restorePages();

    std::list<QPointer<QWidget>> mWidgets;
    QTabWidget *mTabWidget = nullptr;
    QStackedWidget *mStackedWidget = nullptr;
    QTreeWidget *mPageTree = nullptr;
    QSplitter *mSplitter = nullptr;
    QMap<QString, QPointer<QWidget>> mPages;
    QMap<QWidget *, QTreeWidgetItem *> mPageItems;
    bool mPreviewEnabled;
};

} // namespace TavoLib
