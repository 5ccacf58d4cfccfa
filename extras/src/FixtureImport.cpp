#include "FixtureImport.h"

#include "Measurement_p.h"
#include "PaletteCodecs_p.h"

#include <QRegularExpression>

namespace {

using Reading = FixtureImport::Reading;
using Source = FixtureImport::Source;

Source sourceOf(const QByteArray& content, const QString& text)
{
    static const QRegularExpression dataFormat(QStringLiteral("^\\s*BEGIN_DATA_FORMAT\\b"),
                                               QRegularExpression::MultilineOption);
    if (content.startsWith("PK\3\4") || content.startsWith("PK\5\6"))
        return Source::GdtfArchive;
    if (text.trimmed().startsWith(QLatin1Char('<')))
        return Source::GdtfDescription;
    return dataFormat.match(text).hasMatch() ? Source::Cgats : Source::Csv;
}

void readContent(const QByteArray& content, const QString& unit, Reading& reading)
{
    if (content.size() > FixtureImport::largestFile)
        throw lxcolor::InputFault{
            FixtureImport::tr("The file is larger than %1 MiB").arg(FixtureImport::largestFile >> 20)};
    bool isGuessed = false;
    const QString text = lxcolor::decodedText(content, isGuessed);
    reading.source = sourceOf(content, text);
    const bool isTable = reading.source == Source::Csv || reading.source == Source::Cgats;
    if (isTable && isGuessed)
        reading.remarks << FixtureImport::tr("The text is not UTF-8, and is read as Windows-1252.");
    if (!isTable && !unit.isEmpty())
        throw lxcolor::InputFault{FixtureImport::tr("A unit is stated, but GDTF has units of its own")};
    switch (reading.source) {
    case Source::GdtfArchive:
        return lxcolor::readGdtf(lxcolor::descriptionOfArchive(content), reading);
    case Source::GdtfDescription:
        return lxcolor::readGdtf(content, reading);
    case Source::Cgats:
        return lxcolor::readCgatsMeasurement(text, unit, reading);
    case Source::Csv:
        return lxcolor::readCsvMeasurement(text, unit, reading);
    }
}

} // namespace

QString FixtureImport::name(Source source)
{
    static const char* const names[] = {"gdtf-archive", "gdtf-description", "csv", "cgats"};
    return QLatin1String(names[static_cast<int>(source)]);
}

bool FixtureImport::readsArchives() { return lxcolor::canReadArchives(); }

FixtureImport::Reading FixtureImport::read(const QByteArray& content, const QString& unit)
{
    Reading reading;
    try {
        readContent(content, unit, reading);
        reading.isRead = true;
    } catch (const lxcolor::InputFault& fault) {
        reading.emitters.clear();
        reading.error = {fault.text, fault.place.line, fault.place.column};
    }
    return reading;
}
