#include "widgets/Ta_MessageBox.h"

#include <QPushButton>

Ta_MessageBox::Ta_MessageBox(QWidget *parent) : QMessageBox(parent)
{
    setObjectName(QStringLiteral("Ta_MessageBox"));
}

int Ta_MessageBox::warning(QWidget *parent, const QString &title, const QString &text,
    const QString &button0Text, const QString &button1Text, const QString &button2Text,
    int defaultButtonNumber, int escapeButtonNumber)
{
    return showMessage(QMessageBox::Warning, parent, title, text, button0Text, button1Text,
        button2Text, defaultButtonNumber, escapeButtonNumber);
}

int Ta_MessageBox::information(QWidget *parent, const QString &title, const QString &text,
    const QString &button0Text, const QString &button1Text, const QString &button2Text,
    int defaultButtonNumber, int escapeButtonNumber)
{
    return showMessage(QMessageBox::Information, parent, title, text, button0Text, button1Text,
        button2Text, defaultButtonNumber, escapeButtonNumber);
}

int Ta_MessageBox::critical(QWidget *parent, const QString &title, const QString &text,
    const QString &button0Text, const QString &button1Text, const QString &button2Text,
    int defaultButtonNumber, int escapeButtonNumber)
{
    return showMessage(QMessageBox::Critical, parent, title, text, button0Text, button1Text,
        button2Text, defaultButtonNumber, escapeButtonNumber);
}

int Ta_MessageBox::showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
    const QString &text, const QString &button0Text, const QString &button1Text,
    const QString &button2Text, int defaultButtonNumber, int escapeButtonNumber)
{
    Ta_MessageBox box(parent);
    box.setIcon(icon);
    box.setWindowTitle(title);
    box.setText(text);

    // Buttons keep their caller's index even when an earlier text is empty.
    const QString texts[3] = { button0Text, button1Text, button2Text };
    QAbstractButton *buttons[3] = { nullptr, nullptr, nullptr };
    for (int i = 0; i < 3; ++i) {
        if (!texts[i].isEmpty())
            buttons[i] = box.addButton(texts[i], QMessageBox::AcceptRole);
    }
    if (!buttons[0] && !buttons[1] && !buttons[2])
        buttons[0] = box.addButton(QMessageBox::Ok);

    if (defaultButtonNumber >= 0 && defaultButtonNumber < 3) {
        if (auto *push = qobject_cast<QPushButton *>(buttons[defaultButtonNumber]))
            box.setDefaultButton(push);
    }
    if (escapeButtonNumber >= 0 && escapeButtonNumber < 3 && buttons[escapeButtonNumber])
        box.setEscapeButton(buttons[escapeButtonNumber]);

    box.exec();
    QAbstractButton *clicked = box.clickedButton();
    for (int i = 0; i < 3; ++i) {
        if (clicked && clicked == buttons[i])
            return i;
    }
    return escapeButtonNumber >= 0 && escapeButtonNumber < 3 ? escapeButtonNumber : -1;
}
