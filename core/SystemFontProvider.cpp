#include "core/SystemFontProvider.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QRegularExpression>
#include <algorithm>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <optional>
#include <tuple>

namespace TavoLib {

namespace {

constexpr int kIdRange = 32000;

// fontconfig language tags that tell a writing system is covered.
struct LangMapping
{
    int writingSystem;
    const char *lang;
};
const LangMapping kLangs[] = {
    { QFontDatabase::Latin, "en" },
    { QFontDatabase::Greek, "el" },
    { QFontDatabase::Cyrillic, "ru" },
    { QFontDatabase::Armenian, "hy" },
    { QFontDatabase::Hebrew, "he" },
    { QFontDatabase::Arabic, "ar" },
    { QFontDatabase::Syriac, "syr" },
    { QFontDatabase::Thaana, "dv" },
    { QFontDatabase::Devanagari, "hi" },
    { QFontDatabase::Bengali, "bn" },
    { QFontDatabase::Gurmukhi, "pa" },
    { QFontDatabase::Gujarati, "gu" },
    { QFontDatabase::Oriya, "or" },
    { QFontDatabase::Tamil, "ta" },
    { QFontDatabase::Telugu, "te" },
    { QFontDatabase::Kannada, "kn" },
    { QFontDatabase::Malayalam, "ml" },
    { QFontDatabase::Sinhala, "si" },
    { QFontDatabase::Thai, "th" },
    { QFontDatabase::Lao, "lo" },
    { QFontDatabase::Tibetan, "bo" },
    { QFontDatabase::Myanmar, "my" },
    { QFontDatabase::Georgian, "ka" },
    { QFontDatabase::Khmer, "km" },
    { QFontDatabase::SimplifiedChinese, "zh-cn" },
    { QFontDatabase::TraditionalChinese, "zh-tw" },
    { QFontDatabase::Japanese, "ja" },
    { QFontDatabase::Korean, "ko" },
    { QFontDatabase::Vietnamese, "vi" },
    { QFontDatabase::Nko, "nqo" },
};

QString patternString(FcPattern *pattern, const char *object)
{
    FcChar8 *value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) == FcResultMatch && value)
        return QString::fromUtf8(reinterpret_cast<const char *>(value));
    return QString();
}

int patternInt(FcPattern *pattern, const char *object, int fallback)
{
    int value = 0;
    if (FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch)
        return value;
    double d = 0;
    if (FcPatternGetDouble(pattern, object, 0, &d) == FcResultMatch && d > -1e6 && d < 1e6)
        return int(d);
    return fallback;
}

bool patternBool(FcPattern *pattern, const char *object)
{
    FcBool value = FcFalse;
    return FcPatternGetBool(pattern, object, 0, &value) == FcResultMatch && value;
}

int typeFromFormat(const QString &format)
{
    if (format == QLatin1String("TrueType"))
        return FontProvider::TrueType;
    if (format == QLatin1String("CFF"))
        return FontProvider::OpenType;
    if (format == QLatin1String("Type 1"))
        return FontProvider::Type1;
    return FontProvider::OtherType;
}

bool isSampleCharacter(uint ucs4)
{
    switch (QChar::category(ucs4)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Other:
    case QChar::Symbol_Math:
    case QChar::Symbol_Other:
    case QChar::Number_DecimalDigit:
        return true;
    case QChar::Other_PrivateUse: // symbol fonts put their glyphs here
        return true;
    default:
        return false;
    }
}

// A few characters the font covers, preferring those beyond Latin, for fonts of a script we
// have no sample text for and for symbol fonts.
QString coverageSample(FcCharSet *charset)
{
    if (!charset)
        return QString();
    const uint fromLimits[] = { 0x370, 0x21 };
    for (uint from : fromLimits) {
        QString text;
        int found = 0;
        FcChar32 map[FC_CHARSET_MAP_SIZE];
        FcChar32 next = 0;
        for (FcChar32 page = FcCharSetFirstPage(charset, map, &next);
             page != FC_CHARSET_DONE && found < 6; page = FcCharSetNextPage(charset, map, &next)) {
            for (int word = 0; word < FC_CHARSET_MAP_SIZE && found < 6; ++word) {
                for (int bit = 0; bit < 32 && found < 6; ++bit) {
                    if (!(map[word] & (FcChar32(1) << bit)))
                        continue;
                    const uint ucs4 = page + uint(word) * 32 + uint(bit);
                    if (ucs4 < from || (ucs4 >= 0x2000 && ucs4 < 0x2070))
                        continue;
                    if (!isSampleCharacter(ucs4))
                        continue;
                    text += QString::fromUcs4(reinterpret_cast<const char32_t *>(&ucs4), 1);
                    ++found;
                }
            }
        }
        if (found >= 3 || from == 0x21)
            return text;
    }
    return QString();
}

// Regular, italic, bold, bold italic, then the rest by weight, width and slant.
auto styleRank(int weight, int slant, int width, const QString &style)
{
    const bool normalWidth = width == FC_WIDTH_NORMAL;
    const bool italic = slant != FC_SLANT_ROMAN;
    const bool regular = weight >= FC_WEIGHT_BOOK && weight <= FC_WEIGHT_REGULAR;
    const bool bold = weight == FC_WEIGHT_BOLD;
    int rank = 4;
    if (normalWidth && regular)
        rank = italic ? 1 : 0;
    else if (normalWidth && bold)
        rank = italic ? 3 : 2;
    return std::make_tuple(
        rank, weight, std::abs(width - FC_WIDTH_NORMAL), width, slant, style.toCaseFolded());
}

QFont::Weight qtWeight(int fcWeight)
{
    static const int table[][2]
        = { { FC_WEIGHT_THIN, QFont::Thin }, { FC_WEIGHT_EXTRALIGHT, QFont::ExtraLight },
              { FC_WEIGHT_LIGHT, QFont::Light }, { FC_WEIGHT_BOOK, QFont::Normal },
              { FC_WEIGHT_REGULAR, QFont::Normal }, { FC_WEIGHT_MEDIUM, QFont::Medium },
              { FC_WEIGHT_DEMIBOLD, QFont::DemiBold }, { FC_WEIGHT_BOLD, QFont::Bold },
              { FC_WEIGHT_EXTRABOLD, QFont::ExtraBold }, { FC_WEIGHT_BLACK, QFont::Black } };
    int best = QFont::Normal;
    int bestDistance = 1 << 30;
    for (const auto &row : table) {
        const int distance = std::abs(row[0] - fcWeight);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = row[1];
        }
    }
    return QFont::Weight(best);
}

quint32 fnv1a(const QString &text, quint32 seed = 2166136261u)
{
    quint32 h = seed;
    for (char c : text.toUtf8()) {
        h ^= quint8(c);
        h *= 16777619u;
    }
    return h;
}

// One listed font file as a face; nothing for a variable font or a file without a family.
std::optional<SystemFontProvider::Face> readFace(FcPattern *font)
{
    if (patternBool(font, FC_VARIABLE))
        return std::nullopt; // its named instances are listed on their own
    SystemFontProvider::Face f;
    f.family = patternString(font, FC_FAMILY);
    f.style = patternString(font, FC_STYLE);
    if (f.family.isEmpty())
        return std::nullopt;
    if (f.style.isEmpty())
        f.style = QStringLiteral("Regular");
    f.fullName = patternString(font, FC_FULLNAME);
    if (f.fullName.isEmpty())
        f.fullName = f.family + QLatin1Char(' ') + f.style;
    f.file = patternString(font, FC_FILE);
    f.weight = patternInt(font, FC_WEIGHT, FC_WEIGHT_REGULAR);
    f.slant = patternInt(font, FC_SLANT, FC_SLANT_ROMAN);
    f.width = patternInt(font, FC_WIDTH, FC_WIDTH_NORMAL);
    // Some fonts carry wrong weight or slant entries; the style name is the better word.
    static const QRegularExpression boldWord(
        QStringLiteral("\\bBold\\b"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression italicWord(
        QStringLiteral("\\b(Italic|Oblique)\\b"), QRegularExpression::CaseInsensitiveOption);
    if (f.weight < FC_WEIGHT_DEMIBOLD && f.style.contains(boldWord))
        f.weight = FC_WEIGHT_BOLD;
    if (f.slant == FC_SLANT_ROMAN && f.style.contains(italicWord))
        f.slant = FC_SLANT_ITALIC;
    f.type = typeFromFormat(patternString(font, FC_FONTFORMAT));
    f.symbol = patternBool(font, FC_SYMBOL);
    FcLangSet *langs = nullptr;
    if (!f.symbol && FcPatternGetLangSet(font, FC_LANG, 0, &langs) == FcResultMatch) {
        for (const LangMapping &m : kLangs) {
            if (FcLangSetHasLang(langs, reinterpret_cast<const FcChar8 *>(m.lang)) == FcLangEqual)
                f.writingSystems.append(m.writingSystem);
        }
    }
    FcCharSet *charset = nullptr;
    if (FcPatternGetCharSet(font, FC_CHARSET, 0, &charset) == FcResultMatch)
        f.coverageSample = coverageSample(charset);
    return f;
}

// Owning handles for fontconfig objects, released with their own destroy functions.
template <class T, void (*Destroy)(T *)> struct FcDeleter
{
    void operator()(T *object) const { Destroy(object); }
};
using PatternHandle = std::unique_ptr<FcPattern, FcDeleter<FcPattern, FcPatternDestroy>>;
using ObjectSetHandle = std::unique_ptr<FcObjectSet, FcDeleter<FcObjectSet, FcObjectSetDestroy>>;
using FontSetHandle = std::unique_ptr<FcFontSet, FcDeleter<FcFontSet, FcFontSetDestroy>>;

bool familyLess(const QString &a, const QString &b)
{
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

} // namespace

SystemFontProvider::SystemFontProvider() : SystemFontProvider(DeferScan())
{
    rescan();
}

SystemFontProvider::SystemFontProvider(DeferScan)
    : mSymbolFamilies({ QStringLiteral("Standard Symbols PS"), QStringLiteral("D050000L"),
        QStringLiteral("Noto Sans Symbols"), QStringLiteral("Noto Sans Symbols2") })
{
}

SystemFontProvider::~SystemFontProvider() = default;

bool SystemFontProvider::rescan()
{
    const int oldHash = mHash;
    std::map<FaceKey, Face> faces = oneFormatPerFace(scanFaces());
    markSymbolFamilies(faces);
    assignIds(std::move(faces));
    mSystemDefault = systemDefaultFace();
    rebuildIndex();
    return mHash != oldHash;
}

std::vector<SystemFontProvider::Face> SystemFontProvider::scanFaces() const
{
    std::vector<Face> faces;
    if (!FcInit())
        return faces;
    FcInitBringUptoDate();
    const PatternHandle pattern(FcPatternCreate());
    if (!pattern)
        return faces;
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    const ObjectSetHandle objects(FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_FULLNAME, FC_FILE,
        FC_WEIGHT, FC_SLANT, FC_WIDTH, FC_FONTFORMAT, FC_LANG, FC_SYMBOL, FC_CHARSET, FC_VARIABLE,
        static_cast<char *>(nullptr)));
    const FontSetHandle set(FcFontList(nullptr, pattern.get(), objects.get()));
    for (int i = 0; set && i < set->nfont; ++i) {
        if (std::optional<SystemFontProvider::Face> face = readFace(set->fonts[i]))
            faces.push_back(std::move(*face));
    }
    return faces;
}

std::pair<QString, QString> SystemFontProvider::systemDefaultFace() const
{
    if (!FcInit())
        return {};
    const PatternHandle pattern(FcNameParse(reinterpret_cast<const FcChar8 *>("sans-serif")));
    if (!pattern)
        return {};
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const PatternHandle match(FcFontMatch(nullptr, pattern.get(), &result));
    if (!match)
        return {};
    return { patternString(match.get(), FC_FAMILY), patternString(match.get(), FC_STYLE) };
}

// One face per family and style: the preferred format (TrueType, CFF, Type 1, other), and
// among equals the first file by name, so the choice does not depend on the listing order.
std::map<SystemFontProvider::FaceKey, SystemFontProvider::Face>
SystemFontProvider::oneFormatPerFace(const std::vector<Face> &faces)
{
    std::map<FaceKey, Face> chosen;
    for (const Face &f : faces) {
        const auto inserted = chosen.emplace(FaceKey(f.family, f.style), f);
        Face &kept = inserted.first->second;
        if (!inserted.second && (f.type < kept.type || (f.type == kept.type && f.file < kept.file)))
            kept = f;
    }
    return chosen;
}

// Families named as symbol fonts count as such whatever fontconfig says; a symbol face has
// no writing systems.
void SystemFontProvider::markSymbolFamilies(std::map<FaceKey, Face> &faces) const
{
    for (auto &entry : faces) {
        Face &f = entry.second;
        for (const QString &symbolFamily : mSymbolFamilies) {
            if (f.family.compare(symbolFamily, Qt::CaseInsensitive) == 0)
                f.symbol = true;
        }
        if (f.symbol)
            f.writingSystems.clear();
    }
}

// Replaces the installed faces by the given ones. A face that was there before keeps its id;
// a new face takes the number its names hash to, or the next free one, in name order. Fonts
// that stay are placed first, so a new font can never take an id from one of them.
void SystemFontProvider::assignIds(std::map<FaceKey, Face> &&faces)
{
    std::map<FaceKey, short> previous;
    std::map<short, Face> next;
    for (auto &entry : mFaces) {
        if (entry.second.missing)
            next.insert(entry);
        else
            previous.emplace(FaceKey(entry.second.family, entry.second.style), entry.first);
    }

    std::vector<std::pair<const FaceKey, Face> *> fresh;
    for (auto &entry : faces) {
        const auto known = previous.find(entry.first);
        if (known != previous.end())
            next.emplace(known->second, std::move(entry.second));
        else
            fresh.push_back(&entry);
    }
    for (auto *entry : fresh) {
        const FaceKey &key = entry->first;
        int slot = int(fnv1a(key.first + QLatin1Char('\n') + key.second) % kIdRange);
        while (next.count(short(slot + 1)))
            slot = (slot + 1) % kIdRange;
        next.emplace(short(slot + 1), std::move(entry->second));
    }
    mFaces = std::move(next);
}

void SystemFontProvider::rebuildIndex()
{
    mFamilies.clear();
    std::vector<short> ids;
    for (const auto &entry : mFaces)
        ids.push_back(entry.first);
    std::sort(ids.begin(), ids.end(), [this](short a, short b) {
        const Face &fa = mFaces.at(a);
        const Face &fb = mFaces.at(b);
        if (fa.family != fb.family)
            return familyLess(fa.family, fb.family);
        if (fa.missing != fb.missing)
            return !fa.missing;
        if (fa.missing)
            return a < b;
        return styleRank(fa.weight, fa.slant, fa.width, fa.style)
            < styleRank(fb.weight, fb.slant, fb.width, fb.style);
    });
    mOrder.assign(ids.begin(), ids.end());

    quint32 h = 2166136261u;
    for (short id : ids) {
        const Face &f = mFaces.at(id);
        if (!f.missing)
            mFamilies[f.family].push_back(id);
        h = fnv1a(QString::number(id) + QLatin1Char('|') + f.family + QLatin1Char('|') + f.style
                + QLatin1Char('|') + f.fullName + QLatin1Char('|') + f.file
                + QLatin1Char(f.missing ? 'm' : 'a'),
            h);
    }
    mHash = int(h);

    // The default is the host's choice, else what the system gives for "sans-serif", else the
    // first installed font.
    mDefaultFont = -1;
    if (face(mDefaultOverride) && !mFaces.at(mDefaultOverride).missing) {
        mDefaultFont = mDefaultOverride;
        return;
    }
    mDefaultFont = fontIdentifier(mSystemDefault.first, mSystemDefault.second);
    if (mDefaultFont == -1) {
        for (short id : mOrder) {
            if (!mFaces.at(id).missing) {
                mDefaultFont = id;
                break;
            }
        }
    }
}

const SystemFontProvider::Face *SystemFontProvider::face(short id) const
{
    if (id == 0)
        id = mDefaultFont;
    const auto it = mFaces.find(id);
    return it == mFaces.end() ? nullptr : &it->second;
}

bool SystemFontProvider::addMissingFont(
    short id, const QString &fontName, const QString &familyName, const QString &styleName)
{
    if (id < 1 || mFaces.count(id))
        return false;
    Face f;
    f.missing = true;
    f.fullName = fontName;
    f.family = familyName.isEmpty() ? fontName : familyName;
    f.style = styleName;
    f.type = -1;
    mFaces.emplace(id, f);
    rebuildIndex();
    return true;
}

bool SystemFontProvider::removeMissingFont(short id)
{
    const auto it = mFaces.find(id);
    if (it == mFaces.end() || !it->second.missing)
        return false;
    mFaces.erase(it);
    rebuildIndex();
    return true;
}

short SystemFontProvider::fontIdentifier(const QString &family, const QString &style) const
{
    const auto it = mFamilies.constFind(family);
    if (it == mFamilies.constEnd())
        return -1;
    for (short id : *it) {
        if (mFaces.at(id).style == style)
            return id;
    }
    return -1;
}

void SystemFontProvider::setEmphasizedFamilies(const QStringList &families)
{
    mEmphasized = families;
}

QStringList SystemFontProvider::emphasizedFamilies() const
{
    return mEmphasized;
}

void SystemFontProvider::setSymbolFamilies(const QStringList &families)
{
    mSymbolFamilies = families;
    rescan();
}

QStringList SystemFontProvider::symbolFamilies() const
{
    return mSymbolFamilies;
}

void SystemFontProvider::setDefaultFont(short id)
{
    mDefaultOverride = id;
    rebuildIndex();
}

QString SystemFontProvider::fontName(short id) const
{
    const Face *f = face(id);
    return f ? f->fullName : QString();
}

QString SystemFontProvider::familyName(short id) const
{
    const Face *f = face(id);
    return f ? f->family : QString();
}

QString SystemFontProvider::styleName(short id) const
{
    const Face *f = face(id);
    return f ? f->style : QString();
}

bool SystemFontProvider::isMissing(short id) const
{
    const Face *f = face(id);
    return f && f->missing;
}

short SystemFontProvider::defaultFont() const
{
    return mDefaultFont;
}

int SystemFontProvider::hash() const
{
    return mHash;
}

QString SystemFontProvider::exampleText(short id) const
{
    const Face *f = face(id);
    if (!f || f->missing)
        return QString();
    if (!f->symbol) {
        const QList<BaseWritingSystem> systems = baseWritingSystems(id);
        if (!systems.isEmpty())
            return sampleText(systems.first());
    }
    return f->coverageSample;
}

bool SystemFontProvider::isEmphasized(short id) const
{
    const Face *f = face(id);
    return f && mEmphasized.contains(f->family);
}

QFont SystemFontProvider::qFont(short id, double pixelSize) const
{
    QFont font;
    const Face *f = face(id);
    if (f && !f->missing) {
        font.setFamily(f->family);
        font.setStyleName(f->style);
        font.setWeight(qtWeight(f->weight));
        font.setItalic(f->slant != FC_SLANT_ROMAN);
    }
    if (pixelSize > 0 && pixelSize < 32768)
        font.setPixelSize(std::max(1, qRound(pixelSize)));
    return font;
}

std::list<short> SystemFontProvider::fontsOfFamily(const QString &family) const
{
    const auto it = mFamilies.constFind(family);
    if (it == mFamilies.constEnd())
        return {};
    return std::list<short>(it->begin(), it->end());
}

bool SystemFontProvider::isSymbolFamily(const QString &family) const
{
    const auto it = mFamilies.constFind(family);
    if (it == mFamilies.constEnd() || it->empty())
        return false;
    return std::all_of(it->begin(), it->end(), [this](short id) { return mFaces.at(id).symbol; });
}

int SystemFontProvider::fontType(short id) const
{
    const Face *f = face(id);
    return f && !f->missing ? f->type : -1;
}

std::list<short> SystemFontProvider::fontList(bool availableOnly) const
{
    if (!availableOnly)
        return mOrder;
    std::list<short> result;
    for (short id : mOrder) {
        if (!mFaces.at(id).missing)
            result.push_back(id);
    }
    return result;
}

QString SystemFontProvider::fontFile(short id) const
{
    const Face *f = face(id);
    return f ? f->file : QString();
}

QList<FontProvider::BaseWritingSystem> SystemFontProvider::writingSystems(short id) const
{
    const Face *f = face(id);
    return f ? f->writingSystems : QList<BaseWritingSystem>();
}

} // namespace TavoLib
