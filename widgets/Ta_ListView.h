#pragma once

// Ta_ListView is the library's list: spacing and icon sizes in the library's metrics (Device),
// a placeholder text drawn in the middle of the view while the model has no rows (or there is
// no model), and rows the user may reorder when the host switches it on: by dragging, and by
// Ctrl+Up / Ctrl+Down on the current row for keyboard users. Reordering goes through the
// model (moveRows for the keys, the model's drop handling for drags); a model that cannot
// move rows stays as it is.
#include "style/TavoLibGuiExport.h"

#include <QListView>

class TAVOLIBGUI_EXPORT Ta_ListView : public QListView
{
    Q_OBJECT
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(bool dragReorderEnabled READ isDragReorderEnabled WRITE setDragReorderEnabled)
public:
    explicit Ta_ListView(QWidget *parent = nullptr);
    ~Ta_ListView() override;

    QString placeholderText() const { return mPlaceholderText; }
    void setPlaceholderText(const QString &text);

    // Off by default.
    bool isDragReorderEnabled() const { return mDragReorder; }
    void setDragReorderEnabled(bool enabled);

    // Whether the placeholder is what the view shows now.
    bool isShowingPlaceholder() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString mPlaceholderText;
    bool mDragReorder = false;
};
