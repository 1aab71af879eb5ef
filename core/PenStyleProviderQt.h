#pragma once

// The pen style provider as the widgets take it: adds the dash pattern, so that a widget can
// draw lines in the style itself.
#include "core/PenStyleProvider.h"

#include <QPen>
#include <QVector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT PenStyleProviderQt : public PenStyleProvider
{
public:
    using Ptr = TAutoPtr<PenStyleProviderQt>;
    using ConstPtr = TAutoPtr<PenStyleProviderQt const>;

    ~PenStyleProviderQt() override;

    // Dash and gap lengths in units of the line width; empty for a solid line or unknown id.
    virtual QVector<qreal> dashPattern(short id) const = 0;

    // A pen of that colour and width in the style; a solid pen for an unknown id.
    QPen qPen(short id, const QColor &color, qreal width) const;
};

} // namespace TavoLib
