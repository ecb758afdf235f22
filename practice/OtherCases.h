#pragma once

#include "practice/OtherCaseTypes.h"
#include "practice/OtherCourts.h"
#include "practice/Population.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace Practice {
/// The part that somebody has in a case of a family beside the Superior Courts.
struct OtherCase
{
    int court = 0; ///< place in CourtsOf()
    int type = 0;  ///< place in CaseTypesOf()
    QString number;
    QDate filed;
    QString text; ///< description or status
    QString role;
    QString otherParty; ///< the name of whoever else is a party, or nothing
    bool judgment = false;
    bool archived = false;
};

/// The first year of which a family has cases.
int FirstYearOf(OtherFamily family);

/// How many numbers a family has for one court, kind and year. Any further one is the first again.
int NumbersOf(OtherFamily family);

/// Number `value` (from 0, rising with the months) as the family writes it.
QString OtherNumberText(OtherFamily family, int court, int type, int year, int value);

/// The month in which the case of number `value` was filed.
int MonthOf(OtherFamily family, int value);

/// What `person` has to do with cases of the family. Nothing of it is stored: the cases come out of
/// the seed and the person's place among the made-up people. Two neighbours there share their
/// cases, so that both parties of a case are found, and a case number leads back to its parties.
/// Nobody has a case of the running year, so that a year's days change no number.
std::vector<OtherCase> OtherCasesOf(const Population &population, quint32 person,
                                    OtherFamily family);

/// The value of a number, with its dashes or without; nullopt when it is not in the form of the
/// family.
std::optional<qint64> ValueOfNumber(OtherFamily family, const QString &number);

/// A party of a case, and the part in it.
struct OtherParty
{
    Person person;
    OtherCase courtCase;
};

/// Everybody with a part in the case of that number, the side that brought it first; nobody when
/// there is no such case. Dashes, blanks and capitals do not matter.
std::vector<OtherParty> PartiesOfOtherCase(const Population &population, OtherFamily family,
                                           const QString &number);

/// Whom a bankruptcy search for nine digits means: a person by the social security number, a
/// business by the tax number; nullopt when the number is nobody's. Dashes and blanks do not
/// matter. The made-up people are numbered in their order: 900-01-0000 is the first one, and a
/// business in that place has 00-0010000. Nobody alive has such a number.
std::optional<quint32> FindByPersonalNumber(const Population &population, QStringView digits,
                                            bool business);
} // namespace Practice
