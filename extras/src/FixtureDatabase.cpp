#include "ColorSectionReader_p.h"
#include "DocumentChecker.h"
#include "FixtureImport.h"
#include "InputFault_p.h"

#include <QBuffer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

// The profile of a measurement in a fixture profile database.

namespace {

using Emitter = FixtureImport::Emitter;

const QString kProfile = QStringLiteral("Profile");

/// Where a profile is to go in the text of a database.
struct Gap
{
    int begin = -1;
    int end = -1; ///< Behind the earlier profile that it replaces; as begin where there is none.
    bool isRootEmpty = false;
};

/// Text that a comment can hold.
QString commentText(const QString& text)
{
    QString safe = lxcolor::xmlText(text.simplified());
    while (safe.contains(QLatin1String("--")))
        safe.replace(QLatin1String("--"), QLatin1String("- -"));
    return QLatin1Char(' ') + safe + QLatin1Char(' ');
}

QString numberText(double value) { return QString::number(value, 'g', 9); }

QString profileText(ColorUtils::TonematchProfileID profile, const QVector<Emitter>& channels, const QString& origin)
{
    QString text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartElement(kProfile);
    xml.writeAttribute(QStringLiteral("name"), ColorUtils::tonematchProfileIDName(profile));
    xml.writeAttribute(QStringLiteral("index"), QString::number(profile));
    xml.writeComment(commentText(
        QStringLiteral("Imported from %1. X, Y and Z of CIE 1931, on the scale of that file.").arg(origin)));
    for (int i = 0; i < channels.size(); ++i) {
        const Emitter& channel = channels.at(i);
        xml.writeComment(commentText(QStringLiteral("\"%1\", %2").arg(channel.name, channel.origin)));
        xml.writeEmptyElement(QStringLiteral("Channel"));
        xml.writeAttribute(QStringLiteral("name"), lxcolor::xmlText(channel.name));
        xml.writeAttribute(QStringLiteral("index"), QString::number(i));
        xml.writeAttribute(QStringLiteral("X"), numberText(channel.light.X));
        xml.writeAttribute(QStringLiteral("Y"), numberText(channel.light.Y));
        xml.writeAttribute(QStringLiteral("Z"), numberText(channel.light.Z));
    }
    xml.writeEndElement();
    return text.trimmed();
}

[[noreturn]] void refuse(const QString& text) { throw lxcolor::InputFault{text}; }

/// Throws when the library would not read all of a database.
void check(QByteArray content, const QString& sentence)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    const DocumentChecker::Report report = DocumentChecker::check(&buffer);
    if (report.kind != DocumentChecker::Kind::FixtureProfiles)
        refuse(FixtureImport::tr("It is no fixture profile database"));
    for (const DocumentChecker::Finding& finding : report.findings)
        if (finding.severity == DocumentChecker::Severity::Error)
            refuse(sentence.arg(finding.line).arg(finding.text));
}

/// The place of the tag that ends at, or shortly before, an offset.
int beginOfTag(const QString& text, qint64 offset, const QString& tag)
{
    const int begin = text.lastIndexOf(QLatin1Char('<'), static_cast<int>(offset) - 1);
    if (begin < 0 || !text.midRef(begin + 1).startsWith(tag))
        refuse(FixtureImport::tr("The place of the profile in it cannot be found"));
    return begin;
}

/// Where the profile goes: in the place of the one with its number, or before the end of the root.
Gap gapIn(const QString& text, int index)
{
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    Gap gap;
    int depth = 0;
    int begin = -1; // of the profile that is open, if it is the one
    while (!xml.atEnd()) {
        xml.readNext();
        const QString name = xml.qualifiedName().toString();
        if (xml.isStartElement()) {
            ++depth;
            if (name == kProfile && depth == 1)
                refuse(FixtureImport::tr("Its root is a profile: put that into an element \"Profiles\" first"));
            if (name == kProfile && xml.attributes().value(QLatin1String("index")).toInt() == index)
                begin = beginOfTag(text, xml.characterOffset(), kProfile);
        } else if (xml.isEndElement()) {
            --depth;
            const int end = text.lastIndexOf(QLatin1Char('>'), static_cast<int>(xml.characterOffset()) - 1) + 1;
            if (name == kProfile && begin >= 0) {
                gap = {begin, end, false};
                begin = -1;
            } else if (depth == 0 && gap.begin < 0) {
                gap.isRootEmpty = text.midRef(0, end).endsWith(QLatin1String("/>"));
                gap.begin =
                    gap.isRootEmpty ? end - 2 : beginOfTag(text, xml.characterOffset(), QLatin1Char('/') + name);
                gap.end = gap.isRootEmpty ? end : gap.begin;
            }
        }
    }
    if (xml.hasError() || gap.begin < 0)
        refuse(FixtureImport::tr("Not well-formed: %1").arg(xml.errorString()));
    return gap;
}

QString rootNameOf(const QString& text)
{
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    xml.readNextStartElement();
    return xml.qualifiedName().toString();
}

const QByteArray kByteOrderMark("\xef\xbb\xbf");

/// The text of a database, without a byte order mark; refused unless it is UTF-8.
QString textOf(const QByteArray& database)
{
    const QByteArray bytes = database.mid(database.startsWith(kByteOrderMark) ? kByteOrderMark.size() : 0);
    QString text = QString::fromUtf8(bytes);
    QXmlStreamReader xml(text);
    while (!xml.atEnd() && !xml.isStartElement())
        xml.readNext();
    const QString encoding = xml.documentEncoding().toString();
    if (text.toUtf8() != bytes ||
        (!encoding.isEmpty() && encoding.compare(QLatin1String("utf-8"), Qt::CaseInsensitive) != 0))
        refuse(FixtureImport::tr("It is not UTF-8: profiles can be added to UTF-8 text alone"));
    return text;
}

QString merged(const QString& text, const QString& profile, int index, bool mayReplace, bool& isReplacing)
{
    const Gap gap = gapIn(text, index);
    isReplacing = gap.end > gap.begin && !gap.isRootEmpty;
    if (isReplacing && !mayReplace)
        refuse(FixtureImport::tr(
                   "It has a profile %1 already, in line %2; it is replaced only when that is asked for (--replace)")
                   .arg(index)
                   .arg(lxcolor::placeAt(text, gap.begin).line));
    const QString lineEnd = text.contains(QLatin1String("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    QString inserted = profile;
    inserted.replace(QLatin1Char('\n'), lineEnd + QLatin1String("  "));
    if (gap.isRootEmpty)
        inserted = QLatin1Char('>') + lineEnd + QLatin1String("  ") + inserted + lineEnd + QLatin1String("</") +
                   rootNameOf(text) + QLatin1Char('>');
    else if (!isReplacing)
        inserted = (text.midRef(0, gap.begin).endsWith(QLatin1Char('\n')) ? QString() : lineEnd) + QLatin1String("  ") +
                   inserted + lineEnd;
    return text.left(gap.begin) + inserted + text.mid(gap.end);
}

} // namespace

FixtureImport::Database FixtureImport::writeProfile(const QByteArray& database, ColorUtils::TonematchProfileID profile,
                                                    const QVector<Emitter>& channels, const QString& origin,
                                                    bool mayReplace)
{
    Database result;
    try {
        const QString text = profileText(profile, channels, origin);
        if (database.trimmed().isEmpty()) {
            QString inserted = text;
            inserted.replace(QLatin1Char('\n'), QLatin1String("\n  "));
            result.content =
                QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Profiles>\n  %1\n</Profiles>\n")
                    .arg(inserted)
                    .toUtf8();
        } else {
            check(database, tr("It has errors, such as in line %1: %2"));
            const QByteArray mark = database.startsWith(kByteOrderMark) ? kByteOrderMark : QByteArray();
            result.content = mark + merged(textOf(database), text, profile, mayReplace, result.isReplacing).toUtf8();
        }
        check(result.content, tr("The result would have errors, such as in line %1: %2"));
        result.isWritten = true;
    } catch (const lxcolor::InputFault& fault) {
        result = {};
        result.error = fault.text;
    }
    return result;
}
