#include "CommandError.h"
#include "DocumentChecker.h"
#include "Output.h"
#include "SubcommandLine.h"
#include "Subcommands.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

namespace {

const QString kStandardInput = QStringLiteral("-");

struct CheckedFile
{
    QString name;
    DocumentChecker::Report report;
};

CheckedFile check(const QString& name)
{
    QFile file(name);
    const bool isOpen = name == kStandardInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    CheckedFile checked{name == kStandardInput ? QStringLiteral("standard input") : name, {}};
    if (isOpen)
        checked.report = DocumentChecker::check(&file);
    if (!isOpen || file.error() != QFileDevice::NoError)
        throw CommandError(QStringLiteral("cannot read %1: %2").arg(quoted(checked.name), file.errorString()));
    return checked;
}

QString place(const CheckedFile& file, const DocumentChecker::Finding& finding)
{
    const QString name = printable(file.name);
    return finding.line > 0
               ? QStringLiteral("%1:%2:%3").arg(name, QString::number(finding.line), QString::number(finding.column))
               : name;
}

void writeText(const CheckedFile& file)
{
    for (const DocumentChecker::Finding& finding : file.report.findings)
        writeLine(QStringLiteral("%1: %2: %3 [%4]")
                      .arg(place(file, finding), DocumentChecker::name(finding.severity), printable(finding.text),
                           DocumentChecker::name(finding.code)));
}

void writeJson(const CheckedFile& file)
{
    const auto number = [](qint64 n) { return n > 0 ? QJsonValue(n) : QJsonValue(QJsonValue::Null); };
    QJsonArray findings;
    for (const DocumentChecker::Finding& finding : file.report.findings)
        findings.append(QJsonObject{{QStringLiteral("severity"), DocumentChecker::name(finding.severity)},
                                    {QStringLiteral("code"), DocumentChecker::name(finding.code)},
                                    {QStringLiteral("line"), number(finding.line)},
                                    {QStringLiteral("column"), number(finding.column)},
                                    {QStringLiteral("sentence"), finding.text}});
    writeJsonLine({{QStringLiteral("file"), file.name},
                   {QStringLiteral("kind"), DocumentChecker::name(file.report.kind)},
                   {QStringLiteral("errors"), file.report.errors},
                   {QStringLiteral("warnings"), file.report.warnings},
                   {QStringLiteral("notes"), file.report.notes},
                   {QStringLiteral("findings"), findings}});
}

} // namespace

void runCheck(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("check [options] FILE..."),
        QStringLiteral("Says what is wrong with fixture profile databases, user colour files, preset files and other "
                       "documents with\ncolour lists, and where. FILE may be -, standard input.\n\n"
                       "Errors are what the library refuses or drops, warnings what it reads in another way than may "
                       "be meant, notes\nwhat it fills in. The exit status is 1 when there are errors.\n\n"
                       "Example:\n  lxcolor check FixtureProfiles.xml Presets/*.lxcolors"));
    line.addFormats({QStringLiteral("text"), QStringLiteral("json")},
                    QStringLiteral("text: FILE:LINE:COLUMN: SEVERITY: SENTENCE [CODE], a line a finding; "
                                   "json: an object a file, on one line."));
    if (!line.parse(arguments))
        return;
    const QString format = line.format();
    const QStringList names = line.positionalArguments();
    if (names.isEmpty())
        throw CommandError(QStringLiteral("no file given"));
    if (names.count(kStandardInput) > 1)
        throw CommandError(QStringLiteral("standard input is given more than once"));

    // All files are read before anything is printed.
    QVector<CheckedFile> files;
    for (const QString& name : names)
        files.append(check(name));
    DocumentChecker::Report total;
    for (const CheckedFile& file : qAsConst(files)) {
        if (format == QLatin1String("json"))
            writeJson(file);
        else
            writeText(file);
        total.errors += file.report.errors;
        total.warnings += file.report.warnings;
        total.notes += file.report.notes;
    }
    const QString summary =
        QStringLiteral("%1, %2, %3 in %4")
            .arg(counted(total.errors, "error", "errors"), counted(total.warnings, "warning", "warnings"),
                 counted(total.notes, "note", "notes"), counted(names.size(), "file", "files"));
    if (total.errors > 0)
        throw CommandError(summary, CommandError::Surroundings);
    std::fprintf(stderr, "lxcolor: %s\n", qUtf8Printable(summary));
}
