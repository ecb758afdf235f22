#include "searchentry/BankruptcyRequests.h"

#include "core/RunTimeError.h"
#include "searchentry/RequestGrammar.h"
#include "searchentry/SearchTitles.h"

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<BkCourtRow, bkCourtCount> courts{{
    {u"WAW", u"WAWBK", u"Washington Western Bankruptcy",
     u" / Washington Bankruptcy Courts (Western)", u"Washington Bankruptcy Courts (Western)"},
    {u"WAE", u"WAEBK", u"Washington Eastern Bankruptcy",
     u" / Washington Bankruptcy Courts (Eastern)", u"Washington Bankruptcy Courts (Eastern)"},
    {u"OR", u"ORBK", u"Oregon Bankruptcy", u" / Oregon Bankruptcy Courts (Statewide)",
     u"Oregon Bankruptcy Courts (Statewide)"},
    {u"ID", u"IDBK", u"Idaho Bankruptcy", u" / Idaho Bankruptcy Courts (Statewide)",
     u"Idaho Bankruptcy Courts (Statewide)"},
}};

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

const BkCourtRow &BkCourt(int index)
{
    if (!isCourt(index))
        throw RunTimeError::SubscriptOutOfRange();
    return courts[static_cast<size_t>(index)];
}

std::optional<QString> BkRequest(const SearchEntry &entry, int courtIndex, int thisYear)
{
    const RequestLine line = searchOf(entry).line;
    // The form refuses "~" here, but a name may have been typed before the court was chosen.
    if (!isCourt(courtIndex) || TypedFieldText(entry.Names[LastName], line).isEmpty())
        return std::nullopt;
    RequestValues values;
    values.Places = {BkCourt(courtIndex).Code.toString()};
    values.ThisYear = thisYear;
    return ComposeRequest(line, entry, values);
}

BkResultsFields BkResultsFieldsOf(const SearchEntry &entry, int courtIndex)
{
    const BkCourtRow &court = BkCourt(courtIndex);
    return {court.lblState.toString(), court.txtCountyList.toString(), u"Bankruptcy"_s,
            ShownName(entry), searchOf(entry).lblName.toString()};
}
