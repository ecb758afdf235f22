#pragma once

#include "history/AskedItem.h"
#include "history/HistoryReader.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <memory>
#include <optional>

class HistoryWriter;
struct HistoryCommand;

/// The memory of the program: what was asked for, what was sent for it, and which rows were there.
///
/// Every call that changes something returns at once; a thread of its own writes, in the order of
/// the calls. Readers read what is written at that moment, and wait at most 50 milliseconds for it:
/// while the file is being opened, or is held by another program, the history reads as empty. On a
/// closed store every call is harmless.
class HistoryStore : public QObject
{
    Q_OBJECT
public:
    /// The program's one; closed until Open.
    static HistoryStore &Of();

    HistoryStore();
    ~HistoryStore() override;

    /// Begins to open this file, which is made when it is missing; its folder has to be there. A
    /// damaged one gives its place to a new one; with one that cannot be used the store closes
    /// again. Either is told by Problem. WaitUntilWritten waits until it is open.
    void Open(const QString &path);
    /// Writes what is queued, and closes; does not wait for another program that holds the file.
    void Close();
    bool IsOpen() const { return writer != nullptr; }
    /// The file that is open, "" for none.
    QString Path() const { return path; }
    /// Waits, without any event, until all that was asked for is in the file. False when that was
    /// not so after so many milliseconds, or when something was lost.
    bool WaitUntilWritten(int milliseconds);

    /// Something was asked for. Gives its id, 0 on a closed store.
    qint64 Begin(AskedItem item);
    /// It has its turn.
    void Runs(qint64 id);
    /// It is over: how it ended, and how many rows, tabs or pages came; -1 for unknown.
    void End(qint64 id, const QString &outcome, int count);
    /// It waits again: tabs on demand, the next page.
    void Again(qint64 id);
    using SentKind = ::SentKind;
    /// A request went out for this item, which is counted for this client code.
    void Sent(qint64 id, SentKind kind, const QString &clientCode, const QDateTime &when);

    /// The number under which a row is known again.
    static quint64 HashOfRow(const QStringList &cells);

    /// The rows of a tab at the last look.
    struct Look
    {
        QDateTime When;
        QHash<quint64, int> Rows; ///< how often each row was there
    };
    std::optional<Look> LastLook(const QString &caseKey, const QString &tab) const;
    /// The rows of a tab now. With `whole` they take the place of those that were there; otherwise
    /// they only come to them, and the time of the last whole look stays.
    void SaveLook(const QString &caseKey, const QString &tab, const QDateTime &when,
                  const QList<quint64> &rows, bool whole);
    /// When a tab of this case was last looked at, whole or not.
    std::optional<QDateTime> LastOpened(const QString &caseKey) const;

    /// The rows of a search when it was last run.
    using Run = SeenRun;
    std::optional<Run> LastRun(const QString &searchKey) const;
    void SaveRun(const QString &searchKey, const QDateTime &when, const QList<quint64> &rows);

    /// What was asked for, newest first, from `offset` on, `count` at most: those in whose texts
    /// (kind, what, where, client code, outcome, the day as MM/DD/YYYY) every word of the filter
    /// stands, in whatever case.
    QList<AskedItem> Items(const QString &filter, int offset, int count) const;
    int CountOf(const QString &filter) const;
    /// The same a stretch at a time, for whoever must not wait for all of it: what the filter finds
    /// among the items that come next below this id, so many of them that reading takes a few
    /// milliseconds, whatever the filter.
    FoundIds Found(const QString &filter, qint64 below) const;
    /// These items, in their order; one without an id for what is not there any more.
    QList<AskedItem> ItemsOf(const QList<qint64> &ids) const;
    /// What was waiting or running when an earlier session ended, oldest first.
    QList<AskedItem> Unfinished() const;
    /// These have ended so, and are no longer unfinished.
    void Settle(const QList<qint64> &ids, const QString &outcome);

    using UsageLine = HistoryUsage;
    /// The account, newest month first. A search or case is counted once a month, however many
    /// requests it took; tabs, documents and requests are counted as they were sent.
    QList<UsageLine> Usage() const;
    /// The lines behind it, newest first, each with its requests of that month.
    QList<AskedItem> UsageItems(const QString &code, const QString &month) const;

    /// Forgets everything, so that it cannot be found in the file any more.
    void ClearAll();
    /// Forgets what was asked for or seen before, with its part of the account.
    void ForgetBefore(const QDateTime &when);

Q_SIGNALS:
    /// Something is wrong with the file: plain sentences for the user, once for each kind of
    /// trouble.
    void Problem(const QString &text);
    /// Something was written that a list may show; at most four times a second.
    void Changed();

private:
    void put(HistoryCommand command);
    HistoryDatabase *reading() const;
    void sayTrouble(HistoryTrouble trouble, const QString &aside);
    void noteChange();
    void announceChange();

    QString path;
    std::unique_ptr<HistoryWriter> writer;
    mutable HistoryDatabase reader;
    /// How many a filter finds, as long as nothing is written: where it finds few, reading them has
    /// counted them, and looking through all of them once more would take as long again.
    struct KnownCount
    {
        QString Filter;
        int Version = -1; ///< of what is written
        int Count = 0;
    };
    mutable KnownCount knownCount;
    mutable int readerFile = 0; ///< which of the writer's files the reader has open
    QSet<HistoryTrouble> said;
    QTimer pause; ///< between two announcements of a change
    bool changed = false;
};
