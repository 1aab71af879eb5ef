#pragma once

// Ta_ClickFrame is a frame that acts like a button without looking like one: swatches,
// previews and thumbnails that a click should open. A left press released inside the frame,
// or Space, Return or Enter while it has the focus, emits clicked(); a double click emits
// doubleClicked() as well. It takes the focus by Tab and by click and shows it with a thin
// line in the highlight colour, since the application's style draws no focus rectangles.
// Give it an accessible name: it has no text of its own.
#include "style/TavoLibGuiExport.h"

#include <QFrame>

class TAVOLIBGUI_EXPORT Ta_ClickFrame : public QFrame
{
    Q_OBJECT
public:
    explicit Ta_ClickFrame(QWidget *parent = nullptr);
    ~Ta_ClickFrame() override;

    // True between a press and its release inside the frame (drawn sunken meanwhile).
    bool isDown() const { return mDown; }

public slots:
    // Emits clicked() as a click does.
    void click();

signals:
    void clicked();
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setDown(bool down);

    bool mDown = false;
    QFrame::Shadow mRestingShadow = QFrame::Plain;
};
