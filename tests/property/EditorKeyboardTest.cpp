// The editors by keyboard alone: one editor of every kind of the sample schema in a form,
// reached by Tab from the one before, changed by keys, each focusable part named for
// assistive technology; the wheel changes only a focused field.
#include "FactoryFixture.h"
#include "TestRegistry.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "property/ListPropertyWidget.h"
#include "sample/SampleSchema.h"
#include "style/Device.h"
#include "controls/Ta_UnitEdit.h"
#include "widgets/Ta_ColorView.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QSpinBox>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace TavoLib;

namespace {

QWidget *focused()
{
    return QApplication::focusWidget();
}

bool inside(QWidget *editor, QWidget *widget)
{
    return widget && (widget == editor || editor->isAncestorOf(widget));
}

// Changes the value of the focused part by keys, as a user would.
void changeByKeys(QWidget *w)
{
    if (qobject_cast<QAbstractSpinBox *>(w)) {
        QTest::keyClick(w, Qt::Key_Up);
    } else if (qobject_cast<QComboBox *>(w)) {
        // F4 opens the list, Down moves to the next entry, Return takes it.
        QTest::keyClick(w, Qt::Key_F4);
        auto *combo = static_cast<QComboBox *>(w);
        QTest::keyClick(combo->view(), Qt::Key_Down);
        QTest::keyClick(combo->view(), Qt::Key_Return);
    } else if (qobject_cast<QCheckBox *>(w) || qobject_cast<Ta_ColorView *>(w)) {
        QTest::keyClick(w, Qt::Key_Space);
    } else if (auto *button = qobject_cast<QToolButton *>(w)) {
        if (button->menu()) {
            QTimer::singleShot(0, [] {
                if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
                    QTest::keyClick(menu, Qt::Key_Down);
                    QTest::keyClick(menu, Qt::Key_Down);
                    QTest::keyClick(menu, Qt::Key_Return);
                }
            });
            QTest::keyClick(w, Qt::Key_Space);
        } else {
            // In a row of buttons the arrows move to the next one and turn it on.
            QTest::keyClick(w, button->isChecked() ? Qt::Key_Right : Qt::Key_Space);
        }
    } else if (auto *unit = qobject_cast<Ta_UnitEdit *>(w)) {
        unit->selectAll();
        QTest::keyClicks(unit, "14");
        QTest::keyClick(unit, Qt::Key_Return);
    } else if (auto *line = qobject_cast<QLineEdit *>(w)) {
        QTest::keyClick(line, Qt::Key_End);
        QTest::keyClicks(line, "x");
        QTest::keyClick(line, Qt::Key_Return);
    } else if (qobject_cast<QTextEdit *>(w)) {
        QTest::keyClicks(w, "x");
    } else {
        QFAIL(qPrintable(QStringLiteral("no keys for %1").arg(w->metaObject()->className())));
    }
}

} // namespace

class EditorKeyboardTest : public QObject
{
    Q_OBJECT

private slots:
    void everyKindByKeyboardAlone()
    {
        FactoryFixture f;
        const TAutoPtr<StylesheetManager const> stylesheets(Sample::SampleSchema::makeStylesheets());
        f.factory.setStylesheetManager(stylesheets);
        auto *layout = new QVBoxLayout(&f.window);
        auto *start = new QLineEdit(&f.window);
        start->setAccessibleName("start");
        layout->addWidget(start);
        std::vector<std::pair<Property::Ptr, QWidget *>> rows;
        for (const Property::Ptr &kind : Sample::SampleSchema::oneOfEachKind(stylesheets)) {
            Property::Ptr p = kind->clone();
            QWidget *editor = f.factory.createEditor(p, &f.window, QString());
            QVERIFY2(editor, kind->kindName());
            layout->addWidget(editor);
            rows.emplace_back(p, editor);
        }
        QCOMPARE(rows.size(), size_t(16));
        f.window.resize(500, 900);
        f.window.show();
        QApplication::setActiveWindow(&f.window);
        QTimer colours;
        connect(&colours, &QTimer::timeout, [] {
            if (auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget())) {
                dialog->setCurrentColor(QColor(10, 200, 30));
                static_cast<QDialog *>(dialog)->done(QDialog::Accepted);
            }
        });
        colours.start(5);

        start->setFocus();
        for (size_t i = 0; i < rows.size(); ++i) {
            const Property::Ptr &property = rows[i].first;
            QWidget *editor = rows[i].second;
            const char *kind = property->kindName();
            // Tab from the previous editor reaches this one before any later one.
            for (int presses = 0; presses < 8 && !inside(editor, focused()); ++presses) {
                QTest::keyClick(focused(), Qt::Key_Tab);
                for (size_t later = i + 1; later < rows.size(); ++later)
                    QVERIFY2(!inside(rows[later].second, focused()), kind);
            }
            QVERIFY2(inside(editor, focused()), kind);

            const QString before = property->toString();
            const int signals_ = f.changed.count();
            changeByKeys(focused());
            QVERIFY2(QTest::qWaitFor([&] { return property->toString() != before; }), kind);
            QVERIFY2(f.changed.count() > signals_, kind);
            QVERIFY2(!QApplication::activePopupWidget(), kind);
            QApplication::setActiveWindow(&f.window); // back from a popup, as a window manager does
            if (!inside(editor, focused())) // a popup's choice may leave the focus elsewhere
                editor->setFocus(Qt::TabFocusReason);

            // Every focusable part is named after the row.
            QList<QWidget *> parts = editor->findChildren<QWidget *>();
            parts << editor;
            for (QWidget *part : qAsConst(parts))
                if (part->focusPolicy() != Qt::NoFocus && part->isVisibleTo(&f.window)
                    && !qobject_cast<QAbstractItemView *>(part->parentWidget()))
                    QVERIFY2(!part->accessibleName().isEmpty(),
                        qPrintable(QStringLiteral("%1: %2").arg(kind, part->metaObject()->className())));
        }
    }

    void theWheelTurnsOnlyAFocusedField()
    {
        FactoryFixture f;
        QScrollArea area;
        auto *form = new QWidget;
        auto *layout = new QVBoxLayout(form);
        const TAutoPtr<StylesheetManager const> stylesheets(Sample::SampleSchema::makeStylesheets());
        f.factory.setStylesheetManager(stylesheets);
        auto *start = new QLineEdit(form);
        layout->addWidget(start);
        QComboBox *combo = nullptr;
        QSpinBox *spin = nullptr;
        for (const Property::Ptr &kind : Sample::SampleSchema::oneOfEachKind(stylesheets)) {
            QWidget *editor = f.factory.createEditor(kind->clone(), form, QString());
            layout->addWidget(editor);
            if (!combo && QByteArray(kind->kindName()) == "Brush")
                combo = f.find<QComboBox>(editor);
            if (!spin && QByteArray(kind->kindName()) == "Integer")
                spin = f.find<QSpinBox>(editor);
        }
        layout->addSpacing(2000);
        area.setWidget(form);
        area.resize(400, 300);
        area.show();
        QApplication::setActiveWindow(&area);
        start->setFocus();
        QVERIFY(combo && spin);
        // Whether the field took the wheel, rather than leaving it to its parent (Qt hands a
        // wheel event the receiver ignores on to the parent, which scrolls).
        auto wheel = [](QWidget *w) {
            const QPoint at = w->rect().center();
            QWheelEvent event(at, w->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                Qt::NoModifier, Qt::NoScrollPhase, false);
            event.ignore();
            QApplication::sendEvent(w, &event);
            return event.isAccepted();
        };
        const int row = combo->currentIndex();
        const int value = spin->value();
        QVERIFY(!wheel(combo));
        QVERIFY(!wheel(spin));
        QCOMPARE(combo->currentIndex(), row);
        QCOMPARE(spin->value(), value);
        QCOMPARE(f.changed.count(), 0);
        combo->setFocus();
        wheel(combo);
        QVERIFY(combo->currentIndex() != row);
        spin->setFocus();
        wheel(spin);
        QVERIFY(spin->value() != value);
    }

    void listCellsAreScaledOnce()
    {
        // At any density a list's first cells and the ones Add makes later have one size.
        FactoryFixture f;
        ListProperty::Ptr list(new ListProperty("tabs", "Tabs", new IntegerProperty("tab", "Tab", 0, 0, 99), 0, 9));
        list->insertProperty(0);
        QWidget *editor = f.make(list);
        QCOMPARE(editor->findChild<QSpinBox *>()->maximumWidth(), int(Device::scale(80)));
        QTest::mouseClick(editor->findChild<QToolButton *>("add"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QList<QSpinBox *> cells = editor->findChildren<QSpinBox *>();
        QCOMPARE(cells.size(), 2);
        QCOMPARE(cells.at(0)->maximumWidth(), int(Device::scale(80)));
        QCOMPARE(cells.at(1)->maximumWidth(), cells.at(0)->maximumWidth());
    }
};

TAVO_TEST(EditorKeyboardTest)
#include "EditorKeyboardTest.moc"
