// The login and text-encoding dialogs: OK only with a user name, the name remembered and the
// password never; the encoding preview follows the choice whatever bytes the host hands in.
#include "dialogs/LoginDialog.h"
#include "dialogs/TextCodecDialog.h"
#include "TestRegistry.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QDirIterator>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using TavoLib::LoginDialog;
using TavoLib::TextCodecDialog;

class LoginDialogTest : public QObject
{
    Q_OBJECT
    QTemporaryDir mHome;

private slots:
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mHome.path()); }

    void userNameRememberedPasswordNever()
    {
        {
            LoginDialog dialog(nullptr, "FontService");
            dialog.show();
            auto *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            const QList<QLineEdit *> fields = dialog.findChildren<QLineEdit *>();
            QCOMPARE(fields.size(), 2);
            QLineEdit *user = fields.at(0)->echoMode() == QLineEdit::Password ? fields.at(1) : fields.at(0);
            QLineEdit *password = user == fields.at(0) ? fields.at(1) : fields.at(0);
            QCOMPARE(password->echoMode(), QLineEdit::Password);
            QVERIFY(!ok->isEnabled());
            QTest::keyClicks(user, "   ");
            QVERIFY(!ok->isEnabled()); // blanks are no name
            QTest::keyClick(user, Qt::Key_Return);
            QVERIFY(dialog.isVisible());
            user->clear();
            QTest::keyClicks(user, "editor");
            QVERIFY(ok->isEnabled());
            QTest::keyClicks(password, "s3cret-word");
            QTest::keyClick(password, Qt::Key_Return);
            QCOMPARE(dialog.result(), int(QDialog::Accepted));
            QCOMPARE(dialog.password(), QString("s3cret-word"));
        }
        QCOMPARE(LoginDialog::rememberedUserName("FontService"), QString("editor"));
        QCOMPARE(LoginDialog::rememberedUserName(), QString()); // keys do not mix
        // Nowhere in the settings files is the password.
        QDirIterator files(mHome.path(), QDir::Files, QDirIterator::Subdirectories);
        int seen = 0;
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY(!file.readAll().contains("s3cret"));
            ++seen;
        }
        QVERIFY(seen > 0);

        // The next time the name is there and the focus waits in the password field.
        LoginDialog again(nullptr, "FontService");
        again.show();
        QVERIFY(QTest::qWaitForWindowActive(&again));
        QCOMPARE(again.userName(), QString("editor"));
        QCOMPARE(qobject_cast<QLineEdit *>(QApplication::focusWidget())->echoMode(), QLineEdit::Password);
        QTest::keyClicks(QApplication::focusWidget(), "typed");
        QTest::keyClick(&again, Qt::Key_Escape);
        QCOMPARE(again.result(), int(QDialog::Rejected));
        QVERIFY(again.password().isEmpty()); // a rejected dialog forgets it

        // A host that does not want the name kept.
        LoginDialog quiet(nullptr, "Quiet");
        quiet.setRemembersUserName(false);
        quiet.setUserName("guest");
        quiet.accept();
        QCOMPARE(LoginDialog::rememberedUserName("Quiet"), QString());
    }

    void codecPreviewFollowsTheChoice()
    {
        TextCodecDialog dialog;
        dialog.show();
        QSignalSpy changed(&dialog, &TextCodecDialog::codecChanged);
        // "Grüße" in Latin-1: read as UTF-8 it is damaged, as Latin-1 it is right.
        const QByteArray latin1("Gr\xfc\xdf" "e\r\n\x01\x00tail", 13);
        dialog.setSample(latin1);
        dialog.setCodec("UTF-8");
        QCOMPARE(dialog.codec(), QString("UTF-8"));
        QVERIFY(!dialog.previewText().contains(QString::fromUtf8("Grüße")));
        QVERIFY(dialog.previewText().contains(QChar::ReplacementCharacter));
        dialog.setCodec("ISO8859-1");
        QVERIFY(dialog.previewText().startsWith(QString::fromUtf8("Grüße")));
        QVERIFY(dialog.previewText().endsWith("tail")); // the bytes after a NUL still show
        QCOMPARE(changed.count(), 2);

        // By keyboard: the combo's arrow keys move the choice and the preview with it.
        auto *combo = dialog.findChild<QComboBox *>();
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        QVERIFY(dialog.codec().isEmpty()); // "None"
        QTest::keyClick(combo, Qt::Key_Down);
        QVERIFY(!dialog.codec().isEmpty());
        QCOMPARE(changed.count(), 4);

        // Names are exact; unknown ones select "None".
        dialog.setCodec("utf-16 ");
        QVERIFY(dialog.codec().isEmpty());
        // Every entry of the table previews without harm, with odd bytes and with none.
        QByteArray odd;
        for (int i = 0; i < 256; ++i)
            odd.append(char(i));
        for (const QByteArray &sample : { odd, QByteArray() }) {
            dialog.setSample(sample);
            for (int row = 0; row < combo->count(); ++row) {
                combo->setCurrentIndex(row);
                // Some table entries are not on every system; the preview says so.
                const QString text = dialog.previewText();
                QVERIFY(sample.isEmpty() ? text.isEmpty() || text.contains("not available") : !text.isEmpty());
            }
        }
        // A long file is previewed from its start only.
        dialog.setSample(QByteArray(200000, 'a'));
        QCOMPARE(dialog.sample().size(), TextCodecDialog::kPreviewBytes);
    }
};

TAVO_TEST(LoginDialogTest)
#include "LoginDialogTest.moc"
