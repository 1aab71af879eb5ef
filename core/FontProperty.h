#pragma once

// A font of the host's FontProvider, by its short identifier; -1 is no font.
#include "core/Property.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT FontProperty : public Property
{
public:
    using Ptr = TAutoPtr<FontProperty>;

    FontProperty(const QString &uniqueName, const QString &visibleName, short font = -1);

    short font() const { return mFont; }
    void setFont(short font) { mFont = font; }

    const char *kindName() const override { return "Font"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    short mFont;
};

} // namespace TavoLib
