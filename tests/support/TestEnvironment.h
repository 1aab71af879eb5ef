#pragma once

// An Environment over the deterministic test providers, with a few stylesheets:
//   "Paragraph": "Body", "Heading 1" (parent Body, shown "Heading One"), "Heading 2" (parent
//                Heading 1), "Caption" (parent Body)
//   "Character": "Emphasis", "Strong" (shown "Strong Emphasis", parent Emphasis)
//   "Frame":     "Default Frame", "Sidebar" (parent Default Frame)
// The stylesheets carry no attributes; tests add what they need. The typed accessors give
// the test providers for further set-up.
#include "TestBrushProvider.h"
#include "TestFontProvider.h"
#include "TestLineHeadStyleProvider.h"
#include "TestPenStyleProvider.h"

#include "core/Environment.h"

namespace TavoTest {

class TestEnvironment : public TavoLib::Environment
{
public:
    using Ptr = TAutoPtr<TestEnvironment>;

    enum Stylesheets { NoStylesheets, SampleStylesheets };

    explicit TestEnvironment(Stylesheets stylesheets = SampleStylesheets);
    ~TestEnvironment() override;

    TAutoPtr<TestFontProvider> testFontProvider() const { return mFonts; }
    TAutoPtr<TestBrushProvider> testBrushProvider() const { return mBrushes; }
    TAutoPtr<TestPenStyleProvider> testPenStyleProvider() const { return mPens; }
    TAutoPtr<TestLineHeadStyleProvider> testLineHeadStyleProvider() const { return mLineHeads; }

private:
    TAutoPtr<TestFontProvider> mFonts;
    TAutoPtr<TestBrushProvider> mBrushes;
    TAutoPtr<TestPenStyleProvider> mPens;
    TAutoPtr<TestLineHeadStyleProvider> mLineHeads;
};

} // namespace TavoTest
