#include "history/HistoryDatabase.h"

#include <QSqlError>

#include <array>
#include <atomic>

using namespace Qt::StringLiterals;

namespace {
struct CodeRow
{
    int Code; ///< what SQLite calls the failure; the upper bytes only refine it
    HistoryTrouble Trouble;
};

constexpr std::array<CodeRow, 9> codes{{
    {3, HistoryTrouble::CannotWrite},  // permission
    {5, HistoryTrouble::Busy},         // another connection
    {6, HistoryTrouble::Busy},         // another statement of this one
    {8, HistoryTrouble::CannotWrite},  // read-only
    {10, HistoryTrouble::DiskFails},   // input or output
    {11, HistoryTrouble::Damaged},     // malformed
    {13, HistoryTrouble::Full},        // no room
    {14, HistoryTrouble::CannotWrite}, // cannot be opened
    {26, HistoryTrouble::Damaged},     // no database
}};

HistoryTrouble troubleOf(const QSqlError &error)
{
    if (!error.isValid())
        return HistoryTrouble::None;
    const int code = error.nativeErrorCode().toInt() & 0xff;
    for (const CodeRow &row : codes) {
        if (row.Code == code)
            return row.Trouble;
    }
    return HistoryTrouble::DiskFails;
}

/// Connections have names throughout the process.
QString freshName()
{
    static std::atomic<int> made = 0;
    return u"history-"_s + QString::number(++made);
}
} // namespace

HistoryDatabase::~HistoryDatabase()
{
    Close();
}

bool HistoryDatabase::Open(const QString &path, Access access, int busyMilliseconds)
{
    Close();
    database = QSqlDatabase::addDatabase(u"QSQLITE"_s, freshName());
    database.setDatabaseName(path);
    QString options = u"QSQLITE_BUSY_TIMEOUT="_s + QString::number(busyMilliseconds);
    if (access == Access::ReadOnly)
        options += u";QSQLITE_OPEN_READONLY"_s;
    database.setConnectOptions(options);
    const bool opened = database.open();
    trouble = opened ? HistoryTrouble::None : troubleOf(database.lastError());
    if (!opened)
        Close();
    return opened;
}

void HistoryDatabase::Close()
{
    if (!database.isValid())
        return;
    const QString name = database.connectionName();
    database.close();
    // A connection that is still held somewhere cannot be removed.
    database = {};
    QSqlDatabase::removeDatabase(name);
}

bool HistoryDatabase::execute(QSqlQuery &query, const QVariantList &values)
{
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (query.exec()) {
        trouble = HistoryTrouble::None;
        return true;
    }
    trouble = troubleOf(query.lastError());
    return false;
}

bool HistoryDatabase::Run(const QString &sql, const QVariantList &values)
{
    Ask(sql, values);
    return trouble == HistoryTrouble::None;
}

QSqlQuery HistoryDatabase::Ask(const QString &sql, const QVariantList &values)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (query.prepare(sql))
        execute(query, values);
    else
        trouble = troubleOf(query.lastError());
    return query;
}

QVariant HistoryDatabase::Value(const QString &sql, const QVariantList &values)
{
    QSqlQuery query = Ask(sql, values);
    return query.next() ? query.value(0) : QVariant();
}
