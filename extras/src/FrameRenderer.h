#ifndef FRAMERENDERER_H
#define FRAMERENDERER_H

#include "ColorUtils.h"
#include "LXColorExtrasExport.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <memory>

class LXColor;

/**
 * Turns a colour for each fixture of a patch into the DMX slots of all universes, a frame at a time.
 *
 * Each fixture gets exactly the bytes that ColorUtils::updateBuffer() gives for it. The patch is checked and prepared
 * once. After that render() allocates only what a fixture model or a curve needs for good when it is used for the first
 * time in the process; the first frames also take longer, because each part of a model's gamut is worked out when a
 * colour first falls into it. Slots that belong to no fixture are 0.
 *
 * One object is used by one thread at a time; it can spread a frame over threads of its own.
 */
class LXCOLOR_EXTRAS_EXPORT FrameRenderer
{
    Q_DECLARE_TR_FUNCTIONS(FrameRenderer)

public:
    /// The slots of a universe (ANSI E1.11).
    static constexpr int kSlotsPerUniverse = 512;
    /// The highest universe number (ANSI E1.31).
    static constexpr int kLastUniverse = 63999;

    /// Where the value of one channel goes. Slots count from 1 to 512.
    struct ChannelSlots
    {
        int slot = 0;     ///< The 8-bit value, or the high byte of a 16-bit value.
        int fineSlot = 0; ///< The low byte of a 16-bit value; 0 for an 8-bit channel.
    };

    /// A fixture: what it is, how it is driven, and which slots it listens to.
    struct Fixture
    {
        ColorUtils::TonematchProfileID profile = ColorUtils::ProfileGenericRGB; ///< One of the ten that exist.
        int ioMode = ColorUtils::IOModeRGB;                                     ///< An IOModeID.
        int directCurve = 0;              ///< The software curve of levels that pass through.
        int onboardCurve = 0;             ///< The fixture's own curve, which matched levels are compensated for.
        bool allowRgbPassThrough = false; ///< Whether generic RGB colours may go out as they are in one-to-one modes.
        int universe = 1;                 ///< 1..63999.
        QVector<ChannelSlots> channels;   ///< In the fixture's channel order; 8-bit and 16-bit channels may mix.

        /**
         * A fixture of a profile driven in an IO mode, with its channels side by side from \a startSlot on, \a
         * resolution bytes each (1 or 2, high byte first), and the onboard curve of the profile. It has the channels
         * that the mode gives out: those of the profile in a 3-to-N mode, else those that the mode takes in.
         */
        static Fixture contiguous(ColorUtils::TonematchProfileID profile, int ioMode, int universe, int startSlot,
                                  int resolution);
    };

    FrameRenderer();
    ~FrameRenderer();

    /**
     * Takes a patch over and darkens all slots. Refused, with the earlier patch kept and a translated sentence in \a
     * error (may be null), when a fixture has no channels, or a profile or IO mode that does not exist, or when a slot
     * or universe is out of range or a slot is used twice. Fixtures are counted from 1 in that sentence.
     */
    bool setPatch(const QVector<Fixture>& fixtures, QString* error);

    /// How many threads a frame is spread over, the caller's included: 1 (the default) to 256, bounded; fewer where the
    /// system gives no more. They wait between frames.
    void setThreadCount(int count);
    /// How many threads a frame is spread over, 1..256.
    int threadCount() const;

    /// How many fixtures the patch has, which is how many colours render() takes.
    int fixtureCount() const;
    /// The numbers of the universes in use, ascending.
    QVector<int> universes() const;

    /// Renders \a colors, the first for the first fixture and so on. Fixtures beyond \a count, and all of them for a
    /// null array, keep what they show; colours beyond the fixtures are ignored.
    ///@{
    void render(const LXColor* colors, int count);
    void render(const QVector<LXColor>& colors);
    ///@}

    /// The 512 slots of a universe, by its position in universes(); null for a position that there is not. They stay
    /// where they are, owned by the renderer, until the next patch.
    const unsigned char* universeSlots(int position) const;

private:
    Q_DISABLE_COPY(FrameRenderer)
    class Private;
    std::unique_ptr<Private> d;
};

#endif
