#ifndef TESTS_EMITTERRECORDS_H
#define TESTS_EMITTERRECORDS_H

#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QSet>

/// The emitters of a profile, of numbers that are no profile too.
inline Tristimulus* recordOf(int profile)
{
    return TristimulusFactory::getInstance()->getTristimulus(static_cast<ColorUtils::TonematchProfileID>(profile),
                                                             ColorUtils::ConfigRGB);
}

inline void fill(Tristimulus* record, const QVector<double>& X, const QVector<double>& Y, const QVector<double>& Z)
{
    record->setX(X);
    record->setY(Y);
    record->setZ(Z);
    record->calculatePolygon();
}

/// The emitters of all profiles as they are; put back in the end.
class EmitterRecords
{
public:
    static constexpr int first = -2;
    static constexpr int last = 12;

    EmitterRecords()
    {
        for (int profile = first; profile <= last; ++profile)
            m_kept.append(contentOf(profile));
    }
    ~EmitterRecords()
    {
        for (int profile = first; profile <= last; ++profile)
            putBack(profile);
    }
    Q_DISABLE_COPY(EmitterRecords)

    void putBack(int profile) const
    {
        const Content& kept = m_kept[profile - first];
        fill(recordOf(profile), kept.X, kept.Y, kept.Z);
        recordOf(profile)->setChannelNames(kept.names);
    }
    /// The profiles whose record is another one since.
    QSet<int> rewritten() const
    {
        QSet<int> profiles;
        for (int profile = first; profile <= last; ++profile)
            if (!(contentOf(profile) == m_kept[profile - first]))
                profiles << profile;
        return profiles;
    }

private:
    struct Content
    {
        QVector<double> X, Y, Z;
        QStringList names;
        bool operator==(const Content& other) const
        {
            return X == other.X && Y == other.Y && Z == other.Z && names == other.names;
        }
    };
    static Content contentOf(int profile)
    {
        Tristimulus* record = recordOf(profile);
        return {record->getX(), record->getY(), record->getZ(), record->getChannelNames()};
    }

    QVector<Content> m_kept;
};

#endif
