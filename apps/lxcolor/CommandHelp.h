#ifndef COMMANDHELP_H
#define COMMANDHELP_H

#include <QCommandLineOption>
#include <QString>
#include <QStringList>
#include <QVector>

/// What the program or a subcommand says about itself: the one source of its help, its manual page and what the shell
/// completes.
struct CommandHelp
{
    QString name;        ///< Of the subcommand; empty for the program.
    QString summary;     ///< One line, without an end.
    QString usage;       ///< What follows "lxcolor", a line for each way; further lines begin with "lxcolor".
    QString description; ///< Paragraphs between blank lines, the last of which is headed "Example:" or "Examples:".
    QVector<QCommandLineOption> options;
};

/// The option, hidden from help, that asks for another form of it.
QCommandLineOption helpAsOption();
/// The help as \a form has it: "man", a manual page for section 1, or "options", a line each of name, tabulator and
/// what it takes, for shells. Throws a CommandError for any other.
QString helpAs(const QString& form, const CommandHelp& help);

#endif
