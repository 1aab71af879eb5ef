#include "widgets/Ta_ElementsView.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QKeyEvent>
#include <QMimeData>
#include <QPersistentModelIndex>

#include <algorithm>

namespace {

constexpr quint32 kMagic = 0x54614950; // "TaIP"
constexpr quint16 kVersion = 1;

} // namespace

QString Ta_ElementsView::mimeType()
{
    return QStringLiteral("ipobject/TavoIP");
}

Ta_ElementsView::Ta_ElementsView(QWidget *parent) : QTreeView(parent)
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setUniformRowHeights(true);
    setAccessibleName(tr("Page elements")); // a host names it more precisely
}

Ta_ElementsView::~Ta_ElementsView() = default;

QByteArray Ta_ElementsView::encodeElements(const QList<QByteArray> &elements)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_0);
    stream << kMagic << kVersion << qint32(elements.size());
    for (const QByteArray &element : elements)
        stream << element;
    return data;
}

bool Ta_ElementsView::decodeElements(const QByteArray &data, QList<QByteArray> *elements)
{
    if (!elements)
        return false;
    elements->clear();
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_5_0);
    quint32 magic = 0;
    quint16 version = 0;
    qint32 count = -1;
    stream >> magic >> version >> count;
    if (stream.status() != QDataStream::Ok || magic != kMagic || version != kVersion || count < 1
        || count > kMaxElements)
        return false;
    QList<QByteArray> read;
    for (int i = 0; i < count; ++i) {
        // QDataStream refuses a length beyond what the data holds, so a forged length reads
        // as a failure, not as a huge allocation.
        QByteArray element;
        stream >> element;
        if (stream.status() != QDataStream::Ok)
            return false;
        read.append(element);
    }
    if (!stream.atEnd())
        return false;
    *elements = read;
    return true;
}

bool Ta_ElementsView::canPaste() const
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    QList<QByteArray> elements;
    return model() && data && data->hasFormat(mimeType())
        && decodeElements(data->data(mimeType()), &elements);
}

QModelIndexList Ta_ElementsView::selectedElements() const
{
    QModelIndexList rows;
    if (!model() || !selectionModel())
        return rows;
    rows = selectionModel()->selectedRows(0);
    if (rows.isEmpty() && currentIndex().isValid())
        rows << currentIndex().sibling(currentIndex().row(), 0);
    // Screen order, so a paste gives the elements back in the order they were shown.
    std::sort(rows.begin(), rows.end(), [this](const QModelIndex &a, const QModelIndex &b) {
        return visualRect(a).top() < visualRect(b).top() || (visualRect(a).top() == visualRect(b).top() && a < b);
    });
    return rows;
}

void Ta_ElementsView::copy()
{
    QList<QByteArray> elements;
    for (const QModelIndex &index : selectedElements()) {
        const QVariant bytes = index.data(ElementDataRole);
        if (bytes.isValid())
            elements.append(bytes.toByteArray());
    }
    if (elements.isEmpty())
        return;
    auto *data = new QMimeData;
    data->setData(mimeType(), encodeElements(elements));
    QApplication::clipboard()->setMimeData(data);
}

void Ta_ElementsView::cut()
{
    const QModelIndexList rows = selectedElements();
    if (rows.isEmpty())
        return;
    copy();
    // Removes from the last row up, through persistent indexes: each removal moves the rows
    // after it.
    QList<QPersistentModelIndex> persistent;
    for (const QModelIndex &index : rows)
        persistent.append(index);
    std::sort(persistent.begin(), persistent.end(),
        [](const QPersistentModelIndex &a, const QPersistentModelIndex &b) { return a.row() > b.row(); });
    for (const QPersistentModelIndex &index : persistent)
        if (index.isValid() && model())
            model()->removeRow(index.row(), index.parent());
}

bool Ta_ElementsView::paste()
{
    QAbstractItemModel *target = model();
    const QMimeData *data = QApplication::clipboard()->mimeData();
    if (!target || !data || !data->hasFormat(mimeType()))
        return false;
    QList<QByteArray> elements;
    if (!decodeElements(data->data(mimeType()), &elements))
        return false;

    const QModelIndex current = currentIndex();
    const QModelIndex parent = current.isValid() ? current.parent() : rootIndex();
    const int first = current.isValid() ? current.row() + 1 : target->rowCount(parent);
    if (!target->insertRows(first, elements.size(), parent))
        return false;
    const QPersistentModelIndex keptParent(parent);
    for (int i = 0; i < elements.size(); ++i) {
        if (!target->setData(target->index(first + i, 0, parent), elements.at(i), ElementDataRole)) {
            // One refused element refuses the paste: the inserted rows go again.
            if (model() == target && (keptParent.isValid() || !parent.isValid()))
                target->removeRows(first, elements.size(), keptParent);
            return false;
        }
    }
    const int last = first + elements.size() - 1;
    if (selectionModel()) {
        QItemSelection pasted(target->index(first, 0, parent),
            target->index(last, qMax(0, target->columnCount(parent) - 1), parent));
        selectionModel()->select(pasted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selectionModel()->setCurrentIndex(target->index(first, 0, parent), QItemSelectionModel::NoUpdate);
    }
    emit elementsPasted(parent, first, last);
    return true;
}

void Ta_ElementsView::keyPressEvent(QKeyEvent *event)
{
    if (event == QKeySequence::Copy) {
        copy();
        event->accept();
        return;
    }
    if (event == QKeySequence::Cut) {
        cut();
        event->accept();
        return;
    }
    if (event == QKeySequence::Paste) {
        paste();
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
}
