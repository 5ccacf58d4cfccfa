#ifndef LIBRARYFILES_P_H
#define LIBRARYFILES_P_H

#include <QByteArray>
#include <QString>

// Files that hold somebody's work: read whole, replaced in one step, kept when they cannot be understood.
namespace lxcolor {

struct FileContent
{
    enum State { Missing, Unreadable, Read };
    State state = Missing;
    QByteArray bytes;
};

/// Files above MaxFileSize count as unreadable, and so does what is no file at all.
FileContent readFile(const QString& path);

/**
 * Makes \a bytes the content of the file, in one step where its folder can be written to; a link goes on leading to the
 * file. A file that holds them already is left alone.
 *
 * \a known is what the caller last took over from the file or wrote to it, and becomes \a bytes. Anything else that is
 * found there, because it could not be taken over or another process wrote it, is kept beside the file first, as
 * "<path>.kept" or "<path>.kept-2" and so on. While this is done other processes wait, by means of "<path>.lock".
 *
 * When it fails the file is as it was, or kept; false.
 */
bool replaceFile(const QString& path, const QByteArray& bytes, QByteArray& known);

} // namespace lxcolor

#endif
