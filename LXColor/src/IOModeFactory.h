#ifndef IOMODEFACTORY_H
#define IOMODEFACTORY_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QList>
#include <QMap>
#include <QString>

#include <atomic>

class IOMode;

/// The registry of the ten IO modes. It owns its records, which live as long as it does.
class LXCOLOR_EXPORT IOModeFactory
{
public:
    /// The process-wide registry: created and filled on first use, never destroyed.
    static IOModeFactory* instance();

    /// A registry of its own, filled.
    IOModeFactory();
    ~IOModeFactory();

    /// Creates the ten records, their names translated as of now. Records that are there already are kept.
    void populate();

    /// The record of a mode, owned by the registry; null for a number outside 0..9.
    IOMode* ioMode(ColorUtils::IOModeID mode);
    /// The translated name of a mode; empty for a number outside 0..9.
    QString nameForIOModeID(ColorUtils::IOModeID mode);
    /// Whether the mode makes N channels of three; false for a number outside 0..9.
    bool ioModeIs3toN(ColorUtils::IOModeID mode);
    /// Whether the mode is one-to-one; false for a number outside 0..9.
    bool ioModeIsNtoN(ColorUtils::IOModeID mode);
    /// The colour matching settings allowed in the mode; empty for a number outside 0..9.
    QList<ColorUtils::ToneMatchMode> availableToneMatchEnabled(ColorUtils::IOModeID mode);

private:
    Q_DISABLE_COPY(IOModeFactory)

    QMap<ColorUtils::IOModeID, IOMode*> m_ioModes;
    static std::atomic<IOModeFactory*> m_instance;
};

#endif
