#include "CurveFactory.h"
#include "IOMode.h"
#include "IOModeFactory.h"
#include "LXColor.h"
#include "Support.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"
#include "reference/Tables.h"

#include <QCoreApplication>
#include <QTranslator>

#include <functional>

using CU = ColorUtils;
using reference::Configuration;
using reference::Mode;
using reference::ProfileId;

Q_DECLARE_METATYPE(std::function<void()>)

namespace {

/// Marks every text that passes through it.
class Marker : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QLatin1String(context) + '|' + QLatin1String(text);
    }
};

QString marked(const QString& text) { return "QObject|" + text; }

QStringList channelNames(int id)
{
    QStringList names;
    for (const reference::Emitter& emitter : reference::builtInEmitters(id))
        names << emitter.name;
    return names;
}

} // namespace

class TestRegistries : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    // Each registry as the first to wake; the runs that prove it take one row each in a process of its own.
    void wokenBy_data()
    {
        QTest::addColumn<std::function<void()>>("touch");
        const auto row = [](const char* name, const std::function<void()>& touch) { QTest::newRow(name) << touch; };
        row("profiles", [] { TonematchProfileFactory::instance(); });
        row("emitters", [] { TristimulusFactory::getInstance(); });
        row("ioModes", [] { IOModeFactory::instance(); });
        row("curves", [] { CurveFactory::Instance(); });
        row("conversion", [] { QVERIFY(LXColor(0.3, 0.3).red16() > 0); });
        row("output",
            [] { QCOMPARE(CU::updateBuffer(0, 0, Qt::red, true, 3, 1, 0, CU::ProfilePixelNodeRGB).size(), 3); });
        row("ownProfiles", [] { TonematchProfileFactory own; });
    }
    void wokenBy()
    {
        QFETCH(std::function<void()>, touch);
        touch();
        ioModes();
        profiles();
        emitters();
        curves();
        QCOMPARE(LXColor(QColor(10, 20, 30)).toYxy(CU::ConfigRGB, CU::ProfileNone, 0).toRgb16(true).name8(),
                 QString("#0a141e"));
    }

    void configurations()
    {
        for (int i : {-1, 0, 1, 2, 3, 4, 5, 6, 7, INT_MAX}) {
            QCOMPARE(CU::nameForChannelConfiguration(static_cast<Configuration>(i)), reference::layout(i).name);
            QCOMPARE(CU::configChannelCount(static_cast<Configuration>(i)), reference::layout(i).channels);
        }
        QVERIFY(CU::getInstance() && CU::getInstance() == CU::getInstance());
    }

    void ioModes()
    {
        IOModeFactory* registry = IOModeFactory::instance();
        QCOMPARE(registry, IOModeFactory::instance());
        for (int i = 0; i < 10; ++i) {
            const auto id = static_cast<Mode>(i);
            const reference::IoMode& expected = reference::ioMode(i);
            const IOMode* mode = registry->ioMode(id);
            QVERIFY(mode);
            QCOMPARE(mode->index(), id);
            QCOMPARE(mode->name(), expected.name);
            QCOMPARE(mode->is3toN(), expected.is3toN);
            QCOMPARE(mode->isNtoN(), expected.isNtoN);
            QCOMPARE(mode->inputChannelConfiguration(), expected.input);
            QCOMPARE(mode->availableTonematchEnabled(), expected.matching);
            QCOMPARE(registry->nameForIOModeID(id), expected.name);
            QCOMPARE(registry->ioModeIs3toN(id), expected.is3toN);
            QCOMPARE(registry->ioModeIsNtoN(id), expected.isNtoN);
            QCOMPARE(registry->availableToneMatchEnabled(id), expected.matching);
        }
        for (int i : {-1, 10, INT_MAX}) {
            const auto id = static_cast<Mode>(i);
            QVERIFY(!registry->ioMode(id));
            QVERIFY(registry->nameForIOModeID(id).isEmpty() && registry->availableToneMatchEnabled(id).isEmpty());
            QVERIFY(!registry->ioModeIs3toN(id) && !registry->ioModeIsNtoN(id));
        }
        const IOMode* record = registry->ioMode(CU::IOModeRGB);
        registry->populate();
        QCOMPARE(registry->ioMode(CU::IOModeRGB), record);
    }

    void profiles()
    {
        for (int id : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 42}) {
            compareProfile(id);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("profile %1").arg(id)));
        }
        QStringList all, models;
        QList<ProfileId> allIds, modelIds;
        QMap<int, QString> map;
        for (int i = 0; i < 10; ++i) {
            const QString& name = reference::profile(i).name;
            map[i] = name;
            all << name;
            allIds << static_cast<ProfileId>(i);
            if (i != CU::ProfileGenericRGBW && i != CU::ProfileSingleChannel) {
                models << name;
                modelIds << static_cast<ProfileId>(i);
            }
        }
        QCOMPARE(CU::tonematchProfileIDList(true), allIds);
        QCOMPARE(CU::tonematchProfileIDList(false), modelIds);
        QCOMPARE(CU::tonematchProfileIDNameList(true), all);
        QCOMPARE(CU::tonematchProfileIDNameList(false), models);
        QCOMPARE(CU::tonematchProfileIDNameMap(), map);

        ToneMatchProfile own("Own", CU::ConfigRGB, 0, {}, CU::IOModeRGB, CU::IOModeRGB);
        QVERIFY(!own.getTristimulus() && own.getChannelNames().isEmpty());
        own.setDefaultIsTonematchEnabled(CU::IOModeRGB, true);
        QVERIFY(own.getDefaultIsTonematchEnabled(CU::IOModeRGB));
        own.setDefaultIsTonematchEnabled(CU::IOModeRGB, false);
        QVERIFY(!own.getDefaultIsTonematchEnabled(CU::IOModeRGB));
    }

    void emitters()
    {
        TristimulusFactory own;
        for (TristimulusFactory* registry : {TristimulusFactory::getInstance(), &own}) {
            for (int i = -1; i <= 12; ++i) {
                for (int cc = -1; cc <= 7; ++cc) {
                    const auto id = static_cast<ProfileId>(i);
                    const auto configuration = static_cast<Configuration>(cc);
                    const int effective = reference::effectiveId(id, configuration);
                    Tristimulus* record = registry->getTristimulus(id, configuration);
                    QVector<double> X, Y, Z;
                    for (const reference::Emitter& emitter : reference::builtInEmitters(effective)) {
                        X << emitter.X;
                        Y << emitter.Y;
                        Z << emitter.Z;
                    }
                    QCOMPARE(record->getX(), X);
                    QCOMPARE(record->getY(), Y);
                    QCOMPARE(record->getZ(), Z);
                    QCOMPARE(record->getChannelNames(), channelNames(effective));
                    QCOMPARE(record->numChannels(), X.size());
                    // One object a record, however it is asked for.
                    QCOMPARE(record, registry->getTristimulus(static_cast<ProfileId>(effective), CU::ConfigRGB));
                }
            }
        }
    }

    void curves()
    {
        CurveFactory* registry = CurveFactory::Instance();
        QCOMPARE(registry, CurveFactory::Instance());
        const QStringList names{"Linear (Default)", "Normal (LX Gamma)", "Tungsten/Incandescent"};
        for (int type = 0; type < 3; ++type) {
            QCOMPARE(registry->nameForCurveType(type), names[type]);
            QCOMPARE(registry->curveTypeFromName(names[type]), type);
        }
        QCOMPARE(registry->curveTypeFromName("linear"), -1);
        QCOMPARE(registry->curveTypeFromName(""), -1);
        for (int type : {-1, 3, 7}) {
            QCOMPARE(registry->nameForCurveType(type), QString());
            QCOMPARE(registry->getCurve(type), registry->getCurve(0));
        }
        QVERIFY(registry->getCurve(1) != registry->getCurve(0) && registry->getCurve(2) != registry->getCurve(1));
    }

    void namesAreTranslatedOnce()
    {
        ioModes();
        const QStringList before = CU::tonematchProfileIDNameList(true);
        Marker marker;
        QVERIFY(QCoreApplication::installTranslator(&marker));
        IOModeFactory modes;
        TonematchProfileFactory profiles;
        TristimulusFactory emitters;
        QCOMPARE(modes.nameForIOModeID(CU::IOModeRGB), marked("RGB In/Out"));
        QCOMPARE(profiles.getProfile(CU::ProfileNone)->name(), marked("Generic RGB"));
        QCOMPARE(emitters.getTristimulus(CU::ProfilePrismaFlowCoveStrip, CU::ConfigRGB)->getChannelNames()[3],
                 marked("Mint"));
        QCOMPARE(CurveFactory::Instance()->nameForCurveType(1), marked("Normal (LX Gamma)"));
        QCOMPARE(CurveFactory::Instance()->curveTypeFromName(marked("Tungsten/Incandescent")), 2);
        QCOMPARE(CU::nameForChannelConfiguration(CU::ConfigUnknown), QString("Unknown"));
        QCOMPARE(CU::tonematchProfileIDNameList(true), before);
        ioModes(); // the records that were there keep their names
        QCoreApplication::removeTranslator(&marker);
    }

private:
    void compareProfile(int id);
};

void TestRegistries::compareProfile(int number)
{
    const auto id = static_cast<ProfileId>(number);
    const reference::Profile& expected = reference::profile(number);
    const ToneMatchProfile* profile = TonematchProfileFactory::instance()->getProfile(id);
    QCOMPARE(profile->name(), expected.name);
    QCOMPARE(profile->getChannelConfiguration(), expected.configuration);
    QCOMPARE(profile->getDefaultOnboardCurve(), expected.curve);
    QCOMPARE(profile->getAvailableIOModeIDs(), expected.modes);
    QCOMPARE(profile->getDefaultIOModeID(), expected.defaultMode);
    QCOMPARE(profile->getDefaultIOModeID3toN(), expected.defaultMode3toN);
    QCOMPARE(CU::tonematchProfileIDName(id), expected.name);
    QCOMPARE(CU::nChannelConfigurationForTonematchProfileID(id), expected.configuration);
    QCOMPARE(CU::defaultCurveTypeForTonematchProfileID(id), expected.curve);
    QCOMPARE(CU::ioModesForTonematchProfileID(id), expected.modes);
    QCOMPARE(CU::defaultIOModeIDForTonematchProfileID(id), expected.defaultMode);
    QCOMPARE(CU::defaultIOModeIDForTonematchProfileID3toN(id), expected.defaultMode3toN);
    for (int mode = -1; mode <= 10; ++mode) {
        const bool enabled = expected.matching.value(static_cast<Mode>(mode), false);
        QCOMPARE(profile->getDefaultIsTonematchEnabled(static_cast<Mode>(mode)), enabled);
        QCOMPARE(CU::defaultToneMatchEnabled(id, mode), enabled);
    }
    // Not only equal: the very record that the emitter registry hands out.
    const int known = number >= 0 && number <= 9 ? number : 0;
    QCOMPARE(profile->getTristimulus(),
             TristimulusFactory::getInstance()->getTristimulus(static_cast<ProfileId>(known), expected.configuration));
    QCOMPARE(profile->getChannelNames(), channelNames(known));
}

QTEST_GUILESS_MAIN(TestRegistries)

#include "tst_registries.moc"
