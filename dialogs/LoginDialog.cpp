#include "dialogs/LoginDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace TavoLib {

namespace {

const char kUserNameKey[] = "UserName";

QString groupFor(const QString &key)
{
    return QStringLiteral("Dialogs/") + (key.isEmpty() ? QStringLiteral("LoginDialog") : key);
}

} // namespace

LoginDialog::LoginDialog(QWidget *parent, const QString &settingsKey)
    : DialogBase(parent), mKey(settingsKey)
{
    setWindowTitle(tr("Log In"));
    mMessage = new QLabel;
    mMessage->setWordWrap(true);
    mMessage->hide();
    mUser = new QLineEdit;
    mUser->setAccessibleName(tr("User name"));
    mPassword = new QLineEdit;
    mPassword->setEchoMode(QLineEdit::Password);
    mPassword->setAccessibleName(tr("Password"));
    auto *userLabel = new QLabel(tr("&User name:"));
    userLabel->setBuddy(mUser);
    auto *passwordLabel = new QLabel(tr("&Password:"));
    passwordLabel->setBuddy(mPassword);
    auto *form = new QFormLayout;
    form->addRow(userLabel, mUser);
    form->addRow(passwordLabel, mPassword);
    mButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mMessage);
    layout->addLayout(form);
    layout->addWidget(mButtons);
    connect(mButtons, &QDialogButtonBox::accepted, this, &LoginDialog::accept);
    connect(mButtons, &QDialogButtonBox::rejected, this, &LoginDialog::reject);
    connect(mUser, &QLineEdit::textChanged, this, &LoginDialog::updateOk);

    setUserName(rememberedUserName(mKey));
}

LoginDialog::~LoginDialog()
{
    // Overwrites the held copy rather than leaving it to the allocator.
    mPassword->setText(QString(mPassword->text().size(), QLatin1Char(' ')));
    mPassword->clear();
}

void LoginDialog::setMessage(const QString &text)
{
    mMessage->setText(text);
    mMessage->setVisible(!text.isEmpty());
}

QString LoginDialog::message() const
{
    return mMessage->text();
}

QString LoginDialog::userName() const
{
    return mUser->text().trimmed();
}

void LoginDialog::setUserName(const QString &name)
{
    mUser->setText(name);
    updateOk();
    // With a name known, the password is what remains to type.
    (name.trimmed().isEmpty() ? mUser : mPassword)->setFocus();
}

QString LoginDialog::password() const
{
    return mPassword->text();
}

QString LoginDialog::rememberedUserName(const QString &settingsKey)
{
    QSettings settings(QStringLiteral("Tavo"), QStringLiteral("TavoApp"));
    settings.beginGroup(groupFor(settingsKey));
    return settings.value(QLatin1String(kUserNameKey)).toString();
}

void LoginDialog::accept()
{
    if (userName().isEmpty())
        return; // Return in a field does not get past a disabled OK
    if (mRemember) {
        QSettings settings(QStringLiteral("Tavo"), QStringLiteral("TavoApp"));
        settings.beginGroup(settingsGroup());
        settings.setValue(QLatin1String(kUserNameKey), userName());
    }
    DialogBase::accept();
}

void LoginDialog::reject()
{
    mPassword->clear();
    DialogBase::reject();
}

void LoginDialog::updateOk()
{
    mButtons->button(QDialogButtonBox::Ok)->setEnabled(!userName().isEmpty());
}

QString LoginDialog::settingsGroup() const
{
    return groupFor(mKey);
}

} // namespace TavoLib
