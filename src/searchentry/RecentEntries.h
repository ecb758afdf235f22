#pragma once

#include "searchentry/SearchEntry.h"

#include <QString>
#include <QStringList>

#include <array>

// The latest names, numbers and client codes: a text file for each kind in the application folder,
// an entry a line, the newest on top.

/// How many entries a list holds: the new one and thirty before it.
constexpr qsizetype longestMruList = 31;

/// The lists of the three search types.
struct MruLists
{
    QStringList Persons;
    QStringList Businesses;
    QStringList Numbers;

    /// The list of "Individual Name", "Business Name" or "Case Number"; any other type has none.
    QStringList Of(const QString &searchType) const;
};

/// Reads the three lists. Empty lines are passed over; a file that is missing or cannot be read is
/// logged and gives an empty list.
MruLists LoadMruLists();

/// Puts the text, trimmed, on top of its type's list. It is not compared with what is there: the
/// caller has done that with IsInMruList. Throws error 53 when the type has no file, and 75 when
/// the file cannot be read or written; the old list is whole then.
void AddToMruList(const QString &searchType, const QString &text);

/// The client codes, read as LoadMruLists reads its lists.
QStringList LoadAcctgMru();

/// Puts a client code, trimmed, on top of the list of codes. One that stands there already, in
/// whatever case, moves up: the same code goes with every search of a day, and would drive all
/// others out. An empty code is nothing to remember. Throws as AddToMruList does.
void AddAcctgToMru(const QString &code);

/// Reads each of the four files and writes it back as the lists show it: trimmed, without empty
/// lines, not longer than a list can be. A file that is missing stays so; one that cannot be
/// written is logged and left as it is.
void TrimMruFiles();

/// A person as it is remembered: last name, first name and initial, those that are entered, joined
/// with ", ".
QString MruPersonName(const std::array<QString, 4> &names);

/// What of a search is remembered: the person, otherwise the first box.
QString MruText(const SearchEntry &entry);

/// True when one of the items, trimmed, is the text, without regard to case.
bool IsInMruList(const QStringList &items, const QString &text);

/// The recent entries that the search form offers.
struct ShownRecents
{
    QString Type; ///< the search type that they are of
    QStringList Entries;
};

/// Puts what was searched for on top of its list, unless it is among the entries that the form
/// shows; they have it then. An entry of another type than the form shows, as a business has that
/// is searched for in bankruptcy, is looked for in its own list, too. Throws as AddToMruList does.
void RememberEntry(const QString &searchType, const QString &text, ShownRecents &shown);

/// A remembered person as last name, first name and initial; a part that is missing is empty.
std::array<QString, 3> MruNameParts(const QString &item);
