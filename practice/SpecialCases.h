#pragma once

#include "practice/Reply.h"
#include "practice/TabRequest.h"

#include <QSet>
#include <QString>

#include <array>
#include <optional>

namespace Practice {
// Case numbers that mean something to the practice court: whoever opens one sees how the program
// takes an outcome that is rare in life. docs/practice.md has the same list.

/// What comes of a case number with a meaning.
enum class SpecialCase : quint8 {
    OneLine,       ///< one line stands in place of everything
    SummaryLine,   ///< one line stands in place of the summary
    Nothing,       ///< the end mark alone
    Silence,       ///< no answer
    DropLink,      ///< the connection is closed
    Arbitration,   ///< the court asks which part of the case is meant
    Associated,    ///< the summary names another case
    LongDocket,    ///< a docket of 20,000 entries
    TabErrorOnce,  ///< each tab but the summary is an error, every other time
    TabSilentOnce, ///< the docket breaks off and nothing more comes, every other time
    TabDropOnce,   ///< the docket breaks off and the connection is closed, every other time
    EmptyTabs,     ///< each tab but the summary is empty
    Breaks,        ///< cells of several lines
    NoDefinition,  ///< tables without the line that defines them
    SlowDocket,    ///< a line of progress a second, then the docket
    DocumentsLine, ///< one line stands in place of the list of documents
    Documents,     ///< documents that each come with a trouble of their own
    NoNotes,       ///< district courts: no note, one, and two ahead of the tables
    OneNote,
    TwoNotes,
    EmptyHeader, ///< district courts: the heading of the summary is empty
    HeaderOnly,  ///< district courts: nothing behind the heading
    Multiple,    ///< bankruptcy: several cases have the number
};

/// Entries of the long docket, and seconds of the slow one.
inline constexpr qint64 longDocketEntries = 20'000;
inline constexpr int slowDocketSeconds = 20;

/// How many cases the bankruptcy number of several cases has.
inline constexpr int multipleCases = 3;

/// A family's bit.
constexpr unsigned FamilyBit(CourtFamily family)
{
    return 1U << static_cast<unsigned>(family);
}

struct SpecialCaseRow
{
    int place;         ///< the last two digits of its serial, in each of its families
    unsigned families; ///< bits
    int digit;         ///< case type of the Superior Courts
    SpecialCase meaning;
    const char16_t *line = nullptr;
};

extern const std::array<SpecialCaseRow, 44> specialCases;

/// The number of a special case as its family writes it. Superior Courts: in King county.
QString SpecialCaseNumber(CourtFamily family, const SpecialCaseRow &row);

/// The court in which the special cases of a family are, as a request names it.
QStringView SpecialCaseCourt(CourtFamily family);

/// The meaning of a number in its court; nullptr when it means nothing but itself.
const SpecialCaseRow *FindSpecialCase(CourtFamily family, QStringView court, QStringView number);

/// Whether a number, in whatever court of the family, is taken by a special case.
bool IsSpecialCaseNumber(CourtFamily family, const QString &number);

/// What failed last time, so that it succeeds this time. One for the whole court: a connection that
/// was closed must not forget.
class TabMemory
{
public:
    /// True the first time, the third and so on.
    bool FailsNow(const QString &key);

private:
    QSet<QString> failed;
};

/// What a meaning puts in place of the tab; false when the tab comes as of any other case. `key`
/// tells who asks for what.
bool SaySpecialTab(const SpecialCaseRow &row, CaseTab tab, const QString &key, TabMemory &memory,
                   Reply &reply);
} // namespace Practice
