#ifndef ONBOARDINVERSE_P_H
#define ONBOARDINVERSE_P_H

#include <QtGlobal>

#include <atomic>
#include <mutex>

// The dimming curves built into fixtures, inverse: from the 16-bit light value wanted to the drive level that gives it.
namespace lxcolor {

/// The drive level in 0..max, a whole number, whose model value a d^2 + b d + c equals the target.
float solveQuadratic(float a, float b, float c, float target, float max);

quint8 linearDrive8(quint16 light);
quint8 normalDrive8(quint16 light);
quint16 normalDrive16(quint16 light);
quint8 tungstenDrive8(quint16 light);
quint16 tungstenDrive16(quint16 light);

/// The inverse of a curve. The first few drive levels are worked out one by one, so that a process that needs no more
/// is not kept waiting; then all of them, which stay as long as the process. Safe to use from many threads.
template <typename Drive>
class OnboardInverse
{
public:
    explicit constexpr OnboardInverse(float (*driveFor)(quint16)) : m_driveFor(driveFor) {}

    Drive operator()(quint16 light)
    {
        const Drive* const drives = table();
        return drives ? drives[light] : withoutTable(light);
    }

    /// The drive levels of all 65,536 light values; null before they are worked out.
    const Drive* table() const { return m_table.load(std::memory_order_acquire); }

private:
    static constexpr int kWorthATable = 1000;
    static constexpr int kLightValues = 65536;

    Drive withoutTable(quint16 light)
    {
        if (m_uses.fetch_add(1, std::memory_order_relaxed) >= kWorthATable)
            std::call_once(m_once, [this] { m_table.store(newTable(), std::memory_order_release); });
        return static_cast<Drive>(m_driveFor(light));
    }
    const Drive* newTable() const
    {
        auto* table = new Drive[kLightValues];
        for (int light = 0; light < kLightValues; ++light)
            table[light] = static_cast<Drive>(m_driveFor(static_cast<quint16>(light)));
        return table;
    }

    float (*m_driveFor)(quint16);
    std::atomic<const Drive*> m_table{nullptr};
    std::atomic<int> m_uses{0};
    std::once_flag m_once;
};

/// The inverse of a curve type. Null for linear curves and for unknown types, which are linear: see linearDrive8(); the
/// 16-bit level is the light value.
OnboardInverse<quint8>* onboardInverse8(int curveType);
OnboardInverse<quint16>* onboardInverse16(int curveType);

/// The inverse of 0.9412 d^2 + 16.937 d, truncated and bounded to 255.
quint8 truncatedNormalDrive8(quint16 light);

} // namespace lxcolor

#endif
