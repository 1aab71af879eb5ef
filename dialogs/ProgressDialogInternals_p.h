#pragma once

// The dialog behind a ProgressDialog handle: its sections, oldest first, and the pump.
#include "dialogs/DialogBase.h"
#include "dialogs/ProgressDialog.h"

#include <QElapsedTimer>
#include <deque>

class ProgressLabel;
class ProgressSection;
class QVBoxLayout;

// Exported for the library's own tests only; hosts never see this header.
class TAVOLIBGUI_EXPORT ProgressDialogInternals : public TavoLib::DialogBase
{
    Q_OBJECT
public:
    ProgressDialogInternals(ProgressDialog *owner, QWidget *parent);
    ~ProgressDialogInternals() override;

    TAutoPtr<Progress> newProgress(int flags);
    // Processes events at most every 500 ms and delivers a stop as the exception; with
    // `mayThrow` false (from a destructor) a stop waits for the next report.
    // False when the dialog was deleted while events were processed: the caller returns at
    // once, touching nothing of it.
    bool pump(bool mayThrow = true);
    // Takes every section out and closes.
    void closeAll();
    // Escape or a window close: a stop request to every section that can be stopped.
    void reject() override;

    std::deque<ProgressSection *> mSections;
    bool mStopEnabled = true;
    bool mHasTitle = false;
    QString mTitle;
    qint64 mLastPump = 0;
    QElapsedTimer mClock;
    ProgressDialog *mOwner;
    bool mAllowEvents = true;

private:
    void detachAll();
    static ProgressLabel *addLabel(QWidget *frame, QVBoxLayout *texts);

public slots:
    void RemoveProgress(ProgressSection *inProgress, bool closeMode);
    void RemoveProgress(ProgressSection *inProgress);
};
