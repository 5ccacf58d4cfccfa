#ifndef MEASUREMENT_P_H
#define MEASUREMENT_P_H

#include "FixtureImport.h"
#include "InputFault_p.h"

#include <QPointF>

// What the readers of measurements have in common. They throw an InputFault.
namespace lxcolor {

/// Reads one format into emitters, unit and remarks.
///@{
void readGdtf(const QByteArray& description, FixtureImport::Reading& reading);
void readCsvMeasurement(const QString& text, const QString& unit, FixtureImport::Reading& reading);
void readCgatsMeasurement(const QString& text, const QString& unit, FixtureImport::Reading& reading);
///@}

/// The description.xml of a GDTF archive. Throws an InputFault when there is none, or no means to read it.
QByteArray descriptionOfArchive(const QByteArray& archive);
bool canReadArchives();

/// The tristimulus values of a chromaticity, scaled to Y. Refused for numbers that no light has.
StandardObserver::XYZ lightOf(double x, double y, double Y, TextPlace place);
/// Refuses what is too dark or too bright for a database.
StandardObserver::XYZ inBounds(StandardObserver::XYZ light, TextPlace place);
/// Checks X, Y and Z of \a name. What noise made negative becomes 0, with a remark.
StandardObserver::XYZ checkedLight(StandardObserver::XYZ light, const QString& name, TextPlace place,
                                   QStringList& remarks);
/// Integrates a spectrum, whose samples may come in any order but not twice.
StandardObserver::XYZ lightOf(QVector<QPointF> spectrum, TextPlace place);
/// "41 samples from 380 to 780 nm, CIE 1931 2-degree observer".
QString describedSpectrum(const QVector<QPointF>& spectrum);
/// "x 0.6915, y 0.3081".
QString describedChromaticity(const StandardObserver::XYZ& light);

} // namespace lxcolor

#endif
