// What is known of each request of a search, and the retry of those that are missing.

#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "namesearch/CourtNames.h"
#include "namesearch/NameSearch.h"

using namespace Qt::StringLiterals;

void NameSearch::listCourts()
{
    if (retrying)
        return;
    courts.List(lboxQueue.Lines(),
                [this](const QString &line) { return CourtOfLine(line, Record); });
    Q_EMIT CourtsChanged();
}

/// What the end of a run says of the request that was asked last, and of those behind it.
void NameSearch::noteOutcome(SearchOutcome outcome)
{
    const bool leaves = outcome == SearchOutcome::ConnectionLost && Global.bStopRequested;
    const QString trouble = outcome == SearchOutcome::ServerMessage ? ServerTrouble() : QString();
    if (stoppedByUser || IsGivenUp() || leaves)
        courts.EndStopped();
    else if (outcome == SearchOutcome::ConnectionLost)
        courts.EndFailed(lostBecause);
    else if (outcome == SearchOutcome::MaxNames || outcome == SearchOutcome::MaxResults)
        courts.EndTooMany();
    else if (!trouble.isEmpty())
        courts.EndFailed(trouble);
    else
        courts.Answered();
    leaveRequests();
}

void NameSearch::leaveRequests()
{
    courts.EndRun();
    if (retrying && !HasTurn()) {
        endRetryState(true);
        Q_EMIT Changed();
    }
    Q_EMIT CourtsChanged();
}

bool NameSearch::CanRetry() const
{
    return State() == JobState::Over && !HasTurn() && !retrying && !IsGivenUp()
           && courts.AnyMissing();
}

void NameSearch::RetryFailed()
{
    if (!CanRetry())
        return;
    Global.bStopRequested = false;
    Global.bUserStoppedSearch = false;
    toRetry = courts.BeginRetry();
    before = {.Stopped = StopRequested, .Incomplete = Record.SearchIncomplete};
    StopRequested = false;
    stoppedByUser = false;
    retrying = true;
    BeginRetry();
    Withdraw();
    txtMasterKey = MakeMasterKey();
    Record.RetryText = u"Retry: waiting .."_s;
    Restart(JobKindName::SearchRetry, Timer1);
    Q_EMIT Changed();
    Q_EMIT CourtsChanged();
}

/// In the order of the first asking, line by line as the search itself: the same answers end it.
SearchOutcome NameSearch::runRetry()
{
    WriteAppInfo(u"Retry of Failed Requests: "_s + QString::number(toRetry.size()));
    for (qsizetype i = 0; i < toRetry.size(); ++i) {
        courts.Ask(toRetry[i]);
        const CourtAnswer &asked = Record.Courts.at(toRetry[i]);
        Record.RetryText = u"Retry: asking %1 (%2 of %3) .."_s.arg(
            asked.Court, QString::number(i + 1), QString::number(toRetry.size()));
        // A copy: the lines are written while the answer is read.
        const QString line = asked.Request;
        if (const std::optional<SearchOutcome> end = askLine(line))
            return *end;
    }
    return SearchOutcome::Completed;
}

void NameSearch::EndRetry(SearchOutcome outcome)
{
    // What a court sends behind an end that was not waited for belongs to nobody.
    if (outcome != SearchOutcome::Stopped && outcome != SearchOutcome::ConnectionLost)
        Global.strRecvBuffer.Clear();
    endRetryState(stoppedByUser || outcome == SearchOutcome::Stopped);
    SetOver();
    Q_EMIT Changed();
    Q_EMIT CourtsChanged();
    ReleaseTurnOf(txtMasterKey);
    Q_EMIT RetryEnded(stoppedByUser);
}

/// The search is again what it was, but for its rows.
void NameSearch::endRetryState(bool stopped)
{
    Record.RetryText = courts.RetryResult(stopped);
    WriteAppInfo(Record.RetryText);
    StopRequested = before.Stopped;
    Record.SearchIncomplete = before.Incomplete;
    retrying = false;
}

void NameSearch::GivenUp()
{
    talk = nullptr;
    // A retry that nobody sees must not hold up what waits behind it.
    if (retrying && !HasTurn())
        Withdraw();
}
