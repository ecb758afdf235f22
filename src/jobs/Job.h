#pragma once

#include "jobs/JobKinds.h"
#include "records/StatusLine.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class Job;

/// What becomes of jobs, for whoever follows all of them. The object outlives every job, so that
/// connecting to it once, at the start of the program, is enough.
class JobEvents : public QObject
{
    Q_OBJECT
public:
    static JobEvents &Of();

Q_SIGNALS:
    /// A job that is complete, key and all, waits for its first turn.
    void Launched(Job *job);
    /// A job that was over waits for another turn.
    void Restarted(Job *job);
    /// A job has got its turn.
    void TurnTaken(Job *job);
    /// A job that waited or ran is over: its run came to its end, or it was stopped before.
    void Over(Job *job);
    /// The run of a job is off the stack, however it ended; one that broke down has kept its place.
    void TurnOver(Job *job);
    /// Nobody looks at a job any more. What it was for can still be read from it.
    void GivenUp(Job *job);
    /// A key has come into the queue, or has gone from it.
    void QueueChanged();
};

/// What a job is for, in words that tell it from others of its kind.
struct JobMatter
{
    QString What;  ///< the name that is searched for, the number of the case, the document
    QString Where; ///< the courts or counties, the case of the document
};

/// How far a job is. It never goes back, but a job that is over can begin anew as Pending.
enum class JobState {
    Pending,  ///< its key waits in the queue
    Taken,    ///< it has its turn, and nothing has been asked yet
    Running,  ///< its run asks and reads
    Stopping, ///< the user stopped it: the run still reads what the court has to say
    Over
};

/// One piece of work on the link: it waits for its turn, runs to its end, and can be stopped before
/// and during it. It knows no window. Whoever shows it follows its signals; the window may go at
/// any moment, and the job ends by its own rules.
///
/// Its window goes in two steps. GiveUp() says that nobody looks at the job any more: it does not
/// ask for its turn again, and a run that is on the stack asks for nothing more. Release() gives it
/// away: it is deleted then, or as soon as its last procedure has returned.
class Job : public QObject
{
    Q_OBJECT
public:
    ~Job() override;

    /// No job has its run on the stack, and none is about to have its turn. One that waits behind a
    /// run which broke down and kept its place is not about to.
    static bool AllAtRest();
    /// The job whose run took the link last, of those that are on the stack: a request that goes
    /// out is its request. Null when no job runs.
    static Job *WithTurn();
    /// Every job that there is, in the order in which they were made.
    static const QList<Job *> &All();
    /// The job is complete and waits for its first turn; says so to whoever follows all jobs.
    void AnnounceLaunch() { Q_EMIT JobEvents::Of().Launched(this); }

    JobState State() const { return jobState; }
    /// The run is on the stack, whatever the user was told meanwhile.
    bool HasTurn() const { return hasTurn; }
    /// The job can be stopped: it waits, or works and has not been stopped yet.
    bool CanBeStopped() const
    {
        return jobState != JobState::Stopping && jobState != JobState::Over;
    }
    /// Another job was seen using the link when this one asked for its turn.
    bool LinkWasTaken() const { return linkWasTaken; }
    const JobKind &Kind() const { return *kind; }
    /// What the job is for; both texts may be empty while that is not known.
    virtual JobMatter Matter() const { return {}; }
    /// The run is over and has not given its turn back: it broke down, and nobody comes back to it.
    bool KeepsPlace() const;

    /// Takes the key out of the queue, wherever it stands.
    void Withdraw();

    /// Stops the job on the user's word: withdraws it while it waits, and tells the court while it
    /// runs.
    void Stop();
    bool StopPendingSearch();
    bool StopActiveSearch();
    void StopCurrentSearch();
    /// Takes a job whose run broke down out of the queue, as one that was stopped before its turn:
    /// the court is told nothing, since another may be using the link by then.
    void Skip();

    /// Nobody looks at the job any more.
    void GiveUp();
    bool IsGivenUp() const { return givenUp; }
    /// Nobody holds the job any more. It goes a little later than the window, whose lists show its
    /// rows.
    void Release();

    QString txtMasterKey;       ///< the key in the queue, "" before it was enqueued
    StatusLine Status;          ///< lblStatus
    bool StopRequested = false; ///< Stop was confirmed
    QTimer *Timer1;             ///< asks for the turn

Q_SIGNALS:
    /// The state, or whether the link is taken, is another now.
    void StateChanged();
    /// What the job shows may read otherwise now.
    void Changed();
    /// A run has come to its end, of its own or stopped by the user.
    void Ended(bool stoppedByUser);

protected:
    /// `name` is the kind of the first run.
    explicit Job(JobKindName name);

    /// Why a job is shown as stopped.
    enum class StopCase {
        AllJobs, ///< a logout, disconnect or exit; seen when the turn is asked for
        Pending, ///< the user, before the turn
        Active   ///< the user, during the run
    };

    /// A run that asks for its turn.
    struct TurnRequest
    {
        QTimer *Timer; ///< asks again
        std::function<void()> Run;
        std::function<void()> Stopped; ///< every job was asked to stop
    };
    /// Asks once, and does what the answer says.
    void AskTurn(const TurnRequest &request);

    /// At the beginning of every tick, before the turn is asked for.
    virtual void BeginTick() {}
    /// The job itself. It gives the turn back on every way out, and says so by EndRun.
    virtual void ProcessSearchRequests() = 0;
    /// Shows that the job was stopped; ShowStoppedStatus is the part that all have in common.
    virtual void ShowStopped(StopCase stopCase) = 0;
    /// What the court is told when the job is stopped; "" when it has nothing to stop any more.
    virtual QString StopRequest() const = 0;
    /// The stop has been carried out.
    virtual void StopDone() {}
    /// Nobody looks at the job any more.
    virtual void GivenUp() {}

    /// Waits again, with the key that it has, as a job of this kind, whose turn this timer asks
    /// for.
    void Restart(JobKindName name, QTimer *timer);
    void ShowStoppedStatus();
    void SetStatus(const QString &text, StatusStyle style = StatusStyle::Unchanged);
    /// Nothing is to be stopped any more.
    void SetOver();
    void LogStoppedByAll();

    /// Keeps the job from being deleted while one of its procedures waits.
    class RunScope
    {
    public:
        explicit RunScope(Job *job) : guarded(job) { ++guarded->scopes; }
        ~RunScope() { guarded->endScope(); }
        RunScope(const RunScope &) = delete;
        RunScope &operator=(const RunScope &) = delete;

    private:
        Job *guarded;
    };

private:
    void tick();
    void takeTurn(const TurnRequest &request);
    void setState(JobState newState);
    void endScope();

    const JobKind *kind;
    JobState jobState = JobState::Pending;
    bool linkWasTaken = false;
    bool givenUp = false;
    bool released = false;
    int scopes = 0;       ///< procedures of this job on the stack
    bool hasTurn = false; ///< a run of this job is on the stack
};
