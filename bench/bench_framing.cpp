// Taking the tokens out of a backlog, against the bare scan of the same bytes for the bar.

#include "core/ReceiveBuffer.h"
#include "core/Windows1252.h"
#include "link/Framing.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>

namespace {
using Clock = std::chrono::steady_clock;

constexpr qsizetype tokenBytes = 80;

QByteArray backlog(qsizetype bytes)
{
    const QByteArray token = '|' + QByteArray(tokenBytes - 2, 'x') + '|';
    return token.repeated(bytes / tokenBytes);
}

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double scan(const QByteArray &bytes)
{
    const auto start = Clock::now();
    const char *at = bytes.constData();
    const char *end = at + bytes.size();
    qsizetype bars = 0;
    while (at < end) {
        const void *bar = std::memchr(at, '|', static_cast<size_t>(end - at));
        if (!bar)
            break;
        ++bars;
        at = static_cast<const char *>(bar) + 1;
    }
    benchmark::DoNotOptimize(bars);
    return secondsSince(start);
}

template<typename Take>
void againstTheScan(benchmark::State &state, Take take)
{
    const QByteArray bytes = backlog(state.range(0));
    double baseline = 0.0;
    double subject = 0.0;
    for (auto _ : state) {
        ReceiveBuffer buffer;
        buffer.Append(bytes);
        baseline += scan(bytes);
        const auto start = Clock::now();
        while (!buffer.IsEmpty())
            take(buffer);
        const double seconds = secondsSince(start);
        subject += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio_to_memchr"] = subject / baseline;
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void TakeTokens(benchmark::State &state)
{
    againstTheScan(state, [](ReceiveBuffer &buffer) {
        benchmark::DoNotOptimize(ExtractDelimited(buffer, frameBar));
    });
}

void TakeTokensAsText(benchmark::State &state)
{
    againstTheScan(state, [](ReceiveBuffer &buffer) {
        benchmark::DoNotOptimize(FromWindows1252(ExtractDelimited(buffer, frameBar)));
    });
}
} // namespace

BENCHMARK(TakeTokens)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000)->UseManualTime();
BENCHMARK(TakeTokensAsText)->Arg(1'000'000)->Arg(10'000'000)->UseManualTime();

BENCHMARK_MAIN();
