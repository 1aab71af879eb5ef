#include "TestEnvironment.h"

namespace TavoTest {

using namespace TavoLib;

TestEnvironment::TestEnvironment(Stylesheets stylesheets)
    : mFonts(new TestFontProvider),
      mBrushes(new TestBrushProvider),
      mPens(new TestPenStyleProvider),
      mLineHeads(new TestLineHeadStyleProvider)
{
    setFontProvider(mFonts);
    setBrushProvider(mBrushes);
    setPenStyleProvider(mPens);
    setLineHeadStyleProvider(mLineHeads);
    if (stylesheets == NoStylesheets)
        return;

    TAutoPtr<StylesheetManager> manager = stylesheetManager();
    const QString paragraph = QStringLiteral("Paragraph");
    TAutoPtr<Stylesheet const> body = new Stylesheet(paragraph, "Body");
    TAutoPtr<Stylesheet const> heading1
        = new Stylesheet(paragraph, "Heading 1", "Heading One", body);
    manager->addStylesheet(body);
    manager->addStylesheet(heading1);
    manager->addStylesheet(new Stylesheet(paragraph, "Heading 2", QString(), heading1));
    manager->addStylesheet(new Stylesheet(paragraph, "Caption", QString(), body));

    const QString character = QStringLiteral("Character");
    TAutoPtr<Stylesheet const> emphasis = new Stylesheet(character, "Emphasis");
    manager->addStylesheet(emphasis);
    manager->addStylesheet(new Stylesheet(character, "Strong", "Strong Emphasis", emphasis));

    const QString frame = QStringLiteral("Frame");
    TAutoPtr<Stylesheet const> defaultFrame = new Stylesheet(frame, "Default Frame");
    manager->addStylesheet(defaultFrame);
    manager->addStylesheet(new Stylesheet(frame, "Sidebar", QString(), defaultFrame));
}

TestEnvironment::~TestEnvironment() = default;

} // namespace TavoTest
