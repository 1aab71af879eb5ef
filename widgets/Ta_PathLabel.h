#pragma once

// Ta_PathLabel shows a file path on one line in whatever width the layout gives it. A path too
// long for the width loses characters from the middle of its folders, never from the file
// name ("/home/…/projects/Brochure.tvd"); a file name that alone is too wide is elided in its
// own middle. The whole path is the tooltip and the accessible name. The shown text can be
// selected with mouse and keyboard (it takes the focus by Tab and click). Ctrl+C copies the
// selection, but the whole path when nothing is selected or the selection covers an elided
// part; the context menu's "Copy Path" always copies the whole path. The ellipsis is never
// copied.
// The path is shown as given; setPath() with native separators for display if wanted.
#include "style/TavoLibGuiExport.h"

#include <QLabel>

class TAVOLIBGUI_EXPORT Ta_PathLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath)
public:
    explicit Ta_PathLabel(QWidget *parent = nullptr);
    explicit Ta_PathLabel(const QString &path, QWidget *parent = nullptr);
    ~Ta_PathLabel() override;

    QString path() const { return mPath; }
    void setPath(const QString &path);

    // True when the width shows less than the whole path.
    bool isElided() const { return text() != mPath; }

    // The text of `path` that fits into `width` pixels of `metrics`, elided as described above.
    static QString elidedPath(const QString &path, const QFontMetrics &metrics, int width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    // Puts the whole path on the clipboard.
    void copyPath();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void updateText();
    // The selection's text, or the whole path when the selection covers an ellipsis.
    QString selectionToCopy() const;

    QString mPath;
};
