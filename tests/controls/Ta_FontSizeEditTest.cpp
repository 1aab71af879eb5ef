// The font size field: sizes typed with "ch" are stored negative and shown as their absolute
// value with the suffix; limits apply to the absolute value.
#include "controls/Ta_FontSizeEdit.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

namespace {

UnitValue pt(double v)
{
    return UnitValue(v, CUnit(CUnit::PT));
}

// Translates the suffix, to show that reading and writing use the same word.
class SuffixTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (QByteArray(context) == "Ta_FontSizeEdit" && QByteArray(source) == "ch")
            return QStringLiteral("zl");
        return QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class Ta_FontSizeEditTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        mEdit.reset(new Ta_FontSizeEdit);
        mEdit->setUnit(Ta_UnitEdit::UnitPT);
        mEdit->setMinimum(1.0);
        mEdit->setMaximum(100.0);
        mEdit->clear();
    }

    void typedSuffixMakesTheSizeNegative()
    {
        QSignalSpy values(
            mEdit.get(), QOverload<const UnitValue &>::of(&Ta_UnitEdit::valueChanged));
        auto typed = [&](const QString &text) {
            mEdit->clear();
            QTest::keyClicks(mEdit.get(), text);
            return qvariant_cast<UnitValue>(values.last().at(0));
        };
        QCOMPARE(typed(QStringLiteral("12 ch")), pt(-12.0));
        QCOMPARE(typed(QStringLiteral("14.5CH  ")), pt(-14.5));
        QCOMPARE(typed(QStringLiteral("12")), pt(12.0));

        // The suffix alone leaves nothing for the parser: invalid.
        typed(QStringLiteral("ch"));
        bool ok = true;
        mEdit->value(&ok);
        QVERIFY(!ok);
    }

    void committedNegativeSizeIsShownWithTheSuffix()
    {
        QSignalSpy onComplete(mEdit.get(), &Ta_UnitEdit::valueOnComplete);
        QTest::keyClicks(mEdit.get(), QStringLiteral("9 ch"));
        QTest::keyClick(mEdit.get(), Qt::Key_Return);
        QCOMPARE(mEdit->text(), QStringLiteral("9pt ch"));
        QCOMPARE(qvariant_cast<UnitValue>(onComplete.last().at(0)), pt(-9.0));

        mEdit->setValue(pt(-24.0));
        QCOMPARE(mEdit->text(), QStringLiteral("24pt ch"));
        mEdit->setValue(pt(24.0));
        QCOMPARE(mEdit->text(), QStringLiteral("24pt"));
    }

    void limitsApplyToTheAbsoluteValue()
    {
        // A negative size is judged by its magnitude and comes back negative.
        QTest::keyClicks(mEdit.get(), QStringLiteral("150 ch"));
        QCOMPARE(mEdit->value(nullptr), pt(-100.0));
        QTest::keyClick(mEdit.get(), Qt::Key_Return);
        QCOMPARE(mEdit->text(), QStringLiteral("100pt ch"));

        // Required as it stands: limits are written back through modified(), so a positive
        // size above the maximum becomes the negative maximum ...
        mEdit->clear();
        QTest::keyClicks(mEdit.get(), QStringLiteral("150"));
        QCOMPARE(mEdit->value(nullptr), pt(-100.0));
        // ... and setValue shows a clamped positive size with the suffix.
        mEdit->setValue(pt(300.0));
        QCOMPARE(mEdit->text(), QStringLiteral("100pt ch"));
        // Inside the limits a positive size stays positive.
        mEdit->setValue(pt(50.0));
        QCOMPARE(mEdit->value(nullptr), pt(50.0));
    }

    void translatedSuffixIsReadAndWritten()
    {
        SuffixTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QTest::keyClicks(mEdit.get(), QStringLiteral("11 ZL"));
        QCOMPARE(mEdit->value(nullptr), pt(-11.0));
        mEdit->setValue(pt(-11.0));
        QCOMPARE(mEdit->text(), QStringLiteral("11pt zl"));
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(mEdit->unmodifiedText(QStringLiteral("11 zl")), QStringLiteral("11 zl"));
    }

private:
    std::unique_ptr<Ta_FontSizeEdit> mEdit;
};

TAVO_TEST(Ta_FontSizeEditTest)
#include "Ta_FontSizeEditTest.moc"
