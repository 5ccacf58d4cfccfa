#include "MixBounds_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lxcolor {

namespace {

// Relative errors, generously: of one rounding to single precision, and of a few operations in double precision.
constexpr double kSingleError = 0x1p-23;
constexpr double kDoubleError = 0x1p-48;
// Added to errors for what underflows in single precision.
constexpr double kUnderflow = 1e-40;
// Second-order terms and the rounding of the bounds themselves are far below a factor of two.
constexpr double kSlack = 2.0;
// Levels within this of 0 and 1 are moved onto them, and accepted.
constexpr double kSnap = 5.0001e-05;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Beyond these magnitudes single precision might overflow or underflow.
constexpr double kLargest = 1e15;
constexpr double kSmallest = 1e-15;

constexpr MixBounds kNeverValid = {false, true, false, 0.0, 0.0, {}, 0.0};
constexpr MixBounds kNothingCertain = {false, false, false, kInfinity, 0.0, {}, kInfinity};

struct Range
{
    double low = kInfinity;
    double high = -kInfinity;

    void include(double v)
    {
        low = std::min(low, v);
        high = std::max(high, v);
    }
    bool keepsSign() const { return low > 0.0 || high < 0.0; }
    double least() const { return keepsSign() ? std::min(std::fabs(low), std::fabs(high)) : 0.0; }
    double magnitude() const { return std::max(std::fabs(low), std::fabs(high)); }
};

double clamp01(double v) { return std::min(std::max(v, 0.0), 1.0); }

/// The product of two functions that are linear in each variable, in Bernstein form: in the rectangle it lies between
/// its least and its greatest coefficient, and so do sums of such products.
struct ProductForm
{
    double coefficient[3][3];

    ProductForm(const double (&f)[2][2], const double (&g)[2][2])
    {
        const auto along = [](const double(&u)[2], const double(&v)[2], double(&out)[3]) {
            out[0] = u[0] * v[0];
            out[1] = 0.5 * (u[0] * v[1] + u[1] * v[0]);
            out[2] = u[1] * v[1];
        };
        double mixed[3];
        along(f[0], g[0], coefficient[0]);
        along(f[1], g[1], coefficient[2]);
        along(f[0], g[1], coefficient[1]);
        along(f[1], g[0], mixed);
        for (int k = 0; k < 3; ++k)
            coefficient[1][k] = 0.5 * (coefficient[1][k] + mixed[k]);
    }
};

double largest(const double (&values)[2][2])
{
    return std::max(
        {std::fabs(values[0][0]), std::fabs(values[0][1]), std::fabs(values[1][0]), std::fabs(values[1][1])});
}

bool surelyOutside(const Range& level, double error)
{
    return level.high + error < -kSnap || level.low - error > 1.0 + kSnap;
}

bool surelyInside(const Range& level, double error)
{
    return level.low - error > -0.9 * kSnap && level.high + error < 1.0 + 0.9 * kSnap;
}

} // namespace

double MixBounder::Coefficients::largestQ() const { return std::max(std::fabs(q[0]), std::fabs(q[1])) + qError; }

double MixBounder::Coefficients::largestP() const { return std::max(std::fabs(p[0]), std::fabs(p[1])) + pError; }

double MixBounder::Coefficients::smallestQ() const
{
    const bool keepsSign = (q[0] > 0.0) == (q[1] > 0.0);
    return keepsSign ? std::min(std::fabs(q[0]), std::fabs(q[1])) - qError : 0.0;
}

MixBounder::MixBounder(const EmitterView& emitters, int count, const ChromaticityBox& box) : m_emitters(emitters)
{
    // Both quotients are monotone in x and in y; a little is added for the rounding of the request's own.
    constexpr double kOutwards = 1e-12;
    const double zLow = 1.0 - box.high.x - box.high.y;
    const double zHigh = 1.0 - box.low.x - box.low.y;
    // Of sums of emitters with values of both signs the magnitudes would say nothing about their rounding.
    const auto isMeasured = [count](const double* values) {
        return std::all_of(values, values + count, [](double value) { return value >= 0.0; });
    };
    m_usable = box.low.x > 1e-3 && box.low.y > 1e-3 && zLow > 1e-3 && isMeasured(emitters.X) &&
               isMeasured(emitters.Y) && isMeasured(emitters.Z);
    m_b[0] = box.low.y / box.high.x * (1.0 - kOutwards);
    m_b[1] = box.high.y / box.low.x * (1.0 + kOutwards);
    m_a[0] = box.low.y / zHigh * (1.0 - kOutwards);
    m_a[1] = box.high.y / zLow * (1.0 + kOutwards);
    for (int k = 0; k < count; ++k)
        m_coefficients[k] = coefficientsOf(emitters.X[k], emitters.Y[k], emitters.Z[k]);
}

MixBounder::Coefficients MixBounder::coefficientsOf(double X, double Y, double Z) const
{
    Coefficients c;
    for (int end = 0; end < 2; ++end) {
        c.q[end] = X * m_b[end] - Y;
        c.p[end] = Z * m_a[end] - Y;
    }
    c.qError = kDoubleError * (std::fabs(X) * m_b[1] + std::fabs(Y));
    c.pError = kDoubleError * (std::fabs(Z) * m_a[1] + std::fabs(Y));
    return c;
}

MixBounds MixBounder::boundsOf(const Mix& mix) const
{
    if (!m_usable)
        return kNothingCertain;

    // The emitters that are full, as one.
    double X = 0.0;
    double Y = 0.0;
    double Z = 0.0;
    double magnitude = 0.0;
    for (int t = 0; t < mix.otherCount; ++t) {
        if (!(mix.corner & (1 << t)))
            continue;
        const int k = mix.others[t];
        X += m_emitters.X[k];
        Y += m_emitters.Y[k];
        Z += m_emitters.Z[k];
        magnitude += m_coefficients[k].largestQ() + m_coefficients[k].largestP();
    }
    Coefficients full = coefficientsOf(X, Y, Z);
    full.qError += kDoubleError * magnitude;
    full.pError += kDoubleError * magnitude;
    const Coefficients& ci = m_coefficients[mix.i];
    const Coefficients& cj = m_coefficients[mix.j];
    const double Yi = m_emitters.Y[mix.i];
    const double Yj = m_emitters.Y[mix.j];

    // The exact levels and luminance at the corners of the rectangle.
    Range determinant;
    Range numeratorJ;
    Range levelI;
    Range levelJ;
    Range luminance;
    BilinearQuotient quotient = {};
    for (int b = 0; b < 2; ++b) {
        for (int a = 0; a < 2; ++a) {
            const double D = ci.q[b] * cj.p[a] - cj.q[b] * ci.p[a];
            const double i = (cj.q[b] * full.p[a] - full.q[b] * cj.p[a]) / D;
            const double Nj = full.q[b] * ci.p[a] - ci.q[b] * full.p[a];
            const double j = Nj / D;
            determinant.include(D);
            numeratorJ.include(Nj);
            levelI.include(i);
            levelJ.include(j);
            luminance.include(Y + i * Yi + j * Yj);
            quotient.numerator[b][a] = Y * D + (cj.q[b] * full.p[a] - full.q[b] * cj.p[a]) * Yi + Nj * Yj;
            quotient.denominator[b][a] = D;
        }
    }
    const double qi = ci.smallestQ();
    if (!(qi > 0.0))
        return kNothingCertain;

    // The rounding of each step of the elimination, from the largest magnitudes.
    const double qI = ci.largestQ();
    const double qJ = cj.largestQ();
    const double pI = ci.largestP();
    const double pJ = cj.largestP();
    const double sx = full.largestQ();
    const double sz = full.largestP();
    const double f = pI / qi;
    const double fError = f * kSingleError + (ci.pError + f * ci.qError) / qi + kUnderflow;
    const double dSmallest = determinant.least() / qI;
    const double dLargest = determinant.magnitude() / qi;
    const double rSmallest = numeratorJ.least() / qI;
    const double dError = fError * qJ + f * cj.qError + cj.pError + kDoubleError * (pJ + f * qJ);
    const double rError = fError * sx + f * full.qError + full.pError + kDoubleError * (sz + f * sx);
    if (!(std::max({qI, qJ, pI, pJ, sx, sz, f}) < kLargest) || !(qi > kSmallest))
        return kNothingCertain;
    // However small the pivot becomes: the second level is more than full, or as much below zero.
    if (rSmallest - kSlack * rError > (1.0 + 2.0 * kSnap) * (dLargest + kSlack * dError))
        return kNeverValid;
    if (!(dSmallest > kSmallest) || !(kSlack * dError < 0.25 * dSmallest))
        return kNothingCertain;

    const double jLargest = levelJ.magnitude();
    const double jError = (rError + jLargest * dError) / (0.75 * dSmallest) + 2.0 * kSingleError * jLargest;
    const double jBound = jLargest + kSlack * jError;
    const double numeratorError = full.qError + qJ * jError + cj.qError * jBound + 2.0 * kSingleError * qJ * jBound +
                                  kDoubleError * (sx + qJ * jBound) + kUnderflow * (sz + f * sx);
    const double residue = qI * fError + kDoubleError * (pI + f * qI);
    const double perturbation = (residue * 2.0 * qJ / dSmallest + ci.qError) / qi;
    if (!(perturbation < 0.25))
        return kNothingCertain;
    const double iLargest = levelI.magnitude();
    const double iError = (numeratorError / qi + iLargest * perturbation) / 0.75 + 2.0 * kSingleError * iLargest;

    const double iSlack = kSlack * iError;
    const double jSlack = kSlack * jError;
    const auto productError = [](double u, double uError, double v, double vError) {
        return uError * v + u * vError + kDoubleError * u * v;
    };
    quotient.denominatorError = productError(qI, ci.qError, pJ, cj.pError) + productError(qJ, cj.qError, pI, ci.pError);
    quotient.numeratorError =
        std::fabs(Y) * quotient.denominatorError +
        std::fabs(Yi) * (productError(qJ, cj.qError, sz, full.pError) + productError(sx, full.qError, pJ, cj.pError)) +
        std::fabs(Yj) * (productError(sx, full.qError, pI, ci.pError) + productError(qI, ci.qError, sz, full.pError)) +
        kDoubleError * largest(quotient.numerator);

    MixBounds bounds;
    bounds.isCertain = true;
    bounds.luminance = quotient;
    bounds.neverValid = surelyOutside(levelI, iSlack) || surelyOutside(levelJ, jSlack);
    bounds.alwaysValid = surelyInside(levelI, iSlack) && surelyInside(levelJ, jSlack);
    const double luminanceError =
        std::fabs(Yi) * (iSlack + kSnap) + std::fabs(Yj) * (jSlack + kSnap) + kDoubleError * std::fabs(Y);
    const double fullLuminance = Y + clamp01(levelI.high + iSlack) * Yi + clamp01(levelJ.high + jSlack) * Yj;
    bounds.highestLuminance = luminance.high + luminanceError;
    if (Yi >= 0.0 && Yj >= 0.0)
        bounds.highestLuminance = std::min(bounds.highestLuminance, fullLuminance * (1.0 + kDoubleError) + kUnderflow);
    bounds.lowestLuminance = luminance.low - luminanceError;
    bounds.luminanceError = luminanceError;
    return bounds;
}

bool MixBounds::surelyOutshines(const MixBounds& other) const
{
    if (!isCertain || !other.isCertain)
        return false;
    // N/D - n/d = (N d - n D) / (D d), and neither D nor d changes its sign.
    const BilinearQuotient& own = luminance;
    const BilinearQuotient& others = other.luminance;
    const double N = largest(own.numerator);
    const double D = largest(own.denominator);
    const double n = largest(others.numerator);
    const double d = largest(others.denominator);
    const double error = own.numeratorError * d + N * others.denominatorError + others.numeratorError * D +
                         n * own.denominatorError + kDoubleError * (N * d + n * D);
    const double margin = kSlack * (luminanceError + other.luminanceError) * D * d;
    const ProductForm ownForm(own.numerator, others.denominator);
    const ProductForm otherForm(others.numerator, own.denominator);
    const double sign = (own.denominator[0][0] > 0.0) == (others.denominator[0][0] > 0.0) ? 1.0 : -1.0;
    double least = kInfinity;
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k)
            least = std::min(least, sign * (ownForm.coefficient[i][k] - otherForm.coefficient[i][k]));
    return least > margin + kSlack * error; // not where anything is no number
}

} // namespace lxcolor
