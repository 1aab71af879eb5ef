#pragma once

// What the widgets need to know of the application around them: the stylesheets of the
// document, the style-resource providers, and the attribute each key has when nothing sets
// it. A host subclasses Environment or hands it its own providers; as it stands it serves
// the machine's fonts and the standard brushes, pen styles and line heads, with an empty
// in-memory stylesheet manager.
#include "core/Attribute.h"
#include "core/BrushProvider.h"
#include "core/FontProvider.h"
#include "core/LineHeadStyleProvider.h"
#include "core/PenStyleProvider.h"
#include "core/StylesheetManager.h"

#include <map>

namespace TavoLib {

class TAVOLIBCORE_EXPORT Environment : public MAutoObj
{
public:
    using Ptr = TAutoPtr<Environment>;

    Environment();
    ~Environment() override;

    TAutoPtr<StylesheetManager> stylesheetManager() const;
    void setStylesheetManager(TAutoPtr<StylesheetManager> manager);

    // Each provider is made on first use unless one was set; setting null goes back to the
    // standard one. Queries are const: making a provider on first use changes nothing a
    // caller can see.
    virtual TAutoPtr<BrushProvider> brushProvider() const;
    virtual TAutoPtr<PenStyleProvider> penStyleProvider() const;
    virtual TAutoPtr<LineHeadStyleProvider> lineHeadStyleProvider() const;
    virtual TAutoPtr<FontProvider> fontProvider() const;

    // The attribute a key has when no object or stylesheet sets it; null for unknown keys.
    virtual TAutoPtr<Attribute const> defaultAttribute(const AttributeKey &key) const;

    void setBrushProvider(TAutoPtr<BrushProvider> provider);
    void setPenStyleProvider(TAutoPtr<PenStyleProvider> provider);
    void setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProvider> provider);
    void setFontProvider(TAutoPtr<FontProvider> provider);

    // Registers the default of the attribute's key, replacing an earlier one; null is ignored.
    void setDefaultAttribute(TAutoPtr<Attribute const> attribute);
    bool removeDefaultAttribute(const AttributeKey &key);
    // The keys with a registered default, in key order.
    std::list<AttributeKey> defaultAttributeKeys() const;

private:
    mutable TAutoPtr<StylesheetManager> mStylesheetManager;
    mutable TAutoPtr<BrushProvider> mBrushProvider;
    mutable TAutoPtr<PenStyleProvider> mPenStyleProvider;
    mutable TAutoPtr<LineHeadStyleProvider> mLineHeadStyleProvider;
    mutable TAutoPtr<FontProvider> mFontProvider;
    std::map<AttributeKey, TAutoPtr<Attribute const>> mDefaults;
};

} // namespace TavoLib
