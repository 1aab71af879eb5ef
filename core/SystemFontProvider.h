#pragma once

// The machine's fonts, read through fontconfig: the ready font provider of the reference
// Environment. Only scalable fonts are listed; a face that is installed in several formats
// (an OpenType and a Type 1 file of one design, say) is listed once, preferring TrueType,
// then OpenType CFF, then Type 1. Identifiers come from the family and style names, so two
// providers started on the same machine give the same ids; a rescan keeps the id of every
// font that is still there, so installing a font never moves another one.
// A host registers fonts a document refers to but the machine lacks with addMissingFont.
#include "core/FontProviderQt.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <map>
#include <utility>
#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT SystemFontProvider : public FontProviderQt
{
public:
    using Ptr = TAutoPtr<SystemFontProvider>;

    // One face as a scan reports it: a font file, or a registered missing font. Weight,
    // slant and width are in fontconfig's units.
    struct Face
    {
        QString family;
        QString style;
        QString fullName;
        QString file;
        int weight = 80;
        int slant = 0;
        int width = 100;
        int type = OtherType;
        bool symbol = false;
        bool missing = false;
        QList<BaseWritingSystem> writingSystems;
        QString coverageSample;
    };

    SystemFontProvider();
    ~SystemFontProvider() override;

    // Reads the machine's fonts again (after fonts were installed, say). Missing fonts stay
    // registered. Returns true when the set of fonts changed.
    bool rescan();

    // Registers a font a document refers to but that is not installed. Refused (false) for
    // ids below 1 or already in use.
    bool addMissingFont(short id, const QString &fontName, const QString &familyName = QString(),
        const QString &styleName = QString());
    bool removeMissingFont(short id);

    // The id of an installed face; -1 when there is none.
    short fontIdentifier(const QString &family, const QString &style) const;

    // Families shown in bold in pickers (the document's fonts, say). Empty by default.
    void setEmphasizedFamilies(const QStringList &families);
    QStringList emphasizedFamilies() const;

    // Families treated as symbol fonts beside those fontconfig flags as such; by default the
    // families whose name speaks of symbols or dingbats.
    void setSymbolFamilies(const QStringList &families);
    QStringList symbolFamilies() const;

    // Overrides the font that id 0 stands for; -1 goes back to fontconfig's "sans-serif".
    void setDefaultFont(short id);

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
    QString fontFile(short id) const override;

protected:
    // For a subclass that lists faces of its own: nothing is read until it calls rescan().
    struct DeferScan
    {
    };
    explicit SystemFontProvider(DeferScan);

    // The installed scalable faces, one entry per font file, so a face installed in several
    // formats comes several times. Reads fontconfig; a subclass may list other faces.
    virtual std::vector<Face> scanFaces() const;
    // The family and style the system prefers for "sans-serif"; empty when it has none.
    virtual std::pair<QString, QString> systemDefaultFace() const;

    QList<BaseWritingSystem> writingSystems(short id) const override;

private:
    using FaceKey = std::pair<QString, QString>; // family and style

    static std::map<FaceKey, Face> oneFormatPerFace(const std::vector<Face> &faces);
    void markSymbolFamilies(std::map<FaceKey, Face> &faces) const;
    void assignIds(std::map<FaceKey, Face> &&faces);
    const Face *face(short id) const;
    void rebuildIndex();

    std::map<short, Face> mFaces;
    std::list<short> mOrder;
    QHash<QString, std::vector<short>> mFamilies;
    QStringList mEmphasized;
    QStringList mSymbolFamilies;
    short mDefaultOverride = -1;
    short mDefaultFont = -1;
    std::pair<QString, QString> mSystemDefault;
    int mHash = 0;
};

} // namespace TavoLib
