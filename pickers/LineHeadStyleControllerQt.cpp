#include "pickers/LineHeadStyleControllerQt.h"

#include "pickers/StyleComboSupport_p.h"

#include <QComboBox>

namespace TavoLib {

LineHeadStyleControllerQt::LineHeadStyleControllerQt(
    TAutoPtr<const LineHeadStyleProviderQt> provider)
    : mProvider(provider)
{
}

LineHeadStyleControllerQt::LineHeadStyleControllerQt(const LineHeadStyleControllerQt &other)
    = default;
LineHeadStyleControllerQt &LineHeadStyleControllerQt::operator=(
    const LineHeadStyleControllerQt &other)
    = default;
LineHeadStyleControllerQt::~LineHeadStyleControllerQt() = default;

void LineHeadStyleControllerQt::populate(bool start, QComboBox *combo, short current) const
{
    if (!combo)
        return;
    if (!mProvider) {
        combo->setCurrentIndex(0);
        return;
    }
    auto *self = const_cast<LineHeadStyleControllerQt *>(this);
    StyleComboSupport::populate(
        combo, mProvider->styleList(), mProvider->canonicalStyle(current), 40.0,
        [this](short id) { return mProvider->name(id); },
        [self, start](short id, const QSize &size) { return self->stylePreview(id, start, size); });
}

bool LineHeadStyleControllerQt::setCurrentStyle(QComboBox *combo, short style) const
{
    return StyleComboSupport::setCurrent(combo, style);
}

short LineHeadStyleControllerQt::currentStyle(QComboBox *combo) const
{
    return StyleComboSupport::current(combo);
}

short LineHeadStyleControllerQt::styleAt(int index, QComboBox *combo) const
{
    return StyleComboSupport::at(index, combo);
}

QPixmap LineHeadStyleControllerQt::stylePreview(short style, bool start, const QSize &size)
{
    if (!mProvider)
        return QPixmap();
    return StyleComboSupport::withPixelRatio(
        mProvider->preview(style, start, StyleComboSupport::devicePixels(size)));
}

} // namespace TavoLib
