#include "GamutSide_p.h"
#include "MatchReport.h"

#include <QJsonArray>

#include <cmath>

// The report in words and as JSON.

namespace {

using Light = MatchReport::Light;

QString distanceInWords(double distance)
{
    constexpr double kLeast = 0.0005; // what three digits show as 0.001
    if (!std::isfinite(distance))
        return MatchReport::tr("an unknown distance");
    return distance < kLeast ? MatchReport::tr("less than 0.0005 u'v'")
                             : MatchReport::tr("%1 u'v'").arg(distance, 0, 'f', 3);
}

QString darkInWords(const MatchReport& report)
{
    return report.target.resolution == 2 ? MatchReport::tr("Too dim for 16 bits: %1 stays dark.").arg(report.targetName)
                                         : MatchReport::tr("Too dim for 8 bits: %1 stays dark.").arg(report.targetName);
}

QString singleChannelInWords(const MatchReport& report)
{
    return MatchReport::tr("Single channel: %1 at %2 % of its light, without a colour of its own.")
        .arg(report.targetName)
        .arg(report.luminanceShare * 100.0, 0, 'f', 1);
}

} // namespace

QString MatchReport::sentence() const
{
    switch (verdict) {
    case Verdict::Invalid:
        return tr("Not a colour: %1 stays dark.").arg(targetName);
    case Verdict::Undefined:
        return tr("A colour whose values are not numbers: there is nothing to match on %1.").arg(targetName);
    case Verdict::Black:
        return tr("Black: %1 stays dark.").arg(targetName);
    case Verdict::Unsolved:
        return tr("No mix of the emitters of %1 was found for this colour: it stays dark.").arg(targetName);
    case Verdict::SingleChannel:
        if (isDark())
            return tr("Single channel: this colour has no level for %1, which stays dark.").arg(targetName);
        return singleChannelInWords(*this);
    default:
        break;
    }
    if (isDark())
        return darkInWords(*this);
    switch (verdict) {
    case Verdict::PassedThrough:
        return tr("Passed through to %1 as it is: %2 from the light that the colour means.")
            .arg(targetName, distanceInWords(deviation));
    case Verdict::InsideGamut:
        return tr("Inside the gamut of %1: matched, %2 off.").arg(targetName, distanceInWords(deviation));
    default:
        return tr("Outside the gamut of %1: moved %2 to %3.")
            .arg(targetName, distanceInWords(moved), lxcolor::sideInWords(side));
    }
}

namespace {

QLatin1String word(MatchReport::Verdict verdict)
{
    switch (verdict) {
    case MatchReport::Verdict::Undefined:
        return QLatin1String("undefined");
    case MatchReport::Verdict::Black:
        return QLatin1String("black");
    case MatchReport::Verdict::SingleChannel:
        return QLatin1String("singleChannel");
    case MatchReport::Verdict::PassedThrough:
        return QLatin1String("passedThrough");
    case MatchReport::Verdict::Unsolved:
        return QLatin1String("unsolved");
    case MatchReport::Verdict::InsideGamut:
        return QLatin1String("insideGamut");
    case MatchReport::Verdict::MovedIntoGamut:
        return QLatin1String("movedIntoGamut");
    default:
        return QLatin1String("invalid");
    }
}

QJsonValue number(double value) { return std::isfinite(value) ? QJsonValue(value) : QJsonValue(QJsonValue::Null); }

QJsonObject lightToJson(const Light& light)
{
    return {{QStringLiteral("intensity"), number(light.intensity)},
            {QStringLiteral("x"), number(light.x)},
            {QStringLiteral("y"), number(light.y)},
            {QStringLiteral("uPrime"), number(light.uvPrime().x())},
            {QStringLiteral("vPrime"), number(light.uvPrime().y())}};
}

QJsonObject targetToJson(const MatchReport& report)
{
    return {{QStringLiteral("profile"), report.target.profile},
            {QStringLiteral("profileName"), report.targetName},
            {QStringLiteral("ioMode"), report.target.ioMode},
            {QStringLiteral("ioModeName"), report.ioModeName},
            {QStringLiteral("resolution"), report.target.resolution},
            {QStringLiteral("directCurve"), report.target.directCurve},
            {QStringLiteral("onboardCurve"), report.target.onboardCurve},
            {QStringLiteral("allowRgbPassThrough"), report.target.allowRgbPassThrough}};
}

QJsonObject emitterToJson(const MatchReport::Emitter& emitter)
{
    return {{QStringLiteral("name"), emitter.name},
            {QStringLiteral("level"), number(emitter.level)},
            {QStringLiteral("drive"), emitter.drive},
            {QStringLiteral("output"), number(emitter.output)},
            {QStringLiteral("emitting"), emitter.emitting}};
}

} // namespace

QJsonObject MatchReport::toJson() const
{
    QJsonArray emitterArray;
    for (const Emitter& emitter : emitters)
        emitterArray.append(emitterToJson(emitter));
    QJsonArray byteArray;
    for (unsigned char byte : bytes)
        byteArray.append(byte);
    return {{QStringLiteral("verdict"), word(verdict)},
            {QStringLiteral("sentence"), sentence()},
            {QStringLiteral("target"), targetToJson(*this)},
            {QStringLiteral("requested"), lightToJson(requested)},
            {QStringLiteral("aimed"), lightToJson(aimed)},
            {QStringLiteral("achieved"), lightToJson(achieved)},
            {QStringLiteral("gamut"), QJsonObject{{QStringLiteral("inside"), insideGamut},
                                                  {QStringLiteral("side"), lxcolor::sideKey(side)},
                                                  {QStringLiteral("moved"), number(moved)}}},
            {QStringLiteral("deviation"), number(deviation)},
            {QStringLiteral("roundingError"), QJsonObject{{QStringLiteral("bits8"), number(roundingError8)},
                                                          {QStringLiteral("bits16"), number(roundingError16)}}},
            {QStringLiteral("emitters"), emitterArray},
            {QStringLiteral("bytes"), byteArray},
            {QStringLiteral("luminanceShare"), number(luminanceShare)}};
}
