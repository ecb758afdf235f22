#include "namesearch/YieldDesk.h"

#include "core/EndProgram.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/JobWindow.h"
#include "jobs/frmQueue.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/SearchDesk.h"
#include "session/frmMain.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QPushButton>
#include <QTest>

namespace {
constexpr int longestRunMilliseconds = 5'000;
constexpr double longestNapSeconds = 0.01;
constexpr int blinkMilliseconds = 500;
/// Long enough for a pending window to see the stop before the program ends.
constexpr int exitMilliseconds = 20;
} // namespace

YieldDesk::YieldDesk(SearchDesk &searchDesk) : desk(searchDesk)
{
    ReplaceEndProgram([this](int) { ++Endings; });
}

YieldDesk::~YieldDesk()
{
    StopWatching();
    Main.reset();
    ReplaceEndProgram([](int) {});
}

void YieldDesk::ConnectAgain(const AnsweringCourt::Answers &answers,
                             AnsweringCourt::EndMark endMark)
{
    CloseServerLink();
    AnsweringCourt::Install(
        answers,
        [this] {
            if (window && !window->IsUnloaded() && window->tmrBlink->isActive())
                window->tmrBlink->start(0);
        },
        endMark);
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    // As the search form does for every search.
    Global.bStopRequested = false;
    if (!Main) {
        Main = std::make_unique<frmMain>();
        Main->show();
        // Painting is no matter here, and takes half of the time.
        Main->setUpdatesEnabled(false);
    }
    Main->TimerExit->setInterval(exitMilliseconds);
    Main->SetTxtConnectStatus(u"Connected"_s);
    Global.bShowAlerts = false;
    frmQueue::Form().FIFO.Clear();
}

void YieldDesk::Show(JobWindow *job)
{
    Main->ShowChild(job);
    QTimer *blink = job->tmrBlink;
    QObject::connect(blink, &QTimer::timeout, blink,
                     [blink] { blink->setInterval(blinkMilliseconds); });
}

void YieldDesk::Begin(QTimer *timer, int nth, const std::function<void()> &happens)
{
    When.reset();
    Endings = 0;
    window->tmrBlink->start(0);
    timer->start(0);
    WatchYields([this, nth, happens, yields = 0]() mutable {
        if (++yields == nth)
            QMetaObject::invokeMethod(&context, happens, Qt::QueuedConnection);
    });
}

void YieldDesk::StopWatching()
{
    WatchYields({});
}

void YieldDesk::Note(Moment now)
{
    When = now;
    if (Global.bSendBusy)
        ++timesInASend;
}

void YieldDesk::Do(Act act, Moment now)
{
    Note(now);
    if (now == Moment::Running) {
        for (const Refusal &refusal : refusals) {
            if (refusal.act == act)
                desk.Boxes.Expect(refusal.text.toString(), refusal.title.toString());
        }
    }
    Perform(act);
}

void YieldDesk::Perform(Act act)
{
    switch (act) {
    case Act::StopButton:
        if (QPushButton *stop = ButtonOf(window, "cmdStopSearching"))
            stop->click();
        else
            ButtonOf(window, "cmdStop")->click();
        return;
    case Act::Logout:
        Main->Logout();
        return;
    case Act::DisconnectFromSilence:
        if (When == Moment::Running) {
            AnsweringCourt::Behind(Global.sckServer)->FallSilent();
            desk.Time.Run(1.0);
        }
        [[fallthrough]];
    case Act::Disconnect:
        Main->findChild<QAction *>(u"mnuConnectionDisConnect"_s)->trigger();
        return;
    case Act::Exit:
        Main->findChild<QAction *>(u"mnuFileExit"_s)->trigger();
        return;
    case Act::CloseMain:
        Main->close();
        return;
    case Act::CloseFrame:
        window->parentWidget()->close();
        return;
    case Act::UnloadByCode:
        window->Unload();
        return;
    case Act::SessionEnds:
        window->Unload(UnloadMode::SessionEnd);
        return;
    case Act::UnloadUnconditionally:
        window->Unload(UnloadMode::MdiParent);
        return;
    }
}

bool YieldDesk::WaitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(longestRunMilliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        YieldUntilEvent(longestNapSeconds);
    }
    return true;
}

bool YieldDesk::WaitForTheEnding()
{
    return WaitFor([this] { return Endings > 0; });
}

void YieldDesk::WalkYields(const Walk &walk, const std::function<void(int nth)> &runWith)
{
    std::array<int, 3> times{};
    timesInASend = 0;
    Moment last = Moment::Pending;
    int nth = 0;
    do {
        runWith(++nth);
        if (QTest::currentTestFailed()) {
            QFAIL(qPrintable(u"in yield %1, %2"_s.arg(nth).arg(When ? nameOf(*When, momentNames)
                                                                    : u"before it happened"_s)));
        }
        last = *When;
        ++times.at(static_cast<size_t>(last));
    } while (last != Moment::Over && nth < walk.mostYields);
    QVERIFY2(
        times[0] >= walk.fewestPending && times[1] >= walk.fewestRunning && times[2] == 1
            && timesInASend >= 1,
        qPrintable(u"%1 %2 %3 %4"_s.arg(times[0]).arg(times[1]).arg(times[2]).arg(timesInASend)));
}

QString StateLeft::Line() const
{
    return u"%1, window %2, queue %3, %4, others %5, program %6"_s.arg(
        End, Gone ? u"gone"_s : u"there"_s, Queue.join(u'+'),
        LoggedIn ? u"logged in"_s : u"logged out"_s, StopsOthers ? u"stopped"_s : u"wait"_s,
        EndsProgram ? u"ended"_s : u"runs"_s);
}
