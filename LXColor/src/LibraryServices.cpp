#include "LibraryServices_p.h"

namespace lxcolor {

LibraryServices& libraryServices()
{
    static LibraryServices services;
    return services;
}

} // namespace lxcolor
