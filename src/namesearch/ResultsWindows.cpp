#include "namesearch/ResultsWindows.h"

#include <algorithm>
#include <array>

namespace {
constexpr QStringView scomisLost =
    u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts.";

constexpr ReplyRules courtRules{EndMark::AtTheEnd, true};
constexpr ReplyRules discisRules{EndMark::AtTheBeginning, false};

constexpr std::array<ResultsWindowRow, 3> windows{{
    {.window = ResultsWindow::Name,
     .sortColumn = u"Participant Name",
     .countLabel = u"Retrieved: ",
     .working = u"Searching ..",
     .connectionLostLog = {},
     .replies = courtRules,
     .progressAsItIs = false,
     .logsStatus = false,
     .logsQueueLength = false},
    {.window = ResultsWindow::DiscisCivil,
     .sortColumn = u"Name",
     .countLabel = u"Cases Found: ",
     .working = u"S e a r c h i n g ..",
     .connectionLostLog = scomisLost,
     .replies = discisRules,
     .progressAsItIs = true,
     .logsStatus = true,
     .logsQueueLength = true},
    {.window = ResultsWindow::DiscisNonCivil,
     .sortColumn = u"Name",
     .countLabel = u"Cases Found: ",
     .working = u"Searching ..",
     .connectionLostLog = scomisLost,
     .replies = discisRules,
     .progressAsItIs = true,
     .logsStatus = true,
     .logsQueueLength = true},
}};
} // namespace

const ResultsWindowRow &ResultsWindowRowOf(ResultsWindow window)
{
    return *std::find_if(windows.begin(), windows.end(),
                         [&](const ResultsWindowRow &row) { return row.window == window; });
}
