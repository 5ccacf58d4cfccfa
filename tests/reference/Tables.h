#ifndef REFERENCE_TABLES_H
#define REFERENCE_TABLES_H

#include "ColorUtils.h"

#include <QMap>
#include <QPair>
#include <QVector>

// What is built into the library, written down a second time: the data of the reference model.
namespace reference {

using ProfileId = ColorUtils::TonematchProfileID;
using Configuration = ColorUtils::ChannelConfiguration;
using Mode = ColorUtils::IOModeID;
using Matching = ColorUtils::ToneMatchMode;

struct Layout
{
    QString name;
    int channels;
};
/// The layouts 0..6.
const QVector<Layout>& layouts();
const Layout& layout(int configuration);

struct IoMode
{
    QString name;
    bool is3toN, isNtoN;
    Configuration input;
    QList<Matching> matching;
};
/// The modes 0..9.
const QVector<IoMode>& ioModes();
/// The mode of a number, mode 0 for one that has none.
const IoMode& ioMode(int mode);

struct Profile
{
    QString name;
    Configuration configuration;
    int curve;
    QList<Mode> modes;
    Mode defaultMode, defaultMode3toN;
    QMap<Mode, bool> matching;
};
/// The profiles 0..9.
const QVector<Profile>& profiles();
/// The profile of an id, profile 0 for one that has none.
const Profile& profile(int id);

struct Emitter
{
    QString name;
    double X, Y, Z;
};
/// The built-in emitters of an effective id; the generic ones for an id without data.
QVector<Emitter> builtInEmitters(int effectiveId);
/// Whose emitters a colour of a profile and configuration is read with.
int effectiveId(ProfileId id, Configuration configuration);

/// The 256 points of the software curves 1 and 2.
const QVector<int>& curvePoints(int curveType);

} // namespace reference

#endif
