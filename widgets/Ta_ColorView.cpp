#include "widgets/Ta_ColorView.h"

#include <QColorDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionFocusRect>

Ta_ColorView::Ta_ColorView(QWidget *parent) : QFrame(parent)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::StrongFocus);
}

Ta_ColorView::~Ta_ColorView() = default;

void Ta_ColorView::setColor(const QColor &color)
{
    mColor = color;
    // The swatch alone says nothing to a screen reader or of the exact colour.
    const QString name = color.isValid() ? color.name() : QString();
    setToolTip(name);
    setAccessibleDescription(name);
    update();
}

QSize Ta_ColorView::sizeHint() const
{
    const int height = fontMetrics().height();
    const int frame = 2 * frameWidth();
    return QSize(4 * height + frame, height + frame);
}

void Ta_ColorView::editColor()
{
    QPointer<Ta_ColorView> self(this);
    const QColor chosen = chooseColor(mColor);
    // The dialog runs an event loop, in which the editor may have been taken down.
    if (!self || !chosen.isValid())
        return;
    // Compared as 8-bit values, the precision of the dialog: an unchanged choice of a colour
    // given with finer components is no change.
    if (mColor.isValid() && chosen.rgba() == mColor.rgba())
        return;
    setColor(chosen);
    emit colorChanged();
}

QColor Ta_ColorView::chooseColor(const QColor &initial)
{
    // On the heap behind a guard: should the view go while the dialog is open, the dialog
    // goes with it and must not be deleted a second time.
    QPointer<QColorDialog> dialog = new QColorDialog(this);
    if (initial.isValid() && initial.alpha() < 255)
        dialog->setOption(QColorDialog::ShowAlphaChannel);
    dialog->setCurrentColor(initial);
    dialog->ensurePolished();
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return QColor();
    const QColor chosen = accepted ? dialog->selectedColor() : QColor();
    delete dialog;
    return chosen;
}

void Ta_ColorView::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    // Whole device pixels at any ratio: the rectangle is in integer logical pixels.
    const QRect area = contentsRect();
    if (mColor.isValid())
        painter.fillRect(area, mColor);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = area.adjusted(2, 2, -2, -2);
        option.backgroundColor = mColor;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void Ta_ColorView::mousePressEvent(QMouseEvent *event)
{
    mPressed = event->button() == Qt::LeftButton;
    if (!mPressed)
        QFrame::mousePressEvent(event);
}

void Ta_ColorView::mouseReleaseEvent(QMouseEvent *event)
{
    // A press dragged off the view and let go there is no click.
    const bool clicked
        = mPressed && event->button() == Qt::LeftButton && rect().contains(event->pos());
    mPressed = false;
    if (clicked)
        editColor();
    else
        QFrame::mouseReleaseEvent(event);
}

void Ta_ColorView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()
        && event->modifiers() == Qt::NoModifier)
        editColor();
    else
        QFrame::keyPressEvent(event);
}
