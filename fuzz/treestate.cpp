// Feeds arbitrary bytes to the reader of a tree browser's saved state, then to a browser's
// restoreState, with rows shown whose names the bytes may name. What must hold: no crash, no
// allocation beyond what the bytes back, a state read that writes back to bytes reading the
// same, a browser that still shows its rows, and a saved state that restores to itself.
#include "browser/TreeExpansionState_p.h"
#include "browser/TreePropertyBrowser.h"
#include "browser/ViewEditorFactory.h"
#include "browser/ViewPropertyManager.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"

#include <QApplication>
#include <cstdint>
#include <cstdlib>

using namespace TavoLib;

namespace {

struct Owner : PropertyableObject
{
    TAutoPtr<PropertyableObject> clone() const override { return new Owner; }
    void applyProperties(const PropertyDictionary &) override { }
    void fillProperties(PropertyDictionary &) const override { }
};

TreePropertyBrowser *gBrowser = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(*argc, *argv);
    gBrowser = new TreePropertyBrowser;
    auto *manager = new ViewPropertyManager(gBrowser, gBrowser);
    auto *factory = new ViewEditorFactory(gBrowser);
    gBrowser->addFactory(manager, factory);
    factory->addPropertyManager(manager);
    // Top-level groups named "a", "b" and "box", each with a child, as the states name them.
    PropertyDictionary rows;
    for (const char *name : { "a", "b", "box" }) {
        PropertyDictionary children;
        children.insertProperty(new IntegerProperty(QStringLiteral("n"), QStringLiteral("N"), 1, 0, 9));
        rows.insertProperty(new GroupProperty(QString::fromLatin1(name), QString::fromLatin1(name), children));
    }
    manager->addProperties(rows, new Owner);
    gBrowser->show();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    QMap<QString, bool> states;
    if (TreeExpansionState::read(bytes, &states)) {
        QMap<QString, bool> again;
        if (!TreeExpansionState::read(TreeExpansionState::write(states), &again) || again != states)
            std::abort();
    }
    gBrowser->restoreState(bytes);
    if (gBrowser->topLevelItems().size() != 3)
        std::abort();
    // What the browser now holds is a state it writes and reads back unchanged.
    const QByteArray saved = gBrowser->saveState();
    gBrowser->restoreState(saved);
    if (gBrowser->saveState() != saved)
        std::abort();
    for (QtBrowserItem *item : gBrowser->topLevelItems())
        gBrowser->setExpanded(item, true);
    return 0;
}
