#ifndef PICTUREFILE_H
#define PICTUREFILE_H

#include <QSize>
#include <QString>

#include <functional>

class QPainter;

/// A picture that becomes a file, of the kind that its suffix says: .png or .svg.
class PictureFile
{
public:
    /// Throws a CommandError for a file name with another suffix.
    explicit PictureFile(const QString& path);

    const QString& path() const { return m_path; }

    /// Writes what \a paint paints, of \a size pixels. The file of that name is replaced in one step, when the picture
    /// is complete; throws a CommandError when it cannot be, and then it is as it was.
    void write(const QString& title, QSize size, const std::function<void(QPainter&)>& paint) const;

private:
    QString m_path;
    bool m_isSvg;
};

#endif
