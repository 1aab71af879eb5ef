#include "core/PenStyleProviderQt.h"

namespace TavoLib {

PenStyleProviderQt::~PenStyleProviderQt() = default;

QPen PenStyleProviderQt::qPen(short id, const QColor &color, qreal width) const
{
    QPen pen(color, width > 0 ? width : 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    const QVector<qreal> dashes = dashPattern(id);
    // Qt needs an even number of entries; an odd pattern repeats once, as PostScript does.
    if (!dashes.isEmpty())
        pen.setDashPattern(dashes.size() % 2 ? dashes + dashes : dashes);
    return pen;
}

} // namespace TavoLib
