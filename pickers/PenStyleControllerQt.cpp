#include "pickers/PenStyleControllerQt.h"

#include "pickers/StyleComboSupport_p.h"

#include <QComboBox>

namespace TavoLib {

PenStyleControllerQt::PenStyleControllerQt(TAutoPtr<const PenStyleProviderQt> provider)
    : mProvider(provider)
{
}

PenStyleControllerQt::PenStyleControllerQt(const PenStyleControllerQt &other) = default;
PenStyleControllerQt &PenStyleControllerQt::operator=(const PenStyleControllerQt &other) = default;
PenStyleControllerQt::~PenStyleControllerQt() = default;

void PenStyleControllerQt::populate(QComboBox *combo, short current) const
{
    if (!combo)
        return;
    if (!mProvider) {
        combo->setCurrentIndex(0);
        return;
    }
    auto *self = const_cast<PenStyleControllerQt *>(this);
    StyleComboSupport::populate(
        combo, mProvider->styleList(), mProvider->canonicalStyle(current), 100.0,
        [this](short id) { return mProvider->name(id); },
        [self](short id, const QSize &size) { return self->penStylePreview(id, size); });
}

bool PenStyleControllerQt::setCurrentPenStyle(QComboBox *combo, short style) const
{
    return StyleComboSupport::setCurrent(combo, style);
}

short PenStyleControllerQt::currentPenStyle(QComboBox *combo) const
{
    return StyleComboSupport::current(combo);
}

short PenStyleControllerQt::penStyleAt(int index, QComboBox *combo) const
{
    return StyleComboSupport::at(index, combo);
}

QPixmap PenStyleControllerQt::penStylePreview(short style, const QSize &size)
{
    if (!mProvider)
        return QPixmap();
    return StyleComboSupport::withPixelRatio(
        mProvider->preview(style, StyleComboSupport::devicePixels(size)));
}

} // namespace TavoLib
