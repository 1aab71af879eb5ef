#pragma once

// The editor of a list property: one row per element, each row made of the editors a factory
// of its own builds for the element (one per column when the element is a group), with a
// "Delete" button; an add button below appends an element. Both respect the list's
// minimum and maximum. An undefinable list also shows a button that makes it undefined
// (rows hidden) or defined again. propertiesChanged() reports each change once; the list
// property itself has already been changed then.
//
// A long list (more elements than viewThreshold()) would make hundreds of live editors and
// Tab stops; it is shown instead as a view of one row per element and one column per cell,
// with the one editor of the cell being edited made on demand (F2, Return, typing or a
// double click open it; Return or leaving it stores, Escape drops the edit), and a
// "Delete" button below that removes the current element. Signals and buttons are the same
// in both forms.
#include "core/ListProperty.h"
#include "property/PropertyEditorFactory.h"
#include "style/TavoLibGuiExport.h"

#include <QPointer>
#include <QWidget>

class QToolButton;
class QTreeWidget;
class QVBoxLayout;

namespace TavoLib {

class ListPropertyWidgetDelegate;

class TAVOLIBGUI_EXPORT ListPropertyWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ListPropertyWidget(QWidget *parent = nullptr);
    ~ListPropertyWidget() override;

    void setStylesheetManager(TAutoPtr<StylesheetManager const> manager);
    void setBrushProvider(TAutoPtr<BrushProviderQt const> provider);
    void setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider);
    void setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProviderQt const> provider);
    void setFontProvider(TAutoPtr<FontProviderQt const> provider);
    void setTranslator(TAutoPtr<Translator const> translator);

    // Shows the elements of `list` and edits them in place; null shows nothing.
    void setValues(TAutoPtr<ListProperty> list);
    TAutoPtr<ListProperty> values() const { return mList; }
    // The number of element rows shown, as editors or in the view.
    int rowCount() const;
    // Lists of more elements than this are shown in a view with one editor at a time; 50 by
    // default. A change shows at the next setValues, add or delete.
    void setViewThreshold(int count) { mViewThreshold = count; }
    int viewThreshold() const { return mViewThreshold; }
    // The factory that builds the rows' editors, or the one editor of a long list's view.
    PropertyEditorFactory *factory() { return &mFactory; }

signals:
    void propertiesChanged();

public slots:
    // Toggles the list between undefined and defined.
    void undefinedButtonClicked();
    // Appends an element made from the list's pattern.
    void addNewEntry();
    // Removes the element whose "Delete" button sent this, or else the one holding focus.
    void removeCurrentEntry();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void rebuild();
    void updateButtons();
    void updateTabOrder();
    // Commits a cell that holds the focus; false when that commit took this widget away.
    bool commitPendingEdit();
    void elementChanged(TavoLib::Property::Ptr element);
    // An element was changed by one edit: the list is defined from then on; tells the host.
    void reportEdit();
    QWidget *makeRow(int index, TAutoPtr<Property> element);
    // The view of a long list, made the first time one is shown, and its rows.
    void makeView();
    void fillView();
    QString translate(const QString &text) const;

    PropertyEditorFactory mFactory;
    TAutoPtr<ListProperty> mList;
    QVBoxLayout *mRowsLayout = nullptr;
    QWidget *mRowsArea = nullptr;
    QToolButton *mAddButton = nullptr;
    QToolButton *mUndefinedButton = nullptr;
    QList<QPointer<QWidget>> mRows;
    QTreeWidget *mView = nullptr;
    ListPropertyWidgetDelegate *mDelegate = nullptr;
    // The view's button that removes its current element.
    QToolButton *mDeleteButton = nullptr;
    TAutoPtr<Translator const> mTranslator;
    int mViewThreshold = 50;
    bool mShowsView = false;
    // Rows were rebuilt while hidden: they take their place in the tab chain at the next show.
    bool mTabOrderPending = false;
};

} // namespace TavoLib
