#ifndef INPUTLINES_H
#define INPUTLINES_H

#include "CommandError.h"

#include <QString>

#include <cstddef>
#include <functional>

/// Calls \a use with the number, from 1, and the text of each line of standard input that is not blank, as it arrives.
/// Throws a CommandError for a line of more than \a longest bytes and for input that cannot be read.
void forEachInputLine(std::size_t longest, const std::function<void(int, const QString&)>& use);

/// \a error with the place of the line in front of it.
CommandError atInputLine(int number, const CommandError& error);

#endif
