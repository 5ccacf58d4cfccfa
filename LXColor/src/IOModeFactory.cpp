#include "IOModeFactory.h"

#include "FixtureTables_p.h"
#include "IOMode.h"
#include "LazyInstance_p.h"

#include <QObject>

std::atomic<IOModeFactory*> IOModeFactory::m_instance{nullptr};

IOModeFactory* IOModeFactory::instance()
{
    return lxcolor::lazyInstance(m_instance, [](auto store) { store(new IOModeFactory); });
}

IOModeFactory::IOModeFactory() { populate(); }

IOModeFactory::~IOModeFactory() { qDeleteAll(m_ioModes); }

void IOModeFactory::populate()
{
    for (const lxcolor::IOModeRow& row : lxcolor::kIOModes) {
        if (m_ioModes.contains(row.id))
            continue;
        QList<ColorUtils::ToneMatchMode> toneMatchModes;
        for (ColorUtils::ToneMatchMode mode : row.toneMatchModes)
            toneMatchModes.append(mode);
        m_ioModes.insert(row.id, new IOMode(row.id, QObject::tr(row.name), row.is3toN, row.isNtoN,
                                            row.inputConfiguration, toneMatchModes));
    }
}

IOMode* IOModeFactory::ioMode(ColorUtils::IOModeID mode) { return m_ioModes.value(mode); }

QString IOModeFactory::nameForIOModeID(ColorUtils::IOModeID mode)
{
    const IOMode* record = ioMode(mode);
    return record ? record->name() : QString();
}

bool IOModeFactory::ioModeIs3toN(ColorUtils::IOModeID mode)
{
    const IOMode* record = ioMode(mode);
    return record && record->is3toN();
}

bool IOModeFactory::ioModeIsNtoN(ColorUtils::IOModeID mode)
{
    const IOMode* record = ioMode(mode);
    return record && record->isNtoN();
}

QList<ColorUtils::ToneMatchMode> IOModeFactory::availableToneMatchEnabled(ColorUtils::IOModeID mode)
{
    const IOMode* record = ioMode(mode);
    return record ? record->availableTonematchEnabled() : QList<ColorUtils::ToneMatchMode>();
}
