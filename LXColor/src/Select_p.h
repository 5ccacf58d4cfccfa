#ifndef SELECT_P_H
#define SELECT_P_H

namespace lxcolor {

/// condition ? yes : no for each lane of a vector. The compilers make branches of that for processors that cannot
/// blend, and these are decisions which nobody can foresee. Internal to each source, some of which are for other
/// processors.
template <typename Mask, typename Lanes>
static inline __attribute__((always_inline)) void select(const Mask& condition, const Lanes& yes, const Lanes& no,
                                                         Lanes& selected)
{
    const Mask chosen = condition & reinterpret_cast<Mask>(yes);
    const Mask kept = ~condition & reinterpret_cast<Mask>(no);
    selected = reinterpret_cast<Lanes>(chosen | kept);
}

/// The same of single numbers.
static inline __attribute__((always_inline)) void select(bool condition, double yes, double no, double& selected)
{
    selected = condition ? yes : no;
}

} // namespace lxcolor

#endif
