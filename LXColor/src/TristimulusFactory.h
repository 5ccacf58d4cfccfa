#ifndef TRISTIMULUSFACTORY_H
#define TRISTIMULUSFACTORY_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QMap>
#include <QMutex>

#include <atomic>

class QIODevice;
class Tristimulus;

/// The registry of emitter data. It owns its records; once made, a record keeps its address for the registry's life.
class LXCOLOR_EXPORT TristimulusFactory
{
public:
    /// The process-wide registry: created and filled on first use, never destroyed.
    static TristimulusFactory* getInstance();

    /// An empty registry of its own.
    TristimulusFactory();
    ~TristimulusFactory();

    /**
     * Makes the records of the ten profiles from the built-in tables, then reads the fixture profile database, which is
     * the file FixtureProfiles.xml in the parent of the folder of the application's executable. A file that is not
     * there is no error; a debug line says so.
     */
    void populate();

    /**
     * Reads a fixture profile database into the records of getInstance(), which keep their addresses. False for a null
     * device and for a database that is malformed or that names a profile outside -1..10; what was read before the
     * fault stays. A profile with fewer channels than its layout or than three, with channels that do not follow one
     * another, or with values that are not finite is rejected: its record keeps its data, and reading goes on.
     *
     * Not to be called while other threads convert colours.
     */
    bool parseXML(QIODevice* device);

    /**
     * The record for colours of a profile laid out in a configuration; made from the built-in tables when it is asked
     * for the first time, never null. The configuration counts for profile 0 alone: RGBAW, RGBWW and RGBW colours of
     * the generic profile are read with the emitters of profiles 1, 2 and 3. An id without data of its own has the
     * generic three emitters.
     */
    Tristimulus* getTristimulus(ColorUtils::TonematchProfileID profile, ColorUtils::ChannelConfiguration configuration);

private:
    Q_DISABLE_COPY(TristimulusFactory)

    static constexpr int kBuiltInCount = 10;

    QMap<int, Tristimulus*> m_records;
    QMutex m_mutex;                                          ///< Guards m_records.
    std::atomic<Tristimulus*> m_builtIn[kBuiltInCount] = {}; ///< The records of ids 0..9, found without the lock.
    static std::atomic<TristimulusFactory*> s_instance;
};

#endif
