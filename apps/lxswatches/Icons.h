#ifndef ICONS_H
#define ICONS_H

#include <QIcon>

/// The icons of the program: drawn as lines of the colour of text, at any size.
enum class Drawing { Open, Save, NewList, AddSwatch, ReplaceSwatch, Delete, Undo, Redo, Find };

QIcon icon(Drawing drawing);

#endif
