#ifndef TESTS_FILES_H
#define TESTS_FILES_H

#include <QFile>
#include <QtTest>

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file, and gives its path.
inline QString writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    [&] { QVERIFY2(isWritten, qPrintable(path)); }();
    return path;
}

#endif
