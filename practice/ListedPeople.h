#pragma once

#include "practice/OtherSearch.h"
#include "practice/Reply.h"
#include "practice/SpecialNames.h"

#include <QStringList>

namespace Practice {
// People of one name. A statewide search that finds several lists them, each with what tells them
// apart, and leaves it to the user whose cases are wanted.

/// What the names DUPES and MIXED bring in a statewide search. With addresses, each person comes
/// with a number and a place, and without a note.
void SayListedPeople(SpecialSearch meaning, const OtherSearch &search, bool withAddresses,
                     Reply &reply);

/// What follows "WADISCIS" in a request for the cases of a listed person: SEARCH, what was searched
/// for, the person's name, the seven other cells of the list as they were shown, the row's number,
/// and "SNCINMD"; or with addresses SEARCH, what was searched for, the name, sex, date of birth,
/// the person's number, the second part of it, and "DNDND".
inline constexpr qsizetype listedFields = 12;
inline constexpr qsizetype listedAddressFields = 8;

/// Who is meant by such fields: the person's place in the list; nullopt when nobody was listed so.
std::optional<qint64> FindListed(const QStringList &fields, bool withAddresses);

/// Case `number`, from 0, of that person.
OtherHit ListedCase(const QString &name, qint64 place, int number, const OtherSearch &search);

/// The cases of that person, who is called `name`; `search` says in which courts and how a row
/// looks.
void SayListedCases(const QString &name, qint64 place, const OtherSearch &search, Reply &reply);

/// How many people the names list, without and at most with a number as the first name.
inline constexpr qint64 listedPeople = 5;
inline constexpr qint64 mostListedPeople = 90;

/// How many cases the listed person in this place has.
constexpr int ListedCases(qint64 place)
{
    return 1 + static_cast<int>(place % 3);
}
} // namespace Practice
