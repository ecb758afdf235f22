#include "jobs/Job.h"

#include "core/Log.h"
#include "core/RunTimeError.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "link/Exchange.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
QList<Job *> &allJobs()
{
    static QList<Job *> jobs;
    return jobs;
}
/// The jobs that have their turn, the one that took it last at the end. A stop lets the next begin
/// while the run that was stopped still reads.
QList<Job *> &jobsWithTurn()
{
    static QList<Job *> jobs;
    return jobs;
}
} // namespace

JobEvents &JobEvents::Of()
{
    static JobEvents events;
    return events;
}

Job *Job::WithTurn()
{
    return jobsWithTurn().isEmpty() ? nullptr : jobsWithTurn().last();
}

const QList<Job *> &Job::All()
{
    return allJobs();
}

Job::Job(JobKindName name) : Timer1(new QTimer(this)), kind(&JobKindOf(name))
{
    Status.Text = kind->Pending.toString();
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(kind->Turn);
    connect(Timer1, &QTimer::timeout, this, &Job::tick);
    allJobs().append(this);
}

Job::~Job()
{
    allJobs().removeOne(this);
}

bool Job::AllAtRest()
{
    const QString next = frmQueue::Form().FIFO.List(0);
    return std::none_of(allJobs().cbegin(), allJobs().cend(), [&next](const Job *job) {
        const bool isNext = job->jobState == JobState::Pending && !job->txtMasterKey.isEmpty()
                            && job->txtMasterKey == next;
        return job->hasTurn || isNext;
    });
}

void Job::Withdraw()
{
    WithdrawKey(txtMasterKey);
}

void Job::GiveUp()
{
    Timer1->stop();
    givenUp = true;
    GivenUp();
    Q_EMIT JobEvents::Of().GivenUp(this);
}

void Job::Release()
{
    Timer1->stop();
    released = true;
    if (scopes == 0)
        deleteLater();
}

void Job::endScope()
{
    if (--scopes == 0 && released)
        deleteLater();
}

void Job::setState(JobState newState)
{
    if (jobState == newState)
        return;
    jobState = newState;
    Q_EMIT StateChanged();
    if (jobState == JobState::Over)
        Q_EMIT JobEvents::Of().Over(this);
}

void Job::tick()
{
    const RunScope scope(this);
    Timer1->stop();
    BeginTick();
    AskTurn({.Timer = Timer1,
             .Run = [this] { ProcessSearchRequests(); },
             .Stopped =
                 [this] {
                     ShowStopped(StopCase::AllJobs);
                     Withdraw();
                 }});
}

void Job::AskTurn(const TurnRequest &request)
{
    switch (AskForTurn(txtMasterKey)) {
    case Turn::Stopped:
        request.Stopped();
        return;
    case Turn::Taken:
        linkWasTaken = true;
        if (!kind->LinkTaken.isEmpty())
            SetStatus(kind->LinkTaken.toString());
        request.Timer->start();
        Q_EMIT StateChanged();
        return;
    case Turn::Mine:
        takeTurn(request);
        return;
    case Turn::NotYet:
        request.Timer->start();
        return;
    }
}

void Job::takeTurn(const TurnRequest &request)
{
    TakeLink();
    hasTurn = true;
    jobsWithTurn().append(this);
    const auto end = qScopeGuard([this] {
        FreeLink();
        hasTurn = false;
        jobsWithTurn().removeOne(this);
        Q_EMIT JobEvents::Of().TurnOver(this);
    });
    Q_EMIT JobEvents::Of().TurnTaken(this);
    linkWasTaken = false;
    setState(JobState::Taken);
    SetStatus(kind->Working.toString());
    setState(JobState::Running);
    request.Run();
}

void Job::Restart(JobKindName name, QTimer *timer)
{
    kind = &JobKindOf(name);
    EnqueueKey(txtMasterKey);
    linkWasTaken = false;
    setState(JobState::Pending);
    timer->start();
    Q_EMIT JobEvents::Of().Restarted(this);
}

void Job::SetStatus(const QString &text, StatusStyle style)
{
    Status.Set(text, style);
    Q_EMIT Changed();
}

void Job::SetOver()
{
    setState(JobState::Over);
}

void Job::LogStoppedByAll()
{
    WriteAppInfo(kind->StoppedByAll.toString());
}

void Job::Stop()
{
    const RunScope scope(this);
    StopRequested = true;
    bool stopped = false;
    if (jobState == JobState::Pending) {
        stopped = StopPendingSearch();
        if (!stopped) {
            WriteAppInfo(kind->CannotStopPending.toString());
            stopped = StopActiveSearch();
        }
    } else {
        stopped = StopActiveSearch();
    }
    if (!stopped)
        WriteAppInfo(kind->CannotStopActive.toString());
    FreeLink();
    // A run that broke down has kept its place, and nobody comes back to give it away.
    if (!HasTurn())
        Withdraw();
    StopDone();
}

bool Job::StopPendingSearch()
{
    if (jobState != JobState::Pending)
        return false;
    ShowStopped(StopCase::Pending);
    Withdraw();
    return true;
}

bool Job::StopActiveSearch()
{
    ShowStopped(StopCase::Active);
    StopCurrentSearch();
    return true;
}

bool Job::KeepsPlace() const
{
    return !hasTurn && jobState != JobState::Pending
           && frmQueue::Form().FIFO.Lines().contains(txtMasterKey);
}

void Job::Skip()
{
    const RunScope scope(this);
    if (!KeepsPlace())
        return;
    if (jobState != JobState::Over) {
        StopRequested = true;
        ShowStopped(StopCase::Pending);
        StopDone();
    }
    Withdraw();
}

/// From here on there is nothing more to be stopped; a run that is on the stack reads on.
void Job::ShowStoppedStatus()
{
    Timer1->stop();
    setState(HasTurn() ? JobState::Stopping : JobState::Over);
    SetStatus(kind->Stopped.toString(), StatusStyle::TroubleBold);
}

void Job::StopCurrentSearch()
{
    QString error;
    try {
        const QString request = StopRequest();
        if (request.isEmpty() || InterruptExchange(request) == SendStatus::Sent)
            return;
    } catch (const RunTimeError &raised) {
        error = raised.Description();
    }
    ReleaseTurnOf(txtMasterKey);
    WriteAppInfo(kind->StopNotSent.toString() + error);
}
