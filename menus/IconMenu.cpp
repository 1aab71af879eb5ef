#include "menus/IconMenu.h"

#include "menus/IconMenuDelegate.h"
#include "menus/IconMenuItemModel.h"
#include "menus/MyComboBox.h"
#include "style/Device.h"
#include "widgets/DesignShadow.h"
#include "widgets/X11Connection_p.h"

#include <QAction>
#include <QApplication>
#include <QBitmap>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QTimerEvent>
#include <QWheelEvent>
#include <algorithm>

using TavoLib::Device;

namespace {
// Plain pixels and milliseconds of the hover scrolling, the same on every screen.
constexpr int kMarkZone = 16;
constexpr int kScrollStep = 20;
constexpr int kScrollInterval = 50;

QRect availableArea(QWidget *anchor, const QPoint &position)
{
    QScreen *screen = nullptr;
    if (anchor)
        screen = QGuiApplication::screenAt(anchor->mapToGlobal(anchor->rect().center()));
    if (!screen)
        screen = QGuiApplication::screenAt(position);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 800, 600);
    return area.adjusted(0, int(Device::scale(10.0)), 0, int(Device::scale(-10.0)));
}

std::optional<bool> &translucencyOverride()
{
    static std::optional<bool> answer;
    return answer;
}
} // namespace

IconMenu::IconMenu(const IconMenuConfiguration &config, QComboBox *comboBox, QWidget *parent)
    : QListView(parent), mComboBox(comboBox)
{
    if (comboBox) {
        setModel(comboBox->view() ? comboBox->view()->model() : comboBox->model());
        setRootIndex(comboBox->rootModelIndex());
        setModelColumn(comboBox->modelColumn());
        setMinimumWidth(int(comboBox->width() - Device::scale(16.0)));
    }
    init(config, comboBox ? comboBox->mapToGlobal(QPoint(0, 0)) : QPoint(), comboBox);
    // The combo's row is current but not yet marked, so that the first Down marks it.
    if (comboBox && model() && selectionModel()) {
        const QModelIndex current
            = model()->index(comboBox->currentIndex(), modelColumn(), rootIndex());
        if (current.isValid())
            selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    }
}

IconMenu::IconMenu(const IconMenuConfiguration &config, QMenu *menu, const QPoint &position,
    QWidget *anchor, QWidget *parent)
    : QListView(parent), mMenu(menu)
{
    mModel = new IconMenuItemModel(menu, this);
    setModel(mModel);
    setMinimumWidth(10);
    init(config, position, anchor);
}

IconMenu::~IconMenu()
{
    stopScrollTimers();
    if (mAnchor)
        mAnchor->removeEventFilter(this);
}

int IconMenu::pointerHeight() const
{
    return mConfig.noPointer ? 0 : mConfig.pointerSize;
}

void IconMenu::init(const IconMenuConfiguration &config, const QPoint &position, QWidget *anchor)
{
    mMovedFromAnchor = false;
    mScrollUpTimer = 0;
    mScrollDownTimer = 0;
    mAnchor = anchor;
    mGlobalAnchor = position;
    mConfig = config;
    mKeyEventHandler = nullptr;

    setFocusPolicy(Qt::StrongFocus);
    // A hidden child must not take the focus from its window; setVisible() focuses it.
    if (isWindow())
        setFocus();
    setSelectionRectVisible(false);
    setMouseTracking(true);
    setAutoScroll(false);

    mDelegate = new IconMenuDelegate(this, mConfig);
    setItemDelegate(mDelegate);

    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_DeleteOnClose);
    setStyleSheet(QStringLiteral(
        "\t\t QListView {\t\t\tborder: none;\t\t\tbackground-color: none;\t\t }\t\t"));

    const double shadow = mConfig.shadowSize;
    int width = minimumWidth();
    int height = int(
        pointerHeight() + mConfig.frameWidth * 2 + shadow + std::max(shadow, mConfig.shadowOffset));

    QAbstractItemModel *items = model();
    const int rows = items ? items->rowCount(rootIndex()) : 0;
    bool haveIcons = false;
    bool haveChecks = false;
    for (int row = 0; row < rows && !(haveIcons && haveChecks); ++row) {
        const QModelIndex i = items->index(row, modelColumn(), rootIndex());
        if (!haveIcons && !qvariant_cast<QIcon>(i.data(Qt::DecorationRole)).isNull())
            haveIcons = true;
        if (!haveChecks && i.data(Qt::CheckStateRole).toBool())
            haveChecks = true;
    }
    mDelegate->setDrawIcons(haveIcons);
    mDelegate->setDrawCheckStates(haveChecks);

    int rowOffset = mComboBox ? mConfig.frameWidth : 0;
    const int currentRow = mComboBox ? mComboBox->currentIndex() : -1;
    // The view's own item options (Qt 6 renamed the call).
    QStyleOptionViewItem option;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    initViewItemOption(&option);
#else
    option = viewOptions();
#endif
    for (int row = 0; row < rows; ++row) {
        const QSize hint
            = mDelegate->sizeHint(option, items->index(row, modelColumn(), rootIndex()));
        width = std::max(width, hint.width());
        height += hint.height();
        if (row < currentRow)
            rowOffset += hint.height();
    }

    const QRect available = availableArea(anchor, position);
    const int contentWidth = std::min(width + mConfig.frameWidth * 2, available.width() - 1);
    setFlow(QListView::TopToBottom);

    int x = position.x() - (mConfig.noPointer ? 0 : contentWidth / 2);
    int y = position.y() - rowOffset;
    x = std::min(std::max(x, available.left()), available.right() - contentWidth);
    if (y < available.top()) {
        mHiddenTop = available.top() - y;
        y = available.top();
    } else {
        mHiddenTop = 0;
    }
    height -= mHiddenTop;

    resize(contentWidth + int(shadow * 2.0), height);
    mLocalAnchor = mGlobalAnchor - QPoint(x, y);
    // The shadow's share lies left of the body, so the body sits at the computed place.
    placeAt(QPoint(int(x - shadow + 1.0), y));

    mAvailable = available;
    const int bottom = y + this->height() - 1;
    mHiddenBottom = std::max(bottom - available.bottom(), 0);
    if (mHiddenBottom != 0)
        resize(contentWidth, this->height() - mHiddenBottom);

    setMaximumHeight(available.height());
    if (anchor)
        anchor->installEventFilter(this);
}

void IconMenu::makePopupWindow()
{
    // kept on purpose: Qt::Tool, not Qt::Popup: the anchor keeps the mouse for press-drag-release.
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    placeAt(mGlobalTopLeft);
}

void IconMenu::placeAt(const QPoint &globalTopLeft)
{
    mGlobalTopLeft = globalTopLeft;
    if (!isWindow() && parentWidget())
        move(parentWidget()->mapFromGlobal(globalTopLeft));
    else
        move(globalTopLeft);
}

bool IconMenu::translucentWindows()
{
    if (translucencyOverride())
        return *translucencyOverride();
    // X11 shows translucent pixels only through a compositing manager; without one they are
    // black.
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        return TavoLib::X11::compositingManagerRunning();
    return true;
}

void IconMenu::overrideTranslucentWindows(std::optional<bool> answer)
{
    translucencyOverride() = answer;
}

void IconMenu::setVisible(bool visible)
{
    if (visible && !isVisible()) {
        if (mMenu)
            emit mMenu->aboutToShow();
        placeAt(mGlobalTopLeft);
        // Where a window cannot be translucent, the shadow is left out and the window is cut
        // to the body's outline instead.
        mShaped = isWindow() && !translucentWindows();
        if (mShaped)
            setAttribute(Qt::WA_TranslucentBackground, false);
        else
            clearMask();
        updateMask();
    }
    QListView::setVisible(visible);
    if (visible) {
        setFocus(Qt::PopupFocusReason);
        if (isWindow())
            activateWindow();
    }
}

void IconMenu::stopScrollTimers()
{
    if (mScrollUpTimer)
        killTimer(mScrollUpTimer);
    if (mScrollDownTimer)
        killTimer(mScrollDownTimer);
    mScrollUpTimer = 0;
    mScrollDownTimer = 0;
}

int IconMenu::horizontalOffset() const
{
    return int(-mConfig.shadowSize);
}

int IconMenu::verticalOffset() const
{
    return int((-pointerHeight() - mConfig.frameWidth)
        - std::max(mConfig.shadowSize - mConfig.shadowOffset, 0.0) + mHiddenTop);
}

void IconMenu::scrollToTop(int amount)
{
    const int d = std::min(amount, mHiddenTop);
    const int grown = height() + mHiddenBottom + d;
    resize(width(), std::min(grown, maximumHeight()));
    mHiddenTop -= d;
    mHiddenBottom = std::max(grown - maximumHeight(), 0);
    update();
}

void IconMenu::scrollToBottom(int amount)
{
    const int d = std::min(amount, mHiddenBottom);
    const int grown = height() + mHiddenTop + d;
    resize(width(), std::min(grown, maximumHeight()));
    // Growing downwards is not possible any more: the window moves up, not above the area.
    const int limit = mAvailable.top();
    if (limit < mGlobalTopLeft.y())
        placeAt(QPoint(mGlobalTopLeft.x(), std::max(mGlobalTopLeft.y() - d, limit)));
    mHiddenBottom -= d;
    mHiddenTop = std::max(grown - maximumHeight(), 0);
    update();
}

void IconMenu::mousePressEvent(QMouseEvent *event)
{
    QAbstractItemView::mousePressEvent(event);
}

void IconMenu::mouseReleaseEvent(QMouseEvent *event)
{
    QListView::mouseReleaseEvent(event);
    acceptCurrent();
}

void IconMenu::mouseMoveEvent(QMouseEvent *event)
{
    stopScrollTimers();
    clearSelection();
    const QPoint pos = event->pos();
    QModelIndex index;
    if (rect().contains(pos)) {
        if (mHiddenTop != 0 && pos.y() <= rect().top() + kMarkZone) {
            scrollToTop(kScrollStep);
            mScrollUpTimer = startTimer(kScrollInterval);
            event->accept();
            return;
        }
        const int edge = int(rect().bottom() - mConfig.shadowSize - mConfig.shadowOffset);
        if (mHiddenBottom != 0 && pos.y() >= edge - kMarkZone && pos.y() <= edge) {
            scrollToBottom(kScrollStep);
            mScrollDownTimer = startTimer(kScrollInterval);
            event->accept();
            return;
        }
        index = indexAt(pos);
    }
    event->setAccepted(index.isValid());
    if (index.isValid() && (index.flags() & Qt::ItemIsEnabled))
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::Select);
    else
        selectionModel()->clearCurrentIndex();
}

void IconMenu::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == mScrollUpTimer && mScrollUpTimer) {
        if (mHiddenTop != 0)
            scrollToTop(kScrollStep);
        if (mHiddenTop == 0) {
            killTimer(mScrollUpTimer);
            mScrollUpTimer = 0;
        }
        return;
    }
    if (event->timerId() == mScrollDownTimer && mScrollDownTimer) {
        if (mHiddenBottom != 0)
            scrollToBottom(kScrollStep);
        if (mHiddenBottom == 0) {
            killTimer(mScrollDownTimer);
            mScrollDownTimer = 0;
        }
        return;
    }
    QListView::timerEvent(event);
}

void IconMenu::wheelEvent(QWheelEvent *event)
{
    const int delta = event->angleDelta().y();
    const int steps = std::abs(delta / 120);
    if (delta < 0) {
        if (mHiddenBottom != 0)
            scrollToBottom(steps * kScrollStep);
    } else if (mHiddenTop != 0) {
        scrollToTop(steps * kScrollStep);
    }
    event->accept();
    QMouseEvent move(
        QEvent::MouseMove, event->position(), Qt::NoButton, event->buttons(), event->modifiers());
    mouseMoveEvent(&move);
}

void IconMenu::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        event->accept();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        acceptCurrent();
        event->accept();
        return;
    case Qt::Key_Down:
        if (currentIndex().isValid() && selectedIndexes().isEmpty()) {
            selectionModel()->setCurrentIndex(
                currentIndex(), QItemSelectionModel::Select | QItemSelectionModel::Current);
            event->accept();
            return;
        }
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (mKeyEventHandler) {
            QCoreApplication::sendEvent(mKeyEventHandler, event);
            if (event->isAccepted())
                return;
        }
        break;
    default:
        break;
    }
    QAbstractItemView::keyPressEvent(event);

    // kept on purpose: keys scroll the body to the current row, clear of the scroll marks.
    const QRect row = visualRect(currentIndex());
    if (row.isValid()) {
        const int top
            = int(pointerHeight() + std::max(mConfig.shadowSize - mConfig.shadowOffset, 0.0)
                  + mConfig.frameWidth)
            + (mHiddenTop ? kMarkZone : 0);
        const int bottom
            = int(height() - mConfig.shadowSize - mConfig.shadowOffset - mConfig.frameWidth)
            - (mHiddenBottom ? kMarkZone : 0);
        if (row.top() < top && mHiddenTop)
            scrollToTop(top - row.top());
        else if (row.bottom() > bottom && mHiddenBottom)
            scrollToBottom(row.bottom() - bottom);
    }
}

void IconMenu::focusOutEvent(QFocusEvent *event)
{
    QListView::focusOutEvent(event);
    // Focus moves while the popup is set up are not a user leaving it.
    if (!isVisible())
        return;
    close();
    if (mAnchor)
        mAnchor->update();
}

void IconMenu::hideEvent(QHideEvent *event)
{
    QListView::hideEvent(event);
    // Hidden by its host, or with its window: a popup is not shown again, so close it, which
    // releases the anchor and deletes it. Within close() this does nothing more.
    close();
    if (mAnchor)
        mAnchor->update();
}

void IconMenu::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    updateMask();
}

void IconMenu::updateMask()
{
    if (!mShaped)
        return;
    QBitmap mask(size());
    mask.fill(Qt::color0);
    QPainter painter(&mask);
    painter.setPen(QPen(Qt::color1, mConfig.frameWidth + 0.5));
    painter.setBrush(Qt::color1);
    painter.drawPath(bodyPath());
    painter.end();
    setMask(mask);
}

void IconMenu::acceptCurrent()
{
    const QModelIndex index = currentIndex();
    const int row = index.row();
    QPointer<QAction> action = (mModel && index.isValid()) ? mModel->action(index) : nullptr;
    QPointer<QComboBox> combo = mComboBox;
    close();
    if (!index.isValid())
        return;
    if (mModel) {
        if (action && action->isEnabled())
            action->activate(QAction::Trigger);
    } else if (combo) {
        combo->setCurrentIndex(row);
        if (auto *mine = qobject_cast<MyComboBox *>(combo.data()))
            mine->emitActivated(row);
    }
}

QPainterPath IconMenu::bodyPath() const
{
    const double shadow = mConfig.shadowSize;
    const double top = std::max(shadow - mConfig.shadowOffset, 0.0);
    const QRectF bodyRect = QRectF(rect()).adjusted(
        shadow, pointerHeight() + top, -shadow, -shadow - mConfig.shadowOffset);
    QPainterPath body;
    body.addRoundedRect(bodyRect, mConfig.cornerRadius, mConfig.cornerRadius, Qt::AbsoluteSize);
    if (!mConfig.noPointer) {
        const int ax = int(mLocalAnchor.x() - rect().left() + shadow);
        const int size = mConfig.pointerSize;
        QPainterPath triangle;
        triangle.moveTo(ax - size, size + 1 + top);
        triangle.lineTo(ax, top);
        triangle.lineTo(ax + size, size + 1 + top);
        triangle.closeSubpath();
        body = body.united(triangle);
    }
    return body;
}

void IconMenu::paintEvent(QPaintEvent *event)
{
    const double shadow = mConfig.shadowSize;
    const double offset = mConfig.shadowOffset;
    const double top = std::max(shadow - offset, 0.0);
    const QRectF bodyRect
        = QRectF(rect()).adjusted(shadow, pointerHeight() + top, -shadow, -shadow - offset);
    const QPainterPath body = bodyPath();

    {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing, true);
        if (mShaped) {
            // No translucency: the body's soft edge is blended with the host window by hand.
            const QWidget *host = mAnchor ? mAnchor->window() : this;
            painter.fillRect(rect(), host->palette().color(QPalette::Window));
        }
        painter.setPen(QPen(mConfig.frameColor, mConfig.frameWidth + 0.5, Qt::SolidLine,
            Qt::SquareCap, Qt::BevelJoin));
        painter.setBrush(mConfig.backgroundColor);
        painter.drawPath(body);

        QPainterPath whole;
        whole.addRect(QRectF(rect()).adjusted(-0.5, -0.5, 0.5, 0.5));
        mContentClip = whole.subtracted(body);

        // The shadow is the blurred body, moved down, seen only outside the body. A shaped
        // window has none.
        const DesignShadow designShadow(DesignShadowSettings(shadow, mConfig.shadowStrength));
        const double extent = designShadow.GetSize();
        const QRectF bounds = body.boundingRect();
        QImage image;
        if (!mShaped)
            image = QImage(int(extent + bounds.width()), int(extent + bounds.height()),
                QImage::Format_ARGB32_Premultiplied);
        if (!image.isNull()) {
            image.fill(QColor(255, 255, 255, 0));
            {
                QPainter mask(&image);
                mask.setRenderHint(QPainter::Antialiasing, true);
                mask.setPen(Qt::NoPen);
                mask.setBrush(Qt::black);
                mask.translate(extent / 2.0 - bounds.left(), extent / 2.0 - bounds.top());
                mask.drawPath(body);
            }
            designShadow.ConvertToShadow(image, QColor(0, 0, 0, 255));
            painter.save();
            painter.setClipPath(mContentClip, Qt::ReplaceClip);
            painter.setCompositionMode(QPainter::CompositionMode_Multiply);
            painter.drawImage(QPointF(int(bounds.left() - extent / 2.0),
                                  int(bounds.top() - extent / 2.0 + offset)),
                image);
            painter.restore();
        }
    }

    QRectF rowsArea = body.boundingRect();
    if (mHiddenTop != 0)
        rowsArea.setTop(rowsArea.top() + Device::scale(16.0));
    if (mHiddenBottom != 0)
        rowsArea.setBottom(rowsArea.bottom() - Device::scale(16.0));
    QPainterPath rowsClip;
    rowsClip.addRect(rowsArea);
    mDelegate->setContentClip(rowsClip);

    QListView::paintEvent(event);

    QPainter painter(viewport());
    const int centreX = int(bodyRect.center().x());
    if (mHiddenTop != 0) {
        const QImage less(QStringLiteral(":/lessoptions_icon.png"));
        if (!less.isNull())
            painter.drawImage(QPoint(centreX - less.width() / 2, int(bodyRect.top())), less);
    }
    if (mHiddenBottom != 0) {
        const QImage more(QStringLiteral(":/moreoptions_icon.png"));
        if (!more.isNull())
            painter.drawImage(
                QPoint(centreX - more.width() / 2, int(bodyRect.bottom()) - more.height()), more);
    }
}

bool IconMenu::eventFilter(QObject *watched, QEvent *event)
{
    if ((event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease)
        && mAnchor && watched == mAnchor.data()) {
        auto *original = static_cast<QMouseEvent *>(event);
        const QPoint global = mAnchor->mapToGlobal(original->pos());
        QMouseEvent mapped(original->type(), mapFromGlobal(global), global, original->button(),
            original->buttons(), original->modifiers());
        if (event->type() == QEvent::MouseMove) {
            mouseMoveEvent(&mapped);
            mMovedFromAnchor = true;
            if (!mapped.isAccepted())
                return false;
        } else if (mMovedFromAnchor) {
            mouseReleaseEvent(&mapped);
        }
        return true;
    }
    return QAbstractScrollArea::eventFilter(watched, event);
}
