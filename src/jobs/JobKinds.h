#pragma once

#include <QStringView>

/// What the kinds of jobs have of their own while they wait, work and stop: their pace, and what
/// they say and log. A row each; the rest of a job's life is the same for all.
struct JobKind
{
    // Milliseconds
    int Turn;         ///< Timer1: from one question for the turn to the next
    int Blink;        ///< tmrBlink from the load on
    int TakenBlink;   ///< tmrBlink once another job was seen using the link
    int WorkingBlink; ///< tmrBlink while the job itself runs

    // The line of status
    QStringView Pending;
    QStringView LinkTaken; ///< once another job was seen using the link; "" changes nothing
    QStringView Working;
    QStringView Stopped;

    // The log
    QStringView StoppedByAll; ///< every job was asked to stop before this one had its turn
    QStringView CannotStopPending;
    QStringView CannotStopActive;
    QStringView StopNotSent; ///< with the description of the error behind it

    QStringView Name; ///< in a list of all jobs
};

/// The kinds there are.
enum class JobKindName {
    NameSearch,
    CivilNameSearch, ///< says that it searches in words of its own
    Case,            ///< the first run of a case
    CaseOnDemand,    ///< its later runs
    Document,        ///< one document of a case
    AllDocuments     ///< all of them, each in a turn of its own
};

const JobKind &JobKindOf(JobKindName name);
