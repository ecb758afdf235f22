#include "app/ProgramTest.h"
#include "core/GlobalState.h"
#include "link/frmWinsock.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {
/// What a login asks, in this order.
const QStringList loginRequests{u"LOGON¦paralegal¦secret¦AppVer-9.00¦"_s, u"GETINIVAL¦"_s,
                                u"GETMSG¦"_s, u"GETCLIENTACCTGOPT~"_s};

bool isEnabled(const QString &action)
{
    return frmMain::Form()->findChild<QAction *>(action)->isEnabled();
}
} // namespace

/// The ways in which a link can end, and what they leave: the lamp, the menus, the next login and
/// the search behind it.
class tst_LinkEnds : public ProgramTest
{
    Q_OBJECT
private Q_SLOTS:
    void whatALinkLeaves_data();
    void whatALinkLeaves();
    void whereItIsNoticedItCanBeConnectedAgain();
    void theStatusBarOffersToConnect();
    void aSearchBehindALostLinkOffersIt();
    void aLoginClosedInTheMiddleLetsNoJobIn_data();
    void aLoginClosedInTheMiddleLetsNoJobIn();

private:
    void endBy(const QString &who);
    void searchLoses();
    void beConnected(bool connected);
    void logInAgain(bool firstFails);
};

void tst_LinkEnds::whatALinkLeaves_data()
{
    QTest::addColumn<QString>("who");
    // Where the server ended it, the login behind it finds the dead link, says so, and Cancel gives
    // it up; where we did, the login connects anew at once.
    QTest::addColumn<bool>("byServer");
    QTest::newRow("the server closes, idle") << u"closed"_s << true;
    QTest::newRow("the server closes during a search") << u"closed while searching"_s << true;
    QTest::newRow("a token without end is refused") << u"endless token"_s << false;
    QTest::newRow("the user disconnects") << u"disconnect"_s << false;
    QTest::newRow("the session was idle") << u"idle"_s << false;
}

void tst_LinkEnds::whatALinkLeaves()
{
    QFETCH(QString, who);
    QFETCH(bool, byServer);
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    beConnected(true);
    endBy(who);
    Main->tmrConnectStatus->start(1);
    QTRY_VERIFY(!Global.bLoggedIn);
    Main->tmrConnectStatus->stop();
    beConnected(false);

    logInAgain(byServer);
    beConnected(true);
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    frmNameSearchResults *again = StartSearch();
    QVERIFY(again);
    QVERIFY(desk->Finish(again));
    QCOMPARE(TextOf(again, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_LinkEnds::whereItIsNoticedItCanBeConnectedAgain()
{
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s)}).Drop();
    const QPointer<frmNameSearchResults> lost(StartSearch());
    QVERIFY(lost);
    QVERIFY(!Child<QWidget>(lost, "lostLinkLine")->isVisible());
    QVERIFY(desk->Finish(lost));
    // What is said of the end stays as it is; this stands beside it.
    QCOMPARE(TextOf(lost, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(Child<QWidget>(lost, "lostLinkLine")->isVisible());
    // The timer has not looked yet.
    QCOMPARE(TextOf(Main, "sbStatusBar_4"), u"Connected"_s);
    // Nor has anybody logged in: the window comes back from behind another program.
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(Main, &activation);
    QVERIFY(Child<QWidget>(lost, "lostLinkLine")->isVisible());
    Click(Child<QWidget>(lost, "lostLinkLine"), "cmdConnect");
    beConnected(false);
    QTRY_VERIFY(frmLogin::IsLoaded());
    auto *login = Shown(u"frmLogin"_s);
    QTRY_VERIFY(ButtonOf(login, "cmdLogin")->isEnabled());
    desk->Boxes.Expect(u"A Login Error was Encountered! Error Response: Halvane Server "
                       "Connection was Dropped!"_s,
                       u"Login Error .."_s, MsgIcon::Exclamation);
    TypeInto(login, "txtUsername", u"paralegal"_s);
    Click(login, "cmdLogin");
    QCOMPARE(TextOf(login, "lblStatus"), u"Connection Lost - Select Connect Again"_s);
    Click(login, "cmdConnectAgain");
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    LogIn();
    beConnected(true);
    QVERIFY(!Child<QWidget>(lost, "lostLinkLine")->isVisible());
}

void tst_LinkEnds::theStatusBarOffersToConnect()
{
    BeginSession();
    Global.bShowAlerts = false;
    const auto *button = Child<QToolButton>(Main, "cmdConnect");
    QVERIFY(!button->isVisible());
    ChooseEntry(u"mnuConnectionDisConnect"_s);
    QVERIFY(button->isVisible());
    QTest::mouseClick(Child<QToolButton>(Main, "cmdConnect"), Qt::LeftButton);
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    LogIn();
    QVERIFY(!button->isVisible());
}

/// It waited while the link was lost, and has its turn then. One that ends well offers nothing.
void tst_LinkEnds::aSearchBehindALostLinkOffersIt()
{
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    frmNameSearchResults *well = StartSearch();
    QVERIFY(desk->Finish(well));
    frmNameSearchResults *waiting = StartSearch();
    waiting->Timer1->stop();
    court->DropClient();
    QTRY_VERIFY(Global.bConnectionClosed);
    waiting->Timer1->start(1);
    QVERIFY(desk->Finish(waiting));
    QVERIFY(Child<QWidget>(waiting, "lostLinkLine")->isVisible());
    QVERIFY(!Child<QWidget>(well, "lostLinkLine")->isVisible());
}

/// A search that ends with its link.
void tst_LinkEnds::searchLoses()
{
    frmNameSearchResults *lost = StartSearch();
    QVERIFY(lost);
    QVERIFY(desk->Finish(lost));
    QCOMPARE(TextOf(lost, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
}

void tst_LinkEnds::endBy(const QString &who)
{
    if (who == u"closed") {
        court->DropClient();
        QTRY_VERIFY(Global.bConnectionClosed);
    } else if (who == u"closed while searching") {
        court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s)}).Drop();
        searchLoses();
    } else if (who == u"endless token") {
        court->Expect(SearchRequest())
            .ReplyBytes('|' + QByteArray(maximumBacklogBytes + 1024, 'x'));
        searchLoses();
        // At once, not at the next look of the timer.
        beConnected(false);
    } else if (who == u"disconnect") {
        ChooseEntry(u"mnuConnectionDisConnect"_s);
    } else {
        desk->When([] { return Shown(u"frmInactivity"_s) != nullptr; },
                   [] { Click(Shown(u"frmInactivity"_s), "cmdLogOut"); });
        Q_EMIT LinkEvents::Of().IdleLimitReached();
    }
}

void tst_LinkEnds::beConnected(bool connected)
{
    QCOMPARE(Main->txtConnectStatus(), connected ? u"Connected"_s : u"NOT CONNECTED"_s);
    QCOMPARE(TextOf(Main, "sbStatusBar_4"), connected ? u"Connected"_s : u"Not Connected"_s);
    QCOMPARE(Global.bLoggedIn, connected);
    QCOMPARE(isEnabled(u"mnuConnnectionConnect"_s), !connected);
    QCOMPARE(isEnabled(u"mnuConnectionDisConnect"_s), connected);
}

void tst_LinkEnds::logInAgain(bool firstFails)
{
    ChooseEntry(u"mnuConnnectionConnect"_s);
    if (firstFails) {
        auto *login = Shown(u"frmLogin"_s);
        QTRY_VERIFY(ButtonOf(login, "cmdLogin")->isEnabled());
        desk->Boxes.Expect(u"A Login Error was Encountered! Error Response: Halvane Server "
                           "Connection was Dropped!"_s,
                           u"Login Error .."_s, MsgIcon::Exclamation);
        TypeInto(login, "txtUsername", u"paralegal"_s);
        Click(login, "cmdLogin");
        QTRY_VERIFY(ButtonOf(login, "cmdLogin")->isEnabled());
        Click(login, "cmdCancel");
        QTRY_VERIFY(!frmLogin::IsLoaded());
        ChooseEntry(u"mnuConnnectionConnect"_s);
    }
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    LogIn();
}

void tst_LinkEnds::aLoginClosedInTheMiddleLetsNoJobIn_data()
{
    QTest::addColumn<int>("requests");
    QTest::addColumn<bool>("cancelled");
    for (int i = 0; i < loginRequests.size(); ++i) {
        QTest::addRow("closed under %s", qPrintable(loginRequests[i])) << i + 1 << false;
        QTest::addRow("cancelled under %s", qPrintable(loginRequests[i])) << i + 1 << true;
    }
}

void tst_LinkEnds::aLoginClosedInTheMiddleLetsNoJobIn()
{
    QFETCH(int, requests);
    QFETCH(bool, cancelled);
    BeginSession();
    Global.bShowAlerts = false;
    FillForm();
    frmNameSearchResults *waiting = StartSearch();
    waiting->Timer1->stop();
    ChooseEntry(u"mnuConnectionDisConnect"_s);

    // The answer to one of the login's requests is late: meanwhile the user closes the window. One
    // that is accepted already goes on to its end without it; otherwise the link goes with it.
    const bool goesOn = !cancelled && requests > 1;
    for (int i = 0; i < (goesOn ? loginRequests.size() : requests); ++i) {
        ScriptedCourt::Exchange &exchange = court->Expect(loginRequests[i]).Reply({u"EOF~"_s});
        if (i + 1 == requests)
            exchange.Late();
    }
    if (goesOn)
        court->Expect(SearchRequest()).Reply({ResultLine(u"A"_s), u"EOF~"_s});
    ChooseEntry(u"mnuConnnectionConnect"_s);
    auto *login = Shown(u"frmLogin"_s);
    QTRY_VERIFY(ButtonOf(login, "cmdLogin")->isEnabled());
    TypeInto(login, "txtUsername", u"paralegal"_s);
    TypeInto(login, "txtPassword", u"secret"_s);
    waiting->Timer1->start(1);
    int ticks = 0;
    connect(waiting->Timer1, &QTimer::timeout, waiting, [&ticks] { ++ticks; });
    int ticksUnderIt = 0;
    const auto answerAfterTicks = [&] {
        ticksUnderIt = ticks;
        QVERIFY(!Global.bSearchInProgress);
        court->AnswerNow();
    };
    desk->When([&] { return court->OwesAnswer(); },
               [&] {
                   if (cancelled)
                       Click(login, "cmdCancel");
                   else
                       login->close();
                   if (goesOn)
                       desk->When([&] { return ticks >= 5; }, answerAfterTicks);
               });
    Click(login, "cmdLogin");
    QCOMPARE(Global.bLoggedIn, goesOn);
    if (!goesOn) {
        waiting->Timer1->stop();
        return;
    }
    // It asked for its turn while the login went on, and had none.
    QVERIFY(ticksUnderIt >= 5);
    QVERIFY(desk->Finish(waiting));
    QCOMPARE(TextOf(waiting, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

HALVANE_TEST(tst_LinkEnds)
#include "tst_LinkEnds.moc"
