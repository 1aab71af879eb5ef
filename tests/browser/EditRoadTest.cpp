// The whole road with real events over the sample document: every editor of each object
// gets one edit by key or click, the panel stores, the document goes to JSON and back, and
// a new panel over the reloaded object shows exactly the stored values.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "browser/PropertyEditorWidget.h"
#include "sample/SampleDocument.h"
#include "widgets/MyDoubleSpinBox.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

using namespace TavoLib;

namespace {

QStringList texts(const Sample::SampleObject &object)
{
    PropertyDictionary values;
    object.fillProperties(values);
    QStringList result;
    for (const auto &p : values)
        result << p->uniqueName() + QLatin1Char('=') + p->toString();
    return result;
}

// One edit on each kind of control a panel shows, as a user would make it.
void editEverything(QWidget &panel)
{
    for (QAbstractSpinBox *spin : panel.findChildren<QAbstractSpinBox *>()) {
        if (!spin->isVisible() || !spin->isEnabled())
            continue;
        spin->setFocus();
        QTest::keyClick(spin, Qt::Key_Up);
        QTest::keyClick(spin, Qt::Key_Return);
    }
    for (QCheckBox *box : panel.findChildren<QCheckBox *>())
        if (box->isVisible() && box->isEnabled())
            QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() / 2, box->height() / 2));
    for (QComboBox *combo : panel.findChildren<QComboBox *>()) {
        if (!combo->isVisible() || !combo->isEnabled() || combo->isEditable())
            continue;
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
    }
    for (QTextEdit *text : panel.findChildren<QTextEdit *>())
        if (text->isVisible() && text->isEnabled())
            QTest::keyClicks(text->viewport(), "!");
    for (QLineEdit *line : panel.findChildren<QLineEdit *>()) {
        if (!line->isVisible() || !line->isEnabled() || qobject_cast<QAbstractSpinBox *>(line->parentWidget())
            || qobject_cast<QComboBox *>(line->parentWidget()))
            continue;
        line->setFocus();
        line->end(false);
        QTest::keyClicks(line, "x");
        QTest::keyClick(line, Qt::Key_Return);
    }
}

} // namespace

class EditRoadTest : public QObject
{
    Q_OBJECT

private slots:
    void editStoreSaveLoadShow()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleDocument::Ptr document = Sample::SampleDocument::makeDefault();
        env->setStylesheetManager(document->stylesheets());
        for (const Sample::SampleObject::Ptr &object : document->objects()) {
            const QStringList before = texts(*object);
            PropertyEditorWidget panel;
            panel.loadValues(TAutoPtr<const PropertyableObject>(object), env);
            panel.show();
            QVERIFY(QTest::qWaitForWindowExposed(&panel));
            editEverything(panel);
            panel.storeValues(TAutoPtr<PropertyableObject>(object));
            const QStringList stored = texts(*object);
            // Most rows took an edit; the count of changed rows shows the road is open.
            int changed = 0;
            for (int i = 0; i < stored.size(); ++i)
                changed += stored.at(i) != before.value(i) ? 1 : 0;
            QVERIFY2(changed >= stored.size() / 2, qPrintable(object->name()));
        }

        // Through JSON and back: the same values, and a new panel shows them unchanged.
        Sample::SampleDocument::Ptr reloaded = Sample::SampleDocument::load(document->save());
        QVERIFY(reloaded);
        QCOMPARE(reloaded->objects().size(), document->objects().size());
        for (size_t i = 0; i < document->objects().size(); ++i) {
            const Sample::SampleObject::Ptr object = reloaded->objects()[i];
            QCOMPARE(texts(*object), texts(*document->objects()[i]));
            PropertyEditorWidget panel;
            panel.loadValues(TAutoPtr<const PropertyableObject>(object), env);
            panel.show();
            QVERIFY(panel.propertyWidget()->changedItems().empty());
        }
    }
};

TAVO_TEST(EditRoadTest)
#include "EditRoadTest.moc"
