#include "Browser.h"
#include "SessionFixture.h"

#include "controls/Twips.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Version.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
/// What a label reads each time that it is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QLabel *watched) : label(watched) { label->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            texts.append(label->text());
        return false;
    }

    QStringList texts;

private:
    QLabel *label;
};
} // namespace

class tst_frmLogin : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void captions_data();
    void captions();
    void theLinkFollowsTheColoursOfTheDesktop();
    void staysAboveAllOtherWindows();
    void opensOnlyOnce();

    void loadedWhileAUserIsLoggedIn();
    void loadedWithANetworkAddress();
    void networkFoundAtTheSecondLookLeavesTheFormAsDesigned();
    void noNetworkIsDenied();

    void timerOfTheConnectRunsOnce();
    void blinkingEndsAfterThreeRoundsWithTheStatusShown();
    void remembered_data();
    void remembered();
    void rememberedPasswordSendsForMessagesBeforeTheUserDoesAnything();
    void oneEmptyFieldSendsNothing_data();
    void oneEmptyFieldSendsNothing();
    void privateMessages_data();
    void privateMessages();
    void whatARefusedMessageLeavesIsNoAnswerToTheLogin();
    void statusWhileMessagesAreFetched();
    void everyStatusIsPainted();
    void theKeyboardGoesWhereAnEntryIsMissing_data();
    void theKeyboardGoesWhereAnEntryIsMissing();
    void whoIsInAFieldStaysThere_data();
    void whoIsInAFieldStaysThere();
    void addressesAreTriedInOrderAndTheFailureIsReported();
    void serverThatNeverAnswersTheConnectIsReported();
    void connectedAlreadyGoesOnWithoutAConnect();

    void enterDoesNothingBeforeTheServerIsReached();
    void lostPasswordLinkOpensTheSupportPage();

private:
    /// What stands remembered in options.ini.
    void remember(const QString &flag, const QString &userName, const QString &password)
    {
        SaveOptionStr(u"Security"_s, u"RememberPwd"_s, flag);
        SaveOptionStr(u"Security"_s, u"UserName"_s, EncodeCredential(userName));
        SaveOptionStr(u"Security"_s, u"UserPwd"_s, EncodeCredential(password));
    }
    QString status() const
    {
        return Child<QLabel>(SessionFixture::LoginWindow(), "lblStatus")->text();
    }
    bool mayLogIn() const
    {
        return Child<QPushButton>(SessionFixture::LoginWindow(), "cmdLogin")->isEnabled();
    }
    QString field(const char *name) const
    {
        return Child<QLineEdit>(SessionFixture::LoginWindow(), name)->text();
    }

    std::unique_ptr<SessionFixture> session;
    std::unique_ptr<QSignalSpy> wanted;
    std::unique_ptr<QSignalSpy> hidden;
};

void tst_frmLogin::init()
{
    session = std::make_unique<SessionFixture>();
    session->ShowMain();
    FakeCourt::Install();
    wanted = std::make_unique<QSignalSpy>(&SessionEvents::Of(), &SessionEvents::SearchFormWanted);
    hidden = std::make_unique<QSignalSpy>(&SessionEvents::Of(), &SessionEvents::SearchFormHidden);
}

void tst_frmLogin::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
    QVERIFY(!QApplication::overrideCursor());
}

void tst_frmLogin::captions_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("text");
    const QString tip = u"You can use upper case, lower case, or a mixture for Logging in .."_s;
    const auto row = [](const char *name, const QString &control, const QByteArray &property,
                        const QString &text) {
        QTest::newRow(name) << control << property << text;
    };
    row("window", u"frmLogin"_s, "windowTitle", u"Halvane - Login"_s);
    row("user name tip", u"txtUsername"_s, "toolTip", tip);
    row("password tip", u"txtPassword"_s, "toolTip", tip);
    row("remember", u"Check1"_s, "text", u"Remember Password .."_s);
    row("login", u"cmdLogin"_s, "text", u"Login"_s);
    row("cancel", u"cmdCancel"_s, "text", u"Cancel"_s);
    row("link", u"Label1"_s, "text", u"Click this link to recover a lost User Name or Password"_s);
    row("note", u"Label2"_s, "text", u"Note: Entries are not case sensitive"_s);
    row("user name label", u"lblLabels_0"_s, "text", u"User &Name:"_s);
    row("password label", u"lblLabels_1"_s, "text", u"&Password:"_s);
    row("messages", u"Frame1"_s, "title", u"Information/Messages:"_s);
}

void tst_frmLogin::captions()
{
    QFETCH(QString, control);
    QFETCH(QByteArray, property);
    QFETCH(QString, text);
    frmLogin *login = session->OpenLogin();
    const auto *widget =
        login->objectName() == control ? login : login->findChild<QWidget *>(control);
    QVERIFY(widget);
    QCOMPARE(widget->property(property).toString(), text);
    QCOMPARE(Child<QLineEdit>(login, "txtPassword")->echoMode(), QLineEdit::Password);
}

void tst_frmLogin::theLinkFollowsTheColoursOfTheDesktop()
{
    frmLogin *login = session->OpenLogin();
    const auto *link = Child<QPushButton>(login, "Label1");
    for (const QColor &colour : {QColor(120, 170, 255), QColor(0, 0, 160)}) {
        QPalette desktop = login->palette();
        desktop.setColor(QPalette::Link, colour);
        login->setPalette(desktop);
        QCOMPARE(link->palette().color(QPalette::ButtonText), colour);
    }
}

void tst_frmLogin::staysAboveAllOtherWindows()
{
    QVERIFY(session->OpenLogin()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void tst_frmLogin::opensOnlyOnce()
{
    const frmLogin *first = session->OpenLogin();
    const frmLogin *second = session->OpenLogin();
    QCOMPARE(first, second);
    QVERIFY(frmLogin::IsLoaded());
}

void tst_frmLogin::loadedWhileAUserIsLoggedIn()
{
    Global.bLoggedIn = true;
    session->boxes.Expect(u"Login Not Allowed. There is already one user logged in: [  ]"_s,
                          u"Login Not Allowed .."_s, MsgIcon::Exclamation);
    const frmLogin *login = session->OpenLogin();
    QVERIFY(session->folder.Logged(u"Login rejected. A user is already logged in!"_s));
    QVERIFY(login->isVisible());
    QVERIFY(!mayLogIn());
    QVERIFY(!login->tmrUI->isActive());
    QCOMPARE(hidden->count(), 0);
    Click(login, "cmdCancel");
    QVERIFY(!SessionFixture::LoginWindow());
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(wanted->count(), 1);
}

void tst_frmLogin::loadedWithANetworkAddress()
{
    frmLogin::ShowForm(session->Main());
    const frmLogin *login = SessionFixture::LoginWindow();
    QVERIFY(login && login->isVisible());
    QCOMPARE(status(), u"Contacting Halvane .."_s);
    QCOMPARE(field("txtUsername"), QString());
    QCOMPARE(field("txtPassword"), QString());
    QVERIFY(!mayLogIn());
    QCOMPARE(hidden->count(), 1);
    QVERIFY(login->tmrUI->isActive());
    QCOMPARE(login->tmrUI->interval(), 250);
    QVERIFY(!login->tmrLbl->isActive());
    QCOMPARE(login->tmrLbl->interval(), 300);
}

void tst_frmLogin::networkFoundAtTheSecondLookLeavesTheFormAsDesigned()
{
    FakeSocket::Install();
    frmWinsock::Form();
    FakeSocket::Last()->localIP = u"127.0.0.1"_s;
    FakeSocket::Last()->state = SocketState::Closed;
    QTimer::singleShot(2, FakeSocket::Last(), [] { FakeSocket::Last()->localIP = u"192.0.2.1"_s; });
    const QDateTime begin = session->clock.Now();
    session->clock.Run(0.25);
    const frmLogin *login = session->OpenLogin();
    session->clock.Stop();
    QVERIFY(begin.secsTo(session->clock.Now()) >= 5);
    QVERIFY(!login->tmrUI->isActive());
    QVERIFY(mayLogIn());
    QCOMPARE(status(), u"Contacting Halvane Server .."_s);

    session->boxes.Expect(u"A Login Error was Encountered! Error Response: Halvane Server "
                          "Connection was Dropped!"_s,
                          u"Login Error .."_s, MsgIcon::Exclamation);
    Click(login, "cmdLogin");
    QVERIFY(session->folder.Logged(u"Login Returned: 954"_s));
    QCOMPARE(FakeSocket::Last()->sent, QByteArrayList());
}

void tst_frmLogin::noNetworkIsDenied()
{
    FakeSocket::Install();
    frmWinsock::Form();
    FakeSocket::Last()->localIP = u"127.0.0.1"_s;
    session->boxes.Expect(u"[ Login Not Allowed. Reason: PC Not Connected to Internet. ]"_s,
                          u"Login Denied - No Internet Connection Found .."_s,
                          MsgIcon::Exclamation);
    const QDateTime begin = session->clock.Now();
    session->clock.Run(1.0);
    const frmLogin *login = session->OpenLogin();
    QVERIFY(begin.secsTo(session->clock.Now()) >= 5);
    QCOMPARE(status(), u"No Internet Connection .."_s);
    QVERIFY(session->folder.Logged(u"Login Not Allowed. Reason: PC Not Connected to Internet."_s));
    QVERIFY(login->isVisible());
    QVERIFY(!login->tmrUI->isActive());
}

void tst_frmLogin::timerOfTheConnectRunsOnce()
{
    const frmLogin *login = session->OpenLoginToTheEnd();
    QVERIFY(login);
    QVERIFY(!login->tmrUI->isActive());
    QCOMPARE(hidden->count(), 2);
    QCOMPARE(FakeCourt::Current().connectedTo, QStringList{u"router1.halvane.example:80"_s});
    QCOMPARE(status(), u"Enter User Name and Password to Continue .."_s);
    QCOMPARE(Global.bCheckingServer, false);
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(session->clock.Sleeps(), QList<int>{100});
}

void tst_frmLogin::blinkingEndsAfterThreeRoundsWithTheStatusShown()
{
    const frmLogin *login = session->OpenLoginToTheEnd();
    int ticks = 0;
    connect(login->tmrLbl, &QTimer::timeout, this, [&ticks] { ++ticks; });
    login->tmrLbl->start(1);
    QTRY_VERIFY(!login->tmrLbl->isActive());
    QCOMPARE(ticks, 6);
    QVERIFY(Child<QLabel>(login, "lblStatus")->isVisible());
}

void tst_frmLogin::remembered_data()
{
    QTest::addColumn<QString>("flag");
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<QString>("password");
    QTest::newRow("1") << u"1"_s << true << u"Se cret\u00E9"_s;
    QTest::newRow("-1") << u"-1"_s << true << u"Se cret\u00E9"_s;
    QTest::newRow("a word") << u"yes"_s << true << u"Se cret\u00E9"_s;
    QTest::newRow("0") << u"0"_s << false << QString();
}

void tst_frmLogin::remembered()
{
    QFETCH(QString, flag);
    QFETCH(bool, ticked);
    QFETCH(QString, password);
    remember(flag, u"Us er"_s, u"Se cret\u00E9"_s);
    FakeCourt::Current().replies = {"|EOF~|"};
    const frmLogin *login = session->OpenLoginToTheEnd();
    QVERIFY(login);
    QCOMPARE(Child<QCheckBox>(login, "Check1")->isChecked(), ticked);
    QCOMPARE(field("txtUsername"), u"Us er"_s);
    QCOMPARE(field("txtPassword"), password);
    QCOMPARE(FakeCourt::Current().requests.size(), ticked ? 1 : 0);
}

void tst_frmLogin::rememberedPasswordSendsForMessagesBeforeTheUserDoesAnything()
{
    remember(u"1"_s, u"User"_s, u"Pass"_s);
    FakeCourt::Current().replies = {"|EOF~|"};
    QVERIFY(session->OpenLoginToTheEnd());
    QCOMPARE(FakeCourt::Current().requests, QByteArrayList{"|GET_PRIV_MSG\xA6User\xA6Pass\xA6"
                                                           "AppVer-9.00\xA6|"});
}

void tst_frmLogin::oneEmptyFieldSendsNothing_data()
{
    QTest::addColumn<QString>("userName");
    QTest::addColumn<QString>("password");
    QTest::newRow("neither") << QString() << QString();
    QTest::newRow("no password") << u"User"_s << QString();
    QTest::newRow("no user name") << QString() << u"Pass"_s;
}

void tst_frmLogin::oneEmptyFieldSendsNothing()
{
    QFETCH(QString, userName);
    QFETCH(QString, password);
    remember(u"1"_s, userName, password);
    const frmLogin *login = session->OpenLoginToTheEnd();
    QVERIFY(login);
    QCOMPARE(FakeCourt::Current().requests, QByteArrayList());
    QCOMPARE(Session.strPrivateMsgs, u"No messages found."_s);
    QCOMPARE(Child<QPlainTextEdit>(login, "txtMsg")->toPlainText(), u"No messages found."_s);
    QVERIFY(!Child<QGroupBox>(login, "Frame1")->isVisible());
}

void tst_frmLogin::privateMessages_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("inView");
    const QString none = u"No messages found."_s;
    QTest::newRow("a message") << QByteArray("|Call us||EOF~|") << u"Call us"_s << true;
    QTest::newRow("markup is text")
        << QByteArray("|<b>Call</b> &amp; us||EOF~|") << u"<b>Call</b> &amp; us"_s << true;
    QTest::newRow("none") << QByteArray("|EOF~|") << none << false;
    QTest::newRow("the words for none")
        << QByteArray("|No messages found.||EOF~|") << none << false;
    QTest::newRow("a refusal brings an empty box into view")
        << QByteArray("|ERROR~||EOF~|") << QString() << true;
}

void tst_frmLogin::privateMessages()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, text);
    QFETCH(bool, inView);
    remember(u"1"_s, u"User"_s, u"Pass"_s);
    FakeCourt::Current().replies = {reply};
    const frmLogin *login = session->OpenLoginToTheEnd();
    QVERIFY(login);
    QCOMPARE(Child<QPlainTextEdit>(login, "txtMsg")->toPlainText(), text);
    QCOMPARE(Session.strPrivateMsgs, text);
    QCOMPARE(Child<QGroupBox>(login, "Frame1")->isVisible(), inView);
    QCOMPARE(login->height() == PixelsFromTwips(5370), inView);
}

void tst_frmLogin::whatARefusedMessageLeavesIsNoAnswerToTheLogin()
{
    remember(u"1"_s, u"User"_s, u"Wrong"_s);
    // The exchange of the messages ends at the error; the end mark behind it is not read.
    FakeCourt::Current().replies = {"|ERROR~Invalid User Name and/or PW~||EOF~|",
                                    "|ERROR~Invalid User Name and/or PW~||EOF~|"};
    const frmLogin *login = session->OpenLoginToTheEnd();
    QVERIFY(login);
    session->boxes.Expect(
        u"Either the User Name and/or Password you entered is Invalid!\r\n\r\nPlease Re-Enter Your "
        "User Name and Password and then select Login."_s,
        u"Invalid User Name or Password .."_s, MsgIcon::Exclamation);
    Click(login, "cmdLogin");
    QCOMPARE(Global.bLoggedIn, false);
    QVERIFY(SessionFixture::LoginWindow());
    QCOMPARE(status(), u"Invalid Login - Try Again"_s);
}

void tst_frmLogin::everyStatusIsPainted()
{
    frmLogin *login = session->OpenLogin();
    QVERIFY(QTest::qWaitForWindowExposed(login));
    Settle();
    PaintWatch watch(Child<QLabel>(login, "lblStatus"));
    login->ShowLoginStatus(u" first "_s);
    login->ShowLoginStatus(u"second"_s);
    QCOMPARE(watch.texts, (QStringList{u"first"_s, u"second"_s}));
}

void tst_frmLogin::theKeyboardGoesWhereAnEntryIsMissing_data()
{
    QTest::addColumn<QString>("userName");
    QTest::addColumn<QString>("field");
    QTest::newRow("nothing is remembered") << QString() << u"txtUsername"_s;
    QTest::newRow("the name is remembered") << u"User"_s << u"txtPassword"_s;
}

void tst_frmLogin::theKeyboardGoesWhereAnEntryIsMissing()
{
    QFETCH(QString, userName);
    QFETCH(QString, field);
    remember(u"0"_s, userName, QString());
    const frmLogin *login = session->OpenLogin();
    QVERIFY(!qobject_cast<QLineEdit *>(login->focusWidget()));
    QVERIFY(WaitUntil([this] { return mayLogIn(); }));
    QCOMPARE(login->focusWidget()->objectName(), field);
}

void tst_frmLogin::whoIsInAFieldStaysThere_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("user name") << u"txtUsername"_s;
    QTest::newRow("password") << u"txtPassword"_s;
}

void tst_frmLogin::whoIsInAFieldStaysThere()
{
    QFETCH(QString, field);
    // The other field is the one that wants an entry.
    remember(u"0"_s, field == u"txtUsername" ? u"User"_s : QString(), QString());
    const frmLogin *login = session->OpenLogin();
    QTest::mouseClick(login->findChild<QLineEdit *>(field), Qt::LeftButton);
    QVERIFY(WaitUntil([this] { return mayLogIn(); }));
    QCOMPARE(login->focusWidget()->objectName(), field);
}

void tst_frmLogin::statusWhileMessagesAreFetched()
{
    remember(u"1"_s, u"User"_s, u"Pass"_s);
    FakeCourt::Current().replies = {"|EOF~|"};
    QString shown;
    bool checking = false;
    bool hourglass = false;
    FakeCourt::Current().onRequest = [&] {
        shown = status();
        checking = Global.bCheckingServer;
        hourglass = QApplication::overrideCursor() != nullptr;
    };
    QVERIFY(session->OpenLoginToTheEnd());
    FakeCourt::Current().onRequest = {};
    QCOMPARE(shown, u"Please Wait. Retrieving Important Private Message(s) .."_s);
    QVERIFY(checking);
    QVERIFY(hourglass);
}

void tst_frmLogin::addressesAreTriedInOrderAndTheFailureIsReported()
{
    FakeCourt::Current().refuses = true;
    session->boxes.Expect(u"Cannot Connect to Halvane Server at this time."_s,
                          u"Contacting Halvane Server .."_s, MsgIcon::Exclamation);
    const frmLogin *login = session->OpenLogin();
    QTRY_COMPARE(status(), u"Server Not Available .."_s);
    QVERIFY(Child<QPushButton>(SessionFixture::LoginWindow(), "cmdConnectAgain")->isVisible());
    QStringList expected;
    const QStringList ports{u"80"_s, u"85"_s, u"85"_s, u"80"_s, u"80"_s,
                            u"85"_s, u"85"_s, u"80"_s, u"80"_s, u"85"_s};
    for (int i = 0; i < 10; ++i)
        expected.append(u"router%1.halvane.example:"_s.arg(i / 2 + 1) + ports[i]);
    QCOMPARE(FakeCourt::Current().connectedTo, expected);
    QVERIFY(login->isVisible());
    QVERIFY(!mayLogIn());
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(session->folder.TimesLogged(u"Router is not running"_s), 10);
}

void tst_frmLogin::serverThatNeverAnswersTheConnectIsReported()
{
    FakeCourt::Current().connects = false;
    session->boxes.Expect(u"Cannot Connect to Halvane Server at this time."_s,
                          u"Contacting Halvane Server .."_s, MsgIcon::Exclamation);
    session->clock.Run(1.0);
    session->OpenLogin();
    QTRY_COMPARE(status(), u"Server Not Available .."_s);
    QCOMPARE(FakeCourt::Current().connectedTo.size(), 10);
    QCOMPARE(session->folder.TimesLogged(u"Error connecting to router"_s), 10);
}

void tst_frmLogin::connectedAlreadyGoesOnWithoutAConnect()
{
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    QVERIFY(session->OpenLoginToTheEnd());
    QCOMPARE(FakeCourt::Current().connectedTo, QStringList());
    QCOMPARE(status(), u"Enter User Name and Password to Continue .."_s);
}

void tst_frmLogin::enterDoesNothingBeforeTheServerIsReached()
{
    FakeCourt::Current().connects = false;
    const QPointer<frmLogin> login(session->OpenLogin());
    QTimer::singleShot(10, this, [&] {
        QTest::keyClick(Child<QLineEdit>(login, "txtPassword"), Qt::Key_Return);
        QTest::keyClick(Child<QLineEdit>(login, "txtPassword"), Qt::Key_Escape);
    });
    QTRY_VERIFY(!login);
    QCOMPARE(FakeCourt::Current().connectedTo.size(), 1);
    QCOMPARE(FakeCourt::Current().requests, QByteArrayList());
    QCOMPARE(Global.bLoginBusy, false);
}

void tst_frmLogin::lostPasswordLinkOpensTheSupportPage()
{
    Browser browser;
    Click(session->OpenLoginToTheEnd(), "Label1");
    QCOMPARE(browser.opened, QList<QUrl>{QUrl(SupportPage())});
    QCOMPARE(browser.opened.first().path(), u"/support.htm"_s);
}

HALVANE_TEST(tst_frmLogin)
#include "tst_frmLogin.moc"
