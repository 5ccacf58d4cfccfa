#include "FileBytes.h"

#include "CommandError.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

QByteArray readFile(const QString& path, qint64 most)
{
    QFile file(path);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.read(most + 1);
    if (file.error() != QFileDevice::NoError)
        throw CommandError(QStringLiteral("cannot read %1: %2").arg(quoted(path), file.errorString()));
    if (bytes.size() > most)
        throw CommandError(QStringLiteral("%1 is larger than %2 MiB").arg(quoted(path)).arg(most >> 20));
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
