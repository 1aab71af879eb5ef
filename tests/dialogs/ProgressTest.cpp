// Progress sections in their dialog: the bar's position rules, a real stop click delivered by
// a report's pump, several sections, husks that outlive their dialog, and eliding labels.
#include "TestRegistry.h"

#include "dialogs/ProgressBar.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/ProgressDialogInternals_p.h"
#include "dialogs/ProgressLabel.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <climits>
#include <cstdlib>
#include <unistd.h>

namespace {

// Posts a click on the button: only an event loop, here the pump of a report, delivers it.
void postClick(QToolButton *button)
{
    const QPoint centre = button->rect().center();
    QCoreApplication::postEvent(button, new QMouseEvent(QEvent::MouseButtonPress, centre, Qt::LeftButton,
                                                        Qt::LeftButton, Qt::NoModifier));
    QCoreApplication::postEvent(button, new QMouseEvent(QEvent::MouseButtonRelease, centre, Qt::LeftButton,
                                                        Qt::NoButton, Qt::NoModifier));
}

// Reports through `progress` without any other event processing until it throws, for at most
// a few seconds; the id of the stopped section, or 0.
int reportUntilStopped(const TAutoPtr<Progress> &progress)
{
    QElapsedTimer bound;
    bound.start();
    while (bound.elapsed() < 3000) {
        try {
            progress->tick();
        } catch (const Progress::CancelledException &stop) {
            return stop.id();
        }
    }
    return 0;
}

// The next report of `dialog` pumps events, as if half a second had passed.
void pumpAtNextReport(ProgressDialog &dialog)
{
    if (auto *internals = qobject_cast<ProgressDialogInternals *>(static_cast<QWidget *>(dialog)))
        internals->mLastPump = internals->mClock.elapsed() - 1000;
}

// A console host: run as a child process of this test (see consoleHostGetsAnEmptyHandle),
// before the test main makes its QApplication.
const bool sConsoleHost = [] {
    if (qEnvironmentVariableIsEmpty("TAVO_PROGRESS_CONSOLE_HOST"))
        return false;
    static int argc = 1;
    static char name[] = "console";
    static char *argv[] = { name, nullptr };
    QCoreApplication app(argc, argv);
    ProgressDialog dialog;
    TAutoPtr<Progress> progress
        = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::StopButton);
    dialog.setTitle(QStringLiteral("console"));
    dialog.show();
    const bool empty
        = !progress && !static_cast<QWidget *>(dialog) && dialog.countOfProgresses() == 0;
    std::fflush(nullptr);
    _exit(empty ? 0 : 3);
}();

} // namespace

class ProgressTest : public QObject
{
    Q_OBJECT
private slots:
    void barPositionRules()
    {
        ProgressDialog dialog;
        TAutoPtr<Progress> p = dialog.newProgress(ProgressDialog::DetailText); // alone: no labels
        auto *bar = static_cast<QWidget *>(dialog)->findChild<ProgressBar *>();
        QVERIFY(bar && bar->isBusy());
        QVERIFY(!static_cast<QWidget *>(dialog)->findChild<ProgressLabel *>());
        p->setRange(0, 3);
        for (int i = 0; i < 5; ++i)
            p->setValue(-1);
        QCOMPARE(p->value(), 3);
        QCOMPARE(p->range(), 3);
        p->setRange(0, 100);
        p->tick();
        p->setValue(1000); // dropped, but no longer busy
        QCOMPARE(p->value(), 0);
        QVERIFY(!bar->isBusy());
        p->setRange(5, 5);
        QCOMPARE(p->value(), 5);
        QVERIFY(bar->isBusy());
        QVERIFY(bar->text().isEmpty());
    }

    void stopClickReachesTheJobThroughThePump()
    {
        ProgressDialog dialog;
        TAutoPtr<Progress> first = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::StopButton);
        TAutoPtr<Progress> second = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::StopButton);
        QVERIFY(first->id() != second->id());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(static_cast<QWidget *>(dialog)));
        const auto buttons = static_cast<QWidget *>(dialog)->findChildren<QToolButton *>();
        QCOMPARE(buttons.size(), 2);

        // The second job is stopped while the first reports: the first's call throws with
        // the second's id, and the first section stays.
        postClick(buttons.at(1));
        QCOMPARE(reportUntilStopped(first), second->id());
        QCOMPARE(dialog.countOfProgresses(), 1);
        second->setText("a husk does nothing"); // and throws nothing
        QVERIFY(static_cast<QWidget *>(dialog)->isVisible());

        // Stopping the last section closes the dialog.
        postClick(buttons.at(0));
        QCOMPARE(reportUntilStopped(first), first->id());
        QCOMPARE(dialog.countOfProgresses(), 0);
        QVERIFY(!static_cast<QWidget *>(dialog)->isVisible());
    }

    void husksOutliveTheirDialog()
    {
        TAutoPtr<Progress> kept;
        {
            ProgressDialog dialog;
            kept = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::Image);
            TAutoPtr<Progress> dropped = dialog.newProgress(0);
            QCOMPARE(dialog.countOfProgresses(), 2);
            dropped = nullptr; // its section leaves the dialog
            QCOMPARE(dialog.countOfProgresses(), 1);
            dialog.close();
            QCOMPARE(dialog.countOfProgresses(), 0);
            kept->setText("after close");
            QCOMPARE(kept->value(), 0);
        }
        // The dialog has gone: every call is harmless.
        kept->setValue(3);
        kept->setImage(QImage(4, 4, QImage::Format_RGB32));
        kept->finish();
        QCOMPARE(kept->range(), 0);
    }

    // The dialog deleted while a report pumps, by its parent going: the report returns, and
    // the section is a husk whose calls touch none of the deleted widgets.
    void dialogDeletedDuringAPump()
    {
        for (bool whileRemoving : { false, true }) {
            auto *parent = new QWidget;
            ProgressDialog dialog(parent);
            TAutoPtr<Progress> kept, made;
            if (whileRemoving) {
                kept = dialog.newProgress(ProgressDialog::MainText);
                made = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::Image);
            }
            QTimer::singleShot(0, [parent] { delete parent; });
            pumpAtNextReport(dialog);
            if (whileRemoving)
                made = nullptr; // the section's removal pumps, and the dialog goes
            else
                made = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::Image);
            QVERIFY(!static_cast<QWidget *>(dialog));
            QCOMPARE(dialog.countOfProgresses(), 0);
            for (Progress *p : { made.get(), kept.get() }) {
                if (!p)
                    continue;
                p->setText(QStringLiteral("after"));
                p->setValue(3);
                p->setImage(QImage(8, 8, QImage::Format_RGB32));
                QCOMPARE(p->range(), 0);
            }
        }
    }

    // A handler closes the dialog during the pump of a section's removal: the other sections
    // are untouched by that removal, and the dialog is empty and hidden.
    void closedDuringTheRemovalPump()
    {
        ProgressDialog dialog;
        TAutoPtr<Progress> first = dialog.newProgress(ProgressDialog::MainText);
        TAutoPtr<Progress> second = dialog.newProgress(ProgressDialog::MainText);
        dialog.show();
        QTimer::singleShot(0, [&dialog] { dialog.close(); });
        pumpAtNextReport(dialog);
        first = nullptr;
        QCOMPARE(dialog.countOfProgresses(), 0);
        QVERIFY(!static_cast<QWidget *>(dialog)->isVisible());
        second->setValue(2);
        second = nullptr;
        QCOMPARE(dialog.countOfProgresses(), 0);
    }

    // Escape and a window close are the stop button: the dialog stays, modal, and the job
    // hears of the stop at its next report.
    void escapeAndCloseRequestTheStop()
    {
        for (bool escape : { true, false }) {
            ProgressDialog dialog;
            TAutoPtr<Progress> job
                = dialog.newProgress(ProgressDialog::MainText | ProgressDialog::StopButton);
            TAutoPtr<Progress> plain = dialog.newProgress(ProgressDialog::MainText);
            auto *window = static_cast<QWidget *>(dialog);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowExposed(window));
            if (escape) {
                QTest::keyClick(window, Qt::Key_Escape);
            } else {
                QCloseEvent close;
                QCoreApplication::sendEvent(window, &close);
                QVERIFY(!close.isAccepted());
            }
            QVERIFY(window->isVisible());
            QCOMPARE(dialog.countOfProgresses(), 2);
            pumpAtNextReport(dialog);
            int stopped = 0;
            try {
                plain->tick();
            } catch (const Progress::CancelledException &stop) {
                stopped = stop.id();
            }
            QCOMPARE(stopped, job->id());
            QCOMPARE(dialog.countOfProgresses(), 1);
            QVERIFY(window->isVisible());
            plain = nullptr; // the last section goes: now the dialog closes
            QVERIFY(!window->isVisible());
        }
    }

    void consoleHostGetsAnEmptyHandle()
    {
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("TAVO_PROGRESS_CONSOLE_HOST"), QStringLiteral("1"));
        env.remove(QStringLiteral("QT_QPA_PLATFORM"));
        child.setProcessEnvironment(env);
        child.start(QCoreApplication::applicationFilePath(), QStringList());
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
    }

    // The stop button can be used and read without the application's stop picture.
    void stopButtonWithoutAnIcon()
    {
        ProgressDialog dialog;
        TAutoPtr<Progress> job = dialog.newProgress(ProgressDialog::StopButton);
        auto *button = static_cast<QWidget *>(dialog)->findChild<QToolButton *>();
        QVERIFY(button);
        QVERIFY(!button->text().isEmpty());
        QVERIFY(!button->toolTip().isEmpty());
        QVERIFY(!QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name).isEmpty());
    }

    // Deferred small moves reach QProgressBar at the next pump and at finish; extreme ranges
    // and steps stay defined.
    void barStateFollowsThePosition()
    {
        ProgressDialog dialog;
        TAutoPtr<Progress> p = dialog.newProgress(ProgressDialog::Image);
        auto *bar = static_cast<QWidget *>(dialog)->findChild<ProgressBar *>();
        p->setRange(0, 1000000);
        p->setValue(10);
        QCOMPARE(p->value(), 10);
        pumpAtNextReport(dialog);
        p->tick();
        QCOMPARE(bar->value(), 10);
        p->setRange(-1000, -1);
        p->setValue(-1); // one further: -999
        p->setValue(-1);
        QCOMPARE(p->value(), -998);
        p->finish();
        QCOMPARE(p->value(), bar->value());

        p->setRange(INT_MIN, INT_MAX);
        QCOMPARE(p->range(), INT_MAX);
        p->setValue(INT_MAX);
        p->setValue(-1); // beyond the maximum: dropped
        QCOMPARE(p->value(), INT_MAX);

        // A picture larger than its place is shown whole, scaled down.
        auto *picture = static_cast<QWidget *>(dialog)->findChild<QLabel *>();
        QImage large(2000, 400, QImage::Format_RGB32);
        large.fill(Qt::red);
        p->setImage(large);
        const QSize shown = picture->pixmap(Qt::ReturnByValue).size();
        QVERIFY(shown.width() <= picture->width() && shown.height() <= picture->height());
        QCOMPARE(shown.width() / shown.height(), 5);
    }

    void labelsElideButKeepTheirText()
    {
        ProgressLabel label;
        const QString full = QString("A long progress text that cannot fit ").repeated(3);
        label.setText(full);
        label.resize(120, 20);
        label.show();
        const QImage narrow = label.grab().toImage();
        QCOMPARE(label.text(), full);
        label.resize(2000, 20);
        QVERIFY(label.grab().toImage().copy(0, 0, 120, 20) != narrow); // the dots differ

        ProgressLabel tiny;
        tiny.setText("abc");
        tiny.resize(5, 20);
        tiny.show();
        tiny.grab();
        QCOMPARE(tiny.text(), QString("abc"));
    }
};

TAVO_TEST(ProgressTest)
#include "ProgressTest.moc"
