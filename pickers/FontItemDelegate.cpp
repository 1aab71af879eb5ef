#include "pickers/FontItemDelegate.h"

#include "style/Device.h"

#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QStyle>

#include <functional>

namespace TavoLib {

namespace {

bool isSeparator(const QModelIndex &index)
{
    return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
}

// The font and resolution of an option as text, for the caches below. Rows of one list
// share them, so the last answer is kept. Delegates live on the GUI thread only.
const QString &fontKey(const QStyleOptionViewItem &option)
{
    static QFont lastFont;
    static int lastDpi = -1;
    static QString lastKey;
    const int dpi = qRound(option.fontMetrics.fontDpi());
    if (lastDpi != dpi || lastFont != option.font) {
        lastFont = option.font;
        lastDpi = dpi;
        lastKey = option.font.key() + QLatin1Char('@') + QString::number(dpi);
    }
    return lastKey;
}

// Height of the ideograph U+4879 in a font. Few fonts have it, so every lookup searches the
// fallback fonts; a list asks once per row, so the answer is kept per font and resolution.
int ideographHeight(const QStyleOptionViewItem &option)
{
    static QHash<QString, int> cache;
    const QString &key = fontKey(option);
    const auto found = cache.constFind(key);
    if (found != cache.constEnd())
        return found.value();
    const int height = option.fontMetrics.boundingRect(QChar(0x4879)).height();
    if (cache.size() > 4096)
        cache.clear();
    cache.insert(key, height);
    return height;
}

// Width of a row's cell. Every font list of a panel lists the same families, and a list is
// measured whole when it is made, so the width of a text in a font, with or without an
// icon, is kept across lists.
int cellWidth(const QStyleOptionViewItem &option, const std::function<int()> &measure)
{
    static QHash<QString, int> cache;
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const QString key = option.text + QLatin1Char('\x1f') + fontKey(option) + QLatin1Char('/')
        + QString::number(option.decorationSize.width()) + QLatin1Char('/')
        + QString::number(int(option.features)) + QLatin1Char('/')
        + QString::number(quintptr(style), 16);
    const auto found = cache.constFind(key);
    if (found != cache.constEnd())
        return found.value();
    const int width = measure();
    if (cache.size() > 16384)
        cache.clear();
    cache.insert(key, width);
    return width;
}

} // namespace

FontItemDelegate::FontItemDelegate(QObject *parent) : QStyledItemDelegate(parent) { }

void FontItemDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    mIndex = &index;
    if (isSeparator(index)) {
        painter->save();
        painter->setPen(Qt::NoPen);
        painter->fillRect(option.rect, index.data(Qt::BackgroundRole).value<QBrush>());
        painter->setPen(
            QPen(QBrush(Qt::darkGray), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->setBrush(Qt::NoBrush);
        const QRect &r = option.rect;
        const int y = r.center().y();
        painter->drawLine(QPoint(r.left(), y), QPoint(r.right(), y));
        painter->restore();
    } else if (index.column() == 1) {
        const QString text = index.data(Qt::DisplayRole).toString();
        QStyleOptionViewItem opt(option);
        initStyleOption(&opt, index);
        QStyledItemDelegate::paint(painter, opt, index);
        drawDisplay(painter, opt, opt.rect, text);
    } else {
        QStyledItemDelegate::paint(painter, option, index);
    }
    mIndex = nullptr;
}

void FontItemDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() == 1) {
        option->features &= ~QStyleOptionViewItem::HasDisplay;
        option->text.clear();
    }
}

void FontItemDelegate::drawDisplay(QPainter *painter, const QStyleOptionViewItem &option,
    const QRect &rect, const QString &text) const
{
    if (mIndex ? mIndex->column() != 1 : false)
        return;

    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    QPalette::ColorRole role = QPalette::Text;
    if ((option.state & QStyle::State_Selected) && style
        && style->property("hasHighlightedText").toBool())
        role = QPalette::HighlightedText;
    QPalette::ColorGroup group = QPalette::Active;
    if (!(option.state & QStyle::State_Enabled))
        group = QPalette::Disabled;
    else if (!(option.state & QStyle::State_Active))
        group = QPalette::Inactive;
    painter->setBrush(QBrush(option.palette.color(group, role), Qt::SolidPattern));

    if (text.isEmpty() || rect.height() <= 0)
        return;

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setRenderHint(QPainter::TextAntialiasing, true);

    QString shown = text;
    QPainterPath path;
    path.addText(QPointF(0, 0), option.font, shown);
    QRectF b = path.boundingRect();
    double scale = rect.height() / (b.height() + 4.0);
    int n = text.size();
    while (rect.width() < b.right() * scale + 4.0) {
        --n;
        if (n < 1) {
            painter->restore();
            return;
        }
        shown = text.left(n) + QStringLiteral("...");
        path = QPainterPath();
        path.addText(QPointF(0, 0), option.font, shown);
        b = path.boundingRect();
        scale = rect.height() / (b.height() + 4.0);
    }

    painter->setPen(Qt::NoPen);
    painter->translate(
        rect.right() - b.right() * scale - 2.0, rect.bottom() - b.bottom() * scale - 2.0);
    painter->scale(scale, scale);
    painter->fillPath(path, painter->brush());
    painter->restore();
}

QSize FontItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (isSeparator(index))
        return Device::scaleSize(QSize(20, 10));
    const int height = ideographHeight(option) + 4;
    // The view measures every row, so this must stay cheap. The example is squeezed into
    // whatever cell it gets and asks for no width; skipping the base here keeps each row's
    // own face out of the measuring, which would resolve every font of a long list.
    if (index.column() == 1)
        return QSize(0, height);
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    const int width = cellWidth(
        opt, [&] { return QStyledItemDelegate::sizeHint(option, index).width(); });
    return QSize(width, height);
}

} // namespace TavoLib
