#include "core/BrushProviderQt.h"

namespace TavoLib {

BrushProviderQt::~BrushProviderQt() = default;

QBrush BrushProviderQt::qBrush(short id, const QRectF &area) const
{
    const TAutoPtr<Brush> b = brush(id);
    return b ? b->qBrush(area) : QBrush(Qt::NoBrush);
}

} // namespace TavoLib
