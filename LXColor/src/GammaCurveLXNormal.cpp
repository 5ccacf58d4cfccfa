#include "GammaCurveLXNormal.h"

#include "CurveTables_p.h"

GammaCurveLXNormal::GammaCurveLXNormal() { GammaCurveLXNormal::createLut(); }

void GammaCurveLXNormal::createLut() { createLutFromPoints(lxcolor::kNormalCurvePoints); }
