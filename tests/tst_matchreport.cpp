#include "CCTUtils.h"
#include "LXColor.h"
#include "MatchReport.h"
#include "Rows.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QTranslator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

using Verdict = MatchReport::Verdict;
using Side = MatchReport::GamutSide;
using Target = MatchReport::Target;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

Target target(ColorUtils::TonematchProfileID profile, ColorUtils::IOModeID ioMode, int resolution = 1)
{
    Target result;
    result.profile = profile;
    result.ioMode = ioMode;
    result.resolution = resolution;
    result.allowRgbPassThrough = false;
    return result;
}

Target washLine(int resolution = 1)
{
    return target(ColorUtils::ProfileWashLineQP6RGBW, ColorUtils::IOModeRGBW, resolution);
}

LXColor yxy(double Y, double x, double y)
{
    LXColor color;
    color.setYxyF(Y, x, y, 1.0, ColorUtils::ProfileGenericRGB);
    return color;
}

/// The share of full light at a drive value, by the measured response of the fixture.
double responseOf(int curve, int drive16)
{
    const auto level = static_cast<unsigned short>(drive16);
    if (curve == 1)
        return ColorUtils::dmx16ToSquareLawDimRatio(level);
    return curve == 2 ? ColorUtils::dmx16ToTungstenDimRatio(level) : drive16 / 65535.0;
}

double uvDistance(QPointF a, QPointF b)
{
    return CCTUtils::getDuvPrimeFromuvPrime(
        CCTUtils::getuPrimeFromxy(a.x(), a.y()), CCTUtils::getvPrimeFromxy(a.x(), a.y()),
        CCTUtils::getuPrimeFromxy(b.x(), b.y()), CCTUtils::getvPrimeFromxy(b.x(), b.y()));
}

QPointF corner(Tristimulus* record, int i)
{
    const double sum = record->getX().at(i) + record->getY().at(i) + record->getZ().at(i);
    return {record->getX().at(i) / sum, record->getY().at(i) / sum};
}

double distanceToLine(QPointF a, QPointF b, QPointF p)
{
    const QPointF along = b - a;
    const QPointF away = p - a;
    return std::abs(along.x() * away.y() - along.y() * away.x()) / std::hypot(along.x(), along.y());
}

} // namespace

Q_DECLARE_METATYPE(LXColor)

class TestMatchReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void verdicts_data()
    {
        const Rows<LXColor, int, bool, int, int, QString> rows;
        const auto row = [&](const char* name, const LXColor& color, int ioMode, bool passThrough, Verdict verdict,
                             Side side, const char* sentence) {
            rows(name, color, ioMode, passThrough, int(verdict), int(side), sentence);
        };
        const int rgbw = ColorUtils::IOModeRGBW;
        const int single = ColorUtils::IOModeSingleChannel;

        row("inside", LXColor("orange"), rgbw, false, Verdict::InsideGamut, Side::None,
            "Inside the gamut of WashLine QP6 RGBW: matched, less than 0.0005 u'v' off.");
        row("inside, 8-bit steps seen", LXColor("#030100"), rgbw, false, Verdict::InsideGamut, Side::None,
            "Inside the gamut of WashLine QP6 RGBW: matched, 0.002 u'v' off.");
        row("green-blue edge", yxy(1.0, 0.15, 0.35), rgbw, false, Verdict::MovedIntoGamut, Side::GreenBlue,
            "Outside the gamut of WashLine QP6 RGBW: moved 0.016 u'v' to the green-blue edge.");
        row("red-green edge", yxy(1.0, 0.5, 0.5), rgbw, false, Verdict::MovedIntoGamut, Side::RedGreen,
            "Outside the gamut of WashLine QP6 RGBW: moved 0.012 u'v' to the red-green edge.");
        row("blue-red edge", yxy(1.0, 0.35, 0.12), rgbw, false, Verdict::MovedIntoGamut, Side::BlueRed,
            "Outside the gamut of WashLine QP6 RGBW: moved 0.087 u'v' to the blue-red edge.");
        row("blue corner", LXColor("blue"), rgbw, false, Verdict::MovedIntoGamut, Side::BlueCorner,
            "Outside the gamut of WashLine QP6 RGBW: moved 0.060 u'v' to the blue corner.");
        row("red corner", yxy(1.0, 0.73, 0.27), rgbw, false, Verdict::MovedIntoGamut, Side::RedCorner,
            "Outside the gamut of WashLine QP6 RGBW: moved 0.100 u'v' to the red corner.");
        row("green corner", yxy(1.0, 0.16, 0.83), rgbw, false, Verdict::MovedIntoGamut, Side::GreenCorner,
            "Outside the gamut of WashLine QP6 RGBW: moved 0.034 u'v' to the green corner.");
        row("passed through", LXColor("orange"), rgbw, true, Verdict::PassedThrough, Side::None,
            "Passed through to WashLine QP6 RGBW as it is: 0.067 u'v' from the light that the colour means.");
        row("black", LXColor("black"), rgbw, false, Verdict::Black, Side::None, "Black: WashLine QP6 RGBW stays dark.");
        row("dark xyY", yxy(0.0, 0.3, 0.3), rgbw, false, Verdict::Black, Side::None,
            "Black: WashLine QP6 RGBW stays dark.");
        row("invalid", LXColor(), rgbw, false, Verdict::Invalid, Side::None,
            "Not a colour: WashLine QP6 RGBW stays dark.");
        row("chromaticity is no number", yxy(1.0, kNaN, 0.3), rgbw, false, Verdict::Undefined, Side::None,
            "A colour whose values are not numbers: there is nothing to match on WashLine QP6 RGBW.");
        row("too dim", yxy(1e-4, 0.33, 0.33), rgbw, false, Verdict::InsideGamut, Side::None,
            "Too dim for 8 bits: WashLine QP6 RGBW stays dark.");
        row("single channel, passed", LXColor("#800000"), single, true, Verdict::SingleChannel, Side::None,
            "Single channel: WashLine QP6 RGBW at 26.8 % of its light, without a colour of its own.");
        row("single channel, nothing to pass", yxy(1.0, 0.3, 0.3), single, true, Verdict::SingleChannel, Side::None,
            "Single channel: this colour has no level for WashLine QP6 RGBW, which stays dark.");
    }
    void verdicts()
    {
        const auto [color, ioMode, passThrough, verdict, side, sentence] =
            fetched<LXColor, int, bool, int, int, QString>();
        Target asked = target(ColorUtils::ProfileWashLineQP6RGBW, static_cast<ColorUtils::IOModeID>(ioMode));
        asked.allowRgbPassThrough = passThrough;
        const MatchReport report = MatchReport::make(color, asked);
        QCOMPARE(report.sentence(), sentence);
        QCOMPARE(int(report.verdict), verdict);
        QCOMPARE(int(report.side), side);
        QCOMPARE(report.target.onboardCurve, 1); // the profile's own
        QCOMPARE(report.moved > 0.0, report.verdict == Verdict::MovedIntoGamut);
        if (report.verdict == Verdict::MovedIntoGamut)
            QVERIFY(!report.insideGamut);
    }

    void bytesAreThoseSentAndTheLightIsTheirs_data()
    {
        const Rows<int, int> row;
        for (ColorUtils::TonematchProfileID profile : ColorUtils::tonematchProfileIDList(true))
            for (int resolution : {1, 2})
                row(ColorUtils::tonematchProfileIDName(profile).toUtf8() + ", bytes: " + QByteArray::number(resolution),
                    profile, resolution);
    }
    void bytesAreThoseSentAndTheLightIsTheirs()
    {
        const auto [profile, resolution] = fetched<int, int>();
        const auto id = static_cast<ColorUtils::TonematchProfileID>(profile);
        QRandomGenerator random(20240601u + static_cast<quint32>(profile));
        for (ColorUtils::IOModeID ioMode : ColorUtils::ioModesForTonematchProfileID(id)) {
            if (ioMode == ColorUtils::IOModeSingleChannel)
                continue;
            for (int i = 0; i < 600; ++i) {
                Target asked = target(id, ioMode, resolution);
                asked.onboardCurve = i % 3;
                asked.directCurve = i / 3 % 3;
                asked.allowRgbPassThrough = i % 2 == 0;
                const double a = random.generateDouble();
                const double b = random.generateDouble();
                const double c = random.generateDouble();
                const LXColor color =
                    i % 4 == 0 ? yxy(a, 0.1 + 0.6 * b, 0.05 + 0.7 * c)
                               : LXColor::fromRgbF(a, b, c, 1.0, i % 4 == 1 ? ColorUtils::ProfilePixelNodeRGB : id);
                const MatchReport report = MatchReport::make(color, asked);
                const QByteArray input = color.aName().toUtf8() + " in mode " + QByteArray::number(ioMode);

                QCOMPARE(report.bytes, ColorUtils::updateBuffer(asked.directCurve, asked.onboardCurve, color,
                                                                asked.allowRgbPassThrough, report.emitters.size(),
                                                                resolution, ioMode, id));
                Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(
                    id, report.emitters.size() == 3 ? ColorUtils::ConfigRGB
                                                    : ColorUtils::nChannelConfigurationForTonematchProfileID(id));
                double X = 0.0;
                double Y = 0.0;
                double Z = 0.0;
                for (int k = 0; k < report.emitters.size(); ++k) {
                    const MatchReport::Emitter& emitter = report.emitters.at(k);
                    const int sent = resolution == 2 ? report.bytes.at(2 * k) * 256 + report.bytes.at(2 * k + 1)
                                                     : report.bytes.at(k);
                    QCOMPARE(emitter.drive, sent);
                    QCOMPARE(emitter.name, record->getChannelNames().at(k));
                    const double output = responseOf(asked.onboardCurve, resolution == 2 ? sent : sent * 257);
                    QVERIFY2(std::abs(emitter.output - output) < 1e-4, input);
                    X += record->getX().at(k) * output;
                    Y += record->getY().at(k) * output;
                    Z += record->getZ().at(k) * output;
                }
                const double sum = X + Y + Z;
                QCOMPARE(report.achieved.hasChromaticity(), sum > 0.0);
                if (!(sum > 0.0)) {
                    QVERIFY2(report.isDark() && report.luminanceShare == 0.0, input);
                    continue;
                }
                QVERIFY2(uvDistance(report.achieved.xy(), QPointF(X / sum, Y / sum)) < 1e-5, input);
                QVERIFY2(report.luminanceShare > 0.0 && report.luminanceShare < 1.0 + 1e-4, input);
                QCOMPARE(report.roundingError8 >= 0.0 || std::isnan(report.roundingError8), true);
                if (report.isMatched()) {
                    const double left = resolution == 2 ? report.roundingError16 : report.roundingError8;
                    QVERIFY2(std::abs(left - uvDistance(report.aimed.xy(), report.achieved.xy())) < 1e-12, input);
                }
            }
        }
    }

    void movesEndOnTheSideTheyName()
    {
        Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(ColorUtils::ProfileWashLineQP6RGBW,
                                                                                ColorUtils::ConfigRGBW);
        const QPointF corners[] = {corner(record, 0), corner(record, 1), corner(record, 2)};
        int seen[7] = {};
        QRandomGenerator random(7);
        for (int i = 0; i < 5000; ++i) {
            const QPointF asked(random.generateDouble() * 0.8, random.generateDouble() * 0.9);
            const MatchReport report = MatchReport::make(yxy(1.0, asked.x(), asked.y()), washLine(2));
            ++seen[int(report.side)];
            QCOMPARE(report.requested.xy(), asked);
            QCOMPARE(report.insideGamut, report.side == Side::None);
            if (report.insideGamut) {
                QCOMPARE(report.aimed.xy(), asked);
                continue;
            }
            QVERIFY(std::abs(report.moved - uvDistance(asked, report.aimed.xy())) < 1e-12);
            double off = 1.0;
            if (report.side >= Side::RedCorner)
                off = QLineF(corners[int(report.side) - int(Side::RedCorner)], report.aimed.xy()).length();
            else
                off = distanceToLine(corners[int(report.side) - 1], corners[int(report.side) % 3], report.aimed.xy());
            QVERIFY2(off < 1e-6, qPrintable(report.sentence()));
        }
        for (int count : seen)
            QVERIFY(count > 20);
    }

    void redWithoutZIsToldAsUnsolved()
    {
        // The solver divides by z, which this red does not have: what is moved to its corner goes dark.
        const MatchReport report =
            MatchReport::make(yxy(1.0, 0.72, 0.27), target(ColorUtils::ProfileFlareFlashQVS, ColorUtils::IOModeRGBAW));
        QCOMPARE(int(report.side), int(Side::RedCorner));
        QCOMPARE(report.isDark(), report.verdict == Verdict::Unsolved);
        if (report.isDark())
            QCOMPARE(report.sentence(), QStringLiteral("No mix of the emitters of Flare/Flash QVS was found for this "
                                                       "colour: it stays dark."));
    }

    void luminanceShareFollowsTheIntensity()
    {
        for (double Y : {1.0, 0.5, 0.1}) {
            const MatchReport report = MatchReport::make(yxy(Y, 0.33, 0.33), washLine(2));
            QVERIFY2(std::abs(report.luminanceShare - Y) < 2e-3 * Y,
                     qPrintable(QString::number(report.luminanceShare)));
            QVERIFY(std::abs(report.achieved.intensity - Y) < 2e-3 * Y);
        }
        // Amber by itself lies outside the triangle, where the share is still that of the emitters.
        const LXColor amber = LXColor::fromNChannelF({1.0, 0.0, 0.0, 0.0, 1.0, 0.0}, ColorUtils::ConfigRGBAW,
                                                     ColorUtils::ProfileFlareFlashQVS);
        const MatchReport report =
            MatchReport::make(amber, target(ColorUtils::ProfileFlareFlashQVS, ColorUtils::IOModeRGBAW));
        QCOMPARE(int(report.verdict), int(Verdict::PassedThrough));
        QVERIFY(!report.insideGamut);
        QCOMPARE(report.emitters.at(3).drive, 255);
        QVERIFY2(std::abs(report.luminanceShare - 1.0) < 1e-3, qPrintable(QString::number(report.luminanceShare)));
    }

    void softwareCurveIsPartOfTheLight()
    {
        const LXColor color = LXColor::fromRgbF(1.0, 0.5, 0.25, 1.0, ColorUtils::ProfileGenericRGB);
        Target asked = target(ColorUtils::ProfileGenericRGB, ColorUtils::IOModeRGB, 2);
        const MatchReport plain = MatchReport::make(color, asked);
        QVERIFY(plain.deviation < 1e-4);
        asked.directCurve = 1;
        const MatchReport curved = MatchReport::make(color, asked);
        QCOMPARE(int(curved.verdict), int(Verdict::PassedThrough));
        QVERIFY2(curved.deviation > 0.05, qPrintable(QString::number(curved.deviation)));
        QCOMPARE(curved.roundingError16, 0.0);
    }

    void channelWithoutAnEmitter()
    {
        const LXColor color = LXColor::fromNChannel8({255, 10, 20, 30, 200}, ColorUtils::ConfigRGBA,
                                                     ColorUtils::ProfileGenericRGB); // a record of three emitters
        const MatchReport report =
            MatchReport::make(color, target(ColorUtils::ProfileGenericRGB, ColorUtils::IOModeRGBA));
        QCOMPARE(report.emitters.size(), 4);
        QCOMPARE(report.emitters.at(3).name, QStringLiteral("Channel 4"));
        QVERIFY(report.emitters.at(2).emitting && !report.emitters.at(3).emitting);
        QCOMPARE(report.emitters.at(3).drive, 200);
        QVERIFY(report.deviation < 1e-3);
    }

    void wildInputIsDefined()
    {
        QVector<LXColor> colors = {
            LXColor(),           LXColor("white"),    yxy(kNaN, 0.3, 0.3),   yxy(kInf, 0.3, 0.3),
            yxy(-1.0, 0.3, 0.3), yxy(9.0, 0.3, 0.3),  yxy(1.0, kInf, -kInf), yxy(1.0, 1e300, -1e300),
            yxy(1.0, 0.0, 0.0),  yxy(1.0, 1.5, -0.25)};
        colors.append(LXColor::fromNChannel8({255, 1, 2, 3, 4, 5, 6, 7}, ColorUtils::ConfigRGBAW,
                                             static_cast<ColorUtils::TonematchProfileID>(77)));
        colors.append(LXColor::fromNChannel8({255}, ColorUtils::ConfigRGBW, ColorUtils::ProfileGenericRGBW));
        for (const LXColor& color : qAsConst(colors)) {
            for (int profile : {-1, 0, 4, 6, 42}) {
                for (int mode : {-1, 0, 2, 4, 9, 99}) {
                    for (int resolution : {-1, 0, 1, 2, 3}) {
                        Target asked;
                        asked.profile = static_cast<ColorUtils::TonematchProfileID>(profile);
                        asked.ioMode = static_cast<ColorUtils::IOModeID>(mode);
                        asked.resolution = resolution;
                        asked.directCurve = asked.onboardCurve = resolution * 50;
                        const MatchReport report = MatchReport::make(color, asked);
                        QCOMPARE(report.bytes.size(), report.emitters.size() * (resolution == 2 ? 2 : 1));
                        QVERIFY(!report.targetName.isEmpty() && !report.ioModeName.isEmpty());
                        QVERIFY(!report.sentence().contains(QLatin1String("nan")));
                        QVERIFY(!QJsonDocument(report.toJson()).isEmpty());
                    }
                }
            }
        }
    }

    void jsonKeepsItsShape()
    {
        const QStringList top = {"achieved",       "aimed",     "bytes",         "deviation", "emitters", "gamut",
                                 "luminanceShare", "requested", "roundingError", "sentence",  "target",   "verdict"};
        for (const LXColor& color : {LXColor("orange"), LXColor(), LXColor("black")}) {
            const MatchReport report = MatchReport::make(color, washLine());
            const QJsonObject json = report.toJson();
            QCOMPARE(json.keys(), top);
            QCOMPARE(json["gamut"].toObject().keys(), QStringList({"inside", "moved", "side"}));
            QCOMPARE(json["roundingError"].toObject().keys(), QStringList({"bits16", "bits8"}));
            QCOMPARE(json["target"].toObject().keys(),
                     QStringList({"allowRgbPassThrough", "directCurve", "ioMode", "ioModeName", "onboardCurve",
                                  "profile", "profileName", "resolution"}));
            for (const char* light : {"requested", "aimed", "achieved"})
                QCOMPARE(json[QLatin1String(light)].toObject().keys(),
                         QStringList({"intensity", "uPrime", "vPrime", "x", "y"}));
            QCOMPARE(json["emitters"].toArray().size(), 4);
            QCOMPARE(json["emitters"].toArray().at(3).toObject().keys(),
                     QStringList({"drive", "emitting", "level", "name", "output"}));
            QCOMPARE(json["bytes"].toArray().size(), 4);
        }
        const QJsonObject moved = MatchReport::make(LXColor("blue"), washLine()).toJson();
        QCOMPARE(moved["verdict"].toString(), QStringLiteral("movedIntoGamut"));
        QCOMPARE(moved["gamut"].toObject()["side"].toString(), QStringLiteral("blue"));
        const QJsonObject black = MatchReport::make(LXColor("black"), washLine()).toJson();
        QVERIFY(black["achieved"].toObject()["x"].isNull() && black["deviation"].isNull());
    }

    void sentenceIsTranslated()
    {
        struct Upper : QTranslator
        {
            QString translate(const char* context, const char* text, const char*, int) const override
            {
                return qstrcmp(context, "MatchReport") == 0 ? QString::fromUtf8(text).toUpper() : QString();
            }
            bool isEmpty() const override { return false; }
        };
        const MatchReport report = MatchReport::make(LXColor("black"), washLine());
        Upper translator;
        QCoreApplication::installTranslator(&translator);
        const QString sentence = report.sentence();
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(sentence, QStringLiteral("BLACK: WashLine QP6 RGBW STAYS DARK."));
    }
};

QTEST_GUILESS_MAIN(TestMatchReport)
#include "tst_matchreport.moc"
