#include "controls/Twips.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString searchFailed =
    u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s;
const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
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

class tst_NameSearchEnds : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void outcome_data();
    void outcome();
    void tooManyHitsSendsNoFurtherLine();
    void tooManyHitsGoesOnReadingToItsEnd();
    void anErrorRowSendsTheLinesThatFollow();
    void maxResultsSendsNoFurtherLine();
    void maxResultsWithRowsAddsAWarningRow();
    void maxResultsWithoutRowsShowsANote();
    void maxResultsNamesTheCountyOfTheCurrentLine();
    void aLineWithoutACountyKeepsThatOfTheLineBefore();
    void aRowWithTooFewFieldsLosesTheSearch_data();
    void aRowWithTooFewFieldsLosesTheSearch();
    void aLineWithTooFewFieldsLosesTheSearch();
    void aFirstLineWithTooFewFieldsIsAskedAllTheSame();
    void everyOutcomeGivesTheTurnBackOnce_data() { addOutcomes(); }
    void everyOutcomeGivesTheTurnBackOnce();
    void anEmptyListGivesTheTurnBackOnce();
    void anEmptyListIsLoggedAsWhatItIs();
    void anEmptyListThatIsWithdrawnMeanwhileLeavesTheNextJobsTurn();
    void whatArrivedTooLateIsThrownAwayInFourOutcomes_data() { addOutcomes(); }
    void whatArrivedTooLateIsThrownAwayInFourOutcomes();

private:
    /// Searches, with two other keys waiting behind, to the outcome of the row. A token that nobody
    /// waits for any more comes in one piece with the reply.
    void searchToTheOutcome();
};

void tst_NameSearchEnds::outcome_data()
{
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<bool>("drops");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("statusColour");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<QString>("searchStatusColour");
    QTest::addColumn<QString>("count");
    QTest::addColumn<bool>("incomplete");

    const QString row = ResultLine(u"SMITH, JOHN"_s);
    const QString complete =
        u"Search Completed Successfully. Double-Click on any Case to Retrieve Details."_s;
    const QString mostNames =
        u"The Max. Number of Names were retrieved. More cases exist. Please refine search criteria."_s;
    const QString someMissing =
        u"Search Incomplete. Some Results May Not Have Been Retrieved. Please Retry Search."_s;
    const QString lost = u"Search Stopped. Court Connection Lost. Please Close Form and Retry"_s;
    QTest::newRow("completed with rows") << QStringList{row, row, u"EOF~"_s} << false << normalExit
                                         << u"Search Complete: 2 Cases Retrieved."_s << u"blue"_s
                                         << complete << u"blue"_s << QString() << false;
    QTest::newRow("completed without rows")
        << QStringList{u"EOF~"_s} << false << normalExit << u"Search Complete: 0 Cases Retrieved."_s
        << u"blue"_s << complete << u"blue"_s << QString() << false;
    QTest::newRow("too many hits")
        << QStringList{row, u"ERROR~too many hits~"_s, row, u"EOF~"_s} << false << normalExit
        << u"Search Complete: 2 Cases Retrieved."_s << u"blue"_s << mostNames << u"blue"_s
        << u"Max. Names Found!"_s << false;
    QTest::newRow("too many hits, in capitals")
        << QStringList{u"ERROR~TOO MANY HITS~"_s, u"EOF~"_s} << false << normalExit
        << u"Search Complete: 0 Cases Retrieved."_s << u"blue"_s << mostNames << u"blue"_s
        << u"Max. Names Found!"_s << false;
    QTest::newRow("too many hits and an error")
        << QStringList{u"ERROR~Court is down~"_s, u"ERROR~too many hits~"_s, u"EOF~"_s} << false
        << normalExit << u"Search Complete: 0 Cases Retrieved."_s << u"blue"_s << mostNames
        << u"blue"_s << u"Max. Names Found!"_s << true;
    QTest::newRow("more than 200 with rows")
        << QStringList{row, tooMany} << false
        << u"NORMAL EXIT - Max Names Error Message in ProcessSearchReqeusts()."_s
        << u"Search Stopped - Max Results Reached: 1 Cases Retrieved."_s << u"blue"_s
        << u"Search Stopped on King Cty. Refine Search and Try Again."_s << u"blue"_s << QString()
        << false;
    QTest::newRow("more than 200 without rows")
        << QStringList{tooMany} << false
        << u"NORMAL EXIT - Max Names Error Message in ProcessSearchReqeusts()."_s
        << u"Search Stopped - Max Results Reached: 0 Cases Retrieved."_s << u"blue"_s
        << u"Search Stopped on King Cty. Refine Search and Try Again."_s << u"blue"_s << QString()
        << false;
    QTest::newRow("incomplete") << QStringList{row, u"ERROR~Court is down~"_s, u"EOF~"_s} << false
                                << u"SEARCH Incomplete from ProcessSearchReqeusts."_s
                                << u"Search Incomplete!"_s << u"red"_s << someMissing << u"blue"_s
                                << u"Retrieved: 1"_s << true;
    QTest::newRow("connection lost")
        << QStringList{row} << true << searchFailed << u"Search Stopped - Court Connection Lost!"_s
        << u"red"_s << lost << u"blue"_s << u"Retrieved: 1"_s << true;
}

void tst_NameSearchEnds::outcome()
{
    QFETCH(QStringList, reply);
    QFETCH(bool, drops);
    court->Expect(RequestLine()).Reply(reply);
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    if (drops)
        desk->When([&] { return window->RowCount() == 1; }, [this] { court->DropClient(); });
    QVERIFY(desk->Finish(window));

    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(ColourOf(window, "lblStatus"), "statusColour");
    QVERIFY(IsBold(window, "lblStatus"));
    QTEST(TextOf(window, "lblSearchStatus"), "searchStatus");
    QTEST(ColourOf(window, "lblSearchStatus"), "searchStatusColour");
    QVERIFY(IsBold(window, "lblSearchStatus"));
    QTEST(TextOf(window, "Label3"), "count");
    QTEST(window->SearchIncomplete, "incomplete");
    QFETCH(QString, log);
    QCOMPARE(desk->Folder.TimesLogged(log), 1);

    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdSearchResults_4")->isVisible());
    QVERIFY(ButtonOf(window, "cmdSearchResults_6")->isVisible());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window->StopRequested);
    QVERIFY(!window->StopWarningFlag);
    QVERIFY(!Global.bUserStoppedSearch);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_NameSearchEnds::tooManyHitsSendsNoFurtherLine()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({u"ERROR~too many hits~"_s, ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({adams, RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(court->Requests(), QStringList{adams});
    QCOMPARE(TextOf(window, "Label3"), u"Max. Names Found!"_s);
    QCOMPARE(window->RowCount(), 1);
    QCOMPARE(desk->Folder.TimesLogged(u"All Responses Received For Request: "_s + adams), 1);
    QVERIFY(!desk->Folder.Logged(u"Starting Next Request: "_s + RequestLine()));
}

void tst_NameSearchEnds::tooManyHitsGoesOnReadingToItsEnd()
{
    court->Expect(RequestLine()).Reply({u"ERROR~too many hits~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QString meanwhile;
    desk->When([&] { return desk->Folder.Logged(u"Current Response: --> ERROR~too many hits~"_s); },
               [&] {
                   meanwhile = TextOf(window, "lblStatus");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(meanwhile, u"Searching .."_s);
    QCOMPARE(TextOf(window, "Label3"), u"Max. Names Found!"_s);
}

void tst_NameSearchEnds::anErrorRowSendsTheLinesThatFollow()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({u"ERROR~Court is down~"_s, u"EOF~"_s});
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({adams, RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(window->RowCount(), 1);
    QVERIFY(window->SearchIncomplete);
}

void tst_NameSearchEnds::maxResultsSendsNoFurtherLine()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({u"*** THIS SEARCH RESULTED IN MORE THAN 200 RESULTS. ***~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({adams, RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(court->Requests(), QStringList{adams});
    QCOMPARE(TextOf(window, "lblStatus"),
             u"Search Stopped - Max Results Reached: 0 Cases Retrieved."_s);
}

void tst_NameSearchEnds::maxResultsWithRowsAddsAWarningRow()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"SMITH, JOHN"_s), tooMany});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    const QList<QStringList> rows = RowsOf(window);
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0][0], u"SMITH, JOHN"_s);
    QCOMPARE(rows[1], (QStringList{u"**Warning**"_s, u"**Warning**"_s, u"**Warning**"_s,
                                   u"Too many results. Refine criteria and search again."_s,
                                   u"King Cty"_s, u"**Warning**"_s}));
    QCOMPARE(HeadersOf(window).size(), 6);
}

void tst_NameSearchEnds::maxResultsWithoutRowsShowsANote()
{
    court->Expect(RequestLine()).Reply({tooMany});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(HeadersOf(window),
             QStringList{
                 u"NOTE:    This Search Returned More Than The Maximum Number Allowed (200)."_s});
    QCOMPARE(RowsOf(window),
             (QList<QStringList>{{u"More than 200 results were found for this name search. Please "
                                  "retry your search."_s},
                                 {u"Tip: Be sure to include a full first name and/or middle "
                                  "initial in the search criteria."_s}}));
    const ResultListView *list = ListOf(window);
    QCOMPARE(list->List()->Columns()[0].Width, TwipsFromPixels(list->width()) - 100);
}

void tst_NameSearchEnds::maxResultsNamesTheCountyOfTheCurrentLine()
{
    const QString harbor = RequestLine(u"SMITH"_s, u" Grays Harbor "_s);
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(harbor).Reply({tooMany});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine(), harbor});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped on Grays Harbor Cty. Refine Search and Try Again."_s);
    QCOMPARE(RowsOf(window).last()[4], u"Grays Harbor Cty"_s);
}

void tst_NameSearchEnds::aLineWithoutACountyKeepsThatOfTheLineBefore()
{
    const QString without = u"BKRPT~SEARCH~SMITH~JOHN~Q~~ORE~*ALL~1980~2005~"_s;
    court->Expect(RequestLine(u"SMITH"_s, u"Linn"_s)).Reply({u"EOF~"_s});
    court->Expect(without).Reply({tooMany});
    desk->ConnectTo(*court);
    frmNameSearchResults *window =
        desk->Start({RequestLine(u"SMITH"_s, u"Linn"_s), without}, u"ORBK"_s);
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped on Linn Cty. Refine Search and Try Again."_s);
}

void tst_NameSearchEnds::aRowWithTooFewFieldsLosesTheSearch_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("rows");
    QTest::newRow("five fields") << u"A~B~C~D~"_s << 2;
    QTest::newRow("one character") << u"~"_s << 2;
    QTest::newRow("no delimiter") << u"X"_s << 2;
    QTest::newRow("blanks") << u"   "_s << 1;
}

void tst_NameSearchEnds::aRowWithTooFewFieldsLosesTheSearch()
{
    QFETCH(QString, row);
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({ResultLine(u"A"_s), row, ResultLine(u"B"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({adams, RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(desk->Folder.Logged(searchFailed));
    QVERIFY(window->SearchIncomplete);
    QTEST(window->RowCount(), "rows");
    // The count knows whole rows only.
    QCOMPARE(TextOf(window, "Label3"), u"Retrieved: 1"_s);
    QCOMPARE(court->Requests(), QStringList{adams});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_NameSearchEnds::aLineWithTooFewFieldsLosesTheSearch()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine(), u"WASUP\u00A6SEARCH\u00A6"_s});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(court->Requests(), QStringList{RequestLine()});
}

/// What it is about cannot be shown, but the court may know.
void tst_NameSearchEnds::aFirstLineWithTooFewFieldsIsAskedAllTheSame()
{
    const QString line = u"WASUP\u00A6SEARCH\u00A6"_s;
    court->Expect(line).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({line});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(desk->Folder.TimesLogged(u"Cannot show the search criteria: Subscript out of range"_s),
             1);
}

void tst_NameSearchEnds::searchToTheOutcome()
{
    QFETCH(QStringList, reply);
    QFETCH(bool, stops);
    FakeSocket *socket = desk->ConnectToNothing();
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    frmQueue::Form().FIFO.AddItem(secondKey);
    frmQueue::Form().FIFO.AddItem(thirdKey);
    desk->When([socket] { return socket->sent.size() == 1 && !Global.bSendBusy; },
               [&, socket, window] {
                   if (stops)
                       QTest::mouseClick(ButtonOf(window, "cmdStopSearching"), Qt::LeftButton);
                   socket->Arrive(ScriptedCourt::Tokens(reply + QStringList{u"too late~"_s}));
               });
    QTRY_VERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QCOMPARE(TextOf(window, "lblStatus").contains(u"Stopped By User"), stops);
}

void tst_NameSearchEnds::everyOutcomeGivesTheTurnBackOnce()
{
    searchToTheOutcome();
    QCOMPARE(frmQueue::Form().FIFO.Lines(), (QStringList{secondKey, thirdKey}));
}

void tst_NameSearchEnds::anEmptyListGivesTheTurnBackOnce()
{
    desk->Boxes.Expect(u"No Search Requests Can Be Located! This Form will be closed when you "
                       "select OK. The Request Queue Appears to be Empty."_s,
                       u"Search Queue Empty .."_s, MsgIcon::Exclamation);
    const QPointer<frmNameSearchResults> window(desk->Start({}));
    frmQueue::Form().FIFO.AddItem(secondKey);
    frmQueue::Form().FIFO.AddItem(thirdKey);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), (QStringList{secondKey, thirdKey}));
}

/// A line of its own, and none of another cause.
void tst_NameSearchEnds::anEmptyListIsLoggedAsWhatItIs()
{
    Global.bShowAlerts = true;
    desk->Boxes.Expect(u"No Search Requests Can Be Located! This Form will be closed when you "
                       "select OK. The Request Queue Appears to be Empty."_s,
                       u"Search Queue Empty .."_s, MsgIcon::Exclamation);
    const QPointer<frmNameSearchResults> window(desk->Start({}));
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Folder.Log().last(),
             u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
    QVERIFY(!desk->Folder.Logged(u"Unconditional Form Close Called. Closing Name Search form."_s));
}

void tst_NameSearchEnds::anEmptyListThatIsWithdrawnMeanwhileLeavesTheNextJobsTurn()
{
    const QPointer<frmNameSearchResults> window(desk->Start({}));
    frmQueue::Form().FIFO.AddItem(secondKey);
    desk->Boxes.Meanwhile([window] { WithdrawKey(window->txtMasterKey); });
    desk->Boxes.Expect(u"No Search Requests Can Be Located! This Form will be closed when you "
                       "select OK. The Request Queue Appears to be Empty."_s,
                       u"Search Queue Empty .."_s, MsgIcon::Exclamation);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{secondKey});
}

void tst_NameSearchEnds::whatArrivedTooLateIsThrownAwayInFourOutcomes()
{
    QFETCH(bool, clears);
    searchToTheOutcome();
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(),
             clears ? QByteArray() : QByteArray("|too late~|"));
}

HALVANE_TEST(tst_NameSearchEnds)
#include "tst_NameSearchEnds.moc"
