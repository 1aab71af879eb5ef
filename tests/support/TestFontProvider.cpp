#include "TestFontProvider.h"

#include <algorithm>

namespace TavoTest {

TestFontProvider::TestFontProvider(Contents contents)
{
    if (contents == Empty)
        return;
    const QList<int> european
        = { QFontDatabase::Latin, QFontDatabase::Greek, QFontDatabase::Cyrillic };
    addFont(1, "Test Sans", "Regular", TrueType, european);
    addFont(2, "Test Sans", "Italic", TrueType, european, QFont::Normal, true);
    addFont(3, "Test Sans", "Bold", TrueType, european, QFont::Bold);
    addFont(4, "Test Sans", "Bold Italic", TrueType, european, QFont::Bold, true);
    addFont(5, "Test Sans", "Light", TrueType, european, QFont::Light);
    addFont(
        10, "Test Serif", "Regular", OpenType, { QFontDatabase::Latin, QFontDatabase::Vietnamese });
    addFont(11, "Test Serif", "Bold", OpenType, { QFontDatabase::Latin }, QFont::Bold);
    addFont(20, "Test Classic", "Roman", Type1, { QFontDatabase::Latin });
    addFont(30, "Test Naskh", "Regular", TrueType, { QFontDatabase::Arabic });
    addFont(40, "Test Mincho", "Regular", OpenType,
        { QFontDatabase::Japanese, QFontDatabase::SimplifiedChinese });
    addFont(50, "Test Symbols", "Regular", TrueType, {});
    addFont(60, "Test Plain", "Regular", OtherType, {});
    setSymbolFamily("Test Symbols");
    setExampleText(50, QString::fromUtf8("\u2605\u2660\u2663\u2665\u2666"));
    setEmphasized(10);
    setEmphasized(11);
    addMissingFont(90, "Gone Sans Bold", "Gone Sans");
    addMissingFont(91, "Lost Serif");
    setDefaultFont(1);
}

TestFontProvider::~TestFontProvider() = default;

bool TestFontProvider::addFont(short id, const QString &family, const QString &style, int type,
    const QList<int> &writingSystems, int weight, bool italic)
{
    if (id < 1 || mFonts.count(id))
        return false;
    Font f;
    f.family = family;
    f.style = style;
    f.fontName = family + QLatin1Char(' ') + style;
    f.type = type;
    f.writingSystems = writingSystems;
    f.weight = weight;
    f.italic = italic;
    mFonts[id] = f;
    mAdded.push_back(id);
    ++mHash;
    return true;
}

bool TestFontProvider::addMissingFont(short id, const QString &fontName, const QString &family)
{
    if (id < 1 || mFonts.count(id))
        return false;
    Font f;
    f.family = family.isEmpty() ? fontName : family;
    f.fontName = fontName;
    f.missing = true;
    f.type = -1;
    mFonts[id] = f;
    mAdded.push_back(id);
    ++mHash;
    return true;
}

void TestFontProvider::setSymbolFamily(const QString &family, bool symbol)
{
    if (symbol)
        mSymbolFamilies.insert(family);
    else
        mSymbolFamilies.remove(family);
    ++mHash;
}

void TestFontProvider::setEmphasized(short id, bool emphasized)
{
    auto it = mFonts.find(id);
    if (it != mFonts.end())
        it->second.emphasized = emphasized;
}

void TestFontProvider::setExampleText(short id, const QString &text)
{
    auto it = mFonts.find(id);
    if (it != mFonts.end())
        it->second.example = text;
}

void TestFontProvider::setDefaultFont(short id)
{
    mDefault = mFonts.count(id) ? id : -1;
}

bool TestFontProvider::removeFont(short id)
{
    if (!mFonts.erase(id))
        return false;
    mAdded.erase(std::remove(mAdded.begin(), mAdded.end(), id), mAdded.end());
    if (mDefault == id)
        mDefault = -1;
    ++mHash;
    return true;
}

void TestFontProvider::clear()
{
    mFonts.clear();
    mAdded.clear();
    mSymbolFamilies.clear();
    mDefault = -1;
    ++mHash;
}

const TestFontProvider::Font *TestFontProvider::font(short id) const
{
    if (id == 0)
        id = mDefault;
    const auto it = mFonts.find(id);
    return it == mFonts.end() ? nullptr : &it->second;
}

QString TestFontProvider::fontName(short id) const
{
    const Font *f = font(id);
    return f ? f->fontName : QString();
}

QString TestFontProvider::familyName(short id) const
{
    const Font *f = font(id);
    return f ? f->family : QString();
}

QString TestFontProvider::styleName(short id) const
{
    const Font *f = font(id);
    return f ? f->style : QString();
}

bool TestFontProvider::isMissing(short id) const
{
    const Font *f = font(id);
    return f && f->missing;
}

short TestFontProvider::defaultFont() const
{
    return mDefault;
}

int TestFontProvider::hash() const
{
    return mHash;
}

QString TestFontProvider::exampleText(short id) const
{
    const Font *f = font(id);
    if (!f || f->missing)
        return QString();
    if (!f->example.isEmpty())
        return f->example;
    const QList<BaseWritingSystem> systems = baseWritingSystems(id);
    return systems.isEmpty() ? QStringLiteral("Abc") : sampleText(systems.first());
}

bool TestFontProvider::isEmphasized(short id) const
{
    const Font *f = font(id);
    return f && f->emphasized;
}

QFont TestFontProvider::qFont(short id, double pixelSize) const
{
    QFont result;
    const Font *f = font(id);
    if (f && !f->missing) {
        result.setFamily(f->family);
        result.setWeight(QFont::Weight(f->weight));
        result.setItalic(f->italic);
    }
    if (pixelSize > 0 && pixelSize < 32768)
        result.setPixelSize(std::max(1, qRound(pixelSize)));
    return result;
}

std::list<short> TestFontProvider::fontsOfFamily(const QString &family) const
{
    std::list<short> result;
    for (short id : mAdded) {
        const Font &f = mFonts.at(id);
        if (!f.missing && f.family == family)
            result.push_back(id);
    }
    return result;
}

bool TestFontProvider::isSymbolFamily(const QString &family) const
{
    return mSymbolFamilies.contains(family);
}

int TestFontProvider::fontType(short id) const
{
    const Font *f = font(id);
    return f && !f->missing ? f->type : -1;
}

std::list<short> TestFontProvider::fontList(bool availableOnly) const
{
    std::vector<short> ids;
    for (short id : mAdded) {
        if (!availableOnly || !mFonts.at(id).missing)
            ids.push_back(id);
    }
    std::stable_sort(ids.begin(), ids.end(), [this](short a, short b) {
        return mFonts.at(a).family.compare(mFonts.at(b).family, Qt::CaseInsensitive) < 0;
    });
    return std::list<short>(ids.begin(), ids.end());
}

QList<TestFontProvider::BaseWritingSystem> TestFontProvider::writingSystems(short id) const
{
    const Font *f = font(id);
    return f ? f->writingSystems : QList<BaseWritingSystem>();
}

} // namespace TavoTest
