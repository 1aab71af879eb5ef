#include "TestRegistry.h"
#include "core/Property.h"
#include <QTest>
class TAutoPtrTest : public QObject
{
    Q_OBJECT
private slots:
    void placeholder() { QVERIFY(true); }
};
TAVO_TEST(TAutoPtrTest)
#include "TAutoPtrTest.moc"
