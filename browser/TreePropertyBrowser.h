#pragma once

// A compact browser for panels: a two-column tree of "Property" and "Value" in which every
// value is painted text and icon, and one editor at a time is made when a value cell is
// clicked (or Space, Return or Enter is pressed) and thrown away when editing ends. It shows
// the same managers and factories as the dialog browser, so a caller can switch between the
// two without touching its property code.
#include "propertybrowser/QtAbstractPropertyBrowser.h"
#include "style/TavoLibGuiExport.h"

#include <QColor>
#include <QMap>

namespace TavoLib {

class TreePropertyBrowserPrivate;

class TAVOLIBGUI_EXPORT TreePropertyBrowser : public QtAbstractPropertyBrowser
{
    Q_OBJECT
    Q_PROPERTY(int indentation READ indentation WRITE setIndentation)
    Q_PROPERTY(bool rootIsDecorated READ rootIsDecorated WRITE setRootIsDecorated)
    Q_PROPERTY(bool alternatingRowColors READ alternatingRowColors WRITE setAlternatingRowColors)
    Q_PROPERTY(bool headerVisible READ isHeaderVisible WRITE setHeaderVisible)
    Q_PROPERTY(ResizeMode resizeMode READ resizeMode WRITE setResizeMode)
    Q_PROPERTY(int splitterPosition READ splitterPosition WRITE setSplitterPosition)
    Q_PROPERTY(bool propertiesWithoutValueMarked READ propertiesWithoutValueMarked WRITE
            setPropertiesWithoutValueMarked)
public:
    enum ResizeMode { Interactive = 0, Stretch = 1, Fixed = 2, ResizeToContents = 3 };
    Q_ENUM(ResizeMode)

    explicit TreePropertyBrowser(QWidget *parent = nullptr);
    ~TreePropertyBrowser() override;

    int indentation() const;
    void setIndentation(int indentation);
    bool rootIsDecorated() const;
    void setRootIsDecorated(bool show);
    bool alternatingRowColors() const;
    void setAlternatingRowColors(bool enable);
    bool isHeaderVisible() const;
    void setHeaderVisible(bool visible);
    ResizeMode resizeMode() const;
    void setResizeMode(ResizeMode mode);
    // The width of the name column. kept on purpose: right after construction the name
    // column fits its contents while resizeMode() says Stretch, so a position set then is
    // undone at the next layout, and setResizeMode(Stretch) changes nothing; set another
    // mode first (it applies to both columns) to place the split by hand.
    int splitterPosition() const;
    void setSplitterPosition(int position);
    // Rows without a value (headings) painted in the palette's dark colour, with an expand
    // icon of their own when the root is not decorated.
    bool propertiesWithoutValueMarked() const;
    void setPropertiesWithoutValueMarked(bool mark);

    // The expansion of the top-level rows by name, also of rows no longer shown. A state of
    // another format, or bytes that are no state at all, change nothing; a state cut short
    // restores the entries read whole. Rows shown are only ever collapsed by a restore; a
    // top-level row inserted later comes collapsed when a row of its name was collapsed (by
    // the user or a restore), so rows rebuilt in place keep their expansion.
    QByteArray saveState();
    void restoreState(const QByteArray &state);

    // While blocked, the tree does not lay out its rows again after each insertion; end a
    // bulk insertion with forceUpdateGeometries().
    void blockUpdateGeometries(bool block);

    // A colour kept per row for the caller. It is not painted: rows take their colours from
    // the palette (calculatedBackgroundColor).
    QColor backgroundColor(QtBrowserItem *item) const;
    void setBackgroundColor(QtBrowserItem *item, const QColor &color);
    QColor calculatedBackgroundColor(QtBrowserItem *item) const;

    void setExpanded(QtBrowserItem *item, bool expanded);
    bool isExpanded(QtBrowserItem *item) const;
    void setItemVisible(QtBrowserItem *item, bool visible);
    bool isItemVisible(QtBrowserItem *item) const;
    // Keys: Space, Return or Enter open the current row's editor; arrows, Tab, Backtab and
    // the Page keys move the current row and the open editor with it; Escape closes the
    // editor and gives the focus back to the tree. Tab stays in the tree; Ctrl+Tab and
    // Ctrl+Shift+Tab leave it for the next or previous widget of the window.
    // Makes the row current and opens its editor.
    void editItem(QtBrowserItem *item);
    // Closes the open editor, if any, at the next turn of the event loop.
    void closeEditor() const;

public slots:
    void forceUpdateGeometries();

signals:
    void collapsed(QtBrowserItem *item);
    void expanded(QtBrowserItem *item);

protected:
    void itemInserted(QtBrowserItem *item, QtBrowserItem *afterItem) override;
    void itemRemoved(QtBrowserItem *item) override;
    void itemChanged(QtBrowserItem *item) override;
    void itemsAboutToBeRemoved(const QList<QtBrowserItem *> &items) override;

private:
    friend class TreePropertyBrowserPrivate;
    TreePropertyBrowserPrivate *mPrivate;
    QMap<QString, bool> mExpansionStates;
};

} // namespace TavoLib
