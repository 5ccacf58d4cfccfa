#include "PaletteCodecs_p.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

// Custom properties of a style sheet, as CSS Syntax and CSS Color write them: "--name: #rrggbb;".

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

/// Takes a style sheet apart, as far as custom properties need it.
class CssReader
{
public:
    CssReader(const QString& text, PaletteBuilder& builder) : m_text(text), m_builder(builder), m_comments(builder) {}

    void read()
    {
        while (m_offset < m_text.size())
            readPart();
        if (!m_openBlocks.isEmpty())
            fault(PaletteFormat::tr("The block that opens here is not closed"), m_openBlocks.last());
        m_comments.finish();
    }

private:
    [[noreturn]] void fault(const QString& text, int offset) const { throw InputFault{text, placeAt(m_text, offset)}; }

    bool startsWith(const char* what) const { return m_text.midRef(m_offset).startsWith(QLatin1String(what)); }

    /// Text up to a semicolon or the beginning or end of a block.
    void readPart()
    {
        QString part;
        int start = m_offset;
        int depth = 0; // of parentheses
        while (m_offset < m_text.size()) {
            const QChar c = m_text.at(m_offset);
            if (part.isEmpty())
                start = m_offset;
            if (startsWith("/*")) {
                readComment(part.isEmpty());
            } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
                part += readString(c);
            } else if (depth == 0 && (c == QLatin1Char(';') || c == QLatin1Char('{') || c == QLatin1Char('}'))) {
                break;
            } else {
                depth += c == QLatin1Char('(') ? 1 : c == QLatin1Char(')') ? -1 : 0;
                depth = std::max(depth, 0);
                if (!part.isEmpty() || !c.isSpace())
                    part += c;
                ++m_offset;
            }
        }
        endPart(part.trimmed(), start);
    }

    void endPart(const QString& part, int start)
    {
        const QChar end = m_offset < m_text.size() ? m_text.at(m_offset) : QChar();
        if (end == QLatin1Char('{')) {
            m_openBlocks.append(m_offset);
        } else {
            if (!part.isEmpty() && !m_openBlocks.isEmpty())
                readDeclaration(part, start);
            else if (!part.isEmpty())
                m_builder.remarks().add(Code::Other);
            if (end == QLatin1Char('}')) {
                if (m_openBlocks.isEmpty())
                    fault(PaletteFormat::tr("A block is closed that was not opened"), m_offset);
                m_openBlocks.removeLast();
            }
        }
        ++m_offset;
    }

    void readComment(bool isBeforePart)
    {
        const int start = m_offset;
        const int end = m_text.indexOf(QLatin1String("*/"), m_offset + 2);
        if (end < 0)
            fault(PaletteFormat::tr("The comment that opens here is not closed"), start);
        if (isBeforePart)
            m_comments.take(m_text.mid(start + 2, end - start - 2).trimmed());
        m_offset = end + 2;
    }

    QString readString(QChar quote)
    {
        const int start = m_offset;
        for (++m_offset; m_offset < m_text.size() && m_text.at(m_offset) != QLatin1Char('\n'); ++m_offset) {
            if (m_text.at(m_offset) == QLatin1Char('\\'))
                ++m_offset;
            else if (m_text.at(m_offset) == quote)
                return m_text.mid(start, ++m_offset - start);
        }
        fault(PaletteFormat::tr("The quotation mark that opens here is not closed"), start);
    }

    void readDeclaration(const QString& part, int start)
    {
        const int colon = part.indexOf(QLatin1Char(':'));
        const QString property = part.left(colon).trimmed();
        if (colon < 0 || !property.startsWith(QLatin1String("--")))
            return m_builder.remarks().add(Code::Other);
        const QString shown = part.mid(colon + 1).trimmed();
        const LXColor color = colorOf(shown.toLower(), start);
        if (!color.isValid())
            return m_builder.remarks().add(Code::Other);
        m_comments.addColor(property.mid(2), shown, color);
    }

    /// The colour of a value; an invalid one where it is none, or one among others, or is made of other properties.
    LXColor colorOf(const QString& value, int start) const
    {
        static const QRegularExpression hex(QStringLiteral("\\A#([0-9a-f]{3}|[0-9a-f]{4}|[0-9a-f]{6}|[0-9a-f]{8})\\z"));
        static const QRegularExpression function(QStringLiteral("\\Argba?\\(([^()]*)\\)\\z"));
        static const QRegularExpression blank(QStringLiteral("\\s"));
        if (value.startsWith(QLatin1Char('#')) && !value.contains(blank)) {
            const QRegularExpressionMatch match = hex.match(value);
            if (!match.hasMatch())
                fault(PaletteFormat::tr("\"#\" and 3, 4, 6 or 8 hexadecimal digits are expected"), start);
            return ofDigits(match.captured(1));
        }
        const QRegularExpressionMatch match = function.match(value);
        if (match.hasMatch())
            return ofNumbers(match.captured(1), start);
        if (value == QLatin1String("transparent"))
            return LXColor(0U, 0U, 0U, 0U);
        static const QStringList names = QColor::colorNames();
        return names.contains(value) ? LXColor(QColor(value)) : LXColor();
    }

    static LXColor ofDigits(const QString& digits)
    {
        const int width = digits.size() > 4 ? 2 : 1;
        int levels[4] = {0, 0, 0, 255};
        for (int i = 0; i * width < digits.size(); ++i)
            levels[i] = digits.midRef(i * width, width).toInt(nullptr, 16) * (width == 1 ? 17 : 1);
        return LXColor::fromRgb8(levels[0], levels[1], levels[2], levels[3], ColorUtils::ProfileGenericRGB);
    }

    /// Red, green and blue, 0 to 255 or a percentage, and alpha, 0 to 1 or a percentage.
    LXColor ofNumbers(const QString& list, int start) const
    {
        static const QRegularExpression separator(QStringLiteral("[\\s,/]+"));
        const QStringList texts = list.trimmed().split(separator);
        uint levels[4] = {0, 0, 0, 65535};
        if (texts.size() < 3 || texts.size() > 4)
            fault(PaletteFormat::tr("Red, green, blue and perhaps alpha are expected"), start);
        for (int i = 0; i < texts.size(); ++i) {
            const bool isPercent = texts.at(i).endsWith(QLatin1Char('%'));
            bool isNumber = false;
            double number = texts.at(i).left(texts.at(i).size() - (isPercent ? 1 : 0)).toDouble(&isNumber);
            if (texts.at(i) == QLatin1String("none")) {
                isNumber = true;
                number = 0.0;
            }
            const double ratio = number / (isPercent ? 100.0 : i == 3 ? 1.0 : 255.0);
            if (!isNumber || !(ratio >= 0.0 && ratio <= 1.0))
                fault(PaletteFormat::tr("Red, green, blue and perhaps alpha are expected"), start);
            levels[i] = static_cast<uint>(std::lround(65535.0 * ratio));
        }
        return LXColor(levels[0], levels[1], levels[2], levels[3]);
    }

    const QString& m_text;
    PaletteBuilder& m_builder;
    CommentReader m_comments;
    int m_offset = 0;
    QVector<int> m_openBlocks; ///< Where they open.
};

/// A name that a custom property can have and that is new to \a taken.
QString propertyName(const QString& name, QHash<QString, int>& taken)
{
    static const QRegularExpression others(QStringLiteral("[^A-Za-z0-9_\\x{80}-\\x{d7ff}]+"));
    QString base = name;
    // Of these some are not ASCII; at the end of a name they would be lost.
    std::replace_if(
        base.begin(), base.end(), [](QChar c) { return c.isSpace(); }, QLatin1Char('-'));
    base.replace(others, QStringLiteral("-"));
    if (base.isEmpty())
        base = QStringLiteral("color");
    QString unique = base;
    int& number = taken[base]; // how many there are of the base
    while (number > 0 && taken.contains(unique = base + QLatin1Char('-') + QString::number(number + 1)))
        ++number;
    ++number;
    if (unique != base)
        taken.insert(unique, 1);
    return unique;
}

QString shownColor(const LXColor& rgb)
{
    const QString alpha = QStringLiteral("%1").arg(rgb.alpha8(), 2, 16, QLatin1Char('0'));
    return rgb.name8() + (rgb.alpha16() == 0xffff ? QString() : alpha);
}

/// A comment, with what is in it kept from ending it.
QString cssComment(QString text)
{
    return QStringLiteral("/* %1 */\n").arg(text.replace(QLatin1String("*/"), QLatin1String("*\\/")));
}

} // namespace

void readCss(const QByteArray& content, PaletteBuilder& builder)
{
    const QString text = decodedText(content, builder.remarks());
    CssReader(text, builder).read();
}

QByteArray writeCss(const Palette& palette, PaletteRemarks& /*remarks*/)
{
    const QString indent = QStringLiteral("  ");
    QString text = QStringLiteral("/* Each comment \"lxcolor\" tells more about the colour below it; keep them "
                                  "together. */\n:root {\n");
    QHash<QString, int> taken;
    for (const Palette::List& list : palette.lists) {
        text += indent + cssComment(listComment(list));
        for (const Palette::Entry& entry : list.entries) {
            const QString property = propertyName(entry.name, taken);
            const QString shown = shownColor(rgbOf(entry));
            text += indent + cssComment(colorComment(entry, property, shown));
            text += indent + QStringLiteral("--%1: %2;\n").arg(property, shown);
        }
    }
    return (text + QStringLiteral("}\n")).toUtf8();
}

} // namespace lxcolor
