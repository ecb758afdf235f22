#include "core/GlobalState.h"
#include "jobs/frmCDQueue.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmMain.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QAction>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString stopRequest = u"STOP¦"_s;
const QString pending = u"Pending .."_s;
} // namespace

class tst_TwoWindows : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void theSecondWaitsAndStartsWhenTheFirstEnds();
    void whoWaitsForTheLinkBlinksSlowly();
    void whoWaitsBehindAKeyBlinksAsItDid();
    void theyRunInTheOrderOfTheQueue();
    void aRunningJobOfAnotherKindHoldsTheLink();
    void aKeyIsComparedExactly();
    void theFirstLosesTheConnectionAndTheSecondFails();
    void stoppingTheSecondLeavesNoKey();
    void stoppingTheFirstLetsTheSecondStartOnceItHasRead();
    void aSearchThatIsClosedUnderTheStopOfAnotherAsksForNoMore_data();
    void aSearchThatIsClosedUnderTheStopOfAnotherAsksForNoMore();
    void aDisconnectEndsBoth();
    void aLogoutEndsWhatIsPending();
    void nobodyIsInTheSpareQueue();
    void threeSearchesOneAfterTheOther();
};

void tst_TwoWindows::theSecondWaitsAndStartsWhenTheFirstEnds()
{
    const QString smythe = RequestLine(u"SMYTHE"_s);
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    court->Expect(smythe).Reply({ResultLine(u"B"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *first = desk->Start({RequestLine()});
    frmNameSearchResults *second = desk->Start({smythe});
    QStringList meanwhile;
    desk->When([&] { return second->tmrBlink->interval() == 900; },
               [&] {
                   meanwhile = QStringList{TextOf(first, "lblStatus"), TextOf(second, "lblStatus"),
                                           second->windowTitle(),
                                           QString::number(court->Requests().size())};
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(second));
    QCOMPARE(
        meanwhile,
        (QStringList{u"Searching .."_s, pending,
                     u"SMYTHE, JOHN, Q in King County, Washington Superior Courts"_s, u"1"_s}));
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(RowsOf(first)[0][0], u"A"_s);
    QCOMPARE(RowsOf(second)[0][0], u"B"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TwoWindows::whoWaitsForTheLinkBlinksSlowly()
{
    Global.bSearchInProgress = true;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QCOMPARE(window->tmrBlink->interval(), 500);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    QCOMPARE(TextOf(window, "lblStatus"), pending);
    QVERIFY(window->Timer1->isActive());
    Global.bSearchInProgress = false;
    // Its turn: there is no connection, and the blinking was fast while it tried.
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(window->tmrBlink->interval(), 500);
}

void tst_TwoWindows::whoWaitsBehindAKeyBlinksAsItDid()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    Ticks(30);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), pending);
}

void tst_TwoWindows::theyRunInTheOrderOfTheQueue()
{
    const QString smythe = RequestLine(u"SMYTHE"_s);
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    court->Expect(smythe).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *first = desk->MakePending({RequestLine()});
    frmNameSearchResults *second = desk->Start({smythe});
    Ticks(30);
    QCOMPARE(court->Requests(), QStringList());
    first->Timer1->start(1);
    QVERIFY(desk->Finish(second));
    QCOMPARE(court->Requests(), (QStringList{RequestLine(), smythe}));
}

void tst_TwoWindows::aRunningJobOfAnotherKindHoldsTheLink()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    Global.bSearchInProgress = true;
    frmNameSearchResults *window = desk->Start({RequestLine()});
    Ticks(30);
    QCOMPARE(court->Requests(), QStringList());
    Global.bSearchInProgress = false;
    QVERIFY(desk->Finish(window));
}

void tst_TwoWindows::aKeyIsComparedExactly()
{
    frmNameSearchResults *window = desk->MakePending({RequestLine()});
    window->txtMasterKey += u' ';
    window->Timer1->start(1);
    Ticks(30);
    QCOMPARE(TextOf(window, "lblStatus"), pending);
}

void tst_TwoWindows::theFirstLosesTheConnectionAndTheSecondFails()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)}).Drop();
    desk->ConnectTo(*court);
    frmNameSearchResults *first = desk->Start({RequestLine()});
    frmNameSearchResults *second = desk->Start({RequestLine(u"SMYTHE"_s)});
    QVERIFY(desk->Finish(first));
    QVERIFY(desk->Finish(second));
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TwoWindows::stoppingTheSecondLeavesNoKey()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    desk->ConnectTo(*court);
    frmNameSearchResults *first = desk->Start({RequestLine()});
    frmNameSearchResults *second = desk->Start({RequestLine(u"SMYTHE"_s)});
    QStringList keys;
    bool linkWasTaken = false;
    bool linkIsTaken = true;
    desk->When([&] { return first->RowCount() == 1; },
               [&] {
                   linkWasTaken = Global.bSearchInProgress;
                   QTest::mouseClick(ButtonOf(second, "cmdStopSearching"), Qt::LeftButton);
                   linkIsTaken = Global.bSearchInProgress;
                   keys = frmQueue::Form().FIFO.Lines();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(first));
    QCOMPARE(keys, QStringList{first->txtMasterKey});
    // Every stop frees the link; the key at the head is what keeps others from it.
    QVERIFY(linkWasTaken && !linkIsTaken);
    QCOMPARE(TextOf(second, "lblSearchStatus"),
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QVERIFY(!first->StopRequested);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TwoWindows::stoppingTheFirstLetsTheSecondStartOnceItHasRead()
{
    // The first has been stopped and still waits for its last lines; its key stands at the head, so
    // the second starts when the first has read them.
    const QString smythe = RequestLine(u"SMYTHE"_s);
    court->Expect(RequestLine()).Reply({});
    court->Expect(stopRequest).Reply({u"EOF~"_s});
    court->Expect(smythe).Reply({ResultLine(u"B"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *first = desk->Start({RequestLine()});
    frmNameSearchResults *second = desk->Start({smythe});
    desk->When([&] { return court->Requests().size() == 1; },
               [&] { QTest::mouseClick(ButtonOf(first, "cmdStopSearching"), Qt::LeftButton); });
    QVERIFY(desk->Finish(second));
    QCOMPARE(court->Requests(), (QStringList{RequestLine(), stopRequest, smythe}));
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Stopped By User: 0 Cases Retrieved."_s);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QVERIFY(!second->StopRequested);
}

void tst_TwoWindows::aSearchThatIsClosedUnderTheStopOfAnotherAsksForNoMore_data()
{
    QTest::addColumn<bool>("stopsOther");
    QTest::newRow("another is stopped first") << true;
    QTest::newRow("it is stopped itself") << false;
}

/// Every stop frees the link, and whose window does not hold the link can be closed: the counties
/// that are left would be asked for, and paid, behind a window that has gone.
void tst_TwoWindows::aSearchThatIsClosedUnderTheStopOfAnotherAsksForNoMore()
{
    QFETCH(bool, stopsOther);
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    if (!stopsOther)
        court->Expect(stopRequest).Reply({});
    desk->ConnectTo(*court);
    const QPointer<frmNameSearchResults> first =
        desk->Start({RequestLine(), RequestLine(u"SMITH"_s, u"Pierce"_s)});
    frmNameSearchResults *second = desk->MakePending({RequestLine(u"SMYTHE"_s)});
    desk->When([&] { return first->RowCount() == 1; },
               [&] {
                   const QWidget *stopped = stopsOther ? second : first.data();
                   QTest::mouseClick(ButtonOf(stopped, "cmdStopSearching"), Qt::LeftButton);
                   QVERIFY(first->close());
                   court->SendTokens({u"EOF~"_s});
               });
    QTRY_VERIFY(first.isNull());
    QCOMPARE(court->Requests().size(), stopsOther ? 1 : 2);
    QVERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), stopsOther ? 0 : 1);
}

void tst_TwoWindows::aDisconnectEndsBoth()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s)});
    desk->ConnectTo(*court);
    frmMain main;
    main.show();
    Global.bLoggedIn = true;
    Global.bShowAlerts = false;
    Global.intSearchTimeout = 1;
    frmNameSearchResults *first = desk->Start({RequestLine()});
    frmNameSearchResults *second = desk->Start({RequestLine(u"SMYTHE"_s)});
    desk->Boxes.Expect(u"You must wait for the current search to complete before disconnecting. "
                       "All Pending Searches will be stopped."_s,
                       u"Disconnect From Halvane .."_s);
    main.findChild<QAction *>(u"mnuConnectionDisConnect"_s)->setEnabled(true);
    desk->When([&] { return first->RowCount() == 1; },
               [&] {
                   main.findChild<QAction *>(u"mnuConnectionDisConnect"_s)->trigger();
                   court->SendTokens({ResultLine(u"B"_s)});
                   desk->Time.Run(1.0);
               });
    QVERIFY(desk->Finish(first));
    QTRY_COMPARE(TextOf(second, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(TextOf(second, "lblSearchStatus"), u"Search Stopped By User: 0 Cases Retrieved."_s);
    QCOMPARE(TextOf(second, "Label3"), QString());
    QVERIFY(!ButtonOf(second, "cmdStopSearching")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(court->Requests(), QStringList{RequestLine()});
    QVERIFY(!Global.bUserStoppedSearch);
}

void tst_TwoWindows::aLogoutEndsWhatIsPending()
{
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *first = desk->Start({RequestLine()});
    frmNameSearchResults *second = desk->Start({RequestLine(u"SMYTHE"_s)});
    Ticks(10);
    Global.bStopRequested = true;
    QTRY_COMPARE(TextOf(first, "lblStatus"), u"Search Stopped By User .. "_s);
    QTRY_COMPARE(TextOf(second, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"11111111111111111111"_s});
    QCOMPARE(desk->Folder.TimesLogged(u"INCOMPLETE EXIT - from Timer1 - Name Search Results."_s),
             2);
    for (const frmNameSearchResults *window : {first, second}) {
        QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
        QCOMPARE(ColourOf(window, "lblSearchStatus"), u"red"_s);
        QVERIFY(IsBold(window, "lblStatus") && IsBold(window, "lblSearchStatus"));
        QVERIFY(!window->Timer1->isActive());
        QVERIFY(!window->tmrBlink->isActive());
    }
}

void tst_TwoWindows::nobodyIsInTheSpareQueue()
{
    frmCDQueue spare;
    desk->MakePending({RequestLine()});
    desk->MakePending({RequestLine()});
    QCOMPARE(spare.FIFO.ListCount(), 0);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
}

void tst_TwoWindows::threeSearchesOneAfterTheOther()
{
    desk->ConnectTo(*court);
    QList<frmNameSearchResults *> windows;
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s}) {
        court->Expect(RequestLine(name)).Reply({ResultLine(name), u"EOF~"_s});
        windows.append(desk->Start({RequestLine(name)}));
    }
    QVERIFY(desk->Finish(windows.last()));
    for (const frmNameSearchResults *window : windows)
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(RowsOf(windows[1])[0][0], u"B"_s);
}

HALVANE_TEST(tst_TwoWindows)
#include "tst_TwoWindows.moc"
