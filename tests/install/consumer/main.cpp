// A host built against the installed library: it builds a small object description and
// checks what the model gives back.
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/StringProperty.h"

#include <QApplication>
#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    TavoLib::PropertyDictionary children;
    children.insertProperty(new TavoLib::IntegerProperty("columns", "Columns", 2, 1, 20));
    children.insertProperty(new TavoLib::StringProperty("title", "Title", "Hello"));
    TavoLib::GroupProperty::Ptr group(new TavoLib::GroupProperty("frame", children));
    TavoLib::Property::Ptr copy = group->clone();
    const bool ok = copy->toString() == group->toString() && group->size() == 2;
    std::printf("consumer: %s\n", ok ? "ok" : "mismatch");
    return ok ? 0 : 1;
}
