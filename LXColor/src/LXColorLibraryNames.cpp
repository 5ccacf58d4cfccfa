// References to colours, and the names of colours and lists.

#include "LXColorLibrary.h"
#include "LXColorLibrary_p.h"
#include "SwatchIndex_p.h"

using lxcolor::SwatchText;

namespace {

constexpr QChar UidEnd = QLatin1Char('}');

} // namespace

QString LXColorLibrary::UidAndValueToUid(const QString& s) { return s.left(s.indexOf(UidEnd) + 1); }

QString LXColorLibrary::UidAndValueToValue(const QString& s)
{
    const int end = s.indexOf(UidEnd);
    return end > 0 ? s.mid(end + 1) : s;
}

QString LXColorLibrary::pathOfUid(QString uid) const
{
    const LXColorLibraryItem* entry = nodeOf(getIndexOfUid(uid));
    if (!entry)
        return {};
    return entry->parent()->displayName() + QLatin1Char('/') + getName(uid, DescriptorReference);
}

QString LXColorLibrary::getName(const QString& reference, ColorDescriptor d) const
{
    QString name;
    if (const LXColorLibraryItem* entry = nodeOf(getIndexOfUid(UidAndValueToUid(reference))))
        name = entry->displayName();
    else if (const LXColorLibraryItem* color = nodeOf(getIndexOfExplicitColor(UidAndValueToValue(reference))))
        name = color->getExplicitColorString();
    return name.isEmpty() ? getAlternativeColorDescriptor(reference, d) : name;
}

QString LXColorLibrary::getAlternativeColorDescriptor(QString reference, ColorDescriptor d) const
{
    switch (d) {
    case DescriptorReference:
        return reference;
    case DescriptorValueName: {
        const LXColor color(UidAndValueToValue(reference));
        return color.spec() == LXColor::NChannel ? color.nameFull8() : color.name8();
    }
    }
    return {};
}

QString LXColorLibrary::getExposableUidFromUid(QString uid)
{
    const LXColorLibraryItem* entry = nodeOf(getIndexOfUid(uid));
    if (!entry || entry->parent()->displayName() != lxcolor::ProjectSwatchesId)
        return uid;
    const QString origin = entry->orignatingPreset();
    const QModelIndex copy = getIndexOfOriginatingPreset(origin.isEmpty() ? pathOfUid(uid) : origin);
    if (const LXColorLibraryItem* known = nodeOf(copy))
        return known->getUid();
    return createNewSwatchUidFromUid(uid, lxcolor::ProjectSwatchesId);
}

QString LXColorLibrary::createNewSwatchUidFromUid(const QString& uid, const QString& listId)
{
    const LXColorLibraryItem* source = nodeOf(getIndexOfUid(uid));
    if (!source)
        return {};
    return createNamedColor(source->getLXColor(), source->displayName(), QString(), listId, pathOfUid(uid),
                            source->vendorID());
}

QString LXColorLibrary::getNewColorListName(const QString& name) const { return texts().freeName(name, m_rootItem); }
