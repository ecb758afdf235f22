#include "jobs/JobKinds.h"

#include <array>
#include <cstddef>

namespace {
constexpr QStringView pending = u"Pending ..";
constexpr QStringView searching = u"Searching ..";
constexpr QStringView stopped = u"Search Stopped By User .. ";
constexpr QStringView cannotStopPending = u"Cannot Stop Pending Search";
constexpr QStringView cannotStopActive = u"Cannot Stop Active Search";
constexpr QStringView stopNotSent = u"Exiting Via StopCurrentSearch in PROCERR. Error: ";

constexpr JobKind nameSearch{
    .Turn = 1900,
    .Blink = 500,
    .TakenBlink = 900,
    .WorkingBlink = 500,
    .Pending = pending,
    .LinkTaken = u"",
    .Working = searching,
    .Stopped = stopped,
    .StoppedByAll = u"INCOMPLETE EXIT - from Timer1 - Name Search Results.",
    .CannotStopPending = cannotStopPending,
    .CannotStopActive = cannotStopActive,
    .StopNotSent = stopNotSent,
    .Name = u"Search",
};

constexpr JobKind withWorking(JobKind kind, QStringView working)
{
    kind.Working = working;
    return kind;
}

constexpr JobKind caseRun(int turn, int workingBlink, QStringView stoppedByAll)
{
    JobKind kind = nameSearch;
    kind.Turn = turn;
    kind.WorkingBlink = workingBlink;
    kind.StoppedByAll = stoppedByAll;
    kind.Name = u"Case";
    return kind;
}

constexpr JobKind documents(QStringView stoppedByAll, QStringView name)
{
    return {
        .Turn = 1500,
        .Blink = 1000,
        .TakenBlink = 1000,
        .WorkingBlink = 1000,
        .Pending = u"Status: Pending ..",
        .LinkTaken = u"Status: Pending..",
        .Working = u"Retrieving Document..",
        .Stopped = u"Search Stopped By User.. ",
        .StoppedByAll = stoppedByAll,
        .CannotStopPending = u"Cannot Stop Pending Search. In frmDocTransfer:Stop_Click()",
        .CannotStopActive = u"Cannot Stop Active Search. In frmDocTransfer:Stop_Click()",
        .StopNotSent = u"Exiting Doc Retrieval. In frmDocTransfer:StopCurrentSearch(). Error: ",
        .Name = name,
    };
}

/// In the order of JobKindName.
constexpr std::array<JobKind, 6> kinds{
    nameSearch,
    withWorking(nameSearch, u"S e a r c h i n g .."),
    caseRun(2000, 700, u"INCOMPLETE EXIT - from Timer1 - Case Details."),
    caseRun(900, 500, u"INCOMPLETE EXIT - from OnDemandTimer1 - Case Details."),
    // A document is stopped in the words of its case.
    documents(u"INCOMPLETE EXIT - from Timer1 - Case Details.", u"Document"),
    documents(u"INCOMPLETE EXIT - from Timer1 - All Documents.", u"All documents"),
};
} // namespace

const JobKind &JobKindOf(JobKindName name)
{
    return kinds.at(static_cast<std::size_t>(name));
}
