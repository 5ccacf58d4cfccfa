#ifndef DATABASESOURCE_P_H
#define DATABASESOURCE_P_H

#include <QXmlInputSource>

class ProfileHandler;

namespace lxcolor {

/**
 * The text of a fixture profile database, which ends early when it is longer than any database, so that reading takes
 * little time and memory whatever the file holds.
 *
 * The reader's own limits leave out declarations: it calls itself for each parenthesis of a content model.
 */
class DatabaseSource : public QXmlInputSource
{
public:
    /// \a handler, which the reader must have as its lexical handler, tells where declarations are, and is told when
    /// the text is cut.
    DatabaseSource(QIODevice* device, ProfileHandler& handler);

    QChar next() override;

private:
    ProfileHandler& m_handler;
    int m_length = 0;
    int m_lengthInDTD = 0;
    bool m_isCut = false;
};

} // namespace lxcolor

#endif
