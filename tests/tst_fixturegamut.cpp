#include "EmitterRecords.h"
#include "FixtureGamut.h"
#include "LXColor.h"
#include "Rows.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Gives the emitters of a profile these chromaticities.
void setChromaticities(int profile, const QVector<QPointF>& xy)
{
    QVector<double> X;
    QVector<double> Z;
    for (const QPointF& p : xy) {
        X.append(p.x() / p.y());
        Z.append((1.0 - p.x() - p.y()) / p.y());
    }
    fill(recordOf(profile), X, QVector<double>(xy.size(), 1.0), Z);
}

QStringList namesOf(const QVector<FixtureGamut::Corner>& corners)
{
    QStringList names;
    for (const FixtureGamut::Corner& corner : corners)
        names << corner.name;
    return names;
}

} // namespace

class TestFixtureGamut : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesWithMatching()
    {
        QRandomGenerator random(20);
        int outside = 0;
        for (const auto profile : ColorUtils::tonematchProfileIDList(true)) {
            const FixtureGamut gamut(profile);
            if (gamut.isEmpty())
                continue;
            MatchReport::Target target;
            target.profile = profile;
            target.ioMode = ColorUtils::defaultIOModeIDForTonematchProfileID(profile);
            target.allowRgbPassThrough = false;
            for (int i = 0; i < 300; ++i) {
                const QPointF xy(0.05 + random.bounded(0.65), 0.01 + random.bounded(0.75));
                const auto colour = LXColor::fromxyY(xy.x(), xy.y(), 1.0, ColorUtils::ProfileGenericRGB);
                const MatchReport report = MatchReport::make(colour, target);
                const FixtureGamut::Place place = gamut.placeOf(xy);
                QCOMPARE(place.inside, report.insideGamut);
                QCOMPARE(place.side, report.side);
                QVERIFY(qAbs(place.distance - report.moved) < 1e-6);
                QVERIFY(QLineF(place.nearest, report.aimed.xy()).length() < 1e-6);
                QVERIFY(place.insideHull || !place.inside);
                outside += !place.inside;
            }
            for (const FixtureGamut::Corner& corner : gamut.triangle())
                QVERIFY(gamut.placeOf(corner.xy).inside);
        }
        QVERIFY(outside > 500);
    }

    void hulls_data()
    {
        // emitters: red, green, blue, amber, white
        const Rows<QVector<QPointF>, QStringList> rows;
        const QPointF red(0.7, 0.3);
        const QPointF green(0.2, 0.7);
        const QPointF blue(0.15, 0.05);
        const QPointF white(0.33, 0.33);
        const auto row = [&](const char* name, QPointF fourth, QPointF fifth, const QStringList& hull) {
            rows(name, QVector<QPointF>{red, green, blue, fourth, fifth}, hull);
        };
        row("beyond one edge", {0.58, 0.419}, white, {"Red", "Amber", "Green", "Blue"});
        row("within", {0.5, 0.4}, white, {"Red", "Green", "Blue"});
        row("upon an edge", {0.45, 0.5}, white, {"Red", "Green", "Blue"});
        row("at a corner", red, blue, {"Red", "Green", "Blue"});
        row("beyond two edges", {0.58, 0.419}, {0.05, 0.3}, {"Red", "Amber", "Green", "White", "Blue"});
        row("around all", {0.95, 0.1}, {0.02, 0.97}, {"Blue", "Amber", "White"});
    }
    void hulls()
    {
        const auto [emitters, hull] = fetched<QVector<QPointF>, QStringList>();
        const EmitterRecords records;
        setChromaticities(ColorUtils::ProfileFlareFlashQVS, emitters);
        const FixtureGamut gamut(ColorUtils::ProfileFlareFlashQVS);
        QCOMPARE(namesOf(gamut.triangle()), (QStringList{"Red", "Green", "Blue"}));
        QCOMPARE(namesOf(gamut.hull()), hull);
        QCOMPARE(gamut.reachesBeyondTriangle(), hull.size() > 3 || hull.contains("Amber"));
        QVERIFY(gamut.hullArea() >= gamut.triangleArea() - 1e-12);
        for (const QPointF& emitter : emitters)
            QVERIFY(gamut.placeOf(emitter).insideHull);
    }

    void areas()
    {
        // The sRGB primaries in u'v', (0.4507, 0.5229), (0.125, 0.5625), (0.1754, 0.1579): worked out by hand from
        // them.
        QVERIFY(qAbs(FixtureGamut::srgbArea() - 0.0649) < 0.0001);
        const FixtureGamut generic(ColorUtils::ProfileGenericRGB);
        QVERIFY(qAbs(generic.triangleArea() / FixtureGamut::srgbArea() - 1.0) <
                0.001); // its emitters are those primaries
        QVERIFY(!generic.reachesBeyondTriangle());
        QCOMPARE(generic.hullArea(), generic.triangleArea());
        const FixtureGamut::Place place = generic.placeOf({0.17, 0.005});
        QCOMPARE(place.sideInWords(), QString("the blue corner"));
        QCOMPARE(place.toJson().value("side").toString(), QString("blue"));
    }

    void nothing()
    {
        const FixtureGamut single(ColorUtils::ProfileSingleChannel);
        QVERIFY(single.isEmpty());
        QCOMPARE(single.triangleArea(), 0.0);
        QCOMPARE(single.hullArea(), 0.0);
        QVERIFY(!single.reachesBeyondTriangle());
        QVERIFY(!single.placeOf({0.3, 0.3}).inside);
        QVERIFY(!FixtureGamut(ColorUtils::ProfileGenericRGB).placeOf({kNaN, 0.3}).inside);
        QVERIFY(single.placeOf({0.3, 0.3}).toJson().value("nearest").toObject().value("x").isNull());

        // An emitter without a chromaticity is no corner of the hull, and leaves no area to the triangle.
        const EmitterRecords records;
        setChromaticities(ColorUtils::ProfileFlareFlashQVS,
                          {{0.7, 0.3}, {0.2, 0.7}, {kNaN, kNaN}, {0.5, 0.4}, {0.33, 0.33}});
        const FixtureGamut gamut(ColorUtils::ProfileFlareFlashQVS);
        QVERIFY(std::isnan(gamut.triangleArea()));
        QCOMPARE(gamut.hull().size(), 3);
        QVERIFY(!gamut.placeOf({0.3, 0.3}).inside);
    }
};

QTEST_GUILESS_MAIN(TestFixtureGamut)
#include "tst_fixturegamut.moc"
