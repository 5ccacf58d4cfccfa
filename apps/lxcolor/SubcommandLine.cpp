#include "SubcommandLine.h"

#include "CommandError.h"
#include "NameLookup.h"
#include "Output.h"
#include "Subcommands.h"

SubcommandLine::SubcommandLine(const QString& usage, const QString& description) : m_usage(usage)
{
    m_parser.setApplicationDescription(description);
    m_parser.addOption(helpAsOption());
    add(helpOption());
}

void SubcommandLine::add(const QCommandLineOption& option)
{
    m_parser.addOption(option);
    m_options.append(option);
}

CommandHelp SubcommandLine::help() const
{
    const QString name = m_usage.section(QLatin1Char(' '), 0, 0);
    return {name, summaryOf(name), m_usage, m_parser.applicationDescription(), m_options};
}

void SubcommandLine::addFlag(const QString& name, const QString& description)
{
    add(QCommandLineOption(name, description));
}

void SubcommandLine::addValue(const QString& name, const QString& valueName, const QString& description,
                              const QString& defaultValue)
{
    add(QCommandLineOption(name, description, valueName, defaultValue));
    m_singleNames.append(name);
}

void SubcommandLine::addOutput(const QString& description)
{
    add(QCommandLineOption({QStringLiteral("o"), QStringLiteral("output")}, description, QStringLiteral("FILE")));
    m_singleNames.append(QStringLiteral("output"));
}

void SubcommandLine::addValues(const QString& name, const QString& valueName, const QString& description)
{
    add(QCommandLineOption(name, description, valueName));
}

void SubcommandLine::addChoice(const QString& name, const QStringList& choices, const QString& description,
                               bool isRequired)
{
    addValue(name, choices.join(QLatin1Char('|')), description, isRequired ? QString() : choices.first());
    m_choices.append({name, choices, isRequired});
}

void SubcommandLine::addFormats(const QStringList& formats, const QString& description)
{
    addChoice(QStringLiteral("format"), formats, description);
    addFlag(QStringLiteral("json"), QStringLiteral("The same as --format json. docs/json.md says what the keys mean."));
}

bool SubcommandLine::parse(const QStringList& arguments)
{
    const bool understood = m_parser.parse(QStringList(QStringLiteral("lxcolor")) + arguments);
    if (m_parser.isSet(QStringLiteral("help-as"))) {
        writeLine(helpAs(m_parser.value(QStringLiteral("help-as")), help()));
        return false;
    }
    if (m_parser.isSet(QStringLiteral("help"))) {
        writeLine(helpText(m_parser, m_usage));
        return false;
    }
    if (!understood)
        throw parseError(m_parser);
    for (const QString& name : qAsConst(m_singleNames))
        if (m_parser.values(name).size() > 1)
            throw CommandError(QStringLiteral("--%1 is given more than once").arg(name));
    for (const Choice& choice : qAsConst(m_choices))
        check(choice);
    return true;
}

int SubcommandLine::wholeNumber(const QString& name, int least, int greatest) const
{
    bool isNumber = false;
    const int number = value(name).toInt(&isNumber);
    if (isNumber && number >= least && number <= greatest)
        return number;
    throw CommandError(QStringLiteral("--%1 cannot be %2; accepted: whole numbers from %3 to %4")
                           .arg(name, quoted(value(name)), QString::number(least), QString::number(greatest)));
}

double SubcommandLine::number(const QString& name, double least, double greatest) const
{
    bool isNumber = false;
    const double number = value(name).toDouble(&isNumber);
    if (isNumber && number >= least && number <= greatest)
        return number;
    throw CommandError(QStringLiteral("--%1 cannot be %2; accepted: numbers from %3 to %4")
                           .arg(name, quoted(value(name)), QString::number(least), QString::number(greatest)));
}

QString SubcommandLine::format() const
{
    QString json = QStringLiteral("json");
    if (!isSet(json))
        return value(QStringLiteral("format"));
    if (isSet(QStringLiteral("format")) && value(QStringLiteral("format")) != json)
        throw CommandError(
            QStringLiteral("--json and --format %1 exclude each other").arg(value(QStringLiteral("format"))));
    return json;
}

void SubcommandLine::refusePositionalArguments() const
{
    if (!positionalArguments().isEmpty())
        throw CommandError(QStringLiteral("unexpected argument %1").arg(quoted(positionalArguments().first())));
}

void SubcommandLine::check(const Choice& choice) const
{
    const QString accepted = choice.values.join(QStringLiteral(", "));
    if (choice.isRequired && !isSet(choice.name))
        throw CommandError(QStringLiteral("--%1 is missing; accepted: %2").arg(choice.name, accepted));
    const QString given = value(choice.name);
    if (!choice.values.contains(given))
        throw CommandError(QStringLiteral("--%1 cannot be %2%3; accepted: %4")
                               .arg(choice.name, quoted(given), suggestion(given, choice.values), accepted));
}

QString helpText(const QCommandLineParser& parser, const QString& usage)
{
    // Qt's usage line puts the options before the subcommand, where they are not understood.
    const QString body = parser.helpText().section(QLatin1Char('\n'), 1).trimmed();
    return QStringLiteral("Usage: lxcolor %1\n\n%2").arg(usage, body);
}

QCommandLineOption helpOption()
{
    return QCommandLineOption({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
}

QCommandLineOption versionOption()
{
    return QCommandLineOption({QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version."));
}

CommandError parseError(const QCommandLineParser& parser)
{
    QString text = parser.errorText();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return CommandError(text);
}
