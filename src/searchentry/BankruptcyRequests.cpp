#include "searchentry/BankruptcyRequests.h"

#include "core/RunTimeError.h"
#include "searchentry/RequestGrammar.h"
#include "searchentry/SearchTitles.h"

using namespace Qt::StringLiterals;

namespace {
/// The boxes of chkBKcourt are in the order of the courts.
constexpr int firstBkCourt = static_cast<int>(CourtSystem::WesternBankruptcy);

struct BkSearch
{
    RequestLine line;
    QStringView lblName;
};

/// One row for each SearchKind, in its order.
constexpr std::array<BkSearch, 5> searches{{
    {RequestLine::BkPerson, u""},
    {RequestLine::BkBusiness, u""},
    {RequestLine::BkNumber, u""},
    {RequestLine::BkTaxId, u"Tax ID#:"},
    {RequestLine::BkSsn, u"SSN#"},
}};

const BkSearch &searchOf(const SearchEntry &entry)
{
    return searches[static_cast<size_t>(entry.Kind)];
}

bool isCourt(int index)
{
    return index >= 0 && index < bkCourtCount;
}
} // namespace

const CourtFacts &BkCourt(int index)
{
    if (!isCourt(index))
        throw RunTimeError::SubscriptOutOfRange();
    return CourtOf(static_cast<CourtSystem>(firstBkCourt + index));
}

std::optional<QString> BkRequest(const SearchEntry &entry, int courtIndex, int thisYear)
{
    const RequestLine line = searchOf(entry).line;
    // The form refuses "~" here, but a name may have been typed before the court was chosen.
    if (!isCourt(courtIndex) || TypedFieldText(entry.Names[LastName], line).isEmpty())
        return std::nullopt;
    RequestValues values;
    values.Places = {BkCourt(courtIndex).Place.toString()};
    values.ThisYear = thisYear;
    return ComposeRequest(line, entry, values);
}

BkResultsFields BkResultsFieldsOf(const SearchEntry &entry, int courtIndex)
{
    const CourtFacts &court = BkCourt(courtIndex);
    return {court.State.toString(), court.OfList.toString(), u"Bankruptcy"_s, ShownName(entry),
            searchOf(entry).lblName.toString()};
}
