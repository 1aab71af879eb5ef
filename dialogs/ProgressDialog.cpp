#include "dialogs/ProgressDialog.h"

#include "dialogs/DialogUtilities.h"
#include "dialogs/ProgressBar.h"
#include "dialogs/ProgressDialogInternals_p.h"
#include "dialogs/ProgressLabel.h"
#include "dialogs/ProgressSection.h"
#include "style/Device.h"

#include <QApplication>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QVariant>
#include <algorithm>
#include <climits>

using TavoLib::Device;

namespace {
// One guard for every dialog of the process: the only re-entry is through processEvents.
bool sPumping = false;
// The application style's stop icon.
const int kStopPixmap = int(0xF0000002u);
} // namespace

// ---- the handle ----

ProgressDialog::ProgressDialog(QWidget *parent)
{
    // decided: a console host (a QCoreApplication, not a QApplication) can make no widget and
    // gets an empty handle.
    if (qobject_cast<QApplication *>(QCoreApplication::instance()))
        mInternals = new ProgressDialogInternals(this, parent);
}

ProgressDialog::~ProgressDialog()
{
    delete mInternals;
}

TAutoPtr<Progress> ProgressDialog::newProgress(int flags)
{
    return mInternals ? mInternals->newProgress(flags) : TAutoPtr<Progress>();
}

void ProgressDialog::setTitle(const QString &title)
{
    if (!mInternals)
        return;
    mInternals->mHasTitle = !title.isEmpty();
    mInternals->mTitle = title;
    mInternals->setWindowTitle(mInternals->mTitle);
}

void ProgressDialog::show()
{
    if (!mInternals)
        return;
    TavoLib::DialogUtilities::prepareDialog(*mInternals);
    mInternals->QWidget::show();
}

void ProgressDialog::close()
{
    if (mInternals)
        mInternals->closeAll();
}

int ProgressDialog::countOfProgresses() const
{
    return mInternals ? int(mInternals->mSections.size()) : 0;
}

bool ProgressDialog::setAllowEventProcessing(bool allow)
{
    if (!mInternals)
        return false;
    const bool old = mInternals->mAllowEvents;
    mInternals->mAllowEvents = allow;
    return old;
}

ProgressDialog::operator QWidget *()
{
    return mInternals;
}

// ---- the dialog ----

ProgressDialogInternals::ProgressDialogInternals(ProgressDialog *owner, QWidget *parent)
    : DialogBase(parent, Qt::WindowTitleHint | Qt::WindowStaysOnTopHint), mOwner(owner)
{
    setModal(true);
    mClock.start();
    mLastPump = mClock.elapsed();
    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

ProgressDialogInternals::~ProgressDialogInternals()
{
    if (mOwner)
        mOwner->mInternals = nullptr;
    detachAll();
}

void ProgressDialogInternals::detachAll()
{
    while (!mSections.empty())
        RemoveProgress(mSections.back(), true);
}

void ProgressDialogInternals::closeAll()
{
    detachAll();
    close();
}

void ProgressDialogInternals::reject()
{
    // decided: Escape and a window close are the stop button; the dialog stays until the
    // job has heard of it and its sections are gone.
    if (mSections.empty()) {
        DialogBase::reject();
        return;
    }
    for (ProgressSection *section : mSections) {
        if (section->mStopButton && section->mStopEnabled)
            section->mStopped = true;
    }
}

ProgressLabel *ProgressDialogInternals::addLabel(QWidget *frame, QVBoxLayout *texts)
{
    auto *label = new ProgressLabel(frame);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    texts->addWidget(label);
    return label;
}

TAutoPtr<Progress> ProgressDialogInternals::newProgress(int flags)
{
    auto *section = new ProgressSection(this);
    section->mFrame = new QWidget(this);
    auto *frameLayout = new QVBoxLayout(section->mFrame);
    if (flags & ProgressDialog::Image) {
        section->mImageLabel = new QLabel(section->mFrame);
        section->mImageLabel->setAlignment(Qt::AlignCenter);
        const double side = Device::scale(300.0) + Device::scale(8.0);
        section->mImageLabel->setFixedSize(int(side), int(side * 0.5));
        frameLayout->addWidget(section->mImageLabel, 0, Qt::AlignCenter);
    }
    if (flags & ProgressDialog::MainText) {
        auto *texts = new QVBoxLayout;
        section->mLabel = addLabel(section->mFrame, texts);
        if (flags & ProgressDialog::DetailText) {
            section->mDetailLabel = addLabel(section->mFrame, texts);
            section->mDetailLabel->setFont(section->mLabel->font());
        }
        frameLayout->addLayout(texts);
    }
    section->mBar = new ProgressBar(section->mFrame);
    section->mBar->setFixedSize(int(Device::scale(300.0)), int(Device::scale(12.0)));
    auto *row = new QHBoxLayout;
    row->setSpacing(int(Device::scale(16.0)));
    row->addWidget(section->mBar);
    if (flags & ProgressDialog::StopButton) {
        section->mStopButton = new QToolButton(section->mFrame);
        section->mStopButton->setIcon(style()->standardIcon(QStyle::StandardPixmap(kStopPixmap)));
        // Shown when the style has no stop picture, so that the button is never blank.
        section->mStopButton->setText(tr("Stop"));
        section->mStopButton->setToolTip(tr("Stop"));
        section->mStopButton->setAccessibleName(tr("Stop"));
        section->mStopButton->setIconSize(Device::unscaledSize(Device::SizeType3));
        section->mStopButton->setProperty("NOFRAME", true);
        row->addWidget(section->mStopButton);
        QObject::connect(section->mStopButton, &QToolButton::clicked, section, &ProgressSection::stopClicked);
    }
    frameLayout->addLayout(row);
    layout()->addWidget(section->mFrame);
    if (mStopEnabled != section->mStopEnabled) {
        section->mBar->setStoppable(mStopEnabled);
        if (section->mStopButton)
            section->mStopButton->setEnabled(mStopEnabled);
        section->mStopEnabled = mStopEnabled;
    }
    TAutoPtr<Progress> result(section);
    // In the list before the pump: should the dialog go there, it detaches this section too.
    mSections.push_back(section);
    pump();
    return result;
}

bool ProgressDialogInternals::pump(bool mayThrow)
{
    if (sPumping)
        return true;
    sPumping = true;
    if (quint64(mClock.elapsed() - mLastPump) <= 500) {
        sPumping = false;
        return true;
    }
    // decided: the bars show their positions whenever anyone can look.
    for (ProgressSection *section : mSections) {
        if (section->mBar)
            section->mBar->flush();
    }
    // The dialog may go while events are processed; the husks then forget it.
    QPointer<ProgressDialogInternals> alive(this);
    if (mAllowEvents)
        QCoreApplication::processEvents();
    if (!alive) {
        sPumping = false;
        return false;
    }
    mLastPump = mClock.elapsed();
    if (mayThrow) {
        for (ProgressSection *section : mSections) {
            if (section->mStopped) {
                const int id = section->id();
                sPumping = false;
                RemoveProgress(section, false);
                throw Progress::CancelledException(id);
            }
        }
    }
    sPumping = false;
    return true;
}

void ProgressDialogInternals::RemoveProgress(ProgressSection *inProgress, bool closeMode)
{
    const auto found
        = [this, inProgress] { return std::find(mSections.begin(), mSections.end(), inProgress); };
    if (found() != mSections.end() && !closeMode) {
        // The bar's own finish: a section's finish would report, and a report may throw.
        if (inProgress->mBar)
            inProgress->mBar->finish();
        if (inProgress->mFrame)
            inProgress->mFrame->hide();
        // A handler may delete the dialog or take the section out during the pump.
        if (!pump(false))
            return;
    }
    const auto it = found();
    if (it != mSections.end()) {
        inProgress->mFrame = nullptr;
        inProgress->mLabel = nullptr;
        inProgress->mDetailLabel = nullptr;
        inProgress->mBar = nullptr;
        inProgress->mStopButton = nullptr;
        inProgress->mImageLabel = nullptr;
        mSections.erase(it);
    }
    if (mSections.empty() && !closeMode)
        close();
}

void ProgressDialogInternals::RemoveProgress(ProgressSection *inProgress)
{
    RemoveProgress(inProgress, false);
}

// ---- a section ----

ProgressSection::ProgressSection(ProgressDialogInternals *dialog) : mDialog(dialog) { }

ProgressSection::~ProgressSection()
{
    // Never throws: a stop of another section waits for that section's next report.
    if (mFrame && mDialog) {
        mFrame->hide();
        mDialog->RemoveProgress(this, false);
    }
}

void ProgressSection::pump()
{
    if (mDialog)
        mDialog->pump();
}

void ProgressSection::stopClicked()
{
    mStopped = true;
}

void ProgressSection::setRange(int first, int last)
{
    if (mBar)
        mBar->setProgressRange(first, last);
    pump();
}

void ProgressSection::setText(const QString &text)
{
    if (mLabel)
        mLabel->setText(text);
    pump();
}

void ProgressSection::setDetailText(const QString &text)
{
    if (mDetailLabel)
        mDetailLabel->setText(text);
    pump();
}

void ProgressSection::setValue(int value)
{
    if (mBar)
        mBar->setProgressValue(value);
    pump();
}

void ProgressSection::finish()
{
    if (mBar)
        mBar->finish();
    pump();
}

void ProgressSection::tick()
{
    if (mBar)
        mBar->tick();
    pump();
}

void ProgressSection::setImage(const QImage &image)
{
    if (mImageLabel) {
        // A picture larger than its place is scaled down whole, never cut to its centre.
        const QSize room = mImageLabel->contentsRect().size();
        const bool fits = image.width() <= room.width() && image.height() <= room.height();
        mImageLabel->setPixmap(QPixmap::fromImage(fits || room.isEmpty()
                ? image
                : image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    }
    pump();
}

int ProgressSection::range() const
{
    if (!mBar)
        return 0;
    return int(qMin(qint64(mBar->maximum()) - mBar->minimum(), qint64(INT_MAX)));
}

int ProgressSection::value() const
{
    return mBar ? mBar->position() : 0;
}
