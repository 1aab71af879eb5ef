#pragma once

// A property browser that lays its rows out as a form: each row a label and a live editor,
// made when the row is inserted and kept until it is removed, as a dialog's user expects to
// see every control at once. A property with children becomes a framed group (a heading
// without an editor) or an indented block under its own row. All labels, at any depth,
// end at one right edge; maxLabelWidth and setMaxLabelWidth align several browsers. Labels
// are their editors' buddies; the Tab order follows the form after every insertion. While
// many rows are inserted, the application's queued polish requests are dropped now and then
// (a widget is polished anyway before it is first shown or measured).
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "propertybrowser/QtAbstractPropertyBrowser.h"
#include "style/TavoLibGuiExport.h"

#include <map>

class QFrame;
class QGridLayout;
class QLabel;

namespace TavoLib {

class TAVOLIBGUI_EXPORT DialogPropertyBrowser : public QtAbstractPropertyBrowser
{
    Q_OBJECT
public:
    // The widgets of one row; they are deleted by the browser, not by this record.
    struct WidgetInfo : public MAutoObj
    {
        QWidget *mEditor = nullptr;
        QWidget *mContainer = nullptr;
        QFrame *mSeparator = nullptr;
        QLabel *mLabel = nullptr;
        QWidget *mChildArea = nullptr;
    };

    explicit DialogPropertyBrowser(QWidget *parent = nullptr);
    ~DialogPropertyBrowser() override;

    // The width that lets every label end at one edge (label text plus the margins of the
    // groups around it); 0 for an empty browser.
    int maxLabelWidth() const;
    // Gives every label the fixed width that ends it at `width`.
    void setMaxLabelWidth(int width);
    void updateSizes();

    // The editor of a row (null for a heading or an unknown item), and the rows in the
    // order the form shows them.
    QWidget *editorOf(QtBrowserItem *item) const;
    QList<QtBrowserItem *> itemsInFormOrder() const;

protected:
    void itemInserted(QtBrowserItem *item, QtBrowserItem *afterItem) override;
    void itemRemoved(QtBrowserItem *item) override;
    void itemChanged(QtBrowserItem *item) override;
    bool focusNextPrevChild(bool next) override;

private:
    void promote(WidgetInfo &parent);
    void demote(WidgetInfo &parent);
    static int labelOffset(const QLabel *label);
    int innerOffset(const QLabel *label) const;
    int outerOffset() const;
    void fitLabel(QLabel *label);
    void scheduleTabOrder();
    void updateTabOrder();
    QList<QWidget *> tabStops() const;

    std::map<QtBrowserItem *, TAutoPtr<WidgetInfo>> mWidgetInfos;
    // The width all labels are fitted to now, from this browser's left edge; -1 before the
    // first row.
    int mLabelWidth = -1;
    int mInsertedSinceTrim = 0;
    bool mTabOrderPending = false;
};

} // namespace TavoLib
