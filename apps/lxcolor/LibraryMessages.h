#ifndef LIBRARYMESSAGES_H
#define LIBRARYMESSAGES_H

#include <QStringList>

/// From now on only critical messages reach standard error. The library warns about a colour that it refuses; the
/// program says so itself, in one line and with what is accepted.
void dropLibraryMessages();

/// While it lives, the debug messages of the library are kept here, also where the user's logging rules hide them.
class CaughtDebugMessages
{
public:
    CaughtDebugMessages();
    ~CaughtDebugMessages();

    const QStringList& texts() const { return m_texts; }

private:
    Q_DISABLE_COPY(CaughtDebugMessages)

    QStringList m_texts;
    bool m_wasOn;
};

#endif
