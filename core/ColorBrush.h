#pragma once

// A flat colour. A registration colour prints on every separation; on screen it is the
// colour it was given (normally black).
#include "core/Brush.h"

#include <QColor>

namespace TavoLib {

class TAVOLIBCORE_EXPORT ColorBrush : public Brush
{
public:
    using Ptr = TAutoPtr<ColorBrush>;

    explicit ColorBrush(const QColor &color, bool registration = false);
    ~ColorBrush() override;

    QColor color() const { return mColor; }
    bool isRegistration() const { return mRegistration; }

    QBrush qBrush(const QRectF &area) const override;

private:
    QColor mColor;
    bool mRegistration;
};

} // namespace TavoLib
