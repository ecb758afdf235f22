#pragma once

#include "history/AskedItem.h"
#include "history/HistoryDatabase.h"
#include "history/RowHashes.h"

#include <QList>
#include <QStringList>

#include <optional>

/// Searches, requests, cases, tabs and documents of one client code in one month.
struct HistoryUsage
{
    QString ClientCode;
    QString Month; ///< "2026-11"
    int Searches = 0;
    int Requests = 0;
    int Cases = 0;
    int Tabs = 0;
    int Documents = 0;
};

// What is read from the history. A file that is busy for longer than the connection waits, or that
// cannot be read, reads as an empty one.

/// Those in whose texts every word of the filter stands, in whatever case; newest first, from
/// `offset` on, `count` at most.
QList<AskedItem> ReadItems(HistoryDatabase &database, const QString &filter, int offset, int count);
int ReadCount(HistoryDatabase &database, const QString &filter);

/// What a filter finds in one stretch of the history.
struct FoundIds
{
    QList<qint64> Ids; ///< newest first
    qint64 Below = 0;  ///< where the next stretch begins
    bool AtEnd = true; ///< there is no next one
};
/// Looks through the `rows` items that come next below this id, newest first.
FoundIds ReadFound(HistoryDatabase &database, const QString &filter, qint64 below, int rows);
/// These items, in their order; one without an id for what is not there any more.
QList<AskedItem> ReadItemsOf(HistoryDatabase &database, const QList<qint64> &ids);
/// What had not ended when a session did and was not settled since.
QList<AskedItem> ReadUnfinished(HistoryDatabase &database);

/// The rows of a tab of a case, and when they were there.
struct SeenRows
{
    QDateTime When;
    RowCounts Rows;
};
std::optional<SeenRows> ReadLook(HistoryDatabase &database, const QString &caseKey,
                                 const QString &tab);
/// The same of a search, each row there or not.
struct SeenRun
{
    QDateTime When;
    RowSet Rows;
};
std::optional<SeenRun> ReadRun(HistoryDatabase &database, const QString &searchKey);
std::optional<QDateTime> ReadLastOpened(HistoryDatabase &database, const QString &caseKey);

/// The account, newest month first, by client code within a month.
QList<HistoryUsage> ReadUsage(HistoryDatabase &database);
/// What stands behind a line of it, newest first.
QList<AskedItem> ReadUsageItems(HistoryDatabase &database, const QString &code,
                                const QString &month);
