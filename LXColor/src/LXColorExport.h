#ifndef LXCOLOREXPORT_H
#define LXCOLOREXPORT_H

#include <QtCore/qglobal.h>

/// Marks what libLXColor exports; everything else in the library is hidden.
#if defined(LXCOLOR_STATIC)
#    define LXCOLOR_EXPORT
#elif defined(LXCOLOR_LIBRARY)
#    define LXCOLOR_EXPORT Q_DECL_EXPORT
#else
#    define LXCOLOR_EXPORT Q_DECL_IMPORT
#endif

#endif
