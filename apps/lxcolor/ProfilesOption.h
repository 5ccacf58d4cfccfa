#ifndef PROFILESOPTION_H
#define PROFILESOPTION_H

class SubcommandLine;

/// Adds the option --profiles to a command line.
void addProfilesOption(SubcommandLine& line);

/**
 * Where --profiles is given, makes the emitter data those of that fixture profile database, and the built-in ones for
 * the profiles that it does not hold: a database beside the program plays no part. Throws a CommandError for a file
 * that cannot be read; a profile that is rejected is told on standard error, and keeps its built-in data.
 */
void readProfiles(const SubcommandLine& line);

#endif
