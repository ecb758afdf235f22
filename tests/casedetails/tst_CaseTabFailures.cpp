#include "casedetails/CaseAnswers.h"
#include "casedetails/TabDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/ConnectState.h"
#include "link/ServerSocket.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QLabel>
#include <QTest>

namespace {
const QString endMark = u"EOF~"_s;
const QString timedOut = u"Search Error! Reason: Timed Out Waiting For Response from Server."_s;
const QString linkLost = u"Halvane Server Connection was Dropped!"_s;
const QString runEnded = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
} // namespace

/// The exchange of one tab, for every tab of every court, in each way in which it can fail.
class tst_CaseTabFailures : public TabTest
{
    Q_OBJECT
private Q_SLOTS:
    void anErrorLine_data() { Members(); }
    void anErrorLine();
    void theLastErrorLineIsTheReason();
    void anErrorLineAmongRows_data() { Members(); }
    void anErrorLineAmongRows();
    void silence_data() { Members(); }
    void silence();
    void aTimeOutInDocketAndTheRunGoesOn();
    void aLinkLostInTheReply_data() { Members(); }
    void aLinkLostInTheReply();
    void aSocketThatHasGone_data() { Members(); }
    void aSocketThatHasGone();
    void aRequestThatDoesNotLeave_data() { Members(); }
    void aRequestThatDoesNotLeave();
    void aRetryWithAnEmptyReplyIsDone_data() { Members(); }
    void aRetryWithAnEmptyReplyIsDone();
    void aRetryThatFailsAgainStaysIncomplete();

private:
    void verifyBrokenDown(const frmCaseDetails *window, const FamilyMember &member);
};

void tst_CaseTabFailures::anErrorLine()
{
    const FamilyMember &row = Member();
    const QStringList reply{u"ERROR~The roof is leaking~"_s, endMark};
    const frmCaseDetails *window = Retrieved(row, reply);
    // The list of documents comes from another server: its lines are what they are.
    if (row.tab == CaseTab::Documents) {
        QCOMPARE(CellsOf(window, row.tab), Message(row.empty));
        VerifyDone(window, row);
        return;
    }
    QCOMPARE(CellsOf(window, row.tab), Message(row.incomplete));
    VerifyIncomplete(window, row);
    QStringList log{TextsOfMember(row).Retrieving, u"SendReq: "_s + row.request};
    log += LoggedReply(row, reply);
    log += row.word + u" Search Incomplete. Request: "_s + row.request;
    log += row.word + u" Search Result Was: ~The roof is leaking~"_s;
    if (!row.incompleteLog.isEmpty())
        log += row.incompleteLog + row.request.toString();
    QCOMPARE(LogOf(row), log);
}

void tst_CaseTabFailures::theLastErrorLineIsTheReason()
{
    const FamilyMember &docket = family[1];
    Retrieved(docket, {u"ERROR~First~"_s, u"ERRORS happen"_s, endMark});
    QVERIFY(desk->Folder.Logged(u"Docket Search Result Was: S happen"_s));
    QVERIFY(!desk->Folder.Logged(u"Docket Search Result Was: ~First~"_s));
}

void tst_CaseTabFailures::anErrorLineAmongRows()
{
    const FamilyMember &row = Member();
    QStringList reply = WholeTable(row);
    reply.insert(reply.size() - 1, u"ERROR~The roof is leaking~"_s);
    reply += endMark;
    const frmCaseDetails *window = Retrieved(row, reply);
    if (row.tab == CaseTab::Documents) {
        QCOMPARE(CellsOf(window, row.tab).size(), 4);
        VerifyDone(window, row);
        return;
    }
    // What has come is worth more than the message that not all has come.
    QCOMPARE(CellsOf(window, row.tab), WholeCells(row));
    VerifyIncomplete(window, row);
}

void tst_CaseTabFailures::silence()
{
    const FamilyMember &row = Member();
    KeepSilent(row.request.toString());
    const frmCaseDetails *window = Retrieved(row, {});
    QCOMPARE(CellsOf(window, row.tab), Message(row.incomplete));
    VerifyIncomplete(window, row);
    const bool names = row.tab == CaseTab::Names;
    QStringList log{TextsOfMember(row).Retrieving, u"SendReq: "_s + row.request};
    log += u"Current Response: --> "_s + (names ? u" Ret Val: 1"_s : u" 1"_s);
    log += row.word + u" Search Incomplete. Request: "_s + row.request;
    log += row.word + u" Search Result Was: "_s + timedOut;
    if (!row.incompleteLog.isEmpty())
        log += row.incompleteLog + row.request.toString();
    QCOMPARE(LogOf(row), log);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
}

void tst_CaseTabFailures::aTimeOutInDocketAndTheRunGoesOn()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s, u"Judgments"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SummaryReplyOf(family[1]));
    court->Expect(SuperiorLine(u"DOCKET"_s));
    court->Expect(SuperiorLine(u"JUDGMENTS"_s)).Reply(GridDef({u"01/02/2003~Paid~"_s}));
    KeepSilent(SuperiorLine(u"DOCKET"_s));
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             Message(u"Docket Information Incomplete. Please Retry Search."));
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(CellsOf(window, CaseTab::Judgments),
             (QList<QStringList>{{u"Date"_s, u"Entry"_s}, {u"01/02/2003"_s, u"Paid"_s}}));
    QVERIFY(window->Tab(CaseTab::Judgments).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(TextOf(window, "lblWarning"), u"Docket Information Incomplete! Click Tab to Retry."_s);
}

/// The wait for a reply does not tell a lost link from silence; the next request is what finds out.
void tst_CaseTabFailures::aLinkLostInTheReply()
{
    const FamilyMember &row = Member();
    frmCaseDetails *window = CaseWith(row);
    court->Expect(row.request.toString()).Reply({TableHead(row).first()}).Drop();
    Run(window);
    VerifyIncomplete(window, row);
    QVERIFY(LogOf(row).contains(u"Connection Lost While Waiting for Response. "
                                "Exiting Process ReadResponse()"_s));
    QVERIFY(LogOf(row).contains(row.word + u" Search Result Was: "_s + timedOut));
    QVERIFY(!LogOf(row).contains(TextsOfMember(row).NormalExit));
}

/// Nothing more is done, and the place in the queue is kept, so that no other job sends into a
/// conversation in an unknown state.
void tst_CaseTabFailures::verifyBrokenDown(const frmCaseDetails *window, const FamilyMember &row)
{
    desk->Time.Run(0.05);
    QVERIFY(QTest::qWaitFor([&] {
        return desk->Folder.Logged(TextsOfMember(row).ProcError + linkLost)
               && !Global.bSearchInProgress;
    }));
    QCOMPARE(LogOf(row).last(), TextsOfMember(row).ProcError + linkLost);
    const CaseTabState &tab = window->Tab(row.tab);
    QVERIFY(!tab.TabDone);
    QVERIFY(!tab.TabNotRetrieved);
    QVERIFY(!tab.TabIncomplete);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QCOMPARE(TextOf(window, "lblStatus"), TextsOfMember(row).Retrieving);
    QVERIFY(!desk->Folder.Logged(runEnded));
}

void tst_CaseTabFailures::aSocketThatHasGone()
{
    const FamilyMember &row = Member();
    frmCaseDetails *window = CaseWith(row);
    court = std::make_unique<ScriptedCourt>(); // the socket has no network behind it
    FakeSocket *socket = LinkDesk::ConnectToNothing();
    desk->When([&socket] { return socket->sent.size() == 1; },
               [&socket, &row] { socket->Arrive(ScriptedCourt::Tokens(SummaryReplyOf(row))); });
    desk->When([this, &row] { return desk->Folder.Logged(u"SendReq: "_s + row.request); },
               [&socket] {
                   socket->state = SocketState::Closing; // stuck half-way, and seen one turn later
                   socket->connectedAnswers = 1;
                   socket->closes = false;
               });
    Begin(window);
    verifyBrokenDown(window, row);
    const bool names = row.tab == CaseTab::Names;
    QVERIFY(
        LogOf(row).contains(u"Current Response: --> "_s + (names ? u" Ret Val: -1"_s : u" -1"_s)));
}

void tst_CaseTabFailures::aRequestThatDoesNotLeave()
{
    const FamilyMember &row = Member();
    frmCaseDetails *window = CaseWith(row);
    desk->When([window] { return TextOf(window, "lblStatus") == u"Summary Complete .."; },
               [] { Global.sckServer->Close(); });
    desk->ConnectTo(*court);
    Begin(window);
    verifyBrokenDown(window, row);
    QCOMPARE(court->Requests().size(), 1);
}

void tst_CaseTabFailures::aRetryWithAnEmptyReplyIsDone()
{
    const FamilyMember &row = Member();
    KeepSilent(row.request.toString());
    frmCaseDetails *window = Retrieved(row, {});
    QVERIFY(window->Tab(row.tab).TabIncomplete);
    // The first question is answered with a click on the tab, and the window offers the tab again.
    CaseAnswers.bOnDemandPrompt = false;
    ClickTab(window, CaptionOf(row));
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    court->Expect(row.request.toString()).Reply({endMark});
    Retry(window, row);
    QCOMPARE(CellsOf(window, row.tab), Message(row.empty));
    const CaseTabState &tab = window->Tab(row.tab);
    QVERIFY(tab.TabDone);
    QVERIFY(!tab.TabIncomplete);
    QVERIFY(!tab.TabNotRetrieved);
    QVERIFY(ShownFrame(window) != u"frameTabs_8");
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->findChild<QLabel *>(u"lblWarning"_s)->isHidden());
}

void tst_CaseTabFailures::aRetryThatFailsAgainStaysIncomplete()
{
    const FamilyMember &docket = family[1];
    frmCaseDetails *window = Retrieved(docket, {u"ERROR~Once~"_s, endMark});
    CaseAnswers.bOnDemandPrompt = false;
    ClickTab(window, u"Docket"_s);
    court->Expect(docket.request.toString()).Reply({u"ERROR~Twice~"_s, endMark});
    Retry(window, docket);
    QVERIFY(window->Tab(CaseTab::Docket).TabIncomplete);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(CellsOf(window, CaseTab::Docket), Message(docket.incomplete));
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(desk->Folder.Logged(u"Docket Search Result Was: ~Twice~"_s));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
}

HALVANE_TEST(tst_CaseTabFailures)
#include "tst_CaseTabFailures.moc"
