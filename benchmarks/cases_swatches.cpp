// The swatch library as it grows, beside what a user would write instead: a QStandardItemModel with a hash of uids,
// saved and loaded with Qt's XML streams. "DOM alone" is QDomDocument without any library around it.
#include "LXColorLibrary.h"
#include "Suite.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QEvent>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QStandardItemModel>
#include <QTemporaryFile>
#include <QUuid>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <random>

using benchmark::DoNotOptimize;

namespace {

const QString kSwatches = QStringLiteral("Swatches, a colour");
const QString kList = QStringLiteral("Gels");
const QString kPeer = QStringLiteral("items and hash");
const QString kDom = QStringLiteral("DOM alone");

struct Swatch
{
    QString uid;
    QString name;
    LXColor color;
};

std::vector<Swatch> makeSwatches(int count)
{
    std::mt19937 random(1);
    std::vector<Swatch> swatches;
    swatches.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto channel = [&] { return static_cast<int>(random() % 256); };
        swatches.push_back({QUuid::createUuid().toString(), QStringLiteral("Gel %1").arg(i),
                            LXColor::fromRgb8(channel(), channel(), channel(), 255, ColorUtils::ProfileGenericRGB)});
    }
    return swatches;
}

std::vector<QString> shuffledUids(const std::vector<Swatch>& swatches)
{
    std::vector<QString> uids;
    for (const Swatch& swatch : swatches)
        uids.push_back(swatch.uid);
    std::shuffle(uids.begin(), uids.end(), std::mt19937(2));
    return uids;
}

/// The library of the process. One at a time: the contenders of a case that use it take turns.
class Library
{
public:
    static LXColorLibrary* fresh()
    {
        LXColorLibrary::cleanup();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        LXColorLibrary* library = LXColorLibrary::Instance();
        library->init(true, true, true);
        library->loadUserColors(QString());
        library->setEditingMultipleColors(true);
        library->clear(kList);
        if (!library->getIndexOfListId(kList).isValid())
            library->createColorList(kList, true);
        return library;
    }
    static void fill(const std::vector<Swatch>& swatches)
    {
        for (const Swatch& swatch : swatches)
            LXColorLibrary::Instance()->createColorWithName(swatch.color, swatch.name, swatch.uid, kList, QString());
    }
    static void save() { LXColorLibrary::Instance()->setEditingMultipleColors(false); }
    static QString userFile() { return LXColorLibrary::applicationSupportDir() + QLatin1String("\\userColors.xml"); }
};

// ---- The peer ----

class ItemsAndHash
{
public:
    QStandardItem* list(const QString& name)
    {
        auto* item = new QStandardItem(name);
        model.appendRow(item);
        return item;
    }
    void add(QStandardItem* list, const Swatch& swatch)
    {
        auto* item = new QStandardItem(swatch.name);
        item->setData(swatch.uid, LXColorLibraryItem::UidRole);
        item->setData(swatch.color.aName(), Qt::UserRole);
        list->appendRow(item);
        byUid.insert(swatch.uid, item);
    }
    void fill(const std::vector<Swatch>& swatches)
    {
        QStandardItem* gels = list(kList);
        for (const Swatch& swatch : swatches)
            add(gels, swatch);
    }
    void clear()
    {
        model.clear();
        byUid.clear();
    }
    void save(const QString& path) const
    {
        QSaveFile file(path);
        file.open(QIODevice::WriteOnly);
        QXmlStreamWriter xml(&file);
        xml.setAutoFormatting(true);
        xml.setAutoFormattingIndent(1);
        xml.writeStartElement(QStringLiteral("ColorLibraryList"));
        for (int i = 0; i < model.rowCount(); ++i) {
            const QStandardItem* list = model.item(i);
            xml.writeStartElement(QStringLiteral("ColorLibrary"));
            xml.writeAttribute(QStringLiteral("name"), list->text());
            xml.writeAttribute(QStringLiteral("isUserLibrary"), QStringLiteral("1"));
            for (int j = 0; j < list->rowCount(); ++j) {
                const QStandardItem* item = list->child(j);
                xml.writeEmptyElement(QStringLiteral("Color"));
                xml.writeAttribute(QStringLiteral("name"), item->text());
                xml.writeAttribute(QStringLiteral("uid"), item->data(LXColorLibraryItem::UidRole).toString());
                xml.writeAttribute(QStringLiteral("value"), item->data(Qt::UserRole).toString());
                xml.writeAttribute(QStringLiteral("originatingPreset"), QString());
                xml.writeAttribute(QStringLiteral("colorId"), QString());
            }
            xml.writeEndElement();
        }
        xml.writeEndElement();
        file.commit();
    }
    void load(const QString& path)
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QXmlStreamReader xml(&file);
        QStandardItem* current = nullptr;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            const QXmlStreamAttributes attributes = xml.attributes();
            if (xml.name() == QLatin1String("ColorLibrary"))
                current = list(attributes.value(QLatin1String("name")).toString());
            else if (current && xml.name() == QLatin1String("Color"))
                add(current, {attributes.value(QLatin1String("uid")).toString(),
                              attributes.value(QLatin1String("name")).toString(),
                              LXColor(attributes.value(QLatin1String("value")).toString())});
        }
    }

    QStandardItemModel model;
    QHash<QString, QStandardItem*> byUid;
};

// ---- What they share: swatches of one size, a place for the peer's file, and the peer ----

struct Bench
{
    explicit Bench(int count) : swatches(makeSwatches(count)), uids(shuffledUids(swatches)) { file.open(); }

    std::vector<Swatch> swatches;
    std::vector<QString> uids;
    ItemsAndHash peer;
    QTemporaryFile file;
    int renamed = 0;
};
using Step = std::function<void(Bench&)>;

Contender step(const QString& name, int count, const Step& setUp, const Step& prepare, const Step& run)
{
    return {name, [=] {
                const auto bench = std::make_shared<Bench>(count);
                setUp(*bench);
                Work work;
                work.run = [=](qint64 times) {
                    for (; times > 0; --times)
                        run(*bench);
                };
                if (prepare)
                    work.prepare = [=] { prepare(*bench); };
                return work;
            }};
}

void nothing(Bench&) {}
void fillLibrary(Bench& bench)
{
    Library::fresh();
    Library::fill(bench.swatches);
}
void saveLibrary(Bench& bench)
{
    fillLibrary(bench);
    Library::save();
}
void emptyPeer(Bench& bench) { bench.peer.clear(); }
void fillPeer(Bench& bench)
{
    bench.peer.clear();
    bench.peer.fill(bench.swatches);
}
void savePeer(Bench& bench)
{
    fillPeer(bench);
    bench.peer.save(bench.file.fileName());
}
QDomDocument read(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QDomDocument document;
    document.setContent(&file, true);
    return document;
}

} // namespace

void addSwatchCases(Cases& cases)
{
    for (const int count : {1000, 10000, 100000}) {
        const auto add = [&](const char* work, std::vector<Contender> contenders) {
            const QString series = QString::fromLatin1(work);
            cases.push_back({kSwatches, QStringLiteral("%1, colours: %2").arg(series).arg(count), std::move(contenders),
                             count, series});
        };
        add("build", {step(
                          kLibrary, count, nothing, [](Bench&) { Library::fresh(); },
                          [](Bench& b) { Library::fill(b.swatches); }),
                      step(kPeer, count, nothing, emptyPeer, [](Bench& b) { b.peer.fill(b.swatches); })});
        add("find by uid", {step(kLibrary, count, fillLibrary, nullptr,
                                 [](Bench& b) {
                                     for (const QString& uid : b.uids)
                                         DoNotOptimize(LXColorLibrary::Instance()->getIndexOfUid(uid).isValid());
                                 }),
                            step(kPeer, count, fillPeer, nullptr, [](Bench& b) {
                                for (const QString& uid : b.uids)
                                    DoNotOptimize(b.peer.byUid.value(uid));
                            })});
        add("rename, not saved",
            {step(kLibrary, count, fillLibrary, nullptr,
                  [](Bench& b) {
                      for (const QString& uid : b.uids)
                          LXColorLibrary::Instance()->rename(uid, QStringLiteral("Renamed %1").arg(b.renamed++), true);
                  }),
             step(kPeer, count, fillPeer, nullptr, [](Bench& b) {
                 for (const QString& uid : b.uids)
                     b.peer.byUid.value(uid)->setText(QStringLiteral("Renamed %1").arg(b.renamed++));
             })});
        const auto document = std::make_shared<QDomDocument>();
        add("save", {step(kLibrary, count, nothing, fillLibrary, [](Bench&) { Library::save(); }),
                     step(kPeer, count, fillPeer, nullptr, [](Bench& b) { b.peer.save(b.file.fileName()); }),
                     step(
                         kDom, count,
                         [document](Bench& b) {
                             savePeer(b);
                             *document = read(b.file.fileName());
                         },
                         nullptr, [document](Bench&) { DoNotOptimize(document->toString(1)); })});
        add("load", {step(
                         kLibrary, count, saveLibrary,
                         [](Bench&) {
                             LXColorLibrary::cleanup();
                             QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                             LXColorLibrary::Instance()->init(true, true, true);
                         },
                         [](Bench&) { LXColorLibrary::Instance()->loadUserColors(QString()); }),
                     step(kPeer, count, savePeer, emptyPeer, [](Bench& b) { b.peer.load(b.file.fileName()); }),
                     step(kDom, count, savePeer, nullptr, [](Bench& b) { DoNotOptimize(read(b.file.fileName())); })});
    }
}
