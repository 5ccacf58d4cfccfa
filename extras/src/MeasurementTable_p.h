#ifndef MEASUREMENTTABLE_P_H
#define MEASUREMENTTABLE_P_H

#include "DelimitedText_p.h"
#include "Measurement_p.h"

namespace lxcolor {

/// A table of measurements, whatever text it came from.
struct MeasurementTable
{
    using Row = QVector<DelimitedCell>;

    Row heads;
    QVector<Row> rows; ///< Each with a cell for each head.
    QString unit;      ///< That the file states for all of it; empty for none.
    TextPlace unitPlace{};
};

/// Makes emitters of a table. \a unit is stated by whoever reads it; empty for none.
void readTable(const MeasurementTable& table, const QString& unit, FixtureImport::Reading& reading);

} // namespace lxcolor

#endif
