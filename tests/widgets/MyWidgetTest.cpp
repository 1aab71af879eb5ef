// The editor container hands its focus to its first editor, built inside it or moved in by
// a layout, and to the next one when that editor goes.
#include "widgets/MyWidget.h"
#include "TestRegistry.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QTest>

class MyWidgetTest : public QObject
{
    Q_OBJECT
private slots:
    void focusGoesToTheFirstEditor()
    {
        MyWidget editor;
        auto *row = new QHBoxLayout(&editor);
        auto *family = new QComboBox(&editor);
        auto *style = new QComboBox;
        row->addWidget(family);
        row->addWidget(style);
        editor.show();
        QApplication::setActiveWindow(&editor);
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        editor.setFocus();
        QVERIFY(family->hasFocus());
        delete family;
        editor.setFocus();
        QVERIFY(style->hasFocus());
    }
};

TAVO_TEST(MyWidgetTest)
#include "MyWidgetTest.moc"
