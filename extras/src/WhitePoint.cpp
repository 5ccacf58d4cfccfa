#include "WhitePoint.h"

#include "CCTUtils.h"
#include "PlanckianLocus_p.h"

#include <cmath>

static_assert(WhitePoint::maxMired == lxcolor::kMaxMired, "the locus covers the mireds of white points");

namespace {

constexpr double kV1976Per1960 = 1.5; // v' = 1.5 v; u' = u

} // namespace

WhitePoint WhitePoint::fromxy(double x, double y)
{
    WhitePoint white;
    if (!std::isfinite(x) || !std::isfinite(y) || !(y > 0.0))
        return white;
    white.m_x = x;
    white.m_y = y;
    const QPointF uv = white.uv1960();
    if (!std::isfinite(uv.x()) || !std::isfinite(uv.y()))
        return WhitePoint();
    const lxcolor::NearestOnLocus nearest = lxcolor::nearestOnLocus(uv.x(), uv.y());
    if (nearest.found) {
        white.m_mired = nearest.mired + 0.0;
        white.m_duv = nearest.duv;
    }
    return white;
}

WhitePoint WhitePoint::fromCctAndDuv(double cctKelvin, double duv)
{
    return cctKelvin > 0.0 ? fromMiredAndDuv(miredFromKelvin(cctKelvin), duv) : WhitePoint();
}

WhitePoint WhitePoint::fromMiredAndDuv(double mired, double duv)
{
    WhitePoint white;
    if (!(mired >= 0.0 && mired <= maxMired) || !std::isfinite(duv))
        return white;
    double u = 0.0;
    double v = 0.0;
    lxcolor::moveOffLocus(lxcolor::planckianPoint(mired), duv, u, v);
    white.m_x = CCTUtils::getxFromuvPrime(u, kV1976Per1960 * v);
    white.m_y = CCTUtils::getyFromuvPrime(u, kV1976Per1960 * v);
    white.m_mired = mired + 0.0; // a zero without a sign, or the CCT would be minus infinity
    white.m_duv = duv;
    return white;
}

WhitePoint WhitePoint::fromCctAndTint(int cctKelvin, int tint)
{
    double x = 0.0;
    double y = 0.0;
    return CCTUtils::getxyFromCCTAndTint(cctKelvin, tint, x, y) ? fromxy(x, y) : WhitePoint();
}

WhitePoint WhitePoint::daylight(double cctKelvin)
{
    if (!(cctKelvin >= 4000.0 && cctKelvin <= 25000.0))
        return WhitePoint();
    const double r = 1e3 / cctKelvin;
    const double x = cctKelvin <= 7000.0 ? ((-4.6070 * r + 2.9678) * r + 0.09911) * r + 0.244063
                                         : ((-2.0064 * r + 1.9018) * r + 0.24748) * r + 0.237040;
    return fromxy(x, (-3.000 * x + 2.870) * x - 0.275);
}

bool WhitePoint::isValid() const { return std::isfinite(m_x) && std::isfinite(m_y); }

QPointF WhitePoint::xy() const { return {m_x, m_y}; }

QPointF WhitePoint::uvPrime() const
{
    return {CCTUtils::getuPrimeFromxy(m_x, m_y), CCTUtils::getvPrimeFromxy(m_x, m_y)};
}

QPointF WhitePoint::uv1960() const
{
    const QPointF prime = uvPrime();
    return {prime.x(), prime.y() / kV1976Per1960};
}

bool WhitePoint::hasCct() const { return !std::isnan(m_mired); }

bool WhitePoint::isNearLocus() const { return std::abs(m_duv) <= maxMeaningfulDuv; }

double WhitePoint::cctKelvin() const { return kelvinFromMired(m_mired); }

double WhitePoint::mired() const { return m_mired; }

double WhitePoint::duv() const { return m_duv; }

bool WhitePoint::getCctAndTint(int& cctKelvin, int& tint) const
{
    return CCTUtils::getCCTAndTintFromxy(m_x, m_y, cctKelvin, tint);
}
