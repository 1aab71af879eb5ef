#pragma once

// A line head (arrow, circle, ...) of the host's LineHeadStyleProvider; -100 is no style.
// isAtLineEnd() tells whether the head sits at the end of the line or at its start.
#include "core/Property.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT LineHeadStyleProperty : public Property
{
public:
    using Ptr = TAutoPtr<LineHeadStyleProperty>;

    LineHeadStyleProperty(const QString &uniqueName, const QString &visibleName, short style = -100, bool atLineEnd = false);

    short style() const { return mStyle; }
    void setStyle(short style) { mStyle = style; }
    bool isAtLineEnd() const { return mAtLineEnd; }

    const char *kindName() const override { return "LineHeadStyle"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    short mStyle;
    bool mAtLineEnd;
};

} // namespace TavoLib
