#pragma once

// The line-head provider as the widgets take it: adds the head's outline, so that a widget
// can draw heads itself.
#include "core/LineHeadStyleProvider.h"

#include <QPainterPath>

namespace TavoLib {

class TAVOLIBCORE_EXPORT LineHeadStyleProviderQt : public LineHeadStyleProvider
{
public:
    using Ptr = TAutoPtr<LineHeadStyleProviderQt>;
    using ConstPtr = TAutoPtr<LineHeadStyleProviderQt const>;

    ~LineHeadStyleProviderQt() override;

    // The head for a line ending at (0, 0) and coming from the negative x side, in units of
    // the line width. Empty for no head or an unknown id.
    virtual QPainterPath headPath(short id) const = 0;
    // Whether the outline is filled rather than stroked.
    virtual bool isFilled(short id) const = 0;
};

} // namespace TavoLib
