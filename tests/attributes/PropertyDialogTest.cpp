// The frame of property dialogs: its form, the preview option and its buttons.
#include "TestRegistry.h"

#include "attributes/PropertyDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class PropertyDialogTest : public QObject
{
    Q_OBJECT
private slots:
    void formAndButtons()
    {
        TavoLib::PropertyDialog dialog(nullptr, Qt::WindowFlags(), 300);
        QCOMPARE(dialog.buttonBox->button(QDialogButtonBox::Ok)->text(), QString("OK"));
        QCOMPARE(dialog.mPreview->text(), QString("Preview"));
        dialog.mainLayout()->addWidget(new QLabel("content"));
        QCOMPARE(dialog.mMainWidget->findChildren<QLabel *>().size(), 1);

        // Without the preview option the buttons stay at the right.
        dialog.showPreviewOption(false);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(!dialog.mPreview->isVisible());
        QCOMPARE(dialog.buttonBox->geometry().right(), dialog.mMainWidget->geometry().right());

        QSignalSpy accepted(&dialog, &QDialog::accepted);
        QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
        QCOMPARE(accepted.count(), 1);
    }
};

TAVO_TEST(PropertyDialogTest)
#include "PropertyDialogTest.moc"
