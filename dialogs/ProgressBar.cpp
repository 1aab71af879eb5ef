#include "dialogs/ProgressBar.h"

ProgressBar::ProgressBar(QWidget *parent) : QProgressBar(parent)
{
    setTextVisible(false);
    setOrientation(Qt::Horizontal);
    QProgressBar::setRange(0, 0);
    QProgressBar::setValue(0);
}

QString ProgressBar::text() const
{
    return QString();
}

void ProgressBar::moveTo(int target)
{
    if (target != QProgressBar::value() && target >= minimum() && target <= maximum())
        QProgressBar::setValue(target);
    mBusy = false;
}

void ProgressBar::setProgressRange(int first, int last)
{
    if (first <= last) {
        QProgressBar::setRange(first, last);
        moveTo(first);
    }
    if (last <= first)
        mBusy = true;
}

void ProgressBar::setProgressValue(int value)
{
    moveTo(value == -1 ? QProgressBar::value() + 1 : value);
}

void ProgressBar::finish()
{
    moveTo(maximum() == -1 ? QProgressBar::value() + 1 : maximum());
    reset();
}
