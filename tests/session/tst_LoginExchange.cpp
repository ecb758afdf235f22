#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "link/frmWinsock.h"
#include "session/LoginExchange.h"
#include "session/SessionState.h"
#include "support/HalvaneTest.h"

#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
const QString started = u"******** Client Login: Started ********"_s;
const QString request = u"SendReq: LOGON¦User¦Pass¦AppVer-9.00¦"_s;
const QString sentFine = u"Sent login request to Halvane. Result: 0"_s;
const QString readFine = u"read response reply: 0"_s;
const QString readLost = u"read response reply: 1"_s;
const QString gotAnError =
    u"Got an Error in Login! The Result Code was: Invalid User Name or Password."_s;
const QString refusal = u"Login Failed Due to Invalid User Name and/or Password!"_s;
const QString noResponse = u"Server Timeout - No Response From Server!"_s;
constexpr double loginLimit = 14.0;
} // namespace

class tst_LoginExchange : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { session.reset(); }

    void outcomes_data();
    void outcomes();
    void logLines_data();
    void logLines();
    void credentialsAreTrimmedAndOtherwiseSentAsTyped_data();
    void credentialsAreTrimmedAndOtherwiseSentAsTyped();
    void logHoldsThePassword();
    void progressIsShown();
    void errorWithoutAnEndTimesOutAs922();
    void silenceEndsAfterFourteenSecondsWhateverTheSettings();
    void eachTokenStartsTheLimitAnew();
    void sendThatDoesNotLeaveStillWaitsForTheReply();
    void sendBehindABusyOneStillWaitsForTheReply();
    void unconnectedSocketGives954WithoutWaiting();
    void linkLostWhileWaitingGives922();
    void socketThatCannotBeClosedGives954();
    void loginIsBusyWhileItWaits();
    void failureTakesAnEarlierLoginBack_data();
    void failureTakesAnEarlierLoginBack();

private:
    SessionResult login(const QString &userName = u"User"_s, const QString &password = u"Pass"_s)
    {
        return Login(userName, password, u"AppVer-9.00"_s,
                     [this](const QString &text) { shown.append(text); });
    }
    /// What comes when the request has gone out.
    void reply(const QByteArray &bytes) { FakeSocket::Last()->Answer(bytes); }
    /// What comes now.
    void arrive(const QByteArray &bytes) { FakeSocket::Last()->Arrive(bytes); }

    std::unique_ptr<SessionFixture> session;
    QStringList shown;
};

void tst_LoginExchange::init()
{
    session = std::make_unique<SessionFixture>();
    shown.clear();
    FakeSocket::Install();
    frmWinsock::Form();
}

void tst_LoginExchange::outcomes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("code");
    QTest::newRow("an end alone is a success") << QByteArray("|EOF~|") << 901;
    QTest::newRow("EOF without its tilde ends it too") << QByteArray("|EOF|") << 901;
    QTest::newRow("EOF with anything behind it") << QByteArray("|EOFX~|") << 901;
    QTest::newRow("other tokens are passed over") << QByteArray("|WELCOME~||901||EOF~|") << 901;
    QTest::newRow("an error") << QByteArray("|ERROR~Invalid User Name and/or PW~||EOF~|") << 904;
    QTest::newRow("the word alone") << QByteArray("|ERROR||EOF~|") << 904;
    QTest::newRow("the sentence alone") << QByteArray("|Invalid User Name and/or PW||EOF~|") << 904;
    QTest::newRow("the sentence in another case")
        << QByteArray("|invalid user name and/or pw||EOF~|") << 901;
    QTest::newRow("the sentence with more behind it")
        << QByteArray("|Invalid User Name and/or PW~||EOF~|") << 901;
    QTest::newRow("the word in lower case") << QByteArray("|error~||EOF~|") << 901;
    QTest::newRow("the word in the middle") << QByteArray("|NO ERROR~||EOF~|") << 901;
    QTest::newRow("an error among other tokens") << QByteArray("|A~||ERROR~||B~||EOF~|") << 904;
    QTest::newRow("two errors") << QByteArray("|ERROR~||ERROR~||EOF~|") << 904;
    QTest::newRow("an end within a token is no end") << QByteArray("|A~EOF~||ERROR~||EOF~|") << 904;
}

void tst_LoginExchange::outcomes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, code);
    reply(bytes);
    QCOMPARE(int(Number(login())), code);
    QCOMPARE(Global.bLoggedIn, code == 901);
    QCOMPARE(Global.bLoginBusy, false);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_LoginExchange::logLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("accepted") << QByteArray(
        "|EOF~|") << QStringList{started, request, sentFine, readFine, u"Login Successful"_s};
    QTest::newRow("refused") << QByteArray("|ERROR~||EOF~|")
                             << QStringList{started,    request,  sentFine, readFine,
                                            gotAnError, readFine, refusal};
    QTest::newRow("no reply") << QByteArray()
                              << QStringList{started, request, sentFine, readLost, noResponse};
    QTest::newRow("an error and no end")
        << QByteArray("|ERROR~|")
        << QStringList{started, request, sentFine, readFine, gotAnError, readLost, noResponse};
}

void tst_LoginExchange::logLines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, lines);
    session->clock.Run(1.0);
    reply(bytes);
    login();
    QCOMPARE(session->folder.Log(), lines);
}

void tst_LoginExchange::credentialsAreTrimmedAndOtherwiseSentAsTyped_data()
{
    QTest::addColumn<QString>("userName");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("as they are") << u"User"_s << u"Pass"_s
                                 << QByteArray("|LOGON\xA6User\xA6Pass\xA6"
                                               "AppVer-9.00\xA6|");
    QTest::newRow("blanks around") << u"  User "_s << u" Pass  "_s
                                   << QByteArray("|LOGON\xA6User\xA6Pass\xA6"
                                                 "AppVer-9.00\xA6|");
    QTest::newRow("blanks within") << u"A User"_s << u"a pass"_s
                                   << QByteArray("|LOGON\xA6"
                                                 "A User\xA6"
                                                 "a pass\xA6"
                                                 "AppVer-9.00\xA6|");
    QTest::newRow("mixed case") << u"uSeR"_s << u"pAsS"_s
                                << QByteArray("|LOGON\xA6uSeR\xA6pAsS\xA6"
                                              "AppVer-9.00\xA6|");
    QTest::newRow("empty") << QString() << QString()
                           << QByteArray("|LOGON\xA6\xA6\xA6"
                                         "AppVer-9.00\xA6|");
    QTest::newRow("beyond ASCII") << u"Jos\u00E9"_s << u"\u20AC5"_s
                                  << QByteArray("|LOGON\xA6Jos\xE9\xA6\x80"
                                                "5\xA6"
                                                "AppVer-9.00\xA6|");
    QTest::newRow("beyond the code page") << u"\u0416"_s << u"p"_s
                                          << QByteArray("|LOGON\xA6?\xA6p\xA6"
                                                        "AppVer-9.00\xA6|");
}

void tst_LoginExchange::credentialsAreTrimmedAndOtherwiseSentAsTyped()
{
    QFETCH(QString, userName);
    QFETCH(QString, password);
    QFETCH(QByteArray, frame);
    reply("|EOF~|");
    QCOMPARE(login(userName, password), SessionResult::LoggedIn);
    QCOMPARE(FakeSocket::Last()->sent, QByteArrayList{frame});
    QCOMPARE(Session.strUserName, userName.trimmed());
    QCOMPARE(Session.strUserPassword, password.trimmed());
}

void tst_LoginExchange::logHoldsThePassword()
{
    reply("|EOF~|");
    login(u"User"_s, u"MyOwnSecret"_s);
    QVERIFY(session->folder.Logged(u"SendReq: LOGON¦User¦MyOwnSecret¦AppVer-9.00¦"_s));
}

void tst_LoginExchange::progressIsShown()
{
    reply("|EOF~|");
    login();
    QCOMPARE(shown, QStringList{u"Logging On .."_s});
}

void tst_LoginExchange::errorWithoutAnEndTimesOutAs922()
{
    session->clock.Run(1.0);
    reply("|ERROR~|");
    QCOMPARE(login(), SessionResult::NoReply);
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Global.bLoginBusy, false);
}

void tst_LoginExchange::silenceEndsAfterFourteenSecondsWhateverTheSettings()
{
    Global.intSearchTimeout = 5;
    const QDateTime begin = session->clock.Now();
    session->clock.Run(1.0);
    QCOMPARE(login(), SessionResult::NoReply);
    const auto waited = static_cast<double>(begin.msecsTo(session->clock.Now())) / 1000.0;
    QVERIFY2(waited >= loginLimit && waited < loginLimit + 2.0,
             qPrintable(QString::number(waited)));
}

void tst_LoginExchange::eachTokenStartsTheLimitAnew()
{
    for (const int turn : {10, 20, 30})
        QTimer::singleShot(turn, FakeSocket::Last(), [this] { arrive("|please wait|"); });
    QTimer::singleShot(35, FakeSocket::Last(), [this] { arrive("|EOF~|"); });
    session->clock.Run(0.5);
    QCOMPARE(login(), SessionResult::LoggedIn);
}

void tst_LoginExchange::sendThatDoesNotLeaveStillWaitsForTheReply()
{
    FakeSocket::Last()->completesSends = false;
    session->clock.Run(1.0);
    reply("|EOF~|");
    QCOMPARE(login(), SessionResult::LoggedIn);
    QVERIFY(session->folder.Logged(u"Sent login request to Halvane. Result: 1"_s));
    QCOMPARE(FakeSocket::Last()->sent.size(), 1);
}

void tst_LoginExchange::sendBehindABusyOneStillWaitsForTheReply()
{
    Global.bSendBusy = true;
    session->clock.Run(1.0);
    // Nothing goes out, so what comes is no answer; it is waited for all the same.
    QTimer::singleShot(1, FakeSocket::Last(), [this] { arrive("|EOF~|"); });
    QCOMPARE(login(), SessionResult::LoggedIn);
    QVERIFY(session->folder.Logged(u"Sent login request to Halvane. Result: 2"_s));
    QCOMPARE(FakeSocket::Last()->sent, QByteArrayList());
}

void tst_LoginExchange::unconnectedSocketGives954WithoutWaiting()
{
    FakeSocket::Last()->state = SocketState::Closing;
    QCOMPARE(login(), SessionResult::ConnectionLost);
    QCOMPARE(session->folder.Log(),
             (QStringList{started, request, u"Cannot Contact Server to Login."_s}));
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Global.bLoginBusy, false);
}

void tst_LoginExchange::linkLostWhileWaitingGives922()
{
    QTimer::singleShot(3, FakeSocket::Last(), [] { FakeSocket::Last()->PeerCloses(); });
    QCOMPARE(login(), SessionResult::NoReply);
    QVERIFY(session->folder.Logged(
        u"Connection Lost While Waiting for Response. Exiting Process ReadResponse()"_s));
    QVERIFY(session->folder.Logged(noResponse));
}

void tst_LoginExchange::socketThatCannotBeClosedGives954()
{
    frmWinsock::Unload();
    FakeSocket::Install([](FakeSocket *socket) {
        socket->state = SocketState::Closing;
        socket->connectedAnswers = 3;
        socket->closes = false;
    });
    frmWinsock::Form();
    QCOMPARE(login(), SessionResult::ConnectionLost);
    QCOMPARE(session->folder.Log(),
             (QStringList{started, request, sentFine, u"read response reply: -1"_s,
                          u"Lost connection to server"_s}));
    QCOMPARE(Global.bLoggedIn, false);
    QCOMPARE(Global.bLoginBusy, false);
}

void tst_LoginExchange::loginIsBusyWhileItWaits()
{
    QList<bool> busy;
    // Each reply waits until the one before it, or the request, is through, or has had its time.
    QTimer look;
    int rounds = 0;
    connect(&look, &QTimer::timeout, FakeSocket::Last(), [&] {
        if (!Global.bLoginBusy && ++rounds < 200)
            return;
        rounds = 0;
        busy.append(std::exchange(Global.bLoginBusy, false));
        arrive(busy.size() == 1 ? "|A~|" : "|EOF~|");
        if (busy.size() == 2)
            look.stop();
    });
    look.start(1);
    QCOMPARE(login(), SessionResult::LoggedIn);
    QCOMPARE(busy, (QList<bool>{true, true}));
}

void tst_LoginExchange::failureTakesAnEarlierLoginBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("refused") << QByteArray("|ERROR~||EOF~|");
    QTest::newRow("no reply") << QByteArray();
}

void tst_LoginExchange::failureTakesAnEarlierLoginBack()
{
    QFETCH(QByteArray, bytes);
    Global.bLoggedIn = true;
    session->clock.Run(1.0);
    reply(bytes);
    login();
    QCOMPARE(Global.bLoggedIn, false);
}

HALVANE_TEST(tst_LoginExchange)
#include "tst_LoginExchange.moc"
