#include "TestLineHeadStyleProvider.h"

namespace TavoTest {

TestLineHeadStyleProvider::TestLineHeadStyleProvider(TestContents contents)
    : StandardLineHeadStyleProvider(StandardLineHeadStyleProvider::Empty)
{
    if (contents == Empty)
        return;
    addStyle(1, "None", NoHead);
    addStyle(2, "Filled Arrow", FilledArrow);
    addStyle(3, "Open Arrow", OpenArrow);
    addStyle(4, "Circle", Circle);
    addAlias(20, 1);
}

TestLineHeadStyleProvider::~TestLineHeadStyleProvider() = default;

void TestLineHeadStyleProvider::setNullPreview(short id, bool null)
{
    if (null)
        mNullPreviews.insert(id);
    else
        mNullPreviews.remove(id);
}

QPixmap TestLineHeadStyleProvider::preview(short id, bool start, const QSize &size) const
{
    return mNullPreviews.contains(id) ? QPixmap()
                                      : StandardLineHeadStyleProvider::preview(id, start, size);
}

} // namespace TavoTest
