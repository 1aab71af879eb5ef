#include "TestRegistry.h"

#include <QApplication>
#include <QByteArray>
#include <QList>
#include <QTest>
#include <memory>

namespace TavoTest {

std::vector<Registration> &registry()
{
    static std::vector<Registration> all;
    return all;
}

int runRegistered(int argc, char **argv)
{
    const QList<QByteArray> wanted = qgetenv("TAVO_TEST_CLASS").split(',');
    const bool all = qEnvironmentVariableIsEmpty("TAVO_TEST_CLASS");
    int failed = 0;
    int ran = 0;
    for (const Registration &r : registry()) {
        if (!all && !wanted.contains(QByteArray(r.name)))
            continue;
        std::unique_ptr<QObject> test(r.make());
        failed += QTest::qExec(test.get(), argc, argv) != 0 ? 1 : 0;
        ++ran;
    }
    if (ran == 0) {
        qWarning("no test class matched TAVO_TEST_CLASS=%s", qgetenv("TAVO_TEST_CLASS").constData());
        return 1;
    }
    return failed;
}

} // namespace TavoTest
