#pragma once

// DesignShadowSettings describes a soft drop shadow: how far the blur reaches beyond the
// outline (radius, in pixels) and how dark the shadow is at its core (strength, 0 to 100
// percent of the shadow colour's alpha). Values outside those ranges are clamped by
// DesignShadow.
#include "style/TavoLibGuiExport.h"

class TAVOLIBGUI_EXPORT DesignShadowSettings
{
public:
    DesignShadowSettings() = default;
    DesignShadowSettings(double radius, int strength) : mRadius(radius), mStrength(strength) { }

    double radius() const { return mRadius; }
    void setRadius(double radius) { mRadius = radius; }
    int strength() const { return mStrength; }
    void setStrength(int strength) { mStrength = strength; }

private:
    double mRadius = 10.0;
    int mStrength = 50;
};
