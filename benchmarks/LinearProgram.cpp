#include "LinearProgram.h"

#include "Tristimulus.h"

#ifdef LXCOLOR_HAVE_GLPK

#    include <algorithm>
#    include <glpk.h>

bool canSolveLinearPrograms() { return true; }

class LinearProgram::Private
{
public:
    explicit Private(Tristimulus& record) : X(record.getX()), Y(record.getY()), Z(record.getZ()) {}
    ~Private() { glp_delete_prob(program); }

    QVector<double> X, Y, Z;
    double scale = 1.0;
    glp_prob* program = glp_create_prob();
    glp_smcp options;
};

LinearProgram::LinearProgram(Tristimulus& record, int emitters) : d(new Private(record))
{
    glp_term_out(GLP_OFF);
    glp_init_smcp(&d->options);
    glp_set_obj_dir(d->program, GLP_MAX);
    glp_add_rows(d->program, 2);
    for (int row = 1; row <= 2; ++row)
        glp_set_row_bnds(d->program, row, GLP_FX, 0.0, 0.0);
    // Scaled, so that the tolerances mean the same for every fixture.
    d->scale = 1.0 / *std::max_element(d->Y.begin(), d->Y.end());
    glp_add_cols(d->program, emitters);
    for (int i = 0; i < emitters; ++i) {
        glp_set_col_bnds(d->program, i + 1, GLP_DB, 0.0, 1.0);
        glp_set_obj_coef(d->program, i + 1, d->Y.at(i) * d->scale);
    }
}

bool LinearProgram::solve(double x, double y)
{
    // The light has X : Y = x : y and Z : Y = z : y.
    const int rows[] = {0, 1, 2};
    for (int i = 0; i < glp_get_num_cols(d->program); ++i) {
        const double factors[] = {0.0, (d->X.at(i) * y - d->Y.at(i) * x) * d->scale,
                                  (d->Z.at(i) * y - d->Y.at(i) * (1.0 - x - y)) * d->scale};
        glp_set_mat_col(d->program, i + 1, 2, rows, factors);
    }
    if (glp_simplex(d->program, &d->options) != 0) {
        // The basis of the last search is none for this chromaticity.
        glp_std_basis(d->program);
        glp_simplex(d->program, &d->options);
    }
    return glp_get_status(d->program) == GLP_OPT;
}

bool LinearProgram::refine()
{
    return glp_exact(d->program, &d->options) == 0 && glp_get_status(d->program) == GLP_OPT;
}

double LinearProgram::luminance() const { return glp_get_obj_val(d->program) / d->scale; }

double LinearProgram::level(int emitter) const { return glp_get_col_prim(d->program, emitter + 1); }

#else

bool canSolveLinearPrograms() { return false; }

class LinearProgram::Private
{
};

LinearProgram::LinearProgram(Tristimulus&, int) {}
bool LinearProgram::solve(double, double) { return false; }
bool LinearProgram::refine() { return false; }
double LinearProgram::luminance() const { return 0.0; }
double LinearProgram::level(int) const { return 0.0; }

#endif

LinearProgram::~LinearProgram() = default;
