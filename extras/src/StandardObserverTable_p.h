#ifndef STANDARDOBSERVERTABLE_P_H
#define STANDARDOBSERVERTABLE_P_H

namespace lxcolor {

/// The colour-matching functions at one wavelength.
struct ObserverRow
{
    int nm;
    double x;
    double y;
    double z;
};

constexpr int kObserverFirstNm = 360;
constexpr int kObserverLastNm = 830;
constexpr int kObserverStepNm = 5;
constexpr int kObserverRowCount = (kObserverLastNm - kObserverFirstNm) / kObserverStepNm + 1;

/// The CIE 1931 2-degree standard colorimetric observer.
extern const ObserverRow kObserver[kObserverRowCount];

} // namespace lxcolor

#endif
