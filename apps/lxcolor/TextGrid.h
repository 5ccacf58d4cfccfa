#ifndef TEXTGRID_H
#define TEXTGRID_H

#include <QStringList>
#include <QVector>

/// Writes rows of cells for people, in columns as wide as their widest cell: the first \a leftAligned from the left,
/// the others from the right. Each line begins with \a indent.
void writeGrid(const QVector<QStringList>& rows, int leftAligned = 1, const QString& indent = QStringLiteral("  "));

#endif
