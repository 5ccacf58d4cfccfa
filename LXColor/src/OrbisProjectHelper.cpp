#include "OrbisProjectHelper.h"

#include "ColorSection_p.h"
#include "LibraryServices_p.h"

#include <QDomDocument>

namespace {

constexpr double FirstVersionWithoutOldPresets = 0.96;
constexpr int OldPresetCount = 12;

QString newListName(const QString& name)
{
    const auto newColorListName = lxcolor::libraryServices().newColorListName;
    return newColorListName ? newColorListName(name) : name;
}

} // namespace

OrbisProjectHelper::OrbisProjectHelper() = default;

QDomElement OrbisProjectHelper::createElement(QDomDocument& document, bool&, const QStringList& uids,
                                              const QStringList& names, const QStringList& values,
                                              const QStringList& originatingPresets, const QStringList& vendorIDs)
{
    QDomElement list = document.createElement(lxcolor::ListTag);
    for (int i = 0; i < uids.size(); ++i)
        lxcolor::appendColor(
            document, list,
            {uids.at(i), names.value(i), values.value(i), originatingPresets.value(i), vendorIDs.value(i)});
    return list;
}

bool OrbisProjectHelper::loadDocument(QDomDocument& document, QString& error, double version, QStringList& oldPresets)
{
    announce(lxcolor::readColorSections(document), error, version, oldPresets);
    return true;
}

void OrbisProjectHelper::announce(const QVector<lxcolor::ColorSection>& sections, QString& error, double version,
                                  QStringList& oldPresets)
{
    for (const lxcolor::ColorSection& section : sections) {
        const bool mayHoldOldPresets = section.name.isEmpty() && version < FirstVersionWithoutOldPresets;
        const QString listId = newListName(section.name);
        Q_EMIT insertList(listId, section.isUserList);
        if (section.colors.isEmpty())
            error = QObject::tr("Found NULL LXColorLibrary element");

        int position = 0;
        for (const lxcolor::StoredColor& color : section.colors) {
            Q_EMIT insertColor(color.uid, color.name, color.value, color.originatingPreset, listId, color.vendorID);
            if (mayHoldOldPresets && position++ < OldPresetCount)
                oldPresets.append(color.uid);
        }
    }
}
