#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/SearchJobs.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QPointer>
#include <QTest>

namespace {
const QString searchFailed =
    u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s;
const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
const QString inProgress =
    u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s;
const QString tooMany = u"This search resulted in more than 200 results.~"_s;
} // namespace

class tst_NameSearch : public SearchJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void theLogTellsEachStepOfASearch();
    void theLogTellsTheWayFromOneLineToTheNext();
    void rowsOfSeveralLinesAddUp();
    void theCountBetweenTwoLinesIsThatOfTheLinesBefore();
    void theCriteriaFollowTheLineBeingSearched();
    void theAccountingTagIsOnTheWireAndNotInTheList();
    void theLineIsSentTrimmedAndKeptAsItIs();
    void whatCameBeforeTheSearchIsNotRead();
    void theReceiveBufferIsEmptiedBeforeEachLine();
    void aLongProgressReplyIsShown();
    void aShortProgressReplyChangesNothing();
    void progressLeavesColourAndCountAlone();
    void aRowThatEndsInThereofGoesOn();
    void endOfFileInTheMiddleIsARow();
    void silenceRunsIntoTheLimit_data();
    void silenceRunsIntoTheLimit();
    void aLostLinkIsNotATimeOutOfAnHour();
    void aSocketThatCannotBeClosedIsADroppedConnection();
    void withoutAConnectionNothingIsSent();
    void anUnsentLineLosesTheSearch();
    void aSearchLeavesTheLinkToTheNext();
    void manyRowsAllArrive();
};

void tst_NameSearch::theLogTellsEachStepOfASearch()
{
    const QString row = ResultLine(u"SMITH, JOHN"_s);
    court->Expect(RequestLine())
        .Reply({u"Searching~King~"_s, row, u"ERROR~Court is down~"_s, u"EOF~"_s});
    desk->ConnectTo(*court);
    const qsizetype before = desk->Folder.Log().size();
    QVERIFY(Finish(Start({RequestLine()})));
    QCOMPARE(desk->Folder.Log().mid(before),
             (QStringList{
                 u"SendReq: "_s + RequestLine(), u"Current Response: --> Searching~King~"_s,
                 u"Current Response: --> "_s + row, u"Sent response to caller: "_s + row,
                 u"Current Response: --> ERROR~Court is down~"_s,
                 u"Error Response Received in Task Processor.."_s, u"Current Response: --> EOF~"_s,
                 u"All Responses Received For Request: "_s + RequestLine(),
                 u"SEARCH Incomplete from ProcessSearchReqeusts."_s}));
}

void tst_NameSearch::theLogTellsTheWayFromOneLineToTheNext()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    const QString king = RequestLine();
    court->Expect(adams).Reply({u"EOF~"_s});
    court->Expect(king).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    const qsizetype before = desk->Folder.Log().size();
    QVERIFY(Finish(Start({adams, king})));
    QCOMPARE(desk->Folder.Log().mid(before),
             (QStringList{u"SendReq: "_s + adams, u"Current Response: --> EOF~"_s,
                          u"All Responses Received For Request: "_s + adams,
                          u"Starting Next Request: "_s + king, u"SendReq: "_s + king,
                          u"Current Response: --> EOF~"_s,
                          u"All Responses Received For Request: "_s + king, normalExit}));
}

void tst_NameSearch::rowsOfSeveralLinesAddUp()
{
    const QStringList lines{RequestLine(u"SMITH"_s, u"Adams"_s),
                            RequestLine(u"SMITH"_s, u"Clark"_s), RequestLine()};
    court->Expect(lines[0]).Reply({ResultLine(u"A"_s), ResultLine(u"B"_s), u"EOF~"_s});
    court->Expect(lines[1]).Reply({u"EOF~"_s});
    court->Expect(lines[2]).Reply({ResultLine(u"C"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start(lines);
    QVERIFY(Finish(search));
    const QList<QStringList> rows = RowsOf(search);
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows[0], (QStringList{u"A"_s, u"02-2-02029-9"_s, u"01/02/2002"_s, u"Civil"_s,
                                   u"WA Superior Ct King County"_s, u"Plaintiff"_s}));
    QCOMPARE(rows[1][0], u"B"_s);
    QCOMPARE(rows[2][0], u"C"_s);
    QCOMPARE(search->Status.Text, u"Search Complete: 3 Cases Retrieved."_s);
    QCOMPARE(search->lboxQueue.Lines(), lines);
}

void tst_NameSearch::theCountBetweenTwoLinesIsThatOfTheLinesBefore()
{
    const QStringList lines{RequestLine(u"SMITH"_s, u"Adams"_s),
                            RequestLine(u"SMITH"_s, u"Clark"_s), RequestLine()};
    court->Expect(lines[0]).Reply({ResultLine(u"A"_s), ResultLine(u"B"_s), u"EOF~"_s});
    court->Expect(lines[1]).Reply({ResultLine(u"C"_s), u"EOF~"_s});
    court->Expect(lines[2]).Reply({});
    desk->ConnectTo(*court);
    CourtSearch *search = Start(lines);
    QString between;
    desk->When([&] { return court->Requests().size() == 3; },
               [&] {
                   between = search->Record.Label3;
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    // The total grows when the next line begins: it holds the two of the first line only.
    QCOMPARE(between, u"Retrieved: 2"_s);
}

void tst_NameSearch::theCriteriaFollowTheLineBeingSearched()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    const QString king = RequestLine(u"SMYTHE"_s, u"King"_s);
    court->Expect(adams).Reply({});
    court->Expect(king).Reply({});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, king});
    QStringList captions;
    QStringList names;
    const auto look = [&] {
        captions.append(search->Record.Caption);
        names.append(search->Record.lblNameVal);
        court->SendTokens({u"EOF~"_s});
    };
    desk->When([&] { return court->Requests().size() == 1; }, look);
    desk->When([&] { return court->Requests().size() == 2; }, look);
    QVERIFY(Finish(search));
    QCOMPARE(captions,
             (QStringList{u"SMITH, JOHN, Q in Adams County, Washington Superior Courts"_s,
                          u"SMYTHE, JOHN, Q in King County, Washington Superior Courts"_s}));
    QCOMPARE(names, (QStringList{u"SMITH, JOHN, Q"_s, u"SMYTHE, JOHN, Q"_s}));
    QCOMPARE(search->Record.lblCaseTypeVals, u"Civil, Criminal"_s);
}

void tst_NameSearch::theAccountingTagIsOnTheWireAndNotInTheList()
{
    const QString bare = u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦"
                         "Civil,¦¦¦"_s;
    court
        ->Expect(u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,"
                 "¦¦^^CAC:ABC^^¦"_s)
        .Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({bare});
    search->Record.ClientAcctgCode = u"ABC"_s;
    QVERIFY(Finish(search));
    QCOMPARE(search->lboxQueue.Lines(), QStringList{bare});
    QVERIFY(desk->Folder.Logged(u"All Responses Received For Request: "_s + bare));
}

void tst_NameSearch::theLineIsSentTrimmedAndKeptAsItIs()
{
    const QString padded = u"  "_s + RequestLine() + u"   "_s;
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({padded});
    QVERIFY(Finish(search));
    QCOMPARE(search->lboxQueue.Lines(), QStringList{padded});
}

void tst_NameSearch::whatCameBeforeTheSearchIsNotRead()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    Global.strRecvBuffer.Append(ScriptedCourt::Tokens({ResultLine(u"LATE, ROW"_s), u"EOF~"_s}));
    CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->RowCount(), 0);
    QCOMPARE(court->Requests(), QStringList{RequestLine()});
}

void tst_NameSearch::theReceiveBufferIsEmptiedBeforeEachLine()
{
    FakeSocket *socket = desk->ConnectToNothing();
    const CourtSearch *search = Start({RequestLine(u"SMITH"_s, u"Adams"_s), RequestLine()});
    const auto isSent = [socket](qsizetype lines) {
        return [socket, lines] { return socket->sent.size() == lines && !Global.bSendBusy; };
    };
    desk->When(isSent(1), [socket] {
        socket->Arrive(ScriptedCourt::Tokens({u"EOF~"_s, ResultLine(u"LATE, ROW"_s), u"EOF~"_s}));
    });
    desk->When(isSent(2), [socket] {
        socket->Arrive(ScriptedCourt::Tokens({ResultLine(u"A"_s), u"EOF~"_s}));
    });
    QVERIFY(Finish(search));
    QCOMPARE(RowsOf(search).size(), 1);
    QCOMPARE(RowsOf(search)[0][0], u"A"_s);
}

void tst_NameSearch::aLongProgressReplyIsShown()
{
    court->Expect(RequestLine()).Reply({u"Searching~King~County~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QString shown;
    desk->When([&] { return search->Record.lblSearchStatus.Text != inProgress; },
               [&] {
                   shown = search->Record.lblSearchStatus.Text;
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(shown, u"Searching King County "_s);
    QCOMPARE(search->RowCount(), 0);
}

void tst_NameSearch::aShortProgressReplyChangesNothing()
{
    court->Expect(RequestLine()).Reply({u"SEARCHING"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QString shown;
    desk->When([&] { return desk->Folder.Logged(u"Current Response: --> SEARCHING"_s); },
               [&] {
                   shown = search->Record.lblSearchStatus.Text;
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(shown, inProgress);
    QCOMPARE(search->RowCount(), 0);
}

void tst_NameSearch::progressLeavesColourAndCountAlone()
{
    court->Expect(RequestLine())
        .Reply({ResultLine(u"A"_s), u"SEARCHING~"_s, u"searching for more"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QStringList shown;
    desk->When([&] { return search->Record.lblSearchStatus.Text == u"searching for more"_s; },
               [&] {
                   shown = {search->Record.lblSearchStatus.Trouble ? u"red"_s : u"blue"_s,
                            search->Status.Text, QString::number(search->RowCount())};
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(shown, (QStringList{u"blue"_s, u"Searching .."_s, u"1"_s}));
}

void tst_NameSearch::aRowThatEndsInThereofGoesOn()
{
    const QString thereof = u"SMITH~02-2-02029-9~01/02/2002~Estate~Ct King County~HEIR THEREOF~"_s;
    court->Expect(RequestLine()).Reply({thereof, ResultLine(u"SMITH, ZOE"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Complete: 2 Cases Retrieved."_s);
    QCOMPARE(RowsOf(search)[0][5], u"HEIR THEREOF"_s);
}

void tst_NameSearch::endOfFileInTheMiddleIsARow()
{
    const QString middle = u"EOF~02-2-02029-9~01/02/2002~EOF~Ct King County~Defendant~"_s;
    court->Expect(RequestLine()).Reply({middle, u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->RowCount(), 1);
    QCOMPARE(RowsOf(search)[0][3], u"EOF"_s);
}

void tst_NameSearch::silenceRunsIntoTheLimit_data()
{
    QTest::addColumn<int>("minutes");
    QTest::addColumn<bool>("stopRequested");
    QTest::addColumn<int>("seconds");
    QTest::newRow("one minute") << 1 << false << 60;
    QTest::newRow("five minutes") << 5 << false << 300;
    QTest::newRow("a logout shortens it") << 5 << true << 14;
}

void tst_NameSearch::silenceRunsIntoTheLimit()
{
    QFETCH(int, minutes);
    QFETCH(bool, stopRequested);
    QFETCH(int, seconds);
    FakeSocket *socket = desk->ConnectToNothing();
    Global.intSearchTimeout = static_cast<qint16>(minutes);
    CourtSearch *search = Start({RequestLine()});
    const QDateTime start = desk->Time.Now();
    desk->When([&] { return socket->sent.size() == 1; },
               [&] {
                   // A row restarts the count, and the next wait chooses its limit anew.
                   Global.bStopRequested = stopRequested;
                   socket->Arrive(ScriptedCourt::Tokens({ResultLine(u"A"_s)}));
                   desk->Time.Run(1.0);
               });
    QVERIFY(Finish(search));
    const qint64 waited = start.secsTo(desk->Time.Now());
    QVERIFY2(waited >= seconds && waited <= seconds + 5, qPrintable(QString::number(waited)));
    QVERIFY(desk->Folder.Logged(
        u"Search Error! Reason: Timed Out Waiting For Response from Server."_s));
    QVERIFY(desk->Folder.Logged(searchFailed));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(search->Record.Label3, u"Retrieved: 1"_s);
}

void tst_NameSearch::aLostLinkIsNotATimeOutOfAnHour()
{
    FakeSocket *socket = desk->ConnectToNothing();
    CourtSearch *search = Start({RequestLine()});
    desk->When([&] { return socket->sent.size() == 1; }, [&] { socket->PeerCloses(); });
    const QDateTime start = desk->Time.Now();
    QVERIFY(Finish(search));
    QCOMPARE(desk->Time.Now(), start);
    // The log cannot tell a lost link from silence by this line; the one before it can.
    QVERIFY(desk->Folder.Logged(
        u"Search Error! Reason: Timed Out Waiting For Response from Server."_s));
    QVERIFY(desk->Folder.Logged(
        u"Connection Lost While Waiting for Response. Exiting Process ReadResponse()"_s));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
}

void tst_NameSearch::aSocketThatCannotBeClosedIsADroppedConnection()
{
    // Connected whenever a wait begins, not a moment later.
    int asked = 0;
    const auto fading = [&asked] {
        return ++asked % 2 == 1 ? SocketState::Connected : SocketState::Closing;
    };
    FakeSocket::Install();
    frmWinsock::Form();
    FakeSocket *socket = FakeSocket::Last();
    CourtSearch *search = Start({RequestLine()});
    desk->When([&] { return socket->sent.size() == 1; }, [&] { socket->tellsState = fading; });
    QVERIFY(Finish(search));
    QVERIFY(desk->Folder.Logged(u"Search Error! Reason: Halvane Server Connection was Dropped!"_s));
    QVERIFY(desk->Folder.Logged(searchFailed));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
}

void tst_NameSearch::withoutAConnectionNothingIsSent()
{
    CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(search->Record.Label3, u"Retrieved: 0"_s);
    QVERIFY(desk->Folder.Logged(searchFailed));
    QCOMPARE(desk->Folder.TimesLogged(
                 u"Search Error! Reason: Timed Out Waiting For Response from Server."_s),
             0);
    QVERIFY(search->Record.SearchIncomplete);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_NameSearch::anUnsentLineLosesTheSearch()
{
    FakeSocket *socket = desk->ConnectToNothing();
    socket->completesSends = false;
    CourtSearch *search = Start({RequestLine()});
    desk->When([&] { return socket->sent.size() == 1; }, [this] { desk->Time.Run(1.0); });
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(desk->Folder.Logged(searchFailed));
}

void tst_NameSearch::aSearchLeavesTheLinkToTheNext()
{
    court->Expect(RequestLine()).Reply({tooMany, u"EOF~"_s});
    court->Expect(RequestLine(u"SMYTHE"_s)).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    QVERIFY(Finish(Start({RequestLine()})));
    CourtSearch *second = Start({RequestLine(u"SMYTHE"_s)});
    QVERIFY(Finish(second));
    QCOMPARE(second->Status.Text, u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_NameSearch::manyRowsAllArrive()
{
    QStringList reply;
    for (int i = 0; i < 5000; ++i)
        reply.append(ResultLine(u"SMITH, "_s + QString::number(i)));
    reply.append(u"EOF~"_s);
    court->Expect(RequestLine()).Reply(reply);
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Complete: 5000 Cases Retrieved."_s);
    QCOMPARE(RowsOf(search).size(), 5000);
    QCOMPARE(RowsOf(search).last()[0], u"SMITH, 4999"_s);
}

HALVANE_TEST(tst_NameSearch)
#include "tst_NameSearch.moc"
