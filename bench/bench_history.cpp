// The history with a hundred thousand searches and a million docket entries: opening it, filtering
// it at a key, comparing a case, adding up the account, and what a write costs whoever asks for it.
// Beside each reading stands a plain SQLite query of the same work, on a connection of its own.

#include "history/HistoryModel.h"
#include "history/HistoryStore.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>

using namespace Qt::StringLiterals;

namespace {
using Clock = std::chrono::steady_clock;

constexpr int searches = 100'000;
constexpr int cases = 50;
constexpr int entriesOfACase = 20'000; ///< a million in all
constexpr int firstPage = 100;
constexpr int longEnough = 600'000; ///< milliseconds
constexpr double milliseconds = 1000.0;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

QString word(std::mt19937 &random)
{
    constexpr int letters = 7;
    QString text;
    for (int i = 0; i < letters; ++i)
        text.append(QChar(u'a' + static_cast<char16_t>(random() % 26U)));
    return text;
}

QList<quint64> hashesOf(int ofCase)
{
    QList<quint64> rows;
    rows.reserve(entriesOfACase);
    for (int i = 0; i < entriesOfACase; ++i)
        rows.append(HistoryStore::HashOfRow({u"11/02/2026"_s,
                                             u"MOTION FOR SUMMARY JUDGMENT OF THE PLAINTIFF"_s,
                                             QString::number(ofCase), QString::number(i)}));
    return rows;
}

QString caseKey(int number)
{
    return u"King 02-2-"_s + QString::number(number);
}

/// The courts of a search, one to all of a state, as they are written down.
QString courtsOf(int search)
{
    constexpr std::array<int, 6> counts{1, 1, 2, 5, 15, 39};
    QStringList counties;
    for (int i = 0; i < counts.at(static_cast<size_t>(search) % counts.size()); ++i)
        counties.append(i % 2 == 0 ? u"King"_s : u"Snohomish"_s);
    return counties.join(u", "_s) + u" Counties - Washington Superior Courts"_s;
}

void addSearches(HistoryStore &store)
{
    std::mt19937 random(1);
    const QByteArray origin(800, 'x');
    const QDateTime now = QDateTime::currentDateTime();
    for (int i = 0; i < searches; ++i) {
        AskedItem item;
        item.When = now.addSecs(-300LL * (searches - i));
        item.What = word(random) + u", "_s + word(random);
        item.Where = courtsOf(i);
        item.ClientCode = u"Client "_s + QString::number(i % 50);
        item.Origin = origin;
        const qint64 id = store.Begin(item);
        store.Sent(id, SentKind::Search, item.ClientCode, item.When);
        store.Sent(id, SentKind::CaseSummary, item.ClientCode, item.When);
        store.Sent(id, SentKind::Tab, item.ClientCode, item.When);
        store.End(id, QString::number(i % 99) + u" Cases Retrieved."_s, i % 99);
    }
}

/// A history of that size, in a folder that goes with the program.
class LargeHistory
{
public:
    LargeHistory() : path(folder.filePath(u"history.db"_s))
    {
        HistoryStore store;
        store.Open(path);
        addSearches(store);
        for (int i = 0; i < cases; ++i)
            store.SaveLook(caseKey(i), u"Docket"_s, QDateTime::currentDateTime(), hashesOf(i),
                           true);
        if (!store.WaitUntilWritten(longEnough))
            qFatal("the history cannot be written");
    }
    const QString &Path() const { return path; }

private:
    QTemporaryDir folder;
    QString path;
};

const QString &largePath()
{
    static const LargeHistory history;
    return history.Path();
}

/// A connection that does nothing but what it is asked.
class PlainSqlite
{
public:
    explicit PlainSqlite(const QString &path)
    {
        database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"plain"_s);
        database.setDatabaseName(path);
        database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        if (!database.open())
            qFatal("no plain connection");
    }
    ~PlainSqlite()
    {
        database.close();
        database = {};
        QSqlDatabase::removeDatabase(u"plain"_s);
    }
    PlainSqlite(const PlainSqlite &) = delete;
    PlainSqlite &operator=(const PlainSqlite &) = delete;

    /// Runs a query and reads all cells of all rows.
    qsizetype Read(const QString &sql, const QVariantList &values = {})
    {
        QSqlQuery query(database);
        query.setForwardOnly(true);
        query.prepare(sql);
        for (const QVariant &value : values)
            query.addBindValue(value);
        query.exec();
        qsizetype cells = 0;
        while (query.next()) {
            for (int i = 0; query.value(i).isValid(); ++i)
                ++cells;
        }
        return cells;
    }

private:
    QSqlDatabase database;
};

/// Keeps the time of a subject and of its baseline, turn by turn.
class Comparison
{
public:
    explicit Comparison(benchmark::State &benchState) : state(benchState) {}
    ~Comparison()
    {
        state.counters["ratio_to_sqlite"] = subject / baseline;
        state.counters["worst_ms"] = worst * milliseconds;
    }
    Comparison(const Comparison &) = delete;
    Comparison &operator=(const Comparison &) = delete;

    template<typename Plain, typename Ours>
    void Turn(const Plain &plain, const Ours &ours)
    {
        const auto plainStart = Clock::now();
        plain();
        baseline += secondsSince(plainStart);
        const auto start = Clock::now();
        ours();
        const double seconds = secondsSince(start);
        subject += seconds;
        worst = std::max(worst, seconds);
        state.SetIterationTime(seconds);
    }

private:
    benchmark::State &state;
    double baseline = 0.0;
    double subject = 0.0;
    double worst = 0.0;
};

/// The window of the history: its file is open, its first page and the number of all are read by a
/// connection that is opened for it.
void OpenWindow(benchmark::State &state)
{
    const QString path = largePath();
    Comparison comparison(state);
    for (auto _ : state) {
        HistoryStore store;
        store.Open(path);
        store.WaitUntilWritten(longEnough);
        comparison.Turn(
            [&] {
                PlainSqlite plain(path);
                plain.Read(u"SELECT * FROM Asked ORDER BY Id DESC LIMIT ?"_s, {firstPage});
                plain.Read(u"SELECT count(*) FROM Words"_s);
            },
            [&] {
                benchmark::DoNotOptimize(store.Items({}, 0, firstPage));
                benchmark::DoNotOptimize(store.CountOf({}));
            });
    }
}

/// The start of the program, in the thread that writes: nobody waits for this.
void OpenFile(benchmark::State &state)
{
    const QString path = largePath();
    for (auto _ : state) {
        HistoryStore store;
        const auto start = Clock::now();
        store.Open(path);
        store.WaitUntilWritten(longEnough);
        state.SetIterationTime(secondsSince(start));
    }
}

/// What is typed changes with every key: two filters in turn. The time is that of the key, until
/// whoever types goes on; all_ms is that until everything is found, of which the longest turn of
/// the event loop is longest_turn_ms.
void filterFor(benchmark::State &state, const std::array<QString, 2> &filters)
{
    HistoryStore &store = HistoryStore::Of();
    store.Open(largePath());
    store.WaitUntilWritten(longEnough);
    PlainSqlite plain(largePath());
    HistoryModel model;
    Comparison comparison(state);
    double all = 0.0;
    double longestTurn = 0.0;
    size_t turn = 0;
    for (auto _ : state) {
        const QString &filter = filters.at(turn++ % filters.size());
        QStringList conditions;
        QVariantList patterns;
        const QStringList words = filter.split(u' ');
        for (const QString &one : words) {
            conditions.append(u"Text LIKE ?"_s);
            patterns.append(QString(u'%' + one + u'%'));
        }
        const auto start = Clock::now();
        comparison.Turn(
            [&] {
                plain.Read(u"SELECT Id FROM Words WHERE "_s + conditions.join(u" AND "_s)
                               + u" ORDER BY Id DESC LIMIT 100"_s,
                           patterns);
            },
            [&] {
                const auto key = Clock::now();
                model.SetFilter(filter);
                all -= secondsSince(start) - secondsSince(key);
                benchmark::DoNotOptimize(model.index(0, HistoryModel::What).data());
            });
        while (!model.IsCounted()) {
            const auto loop = Clock::now();
            QCoreApplication::processEvents();
            longestTurn = std::max(longestTurn, secondsSince(loop));
        }
        all += secondsSince(start);
    }
    state.counters["all_ms"] = all * milliseconds / static_cast<double>(turn);
    state.counters["longest_turn_ms"] = longestTurn * milliseconds;
    store.Close();
}

void FilterOneLetter(benchmark::State &state)
{
    filterFor(state, {u"e"_s, u"a"_s});
}

void FilterCommonWord(benchmark::State &state)
{
    filterFor(state, {u"king"_s, u"court"_s});
}

void FilterRareWord(benchmark::State &state)
{
    filterFor(state, {u"smit"_s, u"jone"_s});
}

void FilterNothingFound(benchmark::State &state)
{
    filterFor(state, {u"0000000"_s, u"1111111"_s});
}

/// All but the last stand everywhere.
void FilterFiveWords(benchmark::State &state)
{
    filterFor(state,
              {u"retrieved client superior king smit"_s, u"cases court counties king jone"_s});
}

/// A case of twenty thousand entries is opened again, with a few that are new.
void CompareCase(benchmark::State &state)
{
    const QString path = largePath();
    HistoryStore store;
    store.Open(path);
    store.WaitUntilWritten(longEnough);
    PlainSqlite plain(path);
    QList<QStringList> rows;
    for (int i = 0; i < entriesOfACase; ++i)
        rows.append({u"11/02/2026"_s, u"MOTION FOR SUMMARY JUDGMENT OF THE PLAINTIFF"_s, u"7"_s,
                     QString::number(i + 5)});
    int fresh = 0;
    Comparison comparison(state);
    for (auto _ : state) {
        comparison.Turn(
            [&] {
                plain.Read(u"SELECT Hashes FROM Looks WHERE CaseKey = ? AND Tab = ?"_s,
                           {caseKey(7), u"Docket"_s});
            },
            [&] {
                const auto look = store.LastLook(caseKey(7), u"Docket"_s);
                fresh = 0;
                for (const QStringList &row : std::as_const(rows))
                    fresh += look->Rows.contains(HistoryStore::HashOfRow(row)) ? 0 : 1;
            });
    }
    state.counters["new_entries"] = fresh;
}

void AddUpAccount(benchmark::State &state)
{
    const QString path = largePath();
    HistoryStore store;
    store.Open(path);
    store.WaitUntilWritten(longEnough);
    PlainSqlite plain(path);
    Comparison comparison(state);
    for (auto _ : state) {
        comparison.Turn(
            [&] { plain.Read(u"SELECT Code, Month, sum(Count) FROM Sent GROUP BY Month, Code"_s); },
            [&] { benchmark::DoNotOptimize(store.Usage()); });
    }
}

/// The event loop while a search and a whole case are written again and again: the longest time
/// between two of its turns, and the longest single call.
void WriteWhileTheLoopTurns(benchmark::State &state)
{
    const QString path = largePath();
    HistoryStore store;
    store.Open(path);
    store.WaitUntilWritten(longEnough);
    const QList<quint64> rows = hashesOf(1);
    double longestCall = 0.0;
    double longestTurn = 0.0;
    for (auto _ : state) {
        const auto turn = Clock::now();
        AskedItem item;
        item.What = u"SMITH, JOHN"_s;
        const qint64 id = store.Begin(item);
        store.Sent(id, SentKind::Search, {}, QDateTime::currentDateTime());
        store.SaveLook(u"written again"_s, u"Docket"_s, QDateTime::currentDateTime(), rows, true);
        store.End(id, u"Search Complete"_s, 1);
        longestCall = std::max(longestCall, secondsSince(turn));
        QCoreApplication::processEvents();
        const double seconds = secondsSince(turn);
        longestTurn = std::max(longestTurn, seconds);
        state.SetIterationTime(seconds);
        // The thread is at work meanwhile, and does not fall behind without end.
        constexpr int pace = 20;
        if (state.iterations() % pace == 0)
            store.WaitUntilWritten(longEnough);
    }
    store.WaitUntilWritten(longEnough);
    state.counters["longest_calls_ms"] = longestCall * milliseconds;
    state.counters["longest_turn_ms"] = longestTurn * milliseconds;
}
} // namespace

BENCHMARK(OpenWindow)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenFile)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterOneLetter)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterCommonWord)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterRareWord)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterNothingFound)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterFiveWords)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(CompareCase)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(AddUpAccount)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WriteWhileTheLoopTurns)->UseManualTime()->Iterations(400)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
