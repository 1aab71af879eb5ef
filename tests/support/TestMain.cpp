// The main of every test folder's executable: a QApplication on the offscreen platform,
// then the registered test classes.
#include "TestRegistry.h"

#include <QApplication>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return TavoTest::runRegistered(argc, argv);
}
