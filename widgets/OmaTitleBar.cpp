#include "widgets/OmaTitleBar.h"
#include "core/QtCompat_p.h"
#include "style/Device.h"
#include "widgets/WindowButton.h"
#include "widgets/WindowPosition_p.h"

#include <QApplication>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLayout>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

using TavoLib::Device;

OmaTitleBar::OmaTitleBar(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    mCollapse = new WindowButton(WindowButton::CollapseButton, this);
    mFloat = new WindowButton(WindowButton::FloatButton, this);
    mClose = new WindowButton(WindowButton::CloseButton, this);
    // Tab order as on the screen: the bar, then its buttons from left to right.
    setTabOrder(this, mCollapse);
    setTabOrder(mCollapse, mFloat);
    setTabOrder(mFloat, mClose);
    connect(mCollapse, &QAbstractButton::clicked, this, &OmaTitleBar::setCollapsed);
    connect(mFloat, &QAbstractButton::clicked, this, &OmaTitleBar::floatButtonClicked);
    connect(mClose, &QAbstractButton::clicked, this, &OmaTitleBar::closeButtonClicked);
    setAccessibleName(tr("Title bar"));
    layoutButtons();
}

OmaTitleBar::~OmaTitleBar()
{
    if (mWatched)
        mWatched->removeEventFilter(this);
}

QString OmaTitleBar::title() const
{
    if (!mTitle.isEmpty())
        return mTitle;
    return target() != this ? target()->windowTitle() : QString();
}

void OmaTitleBar::setTitle(const QString &title)
{
    mTitle = title;
    setAccessibleDescription(this->title());
    update();
}

QIcon OmaTitleBar::icon() const
{
    if (!mIcon.isNull())
        return mIcon;
    return target() != this ? target()->windowIcon() : QIcon();
}

void OmaTitleBar::setIcon(const QIcon &icon)
{
    mIcon = icon;
    update();
}

void OmaTitleBar::setButtons(Buttons buttons)
{
    mButtons = buttons;
    layoutButtons();
}

WindowButton *OmaTitleBar::button(Button button) const
{
    switch (button) {
    case CloseButton:
        return mClose;
    case CollapseButton:
        return mCollapse;
    case FloatButton:
        return mFloat;
    default:
        return nullptr;
    }
}

void OmaTitleBar::setContentWidget(QWidget *content)
{
    if (mCollapsed && mContent)
        mContent->show();
    mContent = content;
    if (mCollapsed && content)
        content->hide();
}

int OmaTitleBar::barHeight() const
{
    return qMax(fontMetrics().height() + int(Device::scale(6.0)), int(Device::scale(22.0)));
}

QSize OmaTitleBar::sizeHint() const
{
    const int buttons = (mClose->isVisibleTo(this) + mCollapse->isVisibleTo(this)
                            + mFloat->isVisibleTo(this))
        * (mClose->sizeHint().width() + int(Device::scale(2.0)));
    return QSize(fontMetrics().horizontalAdvance(title()) + int(Device::scale(32.0)) + buttons,
        barHeight());
}

QSize OmaTitleBar::minimumSizeHint() const
{
    return QSize(int(Device::scale(60.0)), barHeight());
}

void OmaTitleBar::layoutButtons()
{
    mClose->setVisible(mButtons & CloseButton);
    mCollapse->setVisible(mButtons & CollapseButton);
    mFloat->setVisible(mButtons & FloatButton);
    const int gap = int(Device::scale(2.0));
    int right = width() - int(Device::scale(4.0));
    for (WindowButton *b : { mClose, mFloat, mCollapse }) {
        if (!b->isVisibleTo(this))
            continue;
        const QSize size = b->sizeHint();
        right -= size.width();
        b->setGeometry(right, (height() - size.height()) / 2, size.width(), size.height());
        right -= gap;
    }
    updateGeometry();
    update();
}

QRect OmaTitleBar::titleRect() const
{
    int right = width();
    for (WindowButton *b : { mClose, mFloat, mCollapse })
        if (b->isVisibleTo(this))
            right = qMin(right, b->x());
    const int left = int(Device::scale(6.0));
    return QRect(left, 0, qMax(0, right - left - int(Device::scale(4.0))), height());
}

void OmaTitleBar::setCollapsed(bool collapsed)
{
    if (collapsed == mCollapsed) {
        mCollapse->setChecked(collapsed);
        return;
    }
    mCollapsed = collapsed;
    mCollapse->setChecked(collapsed);
    QWidget *win = target();
    if (mContent && win != this) {
        // A resize also moves the window to where Qt believes it is.
        checkWindowPosition(win);
        if (collapsed) {
            mExpandedHeight = win->height();
            mContent->hide();
            // Let the layout learn the smaller minimum before shrinking to it.
            if (win->layout())
                win->layout()->activate();
            win->resize(win->width(), win->minimumSizeHint().height());
        } else {
            mContent->show();
            if (win->layout())
                win->layout()->activate();
            win->resize(win->width(), qMax(mExpandedHeight, win->minimumSizeHint().height()));
        }
    }
    emit collapsedChanged(collapsed);
}

void OmaTitleBar::floatButtonClicked()
{
    QPointer<OmaTitleBar> self(this);
    if (auto *dock = qobject_cast<QDockWidget *>(parentWidget()))
        dock->setFloating(!dock->isFloating());
    if (self)
        emit floatClicked();
}

void OmaTitleBar::closeButtonClicked()
{
    if (target() != this)
        target()->close();
}

QWidget *OmaTitleBar::movableWindow() const
{
    if (auto *dock = qobject_cast<QDockWidget *>(parentWidget()))
        if (!dock->isFloating())
            return nullptr;
    QWidget *win = target();
    return win != this ? win : nullptr;
}

bool OmaTitleBar::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
    case QEvent::Show:
        // Follow the title and icon of the window the bar now belongs to.
        watchTarget();
        break;
    case QEvent::Resize:
        layoutButtons();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

QWidget *OmaTitleBar::target() const
{
    return mTarget ? mTarget.data() : window();
}

void OmaTitleBar::setTarget(QWidget *target)
{
    mTarget = target;
    watchTarget();
}

void OmaTitleBar::watchTarget()
{
    QWidget *now = target() != this ? target() : nullptr;
    if (mWatched == now)
        return;
    if (mWatched)
        mWatched->removeEventFilter(this);
    mWatched = now;
    mPositionChecked = false;
    if (now)
        now->installEventFilter(this);
    update();
}

void OmaTitleBar::checkWindowPosition(QWidget *win)
{
    // Once each time the window shows: its window manager may have placed it without Qt
    // learning where, and a move or resize from a wrong position would make it jump. Later
    // positions are the ones the bar asked for.
    if (mPositionChecked || !win->isWindow())
        return;
    mPositionChecked = true;
    TavoLib::syncFramePosition(win);
}

bool OmaTitleBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == mWatched && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        mPositionChecked = false;
    if (watched == mWatched
        && (event->type() == QEvent::WindowTitleChange || event->type() == QEvent::WindowIconChange)) {
        update();
        updateGeometry();
    }
    return QWidget::eventFilter(watched, event);
}

void OmaTitleBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor base = palette().color(QPalette::Window);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, base.lighter(106));
    gradient.setColorAt(1, base.darker(112));
    painter.fillRect(rect(), gradient);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() - 1, width(), height() - 1);

    QRect text = titleRect();
    const QIcon icon = this->icon();
    if (!icon.isNull()) {
        const QSize size = Device::size(Device::SizeType1);
        const QRect target(text.left(), (height() - size.height()) / 2, size.width(), size.height());
        icon.paint(&painter, target);
        text.setLeft(target.right() + 1 + int(Device::scale(5.0)));
    }
    QFont font = this->font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    const QString shown = QFontMetrics(font).elidedText(title(), Qt::ElideRight, text.width());
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, shown);
    if (hasFocus()) {
        // The style draws no focus rectangles: a line in the highlight colour under the title.
        painter.setPen(QPen(palette().color(QPalette::Highlight), Device::scale(2.0)));
        painter.drawLine(text.left(), height() - 2, text.left() + QFontMetrics(font).horizontalAdvance(shown),
            height() - 2);
    }
}

void OmaTitleBar::mousePressEvent(QMouseEvent *event)
{
    QWidget *win = movableWindow();
    if (event->button() != Qt::LeftButton || !win) {
        // A docked dock widget drags itself out from a press on its title bar.
        event->ignore();
        return;
    }
    // The drag starts when the pointer has moved far enough: a click or a double click on the
    // bar is no drag.
    checkWindowPosition(win);
    mDrag = DragPending;
    mPressPos = TavoLib::QtCompat::globalPos(event);
    event->accept();
}

void OmaTitleBar::mouseMoveEvent(QMouseEvent *event)
{
    QWidget *win = movableWindow();
    if (mDrag == NoDrag || !win || !(event->buttons() & Qt::LeftButton)) {
        event->ignore();
        return;
    }
    event->accept();
    if (mDrag == DragPending) {
        if ((TavoLib::QtCompat::globalPos(event) - mPressPos).manhattanLength() < QApplication::startDragDistance())
            return;
        mDrag = Dragging;
        mDragOffset = mPressPos - win->frameGeometry().topLeft();
    }
    win->move(TavoLib::QtCompat::globalPos(event) - mDragOffset);
}

void OmaTitleBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (mDrag == NoDrag) {
        event->ignore();
        return;
    }
    mDrag = NoDrag;
    event->accept();
}

void OmaTitleBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !(mButtons & CollapseButton)) {
        event->ignore();
        return;
    }
    mDrag = NoDrag;
    event->accept();
    setCollapsed(!mCollapsed);
}

void OmaTitleBar::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if ((key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter)
        && !(event->modifiers() & ~Qt::KeypadModifier) && (mButtons & CollapseButton)) {
        event->accept();
        setCollapsed(!mCollapsed);
        return;
    }
    if ((event->modifiers() & Qt::ControlModifier)
        && (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down)) {
        if (QWidget *win = movableWindow()) {
            const int step = int(Device::scale(10.0));
            const QPoint by(key == Qt::Key_Left ? -step : key == Qt::Key_Right ? step : 0,
                key == Qt::Key_Up ? -step : key == Qt::Key_Down ? step : 0);
            checkWindowPosition(win);
            win->move(win->pos() + by);
            event->accept();
            return;
        }
    }
    QWidget::keyPressEvent(event);
}
