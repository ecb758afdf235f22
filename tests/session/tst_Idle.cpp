#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "link/frmWinsock.h"
#include "session/SessionState.h"
#include "session/frmInactivity.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QLabel>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 idleWait = 18;
}

class tst_Idle : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void warningAsItOpens();
    void countdown();
    void stayedAtTheLastSecond();
    void logOutButtonOfTheWarning();
    void closedWarningMeansToStay_data();
    void closedWarningMeansToStay();

    void nobodyAnswersAndTheSessionEnds();
    void stayingLeavesTheSessionUpAfterEighteenSeconds();
    void staySaysNothingOfALogout();
    void loggingOutEndsTheWaitAtOnce();
    void duringASearchTheUserIsAskedToWait();
    void withoutAlertsNothingIsShownAtTheEnd();
    void linkGoneAlreadyIsNoError();
    void mainWindowGoneDuringTheWait();

    void theWarningIsAnsweredOverABox_data();
    void theWarningIsAnsweredOverABox();
    void theWarningEndsWithItsSession_data();
    void theWarningEndsWithItsSession();
    void theQuestionThatTheLogoutSettlesGoesAway();

private:
    frmInactivity *warning() const { return main->findChild<frmInactivity *>(u"frmInactivity"_s); }
    /// Does this with the warning once autologout has opened it.
    void whenWarned(const std::function<void(frmInactivity *)> &act)
    {
        QTimer::singleShot(0, main, [this, act] { act(warning()); });
    }
    qint64 secondsOf(const std::function<void()> &act)
    {
        const QDateTime begin = session->clock.Now();
        act();
        return begin.secsTo(session->clock.Now());
    }

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_Idle::init()
{
    session = std::make_unique<SessionFixture>();
    FakeSocket::Install();
    main = session->ShowMain();
    session->BeLoggedIn();
    frmWinsock::Form().StopInactivity(); // as it is when the limit has been reached
}

void tst_Idle::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_Idle::warningAsItOpens()
{
    Session.bAutoLogout = true;
    const frmInactivity form;
    QCOMPARE(Session.bAutoLogout, false);
    QCOMPARE(form.windowTitle(), u"Halvane - Logging out due to Inactivity .."_s);
    QCOMPARE(Child<QLabel>(&form, "Label1")->text(),
             u"You will be automatically logged out of the Halvane System in 15 seconds due to "
             "Inactivity."_s);
    QCOMPARE(Child<QPushButton>(&form, "cmdCancel")->text(), u"Stay Logged In"_s);
    QCOMPARE(Child<QPushButton>(&form, "cmdLogOut")->text(), u"Logout = 15 Seconds"_s);
    QCOMPARE(form.Timer1Tag, u"15"_s);
    QCOMPARE(form.Timer1->interval(), 1000);
    QVERIFY(form.Timer1->isActive());
}

void tst_Idle::countdown()
{
    const QPointer<frmInactivity> form(new frmInactivity);
    form->show();
    QStringList captions;
    QList<bool> decided;
    connect(form->Timer1, &QTimer::timeout, this, [&] {
        captions.append(Child<QPushButton>(form, "cmdLogOut")->text());
        decided.append(Session.bAutoLogout);
    });
    form->Timer1->setInterval(1);
    QTRY_VERIFY(!form);
    QStringList expected;
    QList<bool> expectedDecided;
    for (int left = 14; left >= 0; --left) {
        expected.append(u"Logout = %1 Seconds"_s.arg(left));
        expectedDecided.append(left == 0);
    }
    QCOMPARE(captions, expected);
    QCOMPARE(decided, expectedDecided);
    QCOMPARE(Session.bAutoLogout, true);
}

void tst_Idle::stayedAtTheLastSecond()
{
    const QPointer<frmInactivity> form(new frmInactivity);
    form->show();
    connect(form->Timer1, &QTimer::timeout, this, [&] {
        if (form->Timer1Tag == u"1")
            Click(form, "cmdCancel");
    });
    form->Timer1->setInterval(1);
    QTRY_VERIFY(!form);
    QCOMPARE(Session.bAutoLogout, false);
}

void tst_Idle::logOutButtonOfTheWarning()
{
    const QPointer<frmInactivity> form(new frmInactivity);
    form->show();
    Click(form, "cmdLogOut");
    QVERIFY(!form->Timer1->isActive());
    QVERIFY(!form->isVisible());
    QCOMPARE(Session.bAutoLogout, true);
    QTRY_VERIFY(!form);
}

void tst_Idle::closedWarningMeansToStay_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("escape key") << true;
    QTest::newRow("title bar") << false;
}

void tst_Idle::closedWarningMeansToStay()
{
    QFETCH(bool, byKey);
    const QPointer<frmInactivity> form(new frmInactivity);
    form->show();
    if (byKey)
        QTest::keyClick(form, Qt::Key_Escape);
    else
        form->close();
    QTRY_VERIFY(!form);
    QCOMPARE(Session.bAutoLogout, false);
}

void tst_Idle::nobodyAnswersAndTheSessionEnds()
{
    int ticks = 0;
    whenWarned([&](frmInactivity *form) {
        QVERIFY(form->isVisible() && !form->isModal());
        connect(form->Timer1, &QTimer::timeout, this, [&ticks] { ++ticks; });
        form->Timer1->setInterval(1);
    });
    QCOMPARE(secondsOf([this] { main->autologout(); }), 0);
    QCOMPARE(ticks, 15);
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Session.bAutoLogout, false);
    QCOMPARE(main->txtConnectStatus(), u"NOT CONNECTED"_s);
    QCOMPARE(session->folder.Log(),
             (QStringList{u"Closed connection to Halvane Server"_s, u"Logout Successful"_s,
                          u"Auto Logout Complete .."_s}));
    QVERIFY(main->findChild<QDialog *>(u"frmElapsedTime"_s));
    QVERIFY(main->isVisible());
    QCOMPARE(session->endings, QList<int>());
    QCOMPARE(session->boxes.Answered(), 0);
}

void tst_Idle::stayingLeavesTheSessionUpAfterEighteenSeconds()
{
    whenWarned([this](frmInactivity *form) {
        Click(form, "cmdCancel");
        session->clock.Run(0.5);
    });
    const qint64 waited = secondsOf([this] { main->autologout(); });
    QVERIFY2(waited >= idleWait && waited < idleWait + 2, qPrintable(QString::number(waited)));
    QCOMPARE(Global.bLoggedIn, true);
    QVERIFY(frmWinsock::IsLoaded());
    QVERIFY(!frmWinsock::Form().TmrInactivity->isActive());
    QVERIFY(!warning());
}

void tst_Idle::staySaysNothingOfALogout()
{
    whenWarned([this](frmInactivity *form) {
        Click(form, "cmdCancel");
        session->clock.Run(2.0);
    });
    main->autologout();
    QCOMPARE(session->folder.Log(), QStringList());
}

void tst_Idle::loggingOutEndsTheWaitAtOnce()
{
    whenWarned([](frmInactivity *form) { Click(form, "cmdLogOut"); });
    QCOMPARE(secondsOf([this] { main->autologout(); }), 0);
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(session->folder.Logged(u"Auto Logout Complete .."_s));
}

void tst_Idle::duringASearchTheUserIsAskedToWait()
{
    Global.bSearchInProgress = true;
    session->boxes.Expect(u"You must wait for the current search to complete before "
                          "disconnecting. All Pending Searches will be stopped."_s,
                          u"Disconnect From Halvane .."_s);
    whenWarned([](frmInactivity *form) { form->Timer1->setInterval(1); });
    main->autologout();
    QCOMPARE(Global.bStopRequested, true);
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(Session.bAutoLogout, false);
    QVERIFY(session->folder.Logged(u"Auto Logout Complete .."_s));
    QVERIFY(!session->folder.Logged(u"Logout Successful"_s));
}

void tst_Idle::withoutAlertsNothingIsShownAtTheEnd()
{
    Global.bShowAlerts = false;
    whenWarned([](frmInactivity *form) { Click(form, "cmdLogOut"); });
    main->autologout();
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(!main->findChild<QDialog *>(u"frmElapsedTime"_s));
}

void tst_Idle::linkGoneAlreadyIsNoError()
{
    FakeSocket::Last()->PeerCloses();
    whenWarned([](frmInactivity *form) { Click(form, "cmdLogOut"); });
    main->autologout();
    QVERIFY(session->folder.Logged(u"Logout Successful"_s));
    QCOMPARE(Session.strSessionTime, QString());
}

void tst_Idle::mainWindowGoneDuringTheWait()
{
    auto *other = new frmMain;
    session->BeLoggedIn();
    QTimer::singleShot(0, this, [&] {
        delete other;
        session->clock.Run(2.0);
    });
    other->autologout();
    QVERIFY(!session->folder.Logged(u"Auto Logout Complete .."_s));
}

void tst_Idle::theWarningIsAnsweredOverABox_data()
{
    QTest::addColumn<bool>("boxFirst");
    QTest::addColumn<bool>("dialog");
    QTest::addColumn<bool>("stay");
    for (const bool stay : {true, false}) {
        const char *answer = stay ? "stay" : "log out";
        QTest::addRow("a box stands already, %s", answer) << true << false << stay;
        QTest::addRow("a box comes over it, %s", answer) << false << false << stay;
        QTest::addRow("a dialog stands already, %s", answer) << true << true << stay;
        QTest::addRow("a dialog comes over it, %s", answer) << false << true << stay;
    }
}

void tst_Idle::theWarningIsAnsweredOverABox()
{
    QFETCH(bool, boxFirst);
    QFETCH(bool, dialog);
    QFETCH(bool, stay);
    Global.bShowAlerts = false;
    const auto showModal = [&] { Choose(main, dialog ? "mnuConnectionStatus" : "mnuCheckMsgs"); };
    bool answered = false;
    const auto answer = [&] {
        Settle();
        ClickOnScreen(warning(), stay ? "cmdCancel" : "cmdLogOut");
        answered = !warning() || !warning()->isVisible();
        QCOMPARE(Session.bAutoLogout, !stay);
        session->clock.Run(2.0);
    };
    session->boxes.Whenever(dialog ? u"frmConnectionStatus"_s : u"MsgBox"_s, [&](QDialog *modal) {
        const QPointer<QDialog> watched(modal);
        if (boxFirst) {
            QTimer::singleShot(0, this, answer);
            main->autologout();
        } else {
            answer();
        }
        QVERIFY(watched && watched->isVisible());
        watched->reject();
    });
    if (boxFirst) {
        showModal();
    } else {
        QTimer::singleShot(0, this, showModal);
        main->autologout();
    }
    QVERIFY(answered);
    QCOMPARE(Global.bLoggedIn, stay);
}

void tst_Idle::theWarningEndsWithItsSession_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("disconnected") << u"disconnect"_s;
    QTest::newRow("the link was lost") << u"lost"_s;
    QTest::newRow("disconnected, and logged in again") << u"again"_s;
    QTest::newRow("lost, and logged in again") << u"lost again"_s;
}

void tst_Idle::theWarningEndsWithItsSession()
{
    QFETCH(QString, end);
    Global.bShowAlerts = false;
    const bool again = end.endsWith(u"again");
    int ticks = 0;
    whenWarned([&](frmInactivity *form) {
        const QPointer<frmInactivity> watched(form);
        if (end.startsWith(u"lost")) {
            FakeSocket::Last()->PeerCloses();
            main->CheckConnection();
        } else {
            Choose(main, "mnuConnectionDisConnect");
        }
        QVERIFY(!watched || !watched->isVisible());
        QCOMPARE(Global.bLoggedIn, false);
        if (!again)
            return;
        frmWinsock::Unload();
        session->BeLoggedIn();
        // As long as the count-down would have been.
        session->clock.Run(2.0);
        ++ticks;
    });
    main->autologout();
    QTRY_VERIFY(!warning());
    QCOMPARE(ticks, again ? 1 : 0);
    QCOMPARE(Global.bLoggedIn, again);
    QCOMPARE(Session.bAutoLogout, false);
    QVERIFY(!session->folder.Logged(u"Auto Logout Complete .."_s));
    QCOMPARE(main->txtConnectStatus(), again ? u"Connected"_s : u"NOT CONNECTED"_s);
}

void tst_Idle::theQuestionThatTheLogoutSettlesGoesAway()
{
    // Nobody answers it: the user is not there.
    session->boxes.Whenever(u"MsgBox"_s, [this](QDialog *box) {
        const QPointer<QDialog> watched(box);
        whenWarned([](frmInactivity *form) { form->Timer1->setInterval(1); });
        main->autologout();
        QCOMPARE(Global.bLoggedIn, false);
        QVERIFY(!watched || !watched->isVisible());
    });
    Choose(main, "mnuConnectionDisConnect");
    QVERIFY(main->isVisible());
    QCOMPARE(session->folder.TimesLogged(u"Logout Successful"_s), 1);
}

HALVANE_TEST(tst_Idle)
#include "tst_Idle.moc"
