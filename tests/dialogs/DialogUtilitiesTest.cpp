// Remembered dialog places and splitters in a temporary settings home, the fitting of
// rectangles onto the screen, and the codec offer.
#include "TestRegistry.h"

#include "dialogs/DialogBase.h"
#include "dialogs/DialogUtilities.h"
#include "dialogs/Ta_WidgetGeometry.h"

#include <QComboBox>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

using TavoLib::DialogUtilities;

namespace {

class SplitDialog : public TavoLib::DialogBase
{
    Q_OBJECT
public:
    SplitDialog()
    {
        auto *layout = new QVBoxLayout(this);
        splitter = new QSplitter(this);
        splitter->setObjectName("main");
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        layout->addWidget(splitter);
        resize(400, 300);
    }
    QSplitter *splitter;
};

QSettings settings()
{
    return QSettings(QStringLiteral("Tavo"), QStringLiteral("TavoApp"));
}

} // namespace

class DialogUtilitiesTest : public QObject
{
    Q_OBJECT
    QTemporaryDir mHome;

private slots:
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mHome.path()); }
    void init() { settings().clear(); }

    void storeAndRestoreUnderTheClassName()
    {
        SplitDialog dialog;
        QVERIFY(!DialogUtilities::restoreGeometry(dialog, QString()));
        dialog.setGeometry(50, 60, 420, 310);
        dialog.show();
        dialog.splitter->setSizes({ 100, 300 });
        const QList<int> sizes = dialog.splitter->sizes();
        DialogUtilities::storeGeometry(dialog, QString());
        QVERIFY(settings().contains("Dialogs/SplitDialog/Geometry"));

        SplitDialog again;
        again.show();
        QVERIFY(DialogUtilities::restoreGeometry(again, QString()));
        QCOMPARE(again.geometry(), QRect(50, 60, 420, 310));
        QCOMPARE(again.splitter->sizes(), sizes);

        // A renamed splitter keeps its own sizes.
        SplitDialog renamed;
        renamed.splitter->setObjectName("other");
        renamed.setGeometry(50, 60, 420, 310);
        renamed.show();
        const QList<int> own = renamed.splitter->sizes();
        QVERIFY(DialogUtilities::restoreGeometry(renamed, QString()));
        QCOMPARE(renamed.splitter->sizes(), own);
    }

    void rectanglesOffTheScreenAreCentred()
    {
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        QSettings s = settings();
        s.setValue("Dialogs/k/Geometry", QRect(-20, 30, 400, 300));
        QDialog dialog;
        QVERIFY(DialogUtilities::restoreGeometry(dialog, "k"));
        QCOMPARE(dialog.geometry(), QRect((available.width() - 400) / 2 + available.left(),
                                          (available.height() - 300) / 2 + available.top(), 400, 300));

        // On the screen, larger than the screen: kept as it is.
        const QRect huge(10, 10, available.width() + 500, available.height() + 500);
        QCOMPARE(Ta_WidgetGeometry(-1).ValidateWindowGeometry(huge, QSize(1, 1), QPoint(), true, true), huge);
        // The fallback counts from the right and bottom when asked.
        QCOMPARE(Ta_WidgetGeometry(-1).ValidateWindowGeometry(QRect(), QSize(100, 50), QPoint(10, 20), false, false),
                 QRect(available.right() - 10 - 100, available.bottom() - 20 - 50, 100, 50));
        QCOMPARE(DialogUtilities::validateGeometry(QRect(-50, 5, 100, 100), QSize(), QPoint(), true, true),
                 QRect(-50, 5, 100, 100)); // its top right lies on the screen
    }

    void garbageRecordsGiveDefaults()
    {
        QSettings s = settings();
        s.setValue("Dialogs/SplitDialog/Geometry", QStringLiteral("not a rectangle"));
        s.setValue(
            "Dialogs/SplitDialog/Splitter", QVariantMap { { "main", QVariantList { "a" } } });
        SplitDialog dialog;
        dialog.show();
        const QRect before = dialog.geometry();
        const QList<int> sizes = dialog.splitter->sizes();
        // Nothing of the record could be used: false, so that the host places the dialog.
        QVERIFY(!DialogUtilities::restoreGeometry(dialog, QString()));
        QCOMPARE(dialog.geometry(), before);
        QCOMPARE(dialog.splitter->sizes(), sizes); // one size for two panes would squeeze one
        s.setValue("Dialogs/SplitDialog/Splitter", QStringLiteral("sizes"));
        s.setValue("Dialogs/SplitDialog/Geometry", QRect(0, 0, 1 << 30, 5));
        QVERIFY(!DialogUtilities::restoreGeometry(dialog, QString()));
        QCOMPARE(dialog.splitter->sizes(), sizes);
        // Edges whose distance does not fit an int (found by fuzzing): no overflow, a valid window.
        s.setValue("Dialogs/SplitDialog/Geometry",
            QRect(QPoint(-2147483639, 10), QPoint(2147483000, 20)));
        QVERIFY(!DialogUtilities::restoreGeometry(dialog, QString()));
        QVERIFY(dialog.geometry().isValid());
    }

    // decided: a splitter that lost a pane since keeps the sizes of the panes it still has.
    void longerSplitterListsAreApplied()
    {
        QSettings s = settings();
        s.setValue("Dialogs/SplitDialog/Geometry", QStringLiteral("not a rectangle"));
        s.setValue("Dialogs/SplitDialog/Splitter",
            QVariantMap { { "main", QVariantList { 120, 250, 7, 1e12 } } });
        SplitDialog dialog;
        dialog.show();
        SplitDialog twin;
        twin.show();
        twin.splitter->setSizes({ 120, 250 });
        QVERIFY(dialog.splitter->sizes() != twin.splitter->sizes());
        QVERIFY(DialogUtilities::restoreGeometry(dialog, QString())); // the splitter was applied
        QCOMPARE(dialog.splitter->sizes(), twin.splitter->sizes());
    }

    void codecs()
    {
        QComboBox combo;
        DialogUtilities::initCodecs(&combo);
        QCOMPARE(combo.count(), 44);
        QCOMPARE(combo.itemText(0), QString("None"));
        DialogUtilities::setCurrentCodec(&combo, "ISO8859-1");
        QCOMPARE(combo.currentText(), QString("Latin1"));
        combo.setCurrentIndex(combo.findText("ISO8859-1 - Western"));
        QCOMPARE(DialogUtilities::currentCodec(&combo), QString("ISO8859-1"));
        DialogUtilities::setCurrentCodec(&combo, "UTF-16"); // names compare exactly
        QCOMPARE(combo.currentIndex(), 0);
        QCOMPARE(DialogUtilities::currentCodec(&combo), QString());
        DialogUtilities::setCurrentCodec(&combo, "TIS-620");
        QCOMPARE(combo.currentIndex(), 43);
    }
};

TAVO_TEST(DialogUtilitiesTest)
#include "DialogUtilitiesTest.moc"
