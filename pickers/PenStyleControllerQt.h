#pragma once

// PenStyleControllerQt fills a combo box with the dash styles of a provider, each with a
// preview of a line in the style, and maps the choice to and from a style identifier
// (-100 for none).
#include "core/PenStyleProviderQt.h"
#include "style/TavoLibGuiExport.h"

#include <QPixmap>

class QComboBox;

namespace TavoLib {

class TAVOLIBGUI_EXPORT PenStyleControllerQt : public virtual MAutoObj
{
public:
    using Ptr = TAutoPtr<PenStyleControllerQt>;

    explicit PenStyleControllerQt(TAutoPtr<const PenStyleProviderQt> provider);
    PenStyleControllerQt(const PenStyleControllerQt &other);
    PenStyleControllerQt &operator=(const PenStyleControllerQt &other);
    ~PenStyleControllerQt() override;

    // Appends the styles in the provider's order and selects current (an alias selects the
    // style it stands for), or the first item. The combo box is not cleared first.
    virtual void populate(QComboBox *combo, short current) const;
    // Selects the item with exactly this identifier; false when there is none.
    virtual bool setCurrentPenStyle(QComboBox *combo, short style) const;
    virtual short currentPenStyle(QComboBox *combo) const;
    // The style of the item at index; -100 out of range or for an item without one.
    virtual short penStyleAt(int index, QComboBox *combo) const;
    // The provider's preview at size (logical pixels) and the screen's pixel ratio.
    virtual QPixmap penStylePreview(short style, const QSize &size);

private:
    TAutoPtr<const PenStyleProviderQt> mProvider;
};

} // namespace TavoLib
