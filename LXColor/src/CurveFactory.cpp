#include "CurveFactory.h"

#include "LazyInstance_p.h"
#include "OnboardResponse_p.h"

#include <QObject>

std::atomic<CurveFactory*> CurveFactory::s_instance{nullptr};

namespace {

const char* const kCurveNames[] = {
    QT_TRANSLATE_NOOP("QObject", "Linear (Default)"),
    QT_TRANSLATE_NOOP("QObject", "Normal (LX Gamma)"),
    QT_TRANSLATE_NOOP("QObject", "Tungsten/Incandescent"),
};
constexpr int kCurveCount = sizeof kCurveNames / sizeof *kCurveNames;

} // namespace

CurveFactory* CurveFactory::Instance()
{
    return lxcolor::lazyInstance(s_instance, [](auto store) { store(new CurveFactory); });
}

CurveFactory::CurveFactory() { createCurves(); }

void CurveFactory::createCurves()
{
    m_curves.insert(lxcolor::kCurveLinear, &m_linear);
    m_curves.insert(lxcolor::kCurveNormal, &m_normal);
    m_curves.insert(lxcolor::kCurveTungsten, &m_tungsten);
}

Curve* CurveFactory::getCurve(int curveType) { return m_curves.value(curveType, &m_linear); }

QString CurveFactory::nameForCurveType(int curveType)
{
    return curveType >= 0 && curveType < kCurveCount ? QObject::tr(kCurveNames[curveType]) : QString();
}

int CurveFactory::curveTypeFromName(const QString& name)
{
    for (int type = 0; type < kCurveCount; ++type)
        if (name == nameForCurveType(type))
            return type;
    return -1;
}
