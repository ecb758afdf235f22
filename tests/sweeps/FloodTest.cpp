#include "sweeps/FloodTest.h"

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/JobWindow.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/SearchJobs.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/SweepExtent.h"

#include <QDeadlineTimer>
#include <QPushButton>
#include <QTest>

#include <algorithm>

#include <malloc.h>

namespace {
constexpr double nap = 0.05;
/// With nothing done in it, a wait is in vain.
constexpr int longestIdleMilliseconds = 20'000;
/// A turn is not waited for longer than somebody notices.
constexpr double noticedMilliseconds = 100.0;
/// So many times as long a turn may seem while the processor is shared.
constexpr double besideOtherWork = 3.0;
#ifdef __SANITIZE_ADDRESS__
constexpr bool timesCount = false;
#else
constexpr bool timesCount = true;
#endif
/// What a window takes for itself, with nothing in it.
constexpr long long slackBytes = 1'000'000;

int divisor()
{
    switch (SweepExtent()) {
    case Extent::Short:
        return 50;
    case Extent::Ci:
        return 5;
    case Extent::Whole:
        break;
    }
    return 1;
}
} // namespace

void FloodTest::init()
{
    CaseTest::init();
    flood = std::make_unique<FloodCourt>();
    Global.bShowAlerts = false;
}

void FloodTest::cleanup()
{
    CaseTest::cleanup();
    frmWinsock::Unload();
    flood.reset();
    malloc_trim(0);
}

int FloodTest::Scaled(int whole, int least)
{
    return std::max(whole / divisor(), least);
}

void FloodTest::Connect()
{
    Global.lngServerPort = flood->Port();
    if (!ConnectToRouter(u"127.0.0.1"_s))
        qFatal("the flooding court cannot be reached");
    Global.bLoggedIn = true;
}

bool FloodTest::WaitUntil(const std::function<bool()> &holds)
{
    // A machine that is busy with something else takes nothing away as long as anything is done.
    double worked = ThreadMilliseconds();
    QDeadlineTimer idle(longestIdleMilliseconds);
    while (!holds()) {
        if (idle.hasExpired())
            return false;
        if (ThreadMilliseconds() > worked + noticedMilliseconds) {
            worked = ThreadMilliseconds();
            idle.setRemainingTime(longestIdleMilliseconds);
        }
        YieldUntilEvent(nap);
    }
    return true;
}

void FloodTest::Begin(JobWindow *window)
{
    if (auto *ofCase = qobject_cast<CaseWindow *>(window))
        ofCase->TmrSearchOnDemand->setInterval(1);
    window->Timer1->start(1);
}

bool FloodTest::Finish(JobWindow *window)
{
    const QPushButton *stop = ButtonOf(window, "cmdStopSearching");
    return WaitUntil([stop] {
        return !stop->isEnabled() && !Global.bSearchInProgress
               && frmQueue::Form().FIFO.ListCount() == 0 && !Job::WithTurn();
    });
}

void FloodTest::Run(JobWindow *window)
{
    // The pauses between the tabs of a case; no reply may seem late by it.
    desk->Time.Run(0.02);
    Begin(window);
    if (!Finish(window))
        qFatal("the run does not end");
    desk->Time.Stop();
}

void FloodTest::Close(JobWindow *window)
{
    window->Unload(UnloadMode::MdiParent);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

FloodCost FloodTest::Measure(const std::function<void()> &act) const
{
    QCoreApplication::processEvents();
    const qint64 sent = flood->BytesSent();
    TurnProbe probe;
    act();
    // What is shown a moment later belongs to it.
    const int turns = probe.Turns();
    WaitUntil([&] { return probe.Turns() > turns + 60; });
    FloodCost cost;
    cost.Milliseconds = probe.Milliseconds();
    cost.LongestTurn = probe.LongestMilliseconds();
    cost.BytesLeft = probe.BytesNow();
    cost.MostBytes = std::max(probe.MostBytes(), cost.BytesLeft);
    cost.Sent = flood->BytesSent() - sent;
    return cost;
}

void FloodTest::Tell(const char *what, const FloodCost &cost)
{
    const double sent = static_cast<double>(std::max<qint64>(cost.Sent, 1));
    qInfo("%s %s: %.1f MB, %.0f ms, longest turn %.1f ms, memory %.2f (most %.2f) times",
          QTest::currentDataTag() ? QTest::currentDataTag() : "", what, sent / 1e6,
          cost.Milliseconds, cost.LongestTurn, static_cast<double>(cost.BytesLeft) / sent,
          static_cast<double>(cost.MostBytes) / sent);
}

void FloodTest::CheckGrowth(const FloodCost &part, const FloodCost &all, double least, int fold)
{
    if (!timesCount)
        return;
    QVERIFY2(all.Milliseconds <= 2.0 * fold * std::max(part.Milliseconds, least),
             qPrintable(u"%1 ms, and %2 times as much %3 ms"_s.arg(part.Milliseconds)
                            .arg(fold)
                            .arg(all.Milliseconds)));
}

void FloodTest::CheckTurn(const FloodCost &cost, double more)
{
    if (!timesCount)
        return;
    const double allowed = SweepExtent() == Extent::Whole ? 1.0 : besideOtherWork;
    QVERIFY2(cost.LongestTurn <= allowed * (noticedMilliseconds + more),
             qPrintable(u"a turn of %1 ms"_s.arg(cost.LongestTurn)));
}

void FloodTest::CheckFlood(const FloodCost &part, const FloodCost &all, const Keeps &keeps)
{
    CheckGrowth(part, all);
    for (const FloodCost &cost : {part, all}) {
        CheckTurn(cost);
        QVERIFY2(cost.BytesLeft <= keeps.Times * cost.Sent + keeps.Beside + slackBytes,
                 qPrintable(u"%1 bytes kept of %2"_s.arg(cost.BytesLeft).arg(cost.Sent)));
    }
}

void FloodTest::SearchOnce(bool overNewConnection)
{
    if (overNewConnection) {
        CloseServerLink();
        Connect();
    }
    flood->Answer(ScriptedCourt::Tokens({ResultLine(u"AGAIN"_s), u"EOF~"_s}));
    auto *window = new frmNameSearchResults(u"WA"_s);
    window->lboxQueue.AddItem(RequestLine());
    WindowDesk::Enqueue(window);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    Close(window);
}

void FloodTest::SearchAtNewCourt()
{
    flood = std::make_unique<FloodCourt>();
    SearchOnce(true);
}
