#ifndef PALETTE_H
#define PALETTE_H

#include "LXColor.h"

#include <QString>
#include <QVector>

/// Lists of named colours apart from any library model: what palette files of all kinds are read into and written from.
struct Palette
{
    /// A colour with what is known about it.
    struct Entry
    {
        QString name;              ///< Any text; need not be unique.
        QString value;             ///< The value string of LXColor, kept to the letter.
        QString uid;               ///< Empty where none is known: whoever loads the colour gives it one.
        QString originatingPreset; ///< Where it was copied from: list, "/", name. Empty for nowhere.
        QString vendorId;          ///< The vendor's own name of the colour; may be empty.

        /// The colour of the value string; an invalid one, and a warning, where that cannot be read.
        LXColor color() const { return LXColor(value); }
    };

    /// A list, or group, of colours.
    struct List
    {
        QString name;             ///< Any text; need not be unique.
        bool isUserList = true;   ///< Whether users may edit it; false for presets and the lists of projects.
        QVector<Entry> entries{}; ///< In their order.
    };

    QVector<List> lists; ///< In their order; a list may be empty.

    /// The number of colours in all lists.
    int size() const
    {
        int count = 0;
        for (const List& list : lists)
            count += list.entries.size();
        return count;
    }
};

#endif
