#ifndef MIXLANES_P_H
#define MIXLANES_P_H

#include <QtGlobal>

namespace lxcolor {

/// What a mix takes from the emitters of a fixture: of one mix in a double, of several in a vector. The others are the
/// emitters that are neither i nor j, up to three; of one that is off, or not there, all numbers are 0.
template <typename Number>
struct MixNumbers
{
    Number Xi, Xj, Yi, Yj, Zi, Zj;
    Number X[3], Y[3], Z[3]; ///< Of the others.
    // Y of the others once more, in the order in which luminances are added up.
    Number Ybelow;      ///< The sum of those before i.
    Number Ybetween[3]; ///< Those between i and j, else 0.
    Number Yabove[3];   ///< Those beyond j, else 0.
    Number unused[2];
};

/// A mix as a row that is read four numbers at a time.
struct alignas(32) MixTerms : MixNumbers<double>
{
    static constexpr int kGroups = 6;
};

/// Levels of the two emitters of a mix, 0..1, and its luminance, which is negative when the mix is not valid.
template <typename Number>
struct MixResult
{
    Number a;
    Number b;
    Number luminance;
};

/// Mixes that may win for some requests, and what comes of them.
struct Candidates
{
    static constexpr int kMost = 512;
    static constexpr int kMostLanes = 8; ///< That many may be read and written beyond the last.

    int count;
    quint8 mix[kMost + kMostLanes];     ///< The place of the mix in the table of terms.
    quint8 request[kMost + kMostLanes]; ///< The request that it is for.
    double a[kMost + kMostLanes];
    double b[kMost + kMostLanes];
    double luminance[kMost + kMostLanes];
};

/// Works out the candidates with the bits of MixEvaluation, several at a time. \a yOverX and \a yOverZ are those of the
/// requests, and finite. Those of kMostLanes more have to be there, be they for no mix.
using EvaluateMixes = void (*)(const MixTerms* terms, const double* yOverX, const double* yOverZ,
                               Candidates& candidates);

/// The quickest form for this processor. With LXCOLOR_NO_AVX2 in the environment it is the one for any processor.
EvaluateMixes evaluateMixesHere();

/// The form for any processor, and the one for those with AVX2, which may only be called there.
///@{
void evaluateMixes(const MixTerms* terms, const double* yOverX, const double* yOverZ, Candidates& candidates);
void evaluateMixesAvx2(const MixTerms* terms, const double* yOverX, const double* yOverZ, Candidates& candidates);
///@}

} // namespace lxcolor

#endif
