#ifndef COMMANDERROR_H
#define COMMANDERROR_H

#include <QString>

#include <stdexcept>

/// What ends the program early: the one line that goes to standard error, and the exit status.
class CommandError : public std::runtime_error
{
public:
    /// 2: the command line or its input is at fault. 1: the surroundings are, such as a full disk.
    enum Status { Surroundings = 1, BadInput = 2 };

    explicit CommandError(const QString& message, Status status = BadInput);
    Status status() const { return m_status; }

private:
    Status m_status;
};

/// Text fit for one line on a terminal: control characters are replaced.
QString printable(QString text);
/// A user's text in quotes, fit for one line on a terminal: control characters are replaced, long text is cut.
QString quoted(const QString& text);

#endif
