#include "ChromaticityDiagram.h"
#include "FixtureImport.h"
#include "StandardObserver.h"
#include "WhitePoint.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

// Which emitter of a measurement is which channel of a fixture.

namespace {

using Emitter = FixtureImport::Emitter;

enum class Role { Red, Green, Blue, Amber, White, Mint };

/// What a channel may be called in measurements, and what its colour is.
struct RoleRow
{
    Role role;
    const char* name;
    const char* words; ///< Separated by commas, in small letters; the first ones also as a part of a name.
    double shortestNm; ///< Dominant wavelength, in nanometres; 0 for none.
    double longestNm;
};

// clang-format off
// Mint and lime are yellower than green, and less so than amber.
const RoleRow kRoles[] = {
    {Role::Red,   "Red",   "red,rot,r",                                                  606.0, 780.0},
    {Role::Green, "Green", "green,gr\xc3\xbcn,gruen,g",                                  500.0, 545.0},
    {Role::Blue,  "Blue",  "blue,blau,b",                                                400.0, 500.0},
    {Role::Amber, "Amber", "amber,bernstein,a",                                          575.0, 606.0},
    {Role::White, "White", "white,wei\xc3\x9f,weiss,w",                                    0.0,   0.0},
    {Role::Mint,  "Mint",  "mint,lime,warm white,warmwei\xc3\x9f,warmweiss,ww",            545.0, 575.0},
};
// clang-format on

const RoleRow& rowOf(Role role) { return kRoles[static_cast<int>(role)]; }

QVector<Role> rolesOf(ColorUtils::ChannelConfiguration layout)
{
    switch (layout) {
    case ColorUtils::ConfigRGB:
        return {Role::Red, Role::Green, Role::Blue};
    case ColorUtils::ConfigRGBA:
        return {Role::Red, Role::Green, Role::Blue, Role::Amber};
    case ColorUtils::ConfigRGBW:
        return {Role::Red, Role::Green, Role::Blue, Role::White};
    case ColorUtils::ConfigRGBAW:
        return {Role::Red, Role::Green, Role::Blue, Role::Amber, Role::White};
    case ColorUtils::ConfigRGBWW:
        return {Role::Red, Role::Green, Role::Blue, Role::Mint, Role::White};
    default:
        return {};
    }
}

/// A name in small letters, as words between single spaces, without numbers: "WarmWhite_2" is "warm white".
QString plainWords(const QString& name)
{
    static const QRegularExpression hump(QStringLiteral("(\\p{Ll})(\\p{Lu})"));
    static const QRegularExpression others(QStringLiteral("[^\\p{L}]+"));
    QString words = name;
    return words.replace(hump, QStringLiteral("\\1 \\2")).replace(others, QStringLiteral(" ")).toLower().trimmed();
}

QStringList wordsOf(const RoleRow& row) { return QString::fromUtf8(row.words).split(QLatin1Char(',')); }

/// How well a name fits a channel: 2 when it is one of its names, 1 when such a name is a word of it, else 0.
int fit(const QString& name, const RoleRow& row)
{
    const QString plain = plainWords(name);
    const QStringList words = wordsOf(row);
    if (words.contains(plain))
        return 2;
    const auto isPart = [&](const QString& word) {
        return word.size() > 2 &&
               (QLatin1Char(' ') + plain + QLatin1Char(' ')).contains(QLatin1Char(' ') + word + QLatin1Char(' '));
    };
    return std::any_of(words.begin(), words.end(), isPart) ? 1 : 0;
}

const QPointF kD65(0.3127, 0.3290);

/// The wavelength of the spectral locus in the direction of a chromaticity, seen from D65; 0 for purple.
double dominantWavelength(QPointF xy)
{
    const auto angle = [](QPointF p) { return std::atan2(p.y() - kD65.y(), p.x() - kD65.x()); };
    const double wanted = angle(xy);
    double nearest = 0.0;
    double least = 0.05; // radians: beyond, no wavelength has this direction
    for (int nm = 400; nm <= 700; ++nm) {
        const double off = std::fabs(std::remainder(angle(StandardObserver::locusPoint(nm)) - wanted, 2.0 * M_PI));
        if (off < least) {
            least = off;
            nearest = nm;
        }
    }
    return nearest;
}

/// Whether a light is more of one wavelength than of white.
bool isSaturated(QPointF xy, double nm)
{
    constexpr double kLeastPurity = 0.5; // of excitation, CIE 15
    const QPointF step = xy - kD65;
    const QPointF most = StandardObserver::locusPoint(nm) - kD65;
    return std::hypot(step.x(), step.y()) > kLeastPurity * std::hypot(most.x(), most.y());
}

bool isWhite(QPointF xy)
{
    constexpr double kWarmest = 2200.0; // kelvin; amber begins below
    const WhitePoint white = WhitePoint::fromxy(xy.x(), xy.y());
    return white.isNearLocus() && white.cctKelvin() > kWarmest && std::fabs(white.duv()) < 0.02;
}

/// Whether the colour of an emitter is that of a channel.
bool hasColorOf(const Emitter& emitter, const RoleRow& row)
{
    const QPointF xy = emitter.light.xy();
    const double nm = dominantWavelength(xy);
    if (row.role == Role::White)
        return isWhite(xy);
    return !isWhite(xy) && nm > row.shortestNm && nm <= row.longestNm && isSaturated(xy, nm);
}

/// Whether a red, green or blue emitter cannot be what its name says.
bool contradicts(const Emitter& emitter, const RoleRow& row)
{
    constexpr double kTolerance = 25.0; // nanometres beyond what is usual
    if (row.role > Role::Blue)
        return false;
    const double nm = dominantWavelength(emitter.light.xy());
    const bool isPurple = nm == 0.0;
    return isPurple ? row.role == Role::Green : nm < row.shortestNm - kTolerance || nm > row.longestNm + kTolerance;
}

QString listed(const QVector<Emitter>& emitters, const QVector<int>& which)
{
    QStringList names;
    for (const int i : which)
        names << QLatin1Char('"') + emitters.at(i).name + QLatin1Char('"');
    return names.join(QStringLiteral(", "));
}

QString allListed(const QVector<Emitter>& emitters)
{
    QVector<int> all;
    for (int i = 0; i < emitters.size(); ++i)
        all.append(i);
    return listed(emitters, all);
}

QString shown(double coordinate) { return QString::number(coordinate, 'f', 4); }

/// Looks for the emitter of each channel.
class Search
{
public:
    Search(const QVector<Emitter>& emitters, const QVector<Role>& roles) : m_emitters(emitters), m_roles(roles) {}

    FixtureImport::Assignment byNamesAndColors()
    {
        QVector<int> found(m_roles.size(), -1);
        for (int i = 0; i < m_roles.size(); ++i)
            if (!findByName(rowOf(m_roles.at(i)), found[i]))
                return m_result;
        for (int i = 0; i < m_roles.size(); ++i)
            if (found.at(i) < 0 && !findByColor(rowOf(m_roles.at(i)), found, found[i]))
                return m_result;
        return take(found);
    }

    FixtureImport::Assignment stated(const QStringList& channels)
    {
        if (channels.size() != m_roles.size())
            return refuse(FixtureImport::tr("The number of channels stated is %1, that of the fixture %2: %3")
                              .arg(channels.size())
                              .arg(m_roles.size())
                              .arg(roleNames()));
        QVector<int> found;
        for (const QString& channel : channels) {
            const auto isIt = [&](const Emitter& emitter) {
                return emitter.name.compare(channel.trimmed(), Qt::CaseInsensitive) == 0;
            };
            const auto place = std::find_if(m_emitters.begin(), m_emitters.end(), isIt);
            const int number = channel.toInt() - 1;
            const int index = place != m_emitters.end() ? static_cast<int>(place - m_emitters.begin()) : number;
            if (index < 0 || index >= m_emitters.size())
                return refuse(
                    FixtureImport::tr("There is no emitter \"%1\"; there are: %2").arg(channel, allListed(m_emitters)));
            if (found.contains(index))
                return refuse(FixtureImport::tr("The emitter \"%1\" is stated twice").arg(channel));
            found.append(index);
        }
        return take(found);
    }

private:
    FixtureImport::Assignment refuse(const QString& error)
    {
        m_result = {};
        m_result.error = error;
        return m_result;
    }

    QString roleNames() const
    {
        QStringList names;
        for (const Role role : m_roles)
            names << QLatin1String(rowOf(role).name);
        return names.join(QStringLiteral(", "));
    }

    /// Another channel of the fixture whose very name it is.
    bool isNamedForAnother(int emitter, const RoleRow& row) const
    {
        return std::any_of(m_roles.begin(), m_roles.end(), [&](Role other) {
            return other != row.role && fit(m_emitters.at(emitter).name, rowOf(other)) == 2;
        });
    }

    /// False, with a refusal, when several have the name, or when the one that has it is of another colour.
    bool findByName(const RoleRow& row, int& found)
    {
        QVector<int> best;
        int bestFit = 1;
        for (int i = 0; i < m_emitters.size(); ++i) {
            const int fits = isNamedForAnother(i, row) ? 0 : fit(m_emitters.at(i).name, row);
            if (fits > bestFit)
                best.clear();
            bestFit = std::max(bestFit, fits);
            if (fits == bestFit)
                best.append(i);
        }
        if (best.isEmpty())
            return true;
        found = best.first();
        if (best.size() > 1) {
            refuse(FixtureImport::tr("Several emitters may be %1: %2")
                       .arg(QLatin1String(row.name), listed(m_emitters, best)));
            return false;
        }
        const Emitter& emitter = m_emitters.at(found);
        if (contradicts(emitter, row)) {
            const QPointF xy = emitter.light.xy();
            refuse(FixtureImport::tr("\"%1\" cannot be %2: its chromaticity is %3, %4")
                       .arg(emitter.name, QLatin1String(row.name), shown(xy.x()), shown(xy.y())));
            return false;
        }
        return true;
    }

    bool findByColor(const RoleRow& row, const QVector<int>& taken, int& found)
    {
        QVector<int> fitting;
        for (int i = 0; i < m_emitters.size(); ++i)
            if (!taken.contains(i) && hasColorOf(m_emitters.at(i), row))
                fitting.append(i);
        if (fitting.size() == 1) {
            found = fitting.first();
            m_result.remarks << FixtureImport::tr("\"%1\" is taken for %2 by its colour.")
                                    .arg(m_emitters.at(found).name, QLatin1String(row.name));
            return true;
        }
        const QString role = QLatin1String(row.name);
        refuse(fitting.isEmpty()
                   ? FixtureImport::tr("There is no emitter for %1; there are: %2").arg(role, allListed(m_emitters))
                   : FixtureImport::tr("Several emitters may be %1: %2").arg(role, listed(m_emitters, fitting)));
        return false;
    }

    FixtureImport::Assignment take(const QVector<int>& found)
    {
        for (const int i : found)
            m_result.channels.append(m_emitters.at(i));
        QVector<int> others;
        for (int i = 0; i < m_emitters.size(); ++i)
            if (!found.contains(i))
                others.append(i);
        if (!others.isEmpty())
            m_result.remarks << FixtureImport::tr("Not used: %1.").arg(listed(m_emitters, others));
        for (const Emitter& emitter : qAsConst(m_result.channels)) {
            const QPointF xy = emitter.light.xy();
            if (!ChromaticityDiagram::isReal(xy))
                m_result.remarks << FixtureImport::tr(
                                        "%1 is outside the spectral locus: no light has its chromaticity %2, %3.")
                                        .arg(emitter.name, shown(xy.x()), shown(xy.y()));
            if (emitter.light.X == 0.0 || emitter.light.Z == 0.0)
                m_result.remarks << FixtureImport::tr(
                                        "%1 has X or Z of 0: colours at its corner of the gamut cannot be matched.")
                                        .arg(emitter.name);
        }
        m_result.isComplete = true;
        return m_result;
    }

    const QVector<Emitter>& m_emitters;
    QVector<Role> m_roles;
    FixtureImport::Assignment m_result;
};

} // namespace

FixtureImport::Assignment FixtureImport::assign(const QVector<Emitter>& emitters,
                                                ColorUtils::TonematchProfileID profile, const QStringList& channels)
{
    const bool isKnown = ColorUtils::tonematchProfileIDList(true).contains(profile);
    const QVector<Role> roles =
        isKnown ? rolesOf(ColorUtils::nChannelConfigurationForTonematchProfileID(profile)) : QVector<Role>();
    if (roles.isEmpty()) {
        Assignment refused;
        refused.error =
            isKnown
                ? tr("%1 has no gamut: red, green and blue are needed").arg(ColorUtils::tonematchProfileIDName(profile))
                : tr("No fixture has the profile %1").arg(profile);
        return refused;
    }
    Search search(emitters, roles);
    return channels.isEmpty() ? search.byNamesAndColors() : search.stated(channels);
}
