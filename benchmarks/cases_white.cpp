// White points, beside the published formulas.
#include "CCTUtils.h"
#include "RobertsonTable.h"
#include "Suite.h"
#include "WhitePoint.h"

#include <QPointF>

#include <cmath>
#include <random>

using benchmark::DoNotOptimize;

namespace {

const QString kWhite = QStringLiteral("White points");

std::vector<int> ccts()
{
    std::mt19937 random(5);
    std::vector<int> values(1024);
    for (int& cct : values)
        cct = 1950 + 10 * static_cast<int>(random() % 906);
    return values;
}

/// Chromaticities x, y beside the locus, within half the full tint.
std::vector<QPointF> whites()
{
    std::mt19937 random(6);
    std::vector<QPointF> values;
    for (const int cct : ccts()) {
        QPointF xy;
        CCTUtils::getxyFromCCTAndTint(cct, static_cast<int>(random() % 32768) - 16384, xy.rx(), xy.ry());
        values.push_back(xy);
    }
    return values;
}

/// M. Krystek, "An algorithm to calculate correlated colour temperature", Color Res. Appl. 10 (1985): the locus in CIE
/// 1960 u, v from 1000 to 15000 K.
QPointF krystek(double T)
{
    const double u =
        (0.860117757 + 1.54118254e-4 * T + 1.28641212e-7 * T * T) / (1.0 + 8.42420235e-4 * T + 7.08145163e-7 * T * T);
    const double v =
        (0.317398726 + 4.22806245e-5 * T + 4.20481691e-8 * T * T) / (1.0 - 2.89741816e-5 * T + 1.61456053e-7 * T * T);
    const double d = 2.0 * u - 8.0 * v + 4.0;
    return {3.0 * u / d, 2.0 * v / d};
}

/// C. S. McCamy, "Correlated color temperature as an explicit function of chromaticity coordinates", Color Res. Appl.
/// 17 (1992).
double mcCamy(QPointF xy)
{
    const double n = (xy.x() - 0.3320) / (xy.y() - 0.1858);
    return ((-449.0 * n + 3525.0) * n - 6823.3) * n + 5520.33;
}

/// A. R. Robertson (1968): the two isotherms that a chromaticity lies between, and its place between them in mired.
double robertson(QPointF xy)
{
    const double d = -2.0 * xy.x() + 12.0 * xy.y() + 3.0;
    const double u = 4.0 * xy.x() / d;
    const double v = 6.0 * xy.y() / d;
    double before = 0.0;
    for (std::size_t i = 0; i < std::size(reference::kRobertson); ++i) {
        const auto& row = reference::kRobertson[i];
        const double distance = (v - row[2] - row[3] * (u - row[1])) / std::sqrt(1.0 + row[3] * row[3]);
        if (i > 0 && distance < 0.0) {
            const double previous = reference::kRobertson[i - 1][0];
            return 1e6 / (previous + before / (before - distance) * (row[0] - previous));
        }
        before = distance;
    }
    return 0.0;
}

} // namespace

void addWhitePointCases(Cases& cases)
{
    cases.push_back({kWhite,
                     "CCT and tint to x, y",
                     {contenderOver(kLibrary, ccts(),
                                    [](int cct) {
                                        double x = 0.0;
                                        double y = 0.0;
                                        CCTUtils::getxyFromCCTAndTint(cct, 5000, x, y);
                                        DoNotOptimize(x + y);
                                    }),
                      contenderOver("Krystek, CCT alone", ccts(), [](int cct) { DoNotOptimize(krystek(cct)); }),
                      contenderOver("Extras' WhitePoint, with Duv", ccts(),
                                    [](int cct) { DoNotOptimize(WhitePoint::fromCctAndDuv(cct, 0.003)); })}});
    cases.push_back({kWhite,
                     "x, y to CCT and tint",
                     {contenderOver(kLibrary, whites(),
                                    [](QPointF xy) {
                                        int cct = 0;
                                        int tint = 0;
                                        CCTUtils::getCCTAndTintFromxy(xy.x(), xy.y(), cct, tint);
                                        DoNotOptimize(cct + tint);
                                    }),
                      contenderOver("McCamy, CCT alone", whites(), [](QPointF xy) { DoNotOptimize(mcCamy(xy)); }),
                      contenderOver("Robertson, CCT alone", whites(), [](QPointF xy) { DoNotOptimize(robertson(xy)); }),
                      contenderOver("Extras' WhitePoint, after Ohno, with Duv", whites(),
                                    [](QPointF xy) { DoNotOptimize(WhitePoint::fromxy(xy.x(), xy.y())); })}});
}
