#include "SessionFixture.h"

#include "core/GlobalState.h"
#include "core/Options.h"
#include "link/frmWinsock.h"
#include "session/ServerExchanges.h"
#include "session/SessionState.h"
#include "support/HalvaneTest.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype longestMessage = 1'000'000;
constexpr qint16 overflowingMinutes = 547;

/// One of the exchanges, as the tables below ask for it: its text answer, or how it went.
struct Asked
{
    QString request;
    QStringList statusLines;
    QString readLine;  ///< logged for each reply, followed by its status
    QString sentLine;  ///< logged for the request, followed by its status; "" for none
    QString timedOut;  ///< logged on silence and on a lost link
    QString notClosed; ///< logged when the socket cannot be closed to idle
    QString failure;   ///< the answer without a reply
    double limit = 0;  ///< seconds
    QString trap;
    std::function<QString(const ShowStatus &)> run;
};

const QHash<QString, Asked> &exchanges()
{
    static const QHash<QString, Asked> all{
        {u"parameters"_s,
         {u"GETINIVAL¦"_s,
          {u"Please Wait.. Retrieving Important System Update(s) From Server .."_s},
          u"Read INI file change request from HV Server. Reply was: "_s,
          u"Sent GetIniVal request and result was: "_s,
          u"Server Timeout - No Response From Server during GetINIval retrieval!!"_s,
          u"Lost connection to server during retrieval of System INI settings"_s,
          u"failed"_s,
          12,
          u"Error While Retrieving System Params"_s,
          [](const ShowStatus &show) { return GetIniValues(show) ? u"done"_s : u"failed"_s; }}},
        {u"system message"_s,
         {u"GETMSG¦"_s,
          {u"Please Wait.. Retrieving Important System Message(s) From Server .."_s},
          u"Read message broadcast from HV Server. Reply was: "_s,
          u"Sent Message request and result was: "_s,
          u"Server Timeout - No Response From Server during system message retrieval!!"_s,
          u"Lost connection to server"_s,
          QString(),
          12,
          u"Error While Retrieving the System Message"_s,
          [](const ShowStatus &show) { return GetSystemMessage(show); }}},
        {u"private message"_s,
         {u"GET_PRIV_MSG¦User¦Pass¦AppVer-9.00¦"_s,
          {u"Please Wait. Retrieving Important Private Message(s) .."_s},
          u"Read private message broadcast from HV Server. Reply was: "_s,
          u"Sent Private Message request and result was: "_s,
          u"No Response From Server during system message retrieval! Skipping."_s,
          u"No Response From Server during system message retrieval! Skipping."_s,
          u"No messages found."_s,
          10,
          u"Error *** in GetPrivateMessage()::While Retrieving Private Messages"_s,
          [](const ShowStatus &show) {
              return GetPrivateMessage(u"User"_s, u"Pass"_s, u"AppVer-9.00"_s, show);
          }}},
        {u"court status"_s,
         {u"COURT_STATUS¦"_s,
          {u"Checking Court Availability.."_s, u"Checking Court Availability Complete .."_s},
          u"Read Court Availability from HV Server. Reply was: "_s,
          u"Requesting Court Availability From Server and Result is: "_s,
          u"Server Timeout - No Response From Server during court availability retrieval!!"_s,
          u"Lost connection to server during court availability retrieval!!"_s,
          u"Alert! Unable to Connect to Halvane at this time. Please try again later."_s,
          10,
          u"Error While Retrieving the Court Availability Status. The Application will attempt to "
          "continue."_s,
          [](const ShowStatus &show) { return GetCourtStatus(show); }}},
        {u"accounting option"_s,
         {u"GETCLIENTACCTGOPT~"_s,
          {},
          u"Read Client Accounting Option from HV Server. Reply was: "_s,
          QString(),
          u"Server Timeout - No Response From Server during GETCLIENTACCTGOPT retrieval!!"_s,
          u"Lost connection to server during retrieval of GETCLIENTACCTGOPT settings"_s,
          u"True"_s,
          14,
          u"Error While Retrieving the Client Accounting Option"_s,
          [](const ShowStatus &) {
              GetClientAcctgOption();
              return Global.bClientAcctgOpt ? u"True"_s : u"False"_s;
          }}},
    };
    return all;
}

void addExchanges()
{
    QTest::addColumn<QString>("exchange");
    for (auto it = exchanges().begin(); it != exchanges().end(); ++it)
        QTest::newRow(qPrintable(it.key())) << it.key();
}

/// The flags with which the login window calls each of them.
void raiseFlags(const QString &exchange)
{
    Global.bClientAcctgOpt = true;
    Global.bCheckingServer = exchange == u"private message";
    Global.bLoginBusy = !Global.bCheckingServer && exchange != u"court status";
}
} // namespace

class tst_ServerExchanges : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { session.reset(); }

    void requestGoesOutByteForByteAndIsLogged_data() { addExchanges(); }
    void requestGoesOutByteForByteAndIsLogged();
    void progressIsShown_data() { addExchanges(); }
    void progressIsShown();
    void silenceEndsAtTheLimitOfTheExchange_data() { addExchanges(); }
    void silenceEndsAtTheLimitOfTheExchange();
    void lostLinkEndsTheExchange_data() { addExchanges(); }
    void lostLinkEndsTheExchange();
    void linkLostWhileWaitingEndsTheExchange_data() { addExchanges(); }
    void linkLostWhileWaitingEndsTheExchange();
    void socketThatCannotBeClosedEndsTheExchange_data() { addExchanges(); }
    void socketThatCannotBeClosedEndsTheExchange();
    void runTimeErrorIsTrapped_data() { addExchanges(); }
    void runTimeErrorIsTrapped();

    void parameterLines_data();
    void parameterLines();
    void secondEosWritesTheSameLineAgain();
    void lineWithTooFewPartsEndsTheRetrieval();
    void valuesInForceStayUntilTheNextStart();
    void parameterOutcomes();

    void systemMessages_data();
    void systemMessages();
    void systemMessageForgetsTheOneBefore();
    void systemMessageBeyondTheLongestIsCut();
    void timedOutSystemMessageLeavesNothing();

    void privateMessages_data();
    void privateMessages();
    void errorEndsPrivateMessagesBeforeTheStatusIsLogged();
    void privateMessageBeyondTheLongestIsCut();

    void courtStatus_data();
    void courtStatus();
    void courtStatusTakesItsFlagBack();

    void accountingOption_data();
    void accountingOption();
    void endBehindTheAccountingOptionStaysInTheBuffer();

private:
    /// What comes when the request has gone out.
    void reply(const QByteArray &bytes) { FakeSocket::Last()->Answer(bytes); }
    /// What comes now.
    void arrive(const QByteArray &bytes) { FakeSocket::Last()->Arrive(bytes); }
    QString run(const QString &exchange)
    {
        return exchanges()[exchange].run([this](const QString &text) { shown.append(text); });
    }

    std::unique_ptr<SessionFixture> session;
    QStringList shown;
};

void tst_ServerExchanges::init()
{
    session = std::make_unique<SessionFixture>();
    shown.clear();
    FakeSocket::Install();
    frmWinsock::Form();
}

void tst_ServerExchanges::requestGoesOutByteForByteAndIsLogged()
{
    QFETCH(QString, exchange);
    const Asked asked = exchanges()[exchange];
    reply("|EOF~|");
    run(exchange);
    QCOMPARE(FakeSocket::Last()->sent, QByteArrayList{'|' + asked.request.toLatin1() + '|'});
    QVERIFY(session->folder.Logged(u"SendReq: "_s + asked.request));
    if (!asked.sentLine.isEmpty())
        QVERIFY(session->folder.Logged(asked.sentLine + u'0'));
    QCOMPARE(session->folder.TimesLogged(asked.readLine + u'0'), 1);
}

void tst_ServerExchanges::progressIsShown()
{
    QFETCH(QString, exchange);
    reply("|EOF~|");
    run(exchange);
    QCOMPARE(shown, exchanges()[exchange].statusLines);
}

void tst_ServerExchanges::silenceEndsAtTheLimitOfTheExchange()
{
    QFETCH(QString, exchange);
    const Asked asked = exchanges()[exchange];
    Global.intSearchTimeout = 5;
    raiseFlags(exchange);
    const QDateTime begin = session->clock.Now();
    session->clock.Run(1.0);
    QCOMPARE(run(exchange), asked.failure);
    const double waited = static_cast<double>(begin.msecsTo(session->clock.Now())) / 1000.0;
    QVERIFY2(waited >= asked.limit && waited < asked.limit + 2.0,
             qPrintable(QString::number(waited)));
    QVERIFY(session->folder.Logged(asked.readLine + u'1'));
    QCOMPARE(session->folder.Log().filter(asked.timedOut).size(), 1);
}

void tst_ServerExchanges::lostLinkEndsTheExchange()
{
    QFETCH(QString, exchange);
    const Asked asked = exchanges()[exchange];
    raiseFlags(exchange);
    FakeSocket::Last()->state = SocketState::Closing;
    QCOMPARE(run(exchange), asked.failure);
    QCOMPARE(FakeSocket::Last()->sent, QByteArrayList());
    if (!asked.sentLine.isEmpty())
        QVERIFY(session->folder.Logged(asked.sentLine + u"-1"_s));
    QVERIFY(session->folder.Logged(
        u"Connection Lost While Waiting for Response. Exiting Process ReadResponse()"_s));
    QVERIFY(session->folder.Logged(asked.readLine + u'1'));
    QVERIFY(session->folder.Logged(asked.timedOut));
}

void tst_ServerExchanges::linkLostWhileWaitingEndsTheExchange()
{
    QFETCH(QString, exchange);
    const Asked asked = exchanges()[exchange];
    raiseFlags(exchange);
    QTimer::singleShot(5, FakeSocket::Last(), [] { FakeSocket::Last()->PeerCloses(); });
    QCOMPARE(run(exchange), asked.failure);
    QCOMPARE(FakeSocket::Last()->sent.size(), 1);
    QVERIFY(session->folder.Logged(u"Client Connection was Closed"_s));
    QVERIFY(session->folder.Logged(asked.timedOut));
}

void tst_ServerExchanges::socketThatCannotBeClosedEndsTheExchange()
{
    QFETCH(QString, exchange);
    const Asked asked = exchanges()[exchange];
    raiseFlags(exchange);
    frmWinsock::Unload();
    FakeSocket::Install([](FakeSocket *socket) {
        socket->state = SocketState::Closing;
        socket->connectedAnswers = 3;
        socket->closes = false;
    });
    frmWinsock::Form();
    QCOMPARE(run(exchange), asked.failure);
    QVERIFY(session->folder.Logged(asked.readLine + u"-1"_s));
    QCOMPARE(session->folder.TimesLogged(asked.notClosed), 1);
    if (asked.timedOut != asked.notClosed)
        QVERIFY(!session->folder.Logged(asked.timedOut));
    QCOMPARE(session->clock.Sleeps(), QList<int>{1000});
}

void tst_ServerExchanges::runTimeErrorIsTrapped()
{
    QFETCH(QString, exchange);
    const Asked asked = exchanges()[exchange];
    Global.bClientAcctgOpt = true;
    Global.intSearchTimeout = overflowingMinutes; // in seconds beyond 16 bits
    const QString answer = run(exchange);
    QCOMPARE(session->folder.TimesLogged(asked.trap), 1);
    QCOMPARE(session->folder.Log().filter(asked.readLine), QStringList());
    if (exchange == u"parameters")
        QCOMPARE(answer, u"failed"_s);
    else if (exchange == u"accounting option")
        QCOMPARE(answer, u"True"_s);
    else
        QCOMPARE(answer, QString());
}

void tst_ServerExchanges::parameterLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    const QString searching = u"Searching"_s;
    const QString most = u"MaxIndexResults"_s;
    QTest::newRow("one line") << QByteArray("|Searching=MaxIndexResults=300||EOS~||EOF~|")
                              << searching << most << u"300"_s;
    QTest::newRow("blanks around the parts")
        << QByteArray("|  Searching =  MaxIndexResults = 300  ||EOS~||EOF~|") << searching << most
        << u"300"_s;
    QTest::newRow("the first three parts")
        << QByteArray("|Searching=MaxIndexResults=300=400||EOS~||EOF~|") << searching << most
        << u"300"_s;
    QTest::newRow("the last line before the end of the line")
        << QByteArray("|Searching=MaxIndexResults=100||Searching=MaxIndexResults=300||EOS~||EOF~|")
        << searching << most << u"300"_s;
    QTest::newRow("no end of the line")
        << QByteArray("|Searching=MaxIndexResults=300||EOF~|") << searching << most << u"500"_s;
    QTest::newRow("end of the line with more behind it")
        << QByteArray("|Searching=MaxIndexResults=300||EOS~x||EOF~x|") << searching << most
        << u"300"_s;
    QTest::newRow("a line of four characters is skipped")
        << QByteArray("|A=B=||EOS~||EOF~|") << u"A"_s << u"B"_s << u"0"_s;
    QTest::newRow("a line of four characters and blanks is skipped")
        << QByteArray("|  A=B=  ||EOS~||EOF~|") << u"A"_s << u"B"_s << u"0"_s;
    QTest::newRow("a line of five characters")
        << QByteArray("|A=B=C||EOS~||EOF~|") << u"A"_s << u"B"_s << u"C"_s;
    QTest::newRow("an end of the line alone")
        << QByteArray("|EOS~||EOF~|") << searching << most << u"500"_s;
    QTest::newRow("an address of the server")
        << QByteArray("|Communications=HVServerIP1=10.0.0.1||EOS~||EOF~|") << u"Communications"_s
        << u"HVServerIP1"_s << u"10.0.0.1"_s;
    QTest::newRow("two lines") << QByteArray("|Searching=SearchTimeout=4||EOS~|"
                                             "|Searching=MaxIndexResults=300||EOS~||EOF~|")
                               << searching << most << u"300"_s;
    QTest::newRow("a section of its own")
        << QByteArray("|New=Key=a \xE9 b||EOS~||EOF~|") << u"New"_s << u"Key"_s << u"a é b"_s;
}

void tst_ServerExchanges::parameterLines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, value);
    reply(bytes);
    QCOMPARE(run(u"parameters"_s), u"done"_s);
    QCOMPARE(GetOptionStr(section, key), value);
    QCOMPARE(Global.bGettingParams, false);
}

void tst_ServerExchanges::secondEosWritesTheSameLineAgain()
{
    reply("|Searching=MaxIndexResults=300||EOS~|");
    QString between;
    QTimer::singleShot(5, FakeSocket::Last(), [&] {
        between = GetOptionStr(u"Searching"_s, u"MaxIndexResults"_s);
        SaveOptionStr(u"Searching"_s, u"MaxIndexResults"_s, u"7"_s);
        arrive("|EOS~||EOF~|");
    });
    QCOMPARE(run(u"parameters"_s), u"done"_s);
    QCOMPARE(between, u"300"_s);
    QCOMPARE(GetOptionStr(u"Searching"_s, u"MaxIndexResults"_s), u"300"_s);
    QCOMPARE(Session.strIniLine, u"Searching=MaxIndexResults=300"_s);
}

void tst_ServerExchanges::lineWithTooFewPartsEndsTheRetrieval()
{
    reply("|Searching=MaxIndexResults||EOS~||Searching=MaxIndexResults=300||EOS~||EOF~|");
    QCOMPARE(run(u"parameters"_s), u"failed"_s);
    QCOMPARE(session->folder.TimesLogged(u"Error While Retrieving System Params"_s), 1);
    QCOMPARE(GetOptionStr(u"Searching"_s, u"MaxIndexResults"_s), u"500"_s);
}

void tst_ServerExchanges::valuesInForceStayUntilTheNextStart()
{
    LoadAppOptions();
    reply("|Searching=MaxIndexResults=300||EOS~||EOF~|");
    QCOMPARE(run(u"parameters"_s), u"done"_s);
    QCOMPARE(Global.intMaxIndexResults, qint16(500));
}

void tst_ServerExchanges::parameterOutcomes()
{
    reply("|Searching=MaxIndexResults=300||EOS~||EOF~|");
    QCOMPARE(run(u"parameters"_s), u"done"_s);
    const QString read = u"Read INI file change request from HV Server. Reply was: 0"_s;
    QCOMPARE(session->folder.Log(),
             (QStringList{u"******** Retrieving System Parameter Updates ********"_s,
                          u"SendReq: GETINIVAL¦"_s, u"Sent GetIniVal request and result was: 0"_s,
                          read, read, read}));
}

void tst_ServerExchanges::systemMessages_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("none") << QByteArray("|EOF~|") << QString();
    QTest::newRow("one token") << QByteArray("|Hello||EOF~|") << u"Hello"_s;
    QTest::newRow("joined without blanks") << QByteArray("|Hello||World||EOF~|") << u"HelloWorld"_s;
    QTest::newRow("each token trimmed")
        << QByteArray("|  Hello ||  World  ||EOF~|") << u"HelloWorld"_s;
    QTest::newRow("an error is text too") << QByteArray("|ERROR~||EOF~|") << u"ERROR~"_s;
    QTest::newRow("an end within a text is text") << QByteArray("|A EOF~||EOF~|") << u"A EOF~"_s;
    QTest::newRow("an end with more behind it") << QByteArray("|A||EOF~1|") << u"A"_s;
    QTest::newRow("only blanks") << QByteArray("|   ||EOF~|") << QString();
    QTest::newRow("empty tokens") << QByteArray("|||A||||EOF~|") << u"A"_s;
    QTest::newRow("line ends and high bytes")
        << QByteArray("|a\r\nb \x93q\x94||EOF~|") << u"a\r\nb \u201Cq\u201D"_s;
}

void tst_ServerExchanges::systemMessages()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    reply(bytes);
    QCOMPARE(run(u"system message"_s), message);
    QCOMPARE(Session.strSystemMsg, message);
    QCOMPARE(Global.bGettingMessages, false);
    QCOMPARE(session->folder.Log().mid(0, 3),
             (QStringList{u"******** Retrieving System Broadcast Message ********"_s,
                          u"SendReq: GETMSG¦"_s, u"Sent Message request and result was: 0"_s}));
}

void tst_ServerExchanges::systemMessageForgetsTheOneBefore()
{
    Session.strSystemMsg = u"yesterday"_s;
    reply("|today||EOF~|");
    QCOMPARE(run(u"system message"_s), u"today"_s);
}

void tst_ServerExchanges::systemMessageBeyondTheLongestIsCut()
{
    const QByteArray third = '|' + QByteArray(longestMessage * 2 / 5, 'x') + '|';
    reply(third + third + third + "|EOF~|");
    QCOMPARE(run(u"system message"_s).size(), longestMessage);
    QVERIFY(session->folder.Logged(
        u"A message from the server was cut: it was longer than any message may be."_s));
}

void tst_ServerExchanges::timedOutSystemMessageLeavesNothing()
{
    reply("|Hello|");
    session->clock.Run(1.0);
    QCOMPARE(run(u"system message"_s), QString());
    QCOMPARE(Session.strSystemMsg, QString());
    QCOMPARE(Global.bGettingMessages, false);
}

void tst_ServerExchanges::privateMessages_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("kept");
    const QString none = u"No messages found."_s;
    QTest::newRow("none") << QByteArray("|EOF~|") << QString() << QString();
    QTest::newRow("one token") << QByteArray("|Call us||EOF~|") << u"Call us"_s << u"Call us"_s;
    QTest::newRow("joined and trimmed")
        << QByteArray("| Call || us ||EOF~|") << u"Callus"_s << u"Callus"_s;
    QTest::newRow("the words for none")
        << QByteArray("|No messages found.||EOF~|") << QString() << none;
    QTest::newRow("an error") << QByteArray("|ERROR~||EOF~|") << none << QString();
    QTest::newRow("an error in the middle of a text, in any case")
        << QByteArray("|a terrible eRRor here||EOF~|") << none << QString();
    QTest::newRow("an error behind a text")
        << QByteArray("|Call us||error~||EOF~|") << none << QString();
    QTest::newRow("an end that holds an error")
        << QByteArray("|Call us||EOF~ERROR|") << none << QString();
}

void tst_ServerExchanges::privateMessages()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, answer);
    QFETCH(QString, kept);
    Session.strPrivateMsgs = u"yesterday"_s;
    reply(bytes);
    QCOMPARE(run(u"private message"_s), answer);
    QCOMPARE(Session.strPrivateMsgs, kept);
}

void tst_ServerExchanges::errorEndsPrivateMessagesBeforeTheStatusIsLogged()
{
    reply("|ERROR~|");
    QCOMPARE(run(u"private message"_s), u"No messages found."_s);
    QCOMPARE(session->folder.Log(),
             (QStringList{u"******** Retrieving Private Messages ********"_s,
                          u"SendReq: GET_PRIV_MSG¦User¦Pass¦AppVer-9.00¦"_s,
                          u"Sent Private Message request and result was: 0"_s}));
}

void tst_ServerExchanges::privateMessageBeyondTheLongestIsCut()
{
    const QByteArray half = '|' + QByteArray(longestMessage * 3 / 5, 'x') + '|';
    reply(half + half + "|EOF~|");
    QCOMPARE(run(u"private message"_s).size(), longestMessage);
}

void tst_ServerExchanges::courtStatus_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("status");
    QTest::newRow("none") << QByteArray("|EOF~|") << QString();
    QTest::newRow("one") << QByteArray("| All courts are up ||EOF~|") << u"All courts are up"_s;
    QTest::newRow("the last one wins") << QByteArray("|up||down||EOF~|") << u"down"_s;
    QTest::newRow("an end with more behind it") << QByteArray("|up||EOF~1|") << u"up"_s;
}

void tst_ServerExchanges::courtStatus()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, status);
    reply(bytes);
    QCOMPARE(run(u"court status"_s), status);
    QVERIFY(
        session->folder.Logged(u"Requesting Court Availability From Server and Result is: 0"_s));
    QCOMPARE(session->folder.Log().last(), u"Checking Court Availability Complete .."_s);
}

void tst_ServerExchanges::courtStatusTakesItsFlagBack()
{
    session->clock.Run(1.0);
    run(u"court status"_s);
    QCOMPARE(Global.bCheckingServer, false);
    QCOMPARE(shown.last(), u"Checking Court Availability Complete .."_s);
}

void tst_ServerExchanges::accountingOption_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("true") << QByteArray("|TRUE~|") << false << true;
    QTest::newRow("true in lower case") << QByteArray("|true~|") << false << true;
    QTest::newRow("true within a text") << QByteArray("|opt=True~x|") << false << true;
    QTest::newRow("false") << QByteArray("|FALSE~|") << true << false;
    QTest::newRow("false in mixed case") << QByteArray("|xFalse~|") << true << false;
    QTest::newRow("an end alone") << QByteArray("|EOF~|") << true << false;
    QTest::newRow("an end within a text") << QByteArray("|no eof~ here|") << true << false;
    QTest::newRow("true goes before false") << QByteArray("|FALSE~TRUE~|") << false << true;
    QTest::newRow("true without its tilde is passed over")
        << QByteArray("|TRUE||EOF~|") << true << false;
    QTest::newRow("other words are passed over")
        << QByteArray("|please wait||ERROR||TRUE~|") << false << true;
}

void tst_ServerExchanges::accountingOption()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, before);
    QFETCH(bool, after);
    Global.bClientAcctgOpt = before;
    reply(bytes);
    GetClientAcctgOption();
    QCOMPARE(Global.bClientAcctgOpt, after);
}

void tst_ServerExchanges::endBehindTheAccountingOptionStaysInTheBuffer()
{
    reply("|TRUE~||EOF~|");
    GetClientAcctgOption();
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|EOF~|"));
}

HALVANE_TEST(tst_ServerExchanges)
#include "tst_ServerExchanges.moc"
