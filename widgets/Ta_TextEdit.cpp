#include "widgets/Ta_TextEdit.h"

#include "style/Device.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>

using TavoLib::Device;

Ta_TextEdit::Ta_TextEdit(QWidget *parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    // A few lines high in a panel; it grows in width with the form, not in height.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    // Every way text arrives (keys, input methods, drops, undo) passes here, so the maximum
    // holds whatever the path.
    connect(document(), &QTextDocument::contentsChange, this,
        [this](int position, int, int added) { enforceMaxLength(position, added); });
}

Ta_TextEdit::~Ta_TextEdit() = default;

void Ta_TextEdit::setMaxLength(int length)
{
    mMaxLength = qMax(0, length);
    if (mMaxLength > 0 && text().length() > mMaxLength) {
        const bool committed = !isModifiedSinceCommit();
        QTextCursor cursor(document());
        cursor.setPosition(mMaxLength);
        cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        mEnforcing = true;
        cursor.removeSelectedText();
        mEnforcing = false;
        if (committed)
            mCommitted = text();
    }
}

void Ta_TextEdit::setText(const QString &text)
{
    const QString shown = mMaxLength > 0 ? text.left(mMaxLength) : text;
    mCommitted = shown;
    mEnforcing = true;
    setPlainText(shown);
    mEnforcing = false;
}

QSize Ta_TextEdit::sizeHint() const
{
    // Three lines: a short text in a panel, not a document.
    const int lines = 3;
    const int height = fontMetrics().lineSpacing() * lines
        + 2 * (frameWidth() + int(document()->documentMargin()));
    return QSize(qRound(Device::scale(200)), height);
}

QSize Ta_TextEdit::minimumSizeHint() const
{
    const int height = fontMetrics().lineSpacing() + 2 * (frameWidth() + int(document()->documentMargin()));
    return QSize(qRound(Device::scale(60)), height);
}

void Ta_TextEdit::commit()
{
    if (!isModifiedSinceCommit())
        return;
    mCommitted = text();
    emit editingFinished();
}

bool Ta_TextEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return source && source->hasText();
}

void Ta_TextEdit::insertFromMimeData(const QMimeData *source)
{
    if (!source || !source->hasText() || isReadOnly())
        return;
    // Plain text only: rich text, images and anything else of the data are left behind.
    QString pasted = source->text();
    if (mMaxLength > 0) {
        const int room = mMaxLength - text().length() + textCursor().selectedText().length();
        if (pasted.length() > room) {
            pasted = pasted.left(qMax(0, room));
            QApplication::beep();
        }
    }
    if (!pasted.isEmpty())
        textCursor().insertText(pasted);
    ensureCursorVisible();
}

void Ta_TextEdit::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        && (event->modifiers() & Qt::ControlModifier)) {
        commit();
        event->accept();
        return;
    }
    // A key that would type past the maximum is refused here, before the document changes.
    const QString typed = event->text();
    if (mMaxLength > 0 && !typed.isEmpty() && typed.at(0).isPrint() && !isReadOnly()
        && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        && text().length() - textCursor().selectedText().length() + typed.length() > mMaxLength) {
        QApplication::beep();
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void Ta_TextEdit::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    // A popup of our own (the context menu) is no leaving.
    if (event->reason() != Qt::PopupFocusReason)
        commit();
}

void Ta_TextEdit::inputMethodEvent(QInputMethodEvent *event)
{
    const int room = mMaxLength - text().length() + textCursor().selectedText().length();
    if (mMaxLength > 0 && event->commitString().length() > room) {
        // The composed text is cut to the room left, like a paste.
        QInputMethodEvent cut(event->preeditString(), event->attributes());
        cut.setCommitString(event->commitString().left(qMax(0, room)), event->replacementStart(),
            event->replacementLength());
        QApplication::beep();
        QPlainTextEdit::inputMethodEvent(&cut);
        event->accept();
        return;
    }
    QPlainTextEdit::inputMethodEvent(event);
}

void Ta_TextEdit::enforceMaxLength(int position, int added)
{
    if (mEnforcing || mMaxLength <= 0 || added <= 0)
        return;
    const int excess = text().length() - mMaxLength;
    if (excess <= 0)
        return;
    // Takes back the end of what was just inserted: the text before it stays as it was.
    const int cut = qMin(excess, added);
    QTextCursor cursor(document());
    cursor.setPosition(position + added - cut);
    cursor.setPosition(position + added, QTextCursor::KeepAnchor);
    mEnforcing = true;
    cursor.removeSelectedText();
    mEnforcing = false;
    QApplication::beep();
}
