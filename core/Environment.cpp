#include "core/Environment.h"

#include "core/StandardBrushProvider.h"
#include "core/StandardLineHeadStyleProvider.h"
#include "core/StandardPenStyleProvider.h"
#include "core/SystemFontProvider.h"

namespace TavoLib {

Environment::Environment() : mStylesheetManager(new StylesheetManager) { }

Environment::~Environment() = default;

TAutoPtr<StylesheetManager> Environment::stylesheetManager() const
{
    return mStylesheetManager;
}

void Environment::setStylesheetManager(TAutoPtr<StylesheetManager> manager)
{
    mStylesheetManager = manager ? manager : TAutoPtr<StylesheetManager>(new StylesheetManager);
}

TAutoPtr<BrushProvider> Environment::brushProvider() const
{
    if (!mBrushProvider)
        mBrushProvider = new StandardBrushProvider;
    return mBrushProvider;
}

TAutoPtr<PenStyleProvider> Environment::penStyleProvider() const
{
    if (!mPenStyleProvider)
        mPenStyleProvider = new StandardPenStyleProvider;
    return mPenStyleProvider;
}

TAutoPtr<LineHeadStyleProvider> Environment::lineHeadStyleProvider() const
{
    if (!mLineHeadStyleProvider)
        mLineHeadStyleProvider = new StandardLineHeadStyleProvider;
    return mLineHeadStyleProvider;
}

TAutoPtr<FontProvider> Environment::fontProvider() const
{
    if (!mFontProvider)
        mFontProvider = new SystemFontProvider;
    return mFontProvider;
}

TAutoPtr<Attribute const> Environment::defaultAttribute(const AttributeKey &key) const
{
    const auto it = mDefaults.find(key);
    return it == mDefaults.end() ? TAutoPtr<Attribute const>() : it->second;
}

void Environment::setBrushProvider(TAutoPtr<BrushProvider> provider)
{
    mBrushProvider = provider;
}

void Environment::setPenStyleProvider(TAutoPtr<PenStyleProvider> provider)
{
    mPenStyleProvider = provider;
}

void Environment::setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProvider> provider)
{
    mLineHeadStyleProvider = provider;
}

void Environment::setFontProvider(TAutoPtr<FontProvider> provider)
{
    mFontProvider = provider;
}

void Environment::setDefaultAttribute(TAutoPtr<Attribute const> attribute)
{
    if (attribute)
        mDefaults[attribute->key()] = attribute;
}

bool Environment::removeDefaultAttribute(const AttributeKey &key)
{
    return mDefaults.erase(key) > 0;
}

std::list<AttributeKey> Environment::defaultAttributeKeys() const
{
    std::list<AttributeKey> keys;
    for (const auto &entry : mDefaults)
        keys.push_back(entry.first);
    return keys;
}

} // namespace TavoLib
