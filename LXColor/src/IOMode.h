#ifndef IOMODE_H
#define IOMODE_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QList>
#include <QString>

/// One way of driving a fixture: which channels it takes in, and how they become the channels it gives out.
class LXCOLOR_EXPORT IOMode
{
public:
    /// A mode with these properties, taken as they are; \a name is already translated.
    IOMode(ColorUtils::IOModeID index, const QString& name, bool is3toN, bool isNtoN,
           ColorUtils::ChannelConfiguration inputChannelConfiguration,
           QList<ColorUtils::ToneMatchMode> availableTonematchEnabled);

    /// The id under which the registry has the mode.
    ColorUtils::IOModeID index() const;
    /// The translated display name.
    QString name() const;
    /// Whether the mode takes three RGB channels and gives the fixture's N channels.
    bool is3toN() const;
    /// Whether the mode gives its input channels out one-to-one.
    bool isNtoN() const;
    /// The layout of the channels that the mode takes in.
    ColorUtils::ChannelConfiguration inputChannelConfiguration() const;
    /// The colour matching settings allowed in this mode, in the order in which they are offered.
    QList<ColorUtils::ToneMatchMode> availableTonematchEnabled() const;

private:
    ColorUtils::IOModeID m_index;
    QString m_name;
    bool m_is3toN;
    bool m_isNtoN;
    ColorUtils::ChannelConfiguration m_inputChannelConfiguration;
    QList<ColorUtils::ToneMatchMode> m_availableTonematchEnabled;
};

#endif
