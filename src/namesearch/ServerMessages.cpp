#include "namesearch/ServerMessages.h"

#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "courts/CourtTable.h"
#include "link/RequestLine.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int lastRowField = 2;
constexpr int stillToComeField = 3;
constexpr int invalidCall = 5;

constexpr QStringView tooManyShort = u"Warning - Too Many Results For First Name!";
constexpr QStringView tooManyLong =
    u"Too Many Results for First Name! Enter a More Specific Name and Retry the Search.";

// A second name that is too common is reported in the words of the first: they name the
// field that the user can do something about. The last row of each kind takes what is left.
constexpr std::array<ServerMessageRow, 6> messages{{
    {true, u"First Name", u"More Than", tooManyShort, tooManyLong},
    {true,
     u"Illegal Role",
     {},
     u"Error - Invalid Role Assignment!",
     u"Error. Invalid Role! Enter a Valid Role and Retry the Search."},
    {true,
     {},
     {},
     u"Error - Unexpected Search Results.",
     u"Error. Check Search Criteria Before Trying Again .."},
    {false, u"Second Name", u"More Than", tooManyShort, tooManyLong},
    {false,
     u"Reached Search Limit",
     {},
     u"Complete - %m More Results Available",
     u"%m more results are available for retrieval.",
     true},
    {false, {}, {}, {}, {}},
}};

qint16 toWhole(int number)
{
    if (number > std::numeric_limits<qint16>::max() || number < std::numeric_limits<qint16>::min())
        throw RunTimeError::Overflow();
    return static_cast<qint16>(number);
}
} // namespace

const ServerMessageRow &ServerMessageRowOf(const QString &error, const QString &warning)
{
    const bool isError = !error.isEmpty();
    const QString &text = isError ? error : warning;
    return *std::find_if(messages.begin(), messages.end(), [&](const ServerMessageRow &row) {
        return row.error == isError && text.contains(row.words, Qt::CaseInsensitive)
               && text.contains(row.furtherWords, Qt::CaseInsensitive);
    });
}

QString RowsStillToCome(const QString &warning)
{
    return FieldAt(warning.split(u'~'), stillToComeField);
}

NextPage NextPageOf(const QString &warning, qint16 pageLimit)
{
    const QString stillToCome = RowsStillToCome(warning);
    const qint16 left = ToInteger(stillToCome);
    NextPage page;
    page.Lower = toWhole(ToInteger(FieldAt(warning.split(u'~'), lastRowField)) + 1);
    page.Count = left < pageLimit ? stillToCome : QString::number(pageLimit);
    page.Upper = toWhole(page.Lower + std::min(left, pageLimit) - 1);
    return page;
}

QString PageRequest(const QString &line, const NextPage &page)
{
    const QString trimmed = TrimBlanks(line);
    // The last one: a name may hold the same letters.
    const qsizetype head = trimmed.lastIndexOf(u"LL=", -1, Qt::CaseInsensitive);
    if (head < 0)
        throw RunTimeError(invalidCall, u"Invalid procedure call or argument"_s);
    return trimmed.left(head)
           + ComposeLine(
               CourtOf(CourtSystem::Index).SearchDelimiter,
               {u"LL="_s + QString::number(page.Lower), u"UL="_s + QString::number(page.Upper)});
}
