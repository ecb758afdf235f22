#include "jobs/WaitingList.h"

#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
Job *jobOfKey(const QString &key)
{
    const QList<Job *> &jobs = Job::All();
    const auto found = std::find_if(jobs.begin(), jobs.end(),
                                    [&key](const Job *job) { return job->txtMasterKey == key; });
    return found == jobs.end() ? nullptr : *found;
}

QStringList queuedKeys()
{
    return frmQueue::IsLoaded() ? frmQueue::Form().FIFO.Lines() : QStringList();
}

WaitingState stateOf(const Job *job)
{
    if (!job)
        return WaitingState::Closed;
    if (job->HasTurn()) {
        if (job->IsGivenUp())
            return WaitingState::Ends;
        return job->State() == JobState::Stopping ? WaitingState::Stops : WaitingState::Runs;
    }
    if (job->IsGivenUp())
        return WaitingState::Closed;
    return job->State() == JobState::Pending ? WaitingState::Waits : WaitingState::BrokenDown;
}

/// "1st", "2nd", "3rd", "11th", "21st".
QString ordinal(int number)
{
    constexpr int ten = 10;
    constexpr std::array<QStringView, 4> endings{u"th", u"st", u"nd", u"rd"};
    const bool isTeen = number / ten % ten == 1;
    const auto last = static_cast<std::size_t>(number % ten);
    const QStringView ending = isTeen || last >= endings.size() ? endings[0] : endings.at(last);
    return QString::number(number) + ending;
}
} // namespace

QString WaitingRow::Text() const
{
    QString text = Kind.isEmpty() ? u"Search"_s : Kind;
    if (!What.isEmpty())
        text += u": "_s + What;
    if (!Where.isEmpty())
        text += u" ("_s + Where + u')';
    return text;
}

QString StateText(const WaitingRow &row)
{
    switch (row.State) {
    case WaitingState::Runs:
        return u"Runs"_s;
    case WaitingState::Stops:
        return u"Stopped, its reply is still coming"_s;
    case WaitingState::Ends:
        return u"Closed, its reply is still coming"_s;
    case WaitingState::Waits:
        return row.Place == 1 ? u"Waits: next"_s : u"Waits: "_s + ordinal(row.Place);
    case WaitingState::Closed:
        return u"Holds the queue: closed without Stop"_s;
    case WaitingState::BrokenDown:
        break;
    }
    return u"Holds the queue: its run broke down"_s;
}

WaitingList::WaitingList(QObject *parent) : QObject(parent)
{
    const JobEvents *events = &JobEvents::Of();
    connect(events, &JobEvents::Launched, this, &WaitingList::follow);
    connect(events, &JobEvents::GivenUp, this, [this](const Job *job) {
        remember(job);
        refreshSoon();
    });
    connect(events, &JobEvents::Restarted, this, &WaitingList::refreshSoon);
    connect(events, &JobEvents::TurnTaken, this, &WaitingList::refreshSoon);
    connect(events, &JobEvents::TurnOver, this, &WaitingList::refreshSoon);
    connect(events, &JobEvents::Over, this, &WaitingList::refreshSoon);
    connect(events, &JobEvents::QueueChanged, this, &WaitingList::refreshSoon);
    Refresh();
}

/// The criteria of a job may come with its first tick, and a stop is heard of by its state. A run
/// changes what it shows with every row, which says nothing here.
void WaitingList::follow(Job *job)
{
    connect(job, &Job::StateChanged, this, &WaitingList::refreshSoon);
    connect(job, &Job::Changed, this, [this, job] {
        if (job->State() == JobState::Pending)
            refreshSoon();
    });
    refreshSoon();
}

/// A job that goes on changes its key, its state and its words one after the other; who looks at
/// the list sees none of what is in between.
void WaitingList::refreshSoon()
{
    if (std::exchange(refreshing, true))
        return;
    QMetaObject::invokeMethod(this, &WaitingList::Refresh, Qt::QueuedConnection);
}

void WaitingList::Refresh()
{
    refreshing = false;
    for (const Job *job : Job::All())
        remember(job);
    QList<WaitingRow> now = rowsNow();
    forgetWhatHasGone();
    if (now == rows)
        return;
    rows = std::move(now);
    Q_EMIT Changed();
}

void WaitingList::remember(const Job *job)
{
    if (job->txtMasterKey.isEmpty())
        return;
    known[job->txtMasterKey] = {job->Kind().Name.toString(), job->Matter()};
}

void WaitingList::forgetWhatHasGone()
{
    const QStringList keys = queuedKeys();
    known.removeIf([&keys](const std::pair<const QString &, Known &> &one) {
        return !keys.contains(one.first) && !jobOfKey(one.first);
    });
}

QList<WaitingRow> WaitingList::rowsNow() const
{
    const QStringList keys = queuedKeys();
    QList<WaitingRow> found;
    // A stop that could not be sent has given the place away, and its run reads on.
    for (const Job *job : Job::All()) {
        if (job->HasTurn() && !keys.contains(job->txtMasterKey))
            found.append(rowOfKey(job->txtMasterKey));
    }
    int place = 0;
    for (const QString &key : keys) {
        found.append(rowOfKey(key));
        if (found.last().State == WaitingState::Waits)
            found.last().Place = ++place;
    }
    return found;
}

WaitingRow WaitingList::rowOfKey(const QString &key) const
{
    Job *job = jobOfKey(key);
    const Known what = known.value(key);
    return {.Key = key,
            .Kind = what.Kind,
            .What = what.Matter.What,
            .Where = what.Matter.Where,
            .State = stateOf(job),
            .Place = 0,
            .Who = job};
}

const WaitingRow *WaitingList::RowOf(const QString &key) const
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&key](const WaitingRow &row) { return row.Key == key; });
    return found == rows.end() ? nullptr : &*found;
}

int WaitingList::Waiting() const
{
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), [](const WaitingRow &row) {
        return row.State == WaitingState::Waits;
    }));
}

bool WaitingList::HeldUp() const
{
    return std::any_of(rows.begin(), rows.end(), [](const WaitingRow &row) { return row.Holds(); });
}

QString WaitingList::Summary() const
{
    const int waiting = Waiting();
    if (waiting == 0)
        return HeldUp() ? u"Held up"_s : QString();
    return QString::number(waiting) + (HeldUp() ? u" waiting, held up"_s : u" waiting"_s);
}

bool WaitingList::Skip(const QString &key)
{
    Refresh();
    const WaitingRow *row = RowOf(key);
    if (!row || !row->Holds())
        return false;
    if (row->State == WaitingState::BrokenDown)
        row->Who->Skip();
    else
        WithdrawKey(key);
    return true;
}
