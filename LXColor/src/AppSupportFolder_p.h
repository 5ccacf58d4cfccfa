#ifndef APPSUPPORTFOLDER_P_H
#define APPSUPPORTFOLDER_P_H

#include <QString>

namespace lxcolor {

/// Asks for the absolute path of the user's application-support folder, which is made when it is missing; empty when
/// that fails.
using AppSupportLookup = QString (*)();

/// What the platform says.
QString platformAppSupportFolder();

/// The folder that the look-up found first; asked again on each call as long as it fails.
QString appSupportFolder();

/// Exchanges the look-up and forgets what the one before has found. Null stands for the platform's.
void setAppSupportLookup(AppSupportLookup lookup);

} // namespace lxcolor

#endif
