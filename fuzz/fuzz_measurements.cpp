// Any bytes may be read as a measurement of a fixture. Emitters that were read are lights, and those that become the
// channels of a profile make a database that the library reads.
#include "DocumentChecker.h"
#include "FixtureImport.h"
#include "FuzzSupport.h"

#include <QBuffer>

#include <cmath>

namespace {

void requireNoErrors(QByteArray database)
{
    QBuffer buffer(&database);
    buffer.open(QIODevice::ReadOnly);
    const DocumentChecker::Report report = DocumentChecker::check(&buffer);
    require(report.errors == 0 && report.kind == DocumentChecker::Kind::FixtureProfiles, "the library reads it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const QString unit = input.flag() ? QStringLiteral("relative") : QString();
    const FixtureImport::Reading reading = FixtureImport::read(input.rest(), unit);
    require(reading.isRead == reading.error.text.isEmpty(), "a refusal has a reason");
    require(reading.isRead || reading.emitters.isEmpty(), "nothing is read by halves");
    for (const FixtureImport::Emitter& emitter : reading.emitters) {
        const StandardObserver::XYZ& light = emitter.light;
        require(light.X >= 0.0 && light.Y > 0.0 && light.Z >= 0.0 && std::isfinite(light.X + light.Y + light.Z),
                "an emitter gives light", emitter.name);
    }
    QByteArray database;
    for (const auto profile : ColorUtils::tonematchProfileIDList(true)) {
        const FixtureImport::Assignment assignment = FixtureImport::assign(reading.emitters, profile);
        require(assignment.isComplete == assignment.error.isEmpty(), "a refusal has a reason");
        if (!assignment.isComplete)
            continue;
        const FixtureImport::Database written =
            FixtureImport::writeProfile(database, profile, assignment.channels, QStringLiteral("a--b"));
        require(written.isWritten, "a profile is written", written.error);
        requireNoErrors(written.content);
        database = written.content;
    }
    // The bytes themselves, as a database to add to: what comes of it is read as well.
    const FixtureImport::Emitter white{QStringLiteral("w"), {1.0, 1.0, 1.0}, QString()};
    const FixtureImport::Database merged = FixtureImport::writeProfile(
        input.rest(), ColorUtils::ProfilePixelNodeRGB, {white, white, white}, QStringLiteral("a"), true);
    if (merged.isWritten)
        requireNoErrors(merged.content);
    return 0;
}
