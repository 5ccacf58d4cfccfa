#ifndef LIBRARYSERVICES_P_H
#define LIBRARYSERVICES_P_H

#include <QPixmap>
#include <QString>

class LXColor;

// What tree nodes and document readers ask of the library of this process, without knowing its class.
namespace lxcolor {

struct LibraryServices
{
    /// Makes the thumbnail of a colour; null when the application supplies none.
    QPixmap (*generateThumbnail)(const LXColor&) = nullptr;
    /// The name under which a list of that name can be added to the library; null while there is no library.
    QString (*newColorListName)(const QString&) = nullptr;
};

LibraryServices& libraryServices();

} // namespace lxcolor

#endif
