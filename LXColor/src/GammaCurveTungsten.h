#ifndef GAMMACURVETUNGSTEN_H
#define GAMMACURVETUNGSTEN_H

#include "Curve.h"
#include "LXColorExport.h"

/// The dimming curve of a tungsten lamp.
class LXCOLOR_EXPORT GammaCurveTungsten : public Curve
{
public:
    GammaCurveTungsten();

    void createLut() override;
};

#endif
