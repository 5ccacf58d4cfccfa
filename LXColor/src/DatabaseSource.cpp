#include "DatabaseSource_p.h"
#include "ProfileHandler.h"

namespace lxcolor {

namespace {

constexpr int kLongest = 1024 * 1024; // characters
constexpr int kLongestInDTD = 1024;

} // namespace

DatabaseSource::DatabaseSource(QIODevice* device, ProfileHandler& handler) : QXmlInputSource(device), m_handler(handler)
{
}

QChar DatabaseSource::next()
{
    if (m_isCut)
        return QChar(EndOfDocument);
    ++m_length;
    if (m_handler.isInDTD())
        ++m_lengthInDTD;
    if (m_length <= kLongest && m_lengthInDTD <= kLongestInDTD)
        return QXmlInputSource::next();
    m_isCut = true;
    m_handler.complain(
        ProfileHandler::Fault::TooLong,
        QStringLiteral(
            "fixture profile database: longer than %1 characters, or than %2 in its document type declaration")
            .arg(kLongest)
            .arg(kLongestInDTD));
    return QChar(EndOfDocument);
}

} // namespace lxcolor
