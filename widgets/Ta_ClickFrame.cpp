#include "widgets/Ta_ClickFrame.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

Ta_ClickFrame::Ta_ClickFrame(QWidget *parent) : QFrame(parent)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setFocusPolicy(Qt::StrongFocus);
}

Ta_ClickFrame::~Ta_ClickFrame() = default;

void Ta_ClickFrame::click()
{
    emit clicked();
}

void Ta_ClickFrame::setDown(bool down)
{
    if (down == mDown)
        return;
    if (down) {
        mRestingShadow = frameShadow();
        setFrameShadow(QFrame::Sunken);
    } else {
        setFrameShadow(mRestingShadow);
    }
    mDown = down;
    update();
}

void Ta_ClickFrame::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    QPen pen(palette().color(QPalette::Highlight));
    pen.setWidth(1);
    painter.setPen(pen);
    painter.drawRect(contentsRect().adjusted(1, 1, -2, -2));
}

void Ta_ClickFrame::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QFrame::mousePressEvent(event);
        return;
    }
    setDown(true);
    event->accept();
}

void Ta_ClickFrame::mouseMoveEvent(QMouseEvent *event)
{
    // Like a button: leaving the frame with the button held raises it again, coming back
    // lowers it, and only a release inside counts.
    if (event->buttons() & Qt::LeftButton)
        setDown(rect().contains(event->pos()));
    QFrame::mouseMoveEvent(event);
}

void Ta_ClickFrame::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QFrame::mouseReleaseEvent(event);
        return;
    }
    const bool inside = mDown && rect().contains(event->pos());
    setDown(false);
    event->accept();
    // Last: a host's handler may delete the frame.
    if (inside)
        emit clicked();
}

void Ta_ClickFrame::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QFrame::mouseDoubleClickEvent(event);
        return;
    }
    // The second press of a double click: it is a click of its own when released inside, and
    // the double click is reported now.
    setDown(true);
    event->accept();
    emit doubleClicked();
}

void Ta_ClickFrame::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers() & ~Qt::KeypadModifier) {
            QFrame::keyPressEvent(event);
            return;
        }
        event->accept();
        if (!event->isAutoRepeat())
            emit clicked();
        return;
    default:
        QFrame::keyPressEvent(event);
    }
}
