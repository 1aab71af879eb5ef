#pragma once

// A small fixed set of line heads for tests: 1 "None", 2 "Filled Arrow", 3 "Open Arrow",
// 4 "Circle"; id 20 is an alias of 1. setNullPreview makes a style give a null preview.
#include "core/StandardLineHeadStyleProvider.h"

#include <QSet>

namespace TavoTest {

class TestLineHeadStyleProvider : public TavoLib::StandardLineHeadStyleProvider
{
public:
    using Ptr = TAutoPtr<TestLineHeadStyleProvider>;

    enum TestContents { Empty, StandardSet };

    explicit TestLineHeadStyleProvider(TestContents contents = StandardSet);
    ~TestLineHeadStyleProvider() override;

    void setNullPreview(short id, bool null = true);
    QPixmap preview(short id, bool start, const QSize &size) const override;

private:
    QSet<short> mNullPreviews;
};

} // namespace TavoTest
