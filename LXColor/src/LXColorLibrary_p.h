#ifndef LXCOLORLIBRARY_P_H
#define LXCOLORLIBRARY_P_H

#include "DebugOutput_p.h"
#include "LXColorLibrary.h"

namespace lxcolor {

const QLatin1String ExplicitColorsId("Explicit Colors");
const QLatin1String ProjectSwatchesId("Project Swatches");

} // namespace lxcolor

/// During a call of the library: the saves that its steps ask for become one at its end.
class LXColorLibrary::OneSave
{
public:
    explicit OneSave(LXColorLibrary* library) : m_library(library) { ++m_library->m_openCalls; }
    ~OneSave()
    {
        if (--m_library->m_openCalls > 0 || !m_library->m_saveAtEndOfCall)
            return;
        m_library->m_saveAtEndOfCall = false;
        m_library->requestSave();
    }
    Q_DISABLE_COPY(OneSave)

private:
    LXColorLibrary* m_library;
};

#endif
