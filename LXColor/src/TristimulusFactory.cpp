#include "TristimulusFactory.h"

#include "EmitterTables_p.h"
#include "FixtureTables_p.h"
#include "LazyInstance_p.h"
#include "ProfileHandler.h"
#include "Tristimulus.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QMutexLocker>
#include <QObject>

std::atomic<TristimulusFactory*> TristimulusFactory::s_instance{nullptr};

static_assert(lxcolor::kProfileCount == 10, "TristimulusFactory::kBuiltInCount is the number of profiles");

namespace {

/// The id under whose record colours of a profile and configuration are read: a generic colour that is laid out for
/// four or five channels means the emitters of a fixture of that layout.
int effectiveId(ColorUtils::TonematchProfileID profile, ColorUtils::ChannelConfiguration configuration)
{
    if (profile != ColorUtils::ProfileGenericRGB)
        return profile;
    switch (configuration) {
    case ColorUtils::ConfigRGBAW:
        return ColorUtils::ProfileFlareFlashQVS;
    case ColorUtils::ConfigRGBWW:
        return ColorUtils::ProfilePrismaFlowCoveStrip;
    case ColorUtils::ConfigRGBW:
        return ColorUtils::ProfileGenericRGBW;
    default:
        return ColorUtils::ProfileGenericRGB;
    }
}

void fillFromTable(Tristimulus& record, const lxcolor::EmitterTable& table)
{
    QVector<double> X;
    QVector<double> Y;
    QVector<double> Z;
    QStringList names;
    for (const lxcolor::EmitterRow& row : table) {
        X.append(row.X);
        Y.append(row.Y);
        Z.append(row.Z);
        names.append(QObject::tr(row.name));
    }
    record.setX(X);
    record.setY(Y);
    record.setZ(Z);
    record.setChannelNames(names);
}

/// Empty without an application, which alone knows where its executable is.
QString databasePath()
{
    if (!QCoreApplication::instance())
        return {};
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../FixtureProfiles.xml");
}

} // namespace

TristimulusFactory* TristimulusFactory::getInstance()
{
    return lxcolor::lazyInstance(s_instance, [](auto store) {
        auto* factory = new TristimulusFactory;
        store(factory);
        factory->populate();
    });
}

TristimulusFactory::TristimulusFactory() = default;

TristimulusFactory::~TristimulusFactory() { qDeleteAll(m_records); }

void TristimulusFactory::populate()
{
    for (const lxcolor::ProfileRow& row : lxcolor::kProfiles)
        getTristimulus(row.id, row.configuration);

    QFile database(databasePath());
    if (database.fileName().isEmpty() || !database.open(QIODevice::ReadOnly)) {
        qDebug("could not open tonematch profile database");
        return;
    }
    parseXML(&database);
}

bool TristimulusFactory::parseXML(QIODevice* device) { return ProfileHandler().read(device); }

Tristimulus* TristimulusFactory::getTristimulus(ColorUtils::TonematchProfileID profile,
                                                ColorUtils::ChannelConfiguration configuration)
{
    const int id = effectiveId(profile, configuration);
    if (id >= 0 && id < kBuiltInCount) {
        if (Tristimulus* record = m_builtIn[id].load(std::memory_order_acquire))
            return record;
    }
    const QMutexLocker lock(&m_mutex);
    Tristimulus*& record = m_records[id];
    if (!record) {
        auto* made = new Tristimulus(static_cast<ColorUtils::TonematchProfileID>(id));
        fillFromTable(*made, lxcolor::emitterTable(id));
        made->calculatePolygon();
        record = made;
        if (id >= 0 && id < kBuiltInCount)
            m_builtIn[id].store(made, std::memory_order_release);
    }
    return record;
}
