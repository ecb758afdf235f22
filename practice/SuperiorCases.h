#pragma once

#include "practice/CourtTables.h"
#include "practice/Population.h"
#include "practice/SearchFields.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace Practice {
/// What a search of the Superior Courts asks for, of their own or of their weekly index.
struct SuperiorQuery
{
    NameQuery name;
    std::vector<int> counties;
    std::vector<const CaseType *> types;
    Years years;
};

/// A case and somebody's part in it. Owns its texts: a case can be made up on the spot.
struct SuperiorRow
{
    Person person;
    CourtCase courtCase;
    QString role;
    QString title; ///< "SMITH, JOHN Q VS ACME PLUMBING INC"
};

/// Reads what is asked for out of the fields of a search, of the Superior Courts or of their index,
/// which have it in the same places. What is wrong with it, or nothing.
std::optional<QString> ReadSuperiorQuery(const QStringList &fields, int thisYear,
                                         SuperiorQuery &query);

/// The parts that the query asks for, as places in the population's Parts(), by name, then by date.
std::vector<quint32> FindSuperiorParts(const Population &population, const SuperiorQuery &query);

/// A part as a row.
SuperiorRow SuperiorRowOf(const Population &population, quint32 part);

/// Whether anything can pass the filters of the query; what a name with a meaning is given is made
/// for them.
bool LetsSomethingThrough(const SuperiorQuery &query);

/// Row `number` of a name with a meaning: a case that is made up on the spot and passes the filters
/// of the query. A filter that lets nothing through must have been looked for before.
SuperiorRow MadeUpSuperiorRow(const SuperiorQuery &query, qint64 number);

/// The row of such a name that has this number; nullopt when none has.
std::optional<SuperiorRow> FindMadeUpRow(const SuperiorQuery &query, const CaseNumber &number);

/// What follows the keyword of a search, of the Superior Courts or of their index; nullopt when it
/// is not well formed. The years are those of which there are cases.
std::optional<SuperiorQuery> ParseSpecialSearch(const QStringList &fields, int thisYear);

/// "WA Superior Ct King County": the program finds the county between "Ct " and " County".
QString SuperiorLocation(const CaseNumber &number);

/// The fields that every row of a case begins with, the first six of them: name, number, date,
/// description, location, role.
QStringList SuperiorFields(const SuperiorRow &row);

/// The day from which a case counts: for a judgment the day it was given, some weeks before it was
/// filed, for any other the day of filing.
QDate EffectiveDate(const CourtCase &courtCase);
} // namespace Practice
