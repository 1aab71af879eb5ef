#pragma once

// IconMenuDelegate paints and sizes the rows of an IconMenu: an optional check mark, an
// optional icon column, the text and a right-aligned shortcut, or a thin rule for a separator.
// All rows of a popup are as wide as the widest text and shortcut of the model, so that the
// popup is one column; those widths are measured once per model and font and measured again
// only when the model changes.
#include "menus/IconMenuConfiguration.h"
#include "style/TavoLibGuiExport.h"

#include <QFont>
#include <QItemDelegate>
#include <QPainterPath>
#include <QPointer>

class TAVOLIBGUI_EXPORT IconMenuDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    IconMenuDelegate(QWidget *parent, const IconMenuConfiguration &config);

    void setDrawIcons(bool draw) { mDrawIcons = draw; }
    bool drawIcons() const { return mDrawIcons; }
    void setDrawCheckStates(bool draw) { mDrawCheckStates = draw; }
    bool drawCheckStates() const { return mDrawCheckStates; }
    // Rows are painted only inside this path; an empty path paints everywhere.
    void setContentClip(const QPainterPath &clip) { mContentClip = clip; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QFont itemFont(const QFont &base) const;
    // The widest display text and shortcut over all rows that are not separators.
    void widestTexts(
        const QFont &font, const QAbstractItemModel *model, int *text, int *shortcut) const;
    void invalidateWidths() { mWidthsValid = false; }

    QWidget *mParentWidget;
    bool mDrawIcons = false;
    bool mDrawCheckStates = false;
    IconMenuConfiguration mConfig;
    QPainterPath mContentClip;

    // Measured widths, valid for one model and font until the model changes.
    mutable QPointer<const QAbstractItemModel> mMeasuredModel;
    mutable QFont mMeasuredFont;
    mutable bool mWidthsValid = false;
    mutable int mWidestText = 0;
    mutable int mWidestShortcut = 0;
    mutable QList<QMetaObject::Connection> mModelConnections;
};
