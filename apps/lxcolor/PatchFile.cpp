#include "PatchFile.h"

#include "CommandError.h"
#include "FixtureLookup.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include <cmath>

namespace {

using Fixture = FrameRenderer::Fixture;

constexpr qint64 kLongestFile = 64 * 1024 * 1024;
constexpr int kMostFixtures = 1000000;

/// The members of one object of the patch, each asked for by its name; what nobody has asked for is refused at the end.
class Members
{
public:
    Members(const QJsonValue& value, const QString& place) : m_object(value.toObject()), m_place(place)
    {
        if (!value.isObject())
            throw CommandError(QStringLiteral("%1 is no object").arg(place));
    }

    bool has(const char* key) const { return m_object.contains(QLatin1String(key)); }

    QJsonValue value(const char* key)
    {
        m_known << QLatin1String(key);
        return m_object.value(QLatin1String(key));
    }

    int wholeNumber(const char* key, int least, int greatest, int otherwise)
    {
        const QJsonValue given = value(key);
        if (given.isUndefined())
            return otherwise;
        const double number = given.toDouble(std::nan(""));
        if (number >= least && number <= greatest && number == std::floor(number))
            return static_cast<int>(number);
        throw CommandError(QStringLiteral("%1: \"%2\" is not a whole number from %3 to %4")
                               .arg(m_place, QLatin1String(key), QString::number(least), QString::number(greatest)));
    }

    int wholeNumber(const char* key, int least, int greatest)
    {
        if (!has(key))
            throw CommandError(QStringLiteral("%1: \"%2\" is missing").arg(m_place, QLatin1String(key)));
        return wholeNumber(key, least, greatest, least);
    }

    bool flag(const char* key)
    {
        const QJsonValue given = value(key);
        if (!given.isUndefined() && !given.isBool())
            throw CommandError(QStringLiteral("%1: \"%2\" is neither true nor false").arg(m_place, QLatin1String(key)));
        return given.toBool(false);
    }

    /// What a name or a number stands for, by one of the look-ups of the command line.
    template <typename LookUp>
    auto named(const char* key, LookUp lookUp) -> decltype(lookUp(QString()))
    {
        const QJsonValue given = value(key);
        if (!given.isString() && !given.isDouble())
            throw CommandError(
                QStringLiteral("%1: \"%2\" is neither a name nor a number").arg(m_place, QLatin1String(key)));
        try {
            return lookUp(given.isString() ? given.toString() : QString::number(given.toDouble()));
        } catch (const CommandError& error) {
            throw CommandError(QStringLiteral("%1: %2").arg(m_place, QString::fromUtf8(error.what())));
        }
    }

    void refuseOthers() const
    {
        for (const QString& key : m_object.keys())
            if (!m_known.contains(key))
                throw CommandError(QStringLiteral("%1: unknown key %2").arg(m_place, quoted(key)));
    }

private:
    QJsonObject m_object;
    QString m_place;
    QStringList m_known;
};

/// "channels": a slot each, or an object with "slot" and "fineSlot".
QVector<FrameRenderer::ChannelSlots> readChannels(const QJsonValue& value, const QString& place)
{
    constexpr int kSlots = FrameRenderer::kSlotsPerUniverse;
    if (!value.isArray())
        throw CommandError(QStringLiteral("%1: \"channels\" is no array").arg(place));
    QVector<FrameRenderer::ChannelSlots> channels;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& channel : array) {
        const QString here = QStringLiteral("%1, channel %2").arg(place).arg(channels.size() + 1);
        const QJsonValue object = channel.isDouble() ? QJsonObject{{QStringLiteral("slot"), channel}} : channel;
        Members members(object, here);
        channels.append({members.wholeNumber("slot", 1, kSlots), members.wholeNumber("fineSlot", 1, kSlots, 0)});
        members.refuseOthers();
    }
    return channels;
}

/// One object of the patch, which may stand for several fixtures side by side.
void readFixtures(const QJsonValue& value, const QString& place, QVector<Fixture>& fixtures)
{
    constexpr int kSlots = FrameRenderer::kSlotsPerUniverse;
    Members members(value, place);
    members.value("name");
    const auto profile = members.named("fixture", fixtureNamed);
    const auto modeOf = [profile](const QString& text) { return ioModeNamed(text, profile); };
    const auto mode = members.has("ioMode") ? members.named("ioMode", modeOf)
                                            : ColorUtils::defaultIOModeIDForTonematchProfileID(profile);
    const int universe = members.wholeNumber("universe", 1, FrameRenderer::kLastUniverse, 1);
    const int bits = members.wholeNumber("bits", 8, 16, 8);
    const bool isSpread = members.has("channels");
    if (isSpread && (members.has("slot") || members.has("bits") || members.has("count")))
        throw CommandError(QStringLiteral("%1: \"channels\" excludes \"slot\", \"bits\" and \"count\"").arg(place));
    if (bits != 8 && bits != 16)
        throw CommandError(QStringLiteral("%1: \"bits\" is neither 8 nor 16").arg(place));
    const int slot = isSpread ? 1 : members.wholeNumber("slot", 1, kSlots);
    const int count = members.wholeNumber("count", 1, kSlots, 1);

    Fixture fixture = Fixture::contiguous(profile, mode, universe, slot, bits / 8);
    if (isSpread)
        fixture.channels = readChannels(members.value("channels"), place);
    if (members.has("directCurve"))
        fixture.directCurve = members.named("directCurve", curveNamed);
    if (members.has("onboardCurve"))
        fixture.onboardCurve = members.named("onboardCurve", curveNamed);
    fixture.allowRgbPassThrough = members.flag("allowRgbPassThrough");
    members.refuseOthers();

    const int width = fixture.channels.size() * (bits / 8);
    for (int i = 0; i < count; ++i) {
        if (fixtures.size() == kMostFixtures)
            throw CommandError(QStringLiteral("%1: more than %2 fixtures").arg(place).arg(kMostFixtures));
        if (i > 0)
            fixture.channels = Fixture::contiguous(profile, mode, universe, slot + i * width, bits / 8).channels;
        fixtures.append(fixture);
    }
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(QStringLiteral("cannot read the patch %1: %2").arg(quoted(path), file.errorString()));
    QByteArray content = file.read(kLongestFile + 1);
    if (file.error() != QFileDevice::NoError)
        throw CommandError(QStringLiteral("cannot read the patch %1: %2").arg(quoted(path), file.errorString()));
    if (content.size() > kLongestFile)
        throw CommandError(QStringLiteral("the patch %1 is longer than %2 bytes").arg(quoted(path)).arg(kLongestFile));
    return content;
}

/// "LINE:COLUMN" of a byte, both from 1.
QString placeOf(int offset, const QByteArray& content)
{
    const QByteArray before = content.left(offset);
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return QStringLiteral("%1:%2").arg(line).arg(column);
}

} // namespace

QVector<Fixture> readPatch(const QString& path)
{
    const QByteArray content = contentOf(path);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError)
        throw CommandError(
            QStringLiteral("%1:%2: %3").arg(printable(path), placeOf(error.offset, content), error.errorString()));

    QVector<Fixture> fixtures;
    try {
        Members patch(document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object()),
                      QStringLiteral("the patch"));
        const QJsonValue list = patch.value("fixtures");
        patch.refuseOthers();
        if (!list.isArray() || list.toArray().isEmpty())
            throw CommandError(QStringLiteral("the patch has no \"fixtures\""));
        const QJsonArray array = list.toArray();
        for (int i = 0; i < array.size(); ++i)
            readFixtures(array.at(i), QStringLiteral("fixtures[%1]").arg(i), fixtures);
    } catch (const CommandError& fault) {
        throw CommandError(QStringLiteral("%1: %2").arg(printable(path), QString::fromUtf8(fault.what())));
    }
    return fixtures;
}
