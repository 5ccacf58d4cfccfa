#ifndef SESSION_H
#define SESSION_H

#include <QString>

/// Starts the swatch library of the process: presets, then the colours of the user.
void startLibrary();
/// Installs the translation into the user's language, where there is one.
void installTranslation();

#endif
