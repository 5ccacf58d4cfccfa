#include "GammaCurveTungsten.h"

#include "CurveTables_p.h"

GammaCurveTungsten::GammaCurveTungsten() { GammaCurveTungsten::createLut(); }

void GammaCurveTungsten::createLut() { createLutFromPoints(lxcolor::kTungstenCurvePoints); }
