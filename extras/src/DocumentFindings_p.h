#ifndef DOCUMENTFINDINGS_P_H
#define DOCUMENTFINDINGS_P_H

#include "ColorSectionReader_p.h"
#include "DocumentChecker.h"

#include <QIODevice>
#include <QStringList>

class QXmlStreamReader;

namespace lxcolor {

using Place = TextPlace;

/// A text of a document in quotes, cut and without control characters.
QString shown(const QString& text);
/// One that is to be shown so.
struct Quoted
{
    QString text;
};

/// Collects the findings on one document. A sentence is made of a source text marked for translation in context
/// "DocumentChecker" and what its %1, %2, ... stand for, and only when it will be listed.
class DocumentFindings
{
public:
    using Code = DocumentChecker::Code;
    using Severity = DocumentChecker::Severity;

    template <typename... Arguments>
    void error(Code code, Place place, const char* sentence, const Arguments&... arguments)
    {
        add(Severity::Error, code, place, sentence, arguments...);
    }
    template <typename... Arguments>
    void warning(Code code, Place place, const char* sentence, const Arguments&... arguments)
    {
        add(Severity::Warning, code, place, sentence, arguments...);
    }
    template <typename... Arguments>
    void note(Code code, Place place, const char* sentence, const Arguments&... arguments)
    {
        add(Severity::Note, code, place, sentence, arguments...);
    }

    /// Warns of an attribute unless it is among the known ones or about XML itself.
    void checkAttribute(const QString& name, const QStringList& known, const char* element, Place place);
    /// Warns that nothing known is meant by an element.
    void unknownElement(const QString& name, Place place);

    DocumentChecker::Report report(DocumentChecker::Kind kind) const;

private:
    template <typename... Arguments>
    void add(Severity severity, Code code, Place place, const char* sentence, const Arguments&... arguments)
    {
        if (!count(severity))
            return;
        const QString text = DocumentChecker::tr(sentence);
        if constexpr (sizeof...(arguments) == 0)
            list({severity, code, place.line, place.column, text});
        else
            list({severity, code, place.line, place.column, text.arg(words(arguments)...)});
    }
    /// Whether there is room for it in the list.
    bool count(Severity severity);
    void list(const DocumentChecker::Finding& finding);

    static QString words(const QString& text) { return text; }
    static QString words(const char* text) { return QLatin1String(text); }
    static QString words(const Quoted& quoted) { return shown(quoted.text); }
    static QString words(double number) { return QString::number(number, 'f', 4); }
    static QString words(int number) { return QString::number(number); }
    static QString words(qint64 number) { return QString::number(number); }

    DocumentChecker::Report m_report;
};

// Sentences of both kinds of documents.
extern const char* const kReplacedText;
extern const char* const kWrongEncoding; ///< With the encoding.
extern const char* const kOutsideLocus;  ///< With x and y.

/// The beginning of a document, read from a device that is not sequential.
QByteArray beginningOf(QIODevice& device, qint64 size);

/// The encoding that a text declares, when it is not known or not that of the declaration itself; otherwise empty.
QString wrongEncoding(const QByteArray& beginning);

/// Has \a repair examine a text; where its first byte or character stands that is to be replaced.
Place examine(QIODevice& device, TextRepair& repair);

/// Where \a xml stopped.
Place placeOf(const QXmlStreamReader& xml);

} // namespace lxcolor

#endif
