#ifndef PATCHFILE_H
#define PATCHFILE_H

#include "FrameRenderer.h"

#include <QString>
#include <QVector>

/// Reads a patch: a JSON object whose "fixtures" are what docs/json.md says. Throws a CommandError that names the file
/// and the place in it.
QVector<FrameRenderer::Fixture> readPatch(const QString& path);

#endif
