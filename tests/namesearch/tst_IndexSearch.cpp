#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/IndexLines.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QPushButton>
#include <QTest>

namespace {
const QString completed = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
const QString complete =
    u"Search Completed Successfully. Double-Click on any Case to Retrieve Details."_s;
} // namespace

class tst_IndexSearch : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void anEndMarkAtOnceCompletes_data();
    void anEndMarkAtOnceCompletes();
    void rowsAndTheEndMark();
    void theEndMarkIsTheWholeReply();
    void theCriteriaAreReadAtTheTilde();
    void progressIsNotShown();
    void anErrorByItselfEndsCompleted();
    void tooManyHitsIsNoMaxNames();
    void message_data();
    void message();
    void whatComesBehindAWarningIsThrownAway_data();
    void whatComesBehindAWarningIsThrownAway();
    void anErrorInFrontOfAWarningDecides();
    void aFirstNameErrorLeavesABareNumber();
    void pages();
    void getNextIsPendingAgain();
    void aPendingPageCanBeStopped();
    void aMalformedLimitLeavesTheButtonAsItWas_data();
    void aMalformedLimitLeavesTheButtonAsItWas();
    void aShortRowLosesTheSearch();
    void aStoppedIndexSearchEndsByItsEndMark();

private:
    frmNameSearchResults *start();
};

frmNameSearchResults *tst_IndexSearch::start()
{
    return Begin(new frmNameSearchResults(u"WA"_s, true), {IndexLine()});
}

void tst_IndexSearch::anEndMarkAtOnceCompletes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("EOF~") << QByteArray("|EOF~|");
    QTest::newRow("EOF~ and an empty token") << QByteArray("|EOF~||");
}

void tst_IndexSearch::anEndMarkAtOnceCompletes()
{
    QFETCH(QByteArray, bytes);
    court->Expect(IndexLine()).ReplyBytes(bytes);
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QCOMPARE(desk->Folder.TimesLogged(completed), 1);
    QVERIFY(!desk->Folder.Logged(u"All Responses Received For Request: "_s + IndexLine()));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_IndexSearch::rowsAndTheEndMark()
{
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s), u"  "_s + IndexRow(u"B"_s), u"EOF~"_s});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(RowsOf(window).size(), 2);
    QCOMPARE(RowsOf(window)[1],
             (QStringList{u"B"_s, u"02-1-02029-9"_s, u"01/02/2002"_s, u"Felony"_s,
                          u"STATE V SMITH"_s, u"King"_s, u"Defendant"_s, u"03/04/2005"_s}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    // Replies of the index are not logged.
    QVERIFY(!desk->Folder.Logged(u"Current Response: --> "_s + IndexRow(u"A"_s)));
    QVERIFY(!desk->Folder.Logged(u"Sent response to caller: "_s + IndexRow(u"A"_s)));
}

void tst_IndexSearch::theEndMarkIsTheWholeReply()
{
    const QString row = u"A~1~2~3~4~5~6~EOF~"_s;
    court->Expect(IndexLine()).Reply({row, u"EOF~"_s});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->RowCount(), 1);
    QCOMPARE(RowsOf(window)[0][7], u"EOF"_s);
}

void tst_IndexSearch::theCriteriaAreReadAtTheTilde()
{
    court->Expect(IndexLine()).Reply({u"EOF~"_s});
    frmNameSearchResults *window = start();
    QCOMPARE(TextOf(window, "Label2"), u"Search Results"_s);
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "Label2"), u"Index Results"_s);
    QCOMPARE(TextOf(window, "lblNameVal"), u"SMITH, JOHN, Q"_s);
    QCOMPARE(TextOf(window, "lblCaseTypeVals"), u"Criminal"_s);
    QCOMPARE(window->windowTitle(),
             u"SMITH, JOHN, Q in Adams,King County, Washington Superior Courts"_s);
}

void tst_IndexSearch::progressIsNotShown()
{
    court->Expect(IndexLine()).Reply({u"searching~King~County~"_s, IndexRow(u"A"_s)});
    frmNameSearchResults *window = start();
    QString shown;
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   shown = TextOf(window, "lblSearchStatus");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(shown,
             u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s);
    QCOMPARE(window->RowCount(), 1);
}

void tst_IndexSearch::anErrorByItselfEndsCompleted()
{
    court->Expect(IndexLine()).Reply({u"ERROR~Illegal Role~"_s, u"EOF~"_s});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QVERIFY(!window->SearchIncomplete);
}

void tst_IndexSearch::tooManyHitsIsNoMaxNames()
{
    court->Expect(IndexLine()).Reply({u"ERROR~too many hits~"_s, u"EOF~"_s});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "Label3"), QString());
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
}

void tst_IndexSearch::message_data()
{
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<QString>("count");
    QTest::addColumn<bool>("next");
    const QString row = IndexRow(u"A"_s);
    QTest::newRow("second name")
        << QStringList{row, u"WARNING~Second Name has More Than 200~"_s}
        << u"Warning - Too Many Results For First Name!"_s
        << u"Too Many Results for First Name! Enter a More Specific Name and Retry the Search."_s
        << u"1"_s << false;
    const QString manyShort = u"Warning - Too Many Results For First Name!"_s;
    const QString manyLong =
        u"Too Many Results for First Name! Enter a More Specific Name and Retry the Search."_s;
    const QString unexpected = u"Error - Unexpected Search Results."_s;
    const QString check = u"Error. Check Search Criteria Before Trying Again .."_s;
    const QString other = u"WARNING~Something~"_s;
    QTest::newRow("error, first name")
        << QStringList{row, u"ERROR~FIRST NAME has more than 200 hits~"_s, other} << manyShort
        << manyLong << u"1"_s << false;
    QTest::newRow("error, illegal role")
        << QStringList{row, u"ERROR~Illegal Role~"_s, other}
        << u"Error - Invalid Role Assignment!"_s
        << u"Error. Invalid Role! Enter a Valid Role and Retry the Search."_s << u"1"_s << false;
    QTest::newRow("any other error")
        << QStringList{u"ERROR~Down~"_s, other} << unexpected << check << u"0"_s << false;
    QTest::newRow("error, second name")
        << QStringList{u"ERROR~Second Name: More Than 200~"_s, other} << unexpected << check
        << u"0"_s << false;
    QTest::newRow("error, search limit")
        << QStringList{u"ERROR~Reached Search Limit~500~700~"_s, other} << unexpected << check
        << u"0"_s << false;
    QTest::newRow("of two errors the last")
        << QStringList{u"ERROR~Illegal Role~"_s, row, u"ERROR~Down~"_s, other} << unexpected
        << check << u"1"_s << false;
    QTest::newRow("error before a page limit")
        << QStringList{row, u"ERROR~Down~"_s, LimitRow(500, 700)} << unexpected << check << u"1"_s
        << false;
    QTest::newRow("first name is no warning of its own")
        << QStringList{row, u"WARNING~First Name has More Than 200~"_s} << u"Searching .."_s
        << u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s << u"1"_s
        << false;
    QTest::newRow("page limit") << QStringList{row, LimitRow(500, 700)}
                                << u"Complete - 700 More Results Available"_s
                                << u"700 more results are available for retrieval."_s
                                << u"Retrieved: 1"_s << true;
    QTest::newRow("other warning")
        << QStringList{row, row, u"WARNING~Something~"_s} << u"Searching .."_s
        << u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s << u"2"_s
        << false;
}

void tst_IndexSearch::message()
{
    QFETCH(QStringList, reply);
    QFETCH(bool, next);
    court->Expect(IndexLine()).Reply(reply);
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(TextOf(window, "lblSearchStatus"), "searchStatus");
    QTEST(TextOf(window, "Label3"), "count");
    for (const char *label : {"lblStatus", "lblSearchStatus"}) {
        QCOMPARE(ColourOf(window, label), u"red"_s);
        QVERIFY(IsBold(window, label));
    }
    QVERIFY(desk->Folder.Logged(u"Error or Warning Message Received During Index Search: "_s
                                + reply.last()));
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdSearchResults_4")->isVisible(), next);
    QCOMPARE(ButtonOf(window, "cmdSearchResults_4")->isEnabled(), next);
    QCOMPARE(ButtonOf(window, "cmdSearchResults_6")->isVisible(), !next);
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_IndexSearch::whatComesBehindAWarningIsThrownAway_data()
{
    QTest::addColumn<QString>("warning");
    QTest::newRow("page limit") << LimitRow(500, 700);
    QTest::newRow("malformed page limit") << u"WARNING~Reached Search Limit~"_s;
    QTest::newRow("other warning") << u"WARNING~Something~"_s;
}

void tst_IndexSearch::whatComesBehindAWarningIsThrownAway()
{
    QFETCH(QString, warning);
    FakeSocket *socket = desk->ConnectToNothing();
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    desk->Enqueue(window, {IndexLine()});
    window->Timer1->start(1);
    desk->When(
        [socket] { return socket->sent.size() == 1 && !Global.bSendBusy; },
        [socket, warning] {
            socket->Arrive(ScriptedCourt::Tokens({IndexRow(u"A"_s), warning, IndexRow(u"B"_s)}));
        });
    QVERIFY(desk->Finish(window));
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QCOMPARE(window->RowCount(), 1);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_IndexSearch::anErrorInFrontOfAWarningDecides()
{
    court->Expect(IndexLine()).Reply({u"ERROR~Illegal Role~"_s, LimitRow(500, 700)});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Error - Invalid Role Assignment!"_s);
    QVERIFY(!ButtonOf(window, "cmdSearchResults_4")->isVisible());
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine()});
}

void tst_IndexSearch::aFirstNameErrorLeavesABareNumber()
{
    court->Expect(IndexLine())
        .Reply({IndexRow(u"A"_s), u"ERROR~First Name: More Than 200~"_s, u"WARNING~x~"_s});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Warning - Too Many Results For First Name!"_s);
    QCOMPARE(TextOf(window, "Label3"), u"1"_s);
    Ticks(60);
    QCOMPARE(TextOf(window, "Label3"), u"1"_s);
}

void tst_IndexSearch::pages()
{
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s), LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000)).Reply({IndexRow(u"B"_s), LimitRow(1000, 200)});
    court->Expect(IndexLine(1001, 1200)).Reply({IndexRow(u"C"_s), u"EOF~"_s});
    frmNameSearchResults *window = start();
    QPushButton *next = ButtonOf(window, "cmdSearchResults_4");
    QVERIFY(desk->Finish(window));
    QCOMPARE(next->text(), u"Get Next 500 Cases"_s);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine(501, 1000)});
    next->click();
    QVERIFY(desk->Finish(window));
    QCOMPARE(next->text(), u"Get Next 200 Cases"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Complete - 200 More Results Available"_s);
    QCOMPARE(TextOf(window, "Label3"), u"Retrieved: 2"_s);
    next->click();
    QVERIFY(desk->Finish(window));
    QVERIFY(!next->isVisible());
    QVERIFY(ButtonOf(window, "cmdSearchResults_6")->isVisible());
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 3 Cases Retrieved."_s);
    QCOMPARE(window->SearchRunCount, qint16(3));
    QCOMPARE(RowsOf(window)[0][0] + RowsOf(window)[1][0] + RowsOf(window)[2][0], u"ABC"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_IndexSearch::getNextIsPendingAgain()
{
    court->Expect(IndexLine()).Reply({LimitRow(500, 700)});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    const QString key = window->txtMasterKey;
    window->Timer1->setInterval(60'000);
    ButtonOf(window, "cmdSearchResults_4")->click();
    QVERIFY(!ButtonOf(window, "cmdSearchResults_4")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{key});
    QVERIFY(window->Timer1->isActive());
    QVERIFY(window->tmrBlink->isActive());
}

void tst_IndexSearch::aPendingPageCanBeStopped()
{
    court->Expect(IndexLine()).Reply({LimitRow(500, 700)});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    window->Timer1->setInterval(60'000);
    ButtonOf(window, "cmdSearchResults_4")->click();
    Global.bShowAlerts = false;
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(court->Requests().size(), 1);
}

void tst_IndexSearch::aMalformedLimitLeavesTheButtonAsItWas_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("more"); ///< what the labels say is still to be had
    QTest::newRow("no numbers") << QString() << QString();
    QTest::newRow("one number") << u"500"_s << QString();
    QTest::newRow("words") << u"some~more~"_s << u"more"_s;
    QTest::newRow("a word for the last row") << u"some~700~"_s << u"700"_s;
    QTest::newRow("a word for what is left") << u"500~more~"_s << u"more"_s;
    QTest::newRow("nothing for the last row") << u"~700~"_s << u"700"_s;
    QTest::newRow("too great") << u"99999~99999~"_s << u"99999"_s;
    QTest::newRow("a page behind the greatest") << u"32767~10~"_s << u"10"_s;
}

void tst_IndexSearch::aMalformedLimitLeavesTheButtonAsItWas()
{
    QFETCH(QString, fields);
    QFETCH(QString, more);
    court->Expect(IndexLine())
        .Reply({IndexRow(u"A"_s), u"WARNING~Reached Search Limit~"_s + fields});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"),
             more.isEmpty() ? u"Searching .."_s
                            : QString(u"Complete - "_s + more + u" More Results Available"_s));
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             more.isEmpty()
                 ? u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s
                 : QString(more + u" more results are available for retrieval."_s));
    QCOMPARE(TextOf(window, "Label3"), u"1"_s);
    QCOMPARE(ColourOf(window, "lblSearchStatus"), u"red"_s);
    QVERIFY(IsBold(window, "lblStatus") && IsBold(window, "lblSearchStatus"));
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_6")->isVisible());
    QCOMPARE(window->NextLowerLimit, qint16(0));
    QCOMPARE(window->NextUpperLimit, qint16(0));
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(ButtonOf(window, "cmdSearchResults_4")->text(), u"Get &Next 500 Cases"_s);
    QVERIFY(!ButtonOf(window, "cmdSearchResults_4")->isVisible());
    QVERIFY(!ButtonOf(window, "cmdSearchResults_4")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QCOMPARE(window->lboxQueue.Lines(), QStringList{IndexLine()});
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QVERIFY(!desk->Folder.Logged(
        u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_IndexSearch::aShortRowLosesTheSearch()
{
    court->Expect(IndexLine()).Reply({u"A~1~2~3~4~5~"_s, u"EOF~"_s});
    frmNameSearchResults *window = start();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
}

void tst_IndexSearch::aStoppedIndexSearchEndsByItsEndMark()
{
    court->Expect(IndexLine()).Reply({});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    frmNameSearchResults *window = start();
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { ButtonOf(window, "cmdStopSearching")->click(); });
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
    QVERIFY(window->StopRequested);
    QVERIFY(desk->Finish(window));
}

HALVANE_TEST(tst_IndexSearch)
#include "tst_IndexSearch.moc"
