// Feeds arbitrary bytes to the sample document's JSON reader. What must hold for any text: no
// crash, and a document that loads is one whose saved form loads again and saves the same.
#include "sample/SampleDocument.h"

#include <QCoreApplication>
#include <cstdint>
#include <cstdlib>

// Full stacks for allocations, so that the suppression of Qt's own JSON parser leak (see
// tests/lsan.supp) sees the parser's frame.
extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    Sample::SampleDocument::Ptr doc = Sample::SampleDocument::load(bytes);
    if (!doc)
        return 0;
    const QByteArray saved = doc->save();
    Sample::SampleDocument::Ptr again = Sample::SampleDocument::load(saved);
    if (!again || again->save() != saved)
        std::abort();
    return 0;
}
