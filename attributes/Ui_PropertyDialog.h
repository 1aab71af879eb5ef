#pragma once

// The form of PropertyDialog, built in code: a main area over a row with a "Preview" check
// box, a spacer and the OK and Cancel buttons.
#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QSpacerItem>
#include <QVBoxLayout>

class Ui_PropertyDialog
{
public:
    QVBoxLayout *verticalLayout;
    QWidget *mMainWidget;
    QHBoxLayout *horizontalLayout;
    QCheckBox *mPreview;
    QSpacerItem *horizontalSpacer;
    QDialogButtonBox *buttonBox;

    void setupUi(QDialog *dialog)
    {
        if (dialog->objectName().isEmpty())
            dialog->setObjectName(QStringLiteral("PropertyDialog"));
        dialog->resize(260, 133);
        verticalLayout = new QVBoxLayout(dialog);
        verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
        mMainWidget = new QWidget(dialog);
        mMainWidget->setObjectName(QStringLiteral("mMainWidget"));
        QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        policy.setHorizontalStretch(0);
        policy.setVerticalStretch(0);
        policy.setHeightForWidth(mMainWidget->sizePolicy().hasHeightForWidth());
        mMainWidget->setSizePolicy(policy);
        verticalLayout->addWidget(mMainWidget);
        horizontalLayout = new QHBoxLayout();
        horizontalLayout->setObjectName(QStringLiteral("horizontalLayout"));
        mPreview = new QCheckBox(dialog);
        mPreview->setObjectName(QStringLiteral("mPreview"));
        horizontalLayout->addWidget(mPreview);
        horizontalSpacer = new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum);
        horizontalLayout->addItem(horizontalSpacer);
        buttonBox = new QDialogButtonBox(dialog);
        buttonBox->setObjectName(QStringLiteral("buttonBox"));
        buttonBox->setOrientation(Qt::Horizontal);
        buttonBox->setStandardButtons(QDialogButtonBox::Cancel | QDialogButtonBox::Ok);
        horizontalLayout->addWidget(buttonBox);
        verticalLayout->addLayout(horizontalLayout);

        retranslateUi(dialog);
        QObject::connect(buttonBox, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
        QObject::connect(buttonBox, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
        QMetaObject::connectSlotsByName(dialog);
    }

    void retranslateUi(QDialog *dialog)
    {
        dialog->setWindowTitle(QCoreApplication::translate("PropertyDialog", "Dialog"));
        mPreview->setText(QCoreApplication::translate("PropertyDialog", "Preview"));
    }
};
