// A search of 100,000 rows into a results window that is shown, against a bare program that reads
// the same bytes, splits them and writes the same log; what a row costs in memory; and how long it
// takes from a click on Stop until the server has the request to stop.

#include "BareSocket.h"
#include "BenchFolder.h"
#include "StoppableServer.h"

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/frmNameSearchResults.h"
#include "tables/ResultListView.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>

#include <malloc.h>
#include <time.h>

using namespace Qt::StringLiterals;

namespace {
using Clock = std::chrono::steady_clock;

constexpr int manyRows = 100'000;
const QString requestLine =
    u"WASUP\u00A6SEARCH\u00A6SMITH\u00A6JOHN\u00A6\u00A6\u00A6King,\u00A6Civil,\u00A6\u00A6\u00A6"_s;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Processor time of this thread: unlike what passes on the clock, it is not the longer for what
/// else the machine does.
double processorSeconds()
{
    timespec used = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

/// A row as the Superior Courts send one, of 95 characters or so.
QByteArray rowText(int number)
{
    return "SMITH, JOHN Q" + QByteArray::number(number) + "~94-1-"
           + QByteArray::number(number).rightJustified(5, '0')
           + "-1~01/02/1994~Malicious Mischief~WA Superior Ct King County~Defendant~";
}

QByteArray rowTokens(int rows)
{
    QByteArray bytes;
    for (int i = 0; i < rows; ++i)
        bytes += '|' + rowText(i) + '|';
    return bytes;
}

/// Bytes that the program has from malloc, large blocks included.
double bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

void connectTo(quint16 port)
{
    Global = GlobalState();
    Global.lngServerPort = port;
    if (!ConnectToRouter(u"127.0.0.1"_s))
        qFatal("cannot connect");
    Global.bLoggedIn = true;
    Global.bShowAlerts = false;
}

/// A results window with one request, shown, its turn due at once.
std::unique_ptr<frmNameSearchResults> startedWindow()
{
    auto window = std::make_unique<frmNameSearchResults>(u"WA"_s);
    window->lboxQueue.AddItem(requestLine);
    window->txtMasterKey = MakeMasterKey();
    EnqueueKey(window->txtMasterKey);
    window->show();
    QCoreApplication::processEvents();
    window->Timer1->start(0);
    return window;
}

void finish()
{
    while (frmQueue::Form().FIFO.ListCount() > 0 || Global.bSearchInProgress)
        YieldUntilEvent(0.05);
}

/// The longest time for which rows were there that the view did not know of.
class GapWatch
{
public:
    explicit GapWatch(const ResultListView *list) : last(Clock::now())
    {
        QObject::connect(list->List(), &ResultListModel::Flushed, list, [this] {
            longest = std::max(longest, secondsSince(last));
            last = Clock::now();
        });
    }

    double LongestMilliseconds() const { return longest * 1e3; }

private:
    Clock::time_point last;
    double longest = 0.0;
};

/// What the same rows cost without a program around them.
double bareSeconds(const BareClient &bare, const QByteArray &frame, const QByteArray &logFile)
{
    const auto start = Clock::now();
    const QByteArray stamp = "11/21/2026 9:00:00 AM -- ";
    int rows = 0;
    bare.ReadTokens(frame, [&](const QByteArray &token) {
        BareLogLine(logFile.constData(), stamp + "Current Response: --> " + token + "\r\n");
        if (token == "EOF~")
            return false;
        BareLogLine(logFile.constData(), stamp + "Sent response to caller: " + token + "\r\n");
        ++rows;
        return true;
    });
    if (rows != manyRows)
        qFatal("the bare program lost rows");
    return secondsSince(start);
}

void HundredThousandRows(benchmark::State &state)
{
    const QByteArray tokens = rowTokens(manyRows);
    const double textBytes = static_cast<double>(tokens.size()) / manyRows - 2.0;
    BareServer server(tokens + "|EOF~|");
    const BareClient bare(server.Port());
    const QByteArray frame = "|search|";
    const QTemporaryDir folder;
    const QByteArray logFile = folder.filePath(u"log.txt"_s).toUtf8();
    connectTo(server.Port());
    double baseline = 0.0;
    double subject = 0.0;
    double gap = 0.0;
    double memory = 0.0;
    double bareProcessor = 0.0;
    double processor = 0.0;
    for (auto _ : state) {
        const double atFirst = processorSeconds();
        baseline += bareSeconds(bare, frame, logFile);
        bareProcessor += processorSeconds() - atFirst;
        QFile::remove(QString::fromUtf8(logFile));
        const auto window = startedWindow();
        const auto *list = window->findChild<ResultListView *>(u"listview1"_s);
        const double memoryBefore = bytesInUse();
        const double before = processorSeconds();
        const auto start = Clock::now();
        const GapWatch watch(list);
        finish();
        const double seconds = secondsSince(start);
        processor += processorSeconds() - before;
        if (list->List()->rowCount() != manyRows)
            qFatal("the window lost rows");
        memory = std::max(memory, bytesInUse() - memoryBefore);
        gap = std::max(gap, watch.LongestMilliseconds());
        subject += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio_to_bare_program"] = subject / baseline;
    state.counters["ratio_of_processor_time"] = processor / bareProcessor;
    state.counters["processor_microseconds_a_row"] =
        processor * 1e6 / manyRows / static_cast<double>(state.iterations());
    state.counters["longest_gap_ms"] = gap;
    state.counters["bytes_a_row"] = memory / manyRows;
    state.counters["ratio_to_text"] = memory / manyRows / textBytes;
    frmWinsock::Unload();
}

/// Each iteration is a search of its own that is stopped while its rows stream in.
void StopWhileRowsStream(benchmark::State &state)
{
    constexpr auto streaming = std::chrono::milliseconds(300);
    StoppableServer server(rowTokens(1'000), std::chrono::milliseconds(state.range(0)));
    connectTo(server.Port());
    double longest = 0.0;
    for (auto _ : state) {
        const auto window = startedWindow();
        auto *stop = window->findChild<QPushButton *>(u"cmdStopSearching"_s);
        server.ClickLater(streaming, [stop] {
            // From another thread, as the click of a user comes from another program.
            QMetaObject::invokeMethod(stop, &QPushButton::click, Qt::QueuedConnection);
        });
        finish();
        const double seconds = server.SecondsFromClickToStop();
        longest = std::max(longest, seconds * 1e3);
        state.SetIterationTime(seconds);
    }
    state.counters["longest_ms"] = longest;
    frmWinsock::Unload();
}
} // namespace

BENCHMARK(HundredThousandRows)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
// Milliseconds from thousand to thousand rows: 20,000 rows a second, and all that the socket takes.
BENCHMARK(StopWhileRowsStream)
    ->Arg(50)
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(StopWhileRowsStream)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const BenchFolder folder;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
