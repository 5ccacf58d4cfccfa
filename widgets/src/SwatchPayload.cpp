#include "LXColorLibrary.h"
#include "OrbisProjectHelper.h"
#include "SwatchPayload_p.h"

#include <QColor>
#include <QCoreApplication>
#include <QDataStream>
#include <QDomDocument>
#include <QMimeData>
#include <QRegularExpression>
#include <QRgba64>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstring>

namespace lxcolor {

namespace {

const QLatin1String EntriesFormat("application/x-lxcolor-entries");
const QLatin1String PresetFormat("data/x-lxcolor-originatingPreset");
const QLatin1String ColorFormat("application/x-color");
constexpr int LongestText = 1 << 16; // characters; more is no list of colours

QStringList textsOf(const QMimeData& data, const QString& format)
{
    return QString::fromLatin1(data.data(format)).split(QLatin1Char(','));
}

/// The entries of the value format: each is a uid in braces, if any, and a value string; neither need be there.
QStringList valuesOf(const QMimeData& data)
{
    static const QRegularExpression entry(QStringLiteral("(?:\\{[^}]*\\})?[^,]+"));
    QStringList values;
    auto matches = entry.globalMatch(QString::fromLatin1(data.data(QLatin1String(LXCOLOR_MIME_TYPE))));
    while (matches.hasNext())
        values << matches.next().captured();
    return values;
}

/// A colour as people and style sheets write it. QColor warns of names that it does not know, so they are not tried.
LXColor colorOfText(const QString& text)
{
    static const QRegularExpression value(QStringLiteral("^a(Rgb|Yxy|Nchannel);"));
    static const QRegularExpression digits(
        QStringLiteral("^#([0-9a-fA-F]{3}){1,4}$|^#[0-9a-fA-F]{8}([0-9a-fA-F]{8})?$"));
    const QString word = text.trimmed();
    if (word.contains(value) || (word.size() > 4 && word.contains(digits)))
        return LXColor(word);
    if (QColor::isValidColor(word))
        return LXColor(QColor(word));
    return {};
}

QStringList linesOf(const QMimeData& data)
{
    const QString text = data.hasText() ? data.text() : QString();
    return text.size() > LongestText ? QStringList() : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// A document with colour lists as text, such as LXColorLibrary::createColorDoc() makes.
bool isDocument(const QString& text)
{
    return text.size() <= LongestText && text.contains(QLatin1String("<ColorLibrary")) &&
           text.trimmed().startsWith(QLatin1Char('<'));
}

/// Document models are built by functions that call themselves, so depth is looked at before.
bool isWellFormed(const QString& text)
{
    constexpr int DeepestElement = 256;
    QXmlStreamReader reader(text);
    for (int depth = 0; !reader.atEnd() && depth <= DeepestElement;) {
        reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
    }
    return reader.atEnd() && !reader.hasError();
}

QVector<Swatch> swatchesOfDocument(const QString& text)
{
    QVector<Swatch> swatches;
    QDomDocument document;
    QXmlStreamReader reader(text); // without one, references keep 16 bits of a character
    if (!isDocument(text) || !isWellFormed(text) || !document.setContent(&reader, false))
        return swatches;
    OrbisProjectHelper helper;
    QObject::connect(&helper, &OrbisProjectHelper::insertColor,
                     [&](const QString&, const QString& name, const QString& value, const QString& originatingPreset,
                         const QString&, const QString& vendorId) {
                         const LXColor color = colorOfText(value);
                         if (color.isValid())
                             swatches.append({QString(), name, color, originatingPreset, vendorId});
                     });
    constexpr double CurrentVersion = 1.0;
    QString emptyLists;
    QStringList oldPresets;
    helper.loadDocument(document, emptyLists, CurrentVersion, oldPresets);
    return swatches;
}

LXColor colorOf(const QMimeData& data)
{
    QColor color = data.colorData().value<QColor>();
    const QByteArray bytes = data.data(ColorFormat);
    quint16 words[4];
    if (!color.isValid() && bytes.size() == int(sizeof words)) {
        std::memcpy(words, bytes.constData(), sizeof words);
        color = QColor(QRgba64::fromRgba64(words[0], words[1], words[2], words[3]));
    }
    if (!color.isValid())
        return {};
    const QRgba64 rgba = color.rgba64();
    return LXColor(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
}

/// Names and the like are of use only if there are as many as colours: commas in them cannot be told from the joints.
QStringList ifCountIs(int count, const QStringList& texts) { return texts.size() == count ? texts : QStringList(); }

QVector<Swatch> swatchesOfOwnFormat(const QMimeData& data, const LXColorLibrary& library)
{
    const QStringList values = valuesOf(data);
    const QStringList names = ifCountIs(values.size(), textsOf(data, QLatin1String(kLXCOLOR_NAME_MIME_TYPE)));
    const QStringList presets = ifCountIs(values.size(), textsOf(data, PresetFormat));
    const QStringList ids = ifCountIs(values.size(), textsOf(data, QLatin1String(kLXCOLOR_VENDOR_ID_MIME_TYPE)));
    QVector<Swatch> swatches;
    for (int i = 0; i < values.size(); ++i) {
        const QString uid = LXColorLibrary::UidAndValueToUid(values.at(i));
        const QModelIndex known = library.getIndexOfUid(uid);
        Swatch swatch;
        if (known.isValid()) { // Its name as it is, rather than as Latin-1 has it.
            swatch = swatchOf(known);
            swatch.originatingPreset = library.pathOfUid(uid);
        } else {
            swatch = {QString(), names.value(i), colorOfText(LXColorLibrary::UidAndValueToValue(values.at(i))),
                      presets.value(i), ids.value(i)};
        }
        swatch.uid.clear();
        if (swatch.color.isValid())
            swatches.append(swatch);
    }
    return swatches;
}

} // namespace

void completePayload(QMimeData* data, const QModelIndexList& entries)
{
    QStringList lines;
    QVector<QPair<QString, QString>> places;
    for (const QModelIndex& index : entries) {
        const Swatch swatch = swatchOf(index);
        lines << swatch.color.name8();
        places.append({index.parent().data(Qt::EditRole).toString(), swatch.uid});
    }
    if (entries.isEmpty())
        return;
    data->setText(lines.join(QLatin1Char('\n')));
    data->setColorData(swatchOf(entries.first()).color.getQColor(true));
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << QCoreApplication::applicationPid() << places;
    data->setData(EntriesFormat, bytes);
}

QVector<QPair<QString, QString>> entriesOfPayload(const QMimeData& data)
{
    qint64 process = 0;
    QVector<QPair<QString, QString>> places;
    const QByteArray bytes = data.data(EntriesFormat);
    QDataStream stream(bytes);
    stream >> process;
    if (stream.status() != QDataStream::Ok || process != QCoreApplication::applicationPid())
        return {};
    stream >> places;
    return places;
}

QVector<Swatch> swatchesOfPayload(const QMimeData& data, const LXColorLibrary& library)
{
    QVector<Swatch> swatches = swatchesOfOwnFormat(data, library);
    if (!swatches.isEmpty())
        return swatches;
    if (data.hasFormat(ColorFormat)) {
        const LXColor color = colorOf(data);
        if (color.isValid())
            return {{QString(), color.name8(), color, QString(), QString()}};
    }
    swatches = swatchesOfDocument(data.text());
    for (const QString& line : swatches.isEmpty() ? linesOf(data) : QStringList()) {
        const LXColor color = colorOfText(line);
        if (color.isValid())
            swatches.append({QString(), line.trimmed(), color, QString(), QString()});
    }
    return swatches;
}

bool mayHoldSwatches(const QMimeData& data)
{
    if (data.hasFormat(QLatin1String(LXCOLOR_MIME_TYPE)) || data.hasFormat(ColorFormat))
        return true;
    return colorOfText(linesOf(data).value(0)).isValid() || isDocument(data.text());
}

} // namespace lxcolor
