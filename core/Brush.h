#pragma once

// The polymorphic base of everything a BrushProvider hands out. Widgets only ask for the
// dynamic type (ColorBrush, GradientBrush, ...) and let the brush fill an area.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

#include <QBrush>
#include <QRectF>

namespace TavoLib {

class TAVOLIBCORE_EXPORT Brush : public MAutoObj
{
public:
    using Ptr = TAutoPtr<Brush>;
    using ConstPtr = TAutoPtr<Brush const>;

    ~Brush() override;

    // A Qt brush that fills `area` (gradients are laid out across it).
    virtual QBrush qBrush(const QRectF &area) const = 0;
};

} // namespace TavoLib
