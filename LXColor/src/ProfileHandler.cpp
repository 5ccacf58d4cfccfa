#include "ProfileHandler.h"

#include "ColorUtils.h"
#include "DatabaseSource_p.h"
#include "DebugOutput_p.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QDebug>
#include <QXmlSimpleReader>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kLowestIndex = -1;
constexpr int kHighestIndex = 10;
constexpr int kFewestChannels = 3; // red, green and blue, which span the gamut
constexpr int kMostChannels = 64;
// The reader calls itself for each level of elements.
constexpr int kDeepestElement = 64;

ColorUtils::TonematchProfileID profileId(int index) { return static_cast<ColorUtils::TonematchProfileID>(index); }

QString inDatabase(const QString& what) { return QLatin1String("fixture profile database: ") + what; }

} // namespace

bool ProfileHandler::read(QIODevice* device)
{
    if (!device)
        return false;
    QXmlSimpleReader reader;
    reader.setContentHandler(this);
    reader.setErrorHandler(this);
    reader.setLexicalHandler(this);
    reader.setDeclHandler(this);
    return reader.parse(lxcolor::DatabaseSource(device, *this));
}

bool ProfileHandler::startDocument()
{
    m_depth = 0;
    m_isInProfile = false;
    m_isInDTD = false;
    m_hasRefused = false;
    return true;
}

bool ProfileHandler::startElement(const QString& /*namespaceURI*/, const QString& /*localName*/, const QString& qName,
                                  const QXmlAttributes& atts)
{
    if (m_depth == kDeepestElement)
        return refuse(Fault::TooDeep,
                      inDatabase(QStringLiteral("elements are nested deeper than %1 levels").arg(kDeepestElement)));
    ++m_depth;
    if (qName == QLatin1String("Profile"))
        beginProfile(atts);
    else if (qName == QLatin1String("Channel"))
        addChannel(atts);
    return true;
}

bool ProfileHandler::endElement(const QString& /*namespaceURI*/, const QString& /*localName*/, const QString& qName)
{
    m_depth = std::max(0, m_depth - 1);
    return qName != QLatin1String("Profile") || endProfile();
}

bool ProfileHandler::characters(const QString& /*text*/) { return true; }

bool ProfileHandler::fatalError(const QXmlParseException& exception)
{
    // What this handler itself refused it has explained already.
    if (!m_hasRefused)
        complain(Fault::NotWellFormed,
                 inDatabase(QStringLiteral("line %1, column %2: %3")
                                .arg(QString::number(exception.lineNumber()), QString::number(exception.columnNumber()),
                                     exception.message())));
    return true;
}

QString ProfileHandler::errorString() const { return {}; }

bool ProfileHandler::startDTD(const QString& /*name*/, const QString& /*publicId*/, const QString& /*systemId*/)
{
    m_isInDTD = true;
    return true;
}

bool ProfileHandler::endDTD()
{
    m_isInDTD = false;
    return true;
}

bool ProfileHandler::internalEntityDecl(const QString& name, const QString& /*value*/)
{
    return refuse(Fault::EntityDeclaration,
                  inDatabase(QStringLiteral("entity \"%1\" is declared, but entities are not supported").arg(name)));
}

void ProfileHandler::complain(Fault /*fault*/, const QString& message) { qDebug("%s", qUtf8Printable(message)); }

bool ProfileHandler::refuse(Fault fault, const QString& message)
{
    complain(fault, message);
    m_hasRefused = true;
    return false;
}

void ProfileHandler::beginProfile(const QXmlAttributes& atts)
{
    if (m_isInProfile)
        reject({Fault::ProfileInProfile, QStringLiteral("another profile begins inside it")});
    m_isInProfile = true;
    m_channelXYZ.clear();
    m_channelNames.clear();
    m_channelDefect.reason.clear();
    m_profileName = atts.value(QStringLiteral("name"));
    m_profileIndex = atts.value(QStringLiteral("index")).toInt();
}

void ProfileHandler::addChannel(const QXmlAttributes& atts)
{
    if (!m_isInProfile || hasBadChannel())
        return;
    const int index = atts.value(QStringLiteral("index")).toInt();
    const int count = m_channelXYZ.size();
    if (count == kMostChannels) {
        m_channelDefect = {Fault::TooManyChannels, QStringLiteral("it has more than %1 channels").arg(kMostChannels)};
    } else if (index < 0 || index > count) {
        m_channelDefect = {Fault::ChannelIndex,
                           QStringLiteral("channel index %1 does not follow the %2 before it").arg(index).arg(count)};
    } else {
        m_channelXYZ.insert(index,
                            {atts.value(QStringLiteral("X")).toDouble(), atts.value(QStringLiteral("Y")).toDouble(),
                             atts.value(QStringLiteral("Z")).toDouble()});
        m_channelNames.insert(index, atts.value(QStringLiteral("name")));
    }
}

bool ProfileHandler::endProfile()
{
    if (!m_isInProfile)
        return true;
    m_isInProfile = false;
    if (m_profileIndex < kLowestIndex || m_profileIndex > kHighestIndex)
        return refuse(Fault::ProfileIndex, QStringLiteral("invalid profile definition"));
    const Defect found = defect();
    if (found.reason.isEmpty())
        take(m_profileIndex, m_channelXYZ, m_channelNames);
    else
        reject(found);
    return true;
}

/// Why the conversions could not work with the profile; empty when they can.
ProfileHandler::Defect ProfileHandler::defect() const
{
    if (hasBadChannel())
        return m_channelDefect;
    const auto configuration = ColorUtils::nChannelConfigurationForTonematchProfileID(profileId(m_profileIndex));
    const int needed = std::max(kFewestChannels, ColorUtils::configChannelCount(configuration));
    if (m_channelXYZ.size() < needed)
        return {Fault::TooFewChannels,
                QStringLiteral("it has %1 channels of at least %2").arg(m_channelXYZ.size()).arg(needed)};
    double total = 0.0;
    for (const QVector<double>& XYZ : m_channelXYZ)
        for (const double value : XYZ)
            total += std::fabs(value);
    return {Fault::NotFinite,
            std::isfinite(total) ? QString() : QStringLiteral("its values or their sum are not finite")};
}

void ProfileHandler::reject(const Defect& defect)
{
    complain(defect.fault, inDatabase(QStringLiteral("profile %1 \"%2\" is rejected: %3")
                                          .arg(QString::number(m_profileIndex), m_profileName, defect.reason)));
}

void ProfileHandler::take(int index, const QVector<QVector<double>>& channelXYZ, const QVector<QString>& channelNames)
{
    QVector<double> X;
    QVector<double> Y;
    QVector<double> Z;
    for (const QVector<double>& XYZ : channelXYZ) {
        X.append(XYZ.at(0));
        Y.append(XYZ.at(1));
        Z.append(XYZ.at(2));
    }
    if (lxcolor::isDebugOutputOn()) {
        qDebug() << X;
        qDebug() << Y;
        qDebug() << Z;
    }
    const auto id = profileId(index);
    Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(
        id, ColorUtils::nChannelConfigurationForTonematchProfileID(id));
    record->setX(X);
    record->setY(Y);
    record->setZ(Z);
    record->setChannelNames(channelNames.toList());
    record->calculatePolygon();
}
