#include "PictureFile.h"

#include "CommandError.h"
#include "FileBytes.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

namespace {

QByteArray pngOf(QSize size, const std::function<void(QPainter&)>& paint)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray svgOf(const QString& title, QSize size, const std::function<void(QPainter&)>& paint)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96); // so that a pixel is one of CSS
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(title.toHtmlEscaped()); // written as it is
    generator.setDescription(QString());
    QPainter painter(&generator);
    paint(painter);
    painter.end();
    return bytes;
}

} // namespace

PictureFile::PictureFile(const QString& path)
    : m_path(path), m_isSvg(path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive))
{
    if (!m_isSvg && !path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
        throw CommandError(
            QStringLiteral("cannot tell the kind of picture from %1; accepted: names that end in .png or .svg")
                .arg(quoted(path)));
}

void PictureFile::write(const QString& title, QSize size, const std::function<void(QPainter&)>& paint) const
{
    const QByteArray bytes = m_isSvg ? svgOf(title, size, paint) : pngOf(size, paint);
    if (bytes.isEmpty())
        throw CommandError(QStringLiteral("cannot write %1: the picture could not be painted").arg(quoted(m_path)),
                           CommandError::Surroundings);
    replaceFile(m_path, bytes);
}
