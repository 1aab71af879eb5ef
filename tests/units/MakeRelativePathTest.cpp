// Relative forms of search paths: within one root they always exist, across roots never.
#include "core/units/MakeRelativePath.h"
#include "TestRegistry.h"
#include "core/units/SearchPath.h"

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
        QTest::newRow("below") << "/a/b/c.txt"
                               << "/a"
                               << "b/c.txt";
        QTest::newRow("beside") << "/a/x"
                                << "/a/b/c"
                                << "../../x";
        QTest::newRow("same folder") << "/a/b"
                                     << "/a/b"
                                     << ".";
        QTest::newRow("parent") << "/a"
                                << "/a/b"
                                << "..";
        QTest::newRow("trailing slash") << "/a/b/f"
                                        << "/a/b/"
                                        << "f";
        QTest::newRow("dots resolved") << "/a/b/../c"
                                       << "/a/./d"
                                       << "../c";
        QTest::newRow("from root") << "/etc/fonts"
                                   << "/"
                                   << "etc/fonts";
        QTest::newRow("case kept on posix") << "/A/x"
                                            << "/a"
                                            << "../A/x";
        QTest::newRow("drive letters ignore case") << "c:/X/y"
                                                   << "C:/x"
                                                   << "y";
        QTest::newRow("backslashes") << "C:\\data\\fonts"
                                     << "C:\\data\\images"
                                     << "../fonts";
        QTest::newRow("same share") << "//srv/share/a/b"
                                    << "//SRV/share/a"
                                    << "b";
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
        QTest::newRow("different drives") << "C:/x/y"
                                          << "D:/x";
        QTest::newRow("drive and posix root") << "C:/x"
                                              << "/x";
        QTest::newRow("different shares") << "//srv/share/a"
                                          << "//srv/other/a";
        QTest::newRow("different servers") << "//one/share"
                                           << "//two/share";
        QTest::newRow("relative path") << "fonts/a"
                                       << "/a";
        QTest::newRow("relative base") << "/a/b"
                                       << "a";
        QTest::newRow("drive-relative") << "C:x"
                                        << "C:/x";
        QTest::newRow("empty path") << ""
                                    << "/a";
        QTest::newRow("empty base") << "/a"
                                    << "";
    }
    void noRelativeForm()
    {
        QFETCH(QString, path);
        QFETCH(QString, base);
        QString relative = QStringLiteral("untouched");
        QVERIFY(!MakeRelativePath(path, base, relative));
        QCOMPARE(relative, QStringLiteral("untouched"));
    }

    void searchPathRecord()
    {
        OmaLib::SearchPath empty;
        QVERIFY(empty.path.isEmpty());
        QVERIFY(!empty.relative);
        QVERIFY(!empty.subfolder);
        OmaLib::SearchPath entry;
        entry.path = QStringLiteral("fonts");
        entry.relative = true;
        entry.subfolder = true;
        OmaLib::SearchPath copy(entry);
        empty = entry;
        QCOMPARE(copy.path, entry.path);
        QVERIFY(copy.relative && copy.subfolder && empty.relative && empty.subfolder);
    }
};

TAVO_TEST(MakeRelativePathTest)
#include "MakeRelativePathTest.moc"
