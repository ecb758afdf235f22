#pragma once

#include "practice/OtherCases.h"
#include "practice/Population.h"
#include "practice/Reply.h"
#include "practice/SearchFields.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace Practice {
// What the searches of the families beside the Superior Courts have in common.

/// Who is found, in which case.
struct OtherHit
{
    Person person;
    OtherCase courtCase;
};

/// A row that is ready, and what rows are put in order by: the name, the date, the case number.
struct OrderedRow
{
    QString name;
    QDate filed;
    QString number;
    QString text;
};

/// A hit as the row of its family. `lastField`, when it holds something, stands in place of the
/// row's last field.
using OtherRowWriter = std::function<QString(const OtherHit &hit, const QString &lastField)>;

/// A search, understood.
struct OtherSearch
{
    OtherFamily family = OtherFamily::Oregon;
    NameQuery name;
    std::vector<quint32> people; ///< who is meant; empty for a name with a meaning
    std::vector<int> courts;     ///< places in CourtsOf(), rising
    std::vector<int> types;      ///< places in CaseTypesOf()
    Years years;
    bool judgmentsOnly = false;
    QStringList places; ///< what progress speaks of
    OtherRowWriter write;
};

/// A search, or why it is refused.
using ParsedSearch = std::variant<OtherSearch, QString>;

/// Takes the courts of a field: all of them for `everywhere`, when there is such a word, else each
/// that a request can name.
void TakeCourts(const QString &field, QStringView everywhere, const QString &placeOfAll,
                OtherSearch &search);

/// Takes the kinds of case of a list field; none means all of them.
void TakeTypes(const QString &field, OtherSearch &search);

/// The rows of the search, in no order.
std::vector<OrderedRow> FindOtherRows(const Population &population, const OtherSearch &search);

/// Puts rows in order and says them.
void SayOrdered(std::vector<OrderedRow> rows, Reply &reply);

/// A case that is made up on the spot for a name with a meaning, and passes the filters: another
/// one for each `number`.
OtherHit MadeUpHit(const OtherSearch &search, qint64 number);

/// The row of a name with a meaning that has this case number; nullopt when none has.
std::optional<OtherHit> FindMadeUpHit(const OtherSearch &search, int thisYear,
                                      const QString &number);

/// Says what the search's name means if it has a meaning; false when it has none.
bool SayOtherSpecial(const OtherSearch &search, int thisYear, Reply &reply);

/// Answers the search: progress, what the name means or the rows that pass, the end mark.
Reply AnswerOther(const Population &population, const OtherSearch &search, int thisYear);
} // namespace Practice
