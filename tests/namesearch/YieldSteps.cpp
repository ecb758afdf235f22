#include "namesearch/YieldSteps.h"

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/JobWindow.h"
#include "jobs/frmQueue.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "namesearch/SearchDesk.h"
#include "session/frmMain.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QPushButton>

namespace {
constexpr int longestRunMilliseconds = 5'000;
constexpr double longestNapSeconds = 0.01;
constexpr int blinkMilliseconds = 500;
/// Long enough for a pending window to see the stop before the program ends.
constexpr int exitMilliseconds = 20;
} // namespace

bool WaitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(longestRunMilliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        YieldUntilEvent(longestNapSeconds);
    }
    return true;
}

QString StateLine(const ProgramState &state)
{
    return u"%1, window %2, queue %3, %4, others %5, program %6"_s.arg(
        state.End, state.WindowGone ? u"gone"_s : u"there"_s, state.Queue.join(u'+'),
        state.LoggedIn ? u"logged in"_s : u"logged out"_s,
        state.StopsOthers ? u"stopped"_s : u"wait"_s, state.EndsProgram ? u"ended"_s : u"runs"_s);
}

ProgramState StateNow(const QString &end, bool windowGone, int programEndings)
{
    return {.End = end,
            .WindowGone = windowGone,
            .Queue = frmQueue::Form().FIFO.Lines(),
            .LoggedIn = Global.bLoggedIn,
            .StopsOthers = Global.bStopRequested,
            .EndsProgram = programEndings == 1};
}

void BeginSession(std::unique_ptr<frmMain> &main)
{
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    // As the search form does for every search.
    Global.bStopRequested = false;
    if (!main) {
        main = std::make_unique<frmMain>();
        main->show();
        // Painting is no matter here, and takes half of the time.
        main->setUpdatesEnabled(false);
    }
    main->TimerExit->setInterval(exitMilliseconds);
    main->SetTxtConnectStatus(u"Connected"_s);
    Global.bShowAlerts = false;
    frmQueue::Form().FIFO.Clear();
}

void SlowBlinking(JobWindow *window)
{
    QTimer *blink = window->tmrBlink;
    QObject::connect(blink, &QTimer::timeout, blink,
                     [blink] { blink->setInterval(blinkMilliseconds); });
}

void BlinkNow(const JobWindow *window)
{
    if (window && !window->IsUnloaded() && window->tmrBlink->isActive())
        window->tmrBlink->start(0);
}

void ExpectRefusal(BoxAnswers &boxes, Act act)
{
    for (const Refusal &refusal : refusals) {
        if (refusal.act == act)
            boxes.Expect(refusal.text.toString(), refusal.title.toString());
    }
}

void Perform(Act act, frmMain *main, JobWindow *window)
{
    switch (act) {
    case Act::StopButton:
        ButtonOf(window, "cmdStopSearching")->click();
        return;
    case Act::Logout:
        main->Logout();
        return;
    case Act::Disconnect:
    case Act::DisconnectFromSilence:
        main->findChild<QAction *>(u"mnuConnectionDisConnect"_s)->trigger();
        return;
    case Act::Exit:
        main->findChild<QAction *>(u"mnuFileExit"_s)->trigger();
        return;
    case Act::CloseMain:
        main->close();
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

QString PlaceOf(int yield, std::optional<Moment> moment)
{
    return u"in yield %1, %2"_s.arg(yield).arg(moment ? nameOf(*moment, momentNames)
                                                      : u"before it happened"_s);
}
