#pragma once

// LoginDialog asks for a user name and a password (an image server, a font service, a shared
// library of a publishing group). The password field never echoes; OK stays disabled while
// the user name is blank. On OK the user name is remembered in the library's settings (QSettings
// "Tavo" / "TavoApp", group "Dialogs/" + the settings key, key "UserName") and offered the next
// time, with the focus then in the password field. The password is never stored anywhere; the
// dialog forgets it when it is rejected or destroyed, and a host reads it with password() after
// exec() has returned Accepted.
#include "dialogs/DialogBase.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace TavoLib {

class TAVOLIBGUI_EXPORT LoginDialog : public DialogBase
{
    Q_OBJECT
public:
    // `settingsKey` names the remembered user name; empty is "LoginDialog".
    explicit LoginDialog(QWidget *parent = nullptr, const QString &settingsKey = QString());
    ~LoginDialog() override;

    // A line above the fields saying what the login is for.
    void setMessage(const QString &text);
    QString message() const;

    QString userName() const;
    void setUserName(const QString &name);
    QString password() const;

    // Whether OK stores the user name (on by default).
    bool remembersUserName() const { return mRemember; }
    void setRemembersUserName(bool remember) { mRemember = remember; }
    // The user name stored under `settingsKey` (empty is "LoginDialog").
    static QString rememberedUserName(const QString &settingsKey = QString());

    void accept() override;
    void reject() override;

private:
    void updateOk();
    QString settingsGroup() const;

    QString mKey;
    bool mRemember = true;
    QLabel *mMessage = nullptr;
    QLineEdit *mUser = nullptr;
    QLineEdit *mPassword = nullptr;
    QDialogButtonBox *mButtons = nullptr;
};

} // namespace TavoLib
