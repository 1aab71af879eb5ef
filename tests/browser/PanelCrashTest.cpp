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

// A panel showing a new sample object of one type.
struct LoadedPanel
{
    TAutoPtr<Environment> env { new TavoTest::TestEnvironment };
    SampleObject::Ptr object;
    PropertyEditorWidget panel;

    explicit LoadedPanel(const QString &type) : object(SampleObject::create(type, "object"))
    {
        panel.loadValues(TAutoPtr<const PropertyableObject>(object), env);
        panel.show();
        QApplication::setActiveWindow(&panel);
    }
    TAutoPtr<StringProperty> file() const { return TAutoPtr<StringProperty>(object->value("file")); }
};

} // namespace

class PanelCrashTest : public QObject
{
    Q_OBJECT

private slots:
    // The host reloads when a field is left: the field goes while its focus-out is delivered.
    void reloadDuringFocusOut()
    {
        LoadedPanel p("PictureBox");
        connect(&p.panel, QOverload<>::of(&PropertyEditorWidget::propertyChanged), this, [&] {
            p.panel.storeValues(TAutoPtr<PropertyableObject>(p.object));
            p.panel.loadValues(TAutoPtr<const PropertyableObject>(p.object), p.env);
        });
        QLineEdit *file = lineFor(p.panel, p.file()->value());
        QVERIFY(file);
        file->setFocus();
        QTest::keyClicks(file, "x");
        file->clearFocus(); // the focus-out commits and reloads
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(p.file()->value().endsWith(QLatin1Char('x')));
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
        LoadedPanel p("PictureBox");
        QLineEdit *file = lineFor(p.panel, p.file()->value());
        file->setFocus();
        QTest::keyClicks(file, "typed");
        p.file()->setValue("outside.tif");
        p.panel.changeValues(TAutoPtr<PropertyableObject>(p.object));
        QCOMPARE(file->text(), QStringLiteral("outside.tif"));
        file->clearFocus();
        p.panel.storeValues(TAutoPtr<PropertyableObject>(p.object));
        QCOMPARE(p.file()->value(), QStringLiteral("outside.tif"));
    }
};

TAVO_TEST(PanelCrashTest)
#include "PanelCrashTest.moc"
