#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/ServerSocket.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString stopQuestion = u"Stop This Search?"_s;
const QString stopTitle = u"Stop Search Verification"_s;
const QString stopRequest = u"STOP¦"_s;
const QString someMissing = u"Search Stopped By User. Some results may not have been retrieved."_s;

void click(const QWidget *window, const char *name)
{
    QTest::mouseClick(ButtonOf(window, name), Qt::LeftButton);
}

/// What the labels show: the short status, the long one, the count.
QStringList labels(const QWidget *window)
{
    return {TextOf(window, "lblStatus"), TextOf(window, "lblSearchStatus"),
            TextOf(window, "Label3")};
}

bool allRed(const QWidget *window)
{
    return ColourOf(window, "lblStatus") == u"red" && IsBold(window, "lblStatus")
           && ColourOf(window, "lblSearchStatus") == u"red" && IsBold(window, "lblSearchStatus");
}
} // namespace

class tst_NameSearchStop : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;

    void stopWhilePendingWithdrawsTheKey();
    void stopWhilePendingLetsTheNextJobStart();
    void stopWhilePendingTellsTheServerNothing();
    void stopWhileSearchingReadsOnToTheEndMark();
    void stopRequestByState_data();
    void stopRequestByState();
    void stopFreesTheLinkAtOnce();
    void stopSendsNoFurtherLine();
    void stopIsReadOnlyAfterTheEndMark();
    void stopGoesBeforeAnError();
    void aStoppedSearchThatIsCutOffHasLostItsConnection();
    void stopIsAskedOnlyWithAlerts();
    void declinedStopChangesNothing();
    void declinedStopWhilePendingChangesNothing();
    void aPendingSearchDoesNotStartUnderTheQuestion();
    void aSearchThatWasLeftAloneStartsBehindTheQuestion();
    void theStatusChangedUnderThePendingQuestion();
    void pendingByItsStateAndNotByItsLabel();
    void stopThatCannotBeSentRemovesLineZeroAndLogs();
    void aStopOverALostLinkLeavesTheNextJobItsKey();
    void stopTwiceIsNotPossible();
    void fromStopTheKeyboardGoesToTheList();
};

void tst_NameSearchStop::init()
{
    SearchTest::init();
    Global.bShowAlerts = true;
}

void tst_NameSearchStop::stopWhilePendingWithdrawsTheKey()
{
    desk->ConnectTo(*court);
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    frmQueue::Form().FIFO.AddItem(u"22222222222222222222"_s);
    frmQueue::Form().FIFO.AddItem(window->txtMasterKey);
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    click(window, "cmdStopSearching");

    QCOMPARE(labels(window),
             (QStringList{u"Search Stopped By User .. "_s,
                          u"Search Stopped By User. No Results Were Retrieved."_s, QString()}));
    QVERIFY(allRed(window));
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             (QStringList{u"11111111111111111111"_s, u"22222222222222222222"_s}));
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(!window->Timer1->isActive());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->findChild<QWidget *>(u"lblStatus"_s)->isVisible());
    QVERIFY(window->StopRequested);
    QVERIFY(Global.bUserStoppedSearch);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!desk->Folder.Logged(u"Cannot Stop Pending Search"_s));
}

void tst_NameSearchStop::stopWhilePendingLetsTheNextJobStart()
{
    court->Expect(RequestLine(u"SMYTHE"_s)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *first = desk->MakePending({RequestLine()});
    frmNameSearchResults *second = desk->Start({RequestLine(u"SMYTHE"_s)});
    Ticks(30);
    QCOMPARE(TextOf(second, "lblStatus"), u"Pending .."_s);
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    click(first, "cmdStopSearching");
    QVERIFY(desk->Finish(second));
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
}

void tst_NameSearchStop::stopWhilePendingTellsTheServerNothing()
{
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    click(window, "cmdStopSearching");
    Ticks(30);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_NameSearchStop::stopWhileSearchingReadsOnToTheEndMark()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QStringList shown;
    bool red = false;
    bool flags = false;
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    desk->When([&] { return window->RowCount() == 1; }, [&] { click(window, "cmdStopSearching"); });
    desk->When([&] { return Global.bUserStoppedSearch && court->Requests().size() == 2; },
               [&] {
                   shown = labels(window);
                   red = allRed(window);
                   flags = window->StopRequested && Global.bUserStoppedSearch
                           && !Global.bSearchInProgress && !window->tmrBlink->isActive()
                           && !window->Timer1->isActive();
                   court->SendTokens({ResultLine(u"B"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window) && QTest::qWaitFor([&] { return labels(window) != shown; }));
    QCOMPARE(shown,
             (QStringList{u"Search Stopped By User .. "_s,
                          u"Search Stopped By User. Some Results May Not Have Been Retrieved."_s,
                          QString()}));
    QVERIFY(red);
    QVERIFY(flags);

    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User: 2 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), someMissing);
    QCOMPARE(TextOf(window, "Label3"), u"Retrieved: 2"_s);
    QVERIFY(allRed(window));
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window->SearchIncomplete);
    QCOMPARE(
        desk->Folder.TimesLogged(u"Searching Stopped by User. Request Was: "_s + RequestLine()), 1);
    QCOMPARE(desk->Folder.TimesLogged(
                 u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s),
             1);
    QVERIFY(!desk->Folder.Logged(u"All Responses Received For Request: "_s + RequestLine()));
}

void tst_NameSearchStop::stopRequestByState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("request");
    QTest::newRow("WA") << u"WA"_s << stopRequest;
    QTest::newRow("OR") << u"OR"_s << stopRequest;
    QTest::newRow("ID") << u"ID"_s << stopRequest;
    QTest::newRow("IDBK") << u"IDBK"_s << stopRequest;
    QTest::newRow("WAWBK") << u"WAWBK"_s << u"BKRPT~STOP~"_s;
    QTest::newRow("WAEBK") << u"WAEBK"_s << u"BKRPT~STOP~"_s;
    QTest::newRow("ORBK") << u"ORBK"_s << u"BKRPT~STOP~"_s;
}

void tst_NameSearchStop::stopRequestByState()
{
    QFETCH(QString, state);
    QFETCH(QString, request);
    court->Expect(request).Reply({});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()}, state);
    window->StopCurrentSearch();
    QTRY_COMPARE(court->Requests(), QStringList{request});
    QVERIFY(desk->Folder.Logged(u"SendReq: "_s + request));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

void tst_NameSearchStop::stopFreesTheLinkAtOnce()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    bool busyBefore = false;
    bool busyAfter = true;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   busyBefore = Global.bSearchInProgress;
                   click(window, "cmdStopSearching");
                   busyAfter = Global.bSearchInProgress;
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(QTest::qWaitFor([&] { return TextOf(window, "lblSearchStatus") == someMissing; }));
    QVERIFY(busyBefore);
    QVERIFY(!busyAfter);
}

void tst_NameSearchStop::stopSendsNoFurtherLine()
{
    const QString adams = RequestLine(u"SMITH"_s, u"Adams"_s);
    court->Expect(adams).Reply({});
    court->Expect(stopRequest).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({adams, RequestLine()});
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { click(window, "cmdStopSearching"); });
    QVERIFY(QTest::qWaitFor([&] { return TextOf(window, "lblSearchStatus") == someMissing; }));
    QCOMPARE(court->Requests(), (QStringList{adams, stopRequest}));
}

void tst_NameSearchStop::stopIsReadOnlyAfterTheEndMark()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({u"This search resulted in more than 200 results.~"_s});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { click(window, "cmdStopSearching"); });
    QVERIFY(QTest::qWaitFor([&] { return ButtonOf(window, "cmdSearchResults_2")->isEnabled(); }));
    QCOMPARE(TextOf(window, "lblStatus"),
             u"Search Stopped - Max Results Reached: 0 Cases Retrieved."_s);
}

void tst_NameSearchStop::stopGoesBeforeAnError()
{
    court->Expect(RequestLine()).Reply({u"ERROR~too many hits~"_s, u"ERROR~Court is down~"_s});
    court->Expect(stopRequest).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return window->SearchIncomplete; },
               [&] { click(window, "cmdStopSearching"); });
    QVERIFY(QTest::qWaitFor([&] { return TextOf(window, "lblSearchStatus") == someMissing; }));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User: 0 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "Label3"), QString());
}

void tst_NameSearchStop::aStoppedSearchThatIsCutOffHasLostItsConnection()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Drop();
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { click(window, "cmdStopSearching"); });
    QVERIFY(QTest::qWaitFor([&] { return ButtonOf(window, "cmdSearchResults_2")->isEnabled(); }));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(window->StopRequested);
}

void tst_NameSearchStop::stopIsAskedOnlyWithAlerts()
{
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    click(window, "cmdStopSearching");
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QCOMPARE(desk->Boxes.Answered(), 0);
}

void tst_NameSearchStop::declinedStopChangesNothing()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   click(window, "cmdStopSearching");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QVERIFY(!window->StopRequested);
    QVERIFY(!Global.bUserStoppedSearch);
    QCOMPARE(court->Requests(), QStringList{RequestLine()});
}

void tst_NameSearchStop::declinedStopWhilePendingChangesNothing()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    click(window, "cmdStopSearching");
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
}

void tst_NameSearchStop::aPendingSearchDoesNotStartUnderTheQuestion()
{
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    desk->Boxes.Meanwhile([&] {
        window->Timer1->start(1);
        Ticks(30);
        QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    });
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    click(window, "cmdStopSearching");
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_NameSearchStop::aSearchThatWasLeftAloneStartsBehindTheQuestion()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    desk->Boxes.Meanwhile([&] {
        window->Timer1->start(1);
        Ticks(30);
    });
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::No);
    click(window, "cmdStopSearching");
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_NameSearchStop::theStatusChangedUnderThePendingQuestion()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    desk->Boxes.Expect(stopQuestion, stopTitle, MsgAnswer::Yes);
    window->Timer1->start(1);
    // The click comes first; the turn is taken while the question is open.
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { click(window, "cmdStopSearching"); });
    QVERIFY(QTest::qWaitFor([&] { return TextOf(window, "lblSearchStatus") == someMissing; }));
    QVERIFY(!desk->Folder.Logged(u"Cannot Stop Pending Search"_s));
}

void tst_NameSearchStop::pendingByItsStateAndNotByItsLabel()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    status->setProperty("text", u"Searching .."_s);
    QVERIFY(window->StopPendingSearch());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    status->setProperty("text", u"Pending .."_s);
    QVERIFY(!window->StopPendingSearch());
}

void tst_NameSearchStop::stopThatCannotBeSentRemovesLineZeroAndLogs()
{
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    frmQueue::Form().FIFO.AddItem(u"22222222222222222222"_s);
    QVERIFY(window->StopActiveSearch());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"22222222222222222222"_s});
    QVERIFY(desk->Folder.Logged(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s));
}

void tst_NameSearchStop::aStopOverALostLinkLeavesTheNextJobItsKey()
{
    court->Expect(RequestLine()).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    const QString next = u"22222222222222222222"_s;
    frmQueue::Form().FIFO.AddItem(next);
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   Global.sckServer->Close();
                   click(window, "cmdStopSearching");
                   QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{next});
               });
    QVERIFY(QTest::qWaitFor([&] { return ButtonOf(window, "cmdSearchResults_2")->isEnabled(); }));
    QVERIFY(desk->Folder.Logged(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{next});
}

void tst_NameSearchStop::stopTwiceIsNotPossible()
{
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   click(window, "cmdStopSearching");
                   click(window, "cmdStopSearching");
               });
    desk->When([&] { return court->Requests().size() == 2; },
               [&] { court->SendTokens({u"EOF~"_s}); });
    QVERIFY(QTest::qWaitFor([&] { return TextOf(window, "lblSearchStatus") == someMissing; }));
    QCOMPARE(court->Requests().count(stopRequest), 1);
}

void tst_NameSearchStop::fromStopTheKeyboardGoesToTheList()
{
    // And not to whatever button comes next.
    Global.bShowAlerts = false;
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    ButtonOf(window, "cmdStopSearching")->setFocus();
    click(window, "cmdStopSearching");
    QCOMPARE(window->focusWidget()->objectName(), u"listview1"_s);
}

HALVANE_TEST(tst_NameSearchStop)
#include "tst_NameSearchStop.moc"
