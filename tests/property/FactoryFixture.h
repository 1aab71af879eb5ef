#pragma once

// A factory over the deterministic test providers, a window to hold its editors, and a spy
// on its one signal.
#include "TestEnvironment.h"
#include "property/PropertyEditorFactory.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>

struct FactoryFixture
{
    TavoTest::TestEnvironment::Ptr environment { new TavoTest::TestEnvironment };
    TavoLib::PropertyEditorFactory factory;
    QWidget window;
    QSignalSpy changed { &factory, &TavoLib::PropertyEditorFactory::propertyChanged };

    FactoryFixture()
    {
        factory.setBrushProvider(environment->testBrushProvider());
        factory.setFontProvider(environment->testFontProvider());
        factory.setPenStyleProvider(environment->testPenStyleProvider());
        factory.setLineHeadStyleProvider(environment->testLineHeadStyleProvider());
        factory.setStylesheetManager(environment->stylesheetManager());
        window.resize(400, 300);
    }

    QWidget *make(TavoLib::Property::Ptr property, const QString &owner = QString())
    {
        QWidget *editor = factory.createEditor(property, &window, owner);
        if (editor) {
            editor->move(0, 0);
            editor->show();
        }
        window.show();
        return editor;
    }

    template<class T>
    T *find(QWidget *editor, int index = 0)
    {
        if (auto *self = qobject_cast<T *>(editor); self && index == 0)
            return self;
        return editor ? editor->findChildren<T *>().value(index) : nullptr;
    }
};

// Accepts the next message box and gives back its text.
inline void acceptNextMessage(QString *text)
{
    QTimer::singleShot(0, [text] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            *text = box->text();
            box->accept();
        }
    });
}
