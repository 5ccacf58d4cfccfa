#include "ColorSectionReader_p.h"
#include "LibraryFiles_p.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#include <cstdio>

namespace lxcolor {

namespace {

constexpr int LockPatience = 2000; // milliseconds

bool writeAll(QFileDevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush() && file.error() == QFileDevice::NoError;
}

bool holds(const FileContent& content, const QByteArray& bytes)
{
    return content.state == FileContent::Read && content.bytes == bytes;
}

// In a folder that cannot be written to, the file itself was overwritten, and that may have failed half-way.
void putBack(const QString& path, const FileContent& earlier)
{
    if (earlier.state != FileContent::Read || holds(readFile(path), earlier.bytes))
        return;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        writeAll(file, earlier.bytes);
}

/// QSaveFile looks behind one link only and would replace the next one.
QString fileBehindLinks(const QString& path)
{
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const bool isWritten = writeAll(file, bytes);
    if (!isWritten)
        file.cancelWriting();
    // Where the file itself is overwritten, commit() is content with anything.
    return file.commit() && isWritten;
}

/// Sees to it that what is in the file is in another one beside it. What can be read is copied; all else makes room.
bool keepBeside(const QString& path, const FileContent& content)
{
    QString kept = path + QLatin1String(".kept");
    for (int number = 2; QFileInfo::exists(kept); ++number) {
        const bool isAlike = content.state == FileContent::Read && content.bytes.size() == QFileInfo(kept).size();
        if (isAlike && holds(readFile(kept), content.bytes))
            return true;
        kept = path + QLatin1String(".kept-") + QString::number(number);
    }
    if (content.state == FileContent::Read)
        return writeFile(kept, content.bytes);
    // QFile::rename() makes links and copies, of which neither suits folders, pipes and the files of others.
    return std::rename(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) == 0;
}

} // namespace

FileContent readFile(const QString& path)
{
    FileContent content;
    const QFileInfo info(path);
    if (!info.exists())
        return content;
    content.state = FileContent::Unreadable;
    QFile file(path);
    if (!info.isFile() || info.size() > MaxFileSize || !file.open(QIODevice::ReadOnly))
        return content;
    content.bytes = file.readAll();
    if (file.error() == QFileDevice::NoError)
        content.state = FileContent::Read;
    return content;
}

bool replaceFile(const QString& path, const QByteArray& bytes, QByteArray& known)
{
    QLockFile lock(path + QLatin1String(".lock"));
    lock.tryLock(LockPatience); // Where it cannot be had, saving goes on without.

    const FileContent earlier = readFile(path);
    if (!holds(earlier, bytes)) {
        const bool isToBeKept = earlier.state != FileContent::Missing && !holds(earlier, known);
        if (isToBeKept && !keepBeside(path, earlier))
            return false;
        if (!writeFile(fileBehindLinks(path), bytes)) {
            putBack(path, earlier);
            return false;
        }
    }
    known = bytes;
    return true;
}

} // namespace lxcolor
