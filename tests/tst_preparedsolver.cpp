// The prepared solver gives the bits of the full search: on built-in and on made-up fixtures, inside the gamut, on its
// edges and corners, on every line between two emitters (where the elimination is ill-conditioned), and off the
// diagram.
#include "CornerSolver_p.h"
#include "EmitterMix_p.h"
#include "EmitterTables_p.h"
#include "FixtureTables_p.h"
#include "MixBounds_p.h"
#include "PreparedSolver_p.h"
#include "SolverCache_p.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

using namespace lxcolor;

namespace {

struct Emitters
{
    std::vector<double> X;
    std::vector<double> Y;
    std::vector<double> Z;

    void add(double x, double y, double z)
    {
        X.push_back(x);
        Y.push_back(y);
        Z.push_back(z);
    }
    EmitterView view() const { return {X.data(), Y.data(), Z.data(), static_cast<int>(X.size())}; }
    Chromaticity chromaticity(size_t k) const { return chromaticityOf(X[k], Y[k], Z[k]); }
};

using Random = std::mt19937_64;

double uniform(Random& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

Chromaticity onLine(Random& random, const Emitters& emitters)
{
    const size_t count = emitters.X.size();
    const Chromaticity a = emitters.chromaticity(random() % count);
    const Chromaticity b = emitters.chromaticity(random() % count);
    const double t = uniform(random, -0.1, 1.1);
    const double beside = std::pow(10.0, uniform(random, -18.0, -2.0)) * (random() % 2 ? 1.0 : -1.0);
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y) + (random() % 3 ? beside : 0.0)};
}

/// Where b = y/x or a = y/z is that of one emitter, so that its coefficient q or p is next to 0.
Chromaticity whereACoefficientVanishes(Random& random, const Emitters& emitters)
{
    const Chromaticity e = emitters.chromaticity(random() % emitters.X.size());
    const double scale = uniform(random, 0.1, 1.5);
    const Chromaticity alongB = {e.x * scale, e.y * scale};
    const Chromaticity alongA = {1.0 - (1.0 - e.x) * scale, e.y * scale};
    return random() % 2 ? alongB : alongA;
}

Chromaticity anyRequest(Random& random, const Emitters& emitters)
{
    switch (random() % 6) {
    case 0:
        return {uniform(random, 0.0, 0.8), uniform(random, 0.0, 0.9)};
    case 1:
        return onLine(random, emitters);
    case 2:
        return whereACoefficientVanishes(random, emitters);
    case 3:
        return emitters.chromaticity(random() % emitters.X.size());
    default: { // a mix of the emitters
        double sum[3] = {};
        for (size_t k = 0; k < emitters.X.size(); ++k) {
            const double level = random() % 3 ? uniform(random, 0.0, 1.0) : static_cast<double>(random() % 2);
            sum[0] += level * emitters.X[k];
            sum[1] += level * emitters.Y[k];
            sum[2] += level * emitters.Z[k];
        }
        return chromaticityOf(sum[0], sum[1], sum[2]);
    }
    }
}

/// The chromaticity of a mix whose levels of the pair are at the ends of 0..1, or of what rounding may make of them.
Chromaticity whereAPairIsAtItsEnds(Random& random, const Emitters& emitters, const Mix& mix)
{
    const auto level = [&random] {
        const double nudge = std::pow(10.0, uniform(random, -12.0, -4.0)) * (random() % 2 ? 1.0 : -1.0);
        const double ends[] = {0.0, 1.0, -5e-05, 1.00005, uniform(random, 0.0, 1.0)};
        return ends[random() % 5] + (random() % 2 ? nudge : 0.0);
    };
    double levels[kMaxEmitters] = {};
    levels[mix.i] = level();
    levels[mix.j] = level();
    for (int t = 0; t < mix.otherCount; ++t)
        levels[mix.others[t]] = mix.corner & (1 << t) ? 1.0 : 0.0;
    double sum[3] = {};
    for (size_t k = 0; k < emitters.X.size(); ++k) {
        sum[0] += levels[k] * emitters.X[k];
        sum[1] += levels[k] * emitters.Y[k];
        sum[2] += levels[k] * emitters.Z[k];
    }
    return chromaticityOf(sum[0], sum[1], sum[2]);
}

bool sameBits(const LevelSet& a, const LevelSet& b) { return std::memcmp(a.level, b.level, sizeof a.level) == 0; }

QByteArray text(const LevelSet& levels)
{
    QByteArray out;
    for (double level : levels.level)
        out += QByteArray::number(level, 'g', 17) + ' ';
    return out;
}

Yxy anyLight(Random& random, const Emitters& emitters)
{
    return {random() % 2 ? 1.0 : uniform(random, -0.1, 1.1), anyRequest(random, emitters)};
}

LevelSet plainly(const EmitterView& emitters, const Yxy& light)
{
    LevelSet levels = solveBrightestMix(emitters, light.xy);
    for (int k = 0; k < emitters.count; ++k)
        levels.level[k] *= light.Y;
    return levels;
}

constexpr int kAtOnce = 100;

void compare(const Emitters& emitters, quint64 seed, int requests)
{
    Random random(seed);
    for (int count = 3; count <= std::min(emitters.view().count, kMaxEmitters); ++count) {
        const PreparedSolver solver(emitters.view(), count);
        EmitterView used = emitters.view();
        used.count = count;
        Yxy atOnce[kAtOnce];
        LevelSet solvedAtOnce[kAtOnce];
        for (int i = 0; i < requests; ++i) {
            if (i % kAtOnce == 0) {
                std::generate_n(atOnce, kAtOnce, [&] { return anyLight(random, emitters); });
                solver.solve(atOnce, kAtOnce, solvedAtOnce->level, kMaxEmitters);
            }
            const Yxy& light = atOnce[i % kAtOnce];
            const LevelSet expected = plainly(used, light);
            LevelSet got;
            solver.solve(light, got.level);
            if (!sameBits(got, expected) || !sameBits(solvedAtOnce[i % kAtOnce], expected))
                QFAIL(qPrintable(QStringLiteral("seed %1, %2 emitters, x %3 y %4 Y %5: got %6 expected %7")
                                     .arg(seed)
                                     .arg(count)
                                     .arg(light.xy.x, 0, 'g', 17)
                                     .arg(light.xy.y, 0, 'g', 17)
                                     .arg(light.Y, 0, 'g', 17)
                                     .arg(QLatin1String(text(got)), QLatin1String(text(expected)))));
        }
    }
}

/// Requests a fixture; LXCOLOR_TEST_REQUESTS raises them for a long run.
int requestCount(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("LXCOLOR_TEST_REQUESTS");
    return wanted > 0 ? wanted : usual;
}

} // namespace

class TestPreparedSolver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void builtInFixtures()
    {
        for (const ProfileRow& profile : kProfiles) {
            Emitters emitters;
            for (const EmitterRow& row : emitterTable(profile.id))
                emitters.add(row.X, row.Y, row.Z);
            compare(emitters, 100 + static_cast<quint64>(profile.id), requestCount(30000));
        }
    }

    void madeUpFixtures()
    {
        for (quint64 seed = 1; seed <= 60; ++seed) {
            Random random(seed);
            Emitters emitters;
            const double scale = std::pow(10.0, uniform(random, -6.0, 8.0));
            for (int k = 0; k < 5; ++k)
                emitters.add(scale * uniform(random, 0.0, 1.0), scale * uniform(random, 0.0, 1.0),
                             scale * uniform(random, 0.0, 1.0));
            if (seed % 5 == 0) // two emitters alike
                emitters.X[4] = emitters.X[1], emitters.Y[4] = emitters.Y[1], emitters.Z[4] = emitters.Z[1];
            if (seed % 7 == 0) // an emitter without a component, and one that is negative
                emitters.Z[0] = 0.0, emitters.X[3] = -emitters.X[3];
            if (seed % 11 == 0) // an emitter that gives nothing
                emitters.X[2] = emitters.Y[2] = emitters.Z[2] = 0.0;
            compare(emitters, seed, requestCount(2000));
        }
    }

    void valuesThatAreNoNumbers()
    {
        constexpr double kInf = std::numeric_limits<double>::infinity();
        constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
        const double wild[] = {kNaN, kInf, -kInf, 0.0, -0.0, 1e308, -1e308, 5e-324, 1.0};
        Emitters emitters;
        for (const EmitterRow& row : emitterTable(ColorUtils::ProfileFlareFlashQVS))
            emitters.add(row.X, row.Y, row.Z);
        const PreparedSolver solver(emitters.view(), 5);
        for (double x : wild)
            for (double y : wild) {
                LevelSet got;
                solver.solve({1.0, {x, y}}, got.level);
                QVERIFY(sameBits(got, solveBrightestMix(emitters.view(), {x, y})));
            }
        for (double value : wild) {
            Emitters odd = emitters;
            odd.Z[1] = value;
            compare(odd, 7, requestCount(500));
        }
    }

    // Of every mix on its own, in boxes down to the size of rounding errors, and with levels at the ends of what is
    // still accepted.
    void bounds()
    {
        for (const ProfileRow& profile : kProfiles) {
            Emitters emitters;
            for (const EmitterRow& row : emitterTable(profile.id))
                emitters.add(row.X, row.Y, row.Z);
            Random random(200 + static_cast<quint64>(profile.id));
            const EmitterView view = emitters.view();
            for (int i = 0; i < requestCount(1000); ++i) {
                forEachMix(view.count, [&](const Mix& mix) {
                    const Chromaticity xy = whereAPairIsAtItsEnds(random, emitters, mix);
                    const double size = std::pow(10.0, uniform(random, -17.0, -3.0));
                    const ChromaticityBox box = {{xy.x - size, xy.y - size}, {xy.x + size, xy.y + size}};
                    const MixBounds bounds = MixBounder(view, view.count, box).boundsOf(mix);
                    MixEvaluation evaluation(view, view.count, xy);
                    evaluation.consider(mix, evaluation.eliminationOf(mix.i, mix.j));
                    double luminance = 0.0;
                    for (int k = 0; k < view.count; ++k)
                        luminance += evaluation.best().level[k] * view.Y[k];
                    const bool isValid = luminance > 0.0;
                    const bool holds = isValid ? !bounds.neverValid && luminance <= bounds.highestLuminance &&
                                                     (!bounds.alwaysValid || luminance >= bounds.lowestLuminance)
                                               : !bounds.alwaysValid;
                    if (!holds)
                        QFAIL(qPrintable(QStringLiteral("profile %1, mix of %2 and %3, corner %4, x %5 y %6")
                                             .arg(profile.id)
                                             .arg(mix.i)
                                             .arg(mix.j)
                                             .arg(mix.corner)
                                             .arg(xy.x, 0, 'g', 17)
                                             .arg(xy.y, 0, 'g', 17)));
                });
            }
        }
    }

    // The solver of a record notices when a single value of the record has changed.
    void changedRecords()
    {
        Emitters emitters;
        for (const EmitterRow& row : emitterTable(ColorUtils::ProfilePixelNodeRGB))
            emitters.add(row.X, row.Y, row.Z);
        double none = 0.0;
        for (double* changed : {&none, &emitters.X[2], &emitters.Y[2], &emitters.Z[2]}) {
            *changed *= 1.25;
            const Yxy light = {1.0, {0.3, 0.3}};
            LevelSet got;
            solveForRecord(ColorUtils::ProfilePixelNodeRGB, emitters.view(), 3, &light, 1, got.level, 3);
            QVERIFY(sameBits(got, plainly(emitters.view(), light)));
        }
    }
};

QTEST_APPLESS_MAIN(TestPreparedSolver)
#include "tst_preparedsolver.moc"
