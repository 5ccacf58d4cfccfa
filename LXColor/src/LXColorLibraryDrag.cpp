// Drags from the library, and selections as documents of their own.

#include "ColorSection_p.h"
#include "LXColorLibrary.h"
#include "OrbisProjectHelper.h"

#include <QDomDocument>
#include <QMimeData>
#include <QSet>

namespace {

const QLatin1String OriginatingPresetMimeType("data/x-lxcolor-originatingPreset");
const QLatin1String ApplicationColorMimeType("x-orbis/color");
constexpr QChar Separator = QLatin1Char(',');

void setTexts(QMimeData* data, const QString& format, const QStringList& texts)
{
    const QString joined = texts.join(Separator);
    if (!joined.isEmpty())
        data->setData(format, joined.toLatin1());
}

} // namespace

// A row that is selected in several columns counts once, in the place of its first column.
QVector<const LXColorLibraryItem*> LXColorLibrary::selectedRows(const QModelIndexList& indexes) const
{
    QSet<const LXColorLibraryItem*> counted;
    for (const QModelIndex& index : indexes) {
        if (index.column() == 0)
            counted.insert(nodeOf(index));
    }

    QVector<const LXColorLibraryItem*> rows;
    for (const QModelIndex& index : indexes) {
        const LXColorLibraryItem* node = nodeOf(index);
        if (!node || (index.column() > 0 && counted.contains(node)))
            continue;
        counted.insert(node);
        rows.append(node);
    }
    return rows;
}

QStringList LXColorLibrary::mimeTypes() const { return m_rootItem->mimeTypes(); }

QMimeData* LXColorLibrary::mimeData(const QModelIndexList& indexes) const
{
    QStringList values, names, originatingPresets, vendorIDs;
    for (const LXColorLibraryItem* node : selectedRows(indexes)) {
        values << node->m_uid + node->m_color.aName();
        names << node->m_displayName;
        originatingPresets << node->m_originatingPreset;
        vendorIDs << node->m_vendorID;
    }
    auto* data = new QMimeData;
    setTexts(data, LXCOLOR_MIME_TYPE, values);
    setTexts(data, kLXCOLOR_NAME_MIME_TYPE, names);
    setTexts(data, OriginatingPresetMimeType, originatingPresets);
    setTexts(data, kLXCOLOR_VENDOR_ID_MIME_TYPE, vendorIDs);
    return data;
}

QString LXColorLibrary::getOriginatingPresetFromMimeData(const QMimeData* data)
{
    if (!data || !data->hasFormat(ApplicationColorMimeType))
        return {};
    const QByteArray presets = data->data(OriginatingPresetMimeType);
    return QString::fromUtf8(presets.constData()).section(Separator, 0, 0); // Up to the first zero byte.
}

QDomDocument LXColorLibrary::createColorDoc(const QModelIndexList& indexes, const QString& name)
{
    QStringList uids, names, values, originatingPresets, vendorIDs;
    for (const LXColorLibraryItem* node : selectedRows(indexes)) {
        if (node->m_uid.isEmpty())
            continue;
        uids << QString();
        names << node->m_displayName;
        values << node->m_color.aName();
        originatingPresets << node->m_originatingPreset;
        vendorIDs << node->m_vendorID;
    }
    QDomDocument document;
    bool ok = false;
    OrbisProjectHelper helper;
    QDomElement list = helper.createElement(document, ok, uids, names, values, originatingPresets, vendorIDs);
    lxcolor::setListAttributes(list, name, true);
    document.appendChild(list);
    return document;
}
