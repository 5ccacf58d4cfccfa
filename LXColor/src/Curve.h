#ifndef CURVE_H
#define CURVE_H

#include "LXColorExport.h"

#include <QtGlobal>

namespace lxcolor {
struct CurveLookup;
}

/// A software dimming curve, held as look-up tables. This base class is the linear curve, which has none.
class LXCOLOR_EXPORT Curve
{
public:
    Curve();
    ~Curve();

    /// Builds the tables; the linear curve has none to build.
    virtual void createLut();

    /**
     * The 8-bit output for an 8-bit input. Without a table the input cut to 8 bits; with one, inputs outside 0..255
     * take the first or last entry. A null \a out throws std::bad_alloc.
     */
    void applyCurve(int value, unsigned char* out);
    /**
     * The 16-bit output for a 16-bit input. Without a table the input cut to 16 bits; with one, inputs outside 0..65535
     * take the first or last entry. A null \a out throws std::bad_alloc.
     */
    void applyCurve(int value, unsigned short* out);

protected:
    /// Builds both tables from a curve's 256 points, once: linear between the points, the 8-bit one rounded.
    void createLutFromPoints(const unsigned short* points);

    unsigned char* lut8 = nullptr;   ///< 256 entries, owned.
    unsigned short* lut16 = nullptr; ///< 65536 entries, owned.

private:
    friend struct lxcolor::CurveLookup;
    Q_DISABLE_COPY(Curve)
};

#endif
