#include "Kelvin.h"

#include "CCTUtils.h"
#include "CommandError.h"

#include <QRegularExpression>

#include <iterator>

bool isKelvin(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A[0-9]+[Kk]\\z"));
    return form.match(text).hasMatch();
}

int kelvinOf(const QString& text)
{
    bool isNumber = false;
    const int cct = (isKelvin(text) ? text.chopped(1) : text).toInt(&isNumber);
    if (isNumber && CCTUtils::isValidCCT(cct))
        return cct;
    throw CommandError(
        QStringLiteral("%1 is not a CCT; accepted: whole numbers of kelvin from %2 to %3")
            .arg(quoted(text), QString::number(CCTUtils::getMinCCT()), QString::number(CCTUtils::getMaxCCT())));
}

int gridKelvin(int cct)
{
    const int count = static_cast<int>(std::size(CCTUtils::m_cctRegionTable));
    int region = 0;
    while (region < count - 1 && !CCTUtils::cctIsInRegion(cct, region))
        ++region;
    const CCTRegion& row = CCTUtils::m_cctRegionTable[region];
    return row.minCCT + row.stepCCT * CCTUtils::getNumCCTStepsFromCCT(region, cct);
}
