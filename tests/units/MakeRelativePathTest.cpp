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
    }
    void relativeForms()
    {
        QFETCH(QString, path);
        QFETCH(QString, base);
        QFETCH(QString, expected);
        QString relative;
        QVERIFY(MakeRelativePath(path, base, relative));
        QCOMPARE(relative, expected);
    }

    void noRelativeForm_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("base");
        auto row = [](const char *name, const char *path, const char *base) {
            QTest::newRow(name) << QString(path) << QString(base);
        };
        row("different drives", "C:/x/y", "D:/x");
        row("drive and posix root", "C:/x", "/x");
        row("different shares", "//srv/share/a", "//srv/other/a");
        row("different servers", "//one/share", "//two/share");
        row("relative path", "fonts/a", "/a");
        row("relative base", "/a/b", "a");
        row("drive-relative", "C:x", "C:/x");
        row("empty path", "", "/a");
        row("empty base", "/a", "");
    }
    void noRelativeForm()
    {
        QFETCH(QString, path);
        QFETCH(QString, base);
        QString relative = QStringLiteral("untouched");
        QVERIFY(!MakeRelativePath(path, base, relative));
        QCOMPARE(relative, QStringLiteral("untouched"));
    }
};

TAVO_TEST(MakeRelativePathTest)
#include "MakeRelativePathTest.moc"
