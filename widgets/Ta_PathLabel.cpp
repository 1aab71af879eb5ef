#include "widgets/Ta_PathLabel.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

namespace {

const QChar kEllipsis(0x2026);

// Index of the separator before the file name, either kind, or -1.
int lastSeparator(const QString &path)
{
    return qMax(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
}

} // namespace

Ta_PathLabel::Ta_PathLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

Ta_PathLabel::Ta_PathLabel(const QString &path, QWidget *parent) : Ta_PathLabel(parent)
{
    setPath(path);
}

Ta_PathLabel::~Ta_PathLabel() = default;

void Ta_PathLabel::setPath(const QString &path)
{
    if (path == mPath && !text().isEmpty())
        return;
    mPath = path;
    setToolTip(path);
    setAccessibleName(path);
    updateText();
    updateGeometry();
}

QString Ta_PathLabel::elidedPath(const QString &path, const QFontMetrics &metrics, int width)
{
    if (metrics.horizontalAdvance(path) <= width)
        return path;
    const int separator = lastSeparator(path);
    const QString name = path.mid(separator + 1);
    if (separator < 0)
        return metrics.elidedText(name, Qt::ElideMiddle, width);
    const QString folder = path.left(separator + 1); // with its separator
    const int left = width - metrics.horizontalAdvance(name);
    // The folders lose from their middle while at least "x…/" fits beside the name.
    const QString minimalFolder = folder.left(1) + kEllipsis + folder.right(1);
    if (left >= metrics.horizontalAdvance(minimalFolder)) {
        QString shownFolder = metrics.elidedText(folder, Qt::ElideMiddle, left);
        // Qt may give up and return only the ellipsis; keep the separator visible.
        if (!shownFolder.endsWith(folder.right(1)))
            shownFolder = minimalFolder;
        return shownFolder + name;
    }
    // No room for any folder: the ellipsis stands for them, the name loses from its middle.
    const QString head = QString(kEllipsis) + folder.right(1);
    return head + metrics.elidedText(name, Qt::ElideMiddle,
                      qMax(0, width - metrics.horizontalAdvance(head)));
}

QSize Ta_PathLabel::sizeHint() const
{
    const QMargins m = contentsMargins();
    const QFontMetrics metrics = fontMetrics();
    return QSize(metrics.horizontalAdvance(mPath) + 2 * margin() + m.left() + m.right() + 1,
        metrics.height() + 2 * margin() + m.top() + m.bottom());
}

QSize Ta_PathLabel::minimumSizeHint() const
{
    // Room for a few characters: a layout may make the label narrow, the text then elides.
    const QSize hint = sizeHint();
    const int narrow = fontMetrics().horizontalAdvance(QStringLiteral("…/Wxyz"));
    return QSize(qMin(hint.width(), narrow), hint.height());
}

void Ta_PathLabel::updateText()
{
    const int width = contentsRect().width() - 2 * margin();
    const QString shown = elidedPath(mPath, fontMetrics(), width);
    if (shown != text())
        setText(shown);
}

void Ta_PathLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    updateText();
}

void Ta_PathLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateText();
        updateGeometry();
    }
}

QString Ta_PathLabel::selectionToCopy() const
{
    const QString selected = selectedText();
    if (selected.isEmpty() || selected.contains(kEllipsis))
        return mPath;
    return selected;
}

void Ta_PathLabel::copyPath()
{
    QApplication::clipboard()->setText(mPath);
}

void Ta_PathLabel::keyPressEvent(QKeyEvent *event)
{
    if (event == QKeySequence::Copy) {
        const QString copied = selectionToCopy();
        if (!copied.isEmpty())
            QApplication::clipboard()->setText(copied);
        event->accept();
        return;
    }
    QLabel::keyPressEvent(event);
}

void Ta_PathLabel::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    if (mPath.isEmpty())
        return;
    // Without a parent: should the label go during the menu's loop, the menu is not deleted
    // under its own feet.
    QMenu menu;
    QAction *copy = menu.addAction(tr("&Copy"));
    QAction *copyWhole = menu.addAction(tr("Copy &Path"));
    QAction *selectAll = menu.addAction(tr("Select &All"));
    const QString copied = selectionToCopy();
    const QString whole = mPath;
    QPointer<Ta_PathLabel> self(this);
    QAction *chosen = menu.exec(event->globalPos());
    if (chosen == copy)
        QApplication::clipboard()->setText(copied);
    else if (chosen == copyWhole)
        QApplication::clipboard()->setText(whole);
    else if (chosen == selectAll && self)
        self->setSelection(0, self->text().size());
}
