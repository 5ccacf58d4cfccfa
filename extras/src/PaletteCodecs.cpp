#include "PaletteCodecs_p.h"

#include <QJsonDocument>
#include <QTextCodec>

#include <algorithm>
#include <utility>

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

const QLatin1String kColorMark("lxcolor ");
const QLatin1String kListMark("lxcolor-list ");

const QString kName = QStringLiteral("name");
const QString kUserList = QStringLiteral("userList");
const QString kShownName = QStringLiteral("shownName");
const QString kShown = QStringLiteral("shown");
const QString kValue = QStringLiteral("value");
const QString kUid = QStringLiteral("uid");
const QString kOrigin = QStringLiteral("originatingPreset");
const QString kVendorId = QStringLiteral("vendorId");

QString comment(QLatin1String mark, const QJsonObject& object)
{
    return mark + QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonObject objectOf(const QString& text, QLatin1String mark)
{
    return QJsonDocument::fromJson(text.mid(mark.size()).toUtf8()).object();
}

} // namespace

TextPlace placeAt(const QString& text, int offset)
{
    const QStringRef before = text.leftRef(offset);
    return {before.count(QLatin1Char('\n')) + 1, offset - before.lastIndexOf(QLatin1Char('\n'))};
}

void PaletteBuilder::beginList(const QString& name, bool isUserList)
{
    if (m_palette.lists.size() >= PaletteFormat::mostColors)
        throw InputFault{PaletteFormat::tr("There are more than %1 lists").arg(PaletteFormat::mostColors)};
    m_palette.lists.append({name, isUserList, {}});
    m_list = m_palette.lists.size() - 1;
    m_isInList = true;
}

void PaletteBuilder::goToList(const QString& name, bool isUserList)
{
    const auto found = m_listsByName.constFind(name);
    if (found == m_listsByName.constEnd()) {
        beginList(name, isUserList);
        m_listsByName.insert(name, m_list);
    } else {
        m_list = *found;
    }
}

void PaletteBuilder::add(const Palette::Entry& entry)
{
    if (++m_size > PaletteFormat::mostColors)
        throw InputFault{PaletteFormat::tr("There are more than %1 colours").arg(PaletteFormat::mostColors)};
    if (!entry.color().isValid())
        return m_remarks.add(Code::UnreadableValue);
    if (!m_isInList && m_looseList < 0) {
        m_palette.lists.append({m_listName, true, {}});
        m_looseList = m_palette.lists.size() - 1;
    }
    m_palette.lists[m_isInList ? m_list : m_looseList].entries.append(entry);
}

QString decodedText(const QByteArray& bytes, bool& isGuessed)
{
    QTextCodec* codec = QTextCodec::codecForUtfText(bytes, QTextCodec::codecForName("UTF-8"));
    QTextCodec::ConverterState state;
    QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    isGuessed = state.invalidChars > 0 || state.remainingChars > 0;
    return isGuessed ? QTextCodec::codecForName("windows-1252")->toUnicode(bytes) : text;
}

QString decodedText(const QByteArray& bytes, PaletteRemarks& remarks)
{
    bool isGuessed = false;
    QString text = decodedText(bytes, isGuessed);
    remarks.add(Code::Encoding, isGuessed ? 1 : 0);
    return text;
}

QString listComment(const Palette::List& list)
{
    return comment(kListMark, {{kName, list.name}, {kUserList, list.isUserList}});
}

QString colorComment(const Palette::Entry& entry, const QString& shownName, const QString& shownColor)
{
    QJsonObject object{{kValue, entry.value}, {kShown, shownColor}};
    if (entry.name != shownName) {
        object.insert(kName, entry.name);
        object.insert(kShownName, shownName);
    }
    const struct
    {
        const QString& key;
        const QString& text;
    } others[] = {{kUid, entry.uid}, {kOrigin, entry.originatingPreset}, {kVendorId, entry.vendorId}};
    for (const auto& other : others)
        if (!other.text.isEmpty())
            object.insert(other.key, other.text);
    return comment(kColorMark, object);
}

bool CommentReader::take(const QString& comment)
{
    if (comment.startsWith(kListMark)) {
        dropPending();
        const QJsonObject object = objectOf(comment, kListMark);
        const QString name = object.value(kName).toString();
        const QString shownName = std::exchange(m_shownListName, QString());
        const bool isEdited = !shownName.isEmpty() && shownName != onOneLine(name);
        if (object.value(kName).isString() && object.value(kUserList).isBool())
            m_builder.beginList(isEdited ? shownName : name, object.value(kUserList).toBool());
        else
            m_builder.remarks().add(Code::Comment);
        return true;
    }
    if (!comment.startsWith(kColorMark))
        return false;
    dropPending();
    m_pending = objectOf(comment, kColorMark);
    if (m_pending.isEmpty())
        m_builder.remarks().add(Code::Comment);
    return true;
}

void CommentReader::addColor(const QString& shownName, const QString& shownColor, const LXColor& color)
{
    const QJsonObject known = m_pending;
    m_pending = QJsonObject();
    Palette::Entry entry{shownName, color.aName(), {}, {}, {}};
    if (known.isEmpty())
        return m_builder.add(entry);
    if (known.contains(kName) && known.value(kShownName).toString() == shownName)
        entry.name = known.value(kName).toString();
    entry.uid = known.value(kUid).toString();
    entry.originatingPreset = known.value(kOrigin).toString();
    entry.vendorId = known.value(kVendorId).toString();
    const QString value = known.value(kValue).toString();
    if (known.value(kShown).toString() != shownColor)
        m_builder.remarks().add(Code::Edited);
    else if (LXColor(value).isValid())
        entry.value = value;
    else
        m_builder.remarks().add(Code::Comment);
    m_builder.add(entry);
}

void CommentReader::finish() { dropPending(); }

void CommentReader::dropPending()
{
    if (!m_pending.isEmpty())
        m_builder.remarks().add(Code::Comment);
    m_pending = QJsonObject();
}

LXColor rgbOf(const Palette::Entry& entry) { return entry.color().toRgb16(true); }

QString onOneLine(const QString& text)
{
    QString line = text;
    std::replace_if(
        line.begin(), line.end(),
        [](QChar c) {
            return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        },
        QChar(QLatin1Char(' ')));
    return line.trimmed();
}

} // namespace lxcolor
