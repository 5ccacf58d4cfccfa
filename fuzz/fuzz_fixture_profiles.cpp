// Any bytes may be read as a fixture profile database. The document check says exactly what the reader does with them,
// and every conversion works with what was read.
#include "DocumentChecker.h"
#include "EmitterRecords.h"
#include "FuzzSupport.h"
#include "ProfileHandler.h"

#include <QBuffer>

#include <algorithm>

using Kind = DocumentChecker::Kind;

namespace {

constexpr int kFirst = -1;
constexpr int kLast = 10;
const QVector<double> kUntouched{-1.0};

/// Follows the reader without changing a record.
class Observer : public ProfileHandler
{
public:
    int begun() const { return m_begun; }
    int taken() const { return m_taken.size(); }

    bool startElement(const QString& namespaceURI, const QString& localName, const QString& qName,
                      const QXmlAttributes& atts) override
    {
        m_begun += qName == QLatin1String("Profile") ? 1 : 0;
        return ProfileHandler::startElement(namespaceURI, localName, qName, atts);
    }

protected:
    void take(int index, const QVector<QVector<double>>& /*XYZ*/, const QVector<QString>& /*names*/) override
    {
        m_taken.insert(index);
    }

private:
    int m_begun = 0;
    QSet<int> m_taken;
};

template <typename Read>
auto withDevice(QByteArray content, const Read& read)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return read(&buffer);
}

QString textOf(const DocumentChecker::Report& report)
{
    QString text = DocumentChecker::name(report.kind);
    for (const auto& finding : report.findings)
        text += QStringLiteral("\n%1:%2 %3").arg(finding.line).arg(finding.column).arg(finding.text);
    return text + '\n';
}

/// An error is a profile that has no effect, one by one where the reader comes to the end. \a dropped is -1 where not,
/// \a taken the number of profiles that had an effect.
void compare(const DocumentChecker::Report& report, int dropped, int taken)
{
    // The reader forgives some of what is no XML.
    if (report.kind == Kind::Unknown && report.errors > 0)
        require(dropped != 0 || taken == 0, "what is no XML is not read, or has no effect");
    if (report.kind != Kind::FixtureProfiles)
        return;
    const QString details = textOf(report) + QString::number(dropped);
    require((report.errors > 0) == (dropped != 0), "an error is what the reader does not take", details);
    const bool isWhole =
        dropped >= 0 && std::all_of(report.findings.cbegin(), report.findings.cend(), [](const auto& finding) {
            return finding.code > DocumentChecker::Code::MoreFindings;
        });
    require(!isWhole || report.errors == dropped, "each profile without effect is an error", details);
}

void convertWith(int profile)
{
    const auto id = static_cast<ColorUtils::TonematchProfileID>(profile);
    const LXColor colors[] = {LXColor::fromxyY(0.3, 0.4, 1.0, id), LXColor::fromRgb8(255, 128, 1, 255, id),
                              LXColor::fromNChannelF({1.0, 0.5, 1.0, 0.25, 0.0, 1.0}, ColorUtils::ConfigRGBAW, id)};
    for (const LXColor& color : colors) {
        color.toRgb16(true);
        color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1);
        for (const int ioMode : {0, 3, 6})
            require(ColorUtils::updateBuffer(1, 1, color, false, 5, 2, ioMode, id).size() == 10,
                    "a fixture gets its bytes");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const EmitterRecords builtIn;
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const auto report = withDevice(content, [](QIODevice* device) { return DocumentChecker::check(device); });

    for (int profile = kFirst; profile <= kLast; ++profile)
        recordOf(profile)->setX(kUntouched);
    const bool isRead =
        withDevice(content, [](QIODevice* device) { return TristimulusFactory::getInstance()->parseXML(device); });
    int read = 0;
    for (int profile = kFirst; profile <= kLast; ++profile) {
        if (recordOf(profile)->getX() == kUntouched)
            builtIn.putBack(profile);
        else
            ++read;
    }

    Observer observer;
    const bool isObserved = withDevice(content, [&](QIODevice* device) { return observer.read(device); });
    require(isObserved == isRead && observer.taken() == read, "the records are what the handler takes");
    compare(report, isRead ? observer.begun() - read : -1, read);

    for (int profile = kFirst; profile <= kLast; ++profile)
        convertWith(profile);
    for (int profile = kFirst; read > 0 && profile <= kLast; ++profile)
        builtIn.putBack(profile);
    return 0;
}
