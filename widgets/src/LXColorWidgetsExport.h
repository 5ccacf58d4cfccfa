#ifndef LXCOLORWIDGETSEXPORT_H
#define LXCOLORWIDGETSEXPORT_H

#include <QtCore/qglobal.h>

/// Marks what libLXColorWidgets exports; everything else in the library is hidden.
#if defined(LXCOLOR_STATIC)
#    define LXCOLOR_WIDGETS_EXPORT
#elif defined(LXCOLOR_WIDGETS_LIBRARY)
#    define LXCOLOR_WIDGETS_EXPORT Q_DECL_EXPORT
#else
#    define LXCOLOR_WIDGETS_EXPORT Q_DECL_IMPORT
#endif

#endif
