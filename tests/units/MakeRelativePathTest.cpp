// Relative forms of search paths: within one root they always exist, across roots never.
#include "core/units/MakeRelativePath.h"
#include "TestRegistry.h"

#include <QTest>

class MakeRelativePathTest : public QObject
{
    Q_OBJECT
private slots:
    void relativeForms_data()
    {
        // A null expected text: there is no relative form, and the output stays untouched.
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("base");
        QTest::addColumn<QString>("expected");
        auto row = [](const char *name, const char *path, const char *base, const char *expected) {
            QTest::newRow(name) << QString(path) << QString(base) << QString(expected);
        };
        row("below", "/a/b/c.txt", "/a", "b/c.txt");
        row("beside", "/a/x", "/a/b/c", "../../x");
        row("same folder", "/a/b", "/a/b", ".");
        row("parent", "/a", "/a/b", "..");
        row("trailing slash", "/a/b/f", "/a/b/", "f");
        row("dots resolved", "/a/b/../c", "/a/./d", "../c");
        row("from root", "/etc/fonts", "/", "etc/fonts");
        row("case kept on posix", "/A/x", "/a", "../A/x");
        row("drive letters ignore case", "c:/X/y", "C:/x", "y");
        row("backslashes", "C:\\data\\fonts", "C:\\data\\images", "../fonts");
        row("same share", "//srv/share/a/b", "//SRV/share/a", "b");
        row("different drives", "C:/x/y", "D:/x", nullptr);
        row("drive and posix root", "C:/x", "/x", nullptr);
        row("different shares", "//srv/share/a", "//srv/other/a", nullptr);
        row("different servers", "//one/share", "//two/share", nullptr);
        row("relative path", "fonts/a", "/a", nullptr);
        row("relative base", "/a/b", "a", nullptr);
        row("drive-relative", "C:x", "C:/x", nullptr);
        row("empty path", "", "/a", nullptr);
        row("empty base", "/a", "", nullptr);
    }
    void relativeForms()
    {
        QFETCH(QString, path);
        QFETCH(QString, base);
        QFETCH(QString, expected);
        QString relative = QStringLiteral("untouched");
        QCOMPARE(MakeRelativePath(path, base, relative), !expected.isNull());
        QCOMPARE(relative, expected.isNull() ? QStringLiteral("untouched") : expected);
    }
};

TAVO_TEST(MakeRelativePathTest)
#include "MakeRelativePathTest.moc"
