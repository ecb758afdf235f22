#include "searchentry/NumberListRun.h"

#include "casedetails/CaseJob.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "courts/CourtTable.h"
#include "searchentry/NumberRequests.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/SearchEvents.h"
#include "session/SessionEvents.h"
#include "session/frmMain.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr int outcomeColumn = 2;

using Outcome = NumberListRun::Outcome;

/// How an outcome reads in the list, and in its sum.
struct ListedOutcome
{
    Outcome outcome;
    QStringView words;
    QStringView counted; ///< "" when it is not counted by itself
};
constexpr std::array<ListedOutcome, 8> listedOutcomes{{
    {Outcome::Waiting, u"Waiting", u""},
    {Outcome::Asked, u"Asked for ..", u""},
    {Outcome::Found, u"Found", u"found"},
    {Outcome::Incomplete, u"Found, but not complete", u"found, but not complete"},
    {Outcome::NotFound, u"Not found", u"not found"},
    {Outcome::Failed, u"Failed", u"failed"},
    {Outcome::Stopped, u"Stopped", u"stopped"},
    {Outcome::NotStarted, u"Not started", u"not started"},
}};

QList<NumberListRun *> &runs()
{
    static QList<NumberListRun *> all;
    return all;
}

/// What has come of a case that is over, or broke down.
Outcome outcomeOf(const CaseJob &job)
{
    const CaseRecord &record = job.Record;
    const CaseTabRecord &summary = record.Tab(CaseTab::Summary);
    if (job.StopRequested || record.SearchStopped)
        return Outcome::Stopped;
    if (record.NoSuchCase)
        return Outcome::NotFound;
    if (!summary.TabDone || summary.Table.IsMessage())
        return Outcome::Failed;
    const bool isWhole = !record.AnyTabIncomplete() && !job.KeepsPlace();
    return isWhole ? Outcome::Found : Outcome::Incomplete;
}

bool sessionEnds()
{
    return !Global.bLoggedIn || Global.bStopRequested;
}

/// A window that comes up by itself does not take the keyboard from the one that the user is in.
/// Nobody is in one that is out of sight, and it stays there.
class KeepsFront
{
public:
    KeepsFront() : main(frmMain::Form()), front(main ? main->ActiveChild() : nullptr)
    {
        const QWidget *frame = front ? front->parentWidget() : nullptr;
        if (frame && (frame->isHidden() || frame->isMinimized()))
            front = nullptr;
    }
    ~KeepsFront()
    {
        if (main && front && !front->IsUnloaded())
            main->ShowChildAgain(front);
    }
    KeepsFront(const KeepsFront &) = delete;
    KeepsFront &operator=(const KeepsFront &) = delete;

private:
    QPointer<frmMain> main;
    QPointer<FormWindow> front;
};
} // namespace

NumberListRun::NumberListRun(const QList<CaseStart> &starts)
    : QObject(QCoreApplication::instance()), Rows(this)
{
    for (const CaseStart &start : starts) {
        cases.append({start});
        Rows.AddRow({start.txtCaseNumber, start.lblCourtName, u"Waiting"_s});
    }
    connect(&JobEvents::Of(), &JobEvents::Over, this, &NumberListRun::jobOver);
    // Nobody comes back to a run that broke down: it is never over.
    connect(&JobEvents::Of(), &JobEvents::TurnOver, this, [this](Job *job) {
        if (job->KeepsPlace())
            jobOver(job);
    });
    connect(&SessionEvents::Of(), &SessionEvents::SessionChanged, this,
            [this] { giveUpRest(u"the session ended"_s, true); });
    runs().append(this);
}

NumberListRun::~NumberListRun()
{
    runs().removeOne(this);
}

NumberListRun *NumberListRun::Start(const QList<ListedNumber> &numbers,
                                    const NumberListCourt &court, const QString &code,
                                    bool autoPrint)
{
    QList<CaseStart> starts;
    const QList<SearchEntry> batches = BatchesOf(numbers, court);
    for (const SearchEntry &batch : batches)
        starts += BatchFields(batch);
    for (CaseStart &start : starts) {
        start.ClientAcctgCode = code;
        start.chkAutoPrint = autoPrint;
    }
    return Start(starts);
}

NumberListRun *NumberListRun::Start(const QList<CaseStart> &starts)
{
    auto *run = new NumberListRun(starts);
    startMore();
    run->announceRest();
    return run;
}

/// What waits here is in no queue and has no window: whoever keeps what was asked for would not
/// know of it when the program ends.
void NumberListRun::announceRest()
{
    for (Case &one : cases) {
        if (one.Result == Outcome::Waiting)
            announce(one);
    }
}

void NumberListRun::announce(Case &one)
{
    static qint64 lastTicket = 0;
    one.Ticket = ++lastTicket;
    Q_EMIT SearchEvents::Of().NumberWaits(one.Ticket, one.Start);
}

void NumberListRun::startMore()
{
    // A run may end, and go, while another begins.
    const QList<NumberListRun *> all = runs();
    for (const QPointer<NumberListRun> run : all) {
        while (run) {
            qsizetype places = MostAtATime;
            for (const NumberListRun *each : std::as_const(runs()))
                places -= each->asked.size();
            const int row = run->nextRow();
            if (row < 0 || places <= 0)
                break;
            // A case that is launched would take back the wish that everything stops.
            if (sessionEnds())
                run->giveUpRest(u"the session ended"_s, true);
            else if (Global.bConnectionClosed)
                run->giveUpRest(u"the connection was lost"_s, true);
            else
                run->launch(row);
        }
    }
}

/// The first row that waits, -1 when none does.
int NumberListRun::nextRow() const
{
    for (int row = 0; row < cases.size(); ++row) {
        if (cases[row].Result == Outcome::Waiting)
            return row;
    }
    return -1;
}

void NumberListRun::launch(int row)
{
    setOutcome(row, Outcome::Asked);
    QString error;
    if (Job *job = launchedCase(cases[row], &error)) {
        follow(job, row);
    } else {
        setOutcome(row, Outcome::Failed, error);
        giveUp(row, false);
    }
    settled();
}

/// The job of the case that is launched; null when it cannot be, and what went wrong.
Job *NumberListRun::launchedCase(const Case &one, QString *error)
{
    QPointer<Job> job;
    const QMetaObject::Connection announced =
        connect(&JobEvents::Of(), &JobEvents::Launched, this, [&job](Job *launched) {
            if (!job)
                job = launched;
        });
    if (one.Ticket != 0)
        Q_EMIT SearchEvents::Of().NumberLaunches(one.Ticket);
    try {
        LaunchBatchCase(one.Start, one.Start.ClientAcctgCode, one.Start.chkAutoPrint);
    } catch (const RunTimeError &raised) {
        *error = u": "_s + raised.Description();
    }
    disconnect(announced);
    return job;
}

void NumberListRun::follow(Job *job, int row)
{
    asked.insert(job, row);
    // One whose window is closed before it is over goes without a word.
    connect(job, &QObject::destroyed, this,
            [this](const QObject *gone) { settle(gone, Outcome::Stopped); });
}

/// What came of it is not complete before its run has ended, and the next may begin only then.
void NumberListRun::jobOver(Job *job)
{
    if (!asked.contains(job))
        return;
    const bool stoppedWithAll = sessionEnds();
    const auto look = [this, over = QPointer<Job>(job), stoppedWithAll] {
        const auto *ofCase = qobject_cast<CaseJob *>(over);
        if (!ofCase)
            return;
        const Outcome outcome = outcomeOf(*ofCase);
        settle(over, stoppedWithAll && outcome == Outcome::Failed ? Outcome::Stopped : outcome);
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void NumberListRun::settle(const QObject *job, Outcome outcome)
{
    const auto found = asked.constFind(job);
    if (found == asked.cend())
        return;
    const int row = found.value();
    asked.erase(found);
    setOutcome(row, outcome);
    settled();
    const auto goOn = [] {
        const KeepsFront front;
        startMore();
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), goOn, Qt::QueuedConnection);
}

void NumberListRun::setOutcome(int row, Outcome outcome, const QString &words)
{
    cases[row].Result = outcome;
    Rows.SetCell(row, outcomeColumn,
                 listedOutcomes.at(static_cast<size_t>(outcome)).words.toString() + words);
    Q_EMIT Changed();
}

void NumberListRun::GiveUpRest()
{
    giveUpRest(u"no more were wanted"_s, false);
}

void NumberListRun::giveUpRest(const QString &reason, bool wanted)
{
    for (int row = 0; row < cases.size(); ++row) {
        if (cases[row].Result != Outcome::Waiting)
            continue;
        setOutcome(row, Outcome::NotStarted, u": "_s + reason);
        giveUp(row, wanted);
    }
    settled();
}

/// Whoever follows what waits hears what its row says, also of one that did not come to wait.
void NumberListRun::giveUp(int row, bool wanted)
{
    Case &one = cases[row];
    if (one.Ticket == 0)
        announce(one);
    Q_EMIT SearchEvents::Of().NumberGivenUp(one.Ticket, Rows.Cell(row, outcomeColumn), wanted);
}

void NumberListRun::settled()
{
    if (ended || !IsOver())
        return;
    ended = true;
    Q_EMIT Ended();
}

int NumberListRun::count(Outcome outcome) const
{
    return static_cast<int>(std::count_if(cases.begin(), cases.end(),
                                          [&](const Case &one) { return one.Result == outcome; }));
}

bool NumberListRun::IsOver() const
{
    return count(Outcome::Waiting) == 0 && count(Outcome::Asked) == 0;
}

QString NumberListRun::Summary() const
{
    QStringList parts;
    int done = 0;
    for (const ListedOutcome &row : listedOutcomes) {
        const int counted = row.counted.isEmpty() ? 0 : count(row.outcome);
        done += counted;
        if (counted > 0)
            parts.append(QString::number(counted) + u' ' + row.counted);
    }
    QString sum = QString::number(done) + u" of "_s + QString::number(cases.size()) + u" done"_s;
    if (!parts.isEmpty())
        sum += u": "_s + parts.join(u", "_s);
    return sum + u'.';
}
