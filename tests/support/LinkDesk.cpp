#include "support/LinkDesk.h"

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/SweepExtent.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int shortestTick = 1;
constexpr double longestNapSeconds = 0.05;

int longestTestMilliseconds()
{
    // Under sanitizers everything takes longer, a machine that is shared longer still.
#ifdef __SANITIZE_ADDRESS__
    constexpr int usual = 300'000;
#else
    constexpr int usual = 60'000;
#endif
    constexpr int ofASweep = 3'600'000;
    return SweepExtent() == Extent::Short ? usual : ofASweep;
}
} // namespace

LinkDesk::LinkDesk()
{
    // A wait that no test meant to have ends with the link, and the test fails by what it shows.
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &context, [] {
        qWarning("the test waited too long: the link is cut");
        if (Global.sckServer)
            Global.sckServer->Close();
    });
    guard.start(longestTestMilliseconds());
}

LinkDesk::~LinkDesk()
{
    qDeleteAll(watchers);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void LinkDesk::ConnectTo(const ScriptedCourt &court)
{
    Global.lngServerPort = court.Port();
    if (!ConnectToRouter(u"127.0.0.1"_s)
        || !QTest::qWaitFor([&court] { return court.HasClient(); }))
        qFatal("the scripted court cannot be reached");
    Global.bLoggedIn = true;
}

FakeSocket *LinkDesk::ConnectToNothing()
{
    FakeSocket::Install();
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    return FakeSocket::Last();
}

void LinkDesk::When(std::function<bool()> ready, std::function<void()> act)
{
    auto *watcher = new QTimer;
    watchers.append(watcher);
    QObject::connect(watcher, &QTimer::timeout, &context,
                     [this, watcher, ready = std::move(ready), act = std::move(act)] {
                         if (!watchers.contains(watcher) || !ready())
                             return;
                         watcher->stop();
                         watchers.removeAll(watcher);
                         watcher->deleteLater();
                         // A copy of its own: what happens may run the event loop, in which the
                         // watcher ends.
                         const std::function<void()> now = act;
                         now();
                     });
    watcher->start(shortestTick);
}

QString LinkDesk::Complaints() const
{
    return AllHappened() ? QString() : u"something was to happen and did not"_s;
}

bool LinkDesk::WaitUntil(const std::function<bool()> &holds)
{
    const QDeadlineTimer deadline(longestTestMilliseconds());
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        YieldUntilEvent(longestNapSeconds);
    }
    return true;
}

void LinkTest::init()
{
    desk = std::make_unique<LinkDesk>();
    court = std::make_unique<ScriptedCourt>();
}

void LinkTest::cleanup()
{
    QCOMPARE(EndDialogue(desk, court), QString());
}
