#ifndef FILEBYTES_H
#define FILEBYTES_H

#include <QByteArray>
#include <QString>

/// The content of a file. Throws a CommandError when it cannot be read, or has more than \a most bytes.
QByteArray readFile(const QString& path, qint64 most);
/// Replaces a file in one step. Throws a CommandError when it cannot be, and then it is as it was.
void replaceFile(const QString& path, const QByteArray& bytes);

#endif
