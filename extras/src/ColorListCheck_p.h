#ifndef COLORLISTCHECK_P_H
#define COLORLISTCHECK_P_H

#include "DocumentFindings_p.h"

namespace lxcolor {

/// Checks a document with colour lists; the kind that it is.
DocumentChecker::Kind checkColorLists(QIODevice& device, DocumentFindings& findings);

} // namespace lxcolor

#endif
