#ifndef SUBCOMMANDLINE_H
#define SUBCOMMANDLINE_H

#include "CommandError.h"
#include "CommandHelp.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

/// The command line of one subcommand: QCommandLineParser, with the help and the refusals that all subcommands share.
class SubcommandLine
{
public:
    /// \a usage is what follows "lxcolor": "dmx [options] COLOR...". \a description ends with an example.
    SubcommandLine(const QString& usage, const QString& description);

    void addFlag(const QString& name, const QString& description);
    void addValue(const QString& name, const QString& valueName, const QString& description,
                  const QString& defaultValue = QString());
    /// The option -o, --output, whose value is a file to write.
    void addOutput(const QString& description);
    /// A value option that may be given several times; any other is refused when it is.
    void addValues(const QString& name, const QString& valueName, const QString& description);
    /// An option with a fixed set of values, the first of which is the default unless \a isRequired.
    void addChoice(const QString& name, const QStringList& choices, const QString& description,
                   bool isRequired = false);

    /// The option --format with these choices, the first of which is the default, and --json for "json" among them.
    void addFormats(const QStringList& formats, const QString& description);

    /// Reads \a arguments. False when help was asked for, which is then printed and all there is to do. Throws a
    /// CommandError for an unknown option, a missing value, a second value or a value that is no choice.
    bool parse(const QStringList& arguments);

    bool isSet(const QString& name) const { return m_parser.isSet(name); }
    QString value(const QString& name) const { return m_parser.value(name); }
    /// The values of an option of addValues().
    QStringList values(const QString& name) const { return m_parser.values(name); }
    /// The value as a number within a range; throws a CommandError for anything else.
    int wholeNumber(const QString& name, int least, int greatest) const;
    double number(const QString& name, double least, double greatest) const;
    /// The choice of addFormats().
    QString format() const;
    QStringList positionalArguments() const { return m_parser.positionalArguments(); }
    /// Throws a CommandError when there is anything beside the options.
    void refusePositionalArguments() const;

private:
    struct Choice
    {
        QString name;
        QStringList values;
        bool isRequired;
    };

    void add(const QCommandLineOption& option);
    void check(const Choice& choice) const;
    CommandHelp help() const;

    QCommandLineParser m_parser;
    QString m_usage;
    QVector<QCommandLineOption> m_options;
    QVector<Choice> m_choices;
    QStringList m_singleNames; ///< Of options that take one value.
};

/// The help of \a parser under a usage line of our own.
QString helpText(const QCommandLineParser& parser, const QString& usage);
/// The option -h, --help.
QCommandLineOption helpOption();
/// The option -v, --version.
QCommandLineOption versionOption();
/// What \a parser could not understand.
CommandError parseError(const QCommandLineParser& parser);

#endif
