#ifndef CURVEFACTORY_H
#define CURVEFACTORY_H

#include "Curve.h"
#include "GammaCurveLXNormal.h"
#include "GammaCurveTungsten.h"
#include "LXColorExport.h"

#include <QMap>
#include <QString>

#include <atomic>

/// The registry of software dimming curves by curve type: 0 linear, 1 normal, 2 tungsten. It owns the curves.
class LXCOLOR_EXPORT CurveFactory
{
public:
    /// The process-wide registry: created with all curves and tables on first use, never destroyed.
    static CurveFactory* Instance();

    /// A registry of its own, filled.
    CurveFactory();

    /// Registers the three curves.
    void createCurves();

    /// The curve of a type; the linear one for an unknown type.
    Curve* getCurve(int curveType);
    /// The translated name of a curve type; empty for an unknown one.
    QString nameForCurveType(int curveType);
    /// The curve type with a translated name; -1 when there is none.
    int curveTypeFromName(const QString& name);

private:
    Q_DISABLE_COPY(CurveFactory)

    Curve m_linear;
    GammaCurveLXNormal m_normal;
    GammaCurveTungsten m_tungsten;
    QMap<int, Curve*> m_curves;
    static std::atomic<CurveFactory*> s_instance;
};

#endif
