#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// What can be done to a search in the middle of it, and how it must end then.

enum class Act {
    StopButton,
    Logout,
    Disconnect,
    DisconnectFromSilence, ///< the same, from a court that says no more
    Exit,
    CloseMain,
    CloseFrame,
    UnloadByCode,
    SessionEnds,
    UnloadUnconditionally
};

/// Where the search is when it happens.
enum class Moment { Pending, Running, Over };

enum class End {
    None,           ///< it never began
    Completed,      ///< everything came
    Stopped,        ///< read on to the end mark, then stopped
    StoppedPending, ///< its Stop button, before its turn
    AllJobsStopped, ///< a wish to leave, seen before its turn
    ConnectionLost,
};

/// How a search must end with this done to it at this moment.
struct Expected
{
    Act act;
    Moment moment;
    End end;
    bool gone;          ///< the window goes
    bool keyLeft;       ///< its key stays in the queue
    bool staysLoggedIn; ///< the session goes on
    bool stopsOthers;   ///< bStopRequested stays set for the jobs that wait
    bool endsProgram;
};

inline constexpr std::array<Expected, 30> allExpected{{
    {Act::StopButton, Moment::Pending, End::StoppedPending, false, false, true, false, false},
    {Act::StopButton, Moment::Running, End::Stopped, false, false, true, false, false},
    {Act::StopButton, Moment::Over, End::Completed, false, false, true, false, false},
    // Without a link the search has its turn and cannot send.
    {Act::Logout, Moment::Pending, End::ConnectionLost, false, false, false, false, false},
    {Act::Logout, Moment::Running, End::ConnectionLost, false, false, false, false, false},
    {Act::Logout, Moment::Over, End::Completed, false, false, false, false, false},
    {Act::Disconnect, Moment::Pending, End::ConnectionLost, false, false, false, false, false},
    {Act::Disconnect, Moment::Running, End::Completed, false, false, true, true, false},
    {Act::Disconnect, Moment::Over, End::Completed, false, false, false, false, false},
    {Act::DisconnectFromSilence, Moment::Pending, End::ConnectionLost, false, false, false, false,
     false},
    // Refused, and what the court still owes never comes: the wait for it ends by its limit.
    {Act::DisconnectFromSilence, Moment::Running, End::ConnectionLost, false, false, true, true,
     false},
    {Act::DisconnectFromSilence, Moment::Over, End::Completed, false, false, false, false, false},
    {Act::Exit, Moment::Pending, End::AllJobsStopped, false, false, false, false, true},
    {Act::Exit, Moment::Running, End::Completed, false, false, true, true, false},
    {Act::Exit, Moment::Over, End::Completed, false, false, false, false, true},
    {Act::CloseMain, Moment::Pending, End::AllJobsStopped, false, false, false, false, true},
    {Act::CloseMain, Moment::Running, End::Completed, false, false, true, true, false},
    {Act::CloseMain, Moment::Over, End::Completed, false, false, false, false, true},
    // Closing is not stopping: the key of a search that was pending is left.
    {Act::CloseFrame, Moment::Pending, End::None, true, true, true, false, false},
    {Act::CloseFrame, Moment::Running, End::Completed, false, false, true, false, false},
    {Act::CloseFrame, Moment::Over, End::Completed, true, false, true, false, false},
    {Act::UnloadByCode, Moment::Pending, End::None, true, true, true, false, false},
    {Act::UnloadByCode, Moment::Running, End::Completed, false, false, true, false, false},
    {Act::UnloadByCode, Moment::Over, End::Completed, true, false, true, false, false},
    // These ask nobody: behind a window that is out of sight the run asks for nothing more.
    {Act::SessionEnds, Moment::Pending, End::None, true, true, true, false, false},
    {Act::SessionEnds, Moment::Running, End::Stopped, true, false, true, false, false},
    {Act::SessionEnds, Moment::Over, End::Completed, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Pending, End::None, true, true, true, false, false},
    {Act::UnloadUnconditionally, Moment::Running, End::Stopped, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Over, End::Completed, true, false, true, false, false},
}};

inline const Expected &expectedOf(Act act, Moment moment)
{
    return *std::find_if(allExpected.begin(), allExpected.end(), [&](const Expected &expected) {
        return expected.act == act && expected.moment == moment;
    });
}

/// The box that refuses, when the search is running.
struct Refusal
{
    Act act;
    QStringView title;
    QStringView text;
};

inline constexpr QStringView formRefusal = u"This form cannot be closed until the current search "
                                           "completes.";
inline constexpr QStringView disconnectRefusal =
    u"You must wait for the current search to complete before disconnecting. All Pending Searches "
    "will be stopped.";
inline constexpr std::array<Refusal, 6> refusals{{
    {Act::Disconnect, u"Disconnect From Halvane ..", disconnectRefusal},
    {Act::DisconnectFromSilence, u"Disconnect From Halvane ..", disconnectRefusal},
    {Act::Exit, u"Exit Halvane ..",
     u"You must wait for the current search to complete or be stopped before Exiting. All Pending "
     "Searches will be stopped."},
    {Act::CloseMain, u"Exit Halvane ..",
     u"You must wait for the current search to complete before Exiting Halvane.  All Pending "
     "Searches will be stopped."},
    {Act::CloseFrame, u"Stop Current Search ..", formRefusal},
    {Act::UnloadByCode, u"Stop Current Search ..", formRefusal},
}};

/// The line that each end leaves in the log.
struct EndLine
{
    End end;
    QStringView line;
};

inline constexpr std::array<EndLine, 5> endLines{{
    {End::Completed, u"NORMAL EXIT - from ProcessSearchReqeusts."},
    {End::Stopped, u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."},
    {End::AllJobsStopped, u"INCOMPLETE EXIT - from Timer1 - Name Search Results."},
    {End::ConnectionLost, u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."},
    {End::ConnectionLost, u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."},
}};

/// What the window reads in each end, up to the number of its rows.
struct EndTexts
{
    End end;
    QStringView status;
    QStringView searchStatus;
};

inline constexpr std::array<EndTexts, 5> endTexts{{
    {End::Completed, u"Search Complete: ", u""},
    {End::Stopped, u"Search Stopped By User: ",
     u"Search Stopped By User. Some results may not have been retrieved."},
    {End::StoppedPending, u"Search Stopped By User .. ",
     u"Search Stopped By User. No Results Were Retrieved."},
    {End::AllJobsStopped, u"Search Stopped By User .. ", u"Search Stopped By User: "},
    {End::ConnectionLost, u"Search Stopped - Court Connection Lost!",
     u"Search Stopped. Court Connection Lost. Please Close Form and Retry"},
}};

inline constexpr std::array<const char *, 10> actNames{"Stop",
                                                       "logout",
                                                       "Disconnect",
                                                       "Disconnect from a silent court",
                                                       "Exit",
                                                       "the main window is closed",
                                                       "the window is closed by its frame",
                                                       "the window is unloaded by code",
                                                       "the session of the desktop ends",
                                                       "the window is unloaded unconditionally"};
inline constexpr std::array<const char *, 3> momentNames{"pending", "running", "over"};
inline constexpr std::array<const char *, 6> endNames{
    "none", "completed", "stopped", "stopped while pending", "all jobs stopped", "connection lost"};

template<typename Enum, size_t Size>
QString nameOf(Enum value, const std::array<const char *, Size> &names)
{
    return QString::fromLatin1(names.at(static_cast<size_t>(value)));
}
