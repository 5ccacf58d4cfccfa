#include "IOMode.h"

IOMode::IOMode(ColorUtils::IOModeID index, const QString& name, bool is3toN, bool isNtoN,
               ColorUtils::ChannelConfiguration inputChannelConfiguration,
               QList<ColorUtils::ToneMatchMode> availableTonematchEnabled)
    : m_index(index)
    , m_name(name)
    , m_is3toN(is3toN)
    , m_isNtoN(isNtoN)
    , m_inputChannelConfiguration(inputChannelConfiguration)
    , m_availableTonematchEnabled(availableTonematchEnabled)
{
}

ColorUtils::IOModeID IOMode::index() const { return m_index; }

QString IOMode::name() const { return m_name; }

bool IOMode::is3toN() const { return m_is3toN; }

bool IOMode::isNtoN() const { return m_isNtoN; }

ColorUtils::ChannelConfiguration IOMode::inputChannelConfiguration() const { return m_inputChannelConfiguration; }

QList<ColorUtils::ToneMatchMode> IOMode::availableTonematchEnabled() const { return m_availableTonematchEnabled; }
