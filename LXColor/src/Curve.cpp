#include "Curve.h"

#include "CurveLookup_p.h"
#include "CurveTables_p.h"

Curve::Curve() = default;

Curve::~Curve()
{
    delete[] lut8;
    delete[] lut16;
}

void Curve::createLut() {}

void Curve::applyCurve(int value, unsigned char* out)
{
    Q_CHECK_PTR(out);
    *out = lxcolor::CurveLookup::value8(*this, value);
}

void Curve::applyCurve(int value, unsigned short* out)
{
    Q_CHECK_PTR(out);
    *out = lxcolor::CurveLookup::value16(*this, value);
}

void Curve::createLutFromPoints(const unsigned short* points)
{
    constexpr int kLast = lxcolor::kCurvePointCount - 1;
    constexpr double kStep = 0.00390625; // 1/256: the 16-bit inputs between two points
    if (lut16)
        return;

    lut16 = new unsigned short[65536];
    for (int i = 0; i <= kLast; ++i) {
        const int rise = i < kLast ? points[i + 1] - points[i] : 0;
        for (int j = 0; j < 256; ++j)
            lut16[256 * i + j] = static_cast<unsigned short>(points[i] + j * kStep * rise);
    }

    lut8 = new unsigned char[256];
    for (int i = 0; i <= kLast; ++i) {
        const int high = points[i] >> 8;
        const bool roundUp = (points[i] & 0x80) && high < 255;
        lut8[i] = static_cast<unsigned char>(high + (roundUp ? 1 : 0));
    }
}
