// From the bytes of a docket's reply to the first painted screen of a grid that is shown, against
// splitting the same bytes with no window; how long it takes until every row has its height; and
// what a row costs in memory.

#include "casedetails/GridGrammar.h"
#include "tables/FlexGrid.h"

#include <QApplication>
#include <QEvent>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Bytes that the program has from malloc, large blocks included.
double bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

/// A docket as the Superior Courts send one: entries of 20 to 400 characters, a line each.
QByteArray docketBytes(int rows)
{
    const QByteArray words =
        QByteArray("Notice of hearing filed by the clerk of the court in open session ")
            .repeated(7);
    QByteArray bytes = "GRIDDEF~Date~Code~Entry~15~10~75~\n";
    for (int row = 0; row < rows; ++row)
        bytes += "01/02/2003~NTHG~" + words.left(20 + row * 37 % 381) + "~\n";
    return bytes;
}

/// The rows with their cells, the last line on top.
QList<QStringList> split(const QByteArray &bytes)
{
    const QString text = QString::fromLatin1(bytes);
    QList<QStringList> rows;
    for (const QStringView line : QStringView(text).tokenize(u'\n')) {
        if (line.isEmpty() || line.startsWith(u"GRIDDEF~"))
            continue;
        QStringList cells;
        for (const QStringView cell : line.chopped(1).tokenize(u'~'))
            cells.append(cell.trimmed().toString());
        rows.append(cells);
    }
    std::reverse(rows.begin(), rows.end());
    return rows;
}

/// As a case window makes it of the lines that have come.
GridTable tableOf(const QByteArray &bytes)
{
    const QStringList lines = QString::fromLatin1(bytes).split(u'\n', Qt::SkipEmptyParts);
    return GridDefTable(lines, RowOrder::LastFirst);
}

/// Knows when the rows have been painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget *widget) { widget->installEventFilter(this); }

    void WaitForPaint()
    {
        painted = false;
        while (!painted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        // The widget itself paints first.
        watched->removeEventFilter(this);
        QCoreApplication::sendEvent(watched, event);
        watched->installEventFilter(this);
        painted = true;
        return true;
    }

private:
    bool painted = false;
};

void prepare(FlexGrid &grid)
{
    grid.resize(900, 600);
    grid.show();
    QCoreApplication::processEvents();
}

/// The longest time in which the program did not hear the user meanwhile.
double waitForAllHeights(const FlexGrid &grid, int rows)
{
    double longest = 0.0;
    while (grid.MeasuredRows() < rows) {
        const auto start = Clock::now();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, secondsSince(start));
    }
    return longest;
}

void FirstScreen(benchmark::State &state)
{
    const int rows = static_cast<int>(state.range(0));
    const QByteArray bytes = docketBytes(rows);
    double baseline = 0.0;
    double subject = 0.0;
    double longest = 0.0;
    double longestTurn = 0.0;
    double allHeights = 0.0;
    int measured = 0;
    for (auto _ : state) {
        const auto bareStart = Clock::now();
        const QList<QStringList> bare = split(bytes);
        baseline += secondsSince(bareStart);
        benchmark::DoNotOptimize(bare.data());
        FlexGrid grid;
        prepare(grid);
        PaintWatch watch(grid.viewport());
        const auto start = Clock::now();
        grid.Show(tableOf(bytes));
        const int atFirst = grid.MeasuredRows();
        watch.WaitForPaint();
        const double seconds = secondsSince(start);
        longestTurn = std::max(longestTurn, waitForAllHeights(grid, rows));
        allHeights += secondsSince(start);
        measured = std::max(measured, atFirst);
        subject += seconds;
        longest = std::max(longest, seconds);
        state.SetIterationTime(seconds);
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["ratio_to_splitting"] = subject / baseline;
    state.counters["longest_ms"] = longest * 1e3;
    state.counters["us_a_row"] = subject / runs / rows * 1e6;
    state.counters["rows_measured_at_first"] = measured;
    state.counters["longest_turn_ms"] = longestTurn * 1e3;
    state.counters["all_heights_ms"] = allHeights / runs * 1e3;
    state.counters["all_heights_us_a_row"] = allHeights / runs / rows * 1e6;
}

void BytesARow(benchmark::State &state)
{
    const int rows = static_cast<int>(state.range(0));
    const QByteArray bytes = docketBytes(rows);
    double memory = 0.0;
    double ofTable = 0.0;
    for (auto _ : state) {
        FlexGrid grid;
        prepare(grid);
        // What the first rows of all bring with them, fonts and glyphs, is no row's.
        grid.Show(tableOf(docketBytes(50)));
        waitForAllHeights(grid, 50);
        QCoreApplication::processEvents();
        const double before = bytesInUse();
        {
            const GridTable table = tableOf(bytes);
            ofTable = std::max(ofTable, bytesInUse() - before);
            grid.Show(table);
        }
        waitForAllHeights(grid, rows);
        QCoreApplication::processEvents();
        memory = std::max(memory, bytesInUse() - before);
    }
    const double text = static_cast<double>(bytes.size()) / rows;
    state.counters["bytes_a_row"] = memory / rows;
    state.counters["of_its_table"] = ofTable / rows;
    state.counters["ratio_to_text"] = memory / rows / text;
}
} // namespace

BENCHMARK(FirstScreen)
    ->Arg(2'000)
    ->Arg(20'000)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BytesARow)->Arg(2'000)->Arg(20'000)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
