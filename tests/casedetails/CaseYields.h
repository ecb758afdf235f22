#pragma once

#include "namesearch/EveryYield.h"

// What can be done to a case in the middle of it, and how its run must end then. The acts and the
// boxes that refuse them are those of a search.

enum class CaseEnd {
    None,           ///< it never began
    Completed,      ///< everything came
    Incomplete,     ///< the tab that was read last did not come
    Stopped,        ///< read on to the next end mark, then stopped
    StoppedPending, ///< its Stop button, before its turn
    AllJobsStopped, ///< a wish to leave, seen before its turn
    Closed,         ///< read on to the next end mark behind a window that has gone
    Error,          ///< the summary could not be asked for
    BrokenDown      ///< a tab could not be asked for: the run keeps its place in the queue
};

/// How a case must end with this done to it at this moment.
struct ExpectedCase
{
    Act act;
    Moment moment;
    CaseEnd end;
    bool gone;          ///< the window goes
    bool staysLoggedIn; ///< the session goes on
    bool stopsOthers;   ///< bStopRequested stays set for the jobs that wait
    bool endsProgram;
};

/// What a logout does to a run depends on what was being done: BrokenDown stands for that.
inline constexpr std::array<ExpectedCase, 27> expectedCases{{
    {Act::StopButton, Moment::Pending, CaseEnd::StoppedPending, false, true, false, false},
    {Act::StopButton, Moment::Running, CaseEnd::Stopped, false, true, false, false},
    {Act::StopButton, Moment::Over, CaseEnd::Completed, false, true, false, false},
    // Without a link the case has its turn and cannot send.
    {Act::Logout, Moment::Pending, CaseEnd::Error, false, false, false, false},
    {Act::Logout, Moment::Running, CaseEnd::BrokenDown, false, false, false, false},
    {Act::Logout, Moment::Over, CaseEnd::Completed, false, false, false, false},
    {Act::Disconnect, Moment::Pending, CaseEnd::Error, false, false, false, false},
    // Refused, but the case gives up for whoever wants to leave.
    {Act::Disconnect, Moment::Running, CaseEnd::Stopped, false, true, true, false},
    {Act::Disconnect, Moment::Over, CaseEnd::Completed, false, false, false, false},
    {Act::Exit, Moment::Pending, CaseEnd::AllJobsStopped, false, false, false, true},
    {Act::Exit, Moment::Running, CaseEnd::Stopped, false, true, true, false},
    {Act::Exit, Moment::Over, CaseEnd::Completed, false, false, false, true},
    {Act::CloseMain, Moment::Pending, CaseEnd::AllJobsStopped, false, false, false, true},
    {Act::CloseMain, Moment::Running, CaseEnd::Stopped, false, true, true, false},
    {Act::CloseMain, Moment::Over, CaseEnd::Completed, false, false, false, true},
    {Act::CloseFrame, Moment::Pending, CaseEnd::None, true, true, false, false},
    {Act::CloseFrame, Moment::Running, CaseEnd::Completed, false, true, false, false},
    {Act::CloseFrame, Moment::Over, CaseEnd::Completed, true, true, false, false},
    {Act::UnloadByCode, Moment::Pending, CaseEnd::None, true, true, false, false},
    {Act::UnloadByCode, Moment::Running, CaseEnd::Completed, false, true, false, false},
    {Act::UnloadByCode, Moment::Over, CaseEnd::Completed, true, true, false, false},
    // These ask nobody: the run ends at its next stop point behind a window that is out of sight.
    {Act::SessionEnds, Moment::Pending, CaseEnd::None, true, true, false, false},
    {Act::SessionEnds, Moment::Running, CaseEnd::Closed, true, true, false, false},
    {Act::SessionEnds, Moment::Over, CaseEnd::Completed, true, true, false, false},
    {Act::UnloadUnconditionally, Moment::Pending, CaseEnd::None, true, true, false, false},
    {Act::UnloadUnconditionally, Moment::Running, CaseEnd::Closed, true, true, false, false},
    {Act::UnloadUnconditionally, Moment::Over, CaseEnd::Completed, true, true, false, false},
}};

/// The acts of the table, in its order.
inline constexpr std::array<Act, 9> caseActs{
    Act::StopButton,   Act::Logout,      Act::Disconnect,
    Act::Exit,         Act::CloseMain,   Act::CloseFrame,
    Act::UnloadByCode, Act::SessionEnds, Act::UnloadUnconditionally};

inline const ExpectedCase &expectedCaseOf(Act act, Moment moment)
{
    return *std::find_if(expectedCases.begin(), expectedCases.end(),
                         [&](const ExpectedCase &expected) {
                             return expected.act == act && expected.moment == moment;
                         });
}

/// The line that each end leaves in the log, or its beginning.
struct CaseEndLine
{
    CaseEnd end;
    QStringView line;
};

inline constexpr std::array<CaseEndLine, 9> caseEndLines{{
    {CaseEnd::Completed, u"NORMAL EXIT - from ProcessSearchReqeusts."},
    {CaseEnd::Stopped, u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in "
                       "Case Details."},
    {CaseEnd::AllJobsStopped, u"INCOMPLETE EXIT - from Timer1 - Case Details."},
    {CaseEnd::Closed,
     u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."},
    {CaseEnd::Error, u"SEARCH ERROR EXIT - from ProcessSearchReqeusts."},
    {CaseEnd::BrokenDown, u"Exiting DoNameSearch() via PROCERR in Case Details. Error: "},
    {CaseEnd::BrokenDown, u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: "},
    {CaseEnd::BrokenDown, u"Exiting DoJudgmentsSearch() via PROCERR in Case Details. Error: "},
    {CaseEnd::BrokenDown, u"Exiting DoViolationsSearch() via PROCERR in Case Details. Error: "},
}};

/// What the window reads in each end.
struct CaseEndTexts
{
    CaseEnd end;
    QStringView status;  ///< begins with this
    QStringView warning; ///< "" is none; else it begins with this
};

inline constexpr std::array<CaseEndTexts, 7> caseEndTexts{{
    {CaseEnd::Completed, u"Search Complete", u""},
    {CaseEnd::Incomplete, u"Search Incomplete!", u""},
    {CaseEnd::Stopped, u"Search Stopped by User ..",
     u"Warning: Some results may NOT have been retrieved .."},
    {CaseEnd::StoppedPending, u"Search Stopped By User .. ", u""},
    {CaseEnd::AllJobsStopped, u"Search Stopped By User .. ", u"Search Stopped .."},
    {CaseEnd::Error, u"Retrieving Summary ..", u""},
    {CaseEnd::BrokenDown, u"Retrieving ", u""},
}};

inline constexpr std::array<const char *, 9> caseEndNames{
    "none",   "completed", "incomplete", "stopped", "stopped while pending", "all jobs stopped",
    "closed", "error",     "broken down"};
