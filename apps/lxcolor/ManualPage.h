#ifndef MANUALPAGE_H
#define MANUALPAGE_H

#include "CommandHelp.h"

/// The manual page (section 1) of the program or a subcommand, in man(7) macros.
QString manualPage(const CommandHelp& help);

#endif
