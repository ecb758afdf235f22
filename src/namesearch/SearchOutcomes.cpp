#include "namesearch/SearchOutcomes.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<OutcomeRow, 6> outcomes{{
    {SearchOutcome::Completed, u"NORMAL EXIT - from ProcessSearchReqeusts.",
     u"Search Complete: %n Cases Retrieved.", StatusStyle::NormalBold,
     u"Search Completed Successfully. Double-Click on any Case to Retrieve Details.",
     StatusStyle::NormalBold, true, u"", true, false},
    {SearchOutcome::MaxNames, u"NORMAL EXIT - from ProcessSearchReqeusts.",
     u"Search Complete: %n Cases Retrieved.", StatusStyle::NormalBold,
     u"The Max. Number of Names were retrieved. More cases exist. Please refine search criteria.",
     StatusStyle::NormalBold, true, u"Max. Names Found!", true, false},
    {SearchOutcome::MaxResults,
     u"NORMAL EXIT - Max Names Error Message in ProcessSearchReqeusts().",
     u"Search Stopped - Max Results Reached: %n Cases Retrieved.", StatusStyle::Unchanged,
     u"Search Stopped on %c Cty. Refine Search and Try Again.", StatusStyle::Unchanged, true, u"",
     true, false},
    {SearchOutcome::Incomplete, u"SEARCH Incomplete from ProcessSearchReqeusts.",
     u"Search Incomplete!", StatusStyle::TroubleBold,
     u"Search Incomplete. Some Results May Not Have Been Retrieved. Please Retry Search.",
     StatusStyle::Unchanged, false, u"", true, true},
    {SearchOutcome::Stopped, u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts.",
     u"Search Stopped By User: %n Cases Retrieved.", StatusStyle::TroubleBold,
     u"Search Stopped By User. Some results may not have been retrieved.", StatusStyle::TroubleBold,
     false, u"", false, false},
    {SearchOutcome::ConnectionLost,
     u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts.",
     u"Search Stopped - Court Connection Lost!", StatusStyle::TroubleBold,
     u"Search Stopped. Court Connection Lost. Please Close Form and Retry", StatusStyle::Unchanged,
     false, u"", false, true},
}};
} // namespace

const OutcomeRow &OutcomeRowOf(SearchOutcome outcome)
{
    return *std::find_if(outcomes.begin(), outcomes.end(),
                         [&](const OutcomeRow &row) { return row.outcome == outcome; });
}

QString OutcomeText(QStringView text, int rows, const QString &county)
{
    // The county goes last: it comes from outside and may hold anything.
    return text.toString().replace(u"%n"_s, QString::number(rows)).replace(u"%c"_s, county);
}
