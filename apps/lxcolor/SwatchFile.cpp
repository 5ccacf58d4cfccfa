#include "SwatchFile.h"

#include "CommandError.h"
#include "FileBytes.h"
#include "OrbisProjectHelper.h"
#include "PaletteFormat.h"

#include <QDomDocument>
#include <QXmlStreamReader>

namespace {

// A document model is built by functions that call themselves for each level.
constexpr int kDeepestElement = 256;
constexpr qint64 kLargestFile = 128 * 1024 * 1024; // bytes, as the library has it

CommandError fault(const QString& fileName, qint64 line, qint64 column, const QString& what)
{
    return CommandError(QStringLiteral("%1:%2:%3: %4")
                            .arg(printable(fileName), QString::number(line), QString::number(column), printable(what)));
}

/// Reads through the text once without keeping anything, so that what follows meets well-formed XML of a sane depth.
void checkXml(const QString& fileName, const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && ++depth > kDeepestElement)
            throw fault(fileName, reader.lineNumber(), reader.columnNumber(),
                        QStringLiteral("elements are nested deeper than %1 levels").arg(kDeepestElement));
        if (reader.isEndElement())
            --depth;
        if (reader.isEntityReference() || (reader.isDTD() && !reader.entityDeclarations().isEmpty()))
            throw fault(fileName, reader.lineNumber(), reader.columnNumber(),
                        QStringLiteral("entities are not supported"));
    }
    if (reader.hasError())
        throw fault(fileName, reader.lineNumber(), reader.columnNumber(), reader.errorString());
}

QDomDocument readDocument(const QString& fileName)
{
    const QByteArray bytes = readInput(fileName, kLargestFile);
    checkXml(inputName(fileName), bytes);
    QDomDocument document;
    QString what;
    int line = 0;
    int column = 0;
    QXmlStreamReader reader(bytes); // without one, references keep 16 bits of a character
    if (!document.setContent(&reader, true, &what, &line, &column))
        throw fault(inputName(fileName), line, column, what);
    return document;
}

} // namespace

QVector<SwatchList> readSwatchFile(const QString& fileName)
{
    QVector<SwatchList> lists;
    OrbisProjectHelper helper;
    QObject::connect(&helper, &OrbisProjectHelper::insertList, [&](const QString& name, bool isUserList) {
        lists.append({name, isUserList, {}});
    });
    QObject::connect(
        &helper, &OrbisProjectHelper::insertColor,
        [&](const QString& uid, const QString& name, const QString& valueString, const QString& originatingPreset,
            const QString& /*listId*/, const QString& vendorId) {
            lists.last().colors.append({name, uid, valueString, originatingPreset, vendorId, LXColor(valueString)});
        });
    QDomDocument document = readDocument(fileName);
    QString emptyLists;
    QStringList oldPresets;
    constexpr double kCurrentVersion = 1.0;
    helper.loadDocument(document, emptyLists, kCurrentVersion, oldPresets);
    return lists;
}

QByteArray standAloneDocument(const SwatchList& list)
{
    Palette palette{{{list.name, true, {}}}};
    for (const Swatch& swatch : list.colors)
        if (swatch.color.isValid())
            palette.lists.first().entries.append(
                {swatch.name, swatch.color.aName(), QString(), swatch.originatingPreset, swatch.vendorId});
    return PaletteFormat::write(palette, PaletteFormat::Id::Document).bytes;
}
