#pragma once

// Watches for the next modal message box, remembers its title and text and closes it with a
// click on its first button, so that a test that provokes a warning never hangs.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

class MessageBoxCloser : public QObject
{
public:
    MessageBoxCloser()
    {
        mTimer.setInterval(5);
        connect(&mTimer, &QTimer::timeout, this, [this] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box || box->buttons().isEmpty())
                return;
            ++count;
            title = box->windowTitle();
            text = box->text();
            buttonText = box->buttons().first()->text();
            QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
        });
        mTimer.start();
    }

    int count = 0;
    QString title;
    QString text;
    QString buttonText;

private:
    QTimer mTimer;
};
