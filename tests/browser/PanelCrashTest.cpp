// The ways property panels are known to crash or lose an edit: editors that go while their
// own signal or focus-out is under way, popups open when the panel goes, managers and
// browsers going in either order, and a value changed from outside while the user types.
// Run under the sanitizers by the test command.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "browser/DialogPropertyBrowser.h"
#include "browser/PropertyEditorWidget.h"
#include "browser/ViewEditorFactory.h"
#include "core/StringProperty.h"
#include "sample/SampleObject.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

using namespace TavoLib;
using Sample::SampleObject;

namespace {

QLineEdit *lineFor(QWidget &panel, const QString &text)
{
    for (QLineEdit *line : panel.findChildren<QLineEdit *>())
        if (line->text() == text)
            return line;
    return nullptr;
}

} // namespace

class PanelCrashTest : public QObject
{
    Q_OBJECT

private slots:
    // The host reloads when a field is left: the field goes while its focus-out is delivered.
    void reloadDuringFocusOut()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr picture = SampleObject::create("PictureBox", "picture");
        PropertyEditorWidget panel;
        QLineEdit other;
        panel.loadValues(TAutoPtr<const PropertyableObject>(picture), env);
        panel.show();
        other.show();
        QApplication::setActiveWindow(&panel);
        connect(&panel, QOverload<>::of(&PropertyEditorWidget::propertyChanged), this, [&] {
            panel.storeValues(TAutoPtr<PropertyableObject>(picture));
            panel.loadValues(TAutoPtr<const PropertyableObject>(picture), env);
        });
        QLineEdit *file = lineFor(panel, TAutoPtr<StringProperty>(picture->value("file"))->value());
        QVERIFY(file);
        file->setFocus();
        QTest::keyClicks(file, "x");
        file->clearFocus(); // the focus-out commits and reloads
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(TAutoPtr<StringProperty>(picture->value("file"))->value().endsWith(QLatin1Char('x')));
    }

    void panelDeletedWithAnOpenPopup()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr frame = SampleObject::create("TextFrame", "frame");
        auto *panel = new PropertyEditorWidget;
        panel->loadValues(TAutoPtr<const PropertyableObject>(frame), env);
        panel->show();
        QComboBox *combo = panel->findChild<QComboBox *>();
        QVERIFY(combo);
        combo->showPopup();
        QPointer<QWidget> popup = combo->view()->window();
        delete panel;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!popup);
    }

    void managerAndBrowserInEitherOrder()
    {
        for (bool managerFirst : { true, false }) {
            auto *browser = new DialogPropertyBrowser;
            auto *manager = new ViewPropertyManager(browser);
            ViewEditorFactory factory;
            browser->addFactory(manager, &factory);
            factory.addPropertyManager(manager);
            PropertyDictionary values;
            values.insertProperty(new StringProperty("name", "Name", "Anna"));
            manager->addProperties(values, TAutoPtr<const PropertyableObject>(SampleObject::create("Line", "l")));
            browser->show();
            if (managerFirst) {
                delete manager;
                delete browser;
            } else {
                delete browser;
                delete manager;
            }
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    // The user has typed into a field when the host pushes a new value: the field shows the
    // new value, and leaving it writes nothing else.
    void valueChangedWhileTyping()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr picture = SampleObject::create("PictureBox", "picture");
        PropertyEditorWidget panel;
        QLineEdit other;
        panel.loadValues(TAutoPtr<const PropertyableObject>(picture), env);
        panel.show();
        other.show();
        const QString before = TAutoPtr<StringProperty>(picture->value("file"))->value();
        QLineEdit *file = lineFor(panel, before);
        file->setFocus();
        QTest::keyClicks(file, "typed");
        TAutoPtr<StringProperty>(picture->value("file"))->setValue("outside.tif");
        panel.changeValues(TAutoPtr<PropertyableObject>(picture));
        QCOMPARE(file->text(), QStringLiteral("outside.tif"));
        other.setFocus();
        panel.storeValues(TAutoPtr<PropertyableObject>(picture));
        QCOMPARE(TAutoPtr<StringProperty>(picture->value("file"))->value(), QStringLiteral("outside.tif"));
    }
};

TAVO_TEST(PanelCrashTest)
#include "PanelCrashTest.moc"
