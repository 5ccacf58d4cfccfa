#include "ChromaticityDiagram.h"
#include "ColorSectionReader_p.h"
#include "ColorUtils.h"
#include "DatabaseCheck_p.h"
#include "ProfileHandler.h"
#include "StandardObserver.h"

#include <QBuffer>
#include <QMap>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace lxcolor {

namespace {

using Code = DocumentChecker::Code;

const QLatin1String kProfiles("Profiles");
const QLatin1String kProfile("Profile");
const QLatin1String kChannel("Channel");
const QString kName = QStringLiteral("name");
const QString kIndex = QStringLiteral("index");

/// What a reader that holds to the letter of XML makes of a database. That of the library forgives much, but does not
/// know where an element begins.
struct StrictReading
{
    QVector<Place> elements; ///< Where each begins, as far as it came.
    Place place;             ///< Where it stopped.
    QString error;           ///< Why; empty when it came to the end.
    QString wrongEncoding;
    Place replaced; ///< The first character that had to be another one.
};

StrictReading readStrictly(QByteArray& text)
{
    StrictReading result;
    if (MarkupBounds().excessIn(text) != MarkupBounds::Excess::None)
        return result;
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        const Place before = placeOfNext(xml);
        const bool isRoot = result.elements.isEmpty();
        xml.readNext();
        if (xml.isDTD() && !xml.entityDeclarations().isEmpty())
            return result;
        if (xml.isStartElement())
            result.elements.append(isRoot ? placeOfRoot(xml) : before);
    }
    if (!xml.hasError())
        return result;
    result.place = placeOf(xml);
    result.error = xml.errorString();
    result.wrongEncoding = wrongEncoding(text);
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TextRepair repair;
    result.replaced = examine(buffer, repair);
    return result;
}

/// The library's own reader, which tells what it would do instead of doing it.
class DatabaseCheck : public ProfileHandler
{
public:
    DatabaseCheck(const StrictReading& strict, DocumentFindings& findings) : m_strict(strict), m_findings(findings) {}

    void setDocumentLocator(QXmlLocator* locator) override { m_locator = locator; }
    bool startElement(const QString& namespaceURI, const QString& localName, const QString& qName,
                      const QXmlAttributes& atts) override;
    bool fatalError(const QXmlParseException& exception) override;

    /// What there is to say at the end, \a isWhole when the reader came to it.
    void finish(bool isWhole);

protected:
    void take(int index, const QVector<QVector<double>>& channelXYZ, const QVector<QString>& channelNames) override;
    void complain(Fault fault, const QString& message) override;

private:
    void checkProfile(const QXmlAttributes& atts);
    void checkChannel(const QXmlAttributes& atts);
    void checkLight(const StandardObserver::XYZ& light);
    void checkAttributes(const QXmlAttributes& atts, const QStringList& known, const char* element);
    int wholeNumber(const QXmlAttributes& atts, const char* element);
    double number(const QXmlAttributes& atts, const QString& name);
    void countsAsZero(const QXmlAttributes& atts, const QString& name, const char* element, bool isRead);
    void tooFewChannels();
    Place here() const;

    const StrictReading& m_strict;
    DocumentFindings& m_findings;
    QXmlLocator* m_locator = nullptr;
    int m_elementCount = 0;
    int m_profileCount = 0;
    Place m_element; ///< The element that begins.
    Place m_profile; ///< The profile that was begun last.
    Place m_channel; ///< Its first channel for which it will be rejected.
    Place m_end;     ///< Where the text ends for the reader, if before its end.
    QString m_profileTitle;
    int m_profileIndex = 0;
    QMap<int, Place> m_taken;
    bool m_isMalformed = false;
    Place m_malformed;
    QString m_malformedWhy;
};

Place DatabaseCheck::here() const
{
    return m_locator ? Place{m_locator->lineNumber(), m_locator->columnNumber()} : Place{};
}

bool DatabaseCheck::startElement(const QString& namespaceURI, const QString& localName, const QString& qName,
                                 const QXmlAttributes& atts)
{
    m_element = m_elementCount < m_strict.elements.size() ? m_strict.elements.at(m_elementCount) : here();
    ++m_elementCount;
    if (qName == kChannel && isInProfile())
        checkChannel(atts);
    else if (qName == kChannel)
        m_findings.warning(Code::MisplacedElement, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker", "A channel outside a profile is ignored."));
    else if (qName != kProfile && qName != kProfiles)
        m_findings.unknownElement(qName, m_element);

    const bool wasGood = !hasBadChannel();
    const bool goesOn = ProfileHandler::startElement(namespaceURI, localName, qName, atts);
    if (qName == kProfile)
        checkProfile(atts);
    else if (wasGood && hasBadChannel())
        m_channel = m_element;
    return goesOn;
}

bool DatabaseCheck::fatalError(const QXmlParseException& exception)
{
    m_malformed = {exception.lineNumber(), exception.columnNumber()};
    m_malformedWhy = exception.message();
    return ProfileHandler::fatalError(exception);
}

void DatabaseCheck::checkAttributes(const QXmlAttributes& atts, const QStringList& known, const char* element)
{
    for (int i = 0; i < atts.count(); ++i)
        m_findings.checkAttribute(atts.qName(i), known, element, m_element);
}

void DatabaseCheck::countsAsZero(const QXmlAttributes& atts, const QString& name, const char* element, bool isRead)
{
    if (atts.index(name) < 0)
        m_findings.warning(Code::MissingAttribute, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker", "%1 has no %2, which counts as 0."), element, name);
    else if (!isRead)
        m_findings.warning(Code::UnreadableNumber, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker", "%1 of %2 is %3, which is no number and counts as 0."),
                           name, element, Quoted{atts.value(name)});
}

int DatabaseCheck::wholeNumber(const QXmlAttributes& atts, const char* element)
{
    bool isRead = false;
    const int number = atts.value(kIndex).toInt(&isRead);
    countsAsZero(atts, kIndex, element, isRead);
    return number;
}

double DatabaseCheck::number(const QXmlAttributes& atts, const QString& name)
{
    bool isRead = false;
    const double number = atts.value(name).toDouble(&isRead);
    countsAsZero(atts, name, kChannel.data(), isRead || !std::isfinite(number));
    return number;
}

void DatabaseCheck::checkProfile(const QXmlAttributes& atts)
{
    ++m_profileCount;
    m_profile = m_element;
    m_channel = {};
    checkAttributes(atts, {kName, kIndex}, kProfile.data());
    m_profileIndex = wholeNumber(atts, kProfile.data());
    m_profileTitle = QStringLiteral("%1 %2").arg(m_profileIndex).arg(shown(atts.value(kName)));
    if (atts.index(kName) < 0)
        m_findings.note(Code::MissingAttribute, m_element,
                        QT_TRANSLATE_NOOP("DocumentChecker", "The profile has no name."));
}

void DatabaseCheck::checkChannel(const QXmlAttributes& atts)
{
    if (hasBadChannel())
        return;
    checkAttributes(atts, {kName, kIndex, QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")},
                    kChannel.data());
    if (atts.index(kName) < 0)
        m_findings.warning(Code::MissingAttribute, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker", "The channel has no name to be shown."));
    const int index = wholeNumber(atts, kChannel.data());
    if (index >= 0 && index < channelCount())
        m_findings.warning(Code::ChannelOrder, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker",
                                             "There is a channel %1 already: it and those after it move up by one."),
                           index);
    checkLight(
        {number(atts, QStringLiteral("X")), number(atts, QStringLiteral("Y")), number(atts, QStringLiteral("Z"))});
}

void DatabaseCheck::checkLight(const StandardObserver::XYZ& light)
{
    if (!std::isfinite(std::fabs(light.X) + std::fabs(light.Y) + std::fabs(light.Z))) {
        if (m_channel.line == 0)
            m_channel = m_element;
    } else if (light.X == 0.0 && light.Y == 0.0 && light.Z == 0.0) {
        m_findings.warning(Code::NoLight, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker", "X, Y and Z are 0: the channel gives no light."));
    } else if (std::min({light.X, light.Y, light.Z}) < 0.0) {
        m_findings.warning(Code::NegativeValue, m_element,
                           QT_TRANSLATE_NOOP("DocumentChecker", "X, Y or Z is negative, which no light has."));
    } else if (const QPointF xy = light.xy(); !ChromaticityDiagram::isReal(xy)) {
        m_findings.warning(Code::OutsideLocus, m_element, kOutsideLocus, xy.x(), xy.y());
    }
}

void DatabaseCheck::take(int index, const QVector<QVector<double>>& channelXYZ,
                         const QVector<QString>& /*channelNames*/)
{
    const auto profile = static_cast<ColorUtils::TonematchProfileID>(index);
    const bool isKnown = ColorUtils::tonematchProfileIDList(true).contains(profile);
    const int layout = ColorUtils::configChannelCount(ColorUtils::nChannelConfigurationForTonematchProfileID(profile));
    if (!isKnown)
        m_findings.warning(Code::UnknownProfile, m_profile,
                           QT_TRANSLATE_NOOP("DocumentChecker", "No fixture has the profile %1."), m_profileTitle);
    else if (channelXYZ.size() > std::max(3, layout))
        m_findings.warning(
            Code::ChannelCount, m_profile,
            QT_TRANSLATE_NOOP("DocumentChecker",
                              "Profile %1 has %2 channels, but its layout %3: those beyond are not used."),
            m_profileTitle, channelXYZ.size(), layout);
    if (m_taken.contains(index))
        m_findings.error(
            Code::DuplicateProfile, m_profile,
            QT_TRANSLATE_NOOP("DocumentChecker", "Profile %1 replaces that of line %2, which has no effect."),
            m_profileTitle, m_taken.value(index).line);
    m_taken.insert(index, m_profile);
}

void DatabaseCheck::tooFewChannels()
{
    const auto profile = static_cast<ColorUtils::TonematchProfileID>(m_profileIndex);
    const int layout = ColorUtils::configChannelCount(ColorUtils::nChannelConfigurationForTonematchProfileID(profile));
    if (channelCount() < 3)
        m_findings.error(
            Code::TooFewChannels, m_profile,
            QT_TRANSLATE_NOOP("DocumentChecker",
                              "Profile %1 is rejected: red, green and blue are needed, but it has %2 channels."),
            m_profileTitle, channelCount());
    else
        m_findings.error(
            Code::ChannelCount, m_profile,
            QT_TRANSLATE_NOOP("DocumentChecker", "Profile %1 is rejected: it has %2 channels, but its layout %3."),
            m_profileTitle, channelCount(), layout);
}

void DatabaseCheck::complain(Fault fault, const QString& /*message*/)
{
    switch (fault) {
    case Fault::NotWellFormed: // finish() knows more.
        m_isMalformed = true;
        break;
    case Fault::TooLong:
        m_end = here();
        break;
    case Fault::TooDeep:
        m_findings.error(
            Code::TooDeep, m_element,
            QT_TRANSLATE_NOOP("DocumentChecker", "Elements are nested too deeply: nothing is read from here on."));
        break;
    case Fault::EntityDeclaration:
        m_findings.error(Code::Entities, here(),
                         QT_TRANSLATE_NOOP("DocumentChecker", "Entities are declared: nothing is read from here on."));
        break;
    case Fault::ProfileIndex:
        m_findings.error(
            Code::ProfileIndex, m_profile,
            QT_TRANSLATE_NOOP("DocumentChecker", "Profile %1 is not from -1 to 10: nothing is read from here on."),
            m_profileTitle);
        break;
    case Fault::ProfileInProfile:
        m_findings.error(Code::NestedProfile, m_element,
                         QT_TRANSLATE_NOOP("DocumentChecker", "Profile %1 is rejected: this one begins inside it."),
                         m_profileTitle);
        break;
    case Fault::ChannelIndex:
        m_findings.error(
            Code::ChannelIndex, m_channel,
            QT_TRANSLATE_NOOP("DocumentChecker",
                              "Profile %1 is rejected: the channel's index does not follow the %2 before it."),
            m_profileTitle, channelCount());
        break;
    case Fault::TooManyChannels:
        m_findings.error(Code::TooManyChannels, m_channel,
                         QT_TRANSLATE_NOOP("DocumentChecker", "Profile %1 is rejected: it has more than %2 channels."),
                         m_profileTitle, channelCount());
        break;
    case Fault::TooFewChannels:
        tooFewChannels();
        break;
    case Fault::NotFinite:
        m_findings.error(
            Code::NotFinite, m_channel.line > 0 ? m_channel : m_profile,
            QT_TRANSLATE_NOOP("DocumentChecker", "Profile %1 is rejected: X, Y and Z, or their sum, are not finite."),
            m_profileTitle);
        break;
    }
}

void DatabaseCheck::finish(bool isWhole)
{
    if (m_isMalformed && m_end.line > 0)
        m_findings.error(
            Code::TooLarge, m_end,
            QT_TRANSLATE_NOOP("DocumentChecker", "The database is too long: nothing is read from here on."));
    else if (m_isMalformed && !m_strict.wrongEncoding.isEmpty())
        m_findings.error(Code::Encoding, m_strict.place, kWrongEncoding, Quoted{m_strict.wrongEncoding});
    else if (m_isMalformed)
        m_findings.error(Code::NotWellFormed, m_malformed,
                         QT_TRANSLATE_NOOP("DocumentChecker", "Not well-formed, nothing is read from here on: %1."),
                         m_malformedWhy);
    if (!isWhole)
        return;
    if (m_profileCount == 0)
        m_findings.warning(Code::Nothing, {}, QT_TRANSLATE_NOOP("DocumentChecker", "There is no profile in it."));
    if (m_end.line > 0 || m_strict.error.isEmpty())
        return;
    if (!m_strict.wrongEncoding.isEmpty())
        m_findings.warning(Code::Encoding, m_strict.place, kWrongEncoding, Quoted{m_strict.wrongEncoding});
    else if (m_strict.replaced.line > 0)
        m_findings.warning(Code::ReplacedText, m_strict.replaced, kReplacedText);
    else
        m_findings.warning(Code::NotWellFormed, m_strict.place,
                           QT_TRANSLATE_NOOP("DocumentChecker", "Not well-formed, although the library reads it: %1"),
                           m_strict.error);
}

} // namespace

void checkDatabase(QIODevice& device, DocumentFindings& findings)
{
    QByteArray text = beginningOf(device, kLongestDatabase);
    const StrictReading strict = readStrictly(text);
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    DatabaseCheck check(strict, findings);
    check.finish(check.read(&buffer));
}

} // namespace lxcolor

QT_WARNING_POP
