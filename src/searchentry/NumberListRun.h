#pragma once

#include "records/CaseStart.h"
#include "records/RowTable.h"
#include "searchentry/NumberList.h"

#include <QHash>
#include <QObject>

class Job;

/// The cases of a list of numbers: ten are asked for at a time, as a batch would, and each that
/// ends lets the next begin. It belongs to no window, and goes on when the search form and the
/// window of the list are closed. It ends when all cases have, and starts nothing more when the
/// session has ended. Whoever shows it lets it go.
class NumberListRun : public QObject
{
    Q_OBJECT
public:
    /// What has come of a number.
    enum class Outcome { Waiting, Asked, Found, Incomplete, NotFound, Failed, Stopped, NotStarted };

    /// So many are asked for at a time, of all lists together.
    static constexpr int MostAtATime = 10;

    /// Begins: the first cases are on the screen on return. `code` is the client accounting code,
    /// `autoPrint` prints each case as soon as it is there. Several runs share the ten places.
    static NumberListRun *Start(const QList<ListedNumber> &numbers, const NumberListCourt &court,
                                const QString &code, bool autoPrint);
    /// The same with numbers that were asked for before, each with the code that it had.
    static NumberListRun *Start(const QList<CaseStart> &starts);
    ~NumberListRun() override;

    /// A row for each number: number, court, outcome.
    RowTable Rows;
    Outcome OutcomeOf(int row) const { return cases.at(row).Result; }
    bool IsOver() const;
    /// Whether a number waits for its place.
    bool HasRest() const { return nextRow() >= 0; }
    /// "12 of 25 done: 10 found, 1 not found, 1 failed."
    QString Summary() const;

    /// Starts nothing more, because the user wants it so. What is asked for already goes on.
    void GiveUpRest();

Q_SIGNALS:
    /// A row reads otherwise now.
    void Changed();
    /// Nothing is waited for any more.
    void Ended();

private:
    struct Case
    {
        CaseStart Start;
        Outcome Result = Outcome::Waiting;
        qint64 Ticket = 0; ///< for whoever follows what waits; 0 when it did not have to
    };

    explicit NumberListRun(const QList<CaseStart> &starts);

    static void startMore();
    void announceRest();
    void giveUpRest(const QString &reason, bool wanted);
    static void announce(Case &one);
    void giveUp(int row, bool wanted);
    int nextRow() const;
    void launch(int row);
    Job *launchedCase(const Case &one, QString *error);
    void follow(Job *job, int row);
    void jobOver(Job *job);
    void settle(const QObject *job, Outcome outcome);
    void setOutcome(int row, Outcome outcome, const QString &words = {});
    void settled();
    int count(Outcome outcome) const;

    QList<Case> cases;
    bool ended = false;
    QHash<const QObject *, int> asked; ///< the rows of the jobs that have not ended
};
