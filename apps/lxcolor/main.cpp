#include "CommandError.h"
#include "LibraryMessages.h"
#include "NameLookup.h"
#include "Output.h"
#include "SubcommandLine.h"
#include "Subcommands.h"

#include <QColor>
#include <QGuiApplication>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <memory>

namespace {

// A reader that goes away is told by the write that fails, not by a signal.
void ignoreBrokenPipes()
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

QString description()
{
    QString text = QStringLiteral("Colours for LED fixtures: from any way of writing a colour to the bytes that a "
                                  "fixture is sent.\n\nSubcommands (lxcolor SUBCOMMAND --help tells more):\n");
    for (const Subcommand& subcommand : subcommands())
        text += QStringLiteral("  %1 %2\n").arg(subcommand.name, -10).arg(subcommand.summary);
    return text + QStringLiteral("\nExample:\n  lxcolor dmx steelblue --fixture \"WashLine QP6 RGBW\"");
}

QString usage() { return QStringLiteral("SUBCOMMAND [options] [arguments]"); }

/// For shells the subcommands follow the options, and "colors" are the names that a colour may have.
QString programHelpAs(const QString& form, const CommandHelp& help)
{
    if (form == QLatin1String("colors"))
        return QColor::colorNames().join(QLatin1Char('\n'));
    QString text = helpAs(form, help);
    if (form == QLatin1String("options"))
        for (const Subcommand& subcommand : subcommands())
            text += QStringLiteral("\n%1\t%2").arg(subcommand.name, subcommand.summary);
    return text;
}

const Subcommand& subcommandNamed(const QString& name)
{
    const QVector<Subcommand>& all = subcommands();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Subcommand& one) { return one.name == name; });
    if (found != all.end())
        return *found;
    QStringList names;
    for (const Subcommand& subcommand : all)
        names << subcommand.name;
    const QString accepted = names.join(QStringLiteral(", "));
    if (name.isEmpty())
        throw CommandError(QStringLiteral("no subcommand given; accepted: %1").arg(accepted));
    throw CommandError(
        QStringLiteral("unknown subcommand %1%2; accepted: %3").arg(quoted(name), suggestion(name, names), accepted));
}

void run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.setApplicationDescription(description());
    const CommandHelp help{
        QString(), QStringLiteral("colours for LED fixtures"), usage(), description(), {helpOption(), versionOption()}};
    parser.addOptions(help.options.toList());
    parser.addOption(helpAsOption());
    const bool understood = parser.parse(arguments);
    if (parser.isSet(QStringLiteral("help-as")))
        return writeLine(programHelpAs(parser.value(QStringLiteral("help-as")), help));
    if (parser.isSet(QStringLiteral("help")))
        return writeLine(helpText(parser, help.usage));
    if (parser.isSet(QStringLiteral("version")))
        return writeLine(QStringLiteral("lxcolor %1").arg(QCoreApplication::applicationVersion()));
    if (!understood)
        throw parseError(parser);
    const QStringList rest = parser.positionalArguments();
    subcommandNamed(rest.value(0)).run(rest.mid(1));
}

QStringList argumentsOf(int argc, char* argv[]) { return QCoreApplication(argc, argv).arguments(); }

/// Whether the work that is asked for paints.
bool isToPaint(const QStringList& arguments)
{
    const QVector<Subcommand>& all = subcommands();
    const QString name = arguments.value(1);
    return std::any_of(all.begin(), all.end(), [&](const Subcommand& one) { return one.paints && one.name == name; }) &&
           std::none_of(arguments.begin(), arguments.end(), [](const QString& argument) {
               return argument == QLatin1String("-h") || argument.startsWith(QLatin1String("--help"));
           });
}

/// What Qt needs for the work that is asked for. Given the program's name alone: of our options --title would be one of
/// Qt's.
std::unique_ptr<QCoreApplication> applicationFor(const QStringList& arguments, char* argv[])
{
    static int argc = 1;
    if (!isToPaint(arguments))
        return std::make_unique<QCoreApplication>(argc, argv);
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    // Files are painted without a display, also where there seems to be one: one that cannot be reached ends a program.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    ignoreBrokenPipes();
    dropLibraryMessages();
    const QStringList arguments = argumentsOf(argc, argv);
    const std::unique_ptr<QCoreApplication> app = applicationFor(arguments, argv);
    QCoreApplication::setApplicationName(QStringLiteral("lxcolor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(LXCOLOR_VERSION));
    try {
        run(arguments);
        return 0;
    } catch (const ReaderGone&) {
        return 0;
    } catch (const CommandError& error) {
        std::fprintf(stderr, "lxcolor: %s\n", error.what());
        return error.status();
    }
}
