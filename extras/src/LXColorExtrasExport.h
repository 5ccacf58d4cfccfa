#ifndef LXCOLOREXTRASEXPORT_H
#define LXCOLOREXTRASEXPORT_H

#include <QtCore/qglobal.h>

/// Marks what libLXColorExtras exports; everything else in the library is hidden.
#if defined(LXCOLOR_STATIC)
#    define LXCOLOR_EXTRAS_EXPORT
#elif defined(LXCOLOR_EXTRAS_LIBRARY)
#    define LXCOLOR_EXTRAS_EXPORT Q_DECL_EXPORT
#else
#    define LXCOLOR_EXTRAS_EXPORT Q_DECL_IMPORT
#endif

#endif
