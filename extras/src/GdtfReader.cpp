#include "Measurement_p.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

// The emitters of a GDTF description (DIN SPEC 15800): PhysicalDescriptions, Emitters, Emitter, Measurement and
// MeasurementPoint.

namespace lxcolor {

namespace {

constexpr double kNone = -1.0;
constexpr double kShortestVisible = 380.0; // nanometres
constexpr double kLongestVisible = 780.0;

/// What the file says of one emitter.
struct GdtfEmitter
{
    QString name;
    TextPlace place{};
    double x = kNone; ///< Of the attribute Color, as are y and Y.
    double y = kNone;
    double Y = kNone;
    double dominantNm = kNone;
    double physical = kNone; ///< Of the measurement at the highest level, in percent.
    double candela = kNone;
    QVector<QPointF> spectrum{};

    bool hasChromaticity() const { return !spectrum.isEmpty() || x >= 0.0 || dominantNm > 0.0; }
    bool isVisible() const
    {
        const bool isBeyond = dominantNm > 0.0 && (dominantNm < kShortestVisible || dominantNm > kLongestVisible);
        return hasChromaticity() && !(isBeyond && x < 0.0);
    }
};

class GdtfReader
{
public:
    explicit GdtfReader(const QByteArray& description) : m_xml(description) { m_xml.setNamespaceProcessing(false); }

    QVector<GdtfEmitter> read()
    {
        bool isRoot = true;
        while (!m_xml.atEnd()) {
            const TextPlace before = placeOfNext(m_xml);
            m_xml.readNext();
            m_place = isRoot ? placeOfRoot(m_xml) : before;
            if (m_xml.isDTD() && !m_xml.entityDeclarations().isEmpty())
                fault(FixtureImport::tr("Entities are declared"));
            if (m_xml.isStartElement()) {
                if (isRoot && m_xml.qualifiedName() != QLatin1String("GDTF"))
                    fault(FixtureImport::tr("This is no GDTF description: its root is not \"GDTF\""));
                isRoot = false;
                begin();
            }
            if (m_xml.isEndElement() && m_xml.qualifiedName() == QLatin1String("Emitter"))
                m_isInEmitter = false;
        }
        m_place = {m_xml.lineNumber(), std::max<qint64>(m_xml.columnNumber(), 1)};
        if (m_xml.hasError())
            fault(FixtureImport::tr("Not well-formed: %1").arg(m_xml.errorString()));
        if (m_emitters.isEmpty())
            fault(FixtureImport::tr("There are no emitters in the description"));
        return m_emitters;
    }

private:
    [[noreturn]] void fault(const QString& text) const { throw InputFault{text, m_place}; }

    void begin()
    {
        if (m_xml.qualifiedName() == QLatin1String("Emitter"))
            beginEmitter();
        else if (m_isInEmitter && m_xml.qualifiedName() == QLatin1String("Measurement"))
            beginMeasurement();
        else if (m_isInEmitter && m_isBest && m_xml.qualifiedName() == QLatin1String("MeasurementPoint"))
            m_emitters.last().spectrum.append({required("WaveLength"), required("Energy")});
    }

    void beginEmitter()
    {
        GdtfEmitter emitter;
        emitter.name = m_xml.attributes().value(QLatin1String("Name")).toString();
        emitter.place = m_place;
        emitter.dominantNm = number("DominantWaveLength");
        const QString color = m_xml.attributes().value(QLatin1String("Color")).toString();
        if (!color.isEmpty()) {
            const QStringList parts = color.split(QLatin1Char(','));
            double* const values[] = {&emitter.x, &emitter.y, &emitter.Y};
            bool isRead = parts.size() == 3;
            for (int i = 0; isRead && i < 3; ++i)
                *values[i] = parts.at(i).toDouble(&isRead);
            if (!isRead || emitter.x < 0.0)
                fault(FixtureImport::tr("Color is \"%1\"; three numbers x,y,Y are expected").arg(color));
        }
        m_emitters.append(emitter);
        m_isInEmitter = true;
        m_isBest = false;
    }

    void beginMeasurement()
    {
        const double physical = required("Physical");
        GdtfEmitter& emitter = m_emitters.last();
        if (!(physical > 0.0 && physical <= 100.0))
            fault(FixtureImport::tr("Physical is %1; a level above 0 and up to 100 percent is expected").arg(physical));
        m_isBest = physical > emitter.physical;
        if (!m_isBest)
            return;
        emitter.physical = physical;
        emitter.candela = number("LuminousIntensity");
        emitter.spectrum.clear();
    }

    double required(const char* name)
    {
        if (!m_xml.attributes().hasAttribute(QLatin1String(name)))
            fault(FixtureImport::tr("The attribute %1 is missing").arg(QLatin1String(name)));
        return number(name);
    }

    /// The number of an attribute; kNone where it is not there.
    double number(const char* name)
    {
        const QStringRef text = m_xml.attributes().value(QLatin1String(name));
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        if (text.isEmpty())
            return kNone;
        if (!isNumber || !std::isfinite(value))
            fault(FixtureImport::tr("%1 is \"%2\", which is no number").arg(QLatin1String(name), text.toString()));
        return value;
    }

    QXmlStreamReader m_xml;
    TextPlace m_place;
    QVector<GdtfEmitter> m_emitters;
    bool m_isInEmitter = false;
    bool m_isBest = false; ///< Whether the measurement is the one at the highest level so far.
};

/// What the brightness of emitters can be compared by.
struct Basis
{
    const char* unit;
    const char* attribute; ///< What an emitter lacks that cannot be compared.
    bool (*has)(const GdtfEmitter& emitter);
};

const Basis kBases[] = {
    {"cd", "LuminousIntensity", [](const GdtfEmitter& emitter) { return emitter.candela > 0.0; }},
    {"W/m2/nm", "MeasurementPoint", [](const GdtfEmitter& emitter) { return !emitter.spectrum.isEmpty(); }},
    {"relative", "Color", [](const GdtfEmitter& emitter) { return emitter.Y > 0.0; }},
};

/// The first by which the most emitters can be compared.
const Basis& basisOf(const QVector<GdtfEmitter>& emitters)
{
    const auto number = [&](const Basis& basis) { return std::count_if(emitters.begin(), emitters.end(), basis.has); };
    return *std::max_element(std::begin(kBases), std::end(kBases),
                             [&](const Basis& a, const Basis& b) { return number(a) < number(b); });
}

/// Its light on any scale, and how that is known.
StandardObserver::XYZ chromaticityOf(const GdtfEmitter& emitter, QString& origin, QStringList& remarks)
{
    if (!emitter.spectrum.isEmpty()) {
        origin += QStringLiteral("; ") + describedSpectrum(emitter.spectrum);
        return checkedLight(lightOf(emitter.spectrum, emitter.place), emitter.name, emitter.place, remarks);
    }
    if (emitter.x >= 0.0) {
        origin += QStringLiteral("; Color x %1, y %2").arg(emitter.x).arg(emitter.y);
        return lightOf(emitter.x, emitter.y, 1.0, emitter.place);
    }
    origin += QStringLiteral("; light of one wavelength, %1 nm").arg(emitter.dominantNm);
    remarks << FixtureImport::tr("%1 has no Color and no spectrum: it is taken for light of %2 nm alone.")
                   .arg(emitter.name, QString::number(emitter.dominantNm));
    return StandardObserver::at(emitter.dominantNm);
}

FixtureImport::Emitter measured(const GdtfEmitter& emitter, const Basis& basis, QStringList& remarks)
{
    QString origin = QStringLiteral("line %1").arg(emitter.place.line);
    if (emitter.physical > 0.0)
        origin += QStringLiteral(", measured at %1 %").arg(emitter.physical);
    StandardObserver::XYZ light = chromaticityOf(emitter, origin, remarks);
    double scale = 1.0;
    if (basis.unit == kBases[0].unit) {
        scale = emitter.candela / light.Y;
        origin += QStringLiteral("; scaled to %1 cd").arg(emitter.candela);
    } else if (basis.unit == kBases[2].unit) {
        scale = emitter.Y / light.Y;
        origin += QStringLiteral("; scaled to Y %1 of Color").arg(emitter.Y);
    }
    light = inBounds({light.X * scale, light.Y * scale, light.Z * scale}, emitter.place);
    return {emitter.name, light, origin + QStringLiteral("; ") + describedChromaticity(light)};
}

} // namespace

void readGdtf(const QByteArray& description, FixtureImport::Reading& reading)
{
    if (MarkupBounds().excessIn(description) != MarkupBounds::Excess::None)
        throw InputFault{FixtureImport::tr("A tag has too many attributes, or is too long")};
    QVector<GdtfEmitter> visible;
    for (const GdtfEmitter& emitter : GdtfReader(description).read()) {
        if (emitter.isVisible())
            visible.append(emitter);
        else
            reading.remarks << FixtureImport::tr("%1 is left out: no visible colour is given.").arg(emitter.name);
    }
    const Basis& basis = basisOf(visible);
    reading.unit = QLatin1String(basis.unit);
    double level = kNone;
    QString first;
    for (const GdtfEmitter& emitter : qAsConst(visible)) {
        if (!basis.has(emitter)) {
            reading.remarks << FixtureImport::tr("%1 is left out: it has no %2 to compare it with the others.")
                                   .arg(emitter.name, QLatin1String(basis.attribute));
            continue;
        }
        if (level > 0.0 && emitter.physical > 0.0 && emitter.physical != level)
            throw InputFault{FixtureImport::tr("%1 was measured at %2 %, but %3 at %4 %")
                                 .arg(emitter.name, QString::number(emitter.physical), first, QString::number(level)),
                             emitter.place};
        if (emitter.physical > 0.0) {
            level = emitter.physical;
            first = emitter.name;
        }
        reading.emitters.append(measured(emitter, basis, reading.remarks));
    }
    if (level > 0.0 && level < 100.0)
        reading.remarks << FixtureImport::tr(
                               "The emitters were measured at %1 %: their ratios are taken for those at full.")
                               .arg(level);
}

} // namespace lxcolor
