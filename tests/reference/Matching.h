#ifndef REFERENCE_MATCHING_H
#define REFERENCE_MATCHING_H

#include "Tables.h"

#include <QPolygonF>

#include <vector>

// Light and levels, step by step: responses, emitter mixing, gamut, the search for levels, dimming curves.
namespace reference {

struct Yxy
{
    double Y, x, y;
};

/// The emitters and the gamut of one fixture.
struct Record
{
    QVector<double> X, Y, Z;
    QVector<QPointF> corners;
    int emitters() const { return std::min({X.size(), Y.size(), Z.size()}); }
    void calculatePolygon();
};
/// The record for a profile and configuration, made from the built-in tables on first use. Tests may rewrite it.
Record& record(ProfileId id, Configuration configuration);

double squareLawRatio(quint16 level);
double tungstenRatio(quint16 level);
double onboardResponse(double level, int curveType);
Yxy fromXYZ(double X, double Y, double Z);
/// The light of emitters driven with \a levels through an onboard curve.
Yxy mix(const QVector<double>& levels, const Record& record, int curveType);

double minDistance(QPointF v, QPointF w, QPointF p, QPointF& closest);
bool closestPtOnGamut(const Record& record, double x, double y, double& outX, double& outY);

void eliminate(const double m[2][3], double& a, double& b);
bool validateDimmingRatio(const std::vector<double>& ratios);
QVector<double> solve(Yxy light, Configuration configuration, ProfileId id, bool clampToGamut);

float quadraticSolver(float a, float b, float c, float target, float max);
quint8 linearRes8(quint16 pwm);
quint8 normalRes8(quint16 pwm);
quint16 normalRes16(quint16 pwm);
quint8 tungstenRes8(quint16 pwm);
quint16 tungstenRes16(quint16 pwm);
quint8 lut16BitToBit(quint16 value);
quint16 toPwm(double level);

quint8 softwareCurve8(int curveType, int index);
quint16 softwareCurve16(int curveType, int index);
/// What is written for the levels, in order: nothing where nothing is.
QVector<quint8> applyCurve(int resolution, const QVector<double>& levels, int curveType, int mode);
QVector<quint16> applyCurve16(const QVector<double>& levels, int curveType, int mode);

} // namespace reference

#endif
