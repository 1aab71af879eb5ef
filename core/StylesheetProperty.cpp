#include "core/StylesheetProperty.h"

namespace TavoLib {

StylesheetProperty::StylesheetProperty(const QString &uniqueName, const QString &visibleName,
                                       const QString &stylesheetType,
                                       TAutoPtr<Stylesheet const> stylesheet)
    : Property(uniqueName, visibleName), mStylesheetType(stylesheetType), mStylesheet(stylesheet)
{
}

void StylesheetProperty::unsetStylesheet(const QString &stylesheetType)
{
    if (stylesheetType == mStylesheetType || (mStylesheet && mStylesheet->type() == stylesheetType))
        mStylesheet = nullptr;
}

QString StylesheetProperty::valueText() const
{
    return mStylesheet ? mStylesheet->displayText() : QString();
}

TAutoPtr<Property> StylesheetProperty::clone() const
{
    return new StylesheetProperty(*this);
}

void StylesheetProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const StylesheetProperty *>(&other))
        mStylesheet = o->mStylesheet;
}

QString StylesheetProperty::valueString() const
{
    return mStylesheet ? mStylesheet->name() : QString();
}

} // namespace TavoLib
