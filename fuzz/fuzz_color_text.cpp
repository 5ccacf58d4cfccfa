// Any text may be read as a colour; what it is then written as is read as the same colour.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const LXColor color(text);
    require(color.isValid() == (color.spec() != LXColor::Invalid), "validity is a matter of the face");
    if (!color.isValid())
        return 0;
    const QString name = color.aName();
    require(LXColor(name).aName() == withoutSignOfZero(name), "the text form reads as it is written", name);
    askEverything(color);
    return 0;
}
