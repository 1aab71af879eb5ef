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

void ProgressBar::moveTo(qint64 wanted)
{
    if (wanted != mPosition && wanted >= minimum() && wanted <= maximum()) {
        const int target = int(wanted);
        mPosition = target;
        // QProgressBar::setValue measures the bar through the style on every call. A move
        // within one two-thousandth of the range shows no other fill, so the bar catches up
        // at the next larger move, and at either end at once.
        const qint64 step = (qint64(maximum()) - minimum()) / 2000;
        if (step <= 1 || target == minimum() || target == maximum()
            || qAbs(qint64(target) - QProgressBar::value()) >= step)
            QProgressBar::setValue(target);
    }
    mBusy = false;
}

void ProgressBar::setProgressRange(int first, int last)
{
    if (first <= last) {
        QProgressBar::setRange(first, last);
        mPosition = QProgressBar::value();
        moveTo(first);
    }
    if (last <= first)
        mBusy = true;
}

void ProgressBar::setProgressValue(int value)
{
    // In 64 bits, so that one further than INT_MAX is out of range, not a wrap.
    moveTo(value == -1 ? qint64(mPosition) + 1 : value);
}

void ProgressBar::finish()
{
    moveTo(maximum() == -1 ? qint64(mPosition) + 1 : maximum());
    flush();
    reset();
    mPosition = QProgressBar::value();
}

void ProgressBar::flush()
{
    if (QProgressBar::value() != mPosition && mPosition >= minimum() && mPosition <= maximum())
        QProgressBar::setValue(mPosition);
}
