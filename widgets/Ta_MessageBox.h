#pragma once

// Ta_MessageBox shows the library's modal messages to the user. Each call builds a message
// box with up to three buttons given by their texts, waits until the user closes it and
// returns the index of the button that closed it.
#include "style/TavoLibGuiExport.h"

#include <QMessageBox>

class TAVOLIBGUI_EXPORT Ta_MessageBox : public QMessageBox
{
    Q_OBJECT
public:
    explicit Ta_MessageBox(QWidget *parent = nullptr);

    // Modal warning. Empty button texts are left out; with none at all the box has an "OK"
    // button. Returns the index (0 to 2) of the button pressed, or `escapeButtonNumber` (or
    // -1) when the box was closed without one.
    static int warning(QWidget *parent, const QString &title, const QString &text,
        const QString &button0Text = QString(), const QString &button1Text = QString(),
        const QString &button2Text = QString(), int defaultButtonNumber = 0,
        int escapeButtonNumber = -1);
    static int information(QWidget *parent, const QString &title, const QString &text,
        const QString &button0Text = QString(), const QString &button1Text = QString(),
        const QString &button2Text = QString(), int defaultButtonNumber = 0,
        int escapeButtonNumber = -1);
    static int critical(QWidget *parent, const QString &title, const QString &text,
        const QString &button0Text = QString(), const QString &button1Text = QString(),
        const QString &button2Text = QString(), int defaultButtonNumber = 0,
        int escapeButtonNumber = -1);

private:
    static int showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
        const QString &text, const QString &button0Text, const QString &button1Text,
        const QString &button2Text, int defaultButtonNumber, int escapeButtonNumber);
};
