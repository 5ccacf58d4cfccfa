#ifndef PROFILEHANDLER_H
#define PROFILEHANDLER_H

#include "LXColorExport.h"

#include <QString>
#include <QVector>
#include <QXmlDefaultHandler>

class QIODevice;

namespace lxcolor {
class DatabaseSource;
}

// Qt 5.15 deprecates its SAX classes; who includes this header need not hear of it.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

/**
 * Reads the fixture profile database, element by element, into the records of TristimulusFactory::getInstance().
 *
 * Each Profile element replaces the emitter data and channel names of one record when it ends. Elements other than
 * Profile and Channel are ignored, and so is all text. A profile that the conversions could not work with is rejected
 * whole: its record keeps its data, a debug line names the profile and the reason, and reading goes on.
 *
 * A class derived from it learns what the reader makes of a database without changing any record: it reimplements
 * take() and complain(), and calls the base class in what else it reimplements.
 */
class LXCOLOR_EXPORT ProfileHandler : public QXmlDefaultHandler
{
public:
    /// What can be wrong with a database or one of its profiles.
    enum class Fault {
        NotWellFormed,     ///< No XML. The reader stops there.
        TooLong,           ///< The reader sees no more of the text than this.
        TooDeep,           ///< The reader stops there.
        EntityDeclaration, ///< The reader stops there.
        ProfileIndex,      ///< Outside -1..10. The reader stops there.
        ProfileInProfile,  ///< The outer one is rejected.
        ChannelIndex,      ///< The profile is rejected, as for all that follow.
        TooManyChannels,   ///< More than 64.
        TooFewChannels,    ///< Fewer than three, or than the profile's layout has.
        NotFinite          ///< Values, or their sum.
    };

    /// Reads a whole database through this handler, as TristimulusFactory::parseXML() does. False for a null device,
    /// and when the reader stopped before the end.
    bool read(QIODevice* device);

    /// Forgets what an earlier document left unfinished; true.
    bool startDocument() override;
    /// False, which stops the reader, for elements nested deeper than any database needs.
    bool startElement(const QString& namespaceURI, const QString& localName, const QString& qName,
                      const QXmlAttributes& atts) override;
    /// False, which stops the reader, at the end of a profile whose index is outside -1..10.
    bool endElement(const QString& namespaceURI, const QString& localName, const QString& qName) override;
    /// Keeps nothing; true.
    bool characters(const QString& text) override;

    /// True; a debug line gives the place and the message. What was read before the fault stays.
    bool fatalError(const QXmlParseException& exception) override;
    /// Always empty.
    QString errorString() const override;

    // ---- Document type declarations. One without a content is accepted; entities are refused, because they can expand
    //      to any size. ----

    /// True; from here to endDTD() entities can be met.
    bool startDTD(const QString& name, const QString& publicId, const QString& systemId) override;
    /// True.
    bool endDTD() override;
    /// False, which stops the reader.
    bool internalEntityDecl(const QString& name, const QString& value) override;
    /// Whether a document type declaration is being read.
    bool isInDTD() const { return m_isInDTD; }

protected:
    /// Whether a Profile element is open.
    bool isInProfile() const { return m_isInProfile; }
    /// The number of channels that the open profile has so far.
    int channelCount() const { return m_channelXYZ.size(); }
    /// Whether one of its channels could not be taken, for which it will be rejected.
    bool hasBadChannel() const { return !m_channelDefect.reason.isEmpty(); }

    /// Called with each profile that is not rejected, when it ends. Rewrites the record of profile \a index with X, Y
    /// and Z of each channel and the channels' names.
    virtual void take(int index, const QVector<QVector<double>>& channelXYZ, const QVector<QString>& channelNames);
    /// Called with each fault where the reader finds it; of a profile, when it is rejected. Writes \a message as a
    /// debug line.
    virtual void complain(Fault fault, const QString& message);

private:
    friend class lxcolor::DatabaseSource;

    struct Defect
    {
        Fault fault;
        QString reason; ///< Empty when there is none.
    };

    bool refuse(Fault fault, const QString& message);
    void beginProfile(const QXmlAttributes& atts);
    void addChannel(const QXmlAttributes& atts);
    bool endProfile();
    Defect defect() const;
    void reject(const Defect& defect);

    QString m_profileName;
    int m_profileIndex = 0;
    QVector<QVector<double>> m_channelXYZ; ///< X, Y and Z of each channel.
    QVector<QString> m_channelNames;
    Defect m_channelDefect{Fault::ChannelIndex, QString()}; ///< What is wrong with a channel that could not be taken.
    int m_depth = 0;
    bool m_isInProfile = false;
    bool m_isInDTD = false;
    bool m_hasRefused = false;
};

QT_WARNING_POP

#endif
