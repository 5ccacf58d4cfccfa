#include "StandardObserver.h"

#include "ColorUtils.h"
#include "StandardObserverTable_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using lxcolor::kObserver;
using lxcolor::kObserverFirstNm;
using lxcolor::kObserverLastNm;
using lxcolor::kObserverRowCount;
using lxcolor::kObserverStepNm;
using XYZ = StandardObserver::XYZ;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The weights of four neighbours at distances -1, 0, 1 and 2 for a place t between the middle two.
struct LagrangeWeights
{
    double weight[4];

    explicit LagrangeWeights(double t)
        : weight{-t * (t - 1.0) * (t - 2.0) / 6.0, (t + 1.0) * (t - 1.0) * (t - 2.0) / 2.0,
                 -(t + 1.0) * t * (t - 2.0) / 2.0, (t + 1.0) * t * (t - 1.0) / 6.0}
    {
    }

    double at(int row, double lxcolor::ObserverRow::*column) const
    {
        double value = 0.0;
        for (int k = 0; k < 4; ++k) {
            const int neighbour = row - 1 + k;
            if (neighbour >= 0 && neighbour < kObserverRowCount)
                value += weight[k] * kObserver[neighbour].*column;
        }
        return std::max(value, 0.0);
    }
};

void add(XYZ& sum, double weight, const XYZ& value)
{
    sum.X += weight * value.X;
    sum.Y += weight * value.Y;
    sum.Z += weight * value.Z;
}

/// Adds the integral over a stretch in which both the power and the colour-matching functions are polynomials. Their
/// product is of the fourth degree at most, for which three points are exact.
void addStretch(XYZ& sum, double from, double to, const QPointF& left, const QPointF& right)
{
    const double offset = std::sqrt(0.6);
    const double half = (to - from) / 2.0;
    const double middle = from + half;
    const double slope = (right.y() - left.y()) / (right.x() - left.x());
    constexpr double kWeights[] = {5.0 / 9.0, 8.0 / 9.0, 5.0 / 9.0};
    for (int k = 0; k < 3; ++k) {
        const double nm = middle + (k - 1) * offset * half;
        const double power = left.y() + slope * (nm - left.x());
        add(sum, kWeights[k] * half * power, StandardObserver::at(nm));
    }
}

bool isSpectrum(const QVector<QPointF>& spectrum)
{
    if (spectrum.size() < 2)
        return false;
    for (int i = 0; i < spectrum.size(); ++i) {
        if (!std::isfinite(spectrum.at(i).x()) || !std::isfinite(spectrum.at(i).y()))
            return false;
        if (i > 0 && !(spectrum.at(i).x() > spectrum.at(i - 1).x()))
            return false;
    }
    return true;
}

} // namespace

QPointF StandardObserver::XYZ::xy() const
{
    const double values[3] = {X, Y, Z};
    double Yxy[3];
    ColorUtils::convertXYZtoYxy(values, Yxy);
    return Yxy[0] > 0.0 && Yxy[1] + Yxy[2] > 0.0 ? QPointF(Yxy[1], Yxy[2]) : QPointF(kNaN, kNaN);
}

StandardObserver::XYZ StandardObserver::at(double nm)
{
    if (!(nm >= firstWavelength && nm <= lastWavelength))
        return {};
    const double place = (nm - kObserverFirstNm) / kObserverStepNm;
    const int row = std::min(static_cast<int>(place), kObserverRowCount - 2);
    const LagrangeWeights weights(place - row);
    return {weights.at(row, &lxcolor::ObserverRow::x), weights.at(row, &lxcolor::ObserverRow::y),
            weights.at(row, &lxcolor::ObserverRow::z)};
}

QPointF StandardObserver::locusPoint(double nm) { return at(nm).xy(); }

StandardObserver::XYZ StandardObserver::ofSpectrum(const QVector<QPointF>& spectrum, bool* ok)
{
    const bool usable = isSpectrum(spectrum);
    if (ok)
        *ok = usable;
    XYZ sum;
    if (!usable)
        return sum;
    for (int i = 1; i < spectrum.size(); ++i) {
        const QPointF& left = spectrum.at(i - 1);
        const QPointF& right = spectrum.at(i);
        const double end = std::min(right.x(), double(kObserverLastNm));
        double from = std::max(left.x(), double(kObserverFirstNm));
        while (from < end) {
            // Up to the next wavelength of the table, where the next polynomial begins.
            const double next = kObserverStepNm * (std::floor(from / kObserverStepNm) + 1.0);
            addStretch(sum, from, std::min(next, end), left, right);
            from = next;
        }
    }
    return sum;
}
