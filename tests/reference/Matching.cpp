#include "Matching.h"

#include <QMap>

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

double single(double v) { return static_cast<double>(static_cast<float>(v)); }

double saturated(double level) { return std::isnan(level) ? 0.0 : std::max(0.0, std::min(1.0, level)); }

double lengthSquared(QPointF a, QPointF b)
{
    return std::abs((a.x() - b.x()) * (a.x() - b.x()) + (a.y() - b.y()) * (a.y() - b.y()));
}

double length(QPointF a, QPointF b) { return std::sqrt(lengthSquared(a, b)); }

double snapped(double w)
{
    if (w > -5e-05 && w < 0)
        w = 0;
    if (w > 1 && w < 1.00005)
        w = 1.0;
    return w;
}

} // namespace

// ---- Emitters ----

Record& record(ProfileId id, Configuration configuration)
{
    static QMap<int, Record> records;
    const int key = effectiveId(id, configuration);
    if (!records.contains(key)) {
        Record made;
        for (const Emitter& emitter : builtInEmitters(key)) {
            made.X << emitter.X;
            made.Y << emitter.Y;
            made.Z << emitter.Z;
        }
        made.calculatePolygon();
        records.insert(key, made);
    }
    return records[key];
}

void Record::calculatePolygon()
{
    corners.clear();
    for (int primary = 0; primary < 3; ++primary) {
        QVector<double> levels(3, 0.0);
        levels[primary] = 1.0;
        const Yxy light = mix(levels, *this, 0);
        corners << QPointF(light.x, light.y);
    }
}

double squareLawRatio(quint16 level)
{
    const double d = level;
    const double p = 1.674e-18 * std::pow(d, 4) - 2.11838e-13 * std::pow(d, 3) + 1.4257e-5 * std::pow(d, 2) +
                     0.065828 * d - 4.8488e-5;
    const double ratio = std::max(0.0, single(p));
    return ratio > 65516 ? 1.0 : ratio / 65516;
}

double tungstenRatio(quint16 level)
{
    const double d = level;
    const double p = 3.7684e-29 * std::pow(d, 7) - 9.555e-24 * std::pow(d, 6) + 1.045e-18 * std::pow(d, 5) -
                     6.1689e-14 * std::pow(d, 4) + 2.031e-9 * std::pow(d, 3) - 1.6217e-5 * std::pow(d, 2) -
                     9.38789e-10 * d - 4.64192e-16;
    const double ratio = std::max(0.0, single(p));
    return ratio > 65535 ? 1.0 : ratio / 65535;
}

double onboardResponse(double level, int curveType)
{
    const auto drive = static_cast<quint16>(static_cast<int>(level * 65535));
    if (curveType == 2)
        return tungstenRatio(drive);
    return curveType == 1 ? squareLawRatio(drive) : level;
}

Yxy fromXYZ(double X, double Y, double Z)
{
    if (!(X > 0) && !(Y > 0) && !(Z > 0))
        return {0, 0, 0};
    const double x = X / (X + Y + Z);
    const double y = Y / (X + Y + Z);
    const bool finite = std::isfinite(x) && std::isfinite(y);
    return {std::max({X, Y, Z}), finite ? x : 0, finite ? y : 0};
}

Yxy mix(const QVector<double>& levels, const Record& record, int curveType)
{
    double Y = 0, sumX = 0, sumY = 0, sumZ = 0;
    for (int i = 0; i < levels.size() && i < record.emitters(); ++i) {
        const double v = onboardResponse(levels[i], curveType);
        Y = std::max(Y, v);
        sumX += record.X[i] * v;
        sumY += record.Y[i] * v;
        sumZ += record.Z[i] * v;
    }
    const double x = sumX / (sumX + sumY + sumZ);
    const double y = sumY / (sumX + sumY + sumZ);
    const bool finite = std::isfinite(x) && std::isfinite(y);
    return {Y, finite ? x : 0, finite ? y : 0};
}

// ---- Gamut ----

double minDistance(QPointF v, QPointF w, QPointF p, QPointF& closest)
{
    const double l2 = lengthSquared(v, w);
    if (l2 == 0) {
        closest = v;
        return length(p, v);
    }
    const QPointF toP = p - v;
    const QPointF toW = w - v;
    const double t = (toP.x() * toW.x() + toP.y() * toW.y()) / l2;
    if (t < 0)
        closest = v;
    else if (t > 1.0)
        closest = w;
    else
        closest = v + t * (w - v);
    return length(p, closest);
}

bool closestPtOnGamut(const Record& record, double x, double y, double& outX, double& outY)
{
    if (QPolygonF(record.corners).containsPoint(QPointF(x, y), Qt::OddEvenFill)) {
        outX = x;
        outY = y;
        return true;
    }
    double best = -1;
    for (const QPointF& corner : record.corners) {
        const int index = record.corners.indexOf(corner); // the first that equals it
        const QPointF next = corner == record.corners.last() ? record.corners.first() : record.corners[index + 1];
        QPointF nearest;
        const double d = minDistance(corner, next, QPointF(x, y), nearest);
        if (best == -1 || best > d) {
            best = d;
            outX = nearest.x();
            outY = nearest.y();
        }
    }
    return false;
}

// ---- Levels ----

void eliminate(const double m[2][3], double& a, double& b)
{
    const double f = single(m[1][0] / m[0][0]);
    const double d = m[1][1] - f * m[0][1];
    const double g = single(m[0][1] / d);
    const double r = m[1][2] - f * m[0][2];
    b = single(1 / d) * r;
    a = single(1 / (m[0][0] - (m[1][0] - f * m[0][0]) * g)) * (m[0][2] - g * r);
}

bool validateDimmingRatio(const std::vector<double>& ratios)
{
    return std::none_of(ratios.begin(), ratios.end(), [](double ratio) { return ratio < 0 || ratio > 1; });
}

QVector<double> solve(Yxy light, Configuration configuration, ProfileId id, bool clampToGamut)
{
    const int channels = layout(configuration).channels;
    const Record& emitters = record(id, configuration);
    const int n = std::min(channels, emitters.emitters());
    double x = light.x;
    double y = light.y;
    if (clampToGamut)
        closestPtOnGamut(emitters, light.x, light.y, x, y);

    std::vector<double> best(static_cast<size_t>(channels), 0.0);
    double bestLum = 0;
    const double alpha = y / ((1 - x) - y);
    const double beta = y / x;
    std::vector<double> q, p;
    for (int k = 0; k < n; ++k) {
        q.push_back(emitters.X[k] * beta - emitters.Y[k]);
        p.push_back(emitters.Z[k] * alpha - emitters.Y[k]);
    }
    for (size_t i = 0; n >= 2 && i < q.size(); ++i) {
        for (size_t j = i + 1; j < q.size(); ++j) {
            std::vector<size_t> others;
            for (size_t k = 0; k < q.size(); ++k) {
                if (k != i && k != j)
                    others.push_back(k);
            }
            const int corners = (1 << others.size()) - 1;
            for (int corner = 1; corner <= corners; ++corner) {
                std::vector<double> w(best.size(), 0.0);
                double sx = 0, sz = 0;
                for (size_t t = 0; t < others.size(); ++t) {
                    const size_t k = others[t];
                    w[k] = (corner >> t) & 1 ? 1.0 : 0.0;
                    if (w[k] > 0) {
                        sx -= q[k] * w[k];
                        sz -= p[k] * w[k];
                    }
                }
                const double m[2][3] = {{q[i], q[j], sx}, {p[i], p[j], sz}};
                eliminate(m, w[i], w[j]);
                w[i] = snapped(w[i]);
                w[j] = snapped(w[j]);
                if (!validateDimmingRatio(w))
                    continue;
                double lum = 0;
                for (size_t k = 0; k < q.size(); ++k)
                    lum += w[k] * emitters.Y[static_cast<int>(k)];
                if (lum > bestLum) {
                    bestLum = lum;
                    best = w;
                }
            }
        }
    }
    QVector<double> levels;
    for (double level : best)
        levels << level * light.Y;
    return levels;
}

// ---- Dimming curves ----

float quadraticSolver(float a, float b, float c, float target, float max)
{
    const float disc = b * b + (-4 * a) * (c - target);
    const double s = std::sqrt(static_cast<double>(disc));
    const auto r1 = static_cast<float>((static_cast<double>(-b) + s) / static_cast<double>(2 * a));
    const auto r2 = static_cast<float>((static_cast<double>(-b) - s) / static_cast<double>(2 * a));
    const float root = r1 > 0 ? r1 : r2 > 0 ? r2 : 0.0f;
    return std::floor(std::max(0.0f, std::min(max, root)) + 0.5f);
}

quint8 linearRes8(quint16 pwm) { return static_cast<quint8>(std::floor(pwm / 257.0 + 0.5)); }

quint8 normalRes8(quint16 pwm)
{
    return pwm == 0 ? 0 : static_cast<quint8>(quadraticSolver(0.941203f, 16.936f, -0.065865f, pwm, 255));
}

quint16 normalRes16(quint16 pwm)
{
    return pwm == 0 ? 0 : static_cast<quint16>(quadraticSolver(1.425e-5f, 0.065898f, -0.065865f, pwm, 65535));
}

quint8 tungstenRes8(quint16 pwm)
{
    if (pwm <= 4)
        return static_cast<quint8>(pwm);
    return static_cast<quint8>(pwm <= 321 ? quadraticSolver(0.221829f, -1.002f, 4.339f, pwm, 255)
                                          : quadraticSolver(1.31f, -83.603f, 1573, pwm, 255));
}

quint16 tungstenRes16(quint16 pwm)
{
    if (pwm <= 4)
        return pwm;
    return static_cast<quint16>(pwm <= 321 ? quadraticSolver(3.359e-6f, -0.0039f, 4.339f, pwm, 65535)
                                           : quadraticSolver(1.9829e-5f, -0.325303f, 1573, pwm, 65535));
}

quint8 lut16BitToBit(quint16 value)
{
    const double s = std::sqrt(value * 3.7648 + 286.861969);
    const double r1 = (s - 16.937) / 1.8824;
    const double r2 = (-16.937 - s) / 1.8824;
    const double r = r1 > 0 ? r1 : r2 > 0 ? r2 : 0;
    return static_cast<quint8>(r > 255 ? 255 : r);
}

quint16 toPwm(double level) { return static_cast<quint16>(std::floor(saturated(level) * 65535 + 0.5)); }

quint8 softwareCurve8(int curveType, int index)
{
    if (curveType != 1 && curveType != 2)
        return static_cast<quint8>(index);
    const int point = curvePoints(curveType)[index];
    const int high = point >> 8;
    return static_cast<quint8>((point & 0x80) && high < 255 ? high + 1 : high);
}

quint16 softwareCurve16(int curveType, int index)
{
    if (curveType != 1 && curveType != 2)
        return static_cast<quint16>(index);
    const QVector<int>& points = curvePoints(curveType);
    const int i = index / 256;
    const int j = index % 256;
    if (i == 255)
        return static_cast<quint16>(points[255]);
    return static_cast<quint16>(points[i] + j * 0.00390625 * (points[i + 1] - points[i]));
}

QVector<quint8> applyCurve(int resolution, const QVector<double>& levels, int curveType, int mode)
{
    QVector<quint8> out;
    if (resolution == 2) {
        for (quint16 value : applyCurve16(levels, curveType, mode))
            out << static_cast<quint8>(value >> 8) << static_cast<quint8>(value & 0xff);
        return out;
    }
    for (double level : levels) {
        const quint16 pwm = toPwm(level);
        if (mode != 3 && resolution == 1)
            out << softwareCurve8(curveType, qRound(saturated(level) * 255));
        else if (mode == 3)
            out << (curveType == 2 ? tungstenRes8(pwm) : curveType == 1 ? normalRes8(pwm) : linearRes8(pwm));
    }
    return out;
}

QVector<quint16> applyCurve16(const QVector<double>& levels, int curveType, int mode)
{
    QVector<quint16> out;
    for (double level : levels) {
        const quint16 pwm = toPwm(level);
        if (mode != 3)
            out << softwareCurve16(curveType, static_cast<int>(saturated(level) * 65535));
        else
            out << (curveType == 2 ? tungstenRes16(pwm) : curveType == 1 ? normalRes16(pwm) : pwm);
    }
    return out;
}

} // namespace reference
