#include "CurveFactory.h"
#include "FixtureLookup.h"
#include "IOModeFactory.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"
#include "Tristimulus.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using IOModeID = ColorUtils::IOModeID;
using ProfileID = ColorUtils::TonematchProfileID;

struct Emitter
{
    QString name;
    double x; // CIE 1931 chromaticity
    double y;
};

QVector<Emitter> emittersOf(ProfileID fixture)
{
    Tristimulus* record = TonematchProfileFactory::instance()->getProfile(fixture)->getTristimulus();
    QVector<Emitter> emitters;
    for (int i = 0; i < record->numChannels(); ++i) {
        const double XYZ[3] = {record->getX().value(i), record->getY().value(i), record->getZ().value(i)};
        double Yxy[3];
        ColorUtils::convertXYZtoYxy(XYZ, Yxy);
        emitters.append({record->getChannelNames().at(i), Yxy[1], Yxy[2]});
    }
    return emitters;
}

QString curveName(int type) { return CurveFactory::Instance()->nameForCurveType(type); }

QString modeName(IOModeID mode) { return IOModeFactory::instance()->nameForIOModeID(mode); }

QString numbered(int id, const QString& name) { return QStringLiteral("%1 %2").arg(QString::number(id), name); }

void writeField(const QString& name, const QString& text)
{
    writeLine(QStringLiteral("    %1  %2").arg(name, -13).arg(text));
}

void writeText(ProfileID fixture)
{
    const auto layout = ColorUtils::nChannelConfigurationForTonematchProfileID(fixture);
    const IOModeID mode = ColorUtils::defaultIOModeIDForTonematchProfileID(fixture);
    const IOModeID mode3toN = ColorUtils::defaultIOModeIDForTonematchProfileID3toN(fixture);
    const int curve = ColorUtils::defaultCurveTypeForTonematchProfileID(fixture);
    QStringList modes;
    QStringList toneMatch;
    for (const IOModeID id : ColorUtils::ioModesForTonematchProfileID(fixture)) {
        const bool isOn = ColorUtils::defaultToneMatchEnabled(fixture, id);
        modes << numbered(id, modeName(id));
        toneMatch << QStringLiteral("%1 in %2").arg(isOn ? QStringLiteral("on") : QStringLiteral("off"), modeName(id));
    }
    const QString separator = QStringLiteral(", ");
    writeLine(numbered(fixture, ColorUtils::tonematchProfileIDName(fixture)));
    writeField(QStringLiteral("layout"), ColorUtils::nameForChannelConfiguration(layout));
    writeField(QStringLiteral("channels"), channelNames(fixture, layout).join(separator));
    writeField(QStringLiteral("IO modes"), modes.join(separator));
    writeField(QStringLiteral("default mode"), numbered(mode, modeName(mode)));
    writeField(QStringLiteral("3-to-N mode"), numbered(mode3toN, modeName(mode3toN)));
    writeField(QStringLiteral("ToneMatch"), toneMatch.join(separator));
    writeField(QStringLiteral("onboard curve"), numbered(curve, curveName(curve)));
    QString head = QStringLiteral("emitters");
    for (const Emitter& emitter : emittersOf(fixture)) {
        writeField(
            head,
            QStringLiteral("%1 x %2  y %3").arg(emitter.name, -7).arg(emitter.x, 0, 'f', 4).arg(emitter.y, 0, 'f', 4));
        head.clear();
    }
}

QJsonObject named(int id, const QString& name) { return {{QStringLiteral("id"), id}, {QStringLiteral("name"), name}}; }

QJsonObject toJson(ProfileID fixture)
{
    const auto layout = ColorUtils::nChannelConfigurationForTonematchProfileID(fixture);
    const IOModeID mode = ColorUtils::defaultIOModeIDForTonematchProfileID(fixture);
    const IOModeID mode3toN = ColorUtils::defaultIOModeIDForTonematchProfileID3toN(fixture);
    const int curve = ColorUtils::defaultCurveTypeForTonematchProfileID(fixture);
    QJsonArray modes;
    for (const IOModeID id : ColorUtils::ioModesForTonematchProfileID(fixture)) {
        QJsonObject entry = named(id, modeName(id));
        entry.insert(QStringLiteral("toneMatch"), ColorUtils::defaultToneMatchEnabled(fixture, id));
        modes.append(entry);
    }
    QJsonArray emitters;
    for (const Emitter& emitter : emittersOf(fixture))
        emitters.append(QJsonObject{{QStringLiteral("name"), emitter.name},
                                    {QStringLiteral("x"), emitter.x},
                                    {QStringLiteral("y"), emitter.y}});
    QJsonObject object = named(fixture, ColorUtils::tonematchProfileIDName(fixture));
    object.insert(QStringLiteral("layout"), named(layout, ColorUtils::nameForChannelConfiguration(layout)));
    object.insert(QStringLiteral("channels"), QJsonArray::fromStringList(channelNames(fixture, layout)));
    object.insert(QStringLiteral("ioModes"), modes);
    object.insert(QStringLiteral("defaultIoMode"), named(mode, modeName(mode)));
    object.insert(QStringLiteral("defaultIoMode3toN"), named(mode3toN, modeName(mode3toN)));
    object.insert(QStringLiteral("onboardCurve"), named(curve, curveName(curve)));
    object.insert(QStringLiteral("emitters"), emitters);
    return object;
}

} // namespace

void runFixtures(const QStringList& arguments)
{
    SubcommandLine line(QStringLiteral("fixtures [options]"),
                        QStringLiteral("Lists the fixtures that colours can be made for: channels, IO modes and what a "
                                       "new fixture starts with,\nand the CIE 1931 chromaticity of each emitter.\n\n"
                                       "Example:\n  lxcolor fixtures --json"));
    addProfilesOption(line);
    line.addFormats({QStringLiteral("text"), QStringLiteral("names"), QStringLiteral("json")},
                    QStringLiteral("text: all that is known; names: the names alone, one a line; json: one array of "
                                   "all fixtures."));
    if (!line.parse(arguments))
        return;
    line.refusePositionalArguments();
    readProfiles(line);

    const QString format = line.format();
    QJsonArray array;
    for (const ProfileID fixture : ColorUtils::tonematchProfileIDList(true)) {
        if (format == QLatin1String("json"))
            array.append(toJson(fixture));
        else if (format == QLatin1String("names"))
            writeLine(ColorUtils::tonematchProfileIDName(fixture));
        else
            writeText(fixture);
    }
    if (format == QLatin1String("json"))
        writeLine(QString::fromUtf8(QJsonDocument(array).toJson()).trimmed());
}
