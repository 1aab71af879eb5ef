#pragma once

// Ta_ColorView shows one colour inside a frame and lets the user pick another: a click or
// the space bar opens the colour dialog on it, and a new colour the user accepts is taken
// over and announced with colorChanged(). A host offers a chooser of its own by overriding
// chooseColor().
#include "style/TavoLibGuiExport.h"

#include <QColor>
#include <QFrame>

class TAVOLIBGUI_EXPORT Ta_ColorView : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor)
public:
    explicit Ta_ColorView(QWidget *parent = nullptr);
    ~Ta_ColorView() override;

    QColor color() const { return mColor; }
    // Shows `color`. Sends no signal: colorChanged() stands for the user's choices.
    void setColor(const QColor &color);

    QSize sizeHint() const override;

public slots:
    // Asks the user for a colour as a click does; takes and announces a different one.
    void editColor();

signals:
    void colorChanged();

protected:
    // Lets the user choose, starting from `initial`; an invalid colour when cancelled.
    virtual QColor chooseColor(const QColor &initial);

    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QColor mColor;
    bool mPressed = false;
};
