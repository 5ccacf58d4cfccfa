#ifndef SUITE_H
#define SUITE_H

#include <QString>

#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <vector>

/// What a contender does, ready to run.
struct Work
{
    std::function<void(qint64)> run; ///< Does the work so many times.
    std::function<void()> prepare;   ///< If there is one: goes before each run, and a run is for once. Not timed.
};

/// One way of doing a piece of work.
struct Contender
{
    QString name;
    std::function<Work()> make; ///< Sets it up; what it needs lives as long as the result.
};

/// A piece of work, and who can do it: the library first, then the plain form where there is one, then peers.
struct Case
{
    QString group;
    QString work;
    std::vector<Contender> contenders;
    qint64 items = 1; ///< Parts of one piece of work, such as fixtures of a frame. Times are for a part.
    /// Of cases that differ in size alone: how the time of a part grows from the first of them is shown.
    QString series = {};
};
using Cases = std::vector<Case>;

inline const QString kLibrary = QStringLiteral("library");
inline const QString kPlain = QStringLiteral("plain");

/// A contender that calls \a once for each piece of work.
template <typename Once>
Contender contender(const QString& name, Once once)
{
    const auto make = [once] {
        return Work{[once](qint64 times) mutable {
                        for (; times > 0; --times)
                            once();
                    },
                    nullptr};
    };
    return {name, make};
}

/// Calls \a use with one input after the other, over and over.
template <typename Input, typename Use>
auto over(const std::vector<Input>& inputs, Use use)
{
    return [shared = std::make_shared<const std::vector<Input>>(inputs), next = std::size_t(0), use]() mutable {
        use((*shared)[next]);
        if (++next == shared->size())
            next = 0;
    };
}

/// The contenders of a case that do the work for one input after the other.
template <typename Input, typename Use>
Contender contenderOver(const QString& name, const std::vector<Input>& inputs, Use use)
{
    return contender(name, over(inputs, use));
}

// ---- The cases, a source a group ----

void addColorCases(Cases& cases);
void addTextCases(Cases& cases);
void addMatchingCases(Cases& cases);
void addCurveCases(Cases& cases);
void addOutputCases(Cases& cases);
void addFrameCases(Cases& cases);
void addWhitePointCases(Cases& cases);
void addSwatchCases(Cases& cases);

// ---- What is done with them ----

struct PairedOptions
{
    int rounds = 41;            ///< Turns of each contender; the figures are medians of them.
    double turnSeconds = 0.001; ///< How long a turn is.
    double caseSeconds = 2.0;   ///< After which a case with long turns ends early, with five rounds at least.
};
/// Runs the contenders of each case in turns, in this process, and prints a Markdown table of each group.
void printPaired(const Cases& cases, const PairedOptions& options);

/// Prints what the library's tables take of the heap, by what is used first.
void printMemory();
/// Prints the processor time of processes from start to end: nothing, Qt alone, one colour. \a folder holds the
/// programs.
void printStartUp(const QString& folder);

#endif
