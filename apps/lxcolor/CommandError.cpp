#include "CommandError.h"

#include <algorithm>

CommandError::CommandError(const QString& message, Status status)
    : std::runtime_error(message.toStdString()), m_status(status)
{
}

QString printable(QString text)
{
    const auto unprintable = [](QChar c) { return c.category() == QChar::Other_Control; };
    std::replace_if(text.begin(), text.end(), unprintable, QChar(QChar::ReplacementCharacter));
    return text;
}

QString quoted(const QString& text)
{
    constexpr int longest = 80;
    const QString shown = text.size() > longest ? text.left(longest) + QStringLiteral("...") : text;
    return QLatin1Char('"') + printable(shown) + QLatin1Char('"');
}
