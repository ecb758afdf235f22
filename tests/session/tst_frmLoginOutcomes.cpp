#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "core/Options.h"
#include "link/frmWinsock.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/ScriptedCourt.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {
const QString offerText = u"There is an important system message for you. Click OK to view it now "
                          "or Cancel to skip viewing it."_s;
const QString offerTitle = u"Halvane - Important System Message"_s;
const QString droppedText =
    u"A Login Error was Encountered! Error Response: Halvane Server Connection was Dropped!"_s;
const QString errorTitle = u"Login Error .."_s;
} // namespace

class tst_frmLoginOutcomes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void wholeLoginByteForByteAndInOrder();
    void acceptedLoginOpensTheSession();
    void statusOfEachStep();
    void flagsOfEachStep();
    void enterKeyLogsIn();

    void whatIsSaved_data();
    void whatIsSaved();
    void refusedLoginSavesNothing();

    void refusals_data();
    void refusals();
    void refusalAfterALostLinkAndTheWayBack();
    void connectAgainKeepsWhatWasEntered();
    void clickWhileALoginIsBusyDoesNothing();
    void wrongPasswordThenTheRightOne();

    void systemMessageOfferedAndTaken();
    void systemMessageDeclined();
    void systemMessageIsNotOfferedWithoutAlerts();
    void noSystemMessageNoOffer();
    void accountingOptionReachesTheSession();
    void parametersReachTheSettings();
    void pingDuringTheLoginIsAnswered();

private:
    /// The login window with the server reached, name and password typed.
    frmLogin *ready(const QString &userName = u"User"_s, const QString &password = u"Pass"_s)
    {
        frmLogin *login = session->OpenLoginToTheEnd();
        TypeInto(login, "txtUsername", userName);
        TypeInto(login, "txtPassword", password);
        return login;
    }
    FakeCourt &court() { return FakeCourt::Current(); }
    void uneventfulReplies(const QByteArray &message = "|EOF~|")
    {
        court().replies = {"|EOF~|", "|EOF~|", message, "|FALSE~||EOF~|"};
    }
    QWidget *messageWindow() { return session->Main()->findChild<QWidget *>(u"frmMsg"_s); }

    std::unique_ptr<SessionFixture> session;
};

void tst_frmLoginOutcomes::init()
{
    session = std::make_unique<SessionFixture>();
    session->ShowMain();
    FakeCourt::Install();
}

void tst_frmLoginOutcomes::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
    QVERIFY(!QApplication::overrideCursor());
}

void tst_frmLoginOutcomes::wholeLoginByteForByteAndInOrder()
{
    frmWinsock::SetSocketFactory({});
    ScriptedCourt real;
    real.PointSettingsHere();
    Global.lngServerPort = real.Port();
    SaveOptionStr(u"Security"_s, u"RememberPwd"_s, u"1"_s);
    SaveOptionStr(u"Security"_s, u"UserName"_s, EncodeCredential(u"Jos\u00E9"_s));
    SaveOptionStr(u"Security"_s, u"UserPwd"_s, EncodeCredential(u"Pa ss"_s));
    real.Expect(u"GET_PRIV_MSG¦Jos\u00E9¦Pa ss¦AppVer-9.00¦"_s)
        .Reply({u"Pay"_s, u"us"_s, u"EOF~"_s});
    real.Expect(u"LOGON¦Jos\u00E9¦Pa ss¦AppVer-9.00¦"_s).Reply({u"EOF~"_s});
    real.Expect(u"GETINIVAL¦"_s).Reply({u"Searching=MaxIndexResults=300"_s, u"EOS~"_s, u"EOF~"_s});
    real.Expect(u"GETMSG¦"_s).Reply({u"Hello"_s, u"World"_s, u"EOF~"_s});
    real.Expect(u"GETCLIENTACCTGOPT~"_s).Reply({u"TRUE~"_s, u"EOF~"_s});
    session->boxes.Expect(offerText, offerTitle, MsgIcon::Information, MsgAnswer::Ok,
                          MsgButtons::OkCancel);

    const frmLogin *login = session->OpenLoginToTheEnd();
    QVERIFY(login);
    QCOMPARE(Child<QPlainTextEdit>(login, "txtMsg")->toPlainText(), u"Payus"_s);
    Click(login, "cmdLogin");

    QCOMPARE(real.Complaints(), QString());
    QVERIFY(!SessionFixture::LoginWindow());
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(Global.bClientAcctgOpt, true);
    QCOMPARE(GetOptionStr(u"Searching"_s, u"MaxIndexResults"_s), u"300"_s);
    QCOMPARE(Session.strPrivateMsgs, u"Payus"_s);
    QVERIFY(messageWindow());
    QCOMPARE(Child<QPlainTextEdit>(messageWindow(), "Text1")->toPlainText(), u"HelloWorld"_s);
}

void tst_frmLoginOutcomes::acceptedLoginOpensTheSession()
{
    QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::SearchFormWanted);
    const QPointer<frmLogin> login(ready(u"  User "_s, u" Pass "_s));
    uneventfulReplies();
    Click(login, "cmdLogin");
    QCOMPARE(court().requests,
             (QByteArrayList{"|LOGON\xA6User\xA6Pass\xA6"
                             "AppVer-9.00\xA6|",
                             "|GETINIVAL\xA6|", "|GETMSG\xA6|", "|GETCLIENTACCTGOPT~|"}));
    QVERIFY(!frmLogin::IsLoaded());
    QTRY_VERIFY(!login);
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(Global.bGettingParams, false);
    QCOMPARE(Session.strUserName, u"User"_s);
    QCOMPARE(Session.strUserPassword, u"Pass"_s);
    QCOMPARE(session->Main()->txtConnectStatus(), u"Connected"_s);
    QCOMPARE(Child<QLabel>(session->Main(), "sbStatusBar_4")->text(), u"Connected"_s);
    QVERIFY(session->folder.Logged(u"Login Returned: 901"_s));
    QCOMPARE(session->clock.Sleeps(), (QList<int>{100, 200}));
}

void tst_frmLoginOutcomes::statusOfEachStep()
{
    const frmLogin *login = ready();
    const auto *label = Child<QLabel>(login, "lblStatus");
    uneventfulReplies();
    QStringList shown;
    court().onRequest = [&] { shown.append(label->text()); };
    Click(login, "cmdLogin");
    QCOMPARE(
        shown.mid(0, 3),
        (QStringList{u"Logging On .."_s,
                     u"Please Wait.. Retrieving Important System Update(s) From Server .."_s,
                     u"Please Wait.. Retrieving Important System Message(s) From Server .."_s}));
}

void tst_frmLoginOutcomes::flagsOfEachStep()
{
    const frmLogin *login = ready();
    uneventfulReplies();
    QStringList flags;
    court().onRequest = [&] {
        flags.append(u"%1%2%3%4"_s.arg(Global.bLoginBusy ? 1 : 0)
                         .arg(Global.bGettingParams ? 1 : 0)
                         .arg(Global.bGettingMessages ? 1 : 0)
                         .arg(QApplication::overrideCursor() ? 1 : 0));
    };
    Click(login, "cmdLogin");
    QCOMPARE(flags, (QStringList{u"1001"_s, u"1101"_s, u"1010"_s, u"1000"_s}));
}

void tst_frmLoginOutcomes::enterKeyLogsIn()
{
    const frmLogin *login = ready();
    uneventfulReplies();
    QTest::keyClick(Child<QLineEdit>(login, "txtPassword"), Qt::Key_Return);
    QCOMPARE(Global.bLoggedIn, true);
    QVERIFY(!SessionFixture::LoginWindow());
}

void tst_frmLoginOutcomes::whatIsSaved_data()
{
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<QString>("flag");
    QTest::addColumn<QString>("password");
    QTest::newRow("remembered") << true << u"1"_s << u"O80O97O115O115"_s;
    QTest::newRow("not remembered") << false << u"0"_s << QString();
}

void tst_frmLoginOutcomes::whatIsSaved()
{
    QFETCH(bool, ticked);
    QFETCH(QString, flag);
    QFETCH(QString, password);
    SaveOptionStr(u"security"_s, u"UserPwd"_s, u"O88"_s);
    const frmLogin *login = ready(u" User "_s, u" Pass "_s);
    if (ticked)
        Child<QCheckBox>(login, "Check1")->click();
    uneventfulReplies();
    Click(login, "cmdLogin");
    QCOMPARE(GetOptionStr(u"security"_s, u"RememberPwd"_s), flag);
    QCOMPARE(GetOptionStr(u"security"_s, u"UserName"_s), u"O85O115O101O114"_s);
    const QByteArray file = session->folder.Read(u"options.ini"_s).replace("\r\n", "\n");
    const QByteArray line = "\nUserPwd=" + password.toLatin1() + '\n';
    QVERIFY(file.contains(line));
}

void tst_frmLoginOutcomes::refusedLoginSavesNothing()
{
    const QByteArray before = session->folder.Read(u"options.ini"_s);
    const frmLogin *login = ready();
    Child<QCheckBox>(login, "Check1")->click();
    court().replies = {"|ERROR~||EOF~|"};
    session->boxes.Expect(
        u"Either the User Name and/or Password you entered is Invalid!\r\n\r\nPlease Re-Enter "
        "Your User Name and Password and then select Login."_s,
        u"Invalid User Name or Password .."_s, MsgIcon::Exclamation);
    Click(login, "cmdLogin");
    QCOMPARE(session->folder.Read(u"options.ini"_s), before);
}

void tst_frmLoginOutcomes::refusals_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<bool>("linkGone");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("status");
    QTest::newRow("904") << QByteArray("|Invalid User Name and/or PW||EOF~|") << false << 904
                         << u"Either the User Name and/or Password you entered is "
                            "Invalid!\r\n\r\nPlease Re-Enter Your User Name and Password and then "
                            "select Login."_s
                         << u"Invalid User Name or Password .."_s << u"Invalid Login - Try Again"_s;
    QTest::newRow("922") << QByteArray() << false << 922
                         << u"A Login Error was Encountered! Error Response: Timed Out Waiting For "
                            "Response from Server."_s
                         << errorTitle << u"No Reply - Select Login to Try Again"_s;
    QTest::newRow("954") << QByteArray() << true << 954 << droppedText << errorTitle
                         << u"Connection Lost - Select Connect Again"_s;
}

void tst_frmLoginOutcomes::refusals()
{
    QFETCH(QByteArray, reply);
    QFETCH(bool, linkGone);
    QFETCH(int, code);
    QFETCH(QString, text);
    QFETCH(QString, title);
    QFETCH(QString, status);
    const frmLogin *login = ready();
    court().replies = {reply};
    if (linkGone)
        static_cast<FakeSocket *>(Global.sckServer)->PeerCloses();
    bool hiddenMeanwhile = false;
    bool pointerMeanwhile = false;
    session->boxes.Meanwhile([&] {
        hiddenMeanwhile = !login->isVisible();
        pointerMeanwhile = !QApplication::overrideCursor();
    });
    session->boxes.Expect(text, title, MsgIcon::Exclamation);
    session->clock.Run(1.0);
    Click(login, "cmdLogin");
    QVERIFY(session->folder.Logged(u"Login Returned: "_s + QString::number(code)));
    QVERIFY(hiddenMeanwhile && pointerMeanwhile);
    QVERIFY(login->isVisible());
    QVERIFY(Child<QPushButton>(login, "cmdLogin")->isEnabled());
    QCOMPARE(Child<QLabel>(login, "lblStatus")->text(), status);
    QCOMPARE(Child<QPushButton>(login, "cmdConnectAgain")->isVisible(), linkGone);
    QCOMPARE(Child<QLineEdit>(login, "txtUsername")->text(), u"User"_s);
    QCOMPARE(Global.bLoginBusy, false);
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_frmLoginOutcomes::refusalAfterALostLinkAndTheWayBack()
{
    frmLogin *login = ready();
    static_cast<FakeSocket *>(Global.sckServer)->PeerCloses();
    for (int attempt = 0; attempt < 2; ++attempt) {
        session->boxes.Expect(droppedText, errorTitle, MsgIcon::Exclamation);
        Click(login, "cmdLogin");
    }
    QCOMPARE(session->folder.TimesLogged(u"Login Returned: 954"_s), 2);
    QCOMPARE(session->folder.TimesLogged(u"Cannot Contact Server to Login."_s), 2);

    // A window opened anew still believes in the old connection; one cancelled lets go of it.
    Click(login, "cmdCancel");
    QVERIFY(!frmWinsock::IsLoaded());
    login = ready();
    uneventfulReplies();
    Click(login, "cmdLogin");
    QCOMPARE(Global.bLoggedIn, true);
}

void tst_frmLoginOutcomes::connectAgainKeepsWhatWasEntered()
{
    const QPointer<frmLogin> login(ready());
    const auto *again = Child<QPushButton>(login, "cmdConnectAgain");
    QVERIFY(!again->isVisible());
    static_cast<FakeSocket *>(Global.sckServer)->PeerCloses();
    session->boxes.Expect(droppedText, errorTitle, MsgIcon::Exclamation);
    Click(login, "cmdLogin");
    QVERIFY(again->isVisible());
    const qsizetype before = court().requests.size();
    court().replies = {"|EOF~|"};
    Click(login, "cmdConnectAgain");
    QVERIFY(!again->isVisible());
    QCOMPARE(TextOf(login, "lblStatus"), u"Enter User Name and Password to Continue .."_s);
    QVERIFY(Child<QPushButton>(login, "cmdLogin")->isEnabled());
    QCOMPARE(Child<QLineEdit>(login, "txtPassword")->text(), u"Pass"_s);
    QVERIFY(!QApplication::overrideCursor());
    uneventfulReplies();
    Click(login, "cmdLogin");
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(court().requests.value(before), QByteArray("|GET_PRIV_MSG\xA6User\xA6Pass\xA6"
                                                        "AppVer-9.00\xA6|"));
    QCOMPARE(court().requests.value(before + 1), QByteArray("|LOGON\xA6User\xA6Pass\xA6"
                                                            "AppVer-9.00\xA6|"));
}

void tst_frmLoginOutcomes::clickWhileALoginIsBusyDoesNothing()
{
    const frmLogin *login = ready();
    Global.bLoginBusy = true;
    Click(login, "cmdLogin");
    QVERIFY(!Child<QPushButton>(login, "cmdLogin")->isEnabled());
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(court().requests, QByteArrayList());
    QVERIFY(!session->folder.Logged(u"******** Client Login: Started ********"_s));
    Click(login, "cmdCancel");
}

void tst_frmLoginOutcomes::wrongPasswordThenTheRightOne()
{
    frmLogin *login = ready(u"User"_s, u"Wrong"_s);
    court().replies = {"|ERROR~||EOF~|"};
    session->boxes.Expect(
        u"Either the User Name and/or Password you entered is Invalid!\r\n\r\nPlease Re-Enter "
        "Your User Name and Password and then select Login."_s,
        u"Invalid User Name or Password .."_s, MsgIcon::Exclamation);
    Click(login, "cmdLogin");
    TypeInto(login, "txtPassword", u"Right"_s);
    uneventfulReplies();
    Click(login, "cmdLogin");
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(court().requests.value(1), QByteArray("|LOGON\xA6User\xA6Right\xA6"
                                                   "AppVer-9.00\xA6|"));
}

void tst_frmLoginOutcomes::systemMessageOfferedAndTaken()
{
    const QPointer<frmLogin> login(ready());
    uneventfulReplies("|<b>Closed</b>|| on Monday||EOF~|");
    bool hidden = false;
    session->boxes.Meanwhile([&] { hidden = login && !login->isVisible(); });
    session->boxes.Expect(offerText, offerTitle, MsgIcon::Information, MsgAnswer::Ok,
                          MsgButtons::OkCancel);
    Click(login, "cmdLogin");
    QVERIFY(hidden);
    QVERIFY(messageWindow() && messageWindow()->isVisible());
    QCOMPARE(Child<QPlainTextEdit>(messageWindow(), "Text1")->toPlainText(),
             u"<b>Closed</b>on Monday"_s);
    QVERIFY(!messageWindow()->isModal());
    Click(messageWindow(), "Command1");
    QTRY_VERIFY(!messageWindow());
}

void tst_frmLoginOutcomes::systemMessageDeclined()
{
    const frmLogin *login = ready();
    uneventfulReplies("|Hello||EOF~|");
    session->boxes.Expect(offerText, offerTitle, MsgAnswer::Cancel);
    Click(login, "cmdLogin");
    QVERIFY(!messageWindow());
    QCOMPARE(Global.bLoggedIn, true);
    QCOMPARE(court().requests.size(), 4);
}

void tst_frmLoginOutcomes::systemMessageIsNotOfferedWithoutAlerts()
{
    const frmLogin *login = ready();
    Global.bShowAlerts = false;
    uneventfulReplies("|Hello||EOF~|");
    Click(login, "cmdLogin");
    QCOMPARE(Session.strSystemMsg, u"Hello"_s);
    QVERIFY(!messageWindow());
    QCOMPARE(Global.bLoggedIn, true);
}

void tst_frmLoginOutcomes::noSystemMessageNoOffer()
{
    const frmLogin *login = ready();
    uneventfulReplies();
    Click(login, "cmdLogin");
    QCOMPARE(session->boxes.Answered(), 0);
    QCOMPARE(Global.bLoggedIn, true);
}

void tst_frmLoginOutcomes::accountingOptionReachesTheSession()
{
    const frmLogin *login = ready();
    court().replies = {"|EOF~|", "|EOF~|", "|EOF~|", "|TRUE~||EOF~|"};
    Click(login, "cmdLogin");
    QCOMPARE(Global.bClientAcctgOpt, true);
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|EOF~|"));
}

void tst_frmLoginOutcomes::parametersReachTheSettings()
{
    const frmLogin *login = ready();
    court().replies = {"|EOF~|", "|Communications=HVServerIP1=10.1.2.3||EOS~||EOF~|", "|EOF~|",
                       "|FALSE~|"};
    Click(login, "cmdLogin");
    QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerIP1"_s), u"10.1.2.3"_s);
}

void tst_frmLoginOutcomes::pingDuringTheLoginIsAnswered()
{
    const frmLogin *login = ready();
    // What stands behind the answer to the ping is the end of the login.
    court().replies = {"|DIAG001|", "|EOF~|", "|EOF~|", "|EOF~|", "|FALSE~|"};
    Click(login, "cmdLogin");
    QCOMPARE(court().requests.value(1), QByteArray("|IMALIVE\xA6|"));
    QCOMPARE(Global.bLoggedIn, true);
}

HALVANE_TEST(tst_frmLoginOutcomes)
#include "tst_frmLoginOutcomes.moc"
