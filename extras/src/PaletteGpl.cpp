#include "PaletteCodecs_p.h"

#include <QRegularExpression>

// The palette of a drawing program: a line a colour, of red, green, blue (0 to 255) and a name.

namespace lxcolor {

namespace {

const QString kMagic = QStringLiteral("GIMP Palette");
const QString kExplanation =
    QStringLiteral("Each comment \"lxcolor\" tells more about the colour below it; keep them together.");

QString numbersOf(const LXColor& rgb)
{
    return QStringLiteral("%1 %2 %3").arg(rgb.red8()).arg(rgb.green8()).arg(rgb.blue8());
}

InputFault fault(const QString& text, qint64 line, int column) { return {text, {line, column + 1}}; }

class GplReader
{
public:
    explicit GplReader(PaletteBuilder& builder) : m_builder(builder), m_comments(builder) {}

    void read(const QString& text)
    {
        qint64 number = 0;
        for (int from = 0; from <= text.size();) {
            int end = text.indexOf(QLatin1Char('\n'), from);
            end = end < 0 ? text.size() : end;
            QString line = text.mid(from, end - from);
            if (line.endsWith(QLatin1Char('\r')))
                line.chop(1);
            from = end + 1;
            readLine(line, ++number);
        }
        m_comments.finish();
        if (m_builder.palette().lists.isEmpty() && !m_name.isEmpty())
            m_builder.beginList(m_name);
    }

private:
    void readLine(const QString& line, qint64 number)
    {
        const QString trimmed = line.trimmed();
        if (number == 1) {
            if (trimmed != kMagic)
                throw fault(PaletteFormat::tr("This is no such palette: the first line is not \"%1\"").arg(kMagic), 1,
                            0);
        } else if (trimmed.startsWith(QLatin1Char('#'))) {
            readComment(trimmed.mid(1).trimmed());
        } else if (!m_hasColors && trimmed.startsWith(QLatin1String("Name:"))) {
            m_name = trimmed.mid(5).trimmed();
            m_builder.setListName(m_name);
            m_comments.setShownListName(m_name);
        } else if (!m_hasColors && trimmed.startsWith(QLatin1String("Columns:"))) {
            m_builder.remarks().add(PaletteFormat::Code::Other); // how another program lays the colours out
        } else if (!trimmed.isEmpty()) {
            m_hasColors = true;
            readColor(line, number);
        }
    }

    void readComment(const QString& comment)
    {
        if (m_comments.take(comment))
            m_hasColors = true;
        else if (!comment.isEmpty() && comment != kExplanation)
            m_builder.remarks().add(PaletteFormat::Code::Other);
    }

    void readColor(const QString& line, qint64 number)
    {
        static const QRegularExpression form(
            QStringLiteral("\\A\\s*([^\\s]+)(?:\\s+([^\\s]+))?(?:\\s+([^\\s]+))?(.*)\\z"));
        const QRegularExpressionMatch match = form.match(line);
        int rgb[3] = {};
        for (int i = 0; i < 3; ++i) {
            const int column = match.capturedStart(i + 1);
            bool isNumber = false;
            rgb[i] = match.captured(i + 1).toInt(&isNumber);
            if (column < 0)
                throw fault(PaletteFormat::tr("Red, green and blue are expected, but the line ends"), number,
                            line.size());
            if (!isNumber || rgb[i] < 0 || rgb[i] > 255)
                throw fault(PaletteFormat::tr("A number from 0 to 255 is expected"), number, column);
        }
        const LXColor color(QColor(rgb[0], rgb[1], rgb[2]));
        m_comments.addColor(match.captured(4).trimmed(), numbersOf(color), color);
    }

    PaletteBuilder& m_builder;
    CommentReader m_comments;
    bool m_hasColors = false;
    QString m_name;
};

} // namespace

void readGpl(const QByteArray& content, PaletteBuilder& builder)
{
    GplReader(builder).read(decodedText(content, builder.remarks()));
}

QByteArray writeGpl(const Palette& palette, PaletteRemarks& /*remarks*/)
{
    QString text = kMagic + QLatin1Char('\n');
    if (!palette.lists.isEmpty())
        text += QStringLiteral("Name: %1\n").arg(onOneLine(palette.lists.first().name));
    text += QLatin1String("#\n# ") + kExplanation + QLatin1Char('\n');
    for (const Palette::List& list : palette.lists) {
        text += QLatin1String("# ") + listComment(list) + QLatin1Char('\n');
        for (const Palette::Entry& entry : list.entries) {
            const LXColor rgb = rgbOf(entry);
            const QString name = onOneLine(entry.name);
            text += QLatin1String("# ") + colorComment(entry, name, numbersOf(rgb)) + QLatin1Char('\n');
            text += QStringLiteral("%1 %2 %3").arg(rgb.red8(), 3).arg(rgb.green8(), 3).arg(rgb.blue8(), 3);
            text += QLatin1Char('\t') + name + QLatin1Char('\n');
        }
    }
    return text.toUtf8();
}

} // namespace lxcolor
