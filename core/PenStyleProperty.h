#pragma once

// A pen style (dash pattern) of the host's PenStyleProvider; -100 is no style.
#include "core/Property.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT PenStyleProperty : public Property
{
public:
    using Ptr = TAutoPtr<PenStyleProperty>;

    PenStyleProperty(const QString &uniqueName, const QString &visibleName, short penStyle = -100);

    short penStyle() const { return mPenStyle; }
    void setPenStyle(short penStyle) { mPenStyle = penStyle; }

    const char *kindName() const override { return "PenStyle"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    short mPenStyle;
};

} // namespace TavoLib
