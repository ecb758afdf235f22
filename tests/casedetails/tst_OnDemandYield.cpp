// A later run of a case is repeated with something done to it inside each of its yields in turn:
// whatever can be clicked meanwhile, and at whichever moment, the run ends as is meant for it.

#include "casedetails/CaseAnswers.h"
#include "casedetails/OnDemandDesk.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/YieldDesk.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <memory>

namespace {
constexpr YieldDesk::Walk walk{.fewestPending = 1, .fewestRunning = 6, .mostYields = 60};

const QString started = u"On Demand Search Started.."_s;
const QString normalExit = u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s;
const QString stopExit =
    u"SEARCHING STOPPED DUE TO LOGOUT - from ProcessSearchReqeusts in Case Details."_s;
const QString closeExit =
    u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s;
const QString timerExit = u"INCOMPLETE EXIT - from OnDemandTimer1 - Case Details."_s;
const QString breakDown = u" via PROCERR in Case Details. Error: "_s;

/// How a later run ends, by the lines that it leaves in the log.
const QString nothing = u"nothing"_s;
const QString completed = u"completed"_s;
const QString stopped = u"stopped"_s;
const QString closed = u"closed"_s;
const QString stoppedForAll = u"stopped with all jobs"_s;
const QString stoppedBefore = u"stopped before its turn"_s;
const QString brokenDown = u"broken down"_s;

/// How a run must end with this done to it at this moment.
struct Outcome
{
    Act act;
    Moment moment;
    QString end;
    bool gone; ///< the window goes
    bool keyLeft;
    bool staysLoggedIn;
    bool stopsOthers;
    bool endsProgram;
};

const QList<Outcome> outcomes{
    {Act::StopButton, Moment::Pending, nothing, false, false, true, false, false},
    {Act::StopButton, Moment::Running, stopped, false, false, true, false, false},
    {Act::StopButton, Moment::Over, completed, false, false, true, false, false},
    // Without a link the run has its turn, cannot send, and keeps its place.
    {Act::Logout, Moment::Pending, brokenDown, false, true, false, false, false},
    {Act::Logout, Moment::Running, brokenDown, false, true, false, false, false},
    {Act::Logout, Moment::Over, completed, false, false, false, false, false},
    {Act::Disconnect, Moment::Pending, brokenDown, false, true, false, false, false},
    {Act::Disconnect, Moment::Running, stoppedForAll, false, false, true, true, false},
    {Act::Disconnect, Moment::Over, completed, false, false, false, false, false},
    {Act::DisconnectFromSilence, Moment::Pending, brokenDown, false, true, false, false, false},
    // Refused; what the court still owes never comes, and the wait for it ends by its limit.
    {Act::DisconnectFromSilence, Moment::Running, stoppedForAll, false, false, true, true, false},
    {Act::DisconnectFromSilence, Moment::Over, completed, false, false, false, false, false},
    {Act::Exit, Moment::Pending, stoppedBefore, false, false, false, false, true},
    {Act::Exit, Moment::Running, stoppedForAll, false, false, true, true, false},
    {Act::Exit, Moment::Over, completed, false, false, false, false, true},
    {Act::CloseMain, Moment::Pending, stoppedBefore, false, false, false, false, true},
    {Act::CloseMain, Moment::Running, stoppedForAll, false, false, true, true, false},
    {Act::CloseMain, Moment::Over, completed, false, false, false, false, true},
    {Act::CloseFrame, Moment::Pending, nothing, true, false, true, false, false},
    {Act::CloseFrame, Moment::Running, completed, false, false, true, false, false},
    {Act::CloseFrame, Moment::Over, completed, true, false, true, false, false},
    {Act::UnloadByCode, Moment::Pending, nothing, true, false, true, false, false},
    {Act::UnloadByCode, Moment::Running, completed, false, false, true, false, false},
    {Act::UnloadByCode, Moment::Over, completed, true, false, true, false, false},
    // These ask nobody: the run ends at its next stop point behind a window that is out of sight.
    {Act::SessionEnds, Moment::Pending, nothing, true, false, true, false, false},
    {Act::SessionEnds, Moment::Running, closed, true, false, true, false, false},
    {Act::SessionEnds, Moment::Over, completed, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Pending, nothing, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Running, closed, true, false, true, false, false},
    {Act::UnloadUnconditionally, Moment::Over, completed, true, false, true, false, false},
};
} // namespace

Q_DECLARE_METATYPE(Act)

class tst_OnDemandYield : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup();

    void everyYield_data();
    void everyYield();

private:
    QStringList answersTo(const QByteArray &request) const;
    /// A window behind its first run whose later run has its key in the queue.
    void prepare();
    /// One later run with the act in its nth yield, or behind its end if it has no such yield.
    void runWith(int nth);
    QString endOf() const;
    bool isOver() const;
    Moment momentNow() const;
    Outcome expected(const QString &end) const;
    void checkWindow(const Outcome &outcome) const;

    Act what = Act::StopButton;
    CaseWindowKind kind = CaseWindowKind::Civil;
    std::unique_ptr<YieldDesk> yields;
    QPointer<CaseWindow> window;
};

void tst_OnDemandYield::init()
{
    OnDemandTest::init();
    yields = std::make_unique<YieldDesk>(*desk);
}

void tst_OnDemandYield::cleanup()
{
    yields.reset();
    SearchTest::cleanup();
}

QStringList tst_OnDemandYield::answersTo(const QByteArray &request) const
{
    for (const char *summary : {"SUMMARY", "CIVI\xA6", "NCNCC"}) {
        if (request.contains(summary))
            return SummaryReplyOf(kind);
    }
    return GridDef({u"1~2~"_s});
}

void tst_OnDemandYield::prepare()
{
    window = MakeCase(kind);
    yields->Watch(window);
    yields->Show(window);
    // The pauses ahead of the tabs are no matter here.
    desk->Time.Run(1.0);
    Begin(window);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    // A tab that fails would ask whether it shall be retrieved again.
    CaseAnswers.bOnDemandPrompt = false;
    window->ActivateTab(u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    SearchNow(window);
}

QString tst_OnDemandYield::endOf() const
{
    QStringList ends;
    const QString log = desk->Folder.Log().join(u'\n');
    const bool forAll = log.contains(timerExit);
    if (log.contains(normalExit))
        ends.append(completed);
    if (log.contains(closeExit))
        ends.append(closed);
    if (log.contains(breakDown))
        ends.append(brokenDown);
    if (log.contains(stopExit))
        ends.append(forAll ? stoppedForAll : stopped);
    else if (forAll)
        ends.append(stoppedBefore);
    return ends.isEmpty() ? nothing : ends.join(u" and "_s);
}

bool tst_OnDemandYield::isOver() const
{
    if (Global.bSearchInProgress)
        return false;
    if (endOf() != nothing)
        return true;
    // Before its turn it may be stopped, or gone, without a line.
    const bool waits =
        window && !window->IsUnloaded() && ButtonOf(window, "cmdStopSearching")->isEnabled();
    return !waits && !desk->Folder.Logged(started);
}

Moment tst_OnDemandYield::momentNow() const
{
    if (endOf() != nothing)
        return Moment::Over;
    return desk->Folder.Logged(started) ? Moment::Running : Moment::Pending;
}

Outcome tst_OnDemandYield::expected(const QString &end) const
{
    Outcome outcome = *std::find_if(outcomes.begin(), outcomes.end(), [&](const Outcome &row) {
        return row.act == what && row.moment == *yields->When;
    });
    // A link that goes under the last tab leaves nothing to send: the run ends, incomplete.
    if (outcome.end == brokenDown && *yields->When == Moment::Running && end == completed
        && window->AnyTabIncomplete()) {
        outcome.end = completed;
        outcome.keyLeft = false;
    }
    return outcome;
}

void tst_OnDemandYield::checkWindow(const Outcome &outcome) const
{
    QVERIFY(!window->IsUnloaded());
    QCOMPARE(window->isVisible(), !outcome.endsProgram);
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(CommandsEnabled(window));
    if (outcome.end == brokenDown)
        return;
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!window->findChild<QLabel *>(u"lblStatus"_s)->isHidden());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    for (const CaseTab tab : {CaseTab::Names, CaseTab::Docket}) {
        const CaseTabState &state = window->Tab(tab);
        // What has not come can be asked for.
        QVERIFY(state.TabDone != state.TabNotRetrieved);
    }
    const bool all = window->Tab(CaseTab::Names).TabDone && window->Tab(CaseTab::Docket).TabDone;
    if (outcome.end == completed)
        QCOMPARE(TextOf(window, "lblStatus"), all ? u"Search Complete"_s : u"Search Incomplete!"_s);
    else if (outcome.end == stopped)
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    else
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
}

void tst_OnDemandYield::runWith(int nth)
{
    yields->ConnectAgain([this](const QByteArray &request) { return answersTo(request); });
    prepare();
    EnqueueKey(otherKey);
    desk->Folder.Remove(u"AppInfo.txt"_s);
    const QString key = window->txtMasterKey;
    const auto act = [this] { yields->Do(what, momentNow()); };
    yields->Begin(window->TmrSearchOnDemand, nth, act);
    QVERIFY(YieldDesk::WaitFor([this] { return isOver(); }));
    YieldDesk::StopWatching();
    desk->Time.Stop();
    if (!yields->When)
        act();
    const Outcome outcome = expected(endOf());
    if (outcome.endsProgram)
        QVERIFY(yields->WaitForTheEnding());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList queue;
    if (outcome.keyLeft)
        queue.append(key);
    // The queue is unloaded at the very end.
    if (!outcome.endsProgram)
        queue.append(otherKey);
    const StateLeft left{endOf(),          window.isNull(),       frmQueue::Form().FIFO.Lines(),
                         Global.bLoggedIn, Global.bStopRequested, yields->Endings == 1};
    const StateLeft meant{outcome.end,           outcome.gone,        queue,
                          outcome.staysLoggedIn, outcome.stopsOthers, outcome.endsProgram};
    QCOMPARE(left.Line(), meant.Line());
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!Global.bSendBusy);
    QCOMPARE(desk->Boxes.Complaints(), QString());
    if (window)
        checkWindow(outcome);
    delete window;
    if (yields->Endings > 0)
        yields->Main.reset();
}

void tst_OnDemandYield::everyYield_data()
{
    QTest::addColumn<CaseWindowKind>("caseKind");
    QTest::addColumn<Act>("happening");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        for (size_t j = 0; j < actNames.size(); ++j)
            QTest::addRow("%s: %s", caseWindowNames.at(i), actNames.at(j))
                << static_cast<CaseWindowKind>(i) << static_cast<Act>(j);
    }
}

void tst_OnDemandYield::everyYield()
{
    QFETCH(CaseWindowKind, caseKind);
    QFETCH(Act, happening);
    kind = caseKind;
    what = happening;
    FetchAtOnce(u"CivilCaseTabs"_s, {});
    FetchAtOnce(u"NonCivilCaseTabs"_s, {});
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    yields->WalkYields(walk, [this](int nth) { runWith(nth); });
}

HALVANE_TEST(tst_OnDemandYield)
#include "tst_OnDemandYield.moc"
