#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "core/UserStore.h"
#include "jobs/frmQueue.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "session/SessionState.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QDialog>
#include <QLabel>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {
const QString disconnectTitle = u"Disconnect From Halvane .."_s;
const QString disconnectQuestion =
    u"Are you sure you want to disconnect from the Halvane Server?"_s;
const QString exitTitle = u"Exit From Halvane?"_s;
const QString exitQuestion =
    u"You are about to exit the Halvane Application.\r\n\r\nAny data that has not been printed or "
    "saved will be lost! Are you sure you want to Exit from Halvane?"_s;
const QString closeRefused =
    u"You must wait for the current search to complete before Exiting Halvane.  All Pending "
    "Searches will be stopped."_s;
const QList<int> ended{0};
} // namespace

class tst_frmMainExit : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void connectWithAlertsAsks_data();
    void connectWithAlertsAsks();
    void connectWithoutAlertsOpensTheLogin();
    void connectWhileLoggedInDoesNothing();
    void connectionStatusIsShownModally();

    void logoutClosesTheLinkAndSendsNothing();
    void disconnectWhenNotLoggedInDoesNothing();
    void disconnectDuringASearchOnlyStopsIt();
    void disconnectDeclined();
    void disconnectConfirmed();
    void disconnectWithoutAlertsAsksNothing();
    void disconnectAfterTheIdleWarningAsksNothing();
    void searchThatBeginsBehindTheQuestionIsStopped();
    void linkLostBehindTheQuestion();

    void exitDuringASearchOnlyStopsIt();
    void exitDeclined();
    void exitConfirmedNotLoggedInEndsAtOnce();
    void exitWithoutAlertsAsksNothing();
    void exitLoggedInDisconnectsFirst();
    void secondExitDoesNothing();
    void searchThatBeginsBehindTheExitQuestionIsStopped();
    void timerOfTheExitWaitsForTheSearch();
    void aSearchThatBeginsOnTheWayOutIsStopped();

    void queryUnload_data();
    void queryUnload();
    void closedDuringASearchThenClosedAgain();
    void closedWhileExitingGoesOn();
    void closeIsRefusedByTheWindowItself();

    void positionIsRestored_data();
    void positionIsRestored();
    void positionIsSavedInTwips();
    void maximisedWindowSavesItsNormalPlace();
    void minimisedWindowSavesNothing();
    void queueIsUnloadedAtTheEnd();

private:
    bool logged(const QString &message) const { return session->folder.Logged(message); }
    void loggedIn() { session->BeLoggedIn(); }
    QDialog *report() const { return main->findChild<QDialog *>(u"frmElapsedTime"_s); }
    static void storePlace(const QStringList &values)
    {
        const QStringList keys{u"MainLeft"_s, u"MainTop"_s, u"MainWidth"_s, u"MainHeight"_s};
        for (qsizetype i = 0; i < values.size(); ++i)
            SaveUserStoreValue(u"Settings"_s, keys[i], values[i]);
    }
    static QStringList storedPlace()
    {
        QStringList values;
        for (const QString &key : {u"MainLeft"_s, u"MainTop"_s, u"MainWidth"_s, u"MainHeight"_s})
            values.append(UserStoreValue(u"Settings"_s, key, u"none"_s));
        return values;
    }

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_frmMainExit::init()
{
    QSettings(QSettings::IniFormat, QSettings::UserScope, u"Halvane"_s, u"Halvane"_s).clear();
    session = std::make_unique<SessionFixture>();
    FakeCourt::Install();
    main = session->ShowMain();
    main->TimerExit->setInterval(1);
}

void tst_frmMainExit::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_frmMainExit::connectWithAlertsAsks_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<bool>("connects");
    QTest::newRow("Connect") << QByteArray("cmdConnect") << true;
    QTest::newRow("Work Offline") << QByteArray("cmdCancel") << false;
}

void tst_frmMainExit::connectWithAlertsAsks()
{
    QFETCH(QByteArray, button);
    QFETCH(bool, connects);
    session->boxes.ExpectDialog(u"frmConnect"_s,
                                [&](QDialog *dialog) { Click(dialog, button.constData()); });
    Choose(main, "mnuConnnectionConnect");
    QCOMPARE(frmLogin::IsLoaded(), connects);
    QCOMPARE(Global.bConnectChosen, connects);
    QVERIFY(!Child<QAction>(main, "mnuConnnectionConnect")->isChecked());
}

void tst_frmMainExit::connectWithoutAlertsOpensTheLogin()
{
    Global.bShowAlerts = false;
    Choose(main, "mnuConnnectionConnect");
    QVERIFY(frmLogin::IsLoaded());
    QCOMPARE(Global.bConnectChosen, true);
}

void tst_frmMainExit::connectWhileLoggedInDoesNothing()
{
    Global.bLoggedIn = true;
    Choose(main, "mnuConnnectionConnect");
    QVERIFY(!frmLogin::IsLoaded());
    QVERIFY(Child<QAction>(main, "mnuConnnectionConnect")->isChecked());
}

void tst_frmMainExit::connectionStatusIsShownModally()
{
    session->boxes.ExpectDialog(u"frmConnectionStatus"_s, [](QDialog *dialog) {
        QVERIFY(dialog->isModal());
        Click(dialog, "Command1");
    });
    Choose(main, "mnuConnectionStatus");
    QCOMPARE(session->boxes.Answered(), 1);
}

void tst_frmMainExit::logoutClosesTheLinkAndSendsNothing()
{
    loggedIn();
    Global.ClientAcctgCode = u"4711"_s;
    const bool stopBefore = Global.bStopRequested;
    QCOMPARE(int(Number(main->Logout())), 907);
    QCOMPARE(FakeCourt::Current().requests, QByteArrayList());
    QCOMPARE(session->folder.Log(),
             (QStringList{u"Closed connection to Halvane Server"_s, u"Logout Successful"_s}));
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Global.bStopRequested, stopBefore);
    QCOMPARE(Global.ClientAcctgCode, QString());
    // A link that is gone already is no error.
    QCOMPARE(int(Number(main->Logout())), 907);
}

void tst_frmMainExit::disconnectWhenNotLoggedInDoesNothing()
{
    Child<QAction>(main, "mnuConnectionDisConnect")->setEnabled(true);
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(session->folder.Log(), QStringList());
    QVERIFY(!Child<QAction>(main, "mnuConnectionDisConnect")->isChecked());
}

void tst_frmMainExit::disconnectDuringASearchOnlyStopsIt()
{
    loggedIn();
    Global.bSearchInProgress = true;
    session->boxes.Expect(u"You must wait for the current search to complete before "
                          "disconnecting. All Pending Searches will be stopped."_s,
                          disconnectTitle);
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(Global.bStopRequested, true);
    QCOMPARE(Global.bLoggedIn, true);
    QVERIFY(frmWinsock::IsLoaded());
}

void tst_frmMainExit::disconnectDeclined()
{
    loggedIn();
    session->boxes.Expect(disconnectQuestion, disconnectTitle, MsgAnswer::No);
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(Global.bStopRequested, false);
    QCOMPARE(main->txtConnectStatus(), u"Connected"_s);
    QVERIFY(!Child<QAction>(main, "mnuConnectionDisConnect")->isChecked());
}

void tst_frmMainExit::disconnectConfirmed()
{
    loggedIn();
    session->boxes.Expect(disconnectQuestion, disconnectTitle, MsgAnswer::Yes);
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(logged(u"Logout Successful"_s));
    QCOMPARE(main->txtConnectStatus(), u"NOT CONNECTED"_s);
    QCOMPARE(Child<QLabel>(main, "sbStatusBar_4")->text(), u"Not Connected"_s);
    QVERIFY(!Child<QAction>(main, "mnuConnectionDisConnect")->isEnabled());
    QVERIFY(Child<QAction>(main, "mnuConnnectionConnect")->isEnabled());
    QVERIFY(report() && report()->isVisible());
    QVERIFY(!report()->isModal());
    Click(report(), "Command1");
    QTRY_VERIFY(!report());
}

void tst_frmMainExit::disconnectWithoutAlertsAsksNothing()
{
    Global.bShowAlerts = false;
    loggedIn();
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(!report());
    QCOMPARE(session->boxes.Answered(), 0);
}

void tst_frmMainExit::disconnectAfterTheIdleWarningAsksNothing()
{
    loggedIn();
    Session.bAutoLogout = true;
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(report());
}

void tst_frmMainExit::searchThatBeginsBehindTheQuestionIsStopped()
{
    loggedIn();
    session->boxes.Meanwhile([] { Global.bSearchInProgress = true; });
    session->boxes.Expect(disconnectQuestion, disconnectTitle, MsgAnswer::Yes);
    Choose(main, "mnuConnectionDisConnect");
    QCOMPARE(Global.bStopRequested, true);
    QCOMPARE(Global.bLoggedIn, true);
    QVERIFY(!logged(u"Logout Successful"_s));
}

void tst_frmMainExit::linkLostBehindTheQuestion()
{
    loggedIn();
    session->boxes.Meanwhile([] { Global.bLoggedIn = false; });
    session->boxes.Expect(disconnectQuestion, disconnectTitle, MsgAnswer::Yes);
    Choose(main, "mnuConnectionDisConnect");
    QVERIFY(!logged(u"Logout Successful"_s));
    QVERIFY(!report());
    QCOMPARE(main->txtConnectStatus(), u"NOT CONNECTED"_s);
    QVERIFY(!Child<QAction>(main, "mnuConnectionDisConnect")->isEnabled());
}

void tst_frmMainExit::exitDuringASearchOnlyStopsIt()
{
    Global.bSearchInProgress = true;
    session->boxes.Expect(u"You must wait for the current search to complete or be stopped before "
                          "Exiting. All Pending Searches will be stopped."_s,
                          u"Exit Halvane .."_s);
    Choose(main, "mnuFileExit");
    QCOMPARE(Global.bStopRequested, true);
    QCOMPARE(session->endings, QList<int>());
    QVERIFY(!main->TimerExit->isActive());
}

void tst_frmMainExit::exitDeclined()
{
    session->boxes.Expect(exitQuestion, exitTitle, MsgAnswer::No);
    Choose(main, "mnuFileExit");
    QCOMPARE(session->endings, QList<int>());
    QVERIFY(main->isVisible());
}

void tst_frmMainExit::exitConfirmedNotLoggedInEndsAtOnce()
{
    session->boxes.Expect(exitQuestion, exitTitle, MsgAnswer::Yes);
    Choose(main, "mnuFileExit");
    QCOMPARE(session->endings, ended);
    QVERIFY(!main->isVisible());
    QVERIFY(!logged(u"Logout Successful"_s));
}

void tst_frmMainExit::exitWithoutAlertsAsksNothing()
{
    Global.bShowAlerts = false;
    Choose(main, "mnuFileExit");
    QCOMPARE(session->endings, ended);
}

void tst_frmMainExit::exitLoggedInDisconnectsFirst()
{
    loggedIn();
    session->boxes.Expect(exitQuestion, exitTitle, MsgAnswer::Yes);
    session->boxes.ExpectDialog(u"frmElapsedTime"_s, [&](QDialog *dialog) {
        QVERIFY(dialog->isModal());
        QVERIFY(session->endings.isEmpty());
        QCOMPARE(Child<QLabel>(main, "sbStatusBar_1")->text(), u"Disconnecting From Halvane .."_s);
        Click(dialog, "Command1");
    });
    Choose(main, "mnuFileExit");
    QCOMPARE(Global.bStopRequested, true);
    QVERIFY(main->TimerExit->isActive());
    QCOMPARE(session->endings, QList<int>());
    QTRY_COMPARE(session->endings, ended);
    QVERIFY(logged(u"Logout Successful"_s));
    QVERIFY(logged(u"1"_s));
    QCOMPARE(Global.bStopRequested, false);
}

void tst_frmMainExit::secondExitDoesNothing()
{
    Global.bShowAlerts = false;
    loggedIn();
    main->TimerExit->setInterval(60000);
    Choose(main, "mnuFileExit");
    Global.bSearchInProgress = true;
    Choose(main, "mnuFileExit");
    QCOMPARE(session->boxes.Answered(), 0);
    QCOMPARE(session->endings, QList<int>());
}

void tst_frmMainExit::searchThatBeginsBehindTheExitQuestionIsStopped()
{
    session->boxes.Meanwhile([] { Global.bSearchInProgress = true; });
    session->boxes.Expect(exitQuestion, exitTitle, MsgAnswer::Yes);
    session->boxes.Expect(closeRefused, u"Exit Halvane .."_s);
    Choose(main, "mnuFileExit");
    QCOMPARE(Global.bStopRequested, true);
    QCOMPARE(session->endings, QList<int>());
}

void tst_frmMainExit::timerOfTheExitWaitsForTheSearch()
{
    Global.bShowAlerts = false;
    loggedIn();
    int ticks = 0;
    connect(main->TimerExit, &QTimer::timeout, this, [&ticks] { ++ticks; });
    main->TimerExit->setInterval(60000);
    Choose(main, "mnuFileExit");
    Global.bSearchInProgress = true;
    main->TimerExit->setInterval(1);
    QTRY_VERIFY(ticks >= 3);
    QCOMPARE(session->endings, QList<int>());
    QCOMPARE(Global.bLoggedIn, true);
    Global.bSearchInProgress = false;
    QTRY_COMPARE(session->endings, ended);
    QCOMPARE(Global.bLoggedIn, false);
    const int atTheEnd = ticks;
    Ticks(10);
    QCOMPARE(ticks, atTheEnd);
}

/// Whatever begins takes back the wish that all stop: the exit was confirmed, and wishes it again.
void tst_frmMainExit::aSearchThatBeginsOnTheWayOutIsStopped()
{
    Global.bShowAlerts = false;
    loggedIn();
    Choose(main, "mnuFileExit");
    Global.bStopRequested = false;
    Global.bSearchInProgress = true;
    QTRY_VERIFY(Global.bStopRequested);
    QCOMPARE(session->endings, QList<int>());
    Global.bSearchInProgress = false;
    QTRY_COMPARE(session->endings, ended);
}

void tst_frmMainExit::queryUnload_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("loggedIn");
    QTest::addColumn<bool>("searching");
    QTest::addColumn<bool>("goesOn");
    for (const auto &[mode, name, asks] :
         {std::tuple{0, "control menu", true}, std::tuple{1, "code", false},
          std::tuple{2, "session end", true}, std::tuple{3, "task manager", true},
          std::tuple{4, "main window", false}}) {
        QTest::addRow("%s, not logged in", name) << mode << false << false << true;
        QTest::addRow("%s, logged in", name) << mode << true << false << !asks;
        QTest::addRow("%s, searching", name) << mode << true << true << false;
        QTest::addRow("%s, searching and not logged in", name) << mode << false << true << false;
    }
}

void tst_frmMainExit::queryUnload()
{
    QFETCH(int, mode);
    QFETCH(bool, loggedIn);
    QFETCH(bool, searching);
    QFETCH(bool, goesOn);
    if (loggedIn)
        session->BeLoggedIn();
    Global.bSearchInProgress = searching;
    if (searching)
        session->boxes.Expect(closeRefused, u"Exit Halvane .."_s);
    QCOMPARE(main->Unload(static_cast<UnloadMode>(mode)), goesOn);
    QCOMPARE(session->folder.Log(), QStringList{QString::number(mode)});
    QCOMPARE(session->endings, goesOn ? ended : QList<int>());
    QCOMPARE(main->isVisible(), !goesOn);
    QCOMPARE(Global.bStopRequested, !goesOn);
    QCOMPARE(main->TimerExit->isActive(), !goesOn && !searching);
}

void tst_frmMainExit::closedDuringASearchThenClosedAgain()
{
    Global.bShowAlerts = false;
    loggedIn();
    Global.bSearchInProgress = true;
    session->boxes.Expect(closeRefused, u"Exit Halvane .."_s);
    QVERIFY(!main->close());
    QCOMPARE(Global.bStopRequested, true);
    Global.bSearchInProgress = false;
    QVERIFY(!main->close());
    QTRY_COMPARE(session->endings, ended);
    QVERIFY(logged(u"Logout Successful"_s));
}

void tst_frmMainExit::closedWhileExitingGoesOn()
{
    Global.bShowAlerts = false;
    loggedIn();
    main->TimerExit->setInterval(60000);
    QVERIFY(!main->close());
    QVERIFY(main->close());
    QCOMPARE(session->endings, ended);
    QCOMPARE(session->folder.TimesLogged(u"0"_s), 2);
    QVERIFY(!main->TimerExit->isActive());
    QVERIFY(main->Unload(UnloadMode::Code));
    QCOMPARE(session->endings, ended);
}

void tst_frmMainExit::closeIsRefusedByTheWindowItself()
{
    Global.bSearchInProgress = true;
    session->boxes.Expect(closeRefused, u"Exit Halvane .."_s);
    QVERIFY(!main->close());
    QVERIFY(main->isVisible());
}

void tst_frmMainExit::positionIsRestored_data()
{
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<QRect>("place");
    QTest::newRow("stored") << QStringList{u"1500"_s, u"750"_s, u"15000"_s, u"12000"_s}
                            << QRect(100, 50, 1000, 800);
    QTest::newRow("nothing stored") << QStringList() << QRect(67, 67, 433, 433);
    QTest::newRow("no numbers") << QStringList{u"left"_s, QString(), u"1e9"_s, u"wide"_s}
                                << QRect(67, 67, 433, 433);
    QTest::newRow("in part on the left")
        << QStringList{u"-1500"_s, u"750"_s, u"15000"_s, u"12000"_s} << QRect(-100, 50, 1000, 800);
    // As tests have it, the only screen is 800 pixels wide and high.
    const QStringList size{u"9000"_s, u"6000"_s};
    QTest::newRow("its screen has gone, right")
        << (QStringList{u"30000"_s, u"750"_s} + size) << QRect(200, 50, 600, 400);
    QTest::newRow("its screen has gone, left")
        << (QStringList{u"-30000"_s, u"750"_s} + size) << QRect(0, 50, 600, 400);
    QTest::newRow("its screen has gone, above")
        << (QStringList{u"1500"_s, u"-30000"_s} + size) << QRect(100, 0, 600, 400);
    QTest::newRow("its screen has gone, below")
        << QStringList{u"1500"_s, u"30000"_s, u"30000"_s, u"30000"_s} << QRect(0, 0, 800, 800);
    QTest::newRow("a corner is left")
        << (QStringList{u"11250"_s, u"750"_s} + size) << QRect(200, 50, 600, 400);
    QTest::newRow("enough is left")
        << (QStringList{u"11025"_s, u"750"_s} + size) << QRect(735, 50, 600, 400);
    QTest::newRow("one missing") << QStringList{u"1500"_s, u"750"_s} << QRect(100, 50, 433, 433);
}

void tst_frmMainExit::positionIsRestored()
{
    QFETCH(QStringList, stored);
    QFETCH(QRect, place);
    storePlace(stored);
    const frmMain again;
    QCOMPARE(again.geometry(), place);
}

void tst_frmMainExit::positionIsSavedInTwips()
{
    main->showNormal();
    main->setGeometry(120, 60, 900, 700);
    Settle();
    QVERIFY(main->Unload(UnloadMode::Code));
    QCOMPARE(storedPlace(), (QStringList{u"1800"_s, u"900"_s, u"13500"_s, u"10500"_s}));
}

void tst_frmMainExit::maximisedWindowSavesItsNormalPlace()
{
    main->showNormal();
    main->setGeometry(120, 60, 900, 700);
    Settle();
    main->showMaximized();
    Settle();
    QVERIFY(main->Unload(UnloadMode::Code));
    QCOMPARE(storedPlace(), (QStringList{u"1800"_s, u"900"_s, u"13500"_s, u"10500"_s}));
}

void tst_frmMainExit::minimisedWindowSavesNothing()
{
    main->showMinimized();
    Settle();
    QVERIFY(main->isMinimized());
    QVERIFY(main->Unload(UnloadMode::Code));
    QCOMPARE(storedPlace(), (QStringList{u"none"_s, u"none"_s, u"none"_s, u"none"_s}));
}

void tst_frmMainExit::queueIsUnloadedAtTheEnd()
{
    frmQueue::Form();
    QVERIFY(main->Unload(UnloadMode::Code));
    QVERIFY(!frmQueue::IsLoaded());
    QVERIFY(!main->tmrConnectStatus->isActive());
}

HALVANE_TEST(tst_frmMainExit)
#include "tst_frmMainExit.moc"
