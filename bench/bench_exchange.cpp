// A request and its one-token reply over loopback, against the same exchange on a bare blocking
// socket and the line of the log that a request writes; and what waiting costs. Medians.

#include "BareSocket.h"
#include "BenchFolder.h"
#include "core/GlobalState.h"
#include "link/Comm.h"
#include "link/Router.h"
#include "link/frmWinsock.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include <sched.h>
#include <sys/resource.h>

namespace {
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double processorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void connectTo(quint16 port)
{
    Global = GlobalState();
    Global.lngServerPort = port;
    if (!ConnectToRouter(QStringLiteral("127.0.0.1")))
        qFatal("cannot connect");
}

/// This thread, and those that it starts, on the processor that it runs on. Where the system puts
/// the two sides of a bare exchange makes it cost six microseconds or ninety; on one processor it
/// is always what both sides have to do.
void stayOnOneProcessor()
{
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(static_cast<size_t>(sched_getcpu()), &one);
    Require(sched_setaffinity(0, sizeof one, &one) == 0);
}

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Exchange(benchmark::State &state)
{
    stayOnOneProcessor();
    const QByteArray reply = '|' + QByteArray(58, 'r') + '|';
    const QString request(38, QLatin1Char('q'));
    const QByteArray frame = '|' + request.toLatin1() + '|';
    BareServer server(reply);
    const BareClient bare(server.Port());
    connectTo(server.Port());
    // In blocks: a single exchange of one kind would find the processor as the other kind left it.
    constexpr int block = 200;
    const QTemporaryDir folder;
    const QByteArray logFile = folder.filePath(QStringLiteral("log.txt")).toUtf8();
    const QByteArray logLine = "11/21/2026 9:00:00 AM -- SendReq: " + frame + "\r\n";
    std::vector<double> bareTimes;
    std::vector<double> logTimes;
    std::vector<double> times;
    for (auto _ : state) {
        const auto bareStart = Clock::now();
        for (int i = 0; i < block; ++i)
            bare.Exchange(frame, reply.size());
        bareTimes.push_back(secondsSince(bareStart));
        const auto logStart = Clock::now();
        for (int i = 0; i < block; ++i)
            BareLogLine(logFile.constData(), logLine);
        logTimes.push_back(secondsSince(logStart));
        const auto start = Clock::now();
        for (int i = 0; i < block; ++i) {
            if (SendReq(request) != SendStatus::Sent || ReadResponse().Status != ReadStatus::Token)
                qFatal("the exchange failed");
        }
        const double seconds = secondsSince(start);
        times.push_back(seconds);
        state.SetIterationTime(seconds);
    }
    const double subject = medianOf(times);
    const double baseline = medianOf(bareTimes);
    state.counters["microseconds"] = subject * 1e6 / block;
    state.counters["bare_microseconds"] = baseline * 1e6 / block;
    state.counters["ratio_to_bare_socket"] = subject / baseline;
    // Each request writes a line to the log, by rule; the bare exchange writes none.
    state.counters["ratio_to_bare_socket_and_log"] = subject / (baseline + medianOf(logTimes));
    frmWinsock::Unload();
}

/// Ten seconds of waiting for a reply that never comes, as a share of one core.
void WaitTenSeconds(benchmark::State &state)
{
    BareServer server({});
    connectTo(server.Port());
    Global.bCheckingServer = true;
    double waited = 0.0;
    double used = 0.0;
    for (auto _ : state) {
        const auto start = Clock::now();
        const double before = processorSeconds();
        if (ReadResponse().Status != ReadStatus::TimedOutOrLost)
            qFatal("the wait ended early");
        used += processorSeconds() - before;
        const double seconds = secondsSince(start);
        waited += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["share_of_a_core"] = used / waited;
    frmWinsock::Unload();
}
} // namespace

BENCHMARK(Exchange)->UseManualTime();
BENCHMARK(WaitTenSeconds)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const BenchFolder folder;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
