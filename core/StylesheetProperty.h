#pragma once

// The stylesheet of one type that an object uses; null means none.
#include "core/Stylesheet.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT StylesheetProperty : public Property
{
public:
    using Ptr = TAutoPtr<StylesheetProperty>;

    StylesheetProperty(const QString &uniqueName, const QString &visibleName,
                       const QString &stylesheetType,
                       TAutoPtr<Stylesheet const> stylesheet = TAutoPtr<Stylesheet const>());

    QString stylesheetType() const { return mStylesheetType; }
    TAutoPtr<Stylesheet const> stylesheet() const { return mStylesheet; }
    void setStylesheet(TAutoPtr<Stylesheet const> stylesheet) { mStylesheet = stylesheet; }
    // Clears the stylesheet when it is of the given type (the property's own type always is).
    void unsetStylesheet(const QString &stylesheetType);

    const char *kindName() const override { return "Stylesheet"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    QString mStylesheetType;
    TAutoPtr<Stylesheet const> mStylesheet;
};

} // namespace TavoLib
