#pragma once

// The delegate of ListPropertyWidget's view of a long list: paints each cell's value as text
// (a brush by its name and preview, a colour as a swatch) and makes the one editor of the
// cell being edited, on demand, through the list's own PropertyEditorFactory. The editor
// works on a copy of the cell's property: Return or leaving the editor writes the copy's
// value back into the element and reports it once, Escape drops it. Internal to the library.
#include "core/Property.h"
#include "core/Translator.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

class QAbstractItemView;

namespace TavoLib {

class PropertyEditorFactory;

class ListPropertyWidgetDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    ListPropertyWidgetDelegate(PropertyEditorFactory *factory, QAbstractItemView *view);

    void setTranslator(TAutoPtr<Translator const> translator) { mTranslator = translator; }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    // The editor starts from a copy of the cell and writes back in finishEdit(), not through
    // the model.
    void setEditorData(QWidget *, const QModelIndex &) const override { }
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override { }
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

    QWidget *openEditor() const { return mEditor; }

    // Where the focus goes when an edit ends.
    enum FocusAfter { FocusStays, FocusToView, FocusAfterView, FocusBeforeView };
    // Ends the open edit. With `store` the field first commits what was typed, then the value
    // goes into the element, and elementEdited() follows if that changed it, as the very last
    // step (its listener may rebuild or delete everything).
    void finishEdit(bool store, FocusAfter focus);
    // Forgets the open edit without a word: the rows are going.
    void dropEdit();

signals:
    void elementEdited();

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    void focusMoved(QWidget *old, QWidget *now);
    // Whether `widget` is the open editor or lies inside it, popups included.
    bool holds(const QWidget *widget) const;

    PropertyEditorFactory *mFactory;
    QAbstractItemView *mView;
    TAutoPtr<Translator const> mTranslator;
    // The height of a row, that of a one-line editor, so an opened editor fits its row.
    int mRowHeight = 0;
    mutable QPointer<QWidget> mEditor;
    // The cell's property, and the copy the editor works on.
    mutable TAutoPtr<Property> mCell;
    mutable TAutoPtr<Property> mScratch;
    mutable QPersistentModelIndex mIndex;
    // No key has reached the open editor yet.
    mutable bool mFresh = false;
    bool mFinishing = false;
};

} // namespace TavoLib
