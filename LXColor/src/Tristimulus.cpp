#include "Tristimulus.h"

#include "EmitterMix_p.h"
#include "GamutGeometry_p.h"
#include "GamutTriangle_p.h"

#include <algorithm>

double length_squared(QPointF a, QPointF b) { return lxcolor::lengthSquared(a, b); }

double distance(QPointF a, QPointF b) { return lxcolor::distanceBetween(a, b); }

double dot(QPointF a, QPointF b) { return lxcolor::dotProduct(a, b); }

Tristimulus::Tristimulus(ColorUtils::TonematchProfileID profile) : m_profileID(profile) {}

ColorUtils::TonematchProfileID Tristimulus::profileID() const { return m_profileID; }

QVector<double>& Tristimulus::getX() { return m_X; }

QVector<double>& Tristimulus::getY() { return m_Y; }

QVector<double>& Tristimulus::getZ() { return m_Z; }

void Tristimulus::setX(QVector<double> x) { m_X = x; }

void Tristimulus::setY(QVector<double> y) { m_Y = y; }

void Tristimulus::setZ(QVector<double> z) { m_Z = z; }

void Tristimulus::setChannelNames(QStringList names) { m_channelNames = names; }

QStringList Tristimulus::getChannelNames() const { return m_channelNames; }

int Tristimulus::numChannels() const { return m_channelNames.size(); }

void Tristimulus::calculatePolygon()
{
    // Red, green and blue; further emitters never widen the gamut.
    const int count = std::min({m_X.size(), m_Y.size(), m_Z.size()});
    lxcolor::GamutTriangle::Corners corners;
    for (int i = 0; i < std::min(count, static_cast<int>(corners.size())); ++i) {
        const lxcolor::Chromaticity corner = lxcolor::chromaticityOf(m_X.at(i), m_Y.at(i), m_Z.at(i));
        corners[static_cast<size_t>(i)] = QPointF(corner.x, corner.y);
    }
    m_gamut = std::make_shared<const lxcolor::GamutTriangle>(corners);
}

bool Tristimulus::inside(double x, double y) { return m_gamut && m_gamut->contains(QPointF(x, y)); }

bool Tristimulus::closestPtOnGamut(double x, double y, double& outX, double& outY)
{
    const bool isInside = inside(x, y);
    if (!m_gamut)
        return false;
    const QPointF closest = isInside ? QPointF(x, y) : m_gamut->closestOnBoundary(QPointF(x, y));
    outX = closest.x();
    outY = closest.y();
    return isInside;
}

void Tristimulus::moveIntoGamut(lxcolor::Yxy* lights, int count) const
{
    if (m_gamut)
        m_gamut->moveInside(lights, count);
}
