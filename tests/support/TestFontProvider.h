#pragma once

// An in-memory font provider with a fixed, machine-independent set of fonts, for tests that
// must not depend on what is installed. The standard set:
//   1-5   "Test Sans" Regular, Italic, Bold, Bold Italic, Light (TrueType; Latin, Greek,
//         Cyrillic); 1 is the default font
//   10-11 "Test Serif" Regular, Bold (OpenType; Latin, Vietnamese); emphasized
//   20    "Test Classic" Roman (Type 1; Latin)
//   30    "Test Naskh" Regular (TrueType; Arabic)
//   40    "Test Mincho" Regular (OpenType; Simplified Chinese, Japanese)
//   50    "Test Symbols" Regular (TrueType; symbol family)
//   60    "Test Plain" Regular (no known format, no writing system)
//   90    missing "Gone Sans Bold" of family "Gone Sans"; 91 missing "Lost Serif"
// fontList gives families in case-insensitive order and each family's fonts in the order they
// were added. Every change bumps hash().
#include "core/FontProviderQt.h"

#include <QFontDatabase>
#include <QSet>
#include <map>
#include <vector>

namespace TavoTest {

class TestFontProvider : public TavoLib::FontProviderQt
{
public:
    using Ptr = TAutoPtr<TestFontProvider>;

    enum Contents { Empty, StandardSet };

    explicit TestFontProvider(Contents contents = StandardSet);
    ~TestFontProvider() override;

    // Refused (false) for ids below 1 or already in use.
    bool addFont(short id, const QString &family, const QString &style, int type = TrueType,
        const QList<int> &writingSystems = { QFontDatabase::Latin }, int weight = QFont::Normal,
        bool italic = false);
    bool addMissingFont(short id, const QString &fontName, const QString &family = QString());
    void setSymbolFamily(const QString &family, bool symbol = true);
    void setEmphasized(short id, bool emphasized = true);
    void setExampleText(short id, const QString &text);
    void setDefaultFont(short id);
    bool removeFont(short id);
    void clear();

    QString fontName(short id) const override;
    QString familyName(short id) const override;
    QString styleName(short id) const override;
    bool isMissing(short id) const override;
    short defaultFont() const override;
    int hash() const override;
    QString exampleText(short id) const override;
    bool isEmphasized(short id) const override;
    QFont qFont(short id, double pixelSize) const override;
    std::list<short> fontsOfFamily(const QString &family) const override;
    bool isSymbolFamily(const QString &family) const override;
    int fontType(short id) const override;
    std::list<short> fontList(bool availableOnly) const override;

protected:
    QList<BaseWritingSystem> writingSystems(short id) const override;

private:
    struct Font
    {
        QString family;
        QString style;
        QString fontName;
        QString example;
        int type = TrueType;
        QList<int> writingSystems;
        int weight = QFont::Normal;
        bool italic = false;
        bool missing = false;
        bool emphasized = false;
    };
    const Font *font(short id) const;

    std::map<short, Font> mFonts;
    std::vector<short> mAdded;
    QSet<QString> mSymbolFamilies;
    short mDefault = -1;
    int mHash = 1;
};

} // namespace TavoTest
