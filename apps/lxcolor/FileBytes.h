#ifndef FILEBYTES_H
#define FILEBYTES_H

#include <QByteArray>
#include <QString>

/// The content of a file. Throws a CommandError when it cannot be read, or has more than \a most bytes.
QByteArray readFile(const QString& path, qint64 most);
/// The content of a file, or of standard input where the name is "-". Throws as readFile() does.
QByteArray readInput(const QString& path, qint64 most);
/// Replaces a file in one step. Throws a CommandError when it cannot be, and then it is as it was.
void replaceFile(const QString& path, const QByteArray& bytes);
/// Replaces a file, or writes to standard output where the name is "-". Throws as replaceFile() and writeBytes() do.
void writeOutput(const QString& path, const QByteArray& bytes);

/// Whether a name is "-", which stands for standard input or output.
bool isStandardStream(const QString& path);
/// What messages and reports call a file that is read, or written: by its name, or "standard input", "standard output".
///@{
QString inputName(const QString& path);
QString outputName(const QString& path);
///@}

#endif
