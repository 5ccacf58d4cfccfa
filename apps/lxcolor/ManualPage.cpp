#include "ManualPage.h"

#include "Subcommands.h"

#include <QCoreApplication>

namespace {

/// Text as roff shows it unchanged; quotes, dashes and the like stay what a shell understands.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e"));
    text.replace(QLatin1Char('-'), QLatin1String("\\-"));
    text.replace(QLatin1Char('\''), QLatin1String("\\(aq"));
    text.replace(QLatin1Char('"'), QLatin1String("\\(dq"));
    text.replace(QLatin1Char('^'), QLatin1String("\\(ha"));
    text.replace(QLatin1Char('~'), QLatin1String("\\(ti"));
    text.replace(QLatin1Char('`'), QLatin1String("\\(ga"));
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        if (line.startsWith(QLatin1Char('.')))
            line.prepend(QLatin1String("\\&"));
    return lines.join(QLatin1Char('\n'));
}

QString bold(const QString& text) { return QStringLiteral("\\fB") + escaped(text) + QStringLiteral("\\fR"); }

QString italic(const QString& text) { return QStringLiteral("\\fI") + escaped(text) + QStringLiteral("\\fR"); }

QString section(const QString& head, const QString& body) { return QStringLiteral(".SH %1\n%2\n").arg(head, body); }

QString pageName(const QString& subcommand)
{
    return subcommand.isEmpty() ? QStringLiteral("lxcolor") : QStringLiteral("lxcolor-") + subcommand;
}

QString synopsis(const CommandHelp& help)
{
    QStringList lines;
    for (const QString& line : help.usage.split(QLatin1Char('\n'))) {
        QString rest = line.trimmed();
        for (const QString& word : {QStringLiteral("lxcolor "), help.name + QLatin1Char(' ')})
            rest = rest.startsWith(word) ? rest.mid(word.size()) : rest;
        const QString command = QStringLiteral("lxcolor ") + help.name;
        lines << bold(command.trimmed()) + QLatin1Char(' ') + escaped(rest);
    }
    return QStringLiteral(".nf\n") + lines.join(QLatin1Char('\n')) + QStringLiteral("\n.fi");
}

bool isExample(const QString& paragraph) { return paragraph.startsWith(QLatin1String("Example")); }

QString asItStands(const QString& lines) { return QStringLiteral(".nf\n.RS 2\n%1\n.RE\n.fi").arg(escaped(lines)); }

/// A paragraph; one whose second line is indented is a list, and stays as it is.
QString paragraph(const QString& text)
{
    if (!text.contains(QLatin1String("\n  ")))
        return escaped(text);
    return escaped(text.section(QLatin1Char('\n'), 0, 0)) + QLatin1Char('\n') +
           asItStands(text.section(QLatin1Char('\n'), 1));
}

QString description(const CommandHelp& help)
{
    QStringList paragraphs;
    for (const QString& text : help.description.split(QStringLiteral("\n\n")))
        if (!isExample(text))
            paragraphs << paragraph(text);
    return paragraphs.join(QStringLiteral("\n.PP\n"));
}

QString examples(const CommandHelp& help)
{
    QString lines = help.description.section(QStringLiteral("\n\n"), -1).section(QLatin1Char('\n'), 1);
    lines.replace(QLatin1String("\n  "), QLatin1String("\n"));
    return asItStands(lines.trimmed());
}

QString options(const CommandHelp& help)
{
    QStringList entries;
    for (const QCommandLineOption& option : help.options) {
        QStringList names;
        for (const QString& name : option.names())
            names << bold((name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name);
        QString head = names.join(QStringLiteral(", "));
        if (!option.valueName().isEmpty())
            head += QLatin1Char(' ') + italic(option.valueName());
        QString text = escaped(option.description());
        if (!option.defaultValues().isEmpty())
            text += escaped(QStringLiteral(" [default: %1]").arg(option.defaultValues().join(QLatin1Char(' '))));
        entries << QStringLiteral(".TP\n%1\n%2").arg(head, text);
    }
    return entries.join(QLatin1Char('\n'));
}

QString seeAlso(const QString& subcommand)
{
    QStringList pages;
    if (!subcommand.isEmpty())
        pages << bold(QStringLiteral("lxcolor")) + QStringLiteral("(1)");
    for (const Subcommand& other : subcommands())
        if (other.name != subcommand)
            pages << bold(pageName(other.name)) + QStringLiteral("(1)");
    return pages.join(QStringLiteral(",\n"));
}

const char* const kExitStatus = ".TP\n0\nThe work is done, or whoever read the output has gone away.\n"
                                ".TP\n1\nThe surroundings are at fault: a file that cannot be written, a full disk.\n"
                                ".TP\n2\nThe command line or its input was refused, with one line on standard error. "
                                "Nothing was printed then,\nexcept for standard input that is read line by line: what "
                                "was printed for the lines before stands.";

} // namespace

QString manualPage(const CommandHelp& help)
{
    const QString name = pageName(help.name);
    return QStringLiteral(".TH %1 1 \"\" \"lxcolor %2\" \"User Commands\"\n.nh\n.ad l\n")
               .arg(escaped(name.toUpper()), QCoreApplication::applicationVersion()) +
           section(QStringLiteral("NAME"), escaped(name) + QStringLiteral(" \\- ") + escaped(help.summary)) +
           section(QStringLiteral("SYNOPSIS"), synopsis(help)) +
           section(QStringLiteral("DESCRIPTION"), description(help)) +
           section(QStringLiteral("OPTIONS"), options(help)) +
           section(QStringLiteral("EXIT STATUS"), QLatin1String(kExitStatus)) +
           section(QStringLiteral("EXAMPLES"), examples(help)) +
           section(QStringLiteral("SEE ALSO"), seeAlso(help.name)).chopped(1);
}
