#include "Output.h"

#include "CommandError.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <cstdio>

#ifdef Q_OS_WIN
#    include <io.h>
#else
#    include <unistd.h>
#endif

namespace {

bool isTerminal(std::FILE* file)
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(file)) != 0;
#else
    return isatty(fileno(file)) == 1;
#endif
}

} // namespace

void writeLine(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    writeBytes(reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<std::size_t>(bytes.size()));
}

void writeBytes(const unsigned char* bytes, std::size_t size)
{
    if (std::fwrite(bytes, 1, size, stdout) == size && std::fflush(stdout) == 0)
        return;
    if (errno == EPIPE)
        throw ReaderGone();
    throw CommandError(QStringLiteral("cannot write to standard output: %1").arg(qt_error_string(errno)),
                       CommandError::Surroundings);
}

void writeJsonLine(const QJsonObject& object)
{
    writeLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

QString counted(qint64 number, const char* one, const char* many)
{
    return QStringLiteral("%1 %2").arg(number).arg(QLatin1String(number == 1 ? one : many));
}

bool outputShowsColors() { return isTerminal(stdout) && qgetenv("NO_COLOR").isEmpty() && qgetenv("TERM") != "dumb"; }
