#ifndef SUBCOMMANDS_H
#define SUBCOMMANDS_H

#include <QString>
#include <QStringList>
#include <QVector>

/// One subcommand of the program.
struct Subcommand
{
    QString name;
    QString summary; ///< One line for lxcolor --help.
    /// Does the work, given the arguments after the name. Throws CommandError or ReaderGone.
    void (*run)(const QStringList& arguments);
    bool paints = false; ///< Needs what Qt starts for painting: fonts.
};

/// All subcommands, in the order in which help lists them.
const QVector<Subcommand>& subcommands();
/// The summary of a subcommand; empty for no subcommand.
QString summaryOf(const QString& name);

// What runs them, each in a source file of its own.
void runFixtures(const QStringList& arguments);
void runDmx(const QStringList& arguments);
void runConvert(const QStringList& arguments);
void runCct(const QStringList& arguments);
void runMix(const QStringList& arguments);
void runMatch(const QStringList& arguments);
void runRender(const QStringList& arguments);
void runGamut(const QStringList& arguments);
void runPlot(const QStringList& arguments);
void runSwatches(const QStringList& arguments);
void runCheck(const QStringList& arguments);
void runPalette(const QStringList& arguments);
void runImport(const QStringList& arguments);

#endif
