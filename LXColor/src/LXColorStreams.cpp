#include "LXColor.h"

#include <QDataStream>
#include <QDebug>
#include <QMimeData>

QMimeData* LXColor::mimeData() const
{
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(LXCOLOR_MIME_TYPE), aName().toLatin1());
    return data;
}

QDataStream& operator<<(QDataStream& stream, const LXColor& color)
{
    return stream << static_cast<qint8>(color.m_spec) << color.m_alpha << color.m_words[0] << color.m_words[1]
                  << color.m_words[2];
}

QDataStream& operator>>(QDataStream& stream, LXColor& color)
{
    qint8 spec = 0;
    stream >> spec >> color.m_alpha >> color.m_words[0] >> color.m_words[1] >> color.m_words[2];
    color.m_spec = static_cast<LXColor::Spec>(spec);
    return stream;
}

QDebug operator<<(QDebug debug, const LXColor& color)
{
    const QDebugStateSaver saver(debug);
    debug.nospace();
    switch (color.spec()) {
    case LXColor::Invalid:
        debug << "LXColor(Invalid)";
        break;
    case LXColor::Rgb:
    case LXColor::Hsv: {
        const LXColor rgb = color.toRgb16(true);
        debug << "LXColor(ARGB " << rgb.alpha16() << ", " << rgb.red16() << ", " << rgb.green16() << ", "
              << rgb.blue16() << ")";
        break;
    }
    case LXColor::Yxy:
        debug << "LXColor(AYxy " << color.alpha16() << ", " << color.getY() << ", " << color.getx() << ", "
              << color.gety() << ")";
        break;
    default:
        break;
    }
    return debug;
}
