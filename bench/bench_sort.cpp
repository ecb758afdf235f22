// Sorting a list of results by a column, keys made included, against a bare std::stable_sort of the
// same keys.

#include "namesearch/SortKeys.h"
#include "tables/ResultListModel.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <random>

using namespace Qt::StringLiterals;

namespace {
using Clock = std::chrono::steady_clock;

constexpr int nameColumn = 0;
constexpr int numberColumn = 1;
constexpr int dateColumn = 2;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

QString padded(int number, int digits)
{
    return QString::number(number).rightJustified(digits, u'0');
}

void fill(ResultListModel &list, int rows)
{
    std::mt19937 random(1);
    const auto upTo = [&random](int most) {
        return 1 + static_cast<int>(random() % static_cast<unsigned>(most));
    };
    for (int i = 0; i < rows; ++i)
        list.AddRow({u"SMITH, JOHN "_s + QChar(u'A' + upTo(25)) + padded(upTo(9999), 4),
                     padded(upTo(99), 2) + u"-2-"_s + padded(upTo(99999), 5) + u"-1"_s,
                     padded(upTo(12), 2) + u'/' + padded(upTo(28), 2) + u'/'
                         + QString::number(1970 + upTo(50)),
                     u"Civil"_s, u"WA Superior Ct King County"_s, u"Plaintiff"_s});
    list.Flush();
}

std::vector<QString> keysOf(const ResultListModel &list, int column, SortAs as)
{
    std::vector<QString> keys;
    keys.reserve(static_cast<size_t>(list.Count()));
    for (int row = 0; row < list.Count(); ++row)
        keys.push_back(SortKeyOf(list.Cell(row, column), as));
    return keys;
}

void againstReadyKeys(benchmark::State &state, int column, SortAs as)
{
    double baseline = 0.0;
    double subject = 0.0;
    for (auto _ : state) {
        ResultListModel list;
        fill(list, static_cast<int>(state.range(0)));
        std::vector<QString> ready = keysOf(list, column, as);
        const auto bareStart = Clock::now();
        std::stable_sort(ready.begin(), ready.end());
        baseline += secondsSince(bareStart);
        benchmark::DoNotOptimize(ready.data());
        const auto start = Clock::now();
        list.SortRows(keysOf(list, column, as), Qt::AscendingOrder);
        const double seconds = secondsSince(start);
        subject += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio_to_stable_sort"] = subject / baseline;
}

void SortNames(benchmark::State &state)
{
    againstReadyKeys(state, nameColumn, SortAs::Text);
}

void SortCaseNumbers(benchmark::State &state)
{
    againstReadyKeys(state, numberColumn, SortAs::CaseNumber);
}

void SortDates(benchmark::State &state)
{
    againstReadyKeys(state, dateColumn, SortAs::Date);
}
} // namespace

BENCHMARK(SortNames)->Arg(1'000)->Arg(100'000)->UseManualTime();
BENCHMARK(SortCaseNumbers)->Arg(1'000)->Arg(100'000)->UseManualTime();
BENCHMARK(SortDates)->Arg(1'000)->Arg(100'000)->UseManualTime();

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
