#include "casedetails/CaseDesk.h"
#include "casedetails/StatusTrail.h"
#include "casedetails/TabFamily.h"
#include "casedetails/frmCaseDetails.h"
#include "controls/FlexGrid.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Comm.h"
#include "link/ConnectState.h"
#include "link/ServerSocket.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {
const QString endMark = u"EOF~"_s;
const QString timedOut =
    u"Search Error! Reason: Timed Out Waiting For Response from Server."_s;
const QString linkLost = u"Halvane Server Connection was Dropped!"_s;
const QString bankruptcySummary = u"BKRPT~SUMMARY~99-20077~"_s;
const QString runEnded = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;

/// A socket that is seen connected for so many more questions, and then is stuck half-way.
class StuckSocket : public FakeSocket
{
public:
    using FakeSocket::FakeSocket;
    SocketState State() const override
    {
        return stuck && asked++ >= connectedAnswers ? SocketState::Closing : FakeSocket::State();
    }
    bool stuck = false;
    int connectedAnswers = 1;
    mutable int asked = 0;
};

QString captionOf(const FamilyMember &member)
{
    return CaseTabRowOf(member.tab).caption.toString();
}

/// What the members' Summary is asked by.
QString summaryLine(const FamilyMember &member)
{
    if (member.state == u"OR")
        return u"OREGON@SUMMARY,NAMES,DOCKET,@CV0100001@BAK C@"_s;
    if (member.state == u"ID")
        return u"IDSUP\u00A6SUMMARY,NAMES,DOCKET,\u00A6CV-2001-1\u00A6Ada\u00A6"_s;
    if (member.state == u"WA")
        return SuperiorLine(u"SUMMARY"_s);
    return bankruptcySummary;
}

/// A Summary that leaves the member's tab in the strip.
QStringList summaryReply(const FamilyMember &member)
{
    if (member.state == u"WA")
        return {u"Case Type:~1~"_s, u"Court:~King County~"_s, u"Title:~A VS B~"_s,
                u"Date Filed:~03/04/2002~"_s, endMark};
    if (member.state == u"OR" || member.state == u"ID")
        return {u"NAMES DOCKET JUDGMENTS CHARGES ACCOUNTING FINANCE SENTENCE"_s,
                u"Court~Court of the County~"_s,
                u"Case~CV-2001-1~"_s,
                u"Title~A VS B~"_s,
                u"Four~4~"_s,
                u"Five~5~"_s,
                u"Filed~03/04/2002~"_s,
                endMark};
    return {u"TABDEF/RETRIEVECOMMAND="_s + member.request + u'/', u"Case Title~A~"_s,
            u"Chapter~7~"_s, u"Date Filed~03/04/2002~"_s, endMark};
}
} // namespace

/// The exchange of one tab, for every tab of every court.
class tst_CaseTabRetrieval : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aTable_data() { members(); }
    void aTable();
    void theEndMarkAloneGivesTheEmptyMessageAndTheTabIsDone_data() { members(); }
    void theEndMarkAloneGivesTheEmptyMessageAndTheTabIsDone();
    void aDefinitionWithoutRowsGivesTheEmptyMessage_data() { tableForms(); }
    void aDefinitionWithoutRowsGivesTheEmptyMessage();
    void linesWithoutADefinitionLeaveTheGridEmpty_data() { gridDefForms(); }
    void linesWithoutADefinitionLeaveTheGridEmpty();
    void anErrorLine_data() { members(); }
    void anErrorLine();
    void theLastErrorLineIsTheReason();
    void anErrorLineAmongRows_data() { members(); }
    void anErrorLineAmongRows();
    void silence_data() { members(); }
    void silence();
    void aTimeOutInDocketAndTheRunGoesOn();
    void aLinkLostInTheReply_data() { members(); }
    void aLinkLostInTheReply();
    void aSocketThatHasGone_data() { members(); }
    void aSocketThatHasGone();
    void aRequestThatDoesNotLeave_data() { members(); }
    void aRequestThatDoesNotLeave();
    void progressLinesAreReadOver_data() { members(); }
    void progressLinesAreReadOver();
    void wordsCountInCapitalsAndInFront_data() { members(); }
    void wordsCountInCapitalsAndInFront();
    void onlySummaryAndNamesCarryTheClientCode_data() { members(); }
    void onlySummaryAndNamesCarryTheClientCode();
    void aDataLineIsTrimmed();
    void anotherTabsLinesDoNotStay();
    void scheduleOfOregonHasTheWordsOfJudgments_data();
    void scheduleOfOregonHasTheWordsOfJudgments();
    void aRetryWithAnEmptyReplyIsDone_data() { members(); }
    void aRetryWithAnEmptyReplyIsDone();
    void aRetryThatFailsAgainStaysIncomplete();

private:
    static void members();
    static void tableForms();
    static void gridDefForms();
    static const FamilyMember &member();

    frmCaseDetails *windowOf(const FamilyMember &member);
    /// A window of the court whose Summary comes, and which then asks for this tab alone; its
    /// request is the next exchange to be written.
    frmCaseDetails *caseWith(const FamilyMember &member);
    /// The case, with this reply to the tab's request, run to its end.
    frmCaseDetails *retrieved(const FamilyMember &member, const QStringList &reply);
    /// Asks for this tab alone once more.
    void retry(frmCaseDetails *window, const FamilyMember &member);
    /// Lets the limit of the reply to this request run out.
    void keepSilent(const QString &request);
    /// The log from the tab's first line to the end of the run.
    QStringList logOf(const FamilyMember &member) const;
    static QStringList loggedReply(const FamilyMember &member, const QStringList &reply);
    static QList<QStringList> message(QStringView text) { return {{QString()}, {text.toString()}}; }
    static QStringList wholeTable(const FamilyMember &member);
    static QList<QStringList> wholeCells(const FamilyMember &member);
    void verifyDone(const frmCaseDetails *window, const FamilyMember &member);
    void verifyIncomplete(const frmCaseDetails *window, const FamilyMember &member);
    void verifyStatus(const QString &retrieving, const QString &ended, const QString &runEnd,
                      const FamilyMember &member);
    void verifyBrokenDown(const frmCaseDetails *window, const FamilyMember &member);

    std::unique_ptr<StatusTrail> trail;
};

void tst_CaseTabRetrieval::init()
{
    CaseTest::init();
    trail = std::make_unique<StatusTrail>("lblStatus");
}

void tst_CaseTabRetrieval::cleanup()
{
    trail.reset();
    CaseTest::cleanup();
}

const FamilyMember &tst_CaseTabRetrieval::member()
{
    return *std::find_if(family.begin(), family.end(), [](const FamilyMember &row) {
        return qstrcmp(row.name, QTest::currentDataTag()) == 0;
    });
}

void tst_CaseTabRetrieval::members()
{
    QTest::addColumn<int>("row");
    for (const FamilyMember &row : family)
        QTest::newRow(row.name) << 0;
}

void tst_CaseTabRetrieval::tableForms()
{
    QTest::addColumn<int>("row");
    for (const FamilyMember &row : family) {
        if (TableHead(row).size() > 1)
            QTest::newRow(row.name) << 0;
    }
}

void tst_CaseTabRetrieval::gridDefForms()
{
    QTest::addColumn<int>("row");
    for (const FamilyMember &row : family) {
        if (TableHead(row).size() == 1)
            QTest::newRow(row.name) << 0;
    }
}

frmCaseDetails *tst_CaseTabRetrieval::windowOf(const FamilyMember &member)
{
    if (member.state == u"WA")
        return Superior();
    if (member.state == u"OR")
        return OfState(u"OR"_s, u"CV0100001"_s);
    if (member.state == u"ID")
        return OfState(u"ID"_s, u"CV-2001-1"_s);
    return Bankruptcy(bankruptcySummary);
}

frmCaseDetails *tst_CaseTabRetrieval::caseWith(const FamilyMember &member)
{
    const QStringList captions{captionOf(member)};
    for (const QString &section :
         {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s})
        FetchAtOnce(section, captions);
    court->Expect(summaryLine(member)).Reply(summaryReply(member));
    return windowOf(member);
}

frmCaseDetails *tst_CaseTabRetrieval::retrieved(const FamilyMember &member,
                                                const QStringList &reply)
{
    frmCaseDetails *window = caseWith(member);
    court->Expect(member.request.toString()).Reply(reply);
    Run(window);
    return window;
}

void tst_CaseTabRetrieval::retry(frmCaseDetails *window, const FamilyMember &member)
{
    ButtonOf(window, "cmdClearAll")->click();
    const QString box = u"chkTab_"_s + QString::number(CaseTabRowOf(member.tab).check);
    window->findChild<QCheckBox *>(box)->click();
    desk->Time.Run(0.05);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    desk->Time.Stop();
}

void tst_CaseTabRetrieval::keepSilent(const QString &request)
{
    desk->When([this, request] { return desk->Folder.Logged(u"SendReq: "_s + request); },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
}

QStringList tst_CaseTabRetrieval::logOf(const FamilyMember &member) const
{
    const QStringList log = desk->Folder.Log();
    const qsizetype first = log.indexOf(TextsOfMember(member).Retrieving);
    const qsizetype end = log.indexOf(runEnded);
    return log.mid(first, end < 0 ? -1 : end - first);
}

/// What the log says of each line of a reply.
QStringList tst_CaseTabRetrieval::loggedReply(const FamilyMember &member, const QStringList &reply)
{
    const bool names = member.tab == CaseTab::Names;
    QStringList log;
    for (const QString &line : reply) {
        log += u"Current Response: --> "_s + line + (names ? u" Ret Val: 0"_s : u" 0"_s);
        const bool error = line.startsWith(u"ERROR") && member.tab != CaseTab::Documents;
        const bool progress = line.startsWith(u"searching", Qt::CaseInsensitive);
        if (!names && !error && !progress && !line.startsWith(endMark))
            log += u"Sent response to caller: "_s + line;
    }
    return log;
}

QStringList tst_CaseTabRetrieval::wholeTable(const FamilyMember &member)
{
    return TableHead(member)
           + QStringList{TableRow(member, u"01/02/2003~First~"_s),
                         TableRow(member, u"01/03/2003~Second~"_s)};
}

QList<QStringList> tst_CaseTabRetrieval::wholeCells(const FamilyMember &member)
{
    QList<QStringList> cells{{u"Date"_s, u"Entry"_s},
                             {u"01/02/2003"_s, u"First"_s},
                             {u"01/03/2003"_s, u"Second"_s}};
    if (member.lastFirst)
        cells.swapItemsAt(1, 2);
    return cells;
}

/// What the status line read from the tab's beginning on. Behind the last tab of a strip nobody has
/// the time to read how it ended.
void tst_CaseTabRetrieval::verifyStatus(const QString &retrieving, const QString &ended,
                                        const QString &runEnd, const FamilyMember &member)
{
    QStringList expected{retrieving, ended, runEnd};
    if (member.lastOfStrip)
        expected.removeAt(1);
    QCOMPARE(trail->Behind(u"Summary Complete .."_s), expected);
}

void tst_CaseTabRetrieval::verifyDone(const frmCaseDetails *window, const FamilyMember &member)
{
    const FamilyTexts texts = TextsOfMember(member);
    const CaseTabState &tab = window->Tab(member.tab);
    QVERIFY(tab.TabDone);
    QVERIFY(!tab.TabNotRetrieved);
    QVERIFY(!tab.TabIncomplete);
    verifyStatus(texts.Retrieving, texts.Complete, u"Search Complete"_s, member);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
    QVERIFY(window->findChild<QLabel *>(u"lblWarning"_s)->isHidden());
}

void tst_CaseTabRetrieval::verifyIncomplete(const frmCaseDetails *window,
                                            const FamilyMember &member)
{
    const FamilyTexts texts = TextsOfMember(member);
    const CaseTabState &tab = window->Tab(member.tab);
    QVERIFY(!tab.TabDone);
    QVERIFY(tab.TabNotRetrieved);
    QVERIFY(tab.TabIncomplete);
    verifyStatus(texts.Retrieving, texts.Incomplete, u"Search Incomplete!"_s, member);
    QCOMPARE(TextOf(window, "lblWarning"), texts.Warning);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QVERIFY(window->findChild<QLabel *>(u"lblWarning"_s)->isVisible());
}

void tst_CaseTabRetrieval::aTable()
{
    const FamilyMember &row = member();
    const QStringList reply = wholeTable(row) + QStringList{endMark};
    const frmCaseDetails *window = retrieved(row, reply);
    QCOMPARE(CellsOf(window, row.tab), wholeCells(row));
    verifyDone(window, row);
    const FamilyTexts texts = TextsOfMember(row);
    QCOMPARE(logOf(row), (QStringList{texts.Retrieving, u"SendReq: "_s + row.request}
                          + loggedReply(row, reply)
                          + QStringList{u"All Responses For "_s + row.word
                                            + u" were Received: "_s + row.request,
                                        texts.NormalExit}));
}

void tst_CaseTabRetrieval::theEndMarkAloneGivesTheEmptyMessageAndTheTabIsDone()
{
    const FamilyMember &row = member();
    const frmCaseDetails *window = retrieved(row, {endMark});
    QCOMPARE(CellsOf(window, row.tab), message(row.empty));
    verifyDone(window, row);
    const FamilyTexts texts = TextsOfMember(row);
    QStringList log{texts.Retrieving, u"SendReq: "_s + row.request};
    log += loggedReply(row, {endMark});
    log += u"All Responses For "_s + row.word + u" were Received: "_s + row.request;
    if (!row.emptyLog.isEmpty())
        log += row.emptyLog + row.request.toString();
    log += texts.NormalExit;
    QCOMPARE(logOf(row), log);
}

void tst_CaseTabRetrieval::aDefinitionWithoutRowsGivesTheEmptyMessage()
{
    const FamilyMember &row = member();
    const frmCaseDetails *window = retrieved(row, TableHead(row) + QStringList{endMark});
    QCOMPARE(CellsOf(window, row.tab), message(row.empty));
    verifyDone(window, row);
}

void tst_CaseTabRetrieval::linesWithoutADefinitionLeaveTheGridEmpty()
{
    const FamilyMember &row = member();
    const frmCaseDetails *window = retrieved(row, {u"01/02/2003~First~"_s, endMark});
    QCOMPARE(CellsOf(window, row.tab), QList<QStringList>());
    verifyDone(window, row);
}

void tst_CaseTabRetrieval::anErrorLine()
{
    const FamilyMember &row = member();
    const QStringList reply{u"ERROR~The roof is leaking~"_s, endMark};
    const frmCaseDetails *window = retrieved(row, reply);
    // The list of documents comes from another server: its lines are what they are.
    if (row.tab == CaseTab::Documents) {
        QCOMPARE(CellsOf(window, row.tab), message(row.empty));
        verifyDone(window, row);
        return;
    }
    QCOMPARE(CellsOf(window, row.tab), message(row.incomplete));
    verifyIncomplete(window, row);
    QStringList log{TextsOfMember(row).Retrieving, u"SendReq: "_s + row.request};
    log += loggedReply(row, reply);
    log += row.word + u" Search Incomplete. Request: "_s + row.request;
    log += row.word + u" Search Result Was: ~The roof is leaking~"_s;
    if (!row.incompleteLog.isEmpty())
        log += row.incompleteLog + row.request.toString();
    QCOMPARE(logOf(row), log);
}

void tst_CaseTabRetrieval::theLastErrorLineIsTheReason()
{
    const FamilyMember &docket = family[1];
    retrieved(docket, {u"ERROR~First~"_s, u"ERRORS happen"_s, endMark});
    QVERIFY(desk->Folder.Logged(u"Docket Search Result Was: S happen"_s));
    QVERIFY(!desk->Folder.Logged(u"Docket Search Result Was: ~First~"_s));
}

void tst_CaseTabRetrieval::anErrorLineAmongRows()
{
    const FamilyMember &row = member();
    QStringList reply = wholeTable(row);
    reply.insert(reply.size() - 1, u"ERROR~The roof is leaking~"_s);
    reply += endMark;
    const frmCaseDetails *window = retrieved(row, reply);
    if (row.tab == CaseTab::Documents) {
        QCOMPARE(CellsOf(window, row.tab).size(), 4);
        verifyDone(window, row);
        return;
    }
    // What has come is worth more than the message that not all has come.
    QCOMPARE(CellsOf(window, row.tab), wholeCells(row));
    verifyIncomplete(window, row);
}

void tst_CaseTabRetrieval::silence()
{
    const FamilyMember &row = member();
    keepSilent(row.request.toString());
    const frmCaseDetails *window = retrieved(row, {});
    QCOMPARE(CellsOf(window, row.tab), message(row.incomplete));
    verifyIncomplete(window, row);
    const bool names = row.tab == CaseTab::Names;
    QStringList log{TextsOfMember(row).Retrieving, u"SendReq: "_s + row.request};
    log += u"Current Response: --> "_s + (names ? u" Ret Val: 1"_s : u" 1"_s);
    log += row.word + u" Search Incomplete. Request: "_s + row.request;
    log += row.word + u" Search Result Was: "_s + timedOut;
    if (!row.incompleteLog.isEmpty())
        log += row.incompleteLog + row.request.toString();
    QCOMPARE(logOf(row), log);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
}

void tst_CaseTabRetrieval::aTimeOutInDocketAndTheRunGoesOn()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s, u"Judgments"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(summaryReply(family[1]));
    court->Expect(SuperiorLine(u"DOCKET"_s));
    court->Expect(SuperiorLine(u"JUDGMENTS"_s)).Reply(GridDef({u"01/02/2003~Paid~"_s}));
    keepSilent(SuperiorLine(u"DOCKET"_s));
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             message(u"Docket Information Incomplete. Please Retry Search."));
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(CellsOf(window, CaseTab::Judgments),
             (QList<QStringList>{{u"Date"_s, u"Entry"_s}, {u"01/02/2003"_s, u"Paid"_s}}));
    QVERIFY(window->Tab(CaseTab::Judgments).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Docket Information Incomplete! Click Tab to Retry."_s);
}

/// The wait for a reply does not tell a lost link from silence; the next request is what finds out.
void tst_CaseTabRetrieval::aLinkLostInTheReply()
{
    const FamilyMember &row = member();
    frmCaseDetails *window = caseWith(row);
    court->Expect(row.request.toString()).Reply({TableHead(row).first()}).Drop();
    Run(window);
    verifyIncomplete(window, row);
    QVERIFY(logOf(row).contains(u"Connection Lost While Waiting for Response. "
                                "Exiting Process ReadResponse()"_s));
    QVERIFY(logOf(row).contains(row.word + u" Search Result Was: "_s + timedOut));
    QVERIFY(!logOf(row).contains(TextsOfMember(row).NormalExit));
}

/// Nothing more is done, and the place in the queue is kept, so that no other job sends into a
/// conversation in an unknown state.
void tst_CaseTabRetrieval::verifyBrokenDown(const frmCaseDetails *window, const FamilyMember &row)
{
    desk->Time.Run(0.05);
    QVERIFY(QTest::qWaitFor([&] {
        return desk->Folder.Logged(TextsOfMember(row).ProcError + linkLost)
               && !Global.bSearchInProgress;
    }));
    QCOMPARE(logOf(row).last(), TextsOfMember(row).ProcError + linkLost);
    const CaseTabState &tab = window->Tab(row.tab);
    QVERIFY(!tab.TabDone);
    QVERIFY(!tab.TabNotRetrieved);
    QVERIFY(!tab.TabIncomplete);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QCOMPARE(TextOf(window, "lblStatus"), TextsOfMember(row).Retrieving);
    QVERIFY(!desk->Folder.Logged(runEnded));
}

void tst_CaseTabRetrieval::aSocketThatHasGone()
{
    const FamilyMember &row = member();
    frmCaseDetails *window = caseWith(row);
    court = std::make_unique<ScriptedCourt>(); // the socket has no network behind it
    StuckSocket *socket = nullptr;
    frmWinsock::SetSocketFactory([&socket](QObject *parent) {
        socket = new StuckSocket(parent);
        return socket;
    });
    frmWinsock::Form();
    socket->state = SocketState::Connected;
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    desk->When([&socket] { return socket->sent.size() == 1; },
               [&socket, &row] { socket->Arrive(ScriptedCourt::Tokens(summaryReply(row))); });
    desk->When([this, &row] { return desk->Folder.Logged(u"SendReq: "_s + row.request); },
               [&socket] {
                   socket->stuck = true;
                   socket->closes = false;
               });
    Begin(window);
    verifyBrokenDown(window, row);
    const bool names = row.tab == CaseTab::Names;
    QVERIFY(logOf(row).contains(u"Current Response: --> "_s
                                + (names ? u" Ret Val: -1"_s : u" -1"_s)));
}

void tst_CaseTabRetrieval::aRequestThatDoesNotLeave()
{
    const FamilyMember &row = member();
    frmCaseDetails *window = caseWith(row);
    desk->When([window] { return TextOf(window, "lblStatus") == u"Summary Complete .."; },
               [] { Global.sckServer->Close(); });
    desk->ConnectTo(*court);
    Begin(window);
    verifyBrokenDown(window, row);
    QCOMPARE(court->Requests().size(), 1);
}

void tst_CaseTabRetrieval::progressLinesAreReadOver()
{
    const FamilyMember &row = member();
    QStringList reply = wholeTable(row);
    reply.prepend(u"SEARCHING~King Superior Court~"_s);
    reply.insert(2, u"Searching~ EOF~"_s);
    reply += u"searchingEOF~"_s;
    reply += endMark;
    const frmCaseDetails *window = retrieved(row, reply);
    QCOMPARE(CellsOf(window, row.tab), wholeCells(row));
    verifyDone(window, row);
    QCOMPARE(logOf(row).mid(2, loggedReply(row, reply).size()), loggedReply(row, reply));
}

void tst_CaseTabRetrieval::wordsCountInCapitalsAndInFront()
{
    const FamilyMember &row = member();
    QStringList reply = TableHead(row);
    // None of these is an end mark, an error or progress, and the line behind the end is no row.
    for (const QString &line : {u"eof~2~"_s, u"Error~3~"_s, u"4~EOF~"_s, u"5~ERROR~"_s,
                                u"6~Searching~"_s, u"research~7~"_s})
        reply += TableRow(row, line);
    reply += u"EOF~that was all"_s;
    const frmCaseDetails *window = retrieved(row, reply);
    QList<QStringList> cells{{u"eof"_s, u"2"_s}, {u"Error"_s, u"3"_s},     {u"4"_s, u"EOF"_s},
                             {u"5"_s, u"ERROR"_s}, {u"6"_s, u"Searching"_s}, {u"research"_s, u"7"_s}};
    if (row.lastFirst)
        std::reverse(cells.begin(), cells.end());
    QCOMPARE(CellsOf(window, row.tab), QList<QStringList>({{u"Date"_s, u"Entry"_s}}) + cells);
    verifyDone(window, row);
}

void tst_CaseTabRetrieval::onlySummaryAndNamesCarryTheClientCode()
{
    const FamilyMember &row = member();
    const auto coded = [](const QString &line) -> QString {
        return line.chopped(1) + u"^^CAC:ACME 7^^"_s + line.back();
    };
    const QString request = row.request.toString();
    FetchAtOnce(u"CaseSearchTabs"_s, {captionOf(row)});
    FetchAtOnce(u"OrCaseSearchTabs"_s, {captionOf(row)});
    FetchAtOnce(u"IdCaseSearchTabs"_s, {captionOf(row)});
    court->Expect(coded(summaryLine(row))).Reply(summaryReply(row));
    court->Expect(row.tab == CaseTab::Names ? coded(request) : request)
        .Reply(wholeTable(row) + QStringList{endMark});
    frmCaseDetails *window = windowOf(row);
    window->ClientAcctgCode = u" ACME 7 "_s;
    Run(window);
    QVERIFY(window->Tab(row.tab).TabDone);
    // The tab's own line stays as it is: it would carry the code twice the next time.
    QCOMPARE(window->Tab(row.tab).TabRequest, request);
}

void tst_CaseTabRetrieval::aDataLineIsTrimmed()
{
    const FamilyMember &docket = family[1];
    const frmCaseDetails *window = retrieved(
        docket, {u"  GRIDDEF~Date~Entry~20~80~ "_s, u" ERROR~in a row~ "_s, endMark});
    QCOMPARE(window->lboxResponses.Lines(),
             (QStringList{u"GRIDDEF~Date~Entry~20~80~"_s, u"ERROR~in a row~"_s}));
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             (QList<QStringList>{{u"Date"_s, u"Entry"_s}, {u"ERROR"_s, u"in a row"_s}}));
}

void tst_CaseTabRetrieval::anotherTabsLinesDoNotStay()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(summaryReply(family[1]));
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply(GridDef({u"A~Smith~"_s}));
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({endMark});
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(window->lboxResponses.ListCount(), 0);
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             message(u"No Docket Information Found For This Case."));
}

void tst_CaseTabRetrieval::scheduleOfOregonHasTheWordsOfJudgments_data()
{
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<QString>("words");
    QTest::newRow("empty") << false << u"No Judgments Were Found For This Case."_s;
    QTest::newRow("incomplete") << true << u"Judgments Search Incomplete. Please Retry Search"_s;
}

/// Oregon's strip has no such tab; should it get one, this is what it says.
void tst_CaseTabRetrieval::scheduleOfOregonHasTheWordsOfJudgments()
{
    struct Schedule : frmCaseDetails
    {
        using CaseWindow::ShowTab;
    };
    QFETCH(bool, incomplete);
    QFETCH(QString, words);
    Schedule window;
    window.lblState = u"OR"_s;
    static_cast<CaseWindow &>(window).lboxResponses.Clear();
    window.ShowTab(CaseTab::Schedule, incomplete, u"OREGON@SCHEDULE,@"_s);
    QCOMPARE(CellsOf(&window, CaseTab::Schedule), message(words));
}

void tst_CaseTabRetrieval::aRetryWithAnEmptyReplyIsDone()
{
    const FamilyMember &row = member();
    keepSilent(row.request.toString());
    frmCaseDetails *window = retrieved(row, {});
    QVERIFY(window->Tab(row.tab).TabIncomplete);
    // The first question is answered with a click on the tab, and the window offers the tab again.
    Global.bOnDemandPrompt = false;
    ClickTab(window, captionOf(row));
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    court->Expect(row.request.toString()).Reply({endMark});
    retry(window, row);
    QCOMPARE(CellsOf(window, row.tab), message(row.empty));
    const CaseTabState &tab = window->Tab(row.tab);
    QVERIFY(tab.TabDone);
    QVERIFY(!tab.TabIncomplete);
    QVERIFY(!tab.TabNotRetrieved);
    QVERIFY(ShownFrame(window) != u"frameTabs_8");
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->findChild<QLabel *>(u"lblWarning"_s)->isHidden());
}

void tst_CaseTabRetrieval::aRetryThatFailsAgainStaysIncomplete()
{
    const FamilyMember &docket = family[1];
    frmCaseDetails *window = retrieved(docket, {u"ERROR~Once~"_s, endMark});
    Global.bOnDemandPrompt = false;
    ClickTab(window, u"Docket"_s);
    court->Expect(docket.request.toString()).Reply({u"ERROR~Twice~"_s, endMark});
    retry(window, docket);
    QVERIFY(window->Tab(CaseTab::Docket).TabIncomplete);
    QVERIFY(window->Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(CellsOf(window, CaseTab::Docket), message(docket.incomplete));
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(desk->Folder.Logged(u"Docket Search Result Was: ~Twice~"_s));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
}

QTEST_MAIN(tst_CaseTabRetrieval)
#include "tst_CaseTabRetrieval.moc"
