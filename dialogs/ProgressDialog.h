#pragma once

// ProgressDialog is the one modal dialog in which long jobs report: each job gets a section
// (bar, labels, picture, stop button, as asked) through newProgress and reports to it as a
// Progress. Reporting keeps the interface alive: at most about twice a second a report pumps
// the event queue, and a stop click is delivered there, to the job, as
// Progress::CancelledException. The dialog closes when its last section goes.
//
// Escape and a window close act as the stop button of every section that has one; the
// dialog stays until the job has ended its sections.
//
// The handle is cheap; without a QApplication (no application at all, or a console host's
// QCoreApplication) it stays empty and every call does nothing.
#include "dialogs/Progress.h"

class QWidget;
class ProgressDialogInternals;

class TAVOLIBGUI_EXPORT ProgressDialog
{
public:
    using Internals = ProgressDialogInternals;

    // Section options for newProgress.
    enum Flags {
        MainText = 0x1,
        // With MainText: also a second text line; alone it has no effect.
        DetailText = 0x2,
        StopButton = 0x4,
        Image = 0x8
    };

    explicit ProgressDialog(QWidget *parent = nullptr);
    ~ProgressDialog();
    ProgressDialog(const ProgressDialog &) = delete;
    ProgressDialog &operator=(const ProgressDialog &) = delete;

    // A new section; empty on an empty handle.
    TAutoPtr<Progress> newProgress(int flags);
    // An empty title clears it.
    void setTitle(const QString &title);
    void show();
    // Takes every section out (their Progress calls then do nothing) and closes.
    void close();
    int countOfProgresses() const;
    // Whether reports may process events (and so deliver stop clicks); gives the old setting.
    bool setAllowEventProcessing(bool allow);
    operator QWidget *();

private:
    friend class ProgressDialogInternals;
    Internals *mInternals = nullptr;
};
