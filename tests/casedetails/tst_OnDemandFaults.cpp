#include "casedetails/CaseAnswers.h"
#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <array>

// Later runs that go wrong, and what the court asks or has not said before them.

namespace {
/// What can happen while the question stands.
enum class Under { Logout, LostLink, AnotherCase, Gone };
constexpr std::array<const char *, 4> underNames{"a logout", "a lost link", "another case",
                                                 "gone with the main window"};
} // namespace

Q_DECLARE_METATYPE(Under)

class tst_OnDemandFaults : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void aTabThatFailsAgainReturnsToThePanel_data();
    void aTabThatFailsAgainReturnsToThePanel();
    void aTabThatFailsAgainShowsWhatThereIsWithNo_data();
    void aTabThatFailsAgainShowsWhatThereIsWithNo();
    void aFailureAddsNothingToTheRun();
    void whatHappensUnderTheQuestion_data();
    void whatHappensUnderTheQuestion();
    void aSilentCourt_data();
    void aSilentCourt();
    void silentDocuments();
    void aLostLink_data();
    void aLostLink();
    void aLinkThatIsLostInTheMiddle_data();
    void aLinkThatIsLostInTheMiddle();
    void aWindowThatHasGoneAsksNothing_data();
    void aWindowThatHasGoneAsksNothing();
    void aWindowThatHasGoneKeepsNoPlace_data();
    void aWindowThatHasGoneKeepsNoPlace();
    void aTabThatWasLeftAsItIsIsOfferedAgainBehindAStop_data();
    void aTabThatWasLeftAsItIsIsOfferedAgainBehindAStop();
    void afterALostLinkTheNextRunIsTheOnlyOneInTheQueue();
    void aStopBehindALostLink();

    void arbitrationInTheSecondPass_data();
    void arbitrationInTheSecondPass();
};

void tst_OnDemandFaults::aTabThatFailsAgainReturnsToThePanel_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aTabThatFailsAgainReturnsToThePanel()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Docket"_s});
    for (int round = 0; round < 2; ++round) {
        // The click on it asks, and so does the tab when it has failed.
        AnswerPrompt(true);
        ClickTab(window, u"Docket"_s);
        Tick(window, {CaseTab::Docket});
        ExpectFailingTab(kind, CaseTab::Docket);
        AnswerPrompt(true);
        SearchNowToTheEnd(window);
        QCOMPARE(desk->Boxes.Answered(), 2 * (round + 1));
        QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
        QVERIFY(BoxOf(window, CaseTab::Docket)->isChecked());
        const CaseTabState &state = window->Tab(CaseTab::Docket);
        QVERIFY(state.TabNotRetrieved && state.TabIncomplete && !state.TabDone);
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
        QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
        QVERIFY(IsSeen(window, "lblWarning"));
        QVERIFY(CommandsEnabled(window));
    }
    Tick(window, {CaseTab::Docket});
    ExpectTab(kind, CaseTab::Docket);
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(!window->Tab(CaseTab::Docket).TabIncomplete);
    QVERIFY(!IsSeen(window, "lblWarning"));
    QCOMPARE(ShownFrame(window), u"frameTabs_2"_s);
}

void tst_OnDemandFaults::aTabThatFailsAgainShowsWhatThereIsWithNo_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aTabThatFailsAgainShowsWhatThereIsWithNo()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    ExpectFailingTab(kind, CaseTab::Names);
    court->Expect(LineOf(kind, CaseTab::Docket)).Reply({});
    QStringList shown;
    AnswerPrompt(false);
    // The Docket comes when this has been looked at: its frame takes the place.
    desk->When([this] { return court->Requests().size() == 3; },
               [&] {
                   shown = {ShownFrame(window), TextOf(window, "lblWarning"),
                            CellsOf(window, CaseTab::Names).at(1).at(0)};
                   court->SendTokens(ReplyOf(CaseTab::Docket));
               });
    SearchNowToTheEnd(window);
    QCOMPARE(shown,
             (QStringList{u"frameTabs_1"_s, u"Names Information Incomplete! Click Tab to Review."_s,
                          u"Name Search Incomplete. Please Retry Search."_s}));
    // The run has gone on with the next.
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
    QVERIFY(!window->Tab(CaseTab::Names).TabNotRetrieved);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
}

void tst_OnDemandFaults::aFailureAddsNothingToTheRun()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Charges});
    ExpectFailingTab(kind, CaseTab::Names);
    ExpectTab(kind, CaseTab::Charges);
    // With YES the panel comes in sight in the middle of the run.
    AnswerPrompt(true);
    SearchNowToTheEnd(window);
    QCOMPARE(court->Requests().size(), 3);
    QVERIFY(!window->Tab(CaseTab::Docket).TabDone);
}

void tst_OnDemandFaults::whatHappensUnderTheQuestion_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<Under>("under");
    QTest::addColumn<bool>("yes");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        for (size_t j = 0; j < underNames.size(); ++j) {
            for (const bool yes : {true, false})
                QTest::addRow("%s, %s, %s", caseWindowNames.at(i), underNames.at(j),
                              yes ? "YES" : "NO")
                    << static_cast<CaseWindowKind>(i) << static_cast<Under>(j) << yes;
        }
    }
}

/// The question of a tab that has failed stands in the middle of the run, as long as nobody
/// answers.
void tst_OnDemandFaults::whatHappensUnderTheQuestion()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(Under, under);
    QFETCH(bool, yes);
    const QPointer<CaseWindow> window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    ExpectFailingTab(kind, CaseTab::Names);
    const bool goesOn = under == Under::AnotherCase;
    if (goesOn)
        ExpectTab(kind, CaseTab::Docket);
    QPointer<CaseWindow> other;
    if (under == Under::AnotherCase)
        court->Expect(SuperiorLine(u"SUMMARY"_s, u"03-2-00456-7"_s)).Reply({u"EOF~"_s});
    QString statusOfOther;
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [&](QDialog *dialog) {
        switch (under) {
        case Under::Logout:
            Global.bStopRequested = true;
            break;
        case Under::LostLink:
            CloseServerLink();
            break;
        case Under::AnotherCase:
            other = Superior(u"03-2-00456-7"_s);
            Begin(other);
            QTRY_COMPARE(other->tmrBlink->interval(), 900);
            statusOfOther = TextOf(other, "lblStatus");
            break;
        case Under::Gone:
            window->Unload(UnloadMode::MdiParent);
            return;
        }
        ButtonOf(dialog, yes ? "Command1" : "Command2")->click();
    });
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Boxes.Answered() == 1 && !Global.bSearchInProgress);
    const QString lost = u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: Halvane "
                         "Server Connection was Dropped!"_s;
    QCOMPARE(desk->Folder.Logged(lost), under == Under::LostLink);
    if (under == Under::Gone) {
        QTRY_VERIFY(window.isNull());
        QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
        return;
    }
    QCOMPARE(window->Tab(CaseTab::Docket).TabDone, goesOn);
    QVERIFY(CommandsEnabled(window));
    switch (under) {
    case Under::Logout:
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
        QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
        break;
    case Under::LostLink:
        QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
        return;
    default:
        QCOMPARE(statusOfOther, u"Pending .."_s);
        QVERIFY(Finished(other));
        QCOMPARE(TextOf(other, "lblStatus"), u"Search Stopped. Case Not Located."_s);
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
        // Answered for this window; a load of another has not changed that.
        QCOMPARE(window->Tab(CaseTab::Names).TabNotRetrieved, yes);
        break;
    }
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OnDemandFaults::aSilentCourt_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aSilentCourt()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    // The tab behind the silent one is the one that only this window has.
    const CaseTab next = TabsOf(kind).at(2);
    Tick(window, {CaseTab::Docket, next});
    court->Expect(LineOf(kind, CaseTab::Docket)).Reply({});
    ExpectTab(kind, next);
    AnswerPrompt(true);
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    UntilTimeOut(window);
    QVERIFY(desk->Folder.Logged(u"Docket Search Incomplete. Request: "_s
                                + LineOf(kind, CaseTab::Docket)));
    QVERIFY(desk->Folder.Logged(u"Docket Search Result Was: Search Error! Reason: Timed Out "
                                "Waiting For Response from Server."_s));
    QVERIFY(window->Tab(CaseTab::Docket).TabIncomplete);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QVERIFY(window->Tab(next).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(CommandsEnabled(window));
    QVERIFY(!BoxOf(window, next)->isEnabled());
    QVERIFY(BoxOf(window, CaseTab::Docket)->isChecked());
}

void tst_OnDemandFaults::silentDocuments()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Documents"_s);
    Tick(window, {CaseTab::Documents});
    court->Expect(LineOf(kind, CaseTab::Documents)).Reply({});
    AnswerPrompt(true);
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    UntilTimeOut(window);
    QVERIFY(window->Tab(CaseTab::Documents).TabIncomplete);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Document Information Not Retrieved. Click Tab to Retry."_s);
}

void tst_OnDemandFaults::aLostLink_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aLostLink()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    SearchNow(window);
    court->DropClient();
    QTRY_VERIFY(!court->HasClient());
    Ticks(10);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: "
                                    "Halvane Server Connection was Dropped!"_s));
    QTRY_VERIFY(!Global.bSearchInProgress);
    // Nothing further is done or said; the window keeps its place until it goes.
    QVERIFY(!desk->Folder.Logged(u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(!window->Tab(CaseTab::Docket).TabDone);
    // What is missing can be asked for again, and is offered so.
    QVERIFY(CommandsEnabled(window));
    QVERIFY(!BoxOf(window, CaseTab::Names)->isChecked());
    ClickTab(window, u"Names"_s);
    QVERIFY(BoxOf(window, CaseTab::Names)->isChecked());
}

void tst_OnDemandFaults::aLinkThatIsLostInTheMiddle_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aLinkThatIsLostInTheMiddle()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    const CaseTab last = TabsOf(kind).at(2);
    Tick(window, {CaseTab::Names, CaseTab::Docket, last});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    // The reply that was waited for does not come, and the next line cannot leave.
    AnswerPrompt(true);
    desk->When([this] { return court->Requests().size() == 2; }, [] { CloseServerLink(); });
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: "
                                    "Halvane Server Connection was Dropped!"_s));
    QTRY_VERIFY(!Global.bSearchInProgress);
    QVERIFY(window->Tab(CaseTab::Names).TabIncomplete);
    QVERIFY(!window->Tab(CaseTab::Docket).TabDone);
    // Behind the break nothing is tried any more.
    QVERIFY(!desk->Folder.Logged(u"Retrieving "_s + CaptionOf(last) + u" .."_s));
    QVERIFY(window->Tab(last).TabNotRetrieved);
    QVERIFY(!desk->Folder.Logged(u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(CommandsEnabled(window));
}

void tst_OnDemandFaults::aWindowThatHasGoneAsksNothing_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aWindowThatHasGoneAsksNothing()
{
    QFETCH(CaseWindowKind, kind);
    const QPointer<CaseWindow> window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    // The tab fails, but nobody is there to say whether it shall be tried again.
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   window->Unload(UnloadMode::MdiParent);
                   court->SendTokens({u"ERROR The court is busy~"_s, u"EOF~"_s});
               });
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Boxes.Complaints(), QString());
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
}

void tst_OnDemandFaults::aWindowThatHasGoneKeepsNoPlace_data()
{
    EachCaseWindow();
}

void tst_OnDemandFaults::aWindowThatHasGoneKeepsNoPlace()
{
    QFETCH(CaseWindowKind, kind);
    const QPointer<CaseWindow> window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    // Its tab fails with the link, and it will not be closed a second time.
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   window->Unload(UnloadMode::MdiParent);
                   CloseServerLink();
               });
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(window.isNull());
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!Global.bSearchInProgress);
}

void tst_OnDemandFaults::aTabThatWasLeftAsItIsIsOfferedAgainBehindAStop_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<bool>("beforeItsTurn");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        const auto kind = static_cast<CaseWindowKind>(i);
        QTest::addRow("%s, before its turn", caseWindowNames.at(i)) << kind << true;
        QTest::addRow("%s, in the middle", caseWindowNames.at(i)) << kind << false;
    }
}

void tst_OnDemandFaults::aTabThatWasLeftAsItIsIsOfferedAgainBehindAStop()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(bool, beforeItsTurn);
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Docket"_s});
    // Its incomplete line is looked at, so it is no longer one that was left out.
    AnswerPrompt(false);
    ClickTab(window, u"Docket"_s);
    QVERIFY(!window->Tab(CaseTab::Docket).TabNotRetrieved);
    ClickTab(window, u"Names"_s);
    Tick(window, {CaseTab::Names});
    SearchNow(window);
    if (beforeItsTurn) {
        Global.bStopRequested = true;
    } else {
        court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
        court->Expect(u"¦STOP"_s).Reply(ReplyOf(CaseTab::Names));
        desk->When([this] { return court->Requests().size() == 3; },
                   [window] { ButtonOf(window, "cmdStopSearching")->click(); });
    }
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(TextOf(window, "lblStatus").contains(u"Search Stopped") && !Global.bSearchInProgress
                && frmQueue::Form().FIFO.ListCount() == 0);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
}

void tst_OnDemandFaults::afterALostLinkTheNextRunIsTheOnlyOneInTheQueue()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    SearchNow(window);
    court->DropClient();
    QTRY_VERIFY(!court->HasClient());
    Ticks(10);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: "
                                    "Halvane Server Connection was Dropped!"_s));
    QTRY_VERIFY(!Global.bSearchInProgress);
    desk->ConnectTo(*court);
    ClickTab(window, u"Names"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    SearchNow(window);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    ExpectTab(kind, CaseTab::Names);
    ExpectTab(kind, CaseTab::Docket);
    window->TmrSearchOnDemand->start(1);
    QVERIFY(Finished(window));
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OnDemandFaults::aStopBehindALostLink()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    court->DropClient();
    QTRY_VERIFY(!court->HasClient());
    Ticks(10);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(frmQueue::Form().FIFO.ListCount() == 1 && !Global.bSearchInProgress
                && !window->TmrSearchOnDemand->isActive());
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(CommandsEnabled(window));
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
}

void tst_OnDemandFaults::arbitrationInTheSecondPass_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void tst_OnDemandFaults::arbitrationInTheSecondPass()
{
    QFETCH(bool, yes);
    const CaseWindowKind kind = CaseWindowKind::Superior;
    const QString answer = yes ? u" ARBITRATION"_s : u" NOARBITRATION"_s;
    const QString end = u"¦¦"_s;
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    const auto answered = [&](CaseTab tab, int times) {
        return QString(LineOf(kind, tab).chopped(2) + answer.repeated(times) + end);
    };
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({u"USERQUESTION~"_s, u"EOF~"_s});
    court->Expect(answered(CaseTab::Summary, 1)).Reply(SummaryReplyOf(kind));
    court->Expect(answered(CaseTab::Names, 1)).Reply({u"ERROR The court is busy~"_s, u"EOF~"_s});
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [yes](QDialog *dialog) {
        ButtonOf(dialog, yes ? "Command1" : "Command2")->click();
    });
    CaseWindow *window = Superior();
    Run(window);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket, CaseTab::Documents});
    // The answer goes in each time that a line is about to be used, but never into the documents'.
    CaseAnswers.ArbitrationChosen = true;
    court->Expect(answered(CaseTab::Names, 2)).Reply(ReplyOf(CaseTab::Names));
    court->Expect(answered(CaseTab::Docket, 2)).Reply(ReplyOf(CaseTab::Docket));
    ExpectTab(kind, CaseTab::Documents);
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(!CaseAnswers.ArbitrationChosen);
}

HALVANE_TEST(tst_OnDemandFaults)
#include "tst_OnDemandFaults.moc"
