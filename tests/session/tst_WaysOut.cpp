// Each way out of a session or of the program, with a search that runs, one that waits and none,
// with and without alerts, logged in and not.

#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "session/SessionState.h"
#include "session/frmInactivity.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QTimer>

#include <array>

using namespace Qt::StringLiterals;

namespace {
enum class Way { Disconnect, Exit, ControlMenu, SessionEnd, TaskManager, IdleLimit };
enum class Search { None, Pending, Running };

/// How a way out asks and refuses.
struct WayRow
{
    Way way;
    const char *name;
    bool ends;           ///< the program, not only the session
    bool asks;           ///< when alerts are wanted
    QStringView title;   ///< of its box
    QStringView refusal; ///< while a search runs
    bool whenLoggedOut;  ///< does something then, too
};

constexpr QStringView closeRefusal =
    u"You must wait for the current search to complete before Exiting Halvane.  All Pending "
    "Searches will be stopped.";
constexpr QStringView disconnectRefusal =
    u"You must wait for the current search to complete before disconnecting. All Pending Searches "
    "will be stopped.";
constexpr std::array<WayRow, 6> ways{{
    {Way::Disconnect, "disconnect", false, true, u"Disconnect From Halvane ..", disconnectRefusal,
     false},
    {Way::Exit, "exit", true, true, u"Exit Halvane ..",
     u"You must wait for the current search to complete or be stopped before Exiting. All Pending "
     "Searches will be stopped.",
     true},
    {Way::ControlMenu, "the window is closed", true, false, u"Exit Halvane ..", closeRefusal, true},
    {Way::SessionEnd, "the desktop's session ends", true, false, u"Exit Halvane ..", closeRefusal,
     true},
    {Way::TaskManager, "the task manager", true, false, u"Exit Halvane ..", closeRefusal, true},
    {Way::IdleLimit, "the idle limit", false, false, u"Disconnect From Halvane ..",
     disconnectRefusal, false},
}};

const WayRow &rowOf(Way way)
{
    return ways.at(static_cast<size_t>(way));
}

const QString pendingKey = u"12345678901234567890"_s;
} // namespace

Q_DECLARE_METATYPE(Way)
Q_DECLARE_METATYPE(Search)

class tst_WaysOut : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void everyWay_data();
    void everyWay();

private:
    void go(Way way);
    void expectBoxes(const WayRow &row, bool loggedIn, Search search, bool alerts);

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_WaysOut::init()
{
    session = std::make_unique<SessionFixture>();
    FakeCourt::Install();
    main = session->ShowMain();
    main->TimerExit->setInterval(1);
}

void tst_WaysOut::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_WaysOut::go(Way way)
{
    switch (way) {
    case Way::Disconnect:
        Choose(main, "mnuConnectionDisConnect");
        return;
    case Way::Exit:
        Choose(main, "mnuFileExit");
        return;
    case Way::ControlMenu:
        main->close();
        return;
    case Way::SessionEnd:
        main->Unload(UnloadMode::SessionEnd);
        return;
    case Way::TaskManager:
        main->Unload(UnloadMode::TaskManager);
        return;
    case Way::IdleLimit:
        QTimer::singleShot(0, main, [this] {
            Click(main->findChild<frmInactivity *>(u"frmInactivity"_s), "cmdLogOut");
        });
        main->autologout();
        return;
    }
}

void tst_WaysOut::expectBoxes(const WayRow &row, bool loggedIn, Search search, bool alerts)
{
    const bool does = loggedIn || row.whenLoggedOut;
    if (search == Search::Running) {
        if (does)
            session->boxes.Expect(row.refusal.toString(), row.title.toString());
        return;
    }
    if (!does || !alerts)
        return;
    if (row.way == Way::Disconnect)
        session->boxes.Expect(u"Are you sure you want to disconnect from the Halvane Server?"_s,
                              u"Disconnect From Halvane .."_s, MsgAnswer::Yes);
    if (row.way == Way::Exit)
        session->boxes.Expect(
            u"You are about to exit the Halvane Application.\r\n\r\nAny data that has not been "
            "printed or saved will be lost! Are you sure you want to Exit from Halvane?"_s,
            u"Exit From Halvane?"_s, MsgAnswer::Yes);
    // The session report is a question on the way out, and a window of its own otherwise.
    if (row.ends && loggedIn)
        session->boxes.ExpectDialog(u"frmElapsedTime"_s,
                                    [](QDialog *dialog) { Click(dialog, "Command1"); });
}

void tst_WaysOut::everyWay_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<bool>("loggedIn");
    QTest::addColumn<Search>("search");
    QTest::addColumn<bool>("alerts");
    constexpr std::array<const char *, 3> searches{"no search", "a search that waits",
                                                   "a search that runs"};
    for (const WayRow &row : ways) {
        for (const bool loggedIn : {true, false}) {
            for (size_t search = 0; search < searches.size(); ++search) {
                for (const bool alerts : {true, false})
                    QTest::addRow("%s, %s, %s, alerts %s", row.name,
                                  loggedIn ? "logged in" : "logged out", searches.at(search),
                                  alerts ? "on" : "off")
                        << row.way << loggedIn << static_cast<Search>(search) << alerts;
            }
        }
    }
}

void tst_WaysOut::everyWay()
{
    QFETCH(Way, way);
    QFETCH(bool, loggedIn);
    QFETCH(Search, search);
    QFETCH(bool, alerts);
    const WayRow &row = rowOf(way);
    if (loggedIn)
        session->BeLoggedIn();
    Global.bShowAlerts = alerts;
    Global.bSearchInProgress = search == Search::Running;
    if (search != Search::None)
        frmQueue::Form().FIFO.AddItem(pendingKey);
    expectBoxes(row, loggedIn, search, alerts);
    go(way);
    const bool running = search == Search::Running;
    const bool does = loggedIn || row.whenLoggedOut;
    const bool ends = row.ends && !running;
    if (ends)
        QTRY_COMPARE(session->endings, QList<int>{0});
    Settle();
    QCOMPARE(session->endings, ends ? QList<int>{0} : QList<int>());
    QCOMPARE(main->isVisible(), !ends);
    QCOMPARE(Global.bLoggedIn, loggedIn && running);
    QCOMPARE(session->folder.Logged(u"Logout Successful"_s), loggedIn && !running);
    // A running search is asked to stop, and so is every one that waits; a logout leaves the queue.
    QCOMPARE(Global.bStopRequested, running && does);
    if (!ends)
        QCOMPARE(frmQueue::Form().FIFO.Lines(),
                 search == Search::None ? QStringList() : QStringList{pendingKey});
    // The session report stands by itself when only the session is over.
    QCOMPARE(main->findChild<QDialog *>(u"frmElapsedTime"_s) != nullptr,
             !row.ends && loggedIn && !running && alerts);
    Global.bSearchInProgress = false;
}

HALVANE_TEST(tst_WaysOut)
#include "tst_WaysOut.moc"
