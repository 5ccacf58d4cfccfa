#include "TintLineTable_p.h"

#include <vector>

namespace lxcolor {

namespace {

/// One line a step, and for each CCT which of them is its own.
class TintLineTable
{
public:
    TintLineTable()
    {
        int lastStep = -1;
        int lastRegion = -1;
        for (int cct = kMinValidCCT; cct <= kMaxValidCCT; ++cct) {
            const int regionIndex = regionIndexOf(cct);
            const CCTRegion& region = CCTUtils::m_cctRegionTable[regionIndex];
            const int step = stepIndexOf(region, cct);
            if (step != lastStep || regionIndex != lastRegion)
                m_lines.push_back(tintLineThrough(region, locusPointOfStep(region, step)));
            m_lineOfCCT.push_back(static_cast<quint16>(m_lines.size() - 1));
            lastStep = step;
            lastRegion = regionIndex;
        }
    }

    const TintLine& line(int validCCT) const
    {
        return m_lines[m_lineOfCCT[static_cast<std::size_t>(validCCT - kMinValidCCT)]];
    }

private:
    std::vector<TintLine> m_lines;
    std::vector<quint16> m_lineOfCCT;
};

} // namespace

const TintLine& tintLineOfValidCCT(int cct)
{
    static const auto* const table = new TintLineTable; // for ever: a conversion may be the last thing a process does
    return table->line(cct);
}

} // namespace lxcolor
