#ifndef FUZZ_FUZZLIBRARY_H
#define FUZZ_FUZZLIBRARY_H

#include "FuzzInput.h"
#include "LXColorLibrary.h"

/// An entry of a list, as it is saved.
struct Entry
{
    QString uid, name, value, originatingPreset, vendorID;
    bool operator==(const Entry& other) const;
};

/// A list with those of its entries that have a uid.
struct List
{
    QString name;
    bool isUserList = false;
    QVector<Entry> entries;
};

LXColor colorOf(const QModelIndex& index);
Entry entryOf(const QModelIndex& index);
/// The lists of the library, without those of its own.
QVector<List> listsOf(const LXColorLibrary& library);
QVector<List> userListsOf(const LXColorLibrary& library);
QString textOf(const QVector<List>& lists);
/// Whether names, kinds and entries are the same.
bool areSame(const QVector<List>& a, const QVector<List>& b);

/// A name, uid or value: one of a few, so that they meet again, or anything.
QString anyText(FuzzInput& input);
/// The invalid index, the root, a list or an entry, in any column.
QModelIndex anyIndex(FuzzInput& input, const LXColorLibrary& library);

/// Whether \a index is an entry. Keys make a node an entry, so that lists and the root are to be left without.
bool isEntry(const QModelIndex& index, const LXColorLibrary& library);

/// A fresh library, with the user colour file loaded or without.
LXColorLibrary* freshLibrary(bool withUserColors);
QString userColorsPath();
/// Removes the user colour file and what is kept beside it.
void forgetUserColors();

#endif
