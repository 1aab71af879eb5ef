#pragma once

// The font provider as the widgets take it. Beside the operations of FontProvider it can name
// the file a font comes from, for tool tips and diagnostics.
#include "core/FontProvider.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT FontProviderQt : public FontProvider
{
public:
    using Ptr = TAutoPtr<FontProviderQt>;
    using ConstPtr = TAutoPtr<FontProviderQt const>;

    ~FontProviderQt() override;

    // The file the font is loaded from; empty when unknown, missing or not file based.
    virtual QString fontFile(short id) const;
};

} // namespace TavoLib
