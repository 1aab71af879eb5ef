#pragma once

// DesignShadow turns an outline into a soft shadow. The caller paints the outline into an
// ARGB32 image that leaves GetSize() pixels of room around it (half on each side), and
// ConvertToShadow replaces the image by a blur of the outline's alpha mask in the shadow
// colour. The blur is three box passes per axis, close to a Gaussian whose visible extent is
// the settings' radius.
#include "style/TavoLibGuiExport.h"
#include "widgets/DesignShadowSettings.h"

#include <QColor>
#include <QImage>

class TAVOLIBGUI_EXPORT DesignShadow
{
public:
    explicit DesignShadow(const DesignShadowSettings &settings = DesignShadowSettings());

    const DesignShadowSettings &settings() const { return mSettings; }

    // The room the shadow needs beyond the outline, both sides together (twice the radius).
    double GetSize() const;

    // Replaces the image by the shadow of its alpha mask, in the given colour whose alpha is
    // scaled by the strength. Works on any format; the result is premultiplied ARGB32. A null
    // image stays null.
    void ConvertToShadow(QImage &image, const QColor &color) const;

private:
    DesignShadowSettings mSettings;
};
