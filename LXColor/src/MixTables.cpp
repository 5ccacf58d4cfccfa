#include "MixShortlist_p.h"
#include "MixTables_p.h"

#include <array>

namespace lxcolor {

namespace {

MixLevels levelsOf(const Mix& mix)
{
    MixLevels levels = {mix.i, mix.j, {}};
    for (int t = 0; t < mix.otherCount; ++t)
        levels.full.level[mix.others[t]] = mix.isFull(t) ? 1.0 : 0.0;
    return levels;
}

std::vector<MixLevels> levelsOfAll(int emitterCount)
{
    std::vector<MixLevels> table(MixShortlist::kRowsForNoMix, {0, 0, {}});
    for (const Mix& mix : mixesOf(emitterCount))
        table.push_back(levelsOf(mix));
    return table;
}

MixTerms termsOf(const Mix& mix, const EmitterView& emitters)
{
    MixTerms row = {};
    row.Xi = emitters.X[mix.i];
    row.Xj = emitters.X[mix.j];
    row.Zi = emitters.Z[mix.i];
    row.Zj = emitters.Z[mix.j];
    row.Yi = emitters.Y[mix.i];
    row.Yj = emitters.Y[mix.j];
    for (int t = 0; t < mix.otherCount; ++t) {
        if (!mix.isFull(t))
            continue;
        const int k = mix.others[t];
        row.X[t] = emitters.X[k];
        row.Y[t] = emitters.Y[k];
        row.Z[t] = emitters.Z[k];
        if (k < mix.i)
            row.Ybelow += emitters.Y[k];
        else
            (k < mix.j ? row.Ybetween : row.Yabove)[t] = emitters.Y[k];
    }
    return row;
}

} // namespace

const std::vector<MixLevels>& mixLevelsOf(int emitterCount)
{
    using Tables = std::array<std::vector<MixLevels>, kMaxEmitters + 1>;
    static const Tables* const all = [] {
        auto* tables = new Tables;
        for (int count = 0; count <= kMaxEmitters; ++count)
            (*tables)[static_cast<size_t>(count)] = levelsOfAll(count);
        return tables;
    }();
    return (*all)[static_cast<size_t>(emitterCount)];
}

std::vector<MixTerms> mixTermsOf(const EmitterView& emitters)
{
    std::vector<MixTerms> table(MixShortlist::kRowsForNoMix, MixTerms());
    for (const Mix& mix : mixesOf(emitters.count))
        table.push_back(termsOf(mix, emitters));
    return table;
}

} // namespace lxcolor
