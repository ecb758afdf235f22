#include "history/HistoryCommands.h"

#include "history/RowHashes.h"

using namespace Qt::StringLiterals;

namespace {
struct Statement
{
    QString Sql;
    QVariantList Values;
};

bool runAll(HistoryDatabase &database, const QList<Statement> &statements)
{
    for (const Statement &statement : statements) {
        if (!database.Run(statement.Sql, statement.Values))
            return false;
    }
    return true;
}

HistoryCommand commandOf(const QList<Statement> &statements)
{
    return {[statements](HistoryDatabase &database) { return runAll(database, statements); }};
}

/// A text that is not null: the file knows empty ones only.
QString text(const QString &given)
{
    return given.isNull() ? u""_s : given;
}

/// What a filter finds of an item: its kind, its texts and its day, each on a line of its own, so
/// that no word is found across two of them.
QString wordsOf(const AskedItem &item)
{
    const QStringList parts{
        TextOfKind(item.Kind), item.What,    item.Where,
        item.ClientCode,       item.Outcome, item.When.toLocalTime().toString(u"MM/dd/yyyy"_s)};
    return parts.join(u'\n').toCaseFolded();
}

bool writeWords(HistoryDatabase &database, qint64 id)
{
    AskedItem item;
    {
        QSqlQuery row = database.Ask(
            u"SELECT Kind, What, Place, Code, Outcome, Time FROM Asked WHERE Id = ?"_s, {id});
        if (!row.next())
            return database.Trouble() == HistoryTrouble::None;
        item.Kind = static_cast<AskedKind>(row.value(0).toInt());
        item.What = row.value(1).toString();
        item.Where = row.value(2).toString();
        item.ClientCode = row.value(3).toString();
        item.Outcome = row.value(4).toString();
        item.When = QDateTime::fromMSecsSinceEpoch(row.value(5).toLongLong());
    }
    return database.Run(u"INSERT OR REPLACE INTO Words (Id, Text) VALUES (?, ?)"_s,
                        {id, wordsOf(item)});
}

bool writeLook(HistoryDatabase &database, const QVariantList &key, const QDateTime &when,
               const QList<quint64> &rows, bool whole)
{
    RowCounts counts = CountsOf(rows);
    qint64 lookedAt = when.toMSecsSinceEpoch();
    if (!whole) {
        QSqlQuery last = database.Ask(
            u"SELECT LookedAt, Hashes FROM Looks WHERE CaseKey = ? AND Tab = ?"_s, key);
        if (last.next()) {
            lookedAt = last.value(0).toLongLong();
            counts = Joined(UnpackedRows(last.value(1).toByteArray()), counts);
        }
    }
    return database.Run(u"INSERT OR REPLACE INTO Looks (CaseKey, Tab, LookedAt, SeenAt, Hashes) "
                        "VALUES (?, ?, ?, ?, ?)"_s,
                        key + QVariantList{lookedAt, when.toMSecsSinceEpoch(), PackedRows(counts)});
}

/// A search or case counts once a month, however many requests it takes.
bool writeSent(HistoryDatabase &database, qint64 id, SentKind kind, const QString &code,
               const QString &month)
{
    const int times =
        database
            .Value(u"INSERT INTO Sent (Month, Code, Item, Kind, Count) VALUES (?, ?, ?, ?, 1) ON "
                   "CONFLICT DO UPDATE SET Count = Count + 1 RETURNING Count"_s,
                   {month, code, id, static_cast<int>(kind)})
            .toInt();
    if (database.Trouble() != HistoryTrouble::None)
        return false;
    const auto once = [&](SentKind counted) { return kind == counted && times == 1 ? 1 : 0; };
    const auto each = [&](SentKind counted) { return kind == counted ? 1 : 0; };
    return database.Run(
        u"INSERT INTO Account (Month, Code, Searches, Requests, Cases, Tabs, Documents) VALUES (?, "
        "?, ?, 1, ?, ?, ?) ON CONFLICT DO UPDATE SET Searches = Searches + excluded.Searches, "
        "Requests = Requests + 1, Cases = Cases + excluded.Cases, Tabs = Tabs + excluded.Tabs, "
        "Documents = Documents + excluded.Documents"_s,
        {month, code, once(SentKind::Search), once(SentKind::CaseSummary), each(SentKind::Tab),
         each(SentKind::Document)});
}

int weightOf(const QList<quint64> &rows)
{
    return 1 + static_cast<int>(rows.size());
}
} // namespace

HistoryCommand WriteBegin(const AskedItem &item)
{
    return commandOf({
        {u"INSERT INTO Asked (Id, Kind, State, Time, What, Place, Code, Outcome, Count, Origin) "
         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
         {item.Id, static_cast<int>(item.Kind), static_cast<int>(item.State),
          item.When.toMSecsSinceEpoch(), text(item.What), text(item.Where), text(item.ClientCode),
          text(item.Outcome), item.Count, item.Origin}},
        {u"INSERT INTO Words (Id, Text) VALUES (?, ?)"_s, {item.Id, wordsOf(item)}},
    });
}

HistoryCommand WriteState(qint64 id, AskedState state)
{
    return commandOf(
        {{u"UPDATE Asked SET State = ? WHERE Id = ?"_s, {static_cast<int>(state), id}}});
}

HistoryCommand WriteEnd(qint64 id, const QString &outcome, int count)
{
    return {[id, outcome, count](HistoryDatabase &database) {
        return database.Run(u"UPDATE Asked SET State = 2, Outcome = ?, Count = ? WHERE Id = ?"_s,
                            {text(outcome), count, id})
               && writeWords(database, id);
    }};
}

HistoryCommand WriteSettled(const QList<qint64> &ids, const QString &outcome)
{
    return {[ids, outcome](HistoryDatabase &database) {
        for (const qint64 id : ids) {
            if (!database.Run(u"UPDATE Asked SET State = 2, Outcome = ? WHERE Id = ?"_s,
                              {text(outcome), id})
                || !writeWords(database, id))
                return false;
        }
        return true;
    }};
}

HistoryCommand WriteSent(qint64 id, SentKind kind, const QString &code, const QDateTime &when)
{
    return {[id, kind, code,
             month = when.toLocalTime().toString(u"yyyy-MM"_s)](HistoryDatabase &database) {
        return writeSent(database, id, kind, text(code), month);
    }};
}

HistoryCommand WriteLook(const QString &caseKey, const QString &tab, const QDateTime &when,
                         const QList<quint64> &rows, bool whole)
{
    return {[key = QVariantList{text(caseKey), text(tab)}, when, rows, whole](
                HistoryDatabase &database) { return writeLook(database, key, when, rows, whole); },
            weightOf(rows)};
}

HistoryCommand WriteRun(const QString &searchKey, const QDateTime &when, const QList<quint64> &rows)
{
    return {[searchKey, when, rows](HistoryDatabase &database) {
                return database.Run(
                    u"INSERT OR REPLACE INTO Runs (SearchKey, Time, Hashes) VALUES (?, ?, ?)"_s,
                    {text(searchKey), when.toMSecsSinceEpoch(), PackedRows(CountsOf(rows))});
            },
            weightOf(rows)};
}

HistoryCommand WriteNothingAnyMore()
{
    HistoryCommand command = commandOf({{u"DELETE FROM Asked"_s, {}},
                                        {u"DELETE FROM Words"_s, {}},
                                        {u"DELETE FROM Sent"_s, {}},
                                        {u"DELETE FROM Account"_s, {}},
                                        {u"DELETE FROM Looks"_s, {}},
                                        {u"DELETE FROM Runs"_s, {}}});
    command.ThenTidy = true;
    return command;
}

HistoryCommand WriteForgotten(const QDateTime &before)
{
    const qint64 time = before.toMSecsSinceEpoch();
    const QString old = u"(SELECT Id FROM Asked WHERE Time < ?)"_s;
    HistoryCommand command = commandOf(
        {{u"DELETE FROM Sent WHERE Item IN "_s + old, {time}},
         {u"DELETE FROM Sent WHERE Month < ?"_s, {before.toLocalTime().toString(u"yyyy-MM"_s)}},
         {u"DELETE FROM Account"_s, {}},
         {u"INSERT INTO Account SELECT Month, Code, sum(Kind = 0), sum(Count), sum(Kind = 1), "
          "sum((Kind = 2) * Count), sum((Kind = 3) * Count) FROM Sent GROUP BY Month, Code"_s,
          {}},
         {u"DELETE FROM Words WHERE Id IN "_s + old, {time}},
         {u"DELETE FROM Asked WHERE Time < ?"_s, {time}},
         {u"DELETE FROM Looks WHERE SeenAt < ?"_s, {time}},
         {u"DELETE FROM Runs WHERE Time < ?"_s, {time}}});
    command.ThenTidy = true;
    return command;
}
