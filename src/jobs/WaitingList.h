#pragma once

#include "jobs/Job.h"

#include <QHash>
#include <QObject>
#include <QPointer>

/// How a line of the queue stands.
enum class WaitingState {
    Runs,
    Stops,     ///< it was stopped, and its run reads what the court still has to say
    Ends,      ///< the same, since its window was closed
    Waits,     ///< for its turn
    Closed,    ///< holds the queue: its window was closed before its turn, and not stopped
    BrokenDown ///< holds the queue: its run broke down and has kept its place
};

/// A line of the queue, or a job that still runs without one.
struct WaitingRow
{
    QString Key;
    QString Kind; ///< "Search", "Case", "Document"
    QString What; ///< the name, the number, the document
    QString Where;
    WaitingState State = WaitingState::Waits;
    int Place = 0;     ///< among those that wait, counted from 1; 0 for all others
    QPointer<Job> Who; ///< null for a key whose job has gone

    /// Nothing behind this line will have its turn before it is taken away.
    bool Holds() const
    {
        return State == WaitingState::Closed || State == WaitingState::BrokenDown;
    }
    /// What it is, in one line: "Search: SMITH, JOHN (King)".
    QString Text() const;
    bool operator==(const WaitingRow &) const = default;
};

/// How a row stands, in words: "Runs", "Waits: 2nd".
QString StateText(const WaitingRow &row);

/// What runs, what waits and in which order, and what holds the queue. It follows the queue and the
/// jobs by their signals and does nothing while nothing happens.
///
/// A key whose window was closed has no job any more: what it was for is kept here while it stands
/// in the queue, so the list has to be there before the jobs are.
class WaitingList : public QObject
{
    Q_OBJECT
public:
    explicit WaitingList(QObject *parent = nullptr);

    /// As of the last Changed, or the last Refresh.
    const QList<WaitingRow> &Rows() const { return rows; }
    /// The row of this key; null without one.
    const WaitingRow *RowOf(const QString &key) const;
    /// How many wait for their turn.
    int Waiting() const;
    /// Whether a line holds the queue.
    bool HeldUp() const;
    /// "3 waiting", "3 waiting, held up", "Held up"; "" when nothing waits and nothing holds.
    QString Summary() const;

    /// Reads the queue now.
    void Refresh();
    /// Takes a key that holds the queue out of it. False, and nothing has happened, when it does
    /// not, or not any more.
    bool Skip(const QString &key);

Q_SIGNALS:
    /// The rows are others now. Once for all that happens in one turn of the event loop.
    void Changed();

private:
    struct Known
    {
        QString Kind;
        JobMatter Matter;
    };

    void follow(Job *job);
    void refreshSoon();
    void remember(const Job *job);
    void forgetWhatHasGone();
    QList<WaitingRow> rowsNow() const;
    WaitingRow rowOfKey(const QString &key) const;

    QList<WaitingRow> rows;
    QHash<QString, Known> known; ///< by key
    bool refreshing = false;     ///< is on its way
};
