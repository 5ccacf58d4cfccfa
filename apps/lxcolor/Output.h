#ifndef OUTPUT_H
#define OUTPUT_H

#include <QString>

#include <cstddef>

class QJsonObject;

/// Thrown when whoever read standard output has gone away, as `head` does. No fault: the program just ends.
struct ReaderGone
{
};

/// Writes \a line and a line end to standard output in UTF-8 and passes it on at once, so that a reader at the other
/// end of a pipe can act on it. Throws ReaderGone or CommandError.
void writeLine(const QString& line);
/// Writes bytes to standard output as they are, and passes them on at once. Throws as writeLine() does.
void writeBytes(const unsigned char* bytes, std::size_t size);
/// Writes \a object on one line.
void writeJsonLine(const QJsonObject& object);

/// "1 colour", "2 colours".
QString counted(qint64 number, const char* one, const char* many);

/// Whether standard output is a terminal that shows colours and whose user has not asked for none (NO_COLOR).
bool outputShowsColors();

#endif
