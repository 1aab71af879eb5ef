#pragma once

// LineHeadStyleControllerQt fills a combo box with the line heads of a provider, each with
// a preview of a line carrying the head at its start or its end, and maps the choice to and
// from a style identifier (-100 for none).
#include "core/LineHeadStyleProviderQt.h"
#include "style/TavoLibGuiExport.h"

#include <QPixmap>

class QComboBox;

namespace TavoLib {

class TAVOLIBGUI_EXPORT LineHeadStyleControllerQt : public virtual MAutoObj
{
public:
    using Ptr = TAutoPtr<LineHeadStyleControllerQt>;

    explicit LineHeadStyleControllerQt(TAutoPtr<const LineHeadStyleProviderQt> provider);
    LineHeadStyleControllerQt(const LineHeadStyleControllerQt &other);
    LineHeadStyleControllerQt &operator=(const LineHeadStyleControllerQt &other);
    ~LineHeadStyleControllerQt() override;

    // Appends the heads in the provider's order, previewed for the start or the end of a
    // line, and selects current (an alias selects the head it stands for), or the first
    // item. The combo box is not cleared first.
    virtual void populate(bool start, QComboBox *combo, short current) const;
    // Selects the item with exactly this identifier; false when there is none.
    virtual bool setCurrentStyle(QComboBox *combo, short style) const;
    virtual short currentStyle(QComboBox *combo) const;
    // The head of the item at index; -100 out of range or for an item without one.
    virtual short styleAt(int index, QComboBox *combo) const;
    // The provider's preview at size (logical pixels) and the screen's pixel ratio.
    virtual QPixmap stylePreview(short style, bool start, const QSize &size);

private:
    TAutoPtr<const LineHeadStyleProviderQt> mProvider;
};

} // namespace TavoLib
