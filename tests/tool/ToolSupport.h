#ifndef TOOLSUPPORT_H
#define TOOLSUPPORT_H

#include "Files.h"
#include "Rows.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

// Runs the command line program from outside.

struct Outcome
{
    int status = -1;
    QString out;
    QString err;

    QStringList lines() const { return out.split('\n').mid(0, out.count('\n')); }
    QJsonObject json(int line = 0) const { return QJsonDocument::fromJson(lines().value(line).toUtf8()).object(); }
};

inline QString program() { return QStringLiteral(LXCOLOR_PROGRAM); }

inline Outcome finish(QProcess& process)
{
    Outcome outcome;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    outcome.out = QString::fromUtf8(process.readAllStandardOutput());
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

inline Outcome run(const QStringList& arguments, const QByteArray& input = QByteArray())
{
    QProcess process;
    process.start(program(), arguments);
    process.write(input);
    process.closeWriteChannel();
    return finish(process);
}

/// A folder for the files of a test.
class Folder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& content) const { return writeFile(path(name), content); }
    QByteArray read(const QString& name) const { return contentOf(path(name)); }

private:
    QTemporaryDir m_folder;
};

/// Arguments separated by "|".
inline QStringList words(const char* text) { return QString::fromUtf8(text).split('|', Qt::SkipEmptyParts); }

/// Checks that a run did its work and complained about nothing. For use with QVERIFY2(ok(outcome), outcome.err).
inline bool ok(const Outcome& outcome) { return outcome.status == 0 && outcome.err.isEmpty(); }

/// The outcome of a run that has to do its work and to complain about nothing.
inline Outcome succeed(const QStringList& arguments, const QByteArray& input = QByteArray())
{
    const Outcome outcome = run(arguments, input);
    [&] { QVERIFY2(ok(outcome), qPrintable(outcome.err)); }();
    return outcome;
}

/// Checks the form of a refusal: status 2, nothing printed, one line on standard error that holds all of \a contains.
inline void verifyRefused(const Outcome& outcome, const QStringList& contains)
{
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.out, QString());
    QVERIFY2(outcome.err.startsWith("lxcolor: ") && outcome.err.count('\n') == 1 && outcome.err.endsWith('\n'),
             qPrintable(outcome.err));
    for (const QString& text : contains)
        QVERIFY2(outcome.err.contains(text), qPrintable(text + "\nis missing in\n" + outcome.err));
}

#endif
