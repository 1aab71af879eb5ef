#pragma once

// Test classes register themselves with TAVO_TEST(Class); one main per test folder runs the
// classes named in TAVO_TEST_CLASS (comma-separated), or all of them when it is unset.
#include <QObject>
#include <functional>
#include <vector>

namespace TavoTest {

struct Registration
{
    const char *name;
    std::function<QObject *()> make;
};

std::vector<Registration> &registry();

struct Registrar
{
    Registrar(const char *name, std::function<QObject *()> make)
    {
        registry().push_back({ name, std::move(make) });
    }
};

// Runs the selected classes with QTest::qExec; returns the number of failed classes.
int runRegistered(int argc, char **argv);

} // namespace TavoTest

#define TAVO_TEST(Class)                                                                          \
    static TavoTest::Registrar tavoTestRegistrar_##Class(#Class, [] { return new Class; });
