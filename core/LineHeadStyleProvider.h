#pragma once

// The heads a line may carry at its start and end (arrows, circles, ...), by short
// identifier; -100 is no style. canonicalStyle maps an alias to its listed identifier.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

#include <QPixmap>
#include <QSize>
#include <QString>
#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT LineHeadStyleProvider : public MAutoObj
{
public:
    using Ptr = TAutoPtr<LineHeadStyleProvider>;
    using ConstPtr = TAutoPtr<LineHeadStyleProvider const>;

    static constexpr short NoStyle = -100;

    ~LineHeadStyleProvider() override;

    // Empty for an unknown id.
    virtual QString name(short id) const = 0;
    // The listed identifier of the style; NoStyle for an unknown id.
    virtual short canonicalStyle(short id) const = 0;
    virtual std::list<short> styleList() const = 0;
    // A line with the head at its left end (start) or right end; null for an unknown id or
    // an empty size.
    virtual QPixmap preview(short id, bool start, const QSize &size) const = 0;
};

} // namespace TavoLib
