#include "app/HistoryWiring.h"

#include "app/AskedJobs.h"
#include "core/Clock.h"
#include "core/EndProgram.h"
#include "core/GlobalState.h"
#include "history/HistoryStore.h"
#include "jobs/Job.h"
#include "link/frmWinsock.h"
#include "records/CaseStart.h"
#include "searchentry/SearchEvents.h"
#include "session/frmMain.h"

#include <QHash>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// A job that is followed.
struct Followed
{
    qint64 Id = 0;            ///< in the history
    bool Ran = false;         ///< it has had its turn
    bool Later = false;       ///< it has ended before, and asks for what was left out, or for more
    bool SessionEnds = false; ///< when it was over, all jobs were asked to stop
    bool Ended = false;       ///< what came of it is written
    /// It is over: what would be written if it went at this moment.
    QString Outcome = u"Closed before it had its turn."_s;
    int Count = -1;
};

/// Follows every job from its launch to its end, and every number of a list from the moment in
/// which it waits for its launch.
///
/// How a job ended is read on the turn after it was over: its last words come behind its state. One
/// that goes before that turn leaves what it said at the moment in which it was over.
class JobFollower : public QObject
{
public:
    JobFollower();
    /// The program ends: what it has stopped, and the user has not, waits still.
    void EndSession();
    void LeaveHistory() const;

private:
    void numberWaits(qint64 ticket, const CaseStart &start);
    void numberGivenUp(qint64 ticket, const QString &outcome, bool wanted);
    void launched(Job *job);
    void takeBackStop();
    void restarted(Job *job);
    void turnTaken(Job *job);
    void turnOver(Job *job);
    void over(Job *job);
    void note(Job *job);
    void write(Job *job);
    void gone(Job *job);
    void sent(const QString &request) const;

    QHash<const Job *, Followed> jobs;
    QHash<qint64, qint64> numbers;  ///< that wait: in the history, by their tickets
    qint64 launching = 0;           ///< the ticket of the number whose case is launched next
    QList<qint64> stoppedBySession; ///< by whoever asked all jobs to stop, before their end
};

JobFollower::JobFollower()
{
    const JobEvents *events = &JobEvents::Of();
    connect(events, &JobEvents::Launched, this, &JobFollower::launched);
    connect(events, &JobEvents::Restarted, this, &JobFollower::restarted);
    connect(events, &JobEvents::TurnTaken, this, &JobFollower::turnTaken);
    connect(events, &JobEvents::TurnOver, this, &JobFollower::turnOver);
    connect(events, &JobEvents::Over, this, &JobFollower::over);
    connect(&LinkEvents::Of(), &LinkEvents::RequestSent, this, &JobFollower::sent);
    const SearchEvents *lists = &SearchEvents::Of();
    connect(lists, &SearchEvents::NumberWaits, this, &JobFollower::numberWaits);
    connect(lists, &SearchEvents::NumberLaunches, this,
            [this](qint64 ticket) { launching = ticket; });
    connect(lists, &SearchEvents::NumberGivenUp, this, &JobFollower::numberGivenUp);
}

void JobFollower::numberWaits(qint64 ticket, const CaseStart &start)
{
    if (const qint64 id = HistoryStore::Of().Begin(AskedItemOf(start)); id != 0)
        numbers.insert(ticket, id);
}

void JobFollower::numberGivenUp(qint64 ticket, const QString &outcome, bool wanted)
{
    launching = 0;
    const qint64 id = numbers.take(ticket);
    if (id == 0)
        return;
    if (wanted)
        stoppedBySession.append(id);
    HistoryStore::Of().End(id, outcome, -1);
}

void JobFollower::launched(Job *job)
{
    takeBackStop();
    const std::optional<AskedItem> item = AskedItemOf(*job);
    qint64 id = numbers.take(std::exchange(launching, 0));
    if (id == 0 && item)
        id = HistoryStore::Of().Begin(*item);
    if (id == 0)
        return;
    jobs.insert(job, {.Id = id});
    connect(job, &QObject::destroyed, this, [this, job] { gone(job); });
}

/// Whatever all jobs were asked to stop for is over, unless the program is on its way out: that
/// goes on, whatever begins meanwhile.
void JobFollower::takeBackStop()
{
    const frmMain *main = frmMain::Form();
    if (!main || !main->TimerExit->isActive())
        stoppedBySession.clear();
}

void JobFollower::restarted(Job *job)
{
    takeBackStop();
    const auto found = jobs.find(job);
    if (found == jobs.end())
        return;
    // What its first run has brought is kept until there is more: a program that ends meanwhile has
    // not left it undone.
    found->Later = true;
    found->Ended = false;
}

void JobFollower::turnTaken(Job *job)
{
    const auto found = jobs.find(job);
    if (found == jobs.end())
        return;
    found->Ran = true;
    if (found->Later)
        return;
    found->Outcome = u"Closed before it was over."_s;
    HistoryStore::Of().Runs(found->Id);
}

/// Nobody comes back to a run that broke down: it is never over.
void JobFollower::turnOver(Job *job)
{
    if (job->KeepsPlace())
        over(job);
}

void JobFollower::over(Job *job)
{
    const auto found = jobs.find(job);
    if (found == jobs.end())
        return;
    found->SessionEnds = Global.bStopRequested && !job->StopRequested;
    if (!found->Ran && found->SessionEnds)
        stoppedBySession.append(found->Id);
    note(job);
    QMetaObject::invokeMethod(
        job, [this, job] { write(job); }, Qt::QueuedConnection);
}

void JobFollower::note(Job *job)
{
    Followed &followed = jobs[job];
    followed.Outcome = job->KeepsPlace() ? u"Broke down: "_s + OutcomeOf(*job) : OutcomeOf(*job);
    followed.Count = CountOf(*job);
}

void JobFollower::write(Job *job)
{
    const bool isOver = job->State() == JobState::Over || job->KeepsPlace();
    const auto found = jobs.find(job);
    // It may wait again by now.
    if (found == jobs.end() || found->Ended || !isOver)
        return;
    note(job);
    if (found->Ran && found->SessionEnds && !found->Later && WasCutOff(*job))
        stoppedBySession.append(found->Id);
    found->Ended = true;
    HistoryStore::Of().End(found->Id, found->Outcome, found->Count);
}

void JobFollower::gone(Job *job)
{
    const Followed followed = jobs.take(job);
    if (!followed.Ended)
        HistoryStore::Of().End(followed.Id, followed.Outcome, followed.Count);
}

void JobFollower::sent(const QString &request) const
{
    const Job *job = Job::WithTurn();
    const auto found = jobs.constFind(job);
    if (found == jobs.cend())
        return;
    HistoryStore::Of().Sent(found->Id, SentKindOf(*job, request), ClientCodeOf(*job),
                            Clock::Current().Now());
}

void JobFollower::EndSession()
{
    for (const qint64 id : std::as_const(stoppedBySession))
        HistoryStore::Of().Again(id);
    stoppedBySession.clear();
}

void JobFollower::LeaveHistory() const
{
    QList<qint64> open = numbers.values();
    for (const Followed &followed : jobs) {
        if (!followed.Ended)
            open.append(followed.Id);
    }
    HistoryStore::Of().Settle(open, u"The history was switched off before it was over."_s);
}

JobFollower *theFollower = nullptr; ///< nobody before FollowJobs
} // namespace

void FollowJobs()
{
    static JobFollower follower;
    theFollower = &follower;
    AtEndOfProgram([] { follower.EndSession(); });
}

void LeaveHistory()
{
    if (theFollower)
        theFollower->LeaveHistory();
}
