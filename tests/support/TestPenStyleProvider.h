#pragma once

// A small fixed set of pen styles for tests: 1 "Solid", 2 "Dash", 3 "Dot", 4 "Dash Dot"; id 20
// is an alias of 1. setNullPreview makes a style give a null preview, as a broken host
// provider might.
#include "core/StandardPenStyleProvider.h"

#include <QSet>

namespace TavoTest {

class TestPenStyleProvider : public TavoLib::StandardPenStyleProvider
{
public:
    using Ptr = TAutoPtr<TestPenStyleProvider>;

    enum TestContents { Empty, StandardSet };

    explicit TestPenStyleProvider(TestContents contents = StandardSet);
    ~TestPenStyleProvider() override;

    void setNullPreview(short id, bool null = true);
    QPixmap preview(short id, const QSize &size) const override;

private:
    QSet<short> mNullPreviews;
};

} // namespace TavoTest
