#include "ChromaticityDiagram.h"
#include "ColorListCheck_p.h"
#include "ColorSectionReader_p.h"
#include "ColorUtils.h"
#include "LXColor.h"

#include <QHash>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

using Code = DocumentChecker::Code;
using Kind = DocumentChecker::Kind;

constexpr qint64 kPiece = 64 * 1024;
// The readers hold whatever is between two tags in memory, several times.
constexpr qint64 kLongestPart = 16 * 1024 * 1024;
constexpr int kLongestValue = 1024 * 1024;
// What is kept of uids, in bytes.
constexpr qint64 kMostUids = 104 * 1024 * 1024;

/// A device that ends early when too much is read from it without a word from the reader.
class BoundedInput : public QIODevice
{
public:
    explicit BoundedInput(QIODevice& source) : m_source(source)
    {
        m_source.seek(0);
        open(ReadOnly | Unbuffered);
    }

    bool isSequential() const override { return true; }
    void beginPart() { m_partLength = 0; }
    bool isCut() const { return m_partLength > kLongestPart; }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        if (isCut())
            return 0;
        const qint64 count = m_source.read(data, size);
        m_partLength += std::max<qint64>(count, 0);
        return count;
    }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    QIODevice& m_source;
    qint64 m_partLength = 0;
};

/// Calls \a use with the bytes of a device, piece after piece, until it returns false.
template <typename Use>
void forEachPiece(QIODevice& device, const Use& use)
{
    device.seek(0);
    for (QByteArray piece = device.read(kPiece); !piece.isEmpty(); piece = device.read(kPiece)) {
        if (!use(piece))
            return;
    }
}

/// Goes through the text as the library does. Of the two readings that it tries, each has a check of its own.
class ColorListCheck : public ColorSectionReader
{
public:
    ColorListCheck(QIODevice& device, DocumentFindings& findings) : m_input(device), m_findings(findings) {}

    /// Reads the text as it stands, or with \a repair put right.
    Refusal run(TextRepair* repair = nullptr);

    Kind kind() const { return m_listCount > 0 || m_kind == Kind::ColorLists ? m_kind : Kind::Unknown; }
    bool hasLists() const { return m_listCount > 0; }
    bool isCut() const { return m_input.isCut(); }
    const QXmlStreamReader& xml() const { return m_xml; }

protected:
    void begin(Element element, const QXmlStreamReader& xml) override;
    void end(Element element) override;
    bool feed(QXmlStreamReader& xml) override;

private:
    void beginList(const QXmlStreamAttributes& attributes);
    void beginOther(const QString& name);
    void checkColor(const QXmlStreamAttributes& attributes);
    void checkLight(const LXColor& color);
    void checkLevels(const LXColor& color);
    void checkUid(const QString& uid);
    void checkAttributes(const QXmlStreamAttributes& attributes, const QStringList& known, const char* element);
    bool isOurs() const { return m_openLists > 0 || m_kind == Kind::ColorLists; }

    BoundedInput m_input;
    DocumentFindings& m_findings;
    QXmlStreamReader m_xml;
    TextRepair* m_repair = nullptr;
    Kind m_kind = Kind::Project;
    Place m_place; ///< Of the element that begins.
    int m_listCount = 0;
    int m_openLists = 0;
    QVector<int> m_colorCounts; ///< Of the open lists.
    QVector<Place> m_listPlaces;
    QHash<QString, qint64> m_uids; ///< With the lines of the first colours that have them.
    qint64 m_uidsSize = 0;
};

ColorSectionReader::Refusal ColorListCheck::run(TextRepair* repair)
{
    m_repair = repair;
    if (!repair)
        m_xml.setDevice(&m_input);
    return read(m_xml);
}

// A piece ends with "<", so that the text never seems to be at its end before it is.
bool ColorListCheck::feed(QXmlStreamReader& xml)
{
    if (!m_repair)
        return false;
    QByteArray piece = m_input.read(kPiece);
    char byte = 0;
    while (!piece.endsWith('<') && m_input.read(&byte, 1) == 1)
        piece.append(byte);
    if (piece.isEmpty())
        return false;
    xml.addData(m_repair->repaired(piece));
    return true;
}

void ColorListCheck::begin(Element element, const QXmlStreamReader& xml)
{
    m_input.beginPart();
    const bool isRoot = path().isEmpty();
    m_place = place();
    const QString name = localName(xml).toString();
    if (isRoot && (name == DocumentTag || element == Element::List))
        m_kind = Kind::ColorLists;
    if (element == Element::List)
        beginList(xml.attributes());
    else if (element == Element::Color)
        checkColor(xml.attributes());
    else if (isOurs() && !(isRoot && name == DocumentTag))
        beginOther(name);
}

void ColorListCheck::end(Element element)
{
    m_input.beginPart();
    if (element != Element::List)
        return;
    --m_openLists;
    const Place place = m_listPlaces.takeLast();
    if (m_colorCounts.takeLast() == 0)
        m_findings.note(Code::EmptyList, place, QT_TRANSLATE_NOOP("DocumentChecker", "The list has no colours."));
}

void ColorListCheck::beginOther(const QString& name)
{
    if (name == ColorTag)
        m_findings.error(
            Code::MisplacedElement, m_place,
            QT_TRANSLATE_NOOP("DocumentChecker", "A colour that is not directly inside a list is ignored."));
    else
        m_findings.unknownElement(name, m_place);
}

void ColorListCheck::checkAttributes(const QXmlStreamAttributes& attributes, const QStringList& known,
                                     const char* element)
{
    for (const QXmlStreamAttribute& attribute : attributes)
        m_findings.checkAttribute(attribute.qualifiedName().toString(), known, element, m_place);
}

void ColorListCheck::beginList(const QXmlStreamAttributes& attributes)
{
    ++m_listCount;
    ++m_openLists;
    m_colorCounts.append(0);
    m_listPlaces.append(m_place);
    static const QStringList known{NameAttribute, UserListAttribute};
    checkAttributes(attributes, known, ListTag.data());
    if (!attributes.hasAttribute(NameAttribute))
        m_findings.warning(Code::MissingAttribute, m_place,
                           QT_TRANSLATE_NOOP("DocumentChecker", "The list has no name."));
    bool isRead = false;
    const QStringRef isUserList = attributes.value(UserListAttribute);
    isUserList.toInt(&isRead);
    if (!attributes.hasAttribute(UserListAttribute))
        m_findings.note(
            Code::MissingAttribute, m_place,
            QT_TRANSLATE_NOOP("DocumentChecker", "The list has no isUserLibrary and is loaded as a preset list."));
    else if (!isRead)
        m_findings.warning(
            Code::UnreadableNumber, m_place,
            QT_TRANSLATE_NOOP("DocumentChecker",
                              "isUserLibrary is %1, which is no number: the list is loaded as a preset list."),
            Quoted{isUserList.toString()});
}

void ColorListCheck::checkColor(const QXmlStreamAttributes& attributes)
{
    ++m_colorCounts.last();
    static const QStringList known{NameAttribute, UidAttribute, ValueAttribute, OriginatingPresetAttribute,
                                   VendorIdAttribute};
    checkAttributes(attributes, known, ColorTag.data());
    if (!attributes.hasAttribute(NameAttribute))
        m_findings.warning(Code::MissingAttribute, m_place,
                           QT_TRANSLATE_NOOP("DocumentChecker", "The colour has no name and is called %1."),
                           Quoted{MissingAttribute});
    if (!attributes.hasAttribute(UidAttribute))
        m_findings.note(Code::MissingAttribute, m_place,
                        QT_TRANSLATE_NOOP("DocumentChecker", "The colour has no uid."));
    if (!attributes.hasAttribute(ValueAttribute)) {
        m_findings.error(Code::MissingAttribute, m_place,
                         QT_TRANSLATE_NOOP("DocumentChecker", "The colour has no value and is left out."));
        return;
    }
    const QString value = attributes.value(ValueAttribute).toString();
    if (value.size() > kLongestValue) {
        m_findings.warning(Code::NotChecked, m_place,
                           QT_TRANSLATE_NOOP("DocumentChecker", "The value is too long to be checked."));
        return;
    }
    const LXColor color(value);
    if (!color.isValid()) {
        m_findings.error(Code::UnreadableValue, m_place,
                         QT_TRANSLATE_NOOP("DocumentChecker", "%1 is no colour and is left out."), Quoted{value});
        return;
    }
    if (const QString rewritten = color.aName(); rewritten != value)
        m_findings.note(Code::RewrittenValue, m_place, QT_TRANSLATE_NOOP("DocumentChecker", "%1 is read as %2."),
                        Quoted{value}, Quoted{rewritten});
    checkLight(color);
    checkLevels(color);
    checkUid(attributes.value(UidAttribute).toString());
}

void ColorListCheck::checkLight(const LXColor& color)
{
    if (color.spec() != LXColor::Yxy)
        return;
    double Y = 0.0;
    double x = 0.0;
    double y = 0.0;
    color.getYxyF(&Y, &x, &y, nullptr);
    if (!(Y >= 0.0 && Y <= 1.0) || !std::isfinite(x) || !std::isfinite(y))
        m_findings.warning(
            Code::ValueRange, m_place,
            QT_TRANSLATE_NOOP("DocumentChecker", "The intensity is not from 0 to 1, or a value is not finite."));
    else if (Y > 0.0 && !ChromaticityDiagram::isReal({x, y}))
        m_findings.warning(Code::OutsideLocus, m_place, kOutsideLocus, x, y);
}

void ColorListCheck::checkLevels(const LXColor& color)
{
    if (color.spec() != LXColor::NChannel)
        return;
    const auto profile = color.getTonematchProfileID();
    if (!ColorUtils::tonematchProfileIDList(true).contains(profile))
        m_findings.warning(Code::UnknownProfile, m_place,
                           QT_TRANSLATE_NOOP("DocumentChecker", "No fixture has the profile %1."),
                           QString::number(profile));
    const int layout = ColorUtils::configChannelCount(color.getChannelConfiguration());
    QVector<int> levels;
    color.getNChannel8(&levels, nullptr, nullptr);
    if (levels.size() - 1 != layout) // The first one is the alpha.
        m_findings.warning(
            Code::ChannelCount, m_place,
            QT_TRANSLATE_NOOP("DocumentChecker", "The colour has %1 levels, but its layout %2 channels."),
            levels.size() - 1, layout);
}

void ColorListCheck::checkUid(const QString& uid)
{
    if (uid.isEmpty() || m_uidsSize > kMostUids)
        return;
    const auto earlier = m_uids.constFind(uid);
    if (earlier == m_uids.constEnd()) {
        constexpr qint64 node = 96;
        m_uids.insert(uid, m_place.line);
        m_uidsSize += node + qint64(2) * uid.size();
        if (m_uidsSize > kMostUids)
            m_findings.warning(
                Code::NotChecked, m_place,
                QT_TRANSLATE_NOOP("DocumentChecker", "So many colours: uids are not compared from here on."));
    } else if (m_kind == Kind::Project) {
        m_findings.error(
            Code::DuplicateUid, m_place,
            QT_TRANSLATE_NOOP("DocumentChecker", "The uid %1 is that of a colour of line %2, which is left out."),
            Quoted{uid}, *earlier);
    } else {
        m_findings.warning(Code::DuplicateUid, m_place,
                           QT_TRANSLATE_NOOP("DocumentChecker",
                                             "The uid %1 is that of a colour of line %2: it finds only one of them."),
                           Quoted{uid}, *earlier);
    }
}

MarkupBounds::Excess excessOf(QIODevice& device)
{
    MarkupBounds bounds;
    MarkupBounds::Excess excess = MarkupBounds::Excess::None;
    forEachPiece(device, [&](const QByteArray& piece) {
        excess = bounds.excessIn(piece);
        return excess == MarkupBounds::Excess::None;
    });
    return excess;
}

bool isBlank(QIODevice& device)
{
    bool isBlank = true;
    forEachPiece(device, [&](const QByteArray& piece) {
        isBlank = piece.trimmed().isEmpty();
        return isBlank;
    });
    return isBlank;
}

/// Says why the text is not read, or not to its end.
void explain(ColorSectionReader::Refusal refusal, const ColorListCheck& check, const QByteArray& beginning,
             DocumentFindings& findings)
{
    const Place place = placeOf(check.xml());
    if (check.isCut())
        findings.warning(Code::NotChecked, place,
                         QT_TRANSLATE_NOOP("DocumentChecker", "So much between two tags: the rest is not checked."));
    else if (refusal == ColorSectionReader::Refusal::TooDeep)
        findings.error(
            Code::TooDeep, place,
            QT_TRANSLATE_NOOP("DocumentChecker", "Elements are nested too deeply: nothing of the file is read."));
    else if (refusal == ColorSectionReader::Refusal::TooMany)
        findings.error(
            Code::TooLarge, place,
            QT_TRANSLATE_NOOP("DocumentChecker", "There are too many lists or colours: nothing of the file is read."));
    else if (refusal == ColorSectionReader::Refusal::Entities)
        findings.error(
            Code::Entities, place,
            QT_TRANSLATE_NOOP(
                "DocumentChecker",
                "Entities are declared, or the document type declaration is long: nothing of the file is read."));
    else if (const QString encoding = wrongEncoding(beginning); !encoding.isEmpty())
        findings.error(Code::Encoding, place, kWrongEncoding, Quoted{encoding});
    else
        findings.error(Code::NotWellFormed, place,
                       QT_TRANSLATE_NOOP("DocumentChecker", "Not well-formed, nothing of the file is read: %1"),
                       check.xml().errorString());
}

/// What there is to say at the end of a text that is read.
void finish(const ColorListCheck& check, DocumentFindings& findings)
{
    if (check.kind() == Kind::Unknown)
        findings.warning(Code::Nothing, {},
                         QT_TRANSLATE_NOOP("DocumentChecker", "There is nothing in it that the library reads."));
    else if (!check.hasLists())
        findings.note(Code::Nothing, {}, QT_TRANSLATE_NOOP("DocumentChecker", "There is no list in it."));
}

/// Reads the text as it stands, and put right if that fails, as the library does.
Kind checkText(QIODevice& device, DocumentFindings& findings)
{
    constexpr qint64 declaration = 256;
    const QByteArray beginning = beginningOf(device, declaration);
    ColorListCheck first(device, findings);
    auto refusal = first.run();
    TextRepair repair;
    Place replaced;
    if (refusal == ColorSectionReader::Refusal::NotWellFormed && !first.isCut() && device.size() <= MaxRepairedSize)
        replaced = examine(device, repair);
    if (!repair.isNeeded()) {
        if (refusal == ColorSectionReader::Refusal::None)
            finish(first, findings);
        else
            explain(refusal, first, beginning, findings);
        return first.kind();
    }

    findings = DocumentFindings();
    ColorListCheck second(device, findings);
    refusal = second.run(&repair);
    if (refusal == ColorSectionReader::Refusal::None) {
        findings.warning(Code::ReplacedText, replaced, kReplacedText);
        finish(second, findings);
    } else {
        explain(refusal, second, beginning, findings);
    }
    return second.kind();
}

} // namespace

DocumentChecker::Kind checkColorLists(QIODevice& device, DocumentFindings& findings)
{
    if (device.size() > MaxFileSize) {
        findings.error(Code::TooLarge, {},
                       QT_TRANSLATE_NOOP("DocumentChecker", "The file is larger than %1 MiB and is not read."),
                       MaxFileSize >> 20);
        return Kind::Unknown;
    }
    if (isBlank(device)) {
        findings.warning(Code::Nothing, {}, QT_TRANSLATE_NOOP("DocumentChecker", "The file is empty."));
        return Kind::Unknown;
    }
    switch (excessOf(device)) {
    case MarkupBounds::Excess::Attributes:
        findings.error(
            Code::TooManyAttributes, {},
            QT_TRANSLATE_NOOP("DocumentChecker", "An element has too many attributes: nothing of the file is read."));
        return Kind::Unknown;
    case MarkupBounds::Excess::Length:
        findings.error(
            Code::TooLarge, {},
            QT_TRANSLATE_NOOP("DocumentChecker", "There is too much between two tags: nothing of the file is read."));
        return Kind::Unknown;
    default:
        return checkText(device, findings);
    }
}

} // namespace lxcolor
