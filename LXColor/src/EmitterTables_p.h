#ifndef EMITTERTABLES_P_H
#define EMITTERTABLES_P_H

// The built-in emitter data: CIE 1931 XYZ tristimulus values of each emitter at full level, a scale of its own a
// fixture.
namespace lxcolor {

struct EmitterRow
{
    const char* name; // marked for translation in context "QObject"
    double X;
    double Y;
    double Z;
};

struct EmitterTable
{
    int count;
    const EmitterRow* rows;
    const EmitterRow* begin() const { return rows; }
    const EmitterRow* end() const { return rows + count; }
};

/// The emitters of a profile id; the generic red, green and blue for an id without measured data of its own.
EmitterTable emitterTable(int profile);

} // namespace lxcolor

#endif
