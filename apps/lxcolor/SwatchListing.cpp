#include "SwatchListing.h"

#include "CommandError.h"
#include "Output.h"
#include "Table.h"

#include <QJsonArray>

namespace {

QJsonObject toJson(const Swatch& swatch)
{
    QJsonObject object{
        {QStringLiteral("name"), swatch.name},         {QStringLiteral("uid"), swatch.uid},
        {QStringLiteral("value"), swatch.valueString}, {QStringLiteral("originatingPreset"), swatch.originatingPreset},
        {QStringLiteral("vendorId"), swatch.vendorId}, {QStringLiteral("readable"), swatch.color.isValid()}};
    if (swatch.color.isValid())
        object.insert(QStringLiteral("rgb"), swatch.color.name8());
    return object;
}

} // namespace

QJsonObject toJson(const QString& fileName, const SwatchList& list)
{
    QJsonArray colors;
    for (const Swatch& swatch : list.colors)
        colors.append(toJson(swatch));
    return {{QStringLiteral("file"), fileName},
            {QStringLiteral("list"), list.name},
            {QStringLiteral("userList"), list.isUserList},
            {QStringLiteral("colors"), colors}};
}

void writeTable(const QString& fileName, const SwatchList& list, bool swatches)
{
    writeLine(QStringLiteral("%1: %2 (%3, %4)")
                  .arg(printable(fileName), printable(list.name),
                       list.isUserList ? QStringLiteral("user list") : QStringLiteral("preset or project list"),
                       counted(list.colors.size(), "colour", "colours")));
    const Table table({QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")}, 3, swatches);
    if (!list.colors.isEmpty())
        table.writeHeads();
    for (const Swatch& swatch : list.colors) {
        const LXColor rgb = swatch.color.toRgb16(true);
        QStringList cells;
        for (const int value : {rgb.red8(), rgb.green8(), rgb.blue8()})
            cells << (swatch.color.isValid() ? QString::number(value) : QStringLiteral("-"));
        QString text = printable(swatch.name) + QStringLiteral("  ") + printable(swatch.valueString);
        if (!swatch.color.isValid())
            text += QStringLiteral("  (no colour; left out on loading)");
        table.writeRow(cells, GivenColor{text, QString(), swatch.color});
    }
}
