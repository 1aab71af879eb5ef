#pragma once

// The bar of a progress section: a QProgressBar without text that also keeps whether it is
// busy (no known position) and whether its job can be stopped, for a style to show.
#include "style/TavoLibGuiExport.h"

#include <QProgressBar>

class TAVOLIBGUI_EXPORT ProgressBar : public QProgressBar
{
    Q_OBJECT
public:
    explicit ProgressBar(QWidget *parent = nullptr);

    QString text() const override;

    // The position rules of a progress section: see Progress.
    void setProgressRange(int first, int last);
    void setProgressValue(int value);
    void finish();
    void tick() { mBusy = true; }
    // Hands a deferred position to QProgressBar; the dialog calls it at every pump that runs.
    void flush();

    // The position last set; between two pumps QProgressBar's value may trail it by less than
    // a two-thousandth of the range.
    int position() const { return mPosition; }
    bool isBusy() const { return mBusy; }
    bool isStoppable() const { return mStoppable; }
    void setStoppable(bool stoppable) { mStoppable = stoppable; }

private:
    void moveTo(qint64 value);

    int mPosition = 0;
    bool mBusy = true;
    bool mStoppable = true;
};
