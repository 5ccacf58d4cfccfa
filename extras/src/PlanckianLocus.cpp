#include "PlanckianLocus_p.h"
#include "StandardObserverTable_p.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace lxcolor {

namespace {

constexpr double kSecondRadiationConstant = 1.4388e-2; // m K, as CIE 15 fixes it for correlated colour temperature
constexpr double kNanometre = 1e-9;
constexpr double kPerMired = 1e-6;

struct Sums
{
    double X = 0.0;
    double Y = 0.0;
    double Z = 0.0;

    void add(double weight, const ObserverRow& row)
    {
        X += weight * row.x;
        Y += weight * row.y;
        Z += weight * row.z;
    }
};

} // namespace

LocusPoint planckianPoint(double mired)
{
    // Planck's law times the reciprocal temperature, l^-5 m / (exp(c m / l) - 1), which stays finite at m = 0: with
    // t = c m / l it is l^-4 / c times t / (exp(t) - 1).
    Sums light;
    Sums change;
    for (const ObserverRow& row : kObserver) {
        const double l = row.nm * kNanometre;
        const double tPerMired = kSecondRadiationConstant * kPerMired / l;
        const double t = tPerMired * mired;
        const double scale = 1e-26 / (l * l * l * l);
        const double grown = std::expm1(t);
        const double ratio = t > 0.0 ? t / grown : 1.0;
        const double slope = t > 1e-4 ? (1.0 - ratio * (grown + 1.0)) / grown : -0.5 + t / 6.0;
        light.add(scale * ratio, row);
        change.add(scale * slope * tPerMired, row);
    }
    const double denominator = light.X + 15.0 * light.Y + 3.0 * light.Z;
    const double u = 4.0 * light.X / denominator;
    const double v = 6.0 * light.Y / denominator;
    const double denominatorChange = change.X + 15.0 * change.Y + 3.0 * change.Z;
    return {u, v, (4.0 * change.X - u * denominatorChange) / denominator,
            (6.0 * change.Y - v * denominatorChange) / denominator};
}

namespace {

constexpr int kTableSteps = 1000; // one a mired
constexpr int kStride = 20;       // of the first, coarse look

class LocusTable
{
public:
    LocusTable()
    {
        for (int i = 0; i <= kTableSteps; ++i)
            m_points[static_cast<size_t>(i)] = planckianPoint(kMaxMired * i / kTableSteps);
    }

    const LocusPoint& at(int i) const { return m_points[static_cast<size_t>(i)]; }

    /// The locus between two points of the table: the cubic through both with their tangents.
    LocusPoint between(int i, double t) const
    {
        constexpr double h = kMaxMired / kTableSteps;
        const LocusPoint& a = at(i);
        const LocusPoint& b = at(i + 1);
        const auto value = [t](double from, double to, double fromSlope, double toSlope) {
            const double s = 1.0 - t;
            return s * s * (1.0 + 2.0 * t) * from + t * t * (3.0 - 2.0 * t) * to +
                   h * t * s * (s * fromSlope - t * toSlope);
        };
        const auto slope = [t](double from, double to, double fromSlope, double toSlope) {
            return 6.0 * t * (1.0 - t) * (to - from) / h + (1.0 - t) * (1.0 - 3.0 * t) * fromSlope +
                   t * (3.0 * t - 2.0) * toSlope;
        };
        return {value(a.u, b.u, a.du, b.du), value(a.v, b.v, a.dv, b.dv), slope(a.u, b.u, a.du, b.du),
                slope(a.v, b.v, a.dv, b.dv)};
    }

private:
    std::array<LocusPoint, kTableSteps + 1> m_points;
};

const LocusTable& locusTable()
{
    static const LocusTable table;
    return table;
}

double squaredDistance(const LocusPoint& point, double u, double v)
{
    return (u - point.u) * (u - point.u) + (v - point.v) * (v - point.v);
}

/// How far (u, v) lies ahead of the normal through a point of the locus.
double ahead(const LocusPoint& point, double u, double v)
{
    return (u - point.u) * point.du + (v - point.v) * point.dv;
}

int nearestCoarseStep(const LocusTable& table, double u, double v)
{
    int nearest = 0;
    double least = squaredDistance(table.at(0), u, v);
    for (int i = kStride; i <= kTableSteps; i += kStride) {
        const double squared = squaredDistance(table.at(i), u, v);
        if (squared < least) {
            least = squared;
            nearest = i;
        }
    }
    return nearest;
}

/// The step after which (u, v) lies between two neighbouring normals; -1 when it does so nowhere near.
int stepBetweenNormals(const LocusTable& table, int nearest, double u, double v)
{
    const int last = std::min(nearest + kStride, kTableSteps);
    for (int i = std::max(nearest - kStride, 0); i < last; ++i)
        if (ahead(table.at(i), u, v) >= 0.0 && ahead(table.at(i + 1), u, v) <= 0.0)
            return i;
    return -1;
}

} // namespace

NearestOnLocus nearestOnLocus(double u, double v)
{
    const LocusTable& table = locusTable();
    const int step = stepBetweenNormals(table, nearestCoarseStep(table, u, v), u, v);
    if (step < 0)
        return {false, 0.0, 0.0};

    // The distance ahead is all but linear between two steps, so that few halvings by the chord are exact.
    double low = 0.0;
    double high = 1.0;
    double atLow = ahead(table.at(step), u, v);
    double atHigh = ahead(table.at(step + 1), u, v);
    LocusPoint foot = table.at(step);
    double t = 0.0;
    constexpr int kRefinements = 4;
    for (int i = 0; i < kRefinements && atLow - atHigh > 0.0; ++i) {
        t = low + (high - low) * atLow / (atLow - atHigh);
        foot = table.between(step, t);
        const double here = ahead(foot, u, v);
        (here >= 0.0 ? low : high) = t;
        (here >= 0.0 ? atLow : atHigh) = here;
    }
    const double side = (v - foot.v) * foot.du - (u - foot.u) * foot.dv;
    return {true, (step + t) * kMaxMired / kTableSteps, std::copysign(std::sqrt(squaredDistance(foot, u, v)), side)};
}

void moveOffLocus(const LocusPoint& point, double duv, double& u, double& v)
{
    const double length = std::hypot(point.du, point.dv);
    u = point.u - duv * point.dv / length;
    v = point.v + duv * point.du / length;
}

} // namespace lxcolor
