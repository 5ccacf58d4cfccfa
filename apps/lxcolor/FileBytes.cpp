#include "FileBytes.h"

#include "CommandError.h"
#include "Output.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>

namespace {

CommandError tooLarge(const QString& name, qint64 most)
{
    return CommandError(QStringLiteral("%1 is larger than %2 MiB").arg(name).arg(most >> 20));
}

} // namespace

QByteArray readFile(const QString& path, qint64 most)
{
    QFile file(path);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.read(most + 1);
    if (file.error() != QFileDevice::NoError)
        throw CommandError(QStringLiteral("cannot read %1: %2").arg(quoted(path), file.errorString()));
    if (bytes.size() > most)
        throw tooLarge(quoted(path), most);
    return bytes;
}

QByteArray readInput(const QString& path, qint64 most)
{
    if (!isStandardStream(path))
        return readFile(path, most);
    QByteArray bytes;
    char part[65536];
    while (const std::size_t size = std::fread(part, 1, sizeof part, stdin)) {
        bytes.append(part, static_cast<int>(size));
        if (bytes.size() > most)
            throw tooLarge(inputName(path), most);
    }
    if (std::ferror(stdin) != 0)
        throw CommandError(QStringLiteral("cannot read standard input: %1").arg(qt_error_string(errno)),
                           CommandError::Surroundings);
    return bytes;
}

void replaceFile(const QString& path, const QByteArray& bytes)
{
    // A device or a pipe would be replaced by a file of its name.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        throw CommandError(QStringLiteral("cannot write %1: it is no file").arg(quoted(path)),
                           CommandError::Surroundings);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw CommandError(QStringLiteral("cannot write %1: %2").arg(quoted(path), file.errorString()),
                           CommandError::Surroundings);
}

void writeOutput(const QString& path, const QByteArray& bytes)
{
    if (!isStandardStream(path))
        return replaceFile(path, bytes);
    writeBytes(reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<std::size_t>(bytes.size()));
}

bool isStandardStream(const QString& path) { return path == QLatin1String("-"); }

QString inputName(const QString& path) { return isStandardStream(path) ? QStringLiteral("standard input") : path; }

QString outputName(const QString& path) { return isStandardStream(path) ? QStringLiteral("standard output") : path; }
