#include "AppSupportFolder_p.h"

#include <QDir>
#include <QStandardPaths>

namespace lxcolor {

// The same folder for every program that uses the library, so that they share the user's colours. File names are
// appended to its path with a backslash, which is no separator here: the files lie beside the folder. That is why it is
// one below the user's data folder, whose own parent need not be writable.
QString platformAppSupportFolder()
{
    const QString dataFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (dataFolder.isEmpty())
        return {};
    const QString folder = dataFolder + QLatin1String("/LXColor");
    return QDir().mkpath(folder) ? folder : QString();
}

} // namespace lxcolor
