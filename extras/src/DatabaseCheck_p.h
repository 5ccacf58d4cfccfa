#ifndef DATABASECHECK_P_H
#define DATABASECHECK_P_H

#include "DocumentFindings_p.h"

namespace lxcolor {

/// A fixture profile database is read as far as this, in bytes: its reader sees no more characters than a fourth.
constexpr qint64 kLongestDatabase = 4 * 1024 * 1024;

/// Checks a fixture profile database.
void checkDatabase(QIODevice& device, DocumentFindings& findings);

} // namespace lxcolor

#endif
