#include "ProfilesOption.h"

#include "CommandError.h"
#include "LibraryMessages.h"
#include "SubcommandLine.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QBuffer>
#include <QFile>

#include <cstdio>

namespace {

// What a database can replace.
constexpr int kFirstProfile = -1;
constexpr int kLastProfile = 10;
// The reader gives up after far less.
constexpr qint64 kLongestFile = 16 * 1024 * 1024;

const QLatin1String kReader("fixture profile database: ");

/// Undoes what a database beside the program has replaced.
void restoreBuiltInData()
{
    TristimulusFactory builtIn;
    for (int id = kFirstProfile; id <= kLastProfile; ++id) {
        const auto profile = static_cast<ColorUtils::TonematchProfileID>(id);
        Tristimulus* source = builtIn.getTristimulus(profile, ColorUtils::ConfigRGB);
        Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(profile, ColorUtils::ConfigRGB);
        record->setX(source->getX());
        record->setY(source->getY());
        record->setZ(source->getZ());
        record->setChannelNames(source->getChannelNames());
        record->calculatePolygon();
    }
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    QByteArray content;
    if (file.open(QIODevice::ReadOnly))
        content = file.read(kLongestFile);
    if (file.error() != QFileDevice::NoError)
        throw CommandError(
            QStringLiteral("cannot read the fixture profiles %1: %2").arg(quoted(path), file.errorString()));
    return content;
}

bool isRejection(const QString& message) { return message.contains(QLatin1String(" is rejected: ")); }

QString withoutReader(QString message) { return message.remove(0, message.startsWith(kReader) ? kReader.size() : 0); }

/// Why the reader gave up: the first of its messages that is not about a single profile.
QString reasonIn(const QStringList& messages)
{
    for (const QString& message : messages) {
        if (message == QLatin1String("invalid profile definition"))
            return QStringLiteral("a profile has an index that is not from %1 to %2")
                .arg(QString::number(kFirstProfile), QString::number(kLastProfile));
        if (message.startsWith(kReader) && !isRejection(message))
            return withoutReader(message);
    }
    return QStringLiteral("it is no fixture profile database");
}

void warn(const QString& path, const QString& message)
{
    std::fprintf(stderr, "lxcolor: warning: %s: %s\n", qUtf8Printable(quoted(path)),
                 qUtf8Printable(printable(message)));
}

} // namespace

void addProfilesOption(SubcommandLine& line)
{
    line.addValue(QStringLiteral("profiles"), QStringLiteral("FILE"),
                  QStringLiteral("A fixture profile database whose emitters replace the built-in ones. The "
                                 "FixtureProfiles.xml beside the program is then not used."));
}

void readProfiles(const SubcommandLine& line)
{
    if (!line.isSet(QStringLiteral("profiles")))
        return;
    const QString path = line.value(QStringLiteral("profiles"));
    QByteArray content = contentOf(path);
    restoreBuiltInData();

    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    const CaughtDebugMessages messages;
    if (!TristimulusFactory::getInstance()->parseXML(&buffer))
        throw CommandError(QStringLiteral("cannot read the fixture profiles %1: %2")
                               .arg(quoted(path), printable(reasonIn(messages.texts()))));
    for (const QString& message : messages.texts())
        if (isRejection(message))
            warn(path, withoutReader(message));
    // The reader has something to say about each profile, taken over or not.
    if (messages.texts().isEmpty())
        warn(path, QStringLiteral("there is no profile in it"));
}
