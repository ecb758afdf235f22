#include "controls/Twips.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
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
} // namespace

class tst_NameSearchEnds : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void anEmptyListIsReportedAndClosesTheWindow();
    void theCountIsShownAsRowsArrive();
    void outcome_data();
    void outcome();
    void maxResultsWithoutRowsShowsANote();
    void anEmptyListGivesTheTurnBackOnce();
    void anEmptyListIsLoggedAsWhatItIs();
    void anEmptyListThatIsWithdrawnMeanwhileLeavesTheNextJobsTurn();
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

void tst_NameSearchEnds::anEmptyListIsReportedAndClosesTheWindow()
{
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> window(desk->MakePending({}));
    desk->Boxes.Expect(u"No Search Requests Can Be Located! This Form will be closed when you "
                       "select OK. The Request Queue Appears to be Empty."_s,
                       u"Search Queue Empty .."_s, MsgIcon::Exclamation);
    window->Timer1->start(1);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_NameSearchEnds::theCountIsShownAsRowsArrive()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), ResultLine(u"B"_s)});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QCOMPARE(TextOf(window, "Label3"), u"Retrieved: 0"_s);
    int shownRows = 0;
    desk->When([&] { return TextOf(window, "Label3") == u"Retrieved: 2"_s; },
               [&] {
                   shownRows = static_cast<int>(RowsOf(window).size());
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(shownRows, 2);
}

HALVANE_TEST(tst_NameSearchEnds)
#include "tst_NameSearchEnds.moc"
