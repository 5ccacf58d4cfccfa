#ifndef LINEARPROGRAM_H
#define LINEARPROGRAM_H

#include <QVector>

#include <memory>

class Tristimulus;

/// Whether this build can solve linear programs (GLPK).
bool canSolveLinearPrograms();

/// The brightest mix of a fixture's emitters as a linear program: the most CIE 1931 Y at a chromaticity, each emitter
/// at a level of 0 to 1.
class LinearProgram
{
public:
    LinearProgram(Tristimulus& record, int emitters);
    ~LinearProgram();

    /// Solves for CIE 1931 x, y by GLPK's simplex, which starts where the last search ended. False without a solution.
    bool solve(double x, double y);
    /// Solves the same again, in exact arithmetic.
    bool refine();

    /// The luminance of the solution, on the scale of the record.
    double luminance() const;
    /// The level of an emitter in the solution.
    double level(int emitter) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
