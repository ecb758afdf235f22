#include "namesearch/ResultsWindows.h"

#include <algorithm>
#include <array>

namespace {
constexpr QStringView scomisLost =
    u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts.";

constexpr ReplyRules courtRules{EndMark::AtTheEnd, true};
constexpr ReplyRules discisRules{EndMark::AtTheBeginning, false};

constexpr std::array<ResultsWindowRow, 3> windows{{
    {ResultsWindow::Name,
     u"Participant Name",
     u"Retrieved: ",
     u"Searching ..",
     {},
     courtRules,
     false,
     false,
     false},
    {ResultsWindow::DiscisCivil, u"Name", u"Cases Found: ", u"S e a r c h i n g ..", scomisLost,
     discisRules, true, true, true},
    {ResultsWindow::DiscisNonCivil, u"Name", u"Cases Found: ", u"Searching ..", scomisLost,
     discisRules, true, true, true},
}};
} // namespace

const ResultsWindowRow &ResultsWindowRowOf(ResultsWindow window)
{
    return *std::find_if(windows.begin(), windows.end(),
                         [&](const ResultsWindowRow &row) { return row.window == window; });
}
