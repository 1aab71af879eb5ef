#include "TestRegistry.h"

#include "core/SystemFontProvider.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QRegularExpression>
#include <QTest>
#include <set>

using namespace TavoLib;

// The machine's fonts through fontconfig. Only facts that hold whatever is installed are
// checked; tests that need fonts skip on a machine without any.
class SystemFontProviderTest : public QObject
{
    Q_OBJECT
private slots:
    void idsAndNamesAreStableAcrossInstances()
    {
        SystemFontProvider first;
        SystemFontProvider second;
        QCOMPARE(first.fontList(false), second.fontList(false));
        QCOMPARE(first.hash(), second.hash());
        QCOMPARE(first.defaultFont(), second.defaultFont());
        for (short id : first.fontList(false)) {
            QVERIFY(id > 0);
            QCOMPARE(first.familyName(id), second.familyName(id));
            QCOMPARE(first.styleName(id), second.styleName(id));
            QCOMPARE(first.fontIdentifier(first.familyName(id), first.styleName(id)), id);
        }
    }

    void rescanKeepsTheHashUntilTheSetChanges()
    {
        SystemFontProvider provider;
        const int hash = provider.hash();
        QVERIFY(!provider.rescan());
        QCOMPARE(provider.hash(), hash);

        QVERIFY(provider.addMissingFont(31999, "Gone Grotesk Bold", "Gone Grotesk", "Bold")
            || provider.addMissingFont(31998, "Gone Grotesk Bold", "Gone Grotesk", "Bold"));
        const short missing = provider.isMissing(31999) ? 31999 : 31998;
        QVERIFY(provider.hash() != hash);
        QVERIFY(provider.isMissing(missing));
        QCOMPARE(provider.fontName(missing), QString("Gone Grotesk Bold"));
        QCOMPARE(provider.familyName(missing), QString("Gone Grotesk"));
        QCOMPARE(provider.fontType(missing), -1);
        QVERIFY(provider.exampleText(missing).isEmpty());
        QVERIFY(provider.fontsOfFamily("Gone Grotesk").empty());
        const std::list<short> all = provider.fontList(false);
        const std::list<short> available = provider.fontList(true);
        QCOMPARE(all.size(), available.size() + 1);
        QVERIFY(std::find(available.begin(), available.end(), missing) == available.end());

        // Missing fonts survive a rescan; a taken id is refused.
        const int withMissing = provider.hash();
        QVERIFY(!provider.rescan());
        QCOMPARE(provider.hash(), withMissing);
        QVERIFY(provider.isMissing(missing));
        QVERIFY(!provider.addMissingFont(missing, "Twice"));
        QVERIFY(!provider.addMissingFont(0, "Zero"));
        QVERIFY(!provider.addMissingFont(-1, "None"));
        if (!available.empty())
            QVERIFY(!provider.addMissingFont(available.front(), "Taken"));
        QVERIFY(provider.removeMissingFont(missing));
        QCOMPARE(provider.hash(), hash);
    }

    void unknownIdsAreHarmless()
    {
        SystemFontProvider provider;
        const std::list<short> all = provider.fontList(false);
        for (short id : { short(-1), short(-100), short(32767) }) {
            if (std::find(all.begin(), all.end(), id) != all.end())
                continue;
            QVERIFY(provider.familyName(id).isEmpty());
            QVERIFY(provider.styleName(id).isEmpty());
            QVERIFY(provider.fontName(id).isEmpty());
            QVERIFY(!provider.isMissing(id));
            QVERIFY(!provider.isEmphasized(id));
            QCOMPARE(provider.fontType(id), -1);
            QVERIFY(provider.exampleText(id).isEmpty());
            QVERIFY(provider.baseWritingSystems(id).isEmpty());
            QCOMPARE(provider.qFont(id, 12).pixelSize(), 12);
        }
        QVERIFY(provider.fontsOfFamily("No Such Family At All").empty());
        QVERIFY(!provider.isSymbolFamily("No Such Family At All"));
    }

    void familiesAndStyles()
    {
        SystemFontProvider provider;
        const std::list<short> ids = provider.fontList(true);
        if (ids.empty())
            QSKIP("no scalable fonts installed");
        std::set<short> seen;
        QString previousFamily;
        for (short id : ids) {
            QVERIFY(seen.insert(id).second);
            QVERIFY(provider.fontType(id) >= 0 && provider.fontType(id) <= 3);
            const QList<int> systems = provider.baseWritingSystems(id);
            for (int i = 1; i < systems.size(); ++i)
                QVERIFY(systems[i - 1] < systems[i]);
            QVERIFY(!systems.contains(QFontDatabase::Vietnamese));
            const QString family = provider.familyName(id);
            if (family != previousFamily) {
                // A family's fonts stand together, in the order fontsOfFamily gives.
                const std::list<short> styles = provider.fontsOfFamily(family);
                QCOMPARE(styles.front(), id);
                previousFamily = family;
            }
        }
        QCOMPARE(provider.defaultFont() == -1, ids.empty());
        QCOMPARE(provider.familyName(0), provider.familyName(provider.defaultFont()));
    }

    void regularComesFirstThenItalicBoldBoldItalic()
    {
        SystemFontProvider provider;
        int checked = 0;
        std::set<QString> families;
        for (short id : provider.fontList(true))
            families.insert(provider.familyName(id));
        for (const QString &family : families) {
            QStringList styles;
            for (short id : provider.fontsOfFamily(family))
                styles << provider.styleName(id);
            const int regular = std::max(styles.indexOf("Regular"), styles.indexOf("Book"));
            const int bold = styles.indexOf("Bold");
            const int italic = std::max(styles.indexOf("Italic"), styles.indexOf("Oblique"));
            if (regular < 0 || bold < 0)
                continue;
            QVERIFY2(regular == 0, qPrintable(family + ": " + styles.join(", ")));
            QVERIFY2(bold > regular, qPrintable(family));
            if (italic >= 0)
                QVERIFY2(italic == 1 && bold == 2, qPrintable(family + ": " + styles.join(", ")));
            ++checked;
        }
        if (!checked)
            QSKIP("no family with regular and bold styles installed");
    }

    void qFontDrawsTheFace()
    {
        SystemFontProvider provider;
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
        // A size of -1 keeps the point size.
        const short any = provider.fontList(true).front();
        QCOMPARE(provider.qFont(any, -1).pixelSize(), -1);
        QVERIFY(provider.qFont(any, -1).pointSizeF() > 0);
    }

    void emphasisAndSymbolFamiliesAreConfigurable()
    {
        SystemFontProvider provider;
        const std::list<short> ids = provider.fontList(true);
        if (ids.empty())
            QSKIP("no scalable fonts installed");
        const short id = ids.front();
        const QString family = provider.familyName(id);
        QVERIFY(!provider.isEmphasized(id));
        provider.setEmphasizedFamilies({ family });
        QVERIFY(provider.isEmphasized(id));
        provider.setSymbolFamilies({ family });
        QVERIFY(provider.isSymbolFamily(family));
        QVERIFY(provider.baseWritingSystems(provider.fontIdentifier(family, provider.styleName(id)))
                    .isEmpty());
        provider.setSymbolFamilies({});
        QVERIFY(!provider.isSymbolFamily(family));
    }
};

TAVO_TEST(SystemFontProviderTest)
#include "SystemFontProviderTest.moc"
