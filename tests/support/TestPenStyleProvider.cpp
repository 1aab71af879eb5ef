#include "TestPenStyleProvider.h"

namespace TavoTest {

TestPenStyleProvider::TestPenStyleProvider(TestContents contents)
    : StandardPenStyleProvider(StandardPenStyleProvider::Empty)
{
    if (contents == Empty)
        return;
    addStyle(1, "Solid");
    addStyle(2, "Dash", { 4, 2 });
    addStyle(3, "Dot", { 1, 1 });
    addStyle(4, "Dash Dot", { 4, 2, 1, 2 });
    addAlias(20, 1);
}

TestPenStyleProvider::~TestPenStyleProvider() = default;

void TestPenStyleProvider::setNullPreview(short id, bool null)
{
    if (null)
        mNullPreviews.insert(id);
    else
        mNullPreviews.remove(id);
}

QPixmap TestPenStyleProvider::preview(short id, const QSize &size) const
{
    return mNullPreviews.contains(id) ? QPixmap() : StandardPenStyleProvider::preview(id, size);
}

} // namespace TavoTest
