// The short-text editor and the expression highlighter: the maximum holds for typing, pasting
// and rich text; a commit comes once per change when the user leaves; errors are marked where
// the parser stops.
#include "widgets/Ta_SyntaxHighlighter.h"
#include "widgets/Ta_TextEdit.h"
#include "TestRegistry.h"
#include "core/units/CParser.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

class Ta_TextEditTest : public QObject
{
    Q_OBJECT
private slots:
    void maximumRefusesTypingAndCutsPastes()
    {
        Ta_TextEdit edit;
        edit.setMaxLength(5);
        edit.show();
        QTest::keyClicks(&edit, "abcdefg");
        QCOMPARE(edit.text(), QString("abcde"));

        // Rich text on the clipboard arrives as its plain text, cut to the room left.
        edit.setText("ab");
        edit.moveCursor(QTextCursor::End);
        auto *data = new QMimeData;
        data->setHtml("<b>bold</b><img src=x>");
        data->setText("XYZW");
        QApplication::clipboard()->setMimeData(data);
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(edit.text(), QString("abXYZ"));
        QVERIFY(!edit.document()->toHtml().contains("<b>"));

        // Replacing a selection makes room; an over-long text from the host is cut.
        edit.selectAll();
        QTest::keyClicks(&edit, "12345");
        QCOMPARE(edit.text(), QString("12345"));
        edit.setText("far too long");
        QCOMPARE(edit.text(), QString("far t"));
        edit.setMaxLength(3);
        QCOMPARE(edit.text(), QString("far"));
        // Undo and input methods bring text by other roads; the maximum holds there too.
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY2(edit.text().length() <= 3, qPrintable(edit.text()));
        QInputMethodEvent ime;
        ime.setCommitString("xyz");
        edit.moveCursor(QTextCursor::End);
        QApplication::sendEvent(&edit, &ime);
        QVERIFY2(edit.text().length() <= 3, qPrintable(edit.text()));
        QVERIFY(edit.text().startsWith("fa"));
        // Data with no text at all is nothing to paste.
        auto *image = new QMimeData;
        image->setImageData(QImage(4, 4, QImage::Format_RGB32));
        QApplication::clipboard()->setMimeData(image);
        edit.setText("");
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(edit.text(), QString());
    }

    void commitsOncePerChangeWhenLeft()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *edit = new Ta_TextEdit;
        auto *next = new QLineEdit;
        layout->addWidget(edit);
        layout->addWidget(next);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSignalSpy committed(edit, &Ta_TextEdit::editingFinished);

        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_Tab); // leaving unchanged: nothing to commit
        QVERIFY(next->hasFocus());
        QCOMPARE(committed.count(), 0);

        edit->setFocus();
        QTest::keyClicks(edit, "note");
        QTest::keyClick(edit, Qt::Key_Tab); // Tab leaves the field, it types no tab
        QVERIFY(next->hasFocus());
        QCOMPARE(committed.count(), 1);
        QCOMPARE(edit->text(), QString("note"));

        edit->setFocus();
        QTest::keyClicks(edit, "s");
        QTest::keyClick(edit, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(committed.count(), 2);
        QCOMPARE(edit->text(), QString("notes"));
        QTest::keyClick(edit, Qt::Key_Tab);
        QCOMPARE(committed.count(), 2);

        // The host's text is committed already.
        edit->setText("other");
        edit->commit();
        QCOMPARE(committed.count(), 2);
    }

    void errorsAreMarkedWhereTheParserStops()
    {
        const CUnit mm(CUnit::MM);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("10mm + 2pt", mm), -1);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("(1/3 + 2/3) * 5 cm", mm), -1);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("-,5", mm), -1);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("", mm), -1);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("10 xy", mm), 3); // unknown symbol
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("10 %", mm), 3); // another unit class
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("1 + ", mm), 2); // cut short
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("(1 + 2", mm), 5); // never closed
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("1) + 2", mm), 1);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("2 $ 3", mm), 2);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("1 2", mm), 2);
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition("1/0", mm), 2); // only evaluation finds it
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition(QString(300, '(') + "1", mm),
            CParser::kMaxDepth);
        // Whatever the grammar lets through, the parser agrees.
        for (const char *text : { "5", "1,5 cm * 2", "((2))", "3 pt - -1" })
            QCOMPARE(Ta_SyntaxHighlighter::errorPosition(text, mm), -1);
    }

    void highlightsTheTypedExpression()
    {
        Ta_TextEdit edit;
        auto *highlighter = new Ta_SyntaxHighlighter(edit.document());
        edit.show();
        QTest::keyClicks(&edit, "2 cm + 3 qq");
        const QVector<QTextLayout::FormatRange> ranges
            = edit.document()->firstBlock().layout()->formats();
        auto roleAt = [&](int position) {
            QTextCharFormat merged;
            for (const QTextLayout::FormatRange &range : ranges)
                if (position >= range.start && position < range.start + range.length)
                    merged.merge(range.format);
            return merged;
        };
        QCOMPARE(roleAt(0).foreground(), highlighter->roleFormat(Ta_SyntaxHighlighter::Number).foreground());
        QCOMPARE(roleAt(2).foreground(), highlighter->roleFormat(Ta_SyntaxHighlighter::Unit).foreground());
        QCOMPARE(roleAt(9).underlineStyle(), QTextCharFormat::WaveUnderline);
        QVERIFY(roleAt(0).underlineStyle() != QTextCharFormat::WaveUnderline);
        // Another unit class makes the centimetres the error.
        highlighter->setUnit(CUnit(CUnit::Percent));
        QCOMPARE(Ta_SyntaxHighlighter::errorPosition(edit.text(), highlighter->unit()), 2);
    }
};

TAVO_TEST(Ta_TextEditTest)
#include "Ta_TextEditTest.moc"
