// Progress sections in their dialog: the bar's position rules, a real stop click delivered by
// a report's pump, several sections, husks that outlive their dialog, and eliding labels.
#include "TestRegistry.h"

#include "dialogs/ProgressBar.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/ProgressLabel.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTest>
#include <QToolButton>

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
        QVERIFY(dialog.setAllowEventProcessing(false));
        QVERIFY(!dialog.setAllowEventProcessing(true));
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
