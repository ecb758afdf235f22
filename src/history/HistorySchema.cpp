#include "history/HistorySchema.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// One statement on the way from the version before to this one. Rows of the same version stand
/// together and are carried out in their order. What customers have is never changed here: a later
/// version adds rows.
struct SchemaStep
{
    int Version;
    QStringView Statement;
};

constexpr std::array<SchemaStep, 9> steps{{
    // Times are milliseconds since 1970. LeftBehind: it had not ended when a session did.
    {1, u"CREATE TABLE Asked (Id INTEGER PRIMARY KEY, Kind INTEGER NOT NULL, State INTEGER NOT "
        "NULL, Time INTEGER NOT NULL, What TEXT NOT NULL, Place TEXT NOT NULL, Code TEXT NOT NULL, "
        "Outcome TEXT NOT NULL, Count INTEGER NOT NULL, LeftBehind INTEGER NOT NULL DEFAULT 0, "
        "Origin BLOB)"},
    {1, u"CREATE INDEX AskedTime ON Asked (Time)"},
    {1, u"CREATE INDEX AskedOpen ON Asked (Id) WHERE State < 2"},
    // What a filter looks through, in one case, apart from what makes the other table's rows long.
    {1, u"CREATE TABLE Words (Id INTEGER PRIMARY KEY, Text TEXT NOT NULL)"},
    {1, u"CREATE TABLE Sent (Month TEXT NOT NULL, Code TEXT NOT NULL, Item INTEGER NOT NULL, Kind "
        "INTEGER NOT NULL, Count INTEGER NOT NULL, PRIMARY KEY (Month, Code, Item, Kind)) WITHOUT "
        "ROWID"},
    {1, u"CREATE INDEX SentItem ON Sent (Item)"},
    // The same added up, since a large account is looked at while it grows.
    {1,
     u"CREATE TABLE Account (Month TEXT NOT NULL, Code TEXT NOT NULL, Searches INTEGER NOT NULL, "
     "Requests INTEGER NOT NULL, Cases INTEGER NOT NULL, Tabs INTEGER NOT NULL, Documents "
     "INTEGER NOT NULL, PRIMARY KEY (Month, Code)) WITHOUT ROWID"},
    // Hashed rows stand behind the short columns, so that asking for a time does not read them.
    {1, u"CREATE TABLE Looks (CaseKey TEXT NOT NULL, Tab TEXT NOT NULL, LookedAt INTEGER NOT NULL, "
        "SeenAt INTEGER NOT NULL, Hashes BLOB NOT NULL, PRIMARY KEY (CaseKey, Tab))"},
    {1, u"CREATE TABLE Runs (SearchKey TEXT PRIMARY KEY NOT NULL, Time INTEGER NOT NULL, Hashes "
        "BLOB NOT NULL)"},
}};

int versionOf(HistoryDatabase &database)
{
    return database.Value(u"PRAGMA user_version"_s).toInt();
}

bool carryOut(HistoryDatabase &database, int from)
{
    for (const SchemaStep &step : steps) {
        if (step.Version > from && !database.Run(step.Statement.toString()))
            return false;
    }
    return database.Run(u"PRAGMA user_version = "_s + QString::number(HistoryVersion()));
}

HistoryTrouble migrate(HistoryDatabase &database, int from)
{
    if (!database.Run(u"BEGIN IMMEDIATE"_s))
        return database.Trouble();
    if (carryOut(database, from) && database.Run(u"COMMIT"_s))
        return HistoryTrouble::None;
    const HistoryTrouble trouble = database.Trouble();
    database.Run(u"ROLLBACK"_s);
    return trouble;
}
} // namespace

int HistoryVersion()
{
    return steps.back().Version;
}

HistoryTrouble RefuseStrangers(HistoryDatabase &database)
{
    const int version = versionOf(database);
    if (database.Trouble() != HistoryTrouble::None)
        return database.Trouble();
    if (version > HistoryVersion())
        return HistoryTrouble::Newer;
    const int tables = database.Value(u"SELECT count(*) FROM sqlite_master"_s).toInt();
    const bool foreign = version == 0 && tables > 0;
    return foreign ? HistoryTrouble::Damaged : database.Trouble();
}

HistoryTrouble BringToVersion(HistoryDatabase &database)
{
    const int version = versionOf(database);
    if (database.Trouble() != HistoryTrouble::None || version == HistoryVersion())
        return database.Trouble();
    return migrate(database, version);
}

HistoryTrouble CheckIntegrity(HistoryDatabase &database)
{
    const QString answer = database.Value(u"PRAGMA quick_check(1)"_s).toString();
    if (database.Trouble() != HistoryTrouble::None)
        return database.Trouble();
    return answer == u"ok" ? HistoryTrouble::None : HistoryTrouble::Damaged;
}
