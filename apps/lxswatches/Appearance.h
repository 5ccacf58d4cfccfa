#ifndef APPEARANCE_H
#define APPEARANCE_H

/// Light on dark, or dark on light.
enum class Appearance { Light, Dark };

/// What suits the surroundings in which the program was started.
Appearance surroundingAppearance();
/// Style and colours of the whole program.
void setAppearance(Appearance appearance);

#endif
