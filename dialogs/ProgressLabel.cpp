#include "dialogs/ProgressLabel.h"

ProgressLabel::ProgressLabel(QWidget *parent) : QLabel(parent) { }

void ProgressLabel::swapText(const QString &text)
{
    const bool disabled = testAttribute(Qt::WA_UpdatesDisabled);
    setAttribute(Qt::WA_UpdatesDisabled, true);
    setText(text);
    setAttribute(Qt::WA_UpdatesDisabled, disabled);
}

void ProgressLabel::paintEvent(QPaintEvent *event)
{
    const QString full = text();
    const int w = width();
    if (full != mFullText || w != mLastWidth) {
        mFullText = full;
        mLastWidth = w;
        mElidedText = full;
        QString working = full;
        int hint = sizeHint().width();
        while (working.size() > 3 && w < hint && hint > 50) {
            mElidedText = working.left(working.size() - 3) + QStringLiteral("...");
            swapText(mElidedText);
            hint = sizeHint().width();
            working.chop(1);
        }
    } else if (mElidedText != full) {
        swapText(mElidedText);
    }
    QLabel::paintEvent(event);
    if (mElidedText != mFullText)
        swapText(mFullText);
}
