#pragma once

// The brushes (colours and gradients) a document may use, by short identifier; -100 is no
// brush. A brush's key (brushName) maps back to exactly one identifier, so two identifiers
// of one brush become equal after brushName followed by brushIdentifier.
#include "core/Brush.h"

#include <QPixmap>
#include <QSize>
#include <QString>
#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT BrushProvider : public MAutoObj
{
public:
    using Ptr = TAutoPtr<BrushProvider>;
    using ConstPtr = TAutoPtr<BrushProvider const>;

    static constexpr short NoBrush = -100;

    ~BrushProvider() override;

    // The brush's key; empty for an unknown id.
    virtual QString brushName(short id) const = 0;
    // The name shown to the user; empty for an unknown id.
    virtual QString displayName(short id) const = 0;
    // The one identifier of the brush with this key; NoBrush when there is none.
    virtual short brushIdentifier(const QString &name) const = 0;
    // Every brush once, each by its own identifier (aliases are not listed).
    virtual std::list<short> brushList() const = 0;
    // Null for an unknown id.
    virtual TAutoPtr<Brush> brush(short id) const = 0;
    // The brush filling `size` device pixels; null for an unknown id or an empty size.
    virtual QPixmap preview(short id, const QSize &size) const = 0;
    // A stamp of the provider's content: it changes whenever brushes come or go, so that
    // editors know when their lists are stale. Only its inequality counts; a provider whose
    // content never changes keeps the default.
    virtual int hash() const;
};

} // namespace TavoLib
