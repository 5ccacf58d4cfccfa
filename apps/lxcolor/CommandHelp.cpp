#include "CommandHelp.h"

#include "CommandError.h"
#include "ManualPage.h"

#include <QRegularExpression>

namespace {

QString dashed(const QString& name) { return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name; }

QString optionLines(const CommandHelp& help)
{
    QStringList lines;
    for (const QCommandLineOption& option : help.options)
        for (const QString& name : option.names())
            lines << dashed(name) + QLatin1Char('\t') + option.valueName();
    const QString arguments = help.usage.section(QLatin1Char('\n'), 0, 0).section(QLatin1Char(']'), 1).trimmed();
    lines << QStringLiteral("arguments\t") + arguments;
    // A word in small letters stands for itself: what the subcommand is to do.
    static const QRegularExpression action(QStringLiteral("\\] ([a-z]+)( |$)"));
    for (const QString& way : help.usage.split(QLatin1Char('\n')))
        if (const QRegularExpressionMatch match = action.match(way); match.hasMatch())
            lines << QStringLiteral("action\t") + match.captured(1);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

QCommandLineOption helpAsOption()
{
    QCommandLineOption option(QStringLiteral("help-as"), QString(), QStringLiteral("man|options"));
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    return option;
}

QString helpAs(const QString& form, const CommandHelp& help)
{
    if (form == QLatin1String("man"))
        return manualPage(help);
    if (form == QLatin1String("options"))
        return optionLines(help);
    throw CommandError(QStringLiteral("--help-as cannot be %1; accepted: man, options").arg(quoted(form)));
}
