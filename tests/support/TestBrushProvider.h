#pragma once

// A small fixed brush palette for tests: 1 "Black", 2 "White", 3 "Red" (display "Red"),
// 4 "Cyan", 5 "Registration", 10 "Linear Grey" (linear gradient), 11 "Radial Red" (radial
// gradient); id 50 is an alias of 3. Start Empty and use addBrush/addColor/addAlias for more.
#include "core/StandardBrushProvider.h"

namespace TavoTest {

class TestBrushProvider : public TavoLib::StandardBrushProvider
{
public:
    using Ptr = TAutoPtr<TestBrushProvider>;

    enum TestContents { Empty, StandardSet };

    explicit TestBrushProvider(TestContents contents = StandardSet);
    ~TestBrushProvider() override;
};

} // namespace TavoTest
