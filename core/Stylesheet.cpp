#include "core/Stylesheet.h"

#include <vector>

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
    // From the farthest parent down, each level's own attributes over those above it; a loop
    // rather than a recursion, so a long chain of parents needs no deep stack.
    std::vector<const Stylesheet *> chain;
    for (const Stylesheet *s = this; s; s = s->mParent.get())
        chain.push_back(s);
    AttributeMap all;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it)
        for (const auto &entry : (*it)->mAttributes)
            all[entry.first] = entry.second;
    return all;
}

} // namespace TavoLib
