// The colour view: a click or the space bar asks for a colour on the one shown, only a new
// accepted colour is taken and announced.
#include "widgets/Ta_ColorView.h"
#include "TestRegistry.h"

#include <QColorDialog>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

class Ta_ColorViewTest : public QObject
{
    Q_OBJECT
private slots:
    void onlyANewAcceptedColourCounts()
    {
        Ta_ColorView view;
        view.setColor(Qt::red);
        view.show();
        QSignalSpy changed(&view, &Ta_ColorView::colorChanged);
        // Answers each dialog with `answer` and accepts, or picks green and cancels when
        // `answer` is invalid.
        QColor answer = Qt::blue, initial;
        int opened = 0;
        QTimer closer;
        connect(&closer, &QTimer::timeout, [&] {
            if (auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget())) {
                ++opened;
                initial = dialog->currentColor();
                dialog->setCurrentColor(answer.isValid() ? answer : QColor(Qt::green));
                static_cast<QDialog *>(dialog)->done(
                    answer.isValid() ? QDialog::Accepted : QDialog::Rejected);
            }
        });
        closer.start(5);

        QTest::mouseClick(&view, Qt::LeftButton);
        QCOMPARE(initial, QColor(Qt::red));
        QCOMPARE(changed.count(), 1);
        QTest::keyClick(&view, Qt::Key_Space); // the same colour again
        answer = QColor();
        QTest::keyClick(&view, Qt::Key_Space);
        QTest::mousePress(&view, Qt::LeftButton); // let go outside: no click
        QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(-5, -5));
        QCOMPARE(opened, 3);
        QCOMPARE(view.color(), QColor(Qt::blue));
        QCOMPARE(changed.count(), 1);
    }
};

TAVO_TEST(Ta_ColorViewTest)
#include "Ta_ColorViewTest.moc"
