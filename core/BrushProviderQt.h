#pragma once

// The brush provider as the widgets take it: adds a Qt brush for painting an area.
#include "core/BrushProvider.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT BrushProviderQt : public BrushProvider
{
public:
    using Ptr = TAutoPtr<BrushProviderQt>;
    using ConstPtr = TAutoPtr<BrushProviderQt const>;

    ~BrushProviderQt() override;

    // A brush that fills `area`; Qt::NoBrush for an unknown id.
    virtual QBrush qBrush(short id, const QRectF &area) const;
};

} // namespace TavoLib
