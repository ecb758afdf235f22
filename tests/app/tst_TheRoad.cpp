#include "app/ProgramTest.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "jobs/frmQueue.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

namespace {
const QString disclaimer =
    u"Neither the court nor clerk makes any representation as to the accuracy and completeness of "
    "the Washington Court data except for court purposes. \r\n\r\nDo you want to continue?"_s;

} // namespace

class tst_TheRoad : public ProgramTest
{
    Q_OBJECT
private Q_SLOTS:
    void fromTheLoginToTheRows();
    void twoSearchesFromOneForm();
    void afterALostConnectionTheNextLoginSearchesAgain();
    void aSearchThatWaitsLetsTheLoginGoFirst();
    void disconnectingStopsWhatIsPending();
    void disconnectIsRefusedWhileSearchingAndTheSearchGivesUp();
    void aRefusedExitLetsTheSearchEndAndStopsWhatIsPending();
};

void tst_TheRoad::fromTheLoginToTheRows()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(SearchRequest())
        .Reply(
            {u"Searching~King~County~"_s,
             u"SMITH, JOHN Q~02-2-02029-9~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s,
             u"SMITH, JOHN QUINCY~*02-1-00001-1~03/04/2002~Criminal~WA Superior Ct King "
             "County~Defendant~"_s,
             u"EOF~"_s});
    StartProgram();
    LogIn();
    QWidget *form = Shown(u"frmSearchWA"_s);
    QVERIFY(form);
    QCOMPARE(Main->focusWidget()->objectName(), u"txtSearchName_0"_s);
    FillForm();
    desk->Boxes.Expect(disclaimer, u"Washington State Courts"_s, MsgIcon::Exclamation,
                       MsgAnswer::Yes);
    frmNameSearchResults *window = StartSearch();
    QVERIFY(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(desk->Finish(window));

    const QString bar = u"¦"_s;
    QCOMPARE(court->Requests(),
             (QStringList{u"LOGON¦paralegal¦secret¦AppVer-9.00¦"_s, u"GETINIVAL"_s + bar,
                          u"GETMSG"_s + bar, u"GETCLIENTACCTGOPT~"_s, SearchRequest()}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    QCOMPARE(window->windowTitle(), u"SMITH, JOHN, Q in King County, Washington Superior Courts"_s);
    QCOMPARE(TextOf(window, "txtCountyList"), u"King County - Washington Superior Courts"_s);
    QCOMPARE(
        RowsOf(window),
        (QList<QStringList>{{u"SMITH, JOHN Q"_s, u"02-2-02029-9"_s, u"01/02/2002"_s, u"Civil"_s,
                             u"WA Superior Ct King County"_s, u"Plaintiff"_s},
                            {u"SMITH, JOHN QUINCY"_s, u"*02-1-00001-1"_s, u"03/04/2002"_s,
                             u"Criminal"_s, u"WA Superior Ct King County"_s, u"Defendant"_s}}));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(Main->ActiveChild(), window);
    QVERIFY(form->isVisible());
    QCOMPARE(TextOf(form, "txtSearchName_0"), u"SMITH"_s);
}

void tst_TheRoad::twoSearchesFromOneForm()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    court->Expect(SearchRequest()).Reply({u"EOF~"_s});
    StartProgram();
    LogIn();
    FillForm();
    desk->Boxes.Expect(disclaimer, u"Washington State Courts"_s, MsgIcon::Exclamation,
                       MsgAnswer::Yes);
    frmNameSearchResults *first = StartSearch();
    first->Timer1->stop();
    frmNameSearchResults *second = StartSearch();
    QVERIFY(first && second && first != second);
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             (QStringList{first->txtMasterKey, second->txtMasterKey}));
    first->Timer1->start();
    QVERIFY(desk->Finish(first));
    QVERIFY(desk->Finish(second));
    QCOMPARE(TextOf(first, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete: 0 Cases Retrieved."_s);
}

void tst_TheRoad::afterALostConnectionTheNextLoginSearchesAgain()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s)}).Drop();
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    StartProgram();
    LogIn();
    FillForm();
    desk->Boxes.Expect(disclaimer, u"Washington State Courts"_s, MsgIcon::Exclamation,
                       MsgAnswer::Yes);
    frmNameSearchResults *lost = StartSearch();
    QVERIFY(desk->Finish(lost));
    QCOMPARE(TextOf(lost, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);

    Main->tmrConnectStatus->setInterval(1);
    QTRY_VERIFY(!Global.bLoggedIn);
    Main->tmrConnectStatus->stop();
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) { Click(dialog, "cmdConnect"); });
    // The link is still the dead one: a disconnect of the session gives it back.
    Main->Logout();
    ChooseEntry(u"mnuConnnectionConnect"_s);
    LogIn();
    frmNameSearchResults *again = StartSearch();
    QVERIFY(desk->Finish(again));
    QCOMPARE(TextOf(again, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_TheRoad::aSearchThatWaitsLetsTheLoginGoFirst()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    StartProgram();
    LogIn();
    Global.bShowAlerts = false;
    FillForm();
    frmNameSearchResults *window = StartSearch();
    QVERIFY(window);
    window->Timer1->stop();
    ChooseEntry(u"mnuConnectionDisConnect"_s);
    QVERIFY(!Global.bLoggedIn);
    ChooseEntry(u"mnuConnnectionConnect"_s);
    // From now on it asks for its turn in every wait of the login.
    window->Timer1->start();
    LogIn();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_TheRoad::disconnectingStopsWhatIsPending()
{
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    frmQueue::Form().FIFO.AddItem(u"11111111111111111111"_s);
    frmNameSearchResults *window = StartSearch();
    QVERIFY(window);
    QVERIFY(Global.WaDisclaimerAccepted);
    Global.bStopRequested = true;
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"11111111111111111111"_s});
}

void tst_TheRoad::disconnectIsRefusedWhileSearchingAndTheSearchGivesUp()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s)});
    StartProgram();
    LogIn();
    Global.bShowAlerts = false;
    FillForm();
    frmNameSearchResults *window = StartSearch();
    desk->Boxes.Expect(u"You must wait for the current search to complete before disconnecting. "
                       "All Pending Searches will be stopped."_s,
                       u"Disconnect From Halvane .."_s);
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   ChooseEntry(u"mnuConnectionDisConnect"_s);
                   // One more row, so that the wait that follows has the short limit.
                   court->SendTokens({ResultLine(u"B"_s)});
                   desk->Time.Run(1.0);
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(Global.bStopRequested);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(window->RowCount(), 2);
    QVERIFY(!court->Requests().contains(u"STOP¦"_s));
}

void tst_TheRoad::aRefusedExitLetsTheSearchEndAndStopsWhatIsPending()
{
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s)});
    frmNameSearchResults *running = StartSearch();
    frmNameSearchResults *pending = StartSearch();
    desk->Boxes.Expect(u"You must wait for the current search to complete or be stopped before "
                       "Exiting. All Pending Searches will be stopped."_s,
                       u"Exit Halvane .."_s);
    desk->When([&] { return running->RowCount() == 1; },
               [&] {
                   ChooseEntry(u"mnuFileExit"_s);
                   court->SendTokens({ResultLine(u"B"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(running));
    // What had begun comes to its own end: neither the court nor the user hears of a stop.
    QCOMPARE(TextOf(running, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    QVERIFY(!court->Requests().contains(u"STOP¦"_s));
    QVERIFY(desk->Finish(pending));
    QCOMPARE(TextOf(pending, "lblStatus"), u"Search Stopped By User .. "_s);
    QVERIFY(Main->isVisible());
    // The refusal holds until a new search is started.
    QVERIFY(Global.bStopRequested);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    frmNameSearchResults *next = StartSearch();
    QVERIFY(!Global.bStopRequested);
    QVERIFY(desk->Finish(next));
    QCOMPARE(TextOf(next, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

HALVANE_TEST(tst_TheRoad)
#include "tst_TheRoad.moc"
