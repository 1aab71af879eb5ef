#include "widgets/Ta_ListView.h"

#include "style/Device.h"

#include <QKeyEvent>
#include <QPainter>

using TavoLib::Device;

Ta_ListView::Ta_ListView(QWidget *parent) : QListView(parent)
{
    setSpacing(qRound(Device::scale(1)));
    setIconSize(Device::scaleSize(QSize(16, 16)));
    setUniformItemSizes(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
}

Ta_ListView::~Ta_ListView() = default;

void Ta_ListView::setPlaceholderText(const QString &text)
{
    if (text == mPlaceholderText)
        return;
    mPlaceholderText = text;
    viewport()->update();
}

void Ta_ListView::setDragReorderEnabled(bool enabled)
{
    mDragReorder = enabled;
    setDragEnabled(enabled);
    setAcceptDrops(enabled);
    setDropIndicatorShown(enabled);
    setDragDropMode(enabled ? QAbstractItemView::InternalMove : QAbstractItemView::NoDragDrop);
    setDefaultDropAction(enabled ? Qt::MoveAction : Qt::IgnoreAction);
    setMovement(enabled ? QListView::Snap : QListView::Static);
}

bool Ta_ListView::isShowingPlaceholder() const
{
    return !mPlaceholderText.isEmpty() && (!model() || model()->rowCount(rootIndex()) == 0);
}

void Ta_ListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (!isShowingPlaceholder())
        return;
    QPainter painter(viewport());
    QColor colour = palette().color(QPalette::Text);
    colour.setAlphaF(0.5);
    painter.setPen(colour);
    const int margin = qRound(Device::scale(8));
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
        Qt::AlignCenter | Qt::TextWordWrap, mPlaceholderText);
}

void Ta_ListView::keyPressEvent(QKeyEvent *event)
{
    const bool up = event->key() == Qt::Key_Up;
    if (mDragReorder && model() && (up || event->key() == Qt::Key_Down)
        && (event->modifiers() & Qt::ControlModifier) && currentIndex().isValid()) {
        const QModelIndex current = currentIndex();
        const int row = current.row();
        const int target = up ? row - 1 : row + 2; // moveRow's destination is before that row
        if ((up && row > 0) || (!up && row + 1 < model()->rowCount(rootIndex()))) {
            const int column = current.column();
            if (model()->moveRow(rootIndex(), row, rootIndex(), target))
                setCurrentIndex(model()->index(up ? row - 1 : row + 1, column, rootIndex()));
        }
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}
