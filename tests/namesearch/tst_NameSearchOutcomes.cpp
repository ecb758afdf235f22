#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/SearchJobs.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QTest>

namespace {
const QString searchFailed =
    u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s;
const QString tooMany = u"This search resulted in more than 200 results.~"_s;
const QString secondKey = u"22222222222222222222"_s;
const QString thirdKey = u"33333333333333333333"_s;

/// One row an outcome: the reply that leads to it, whether the user stops the search before that,
/// and whether what arrives behind the reply is thrown away.
void addOutcomes()
{
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<bool>("stops");
    QTest::addColumn<bool>("clears");
    QTest::newRow("completed") << QStringList{u"EOF~"_s} << false << true;
    QTest::newRow("too many hits")
        << QStringList{u"ERROR~too many hits~"_s, u"EOF~"_s} << false << true;
    QTest::newRow("more than 200") << QStringList{tooMany} << false << true;
    QTest::newRow("incomplete") << QStringList{u"ERROR~Court is down~"_s, u"EOF~"_s} << false
                                << true;
    QTest::newRow("stopped") << QStringList{u"EOF~"_s} << true << false;
    QTest::newRow("connection lost") << QStringList{u"bad row~"_s} << false << false;
}
} // namespace

/// What ends a search, and what that leaves behind; what its window makes of it is
/// tst_NameSearchEnds.
class tst_NameSearchOutcomes : public SearchJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void tooManyHitsSendsNoFurtherLine();
    void tooManyHitsGoesOnReadingToItsEnd();
    void anErrorRowSendsTheLinesThatFollow();
    void maxResultsSendsNoFurtherLine();
    void maxResultsWithRowsAddsAWarningRow();
    void maxResultsNamesTheCountyOfTheCurrentLine();
    void aLineWithoutACountyKeepsThatOfTheLineBefore();
    void aRowWithTooFewFieldsLosesTheSearch_data();
    void aRowWithTooFewFieldsLosesTheSearch();
    void aLineWithTooFewFieldsLosesTheSearch();
    void aFirstLineWithTooFewFieldsIsAskedAllTheSame();
    void everyOutcomeGivesTheTurnBackOnce_data() { addOutcomes(); }
    void everyOutcomeGivesTheTurnBackOnce();
    void whatArrivedTooLateIsThrownAwayInFourOutcomes_data() { addOutcomes(); }
    void whatArrivedTooLateIsThrownAwayInFourOutcomes();

private:
    /// Searches, with two other keys waiting behind, to the outcome of the row. A token that nobody
    /// waits for any more comes in one piece with the reply.
    void searchToTheOutcome();
};

void tst_NameSearchOutcomes::tooManyHitsSendsNoFurtherLine()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({u"ERROR~too many hits~"_s, ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(court->Requests(), QStringList{adams});
    QCOMPARE(search->Record.Label3, u"Max. Names Found!"_s);
    QCOMPARE(search->RowCount(), 1);
    QCOMPARE(desk->Folder.TimesLogged(u"All Responses Received For Request: "_s + adams), 1);
    QVERIFY(!desk->Folder.Logged(u"Starting Next Request: "_s + RequestLine()));
}

void tst_NameSearchOutcomes::tooManyHitsGoesOnReadingToItsEnd()
{
    court->Expect(RequestLine()).Reply({u"ERROR~too many hits~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QString meanwhile;
    desk->When([&] { return desk->Folder.Logged(u"Current Response: --> ERROR~too many hits~"_s); },
               [&] {
                   meanwhile = search->Status.Text;
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(Finish(search));
    QCOMPARE(meanwhile, u"Searching .."_s);
    QCOMPARE(search->Record.Label3, u"Max. Names Found!"_s);
}

void tst_NameSearchOutcomes::anErrorRowSendsTheLinesThatFollow()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({u"ERROR~Court is down~"_s, u"EOF~"_s});
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Incomplete!"_s);
    QCOMPARE(search->RowCount(), 1);
    QVERIFY(search->Record.SearchIncomplete);
}

void tst_NameSearchOutcomes::maxResultsSendsNoFurtherLine()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({u"*** THIS SEARCH RESULTED IN MORE THAN 200 RESULTS. ***~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(court->Requests(), QStringList{adams});
    QCOMPARE(search->Status.Text, u"Search Stopped - Max Results Reached: 0 Cases Retrieved."_s);
}

void tst_NameSearchOutcomes::maxResultsWithRowsAddsAWarningRow()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"SMITH, JOHN"_s), tooMany});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine()});
    QVERIFY(Finish(search));
    const QList<QStringList> rows = RowsOf(search);
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0][0], u"SMITH, JOHN"_s);
    QCOMPARE(rows[1], (QStringList{u"**Warning**"_s, u"**Warning**"_s, u"**Warning**"_s,
                                   u"Too many results. Refine criteria and search again."_s,
                                   u"King Cty"_s, u"**Warning**"_s}));
    QVERIFY(!search->Record.TooManyToList);
}

void tst_NameSearchOutcomes::maxResultsNamesTheCountyOfTheCurrentLine()
{
    const QString harbor = RequestLine(u"SMITH"_s, u" Grays Harbor "_s);
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(harbor).Reply({tooMany});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine(), harbor});
    QVERIFY(Finish(search));
    QCOMPARE(search->Record.lblSearchStatus.Text,
             u"Search Stopped on Grays Harbor Cty. Refine Search and Try Again."_s);
    QCOMPARE(RowsOf(search).last()[4], u"Grays Harbor Cty"_s);
}

void tst_NameSearchOutcomes::aLineWithoutACountyKeepsThatOfTheLineBefore()
{
    const QString without = u"BKRPT~SEARCH~SMITH~JOHN~Q~~ORE~*ALL~1980~2005~"_s;
    court->Expect(RequestLine(u"SMITH"_s, u"Linn"_s)).Reply({u"EOF~"_s});
    court->Expect(without).Reply({tooMany});
    desk->ConnectTo(*court);
    CourtSearch *search =
        Start(new CourtSearch(u"ORBK"_s, false), {RequestLine(u"SMITH"_s, u"Linn"_s), without});
    QVERIFY(Finish(search));
    QCOMPARE(search->Record.lblSearchStatus.Text,
             u"Search Stopped on Linn Cty. Refine Search and Try Again."_s);
}

void tst_NameSearchOutcomes::aRowWithTooFewFieldsLosesTheSearch_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("rows");
    QTest::newRow("five fields") << u"A~B~C~D~"_s << 2;
    QTest::newRow("one character") << u"~"_s << 2;
    QTest::newRow("no delimiter") << u"X"_s << 2;
    QTest::newRow("blanks") << u"   "_s << 1;
}

void tst_NameSearchOutcomes::aRowWithTooFewFieldsLosesTheSearch()
{
    QFETCH(QString, row);
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({ResultLine(u"A"_s), row, ResultLine(u"B"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({adams, RequestLine()});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(desk->Folder.Logged(searchFailed));
    QVERIFY(search->Record.SearchIncomplete);
    QTEST(search->RowCount(), "rows");
    // The count knows whole rows only.
    QCOMPARE(search->Record.Label3, u"Retrieved: 1"_s);
    QCOMPARE(court->Requests(), QStringList{adams});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_NameSearchOutcomes::aLineWithTooFewFieldsLosesTheSearch()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    CourtSearch *search = Start({RequestLine(), u"WASUP¦SEARCH¦"_s});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(court->Requests(), QStringList{RequestLine()});
}

/// What it is about cannot be shown, but the court may know.
void tst_NameSearchOutcomes::aFirstLineWithTooFewFieldsIsAskedAllTheSame()
{
    const QString line = u"WASUP¦SEARCH¦"_s;
    court->Expect(line).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    const CourtSearch *search = Start({line});
    QVERIFY(Finish(search));
    QCOMPARE(search->Status.Text, u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(desk->Folder.TimesLogged(u"Cannot show the search criteria: Subscript out of range"_s),
             1);
}

void tst_NameSearchOutcomes::searchToTheOutcome()
{
    QFETCH(QStringList, reply);
    QFETCH(bool, stops);
    FakeSocket *socket = desk->ConnectToNothing();
    CourtSearch *search = Start({RequestLine()});
    frmQueue::Form().FIFO.AddItem(secondKey);
    frmQueue::Form().FIFO.AddItem(thirdKey);
    desk->When([socket] { return socket->sent.size() == 1 && !Global.bSendBusy; },
               [&, socket, search] {
                   if (stops)
                       search->Stop();
                   socket->Arrive(ScriptedCourt::Tokens(reply + QStringList{u"too late~"_s}));
               });
    QTRY_VERIFY(search->Record.Printable);
    QCOMPARE(search->Status.Text.contains(u"Stopped By User"), stops);
}

void tst_NameSearchOutcomes::everyOutcomeGivesTheTurnBackOnce()
{
    searchToTheOutcome();
    QCOMPARE(frmQueue::Form().FIFO.Lines(), (QStringList{secondKey, thirdKey}));
}

void tst_NameSearchOutcomes::whatArrivedTooLateIsThrownAwayInFourOutcomes()
{
    QFETCH(bool, clears);
    searchToTheOutcome();
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(),
             clears ? QByteArray() : QByteArray("|too late~|"));
}

HALVANE_TEST(tst_NameSearchOutcomes)
#include "tst_NameSearchOutcomes.moc"
