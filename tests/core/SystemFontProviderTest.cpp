#include "TestRegistry.h"

#include "core/SystemFontProvider.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QRegularExpression>
#include <QTest>

using namespace TavoLib;
using Face = SystemFontProvider::Face;

namespace {

// The provider over faces the test lists, in place of the machine's.
class ListedFonts : public SystemFontProvider
{
public:
    explicit ListedFonts(std::vector<Face> list) : SystemFontProvider(DeferScan()), faces(list)
    {
        rescan();
    }
    std::vector<Face> faces;
    std::pair<QString, QString> preferred;

protected:
    std::vector<Face> scanFaces() const override { return faces; }
    std::pair<QString, QString> systemDefaultFace() const override { return preferred; }
};

Face face(const QString &family, const QString &style, int type = FontProvider::TrueType,
    int weight = 80, int slant = 0)
{
    Face f;
    f.family = family;
    f.style = style;
    f.fullName = family + ' ' + style;
    f.file = "/fonts/" + f.fullName + QString::number(type);
    f.type = type;
    f.weight = weight;
    f.slant = slant;
    f.writingSystems = { QFontDatabase::Latin };
    return f;
}

// Families "<prefix> 0", "<prefix> 1", ... with four styles each.
std::vector<Face> families(const QString &prefix, int count)
{
    std::vector<Face> result;
    for (int i = 0; i < count; ++i) {
        for (const char *style : { "Regular", "Italic", "Bold", "Light" })
            result.push_back(face(prefix + ' ' + QString::number(i), style));
    }
    return result;
}

} // namespace

class SystemFontProviderTest : public QObject
{
    Q_OBJECT
private slots:
    void idsStayWhenFontsAreInstalled()
    {
        // Enough faces that some names hash to the same number; the newcomers sort between
        // them and would push them along if ids were handed out afresh.
        ListedFonts fonts(families("Family", 400));
        std::map<short, QString> before;
        for (short id : fonts.fontList(true))
            before[id] = fonts.fontName(id);
        const int hash = fonts.hash();
        QVERIFY(!fonts.rescan());

        for (const Face &f : families("Family 1", 400))
            fonts.faces.push_back(f);
        QVERIFY(fonts.rescan());
        QVERIFY(fonts.hash() != hash);
        QCOMPARE(fonts.fontList(true).size(), size_t(3200));
        for (const auto &entry : before)
            QCOMPARE(fonts.fontName(entry.first), entry.second);

        // A font that goes takes only its own id with it.
        fonts.faces.erase(fonts.faces.begin());
        QVERIFY(fonts.rescan());
        QVERIFY(fonts.fontIdentifier("Family 0", "Regular") == -1);
        QCOMPARE(fonts.fontName(before.rbegin()->first), before.rbegin()->second);
    }

    void oneFormatPerFaceAndStylesInOrder()
    {
        ListedFonts fonts({ face("Dual", "Light", FontProvider::Type1, 50),
            face("Dual", "Bold", FontProvider::Type1, 200),
            face("Dual", "Regular", FontProvider::Type1), face("Dual", "Regular"),
            face("Dual", "Regular", FontProvider::OpenType), face("Dual", "Italic", 0, 80, 100),
            face("Dual", "Bold Italic", FontProvider::OpenType, 200, 100),
            face("Other", "Regular") });
        QStringList styles;
        for (short id : fonts.fontsOfFamily("Dual"))
            styles << fonts.styleName(id);
        QCOMPARE(styles, QStringList({ "Regular", "Italic", "Bold", "Bold Italic", "Light" }));
        const short regular = fonts.fontIdentifier("Dual", "Regular");
        QCOMPARE(fonts.fontType(regular), int(FontProvider::TrueType));
        QCOMPARE(fonts.fontFile(regular), QStringLiteral("/fonts/Dual Regular0"));
        QCOMPARE(fonts.baseWritingSystems(regular), QList<int>({ QFontDatabase::Latin }));

        // The system's choice is the default; without one, the first installed font.
        QCOMPARE(fonts.defaultFont(), regular);
        fonts.preferred = { "Other", "Regular" };
        fonts.rescan();
        QCOMPARE(fonts.familyName(0), QStringLiteral("Other"));

        fonts.setSymbolFamilies({ "dual" });
        QVERIFY(fonts.isSymbolFamily("Dual"));
        QVERIFY(fonts.baseWritingSystems(regular).isEmpty());
        QVERIFY(!fonts.isSymbolFamily("Other"));
    }

    void missingFonts()
    {
        ListedFonts fonts({ face("Here", "Regular") });
        const short here = fonts.fontList(true).front();
        const int hash = fonts.hash();
        QVERIFY(!fonts.addMissingFont(here, "Taken"));
        QVERIFY(!fonts.addMissingFont(0, "Zero"));
        QVERIFY(!fonts.addMissingFont(-1, "None"));
        QVERIFY(fonts.addMissingFont(7, "Gone Grotesk Bold", "Gone Grotesk", "Bold"));
        QVERIFY(fonts.hash() != hash);
        QCOMPARE(fonts.familyName(7), QStringLiteral("Gone Grotesk"));
        QVERIFY(fonts.fontsOfFamily("Gone Grotesk").empty());
        QCOMPARE(fonts.fontList(false).size(), size_t(2));
        QCOMPARE(fonts.fontList(true), std::list<short>({ here }));

        // Missing fonts survive a rescan, and an installed font never takes their id.
        fonts.faces = families("Many", 200);
        QVERIFY(fonts.rescan());
        QVERIFY(fonts.isMissing(7));
        fonts.faces = { face("Here", "Regular") };
        fonts.rescan();
        QVERIFY(fonts.removeMissingFont(7));
        QVERIFY(!fonts.removeMissingFont(here));
        QCOMPARE(fonts.hash(), hash);
        QVERIFY(fonts.familyName(7).isEmpty() && !fonts.isMissing(7));
        QCOMPARE(fonts.qFont(7, 12).pixelSize(), 12);
    }

    // The machine's own fonts through fontconfig: whatever is installed, two providers agree
    // and every listed face is what Qt draws.
    void machineFontsDrawAsListed()
    {
        SystemFontProvider provider;
        QCOMPARE(provider.fontList(false), SystemFontProvider().fontList(false));
        int checked = 0, styleMatches = 0;
        for (short id : provider.fontList(true)) {
            const QFont font = provider.qFont(id, 20.0);
            QCOMPARE(font.pixelSize(), 20);
            const QFontInfo info(font);
            // Qt names a family found at several foundries "Family [Foundry]".
            const QString drawn = info.family().remove(QRegularExpression(" \\[.*\\]$"));
            QVERIFY2(drawn == provider.familyName(id),
                qPrintable(provider.familyName(id) + " drawn as " + info.family()));
            styleMatches += info.styleName() == provider.styleName(id) ? 1 : 0;
            ++checked;
        }
        if (!checked)
            QSKIP("no scalable fonts installed");
        QVERIFY2(styleMatches * 10 >= checked * 9,
            qPrintable(QString("%1 of %2 styles matched").arg(styleMatches).arg(checked)));
        QCOMPARE(provider.familyName(0), provider.familyName(provider.defaultFont()));
    }
};

TAVO_TEST(SystemFontProviderTest)
#include "SystemFontProviderTest.moc"
