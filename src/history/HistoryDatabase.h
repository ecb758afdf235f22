#pragma once

#include "history/HistoryTrouble.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariantList>

/// One connection to the file of the history, for the thread that opens it.
class HistoryDatabase
{
public:
    enum class Access { ReadOnly, ReadWrite };

    HistoryDatabase() = default;
    ~HistoryDatabase();
    HistoryDatabase(const HistoryDatabase &) = delete;
    HistoryDatabase &operator=(const HistoryDatabase &) = delete;

    /// Opens an existing file. A statement waits so long for another connection that holds it.
    bool Open(const QString &path, Access access, int busyMilliseconds);
    void Close();
    bool IsOpen() const { return database.isOpen(); }

    /// Runs one statement to its end; false is a failure, of which Trouble() tells.
    bool Run(const QString &sql, const QVariantList &values = {});
    /// Runs one statement and gives its rows, none after a failure. The rows are to be read, or the
    /// query let go, before the next statement: rows that are half read keep the file from being
    /// tidied.
    QSqlQuery Ask(const QString &sql, const QVariantList &values = {});
    /// The first cell of the first row; invalid when there is none.
    QVariant Value(const QString &sql, const QVariantList &values = {});

    /// Why the last statement failed; None after one that went well.
    HistoryTrouble Trouble() const { return trouble; }

private:
    bool execute(QSqlQuery &query, const QVariantList &values);

    QSqlDatabase database;
    HistoryTrouble trouble = HistoryTrouble::None;
};
