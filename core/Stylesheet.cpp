#include "core/Stylesheet.h"

namespace TavoLib {

Stylesheet::Stylesheet(const QString &type, const QString &name, const QString &displayText,
                       TAutoPtr<Stylesheet const> parent)
    : mType(type), mName(name), mDisplayText(displayText)
{
    setParent(parent);
}

Stylesheet::~Stylesheet() = default;

bool Stylesheet::setParent(TAutoPtr<Stylesheet const> parent)
{
    for (const Stylesheet *s = parent.get(); s; s = s->mParent.get()) {
        if (s == this)
            return false;
    }
    mParent = parent;
    return true;
}

AttributeMap Stylesheet::attributes(bool inherited) const
{
    if (!inherited || !mParent)
        return mAttributes;
    AttributeMap all = mParent->attributes(true);
    for (const auto &entry : mAttributes)
        all[entry.first] = entry.second;
    return all;
}

} // namespace TavoLib
