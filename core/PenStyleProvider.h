#pragma once

// The dash patterns a document may use for lines, by short identifier; -100 is no style.
// canonicalStyle maps an alias to the identifier under which the style is listed.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

#include <QPixmap>
#include <QSize>
#include <QString>
#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT PenStyleProvider : public MAutoObj
{
public:
    using Ptr = TAutoPtr<PenStyleProvider>;
    using ConstPtr = TAutoPtr<PenStyleProvider const>;

    static constexpr short NoStyle = -100;

    ~PenStyleProvider() override;

    // Empty for an unknown id.
    virtual QString name(short id) const = 0;
    // The listed identifier of the style; NoStyle for an unknown id.
    virtual short canonicalStyle(short id) const = 0;
    virtual std::list<short> styleList() const = 0;
    // A line in the style across `size` device pixels; null for an unknown id or empty size.
    virtual QPixmap preview(short id, const QSize &size) const = 0;
};

} // namespace TavoLib
