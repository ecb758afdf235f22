#include "history/HistoryReader.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView itemColumns =
    u"Asked.Id, Kind, State, Time, What, Place, Code, Outcome, Count, Origin";

AskedItem itemOf(const QSqlQuery &row)
{
    AskedItem item;
    item.Id = row.value(0).toLongLong();
    item.Kind = static_cast<AskedKind>(row.value(1).toInt());
    item.State = static_cast<AskedState>(row.value(2).toInt());
    item.When = QDateTime::fromMSecsSinceEpoch(row.value(3).toLongLong());
    item.What = row.value(4).toString();
    item.Where = row.value(5).toString();
    item.ClientCode = row.value(6).toString();
    item.Outcome = row.value(7).toString();
    item.Count = row.value(8).toInt();
    item.Origin = row.value(9).toByteArray();
    return item;
}

/// What was cleared from the history while it went on: of what was sent for it afterwards there is
/// no more than that. Its id is the moment of asking.
AskedItem forgotten(qint64 id, SentKind sentFor, const QString &code)
{
    constexpr qint64 microseconds = 1000;
    AskedItem item;
    item.Id = id;
    item.Kind = sentFor == SentKind::Search     ? AskedKind::Search
                : sentFor == SentKind::Document ? AskedKind::Document
                                                : AskedKind::Case;
    item.State = AskedState::Ended;
    item.When = QDateTime::fromMSecsSinceEpoch(id / microseconds);
    item.What = u"(cleared from the history)"_s;
    item.ClientCode = code;
    return item;
}

QList<AskedItem> itemsOf(QSqlQuery rows)
{
    QList<AskedItem> items;
    while (rows.next())
        items.append(itemOf(rows));
    return items;
}

/// What a filter asks of the table of words: a condition, and a pattern for each of its words.
struct WordFilter
{
    QString Condition; ///< begins with " WHERE", or is ""
    QVariantList Patterns;
};

QString patternOf(QString word)
{
    for (const QChar special : {u'!', u'%', u'_'})
        word.replace(special, QString(u'!') + special);
    return u'%' + word + u'%';
}

WordFilter filterOf(const QString &text)
{
    WordFilter filter;
    const QStringList words = text.toCaseFolded().simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString &word : words) {
        filter.Condition += filter.Condition.isEmpty() ? u" WHERE "_s : u" AND "_s;
        filter.Condition += u"Words.Text LIKE ? ESCAPE '!'"_s;
        filter.Patterns.append(patternOf(word));
    }
    return filter;
}

/// A time and rows, unpacked so.
template<class Seen, class Unpack>
std::optional<Seen> seenOf(QSqlQuery rows, Unpack unpack)
{
    if (!rows.next())
        return std::nullopt;
    return Seen{QDateTime::fromMSecsSinceEpoch(rows.value(0).toLongLong()),
                unpack(rows.value(1).toByteArray())};
}
} // namespace

QList<AskedItem> ReadItems(HistoryDatabase &database, const QString &filter, int offset, int count)
{
    const WordFilter words = filterOf(filter);
    // The short rows are looked through, and only what is shown is fetched from the long ones.
    const QString sql = u"SELECT "_s + itemColumns + u" FROM (SELECT Id FROM Words"_s
                        + words.Condition
                        + u" ORDER BY Id DESC LIMIT ? OFFSET ?) AS Found JOIN Asked ON Asked.Id = "
                          "Found.Id ORDER BY Asked.Id DESC"_s;
    return itemsOf(database.Ask(sql, words.Patterns + QVariantList{count, offset}));
}

int ReadCount(HistoryDatabase &database, const QString &filter)
{
    const WordFilter words = filterOf(filter);
    return database.Value(u"SELECT count(*) FROM Words"_s + words.Condition, words.Patterns)
        .toInt();
}

FoundIds ReadFound(HistoryDatabase &database, const QString &filter, qint64 below, int rows)
{
    const WordFilter words = filterOf(filter);
    const QString stretch = u" FROM Words WHERE Id < ? ORDER BY Id DESC LIMIT ?"_s;
    FoundIds found;
    const QVariant last =
        database.Value(u"SELECT min(Id) FROM (SELECT Id"_s + stretch + u')', {below, rows});
    found.AtEnd = last.isNull();
    if (found.AtEnd)
        return found;
    found.Below = last.toLongLong();
    QSqlQuery ids = database.Ask(u"SELECT Id FROM (SELECT Id, Text"_s + stretch + u") AS Words"_s
                                     + words.Condition + u" ORDER BY Id DESC"_s,
                                 QVariantList{below, rows} + words.Patterns);
    while (ids.next())
        found.Ids.append(ids.value(0).toLongLong());
    return found;
}

QList<AskedItem> ReadItemsOf(HistoryDatabase &database, const QList<qint64> &ids)
{
    QVariantList values;
    for (const qint64 id : ids)
        values.append(id);
    const QString marks = QStringList(ids.size(), u"?"_s).join(u',');
    QHash<qint64, AskedItem> read;
    const QList<AskedItem> rows = itemsOf(database.Ask(
        u"SELECT "_s + itemColumns + u" FROM Asked WHERE Id IN ("_s + marks + u')', values));
    for (const AskedItem &item : rows)
        read.insert(item.Id, item);
    QList<AskedItem> items;
    for (const qint64 id : ids)
        items.append(read.value(id));
    return items;
}

QList<AskedItem> ReadUnfinished(HistoryDatabase &database)
{
    return itemsOf(database.Ask(u"SELECT "_s + itemColumns
                                + u" FROM Asked WHERE State < 2 AND LeftBehind = 1 ORDER BY Id"_s));
}

std::optional<SeenRows> ReadLook(HistoryDatabase &database, const QString &caseKey,
                                 const QString &tab)
{
    return seenOf<SeenRows>(
        database.Ask(u"SELECT LookedAt, Hashes FROM Looks WHERE CaseKey = ? AND Tab = ?"_s,
                     {caseKey, tab}),
        &UnpackedRows);
}

std::optional<SeenRun> ReadRun(HistoryDatabase &database, const QString &searchKey)
{
    return seenOf<SeenRun>(
        database.Ask(u"SELECT Time, Hashes FROM Runs WHERE SearchKey = ?"_s, {searchKey}),
        &UnpackedRowSet);
}

std::optional<QDateTime> ReadLastOpened(HistoryDatabase &database, const QString &caseKey)
{
    const QVariant time =
        database.Value(u"SELECT max(SeenAt) FROM Looks WHERE CaseKey = ?"_s, {caseKey});
    if (time.isNull())
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(time.toLongLong());
}

QList<HistoryUsage> ReadUsage(HistoryDatabase &database)
{
    QList<HistoryUsage> lines;
    QSqlQuery rows = database.Ask(u"SELECT Code, Month, Searches, Requests, Cases, Tabs, Documents "
                                  "FROM Account ORDER BY Month DESC, Code"_s);
    while (rows.next())
        lines.append({rows.value(0).toString(), rows.value(1).toString(), rows.value(2).toInt(),
                      rows.value(3).toInt(), rows.value(4).toInt(), rows.value(5).toInt(),
                      rows.value(6).toInt()});
    return lines;
}

QList<AskedItem> ReadUsageItems(HistoryDatabase &database, const QString &code,
                                const QString &month)
{
    QList<AskedItem> items;
    QSqlQuery rows = database.Ask(
        u"SELECT "_s + itemColumns
            + u", Requests, Item, SentFor FROM (SELECT Item, sum(Count) AS Requests, min(Kind) AS "
              "SentFor FROM Sent WHERE Month = ? AND Code = ? GROUP BY Item) AS Behind LEFT JOIN "
              "Asked ON Asked.Id = Behind.Item ORDER BY Item DESC"_s,
        {month, code});
    while (rows.next()) {
        const auto sentFor = static_cast<SentKind>(rows.value(12).toInt());
        items.append(rows.value(0).isNull() ? forgotten(rows.value(11).toLongLong(), sentFor, code)
                                            : itemOf(rows));
        items.last().Requests = rows.value(10).toInt();
    }
    return items;
}
