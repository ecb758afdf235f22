#pragma once

#include "records/CourtAnswer.h"

#include <QHash>
#include <QStringList>

#include <functional>

/// The account of what each request of a search has brought, and of what is missing. The lines are
/// those of the record; this writes them while a run goes on.
///
/// A search can run several times: for the next page of an index, for people who are checked. Each
/// run adds its lines below those of the runs before. A request that is asked for again in the same
/// words has one line, that of the later run.
class CourtLines
{
public:
    explicit CourtLines(QList<CourtAnswer> &recorded) : lines(recorded) {}

    /// The next run asks for something of its own.
    void NewRun() { firstOfRun = lines.size(); }
    /// These are the requests of the run, in order. Nothing changes when they are listed already.
    void List(const QStringList &requests,
              const std::function<QString(const QString &request)> &courtOf);
    /// The line of a request of the run, by its number in it.
    qsizetype OfRun(int number) const { return firstOfRun + number; }

    /// Whether a line has something missing.
    bool AnyMissing() const { return !missing().isEmpty(); }
    /// Whether every line has its answer, and none more than it lists.
    bool IsWhole() const;
    /// The lines with something missing wait again. Gives their numbers, in order.
    const QList<qsizetype> &BeginRetry();
    /// What has come of them, in a sentence.
    QString RetryResult(bool stopped) const;

    /// This line is asked now.
    void Ask(qsizetype line);
    /// A row has come. False when the list has it already, from a time before at which the answer
    /// came in part: a row that a court sends twice in one answer is two rows.
    bool TakeRow(const QString &row, bool isName);
    /// The court says why it has nothing, or not all; the answer goes on to its end.
    void TakeError(const QString &words);

    // The end of the answer; nothing happens when no line is asked
    void Answered();
    void EndTooMany() { end(AnswerState::TooMany); }
    void EndStopped() { end(AnswerState::Stopped); }
    void EndFailed(const QString &reason);

    /// Nothing more is asked for: what waits is not asked.
    void EndRun();

private:
    QList<qsizetype> missing() const;
    void end(AnswerState state);
    void forgetRepeated(const QStringList &requests);

    QList<CourtAnswer> &lines;
    qsizetype firstOfRun = 0;
    qsizetype asked = -1; ///< the line that is being asked
    QList<qsizetype> toRetry;
    int added = 0; ///< rows that the retry has brought
    float startedAt = 0;
    /// The rows of this answer, by their hashes: any answer can still end in the middle, but nearly
    /// all come whole, and those of a hundred thousand rows must cost nearly nothing.
    QList<quint64> came;

    /// How often each row of a request that came in part is in the list, and which of them are yet
    /// to come again.
    using RowCounts = QHash<quint64, int>;
    QHash<QString, RowCounts> parts; ///< by request
    RowCounts expected;
};
