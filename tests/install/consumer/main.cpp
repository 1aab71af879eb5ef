// A host built against the installed library: it makes and uses objects of each of the four
// libraries, and derives a QObject class of its own from one of them, so that the host's moc
// output links against the library's meta-objects.
#include "controls/Ta_UnitEdit.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/StringProperty.h"
#include "core/units/CParser.h"
#include "propertybrowser/QtAbstractPropertyManager.h"
#include "propertybrowser/QtProperty.h"
#include "style/Device.h"

#include <QApplication>
#include <cstdio>

class HostManager : public QtAbstractPropertyManager
{
    Q_OBJECT
public:
    int mInserted = 0;

signals:
    void hostSignal();

protected:
    void initializeProperty(QtProperty *) override { ++mInserted; }
};

static bool check(bool ok, const char *what)
{
    std::printf("consumer: %s %s\n", what, ok ? "ok" : "FAILED");
    return ok;
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    bool ok = true;

    // OmaLib
    CParser parser("10mm + 1cm");
    TAutoPtr<AOperand> sum = parser.Calc(CUnit(CUnit::MM));
    ok &= check(sum && sum->Value() == 20.0, "OmaLib");

    // TavoLibCore
    TavoLib::PropertyDictionary children;
    children.insertProperty(new TavoLib::IntegerProperty("columns", "Columns", 2, 1, 20));
    children.insertProperty(new TavoLib::StringProperty("title", "Title", "Hello"));
    TavoLib::GroupProperty::Ptr group(new TavoLib::GroupProperty("frame", children));
    TavoLib::Property::Ptr copy = group->clone();
    ok &= check(copy->toString() == group->toString() && group->size() == 2, "TavoLibCore");

    // TavoPropertyBrowser, through a host class with a meta-object of its own
    HostManager manager;
    int signalled = 0;
    QObject::connect(&manager, &QtAbstractPropertyManager::propertyInserted, [&] { ++signalled; });
    QObject::connect(&manager, &HostManager::hostSignal, [&] { ++signalled; });
    QtProperty *property = manager.addProperty("host");
    emit manager.hostSignal();
    QObject *asObject = &manager;
    ok &= check(property && manager.mInserted == 1 && signalled == 2
            && qobject_cast<QtAbstractPropertyManager *>(asObject) == &manager
            && manager.metaObject()->superClass() == &QtAbstractPropertyManager::staticMetaObject,
        "TavoPropertyBrowser");

    // TavoLibGui
    Ta_UnitEdit edit;
    edit.setUnit(Ta_UnitEdit::UnitMM);
    edit.setValue(UnitValue(12.5, CUnit(CUnit::MM)));
    bool read = false;
    ok &= check(edit.value(&read).get(CUnit(CUnit::MM)) == 12.5 && read
            && TavoLib::Device::scale(96.0) > 0.0,
        "TavoLibGui");

    return ok ? 0 : 1;
}

#include "main.moc"
