// A document of 200 MB from the socket to its file, against a bare recv to a file in the same run;
// what memory it takes, and how long a click may have to wait meanwhile.

#include "BareSocket.h"
#include "BenchFolder.h"
#include "BulkServer.h"
#include "core/AppFolder.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "documents/DocumentName.h"
#include "documents/DocumentTransfer.h"
#include "link/Router.h"
#include "link/frmWinsock.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

namespace {
using Clock = std::chrono::steady_clock;

constexpr qsizetype documentBytes = 200'000'000;
constexpr double bytesPerMegabyte = 1e6;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A line of /proc/self/status in megabytes.
double statusMegabytes(const char *key)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key))
            return line.simplified().split(' ').value(1).toDouble() * 1024.0 / bytesPerMegabyte;
    }
    return 0.0;
}

/// From here on the peak of memory is counted anew.
void forgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

/// Notes when all has come.
class Listener : public TransferListener
{
public:
    Wish TransferWish() const override { return Wish::Goes; }
    void ShowTransferStatus(const QString &text) override
    {
        if (text == u"Status: Saving Document.")
            read = secondsSince(start);
    }
    void TransferChanged() override {}

    Clock::time_point start = Clock::now();
    double read = 0.0;
};

/// The longest time between two events.
class Heartbeat
{
public:
    Heartbeat()
    {
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] {
            longest = std::max(longest, secondsSince(last));
            last = Clock::now();
        });
        timer.start(1);
    }
    double Longest() const { return longest; }

private:
    QTimer timer;
    Clock::time_point last = Clock::now();
    double longest = 0.0;
};

void Document200MB(benchmark::State &state)
{
    BulkServer server(documentBytes);
    const QString bareFile = AppFolder() + QStringLiteral("/bare.bin");
    double bare = 0.0;
    double read = 0.0;
    double all = 0.0;
    double gap = 0.0;
    double memory = 0.0;
    for (auto _ : state) {
        const auto bareStart = Clock::now();
        {
            const BareClient client(server.Port());
            client.ReadToFile("|GET|", server.AnswerBytes(), bareFile.toUtf8().constData());
        }
        bare += secondsSince(bareStart);
        QFile::remove(bareFile);

        Global = GlobalState();
        Global.lngServerPort = server.Port();
        if (!ConnectToRouter(QStringLiteral("127.0.0.1")))
            qFatal("cannot connect");
        Listener listener;
        DocumentTransfer transfer(&listener);
        forgetPeak();
        const double idle = statusMegabytes("VmRSS");
        const Heartbeat heart;
        listener.start = Clock::now();
        const TransferResult result =
            transfer.GetDocument({.Line = QStringLiteral("RETRIEVEDOC=a,b,c,d,~x~1/2/03~9~D~"),
                                  .PageQty = QStringLiteral("9"),
                                  .Folder = ReportsFolder(),
                                  .Name = {}});
        const double seconds = secondsSince(listener.start);
        if (result.End != TransferEnd::Saved || result.Saved.Bytes != documentBytes)
            qFatal("the transfer failed");
        all += seconds;
        read += listener.read;
        gap = std::max(gap, heart.Longest());
        memory = std::max(memory, statusMegabytes("VmHWM") - idle);
        frmWinsock::Unload();
        QFile::remove(result.Path);
        state.SetIterationTime(seconds);
    }
    state.counters["bare_seconds"] = bare / static_cast<double>(state.iterations());
    state.counters["ratio_of_reading_to_bare_recv"] = read / bare;
    state.counters["ratio_with_saving_to_bare_recv"] = all / bare;
    state.counters["longest_gap_milliseconds"] = gap * 1000.0;
    state.counters["megabytes_over_idle"] = memory;
}
} // namespace

BENCHMARK(Document200MB)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const BenchFolder folder;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
