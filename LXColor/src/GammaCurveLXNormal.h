#ifndef GAMMACURVELXNORMAL_H
#define GAMMACURVELXNORMAL_H

#include "Curve.h"
#include "LXColorExport.h"

/// The normal (square-law) dimming curve.
class LXCOLOR_EXPORT GammaCurveLXNormal : public Curve
{
public:
    GammaCurveLXNormal();

    void createLut() override;
};

#endif
