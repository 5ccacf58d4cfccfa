// Any bytes may be read from a stream into any colour, which then answers everything; written and read, the words stay.
#include "FuzzSupport.h"

#include <QDataStream>

namespace {

QByteArray bytesOf(const LXColor& color)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << color;
    return bytes;
}

void readFrom(const QByteArray& bytes, LXColor& color)
{
    QDataStream stream(bytes);
    stream >> color;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    LXColor color = anyColor(input);
    const QByteArray bytes = input.rest();
    readFrom(bytes, color);
    askEverything(color);
    const bool hasFace = color.spec() >= LXColor::Rgb && color.spec() <= LXColor::NChannel;
    require(hasFace || (color.aName().isEmpty() && color != LXColor(color)),
            "what has no face has no text, and no like");
    require(hasFace || !color.isValid() || color.toRgb16(true).isBlack(), "what has no face is black");
    const QByteArray written = bytesOf(color);
    require(written.size() == 17, "the stream form has 17 bytes");
    require(bytes.size() < 17 || written == bytes.left(17), "what was read is written");
    LXColor copy = color;
    readFrom(written, copy);
    require(bytesOf(copy) == written, "what was written is read");
    return 0;
}
