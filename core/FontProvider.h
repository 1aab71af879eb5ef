#pragma once

// The fonts a document may use, by short identifier (-1 is no font). Identifier 0 stands for
// the default font in menus. A font can be "missing": a document refers to it but it is not
// installed; then only its name is known. Pickers group families by their base writing
// systems, whose numbers are those of QFontDatabase::WritingSystem.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

#include <QFont>
#include <QList>
#include <QString>
#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT FontProvider : public MAutoObj
{
public:
    using Ptr = TAutoPtr<FontProvider>;
    using ConstPtr = TAutoPtr<FontProvider const>;

    // Numbers as in QFontDatabase::WritingSystem; a picker's sections follow their order.
    using BaseWritingSystem = int;

    // File formats reported by fontType().
    enum FontType { TrueType = 0, OpenType = 1, Type1 = 2, OtherType = 3 };

    ~FontProvider() override;

    // The font's full name; for a missing font the name the document gave it.
    virtual QString fontName(short id) const = 0;
    // Empty when the id is unknown.
    virtual QString familyName(short id) const = 0;
    virtual QString styleName(short id) const = 0;
    virtual bool isMissing(short id) const = 0;
    // The font that identifier 0 stands for; -1 when there are no fonts.
    virtual short defaultFont() const = 0;
    // Changes whenever the set of fonts changes.
    virtual int hash() const = 0;
    // A short sample in the font's first writing system; empty when unknown or missing.
    virtual QString exampleText(short id) const = 0;
    virtual bool isEmphasized(short id) const = 0;
    // A font that draws this face; a pixel size of 0 or less keeps the default point size.
    virtual QFont qFont(short id, double pixelSize) const = 0;
    // The family's available fonts: regular, italic, bold, bold italic, then the rest by weight.
    virtual std::list<short> fontsOfFamily(const QString &family) const = 0;
    virtual bool isSymbolFamily(const QString &family) const = 0;
    // A FontType value; -1 for an unknown or missing font.
    virtual int fontType(short id) const = 0;
    // All fonts in display order; availableOnly leaves the missing ones out.
    virtual std::list<short> fontList(bool availableOnly) const = 0;

    // The font's writing systems, ascending, with variants folded into their base
    // (Vietnamese into Latin) and without duplicates. Empty for symbol and unknown fonts.
    QList<BaseWritingSystem> baseWritingSystems(short id) const;

    // A few characters that show a font of this writing system; empty for unknown numbers.
    static QString sampleText(BaseWritingSystem writingSystem);

protected:
    // The writing systems the font covers, in any order.
    virtual QList<BaseWritingSystem> writingSystems(short id) const = 0;
};

} // namespace TavoLib
