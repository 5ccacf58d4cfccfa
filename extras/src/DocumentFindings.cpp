#include "DocumentFindings_p.h"

#include <QRegularExpression>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>
#include <tuple>

namespace lxcolor {

const char* const kReplacedText = QT_TRANSLATE_NOOP(
    "DocumentChecker", "No text in the encoding of the document, or a control character: it is read as another.");
const char* const kWrongEncoding =
    QT_TRANSLATE_NOOP("DocumentChecker", "The encoding %1 is not known, or the text is in another one.");
const char* const kOutsideLocus =
    QT_TRANSLATE_NOOP("DocumentChecker", "The chromaticity %1, %2 is outside the spectral locus.");

bool DocumentFindings::count(Severity severity)
{
    ++(severity == Severity::Error     ? m_report.errors
       : severity == Severity::Warning ? m_report.warnings
                                       : m_report.notes);
    const qint64 number = severity == Severity::Error ? m_report.errors : m_report.warnings + m_report.notes;
    return number <= DocumentChecker::mostFindings;
}

void DocumentFindings::list(const DocumentChecker::Finding& finding) { m_report.findings.append(finding); }

void DocumentFindings::checkAttribute(const QString& name, const QStringList& known, const char* element, Place place)
{
    if (!known.contains(name) && !name.startsWith(QLatin1String("xml:")) && !name.startsWith(QLatin1String("xmlns")) &&
        !name.startsWith(QLatin1String("xsi:")))
        warning(Code::UnknownAttribute, place,
                QT_TRANSLATE_NOOP("DocumentChecker", "%1 has an attribute %2, which is ignored."), element,
                Quoted{name});
}

void DocumentFindings::unknownElement(const QString& name, Place place)
{
    warning(Code::UnknownElement, place, QT_TRANSLATE_NOOP("DocumentChecker", "The element %1 is ignored."),
            Quoted{name});
}

DocumentChecker::Report DocumentFindings::report(DocumentChecker::Kind kind) const
{
    DocumentChecker::Report report = m_report;
    report.kind = kind;
    std::stable_sort(report.findings.begin(), report.findings.end(), [](const auto& a, const auto& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
    const qint64 hidden = report.errors + report.warnings + report.notes - report.findings.size();
    if (hidden > 0)
        report.findings.append({DocumentChecker::Severity::Note, Code::MoreFindings, 0, 0,
                                DocumentChecker::tr("%1 more findings are not listed.").arg(hidden)});
    return report;
}

QString shown(const QString& text)
{
    constexpr int longest = 60;
    QString cut = text.left(longest);
    std::replace_if(
        cut.begin(), cut.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); },
        QChar(QChar::ReplacementCharacter));
    if (cut.size() < text.size())
        cut += QLatin1String("...");
    return QLatin1Char('"') + cut + QLatin1Char('"');
}

QByteArray beginningOf(QIODevice& device, qint64 size)
{
    device.seek(0);
    return device.read(size);
}

QString wrongEncoding(const QByteArray& beginning)
{
    static const QRegularExpression declaration(
        QStringLiteral("^(?:\\x{ef}\\x{bb}\\x{bf})?<\\?xml[^>]*\\sencoding\\s*=\\s*[\"']([^\"'>]*)[\"']"));
    const auto match = declaration.match(QString::fromLatin1(beginning.left(256)));
    const QString name = match.captured(1);
    const QTextCodec* codec = QTextCodec::codecForName(name.toLatin1());
    const bool isRight = codec && codec->toUnicode(beginning.left(256)).contains(QLatin1String("<?xml"));
    return match.hasMatch() && !isRight ? name : QString();
}

Place examine(QIODevice& device, TextRepair& repair)
{
    constexpr qint64 longest = 64 * 1024;
    Place place;
    device.seek(0);
    qint64 line = 1;
    for (QByteArray piece = device.readLine(longest); !piece.isEmpty(); piece = device.readLine(longest)) {
        repair.examine(piece);
        if (place.line == 0 && repair.isNeeded())
            place = {line, 1 + std::max(0, xmlText(QString::fromUtf8(piece)).indexOf(QChar::ReplacementCharacter))};
        line += piece.endsWith('\n') ? 1 : 0;
    }
    return place;
}

Place placeOf(const QXmlStreamReader& xml) { return {xml.lineNumber(), std::max<qint64>(xml.columnNumber(), 1)}; }

} // namespace lxcolor
