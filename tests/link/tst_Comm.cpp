#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "link/Comm.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
const QString lost =
    u"Connection Lost While Waiting for Response. Exiting Process ReadResponse()"_s;

/// How far beyond a limit the clock may have run when the limit is noticed.
constexpr double slack = 4.0;
} // namespace

class tst_Comm : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aWaitingTokenIsGivenWithoutAYield();
    void aReplyBelongsToTheConnectionItBeganWith();
    void twoTokensInOneChunkAreTwoAnswers();
    void aPartialTokenIsCompletedByTheRest();
    void emptyTokensAreConsumedAndNotDelivered_data();
    void emptyTokensAreConsumedAndNotDelivered();
    void aTokenIsSeenOnTheTurnAfterItsClosingBar();
    void tokensAreTextOfTheCodePage();

    void limit_data();
    void limit();
    void theLimitIsFixedWhenTheCallBegins();
    void theSettingOf546MinutesIsTheGreatest();
    void aSettingThatDoesNotFitIsAnOverflow_data();
    void aSettingThatDoesNotFitIsAnOverflow();
    void theLimitIsTestedBeforeTheLink();
    void theLimitIsTestedBeforeTheBuffer();

    void aPartialTokenRestartsTheClock();
    void junkWithoutABarRestartsTheClock();
    void aLoneBarWaitsUntilTheLinkIsLost();
    void whatComesUnderABoxIsInTime();
    void theClockRunsOnlyOnAnEmptyBuffer();
    void emptyTokensRestartTheClock();
    void aWaitOverMidnightMeasuresRight();

    void aLostLinkIsLogged_data();
    void aLostLinkIsLogged();
    void aLostLinkGoesBeforeWaitingTokens();
    void aLinkLostDuringTheWait();
    void aLinkUnloadedDuringTheWait();
    void aSocketThatDoesNotCloseIsNotClosed();
    void aSocketThatClosesIsALostLink();
    void aSilentTimeOutIsNotLogged();
    void aPingDuringAReplyLosesIt();
    void theNextCallTakesTheLaterToken();
    void aStopDuringTheWaitChangesOnlyTheNextCall();

private:
    double secondsGone() const { return static_cast<double>(began.msecsTo(clock->Now())) / 1000.0; }
    void when(double seconds, const std::function<void()> &act);

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
    std::unique_ptr<QObject> scheduled;
    FakeSocket *socket = nullptr;
    QDateTime began;
};

void tst_Comm::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    scheduled = std::make_unique<QObject>();
    FakeSocket::Install();
    frmWinsock::Form();
    socket = FakeSocket::Last();
    began = clock->Now();
    clock->Run(1.0);
}

void tst_Comm::cleanup()
{
    scheduled.reset();
    clock.reset();
    folder.reset();
}

/// Does `act` once when the clock has gone on by so many seconds.
void tst_Comm::when(double seconds, const std::function<void()> &act)
{
    auto *timer = new QTimer(scheduled.get());
    connect(timer, &QTimer::timeout, timer, [this, timer, seconds, act] {
        if (secondsGone() < seconds)
            return;
        timer->stop();
        act();
    });
    timer->start(1);
}

void tst_Comm::aReplyBelongsToTheConnectionItBeganWith()
{
    // The user disconnects and connects again inside the wait: the new reply is not for the old
    // one.
    when(5.0, [] {
        frmWinsock::Unload();
        frmWinsock::Form();
        FakeSocket::Last()->Arrive("|NEW~|");
    });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|NEW~|"));
}

void tst_Comm::aWaitingTokenIsGivenWithoutAYield()
{
    socket->Arrive("|A~|");
    const unsigned long long before = YieldCount();
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::Token);
    QCOMPARE(response.Token, u"A~"_s);
    QCOMPARE(YieldCount(), before);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_Comm::twoTokensInOneChunkAreTwoAnswers()
{
    socket->ArriveLater({"|A~||B~|"});
    QCOMPARE(ReadResponse().Token, u"A~"_s);
    QCOMPARE(ReadResponse().Token, u"B~"_s);
}

void tst_Comm::aPartialTokenIsCompletedByTheRest()
{
    socket->ArriveLater({"|A~", "B~|"});
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::Token);
    QCOMPARE(response.Token, u"A~B~"_s);
}

void tst_Comm::emptyTokensAreConsumedAndNotDelivered_data()
{
    QTest::addColumn<QByteArray>("chunk");
    QTest::addColumn<QString>("token");
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("sharing its bar with a token") << QByteArray("||X~|") << u"X~"_s << QByteArray();
    QTest::newRow("one before a token") << QByteArray("|||X~|") << u"X~"_s << QByteArray();
    QTest::newRow("three before a token") << QByteArray("|||||||X~|") << u"X~"_s << QByteArray();
    QTest::newRow("one behind a token") << QByteArray("|X~|||") << u"X~"_s << QByteArray("||");
    QTest::newRow("junk before") << QByteArray("a||b|X~|") << u"b"_s << QByteArray("X~|");
}

void tst_Comm::emptyTokensAreConsumedAndNotDelivered()
{
    QFETCH(QByteArray, chunk);
    QFETCH(QString, token);
    QFETCH(QByteArray, rest);
    clock->Stop();
    socket->Arrive(chunk);
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::Token);
    QCOMPARE(response.Token, token);
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), rest);
}

void tst_Comm::aTokenIsSeenOnTheTurnAfterItsClosingBar()
{
    clock->Stop();
    unsigned long long atArrival = 0;
    QTimer::singleShot(5, this, [&] {
        socket->Arrive("|A~|");
        atArrival = YieldCount();
    });
    QCOMPARE(ReadResponse().Token, u"A~"_s);
    QVERIFY(atArrival > 0);
    QCOMPARE(YieldCount(), atArrival);
}

void tst_Comm::tokensAreTextOfTheCodePage()
{
    socket->Arrive("|\x80\xA6\x81\xFF~|");
    QCOMPARE(ReadResponse().Token, u"\u20AC¦\u0081\u00FF~"_s);
}

void tst_Comm::limit_data()
{
    QTest::addColumn<int>("minutes");
    QTest::addColumn<bool>("stopped");
    QTest::addColumn<bool>("login");
    QTest::addColumn<bool>("messages");
    QTest::addColumn<bool>("params");
    QTest::addColumn<bool>("checking");
    QTest::addColumn<int>("seconds");
    const bool no = false;
    QTest::newRow("the setting, 1") << 1 << no << no << no << no << no << 60;
    QTest::newRow("the setting, 2") << 2 << no << no << no << no << no << 120;
    QTest::newRow("the setting, 10") << 10 << no << no << no << no << no << 600;
    QTest::newRow("stop requested") << 1 << true << no << no << no << no << 14;
    QTest::newRow("stop requested, larger setting") << 10 << true << no << no << no << no << 14;
    QTest::newRow("login") << 1 << no << true << no << no << no << 14;
    QTest::newRow("stop requested and login") << 1 << true << true << no << no << no << 14;
    QTest::newRow("messages") << 1 << no << no << true << no << no << 12;
    QTest::newRow("messages go before login") << 1 << no << true << true << no << no << 12;
    QTest::newRow("parameters") << 1 << no << no << no << true << no << 12;
    QTest::newRow("parameters go before a stop") << 1 << true << no << no << true << no << 12;
    QTest::newRow("checking the server") << 1 << no << no << no << no << true << 10;
    QTest::newRow("checking goes before login") << 1 << no << true << no << no << true << 10;
    QTest::newRow("checking goes before messages") << 1 << no << no << true << no << true << 10;
    QTest::newRow("checking goes before parameters") << 1 << no << no << no << true << true << 10;
    QTest::newRow("checking goes before all") << 9 << true << true << true << true << true << 10;
}

void tst_Comm::limit()
{
    QFETCH(int, minutes);
    QFETCH(bool, stopped);
    QFETCH(bool, login);
    QFETCH(bool, messages);
    QFETCH(bool, params);
    QFETCH(bool, checking);
    QFETCH(int, seconds);
    Global.intSearchTimeout = static_cast<qint16>(minutes);
    Global.bStopRequested = stopped;
    Global.bLoginBusy = login;
    Global.bGettingMessages = messages;
    Global.bGettingParams = params;
    Global.bCheckingServer = checking;
    QCOMPARE(int(ResponseLimitSeconds()), seconds);
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(response.Token, QString());
    QVERIFY2(secondsGone() >= seconds, qPrintable(QString::number(secondsGone())));
    QVERIFY2(secondsGone() <= seconds + slack, qPrintable(QString::number(secondsGone())));
}

void tst_Comm::theLimitIsFixedWhenTheCallBegins()
{
    when(2.0, [] { Global.bCheckingServer = true; });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() >= 60.0 && secondsGone() <= 60.0 + slack);
    began = clock->Now();
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() >= 10.0 && secondsGone() <= 10.0 + slack);
}

void tst_Comm::theSettingOf546MinutesIsTheGreatest()
{
    Global.intSearchTimeout = 546;
    QCOMPARE(int(ResponseLimitSeconds()), 32760);
}

void tst_Comm::aSettingThatDoesNotFitIsAnOverflow_data()
{
    QTest::addColumn<int>("minutes");
    QTest::addColumn<bool>("stopped");
    QTest::addColumn<bool>("checking");
    QTest::addColumn<int>("error");
    QTest::newRow("547") << 547 << false << false << 6;
    QTest::newRow("the greatest") << 32767 << false << false << 6;
    QTest::newRow("worked out before a phase goes before it") << 547 << false << true << 6;
    QTest::newRow("not worked out after a stop") << 547 << true << false << 0;
}

void tst_Comm::aSettingThatDoesNotFitIsAnOverflow()
{
    QFETCH(int, minutes);
    QFETCH(bool, stopped);
    QFETCH(bool, checking);
    QFETCH(int, error);
    Global.intSearchTimeout = static_cast<qint16>(minutes);
    Global.bStopRequested = stopped;
    Global.bCheckingServer = checking;
    socket->Arrive("|A~|");
    int caught = 0;
    try {
        QCOMPARE(ReadResponse().Status, ReadStatus::Token);
    } catch (const RunTimeError &overflow) {
        caught = overflow.Number();
    }
    QCOMPARE(caught, error);
}

void tst_Comm::theLimitIsTestedBeforeTheLink()
{
    Global.intSearchTimeout = 0;
    socket->state = SocketState::Closed;
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Comm::theLimitIsTestedBeforeTheBuffer()
{
    Global.intSearchTimeout = 0;
    socket->Arrive("|A~|");
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|A~|"));
}

void tst_Comm::aPartialTokenRestartsTheClock()
{
    socket->Arrive("|A~");
    when(200.0, [this] { socket->Arrive("B~|"); });
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::Token);
    QCOMPARE(response.Token, u"A~B~"_s);
    QVERIFY(secondsGone() >= 200.0);
}

void tst_Comm::junkWithoutABarRestartsTheClock()
{
    socket->Arrive("junk");
    when(200.0, [this] { socket->Arrive("|X~|"); });
    QCOMPARE(ReadResponse().Token, u"X~"_s);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_Comm::aLoneBarWaitsUntilTheLinkIsLost()
{
    socket->Arrive("|X~||");
    QCOMPARE(ReadResponse().Token, u"X~"_s);
    when(300.0, [this] { socket->PeerCloses(); });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() >= 300.0);
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|"));
    QVERIFY(folder->Logged(lost));
}

void tst_Comm::whatComesUnderABoxIsInTime()
{
    // As if somebody had read a box for two minutes, inside one yield.
    when(40.0, [this] {
        socket->Arrive("|A~|");
        clock->Advance(120.0);
    });
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::Token);
    QCOMPARE(response.Token, u"A~"_s);
}

void tst_Comm::theClockRunsOnlyOnAnEmptyBuffer()
{
    // The half token holds the limit off for 100 seconds; once the buffer has been emptied, the
    // limit of 60 runs from then on.
    socket->Arrive("|half");
    when(100.0, [] { Global.strRecvBuffer.Clear(); });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY2(secondsGone() >= 159.0, qPrintable(QString::number(secondsGone())));
    QVERIFY2(secondsGone() <= 160.0 + slack, qPrintable(QString::number(secondsGone())));
}

void tst_Comm::emptyTokensRestartTheClock()
{
    when(40.0, [this] { socket->Arrive("||"); });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY2(secondsGone() >= 99.0, qPrintable(QString::number(secondsGone())));
    QVERIFY2(secondsGone() <= 100.0 + slack, qPrintable(QString::number(secondsGone())));
}

void tst_Comm::aWaitOverMidnightMeasuresRight()
{
    clock->Set(QDateTime({2026, 3, 10}, {23, 59, 50}));
    began = clock->Now();
    when(30.0, [this] { socket->Arrive("|A~|"); });
    QCOMPARE(ReadResponse().Token, u"A~"_s);
    QCOMPARE(clock->Now().date(), QDate(2026, 3, 11));
    clock->Set(QDateTime({2026, 3, 11}, {23, 59, 50}));
    began = clock->Now();
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() >= 59.9 && secondsGone() <= 60.0 + slack);
}

void tst_Comm::aLostLinkIsLogged_data()
{
    QTest::addColumn<int>("state");
    for (const int state : {0, 4, 6, 8, 9})
        QTest::addRow("state %d", state) << state;
}

void tst_Comm::aLostLinkIsLogged()
{
    QFETCH(int, state);
    socket->state = static_cast<SocketState>(state);
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(response.Token, QString());
    QCOMPARE(folder->Log(), QStringList{lost});
    QCOMPARE(int(socket->State()), state);
    QCOMPARE(clock->Sleeps(), QList<int>());
}

void tst_Comm::aLostLinkGoesBeforeWaitingTokens()
{
    socket->Arrive("|A~|");
    socket->PeerCloses();
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|A~|"));
}

void tst_Comm::aLinkLostDuringTheWait()
{
    when(5.0, [this] { socket->PeerCloses(); });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() < 60.0);
    QCOMPARE(folder->Log(), (QStringList{u"Client Connection was Closed"_s, lost}));
}

void tst_Comm::aLinkUnloadedDuringTheWait()
{
    when(5.0, [] { frmWinsock::Unload(); });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() < 60.0);
    QCOMPARE(folder->Log(), QStringList{lost});
    QVERIFY(!frmWinsock::IsLoaded());
}

void tst_Comm::aSocketThatDoesNotCloseIsNotClosed()
{
    FakeSocket flickering;
    flickering.connectedAnswers = 1;
    flickering.state = SocketState::Closing;
    flickering.closes = false;
    Global.sckServer = &flickering;
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::NotClosed);
    QCOMPARE(response.Token, QString());
    QCOMPARE(clock->Sleeps(), QList<int>{1000});
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Comm::aSocketThatClosesIsALostLink()
{
    FakeSocket flickering;
    flickering.connectedAnswers = 1;
    flickering.state = SocketState::Closing;
    Global.sckServer = &flickering;
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(flickering.FakeSocket::State(), SocketState::Closed);
    QCOMPARE(clock->Sleeps(), QList<int>{1000});
    QCOMPARE(folder->Log(), QStringList{lost});
}

void tst_Comm::aSilentTimeOutIsNotLogged()
{
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(folder->Log(), QStringList());
    QCOMPARE(socket->State(), SocketState::Connected);
}

void tst_Comm::aPingDuringAReplyLosesIt()
{
    socket->ArriveLater({"|A~|", "|half", " of a token~||DIAG001||EOF~|"});
    QCOMPARE(ReadResponse().Token, u"A~"_s);
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(socket->sent, QByteArrayList{"|IMALIVE\xA6|"});
}

void tst_Comm::theNextCallTakesTheLaterToken()
{
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    socket->ArriveLater({"|late~|"});
    QCOMPARE(ReadResponse().Token, u"late~"_s);
}

void tst_Comm::aStopDuringTheWaitChangesOnlyTheNextCall()
{
    when(2.0, [] { Global.bStopRequested = true; });
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() >= 60.0);
    began = clock->Now();
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(secondsGone() >= 14.0 && secondsGone() <= 14.0 + slack);
}

HALVANE_TEST(tst_Comm)
#include "tst_Comm.moc"
