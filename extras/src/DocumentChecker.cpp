#include "DocumentChecker.h"

#include "ColorListCheck_p.h"
#include "ColorSectionReader_p.h"
#include "DatabaseCheck_p.h"

#include <QBuffer>
#include <QXmlStreamReader>

namespace {

using Code = DocumentChecker::Code;

/// Whether a document is a fixture profile database. The root tells, or else channels without a colour list; where no
/// reader gets that far, the tags are looked for in the bytes.
bool isDatabase(const QByteArray& beginning)
{
    const bool hasLists = beginning.contains("ColorLibrary");
    bool hasChannels = false;
    if (lxcolor::MarkupBounds().excessIn(beginning) != lxcolor::MarkupBounds::Excess::None)
        return beginning.contains("<Profile") && !hasLists;
    QXmlStreamReader xml(beginning);
    xml.setNamespaceProcessing(false);
    bool isRoot = true;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (isRoot && xml.qualifiedName().startsWith(QLatin1String("Profile")))
            return true;
        if (lxcolor::localName(xml).startsWith(lxcolor::ListTag))
            return false;
        hasChannels = hasChannels || xml.qualifiedName() == QLatin1String("Channel");
        isRoot = false;
    }
    return hasChannels || (isRoot && beginning.contains("<Profile") && !hasLists);
}

/// The device itself, or what can be read from it at most.
class Source
{
public:
    explicit Source(QIODevice* device)
    {
        m_device = &m_buffer;
        if (device && device->isReadable() && !device->isSequential())
            m_device = device;
        else if (device && device->isReadable())
            m_buffer.setData(device->read(lxcolor::MaxFileSize + 1));
        m_buffer.open(QIODevice::ReadOnly);
    }
    QIODevice& device() { return *m_device; }

private:
    QBuffer m_buffer;
    QIODevice* m_device;
};

/// The words of each code, in the order of the codes.
const char* const kCodeNames[] = {
    "not-well-formed",     "encoding",          "replaced-text",     "too-large",         "too-deep",
    "too-many-attributes", "entities",          "nothing",           "not-checked",       "more-findings",
    "unknown-element",     "unknown-attribute", "misplaced-element", "missing-attribute", "unreadable-number",
    "profile-index",       "unknown-profile",   "duplicate-profile", "nested-profile",    "channel-index",
    "channel-order",       "too-few-channels",  "too-many-channels", "channel-count",     "not-finite",
    "negative-value",      "no-light",          "outside-locus",     "unreadable-value",  "value-range",
    "rewritten-value",     "duplicate-uid",     "empty-list",
};
static_assert(sizeof kCodeNames / sizeof *kCodeNames == static_cast<std::size_t>(Code::EmptyList) + 1,
              "a name for each code");

} // namespace

DocumentChecker::Report DocumentChecker::check(QIODevice* device)
{
    // As far as a database is read; a document of another kind that begins with more than this is no database.
    constexpr qint64 beginning = 1024 * 1024;
    Source source(device);
    lxcolor::DocumentFindings findings;
    const QByteArray bytes = lxcolor::beginningOf(source.device(), beginning);
    if (!isDatabase(bytes)) {
        const Kind kind = lxcolor::checkColorLists(source.device(), findings);
        const bool isGuessed = kind == Kind::Unknown && bytes.contains("<ColorLibrary");
        return findings.report(isGuessed ? Kind::ColorLists : kind);
    }
    lxcolor::checkDatabase(source.device(), findings);
    return findings.report(Kind::FixtureProfiles);
}

QString DocumentChecker::name(Kind kind)
{
    static const char* const names[] = {"unknown", "fixture-profiles", "color-lists", "project"};
    return QLatin1String(names[static_cast<int>(kind)]);
}

QString DocumentChecker::name(Severity severity)
{
    static const char* const names[] = {"note", "warning", "error"};
    return QLatin1String(names[static_cast<int>(severity)]);
}

QString DocumentChecker::name(Code code) { return QLatin1String(kCodeNames[static_cast<int>(code)]); }
