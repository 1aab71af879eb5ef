#pragma once

// ProgressSection is a Progress shown as one block of a ProgressDialog. Once taken out of the
// dialog (stopped, finished with, or the dialog closed) it is a husk: every call does nothing
// to any widget, and once the dialog itself has gone, nothing at all.
#include "dialogs/Progress.h"

#include <QObject>
#include <QPointer>

class ProgressBar;
class ProgressLabel;
class ProgressDialogInternals;
class QLabel;
class QToolButton;
class QWidget;

class TAVOLIBGUI_EXPORT ProgressSection : public QObject, public Progress
{
    Q_OBJECT
public:
    ~ProgressSection() override;

    void setRange(int first, int last) override;
    void setText(const QString &text) override;
    void setDetailText(const QString &text) override;
    void setValue(int value) override;
    void finish() override;
    void tick() override;
    void setImage(const QImage &image) override;
    int range() const override;
    int value() const override;

    // Whether the section still stands in its dialog.
    bool isAttached() const { return mFrame != nullptr; }

private slots:
    void stopClicked();

private:
    friend class ProgressDialogInternals;
    explicit ProgressSection(ProgressDialogInternals *dialog);
    void pump();

    ProgressBar *mBar = nullptr;
    bool mStopEnabled = true;
    QToolButton *mStopButton = nullptr;
    ProgressLabel *mLabel = nullptr;
    ProgressLabel *mDetailLabel = nullptr;
    QWidget *mFrame = nullptr;
    QLabel *mImageLabel = nullptr;
    bool mStopped = false;
    // Forgotten when the dialog goes, so that a husk never reaches into it.
    QPointer<ProgressDialogInternals> mDialog;
};
