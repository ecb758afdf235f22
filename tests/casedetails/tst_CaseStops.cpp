// Every way in which a case is stopped: by its button while it waits and in its run, and by a wish
// to leave that all jobs hear.

#include "casedetails/CaseKinds.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>

namespace {
const QString stoppedStatus = u"Search Stopped By User .. "_s;
const QString stopQuestion = u"Stop This Search?"_s;
const QString stopTitle = u"Stop Search Verification"_s;
const QString otherKey = u"11111111111111111111"_s;

enum class Flag { AllJobs, Close, Button };

/// What each flag leaves in the log, and in which exit it ends.
struct FlagRow
{
    Flag flag;
    const char *name;
    QStringView logged;
    bool closes;
};
constexpr std::array<FlagRow, 3> flags{{
    {Flag::AllJobs, "all jobs", u"Searching Stopped - Yielding to Logout Process.", false},
    {Flag::Close, "close", u"Searching Stopped - Yielding to Form Close Request by User.", true},
    {Flag::Button, "button", u"Searching Stopped - Yielding to Stop Command from User.", false},
}};
const FlagRow &rowOf(Flag flag)
{
    return flags.at(static_cast<size_t>(flag));
}

const QString stopExit =
    u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in Case Details."_s;
const QString closeExit =
    u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s;

/// The tabs of the case that the stops of a run are tried on, in the order of their requests.
const QStringList tabsAsked{u"Names"_s, u"Docket"_s, u"Judgments"_s};
} // namespace

Q_DECLARE_METATYPE(Flag)

class tst_CaseStops : public CaseKindsTest
{
    Q_OBJECT
private Q_SLOTS:
    void aStopRequestGivesUp_data();
    void aStopRequestGivesUp();
    void aStopRequestOffersTheTabsOfTheCase();
    void aStopRequestOffersTheDocumentsToo();
    void aStopRequestGoesBeforeARunningJob();
    void stopWhilePendingWithdrawsTheKey_data();
    void stopWhilePendingWithdrawsTheKey();
    void aDeclinedStopLeavesTheButtonOff();
    void aDeclinedStopOfARunLetsItGoOn();
    void withoutAlertsStopAsksNothing();
    void aPendingCaseDoesNotStartUnderTheQuestion();
    void aWishToLeaveUnderTheQuestionIsEnough();
    void aPendingCaseIsPendingWhateverItsLabelReads();
    void stopPendingOnlyWhenPending();
    void aStopInsideABlinkEndsTheBlinking();
    void stopRequestByState_data();
    void stopRequestByState();
    void aStopThatCannotBeSentReleasesTheTurn();
    void aStopThatCannotBeSentInARun();
    void stopInARunEndsItAtTheNextTest();
    void stoppedAndClosedItKeepsTheLinkUntilItsReplyHasCome();
    void everyFlagAtEveryStopPoint_data();
    void everyFlagAtEveryStopPoint();
    void theFirstOfSeveralFlagsDecides_data();
    void theFirstOfSeveralFlagsDecides();
    void aStopLeavesTheListOfDocumentsAlone();

private:
    static void raise(CaseWindow *window, Flag flag);
    /// A case with three tabs behind its summary. The court answers all requests but the last of
    /// these; what it says to that is returned.
    QStringList expectCase(qsizetype tabRequests);
};

void tst_CaseStops::raise(CaseWindow *window, Flag flag)
{
    switch (flag) {
    case Flag::AllJobs:
        Global.bStopRequested = true;
        break;
    case Flag::Close:
        window->CloseRequested = true;
        break;
    case Flag::Button:
        window->StopRequested = true;
        break;
    }
}

QStringList tst_CaseStops::expectCase(qsizetype tabRequests)
{
    FetchAtOnce(u"CaseSearchTabs"_s, tabsAsked);
    const QStringList summary = SuperiorSummary() + QStringList{u"EOF~"_s};
    const QStringList table = GridDef({u"01/02/2003~A~"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(tabRequests == 0 ? QStringList() : summary);
    for (qsizetype i = 1; i <= tabRequests; ++i)
        court->Expect(SuperiorLine(tabsAsked[i - 1].toUpper()))
            .Reply(i == tabRequests ? QStringList() : table);
    return tabRequests == 0 ? summary : table;
}

void tst_CaseStops::aStopRequestGivesUp_data()
{
    EachWindow();
}

void tst_CaseStops::aStopRequestGivesUp()
{
    QFETCH(Which, which);
    Global.bStopRequested = true;
    CaseWindow *window = pending(which);
    frmQueue::Form().FIFO.AddItem(otherKey);
    Begin(window);
    QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(TextOf(window, "lblWarning"), u"Search Stopped .."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QVERIFY(window->findChild<QWidget *>(u"lblWarning"_s)->isVisible());
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->SearchStopped);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
}

void tst_CaseStops::aStopRequestOffersTheTabsOfTheCase()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    Global.bStopRequested = true;
    CaseWindow *window = Superior(u"02-5-00123-4"_s);
    Begin(window);
    QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s}));
    for (const CaseTab tab : {CaseTab::Summary, CaseTab::Names, CaseTab::Docket})
        QVERIFY(window->Tab(tab).TabNotRetrieved);
    // Those that the case has not are not offered.
    for (const CaseTab tab : {CaseTab::Judgments, CaseTab::Documents, CaseTab::Finance})
        QVERIFY(!window->Tab(tab).TabNotRetrieved);
    ClickTab(window, u"Docket"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
}

/// Unlike the stop of a run, which leaves them alone.
void tst_CaseStops::aStopRequestOffersTheDocumentsToo()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Documents"_s});
    Global.bStopRequested = true;
    CaseWindow *window = Superior();
    Begin(window);
    QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    const QStringList captions = CaptionsOf(window);
    QCOMPARE(captions.last(), u"Documents"_s);
    for (const QString &caption : captions)
        QVERIFY2(window->Tab(CaseTabOf(caption).value()).TabNotRetrieved, qPrintable(caption));
}

void tst_CaseStops::aStopRequestGoesBeforeARunningJob()
{
    Global.bStopRequested = true;
    Global.bSearchInProgress = true;
    CaseWindow *window = pending();
    Begin(window);
    QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QVERIFY(Global.bSearchInProgress);
}

void tst_CaseStops::stopWhilePendingWithdrawsTheKey_data()
{
    EachWindow();
}

void tst_CaseStops::stopWhilePendingWithdrawsTheKey()
{
    QFETCH(Which, which);
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    frmQueue::Form().FIFO.AddItem(otherKey);
    CaseWindow *window = pending(which);
    window->Timer1->start();
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(window->StopRequested);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!Global.bUserStoppedSearch);
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    Ticks(20);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_CaseStops::aDeclinedStopLeavesTheButtonOff()
{
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    CaseWindow *window = pending();
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    ButtonOf(window, "cmdStopSearching")->click();
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(!window->StopRequested);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
    // It still takes its turn.
    Begin(window);
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped. Case Not Located."_s);
}

void tst_CaseStops::aDeclinedStopOfARunLetsItGoOn()
{
    Global.bShowAlerts = true;
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
    CaseWindow *window = pending();
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   ButtonOf(window, "cmdStopSearching")->click();
                   court->SendTokens(SuperiorSummary() + QStringList{u"EOF~"_s});
               });
    Run(window);
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(!window->SearchStopped);
}

void tst_CaseStops::withoutAlertsStopAsksNothing()
{
    Global.bShowAlerts = false;
    CaseWindow *window = pending();
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_CaseStops::aPendingCaseDoesNotStartUnderTheQuestion()
{
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    CaseWindow *window = pending();
    desk->Boxes.Meanwhile([&] {
        window->Timer1->start(1);
        Ticks(30);
        QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    });
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(court->Requests(), QStringList());
}

/// The answer comes too late for anything: the server hears of no search that was never begun.
void tst_CaseStops::aWishToLeaveUnderTheQuestionIsEnough()
{
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    CaseWindow *window = pending();
    desk->Boxes.Meanwhile([window] {
        Global.bStopRequested = true;
        Begin(window);
        QTRY_COMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    });
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    ButtonOf(window, "cmdStopSearching")->click();
    QVERIFY(!window->StopRequested);
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    QVERIFY(!desk->Folder.Logged(u"SendReq: ¦STOP"_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

/// What the label reads decides nothing.
void tst_CaseStops::aPendingCaseIsPendingWhateverItsLabelReads()
{
    Global.bShowAlerts = false;
    desk->ConnectTo(*court);
    CaseWindow *window = pending();
    window->findChild<QLabel *>(u"lblStatus"_s)->setText(u"Searching .."_s);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!desk->Folder.Logged(u"SendReq: ¦STOP"_s));
}

void tst_CaseStops::stopPendingOnlyWhenPending()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s))
        .Reply(SuperiorSummary() + QStringList{u"EOF~"_s})
        .Late();
    CaseWindow *window = pending();
    desk->When([this] { return court->OwesAnswer(); },
               [this, window] {
                   QVERIFY(!window->StopPendingSearch());
                   QCOMPARE(TextOf(window, "lblStatus"), u"Retrieving Summary .."_s);
                   QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
                   QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
                   court->AnswerNow();
               });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    window->Timer1->start();
    QVERIFY(!window->StopPendingSearch());
    QVERIFY(window->Timer1->isActive());
    CaseWindow *other = pending();
    other->Timer1->start();
    QVERIFY(other->StopPendingSearch());
    QVERIFY(!other->Timer1->isActive());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseStops::aStopInsideABlinkEndsTheBlinking()
{
    CaseWindow *window = pending();
    int yields = 0;
    WatchYields([&] {
        if (yields++ == 0)
            window->StopPendingSearch();
    });
    const auto unwatched = qScopeGuard([] { WatchYields({}); });
    window->tmrBlink->start(1);
    QTRY_VERIFY(yields > 0);
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
}

void tst_CaseStops::stopRequestByState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("request");
    for (const QString &state : {u"WAWBK"_s, u"WAEBK"_s, u"IDBK"_s, u"ORBK"_s})
        QTest::newRow(qPrintable(state)) << state << u"BKRPT~STOP~"_s;
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s})
        QTest::newRow(qPrintable(state)) << state << u"¦STOP"_s;
}

void tst_CaseStops::stopRequestByState()
{
    QFETCH(QString, state);
    QFETCH(QString, request);
    court->Expect(request).Reply({});
    desk->ConnectTo(*court);
    CaseWindow *window = pending();
    window->lblState = state;
    window->Timer1->start();
    QVERIFY(window->StopActiveSearch());
    QTRY_COMPARE(court->Requests(), QStringList{request});
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    // The run itself gives the turn back.
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
}

void tst_CaseStops::aStopThatCannotBeSentReleasesTheTurn()
{
    // No connection.
    CaseWindow *window = pending();
    frmQueue::Form().FIFO.AddItem(otherKey);
    QVERIFY(window->StopActiveSearch());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(desk->Folder.Logged(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s));
}

void tst_CaseStops::aStopThatCannotBeSentInARun()
{
    Global.bShowAlerts = false;
    FakeSocket *socket = desk->ConnectToNothing();
    CaseWindow *window = pending();
    frmQueue::Form().FIFO.AddItem(otherKey);
    desk->When([socket] { return socket->sent.size() == 1; },
               [&] {
                   socket->PeerCloses();
                   ButtonOf(window, "cmdStopSearching")->click();
               });
    Begin(window);
    QTRY_VERIFY(!Global.bSearchInProgress && window->SearchStopped);
    QTRY_VERIFY(desk->Folder.Logged(stopExit));
    QCOMPARE(desk->Folder.TimesLogged(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s), 1);
    // One line was removed, its own.
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
}

void tst_CaseStops::stopInARunEndsItAtTheNextTest()
{
    Global.bShowAlerts = true;
    FetchAtOnce(u"CaseSearchTabs"_s, tabsAsked);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply({u"GRIDDEF~Date~Entry~20~80~"_s});
    court->Expect(u"¦STOP"_s).Reply({u"01/02/2003~A~"_s, u"EOF~"_s});
    CaseWindow *window = pending();
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    QString status;
    bool inProgress = true;
    desk->When([&] { return court->Requests().size() == 2; },
               [&] {
                   ButtonOf(window, "cmdStopSearching")->click();
                   status = TextOf(window, "lblStatus");
                   inProgress = Global.bSearchInProgress;
               });
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(stopExit));
    QCOMPARE(status, stoppedStatus);
    QVERIFY(!inProgress);
    QVERIFY(desk->Folder.Logged(rowOf(Flag::Button).logged.toString()));
    // What was being read has come to its end.
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(!window->Tab(CaseTab::Names).TabNotRetrieved);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    QVERIFY(window->SearchStopped);
}

void tst_CaseStops::stoppedAndClosedItKeepsTheLinkUntilItsReplyHasCome()
{
    Global.bShowAlerts = false;
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({u"Type:~1~"_s});
    court->Expect(u"¦STOP"_s).Reply({});
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"03-2-00456-7"_s)).Reply({u"EOF~"_s});
    const QPointer<CaseWindow> window(pending());
    CaseWindow *second = Superior(u"03-2-00456-7"_s);
    int ticks = 0;
    connect(second->Timer1, &QTimer::timeout, second, [&ticks] { ++ticks; });
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   ButtonOf(window, "cmdStopSearching")->click();
                   QVERIFY(window->Unload());
                   ticks = 0;
                   Begin(second);
               });
    QString status;
    desk->When([&] { return court->Requests().size() == 2 && ticks >= 3; },
               [&] {
                   status = TextOf(second, "lblStatus");
                   court->SendTokens({u"EOF~"_s});
               });
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(window.isNull());
    QVERIFY(Finished(second));
    QCOMPARE(status, u"Pending .."_s);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Stopped. Case Not Located."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseStops::everyFlagAtEveryStopPoint_data()
{
    QTest::addColumn<Flag>("flag");
    QTest::addColumn<int>("point");
    for (const FlagRow &row : flags) {
        for (int point = 0; point <= tabsAsked.size(); ++point)
            QTest::addRow("%s, %s", row.name,
                          point == 0 ? "Summary" : qPrintable(tabsAsked[point - 1]))
                << row.flag << point;
    }
}

void tst_CaseStops::everyFlagAtEveryStopPoint()
{
    QFETCH(Flag, flag);
    QFETCH(int, point);
    Global.bShowAlerts = true;
    const QStringList reply = expectCase(point);
    const QPointer<CaseWindow> window(pending());
    frmQueue::Form().FIFO.AddItem(otherKey);
    desk->When([&] { return court->Requests().size() == point + 1; },
               [&] {
                   raise(window, flag);
                   court->SendTokens(reply);
               });
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    const QString exit = rowOf(flag).closes ? closeExit : stopExit;
    QTRY_VERIFY(desk->Folder.Logged(exit));
    QTRY_VERIFY(!Global.bSearchInProgress);
    QCOMPARE(desk->Folder.TimesLogged(rowOf(flag).logged.toString()), 1);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    if (rowOf(flag).closes) {
        QTRY_VERIFY(window.isNull());
        return;
    }
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    // What has come has come; what has not is offered.
    for (int i = 0; i < tabsAsked.size(); ++i) {
        const CaseTabState &state = window->Tab(CaseTabOf(tabsAsked[i]).value());
        QCOMPARE(state.TabDone, i < point);
        QCOMPARE(state.TabNotRetrieved, i >= point);
    }
}

void tst_CaseStops::theFirstOfSeveralFlagsDecides_data()
{
    QTest::addColumn<QList<Flag>>("raised");
    QTest::addColumn<Flag>("decides");
    QTest::newRow("all three") << QList<Flag>{Flag::Button, Flag::Close, Flag::AllJobs}
                               << Flag::AllJobs;
    QTest::newRow("all jobs and the button")
        << QList<Flag>{Flag::Button, Flag::AllJobs} << Flag::AllJobs;
    QTest::newRow("close and the button") << QList<Flag>{Flag::Button, Flag::Close} << Flag::Close;
}

void tst_CaseStops::theFirstOfSeveralFlagsDecides()
{
    QFETCH(QList<Flag>, raised);
    QFETCH(Flag, decides);
    const QStringList reply = expectCase(0);
    const QPointer<CaseWindow> window(pending());
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   for (const Flag flag : raised)
                       raise(window, flag);
                   court->SendTokens(reply);
               });
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(rowOf(decides).logged.toString()));
    QTRY_VERIFY(!Global.bSearchInProgress);
    for (const FlagRow &row : flags)
        QCOMPARE(desk->Folder.TimesLogged(row.logged.toString()), row.flag == decides ? 1 : 0);
    QTRY_COMPARE(window.isNull(), rowOf(decides).closes);
}

void tst_CaseStops::aStopLeavesTheListOfDocumentsAlone()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s, u"Documents"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
    CaseWindow *window = pending();
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   raise(window, Flag::Button);
                   court->SendTokens(SuperiorSummary() + QStringList{u"EOF~"_s});
               });
    Run(window);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QVERIFY(!window->Tab(CaseTab::Documents).TabNotRetrieved);
    QVERIFY(!window->Tab(CaseTab::Documents).TabDone);
}

HALVANE_TEST(tst_CaseStops)
#include "tst_CaseStops.moc"
