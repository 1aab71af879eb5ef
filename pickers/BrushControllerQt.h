#pragma once

// BrushControllerQt fills a combo box with the brushes of a provider, or a menu with its
// gradients, each entry with a small framed preview, sorted by name without regard to case.
// It maps the choice to and from a brush identifier (-100 for none); two identifiers of one
// brush count as the same.
#include "core/BrushProviderQt.h"
#include "style/TavoLibGuiExport.h"

#include <QPixmap>
#include <QSizeF>

class QComboBox;
class QMenu;

namespace TavoLib {

class TAVOLIBGUI_EXPORT BrushControllerQt : public virtual MAutoObj
{
public:
    using Ptr = TAutoPtr<BrushControllerQt>;

    // frameWidth: the width in device pixels of the black frame around each preview; 0
    // draws the brush alone.
    explicit BrushControllerQt(TAutoPtr<const BrushProviderQt> provider, int frameWidth = 1);
    BrushControllerQt(const BrushControllerQt &other);
    BrushControllerQt &operator=(const BrushControllerQt &other);
    ~BrushControllerQt() override;

    // Appends the brushes (only plain colours with onlyColors) and selects current, or the
    // first item when current is not listed. The combo box is not cleared first.
    virtual void populate(QComboBox *combo, bool onlyColors, short current) const;
    // Selects the item of the brush; false when it is not listed.
    virtual bool setCurrentBrush(QComboBox *combo, short brush) const;
    // The brush of the first checked action; -100 when none.
    virtual short currentBrush(QMenu *menu) const;
    virtual short currentBrush(QComboBox *combo) const;
    // The brush of the item at index; -100 out of range or for an item without one.
    virtual short brushAt(int index, QComboBox *combo) const;
    // Appends one checkable action per gradient and checks current when it is one.
    virtual void populateGradients(QMenu *menu, short current) const;
    // The brush of the menu's first action; -100 when there is none.
    virtual short firstBrush(QMenu *menu) const;
    // The brush filling size (logical pixels) inside the black frame, at the screen's pixel
    // ratio. Null for an empty size.
    virtual QPixmap brushPreview(short brush, const QSize &size);

    // The shape of every preview: 1.6 times as wide as high.
    static QSizeF brushPreviewSizeForHeight(double height);

private:
    short canonical(short brush) const;

    TAutoPtr<const BrushProviderQt> mProvider;
    int mFrameWidth = 1;
};

} // namespace TavoLib
