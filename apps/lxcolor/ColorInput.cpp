#include "ColorInput.h"

#include "CCTUtils.h"
#include "CommandError.h"
#include "InputLines.h"
#include "Kelvin.h"
#include "NameLookup.h"

namespace {

constexpr std::size_t kLongestLine = 4096;

/// A chromaticity "x,y" as a light at full intensity; an invalid colour for anything else.
LXColor chromaticityColor(const QString& text)
{
    const int comma = text.indexOf(QLatin1Char(','));
    bool hasX = false;
    bool hasY = false;
    const double x = text.left(comma).toDouble(&hasX);
    const double y = text.mid(comma + 1).toDouble(&hasY);
    return hasX && hasY ? LXColor::fromxyY(x, y, 1.0, ColorUtils::ProfileGenericRGB) : LXColor();
}

LXColor kelvinColor(const QString& text)
{
    double x = 0.0;
    double y = 0.0;
    CCTUtils::getxyFromCCT(kelvinOf(text), x, y);
    return LXColor::fromxyY(x, y, 1.0, ColorUtils::ProfileGenericRGB);
}

LXColor colorOf(const QString& text)
{
    if (isKelvin(text))
        return kelvinColor(text);
    // Names are looked up as C strings: what follows a zero byte would go unread.
    if (text.contains(QChar(QChar::Null)))
        return LXColor();
    return text.contains(QLatin1Char(',')) ? chromaticityColor(text) : LXColor(text);
}

void readStandardInput(const std::function<void(const GivenColor&)>& use)
{
    forEachInputLine(kLongestLine, [&](int number, const QString& line) {
        try {
            use(readColor(line));
        } catch (const CommandError& error) {
            throw error.status() == CommandError::BadInput ? atInputLine(number, error) : error;
        }
    });
}

} // namespace

GivenColor readColor(const QString& text)
{
    GivenColor given;
    const int equals = text.indexOf(QLatin1Char('='));
    given.label = text.left(equals < 0 ? 0 : equals).trimmed();
    given.text = text.mid(equals + 1).trimmed();
    given.color = colorOf(given.text);
    if (given.color.isValid())
        return given;
    throw CommandError(
        QStringLiteral("cannot read the colour %1%2; accepted: a colour name, #rrggbb, #aarrggbb, #rrrrggggbbbb, "
                       "#aaaarrrrggggbbbb, x,y from 0 to 1, a CCT as 3200K, or a value string aRgb;..., aYxy;..., "
                       "aNchannel;...")
            .arg(quoted(given.text), suggestion(given.text, QColor::colorNames())));
}

ColorInput::ColorInput(const QStringList& arguments)
{
    if (arguments.isEmpty())
        throw CommandError(QStringLiteral("no colour given; give one or more, or - for standard input"));
    for (const QString& argument : arguments) {
        if (argument != QLatin1String("-"))
            (m_readsStandardInput ? m_after : m_before).append(readColor(argument));
        else if (m_readsStandardInput)
            throw CommandError(QStringLiteral("standard input (-) can be read only once"));
        else
            m_readsStandardInput = true;
    }
}

void ColorInput::forEachArgument(const std::function<void(const GivenColor&)>& use) const
{
    for (const GivenColor& given : m_before + m_after)
        use(given);
}

void ColorInput::forEach(const std::function<void(const GivenColor&)>& use) const
{
    for (const GivenColor& given : m_before)
        use(given);
    if (m_readsStandardInput)
        readStandardInput(use);
    for (const GivenColor& given : m_after)
        use(given);
}

QString colorFormsHelp()
{
    return QStringLiteral(
        "A COLOR is a name (steelblue), hexadecimal digits (#rrggbb, #aarrggbb, #rrrrggggbbbb, #aaaarrrrggggbbbb), a\n"
        "CIE 1931 chromaticity x,y (0.4234,0.3990) or a CCT (3200K) at full intensity, or a value string, in quotes:\n"
        "'aRgb;1;0;#ffffffff80000000', 'aYxy;1;0;65535;Y;x;y', 'aNchannel;...'. LABEL=COLOR gives it a name of yours.\n"
        "- reads colours from standard input, one a line, and answers each line as it comes; blank lines are skipped,\n"
        "and a line that cannot be read ends the work with the lines before it done.");
}
