// Panels under a real host: a host that stores and reloads from every signal, two objects in
// one panel, switchable groups and choices changed while a child field holds typed text, the
// focus and the Tab order across reloads. The sanitizer run checks the lifetimes.
#include "RecordingPropertyBrowser.h"
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "browser/PropertyEditorWidget.h"
#include "browser/PropertyWidget.h"
#include "browser/ViewPropertyManager.h"
#include "core/ActivatableGroupProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/UnitValueProperty.h"
#include "sample/SampleObject.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

using namespace TavoLib;
using Sample::SampleObject;

namespace {

// The editor a label names (labels are their editors' buddies); the nth of that name.
QWidget *editorFor(QWidget *panel, const QString &name, int nth = 0)
{
    for (QLabel *label : panel->findChildren<QLabel *>())
        if (label->text() == name + QLatin1Char(':') && label->buddy()
            && label->buddy()->isVisible())
            if (nth-- == 0)
                return label->buddy();
    return nullptr;
}

template <class T> T *partOf(QWidget *editor)
{
    if (auto *self = qobject_cast<T *>(editor))
        return self;
    return editor ? editor->findChild<T *>() : nullptr;
}

// A host that stores every change into its objects and loads them again at once.
struct ReloadingHost : QObject
{
    TAutoPtr<Environment> env { new TavoTest::TestEnvironment };
    std::list<SampleObject::Ptr> objects;
    PropertyEditorWidget panel;
    int heard = 0;

    explicit ReloadingHost(const QStringList &types)
    {
        for (const QString &type : types)
            objects.push_back(SampleObject::create(type, type + QString::number(objects.size())));
        load();
        connect(&panel, QOverload<Property::Ptr>::of(&PropertyEditorWidget::propertyChanged), this,
            [this](Property::Ptr) {
                ++heard;
                std::list<TAutoPtr<PropertyableObject>> all(objects.begin(), objects.end());
                panel.storeValues(all);
                load();
            });
        panel.resize(500, 900);
        panel.show();
        QApplication::setActiveWindow(&panel);
    }
    void load()
    {
        std::list<TAutoPtr<const PropertyableObject>> all(objects.begin(), objects.end());
        panel.loadValues(all, env);
    }
    static void settle()
    {
        QCoreApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

class PanelHostTest : public QObject
{
    Q_OBJECT

private slots:
    void switchableGroupTellsTheHostOnce()
    {
        ReloadingHost host({ "TextFrame", "TextFrame" });
        auto *box = partOf<QCheckBox>(editorFor(&host.panel, "Round corners", 1));
        QVERIFY(box);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
        ReloadingHost::settle();
        // One edit, one call, and it went into the second object only.
        QCOMPARE(host.heard, 1);
        QVERIFY(!TAutoPtr<ActivatableGroupProperty>(host.objects.front()->value("roundCorners"))
                     ->isActive());
        QVERIFY(TAutoPtr<ActivatableGroupProperty>(host.objects.back()->value("roundCorners"))
                    ->isActive());
        // The group's child follows, without a call of its own.
        QWidget *radius = editorFor(&host.panel, "Radius", 1);
        QVERIFY(radius && radius->isEnabled());
        QVERIFY(!editorFor(&host.panel, "Radius", 0)->isEnabled());
        // The focus came back to the reloaded box.
        QCOMPARE(QApplication::focusWidget(),
            static_cast<QWidget *>(partOf<QCheckBox>(editorFor(&host.panel, "Round corners", 1))));
    }

    void choiceChangedWhileAChildHoldsTypedText()
    {
        ReloadingHost host({ "PictureBox" });
        // Going to the field commits the one before, and the host reloads: the focus comes
        // back to the same field of the new rows.
        partOf<QLineEdit>(editorFor(&host.panel, "Offset"))->setFocus();
        ReloadingHost::settle();
        auto *offset = partOf<QLineEdit>(editorFor(&host.panel, "Offset"));
        QVERIFY(offset && offset->hasFocus());
        host.heard = 0;
        offset->selectAll();
        QTest::keyClicks(offset, "7");
        // The choice changes under the typing (a host's call, say): the child's rows go and
        // its typed text commits on the way, and the host hears of both after the refresh.
        auto *effect = partOf<QComboBox>(editorFor(&host.panel, "Effect"));
        effect->setCurrentIndex(effect->findText("Outer glow"));
        ReloadingHost::settle();
        QCOMPARE(host.heard, 1); // the host reloaded on the first, the second went with the rows
        const auto stored
            = TAutoPtr<ExtendedSelectorProperty>(host.objects.front()->value("effect"));
        QCOMPARE(TAutoPtr<Property>(stored->current())->uniqueName(), QStringLiteral("glow"));
        // The typed offset reached the object before the reload.
        TAutoPtr<GroupProperty> shadow(stored->property("shadow"));
        QVERIFY(shadow);
        QCOMPARE(
            TAutoPtr<UnitValueProperty>(shadow->property("offset"))->value().get(CUnit(CUnit::MM)),
            7.0);
    }

    void aChoiceKeepsTheFocusAcrossItsRows()
    {
        // Without a reloading host, one Down key on a choice leaves the focus on the choice
        // while its rows are replaced.
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr picture = SampleObject::create("PictureBox", "picture");
        PropertyEditorWidget panel;
        panel.loadValues(TAutoPtr<const PropertyableObject>(picture), env);
        panel.show();
        QApplication::setActiveWindow(&panel);
        auto *effect = partOf<QComboBox>(editorFor(&panel, "Effect"));
        effect->setFocus();
        const int row = effect->currentIndex();
        QTest::keyClick(effect, Qt::Key_Down);
        QVERIFY(effect->currentIndex() != row);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(effect));
    }

    void changeValuesReachesOnlyItsObject()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr first = SampleObject::create("TextFrame", "first");
        SampleObject::Ptr second = SampleObject::create("TextFrame", "second");
        PropertyEditorWidget panel;
        panel.loadValues({ first, second }, env);
        panel.show();
        TAutoPtr<IntegerProperty>(second->value("columns"))->setValue(5);
        panel.changeValues(TAutoPtr<PropertyableObject>(second));
        auto *firstColumns = partOf<QSpinBox>(editorFor(&panel, "Columns", 0));
        QCOMPARE(firstColumns->value(), 2);
        QCOMPARE(partOf<QSpinBox>(editorFor(&panel, "Columns", 1))->value(), 5);
        firstColumns->setValue(3);
        panel.storeValues({ first, second });
        QCOMPARE(TAutoPtr<IntegerProperty>(first->value("columns"))->value(), 3);
        QCOMPARE(TAutoPtr<IntegerProperty>(second->value("columns"))->value(), 5);
    }

    void tabOrderFollowsTheFormAfterReloads()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr frame = SampleObject::create("TextFrame", "frame");
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *before = new QLineEdit(&window);
        layout->addWidget(before);
        auto *panel = new PropertyEditorWidget(&window);
        auto *ok = new QPushButton("OK", &window);
        layout->addWidget(panel);
        layout->addWidget(ok);
        window.show();
        QApplication::setActiveWindow(&window);
        for (int load = 0; load < 3; ++load) {
            // Loaded after the window and its buttons were made and shown, and again.
            panel->loadValues(TAutoPtr<const PropertyableObject>(frame), env);
            QCoreApplication::processEvents();
            ReloadingHost::settle();
        }
        // The grid does not stack the old forms below the new one.
        const auto *grid = panel->findChild<DialogPropertyBrowser *>()->layout();
        QVERIFY(static_cast<const QGridLayout *>(grid)->rowCount() < 40);
        before->setFocus();
        QTest::keyClick(before, Qt::Key_Tab);
        QWidget *first = QApplication::focusWidget();
        QVERIFY(panel->isAncestorOf(first));
        // Tab walks the rows in the order they stand, top to bottom, then leaves for OK.
        int lastY = first->mapTo(&window, QPoint()).y();
        for (int presses = 0; presses < 60 && QApplication::focusWidget() != ok; ++presses) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QWidget *now = QApplication::focusWidget();
            if (now == ok)
                break;
            QVERIFY2(panel->isAncestorOf(now), now ? now->metaObject()->className() : "none");
            const int y = now->mapTo(&window, QPoint()).y();
            QVERIFY2(y >= lastY - 2, qPrintable(now->accessibleName()));
            lastY = y;
        }
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(ok));
    }

    void rowsAddedLaterLineUpAfterTheFrameChanged()
    {
        // A group box put around the loaded rows: rows a choice adds afterwards still end
        // at the common edge.
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr picture = SampleObject::create("PictureBox", "picture");
        PropertyWidget panel(nullptr, "Picture");
        panel.setBrushProvider(TAutoPtr<const BrushProviderQt>(env->brushProvider()));
        panel.setItems({ new PropertyWidgetItem(TAutoPtr<const PropertyableObject>(picture)) });
        panel.setWithGroupBox(true);
        panel.show();
        auto *effect = partOf<QComboBox>(editorFor(&panel, "Effect"));
        effect->setCurrentIndex(effect->findText("Outer glow"));
        QCoreApplication::processEvents();
        auto rightEdge = [&](const QString &name) {
            for (QLabel *label : panel.findChildren<QLabel *>())
                if (label->text() == name + QLatin1Char(':') && label->isVisible())
                    return label->mapTo(&panel, QPoint(label->width(), 0)).x();
            return -1;
        };
        QVERIFY(rightEdge("Radius") > 0);
        QCOMPARE(rightEdge("Radius"), rightEdge("Effect"));
    }

    void undefinedRowKeepsOneSetOfChildren()
    {
        RecordingPropertyBrowser browser;
        auto *manager = new ViewPropertyManager(&browser, &browser);
        SampleObject::Ptr picture = SampleObject::create("PictureBox", "picture");
        TAutoPtr<ExtendedSelectorProperty> effect(picture->value("effect"));
        ViewProperty *row
            = manager->addProperty(effect, TAutoPtr<const PropertyableObject>(picture));
        const int shown = row->subProperties().size();
        QVERIFY(shown > 0);
        row->setUndefined(true);
        effect->setCurrent("glow");
        manager->propertyValueChanged(row);
        QVERIFY(row->subProperties().isEmpty()); // still undefined: nothing in the tree
        row->setUndefined(false);
        const QList<QtProperty *> children = row->subProperties();
        QCOMPARE(children.size(), 1);
        QCOMPARE(children.first()->propertyName(), QStringLiteral("Radius"));
    }
};

TAVO_TEST(PanelHostTest)
#include "PanelHostTest.moc"
