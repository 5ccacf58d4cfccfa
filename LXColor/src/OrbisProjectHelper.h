#ifndef ORBISPROJECTHELPER_H
#define ORBISPROJECTHELPER_H

#include "LXColorExport.h"

#include <QDomDocument>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

namespace lxcolor {
struct ColorSection;
}

/// The application whose documents hold colour lists; others are left alone.
inline constexpr char ORBIS_APPLICATION_ID[] = "Orbis";

/**
 * Writes a colour list as a "ColorLibrary" element, and reads the lists of a document by announcing each of them and
 * each of their colours to whoever is connected. It keeps nothing between calls.
 */
class LXCOLOR_EXPORT OrbisProjectHelper : public QObject
{
    Q_OBJECT

public:
    /// Without a parent.
    OrbisProjectHelper();

    /**
     * A "ColorLibrary" element with a "Color" element for each of \a uids and the texts of the same position of the
     * other lists. The caller sets its attributes and appends it. \a ok is not changed. Characters that XML cannot hold
     * are written as U+FFFD.
     */
    QDomElement createElement(QDomDocument& document, bool& ok, const QStringList& uids, const QStringList& names,
                              const QStringList& values, const QStringList& originatingPresets,
                              const QStringList& vendorIDs);
    /**
     * Announces every "ColorLibrary" element of \a document, at any depth, and its colours; always true. The list comes
     * under a name that is new to the library. A list without colours is announced and leaves a message in \a error.
     *
     * In a document of a \a version below 0.96 the uids of the first twelve colours of a nameless list are names of old
     * presets, and are appended to \a oldPresets as well.
     */
    bool loadDocument(QDomDocument& document, QString& error, double version, QStringList& oldPresets);

Q_SIGNALS:
    /// A colour of the list \a listId, as it is stored.
    void insertColor(QString uid, QString name, QString valueString, QString originatingPreset, const QString& listId,
                     const QString& vendorID);
    /// A list, before its colours.
    void insertList(const QString& listId, bool isUserLibrary);
    /// Never emitted.
    void foundOldPreset(const QString& name);

private:
    friend class LXColorLibrary;

    void announce(const QVector<lxcolor::ColorSection>& sections, QString& error, double version,
                  QStringList& oldPresets);
};

#endif
