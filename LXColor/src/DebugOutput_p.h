#ifndef DEBUGOUTPUT_P_H
#define DEBUGOUTPUT_P_H

#include <QLoggingCategory>

namespace lxcolor {

/// Whether anybody sees what qDebug() is given. Asked first, so that nothing is formatted for nobody.
inline bool isDebugOutputOn() { return QLoggingCategory::defaultCategory()->isDebugEnabled(); }

} // namespace lxcolor

#endif
