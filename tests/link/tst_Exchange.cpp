#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "link/Exchange.h"
#include "link/Router.h"
#include "link/TcpServerSocket.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/ScriptedCourt.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// Takes tokens until the end mark, and keeps them.
struct Taken
{
    bool operator()(const Response &response)
    {
        statuses->append(response.Status);
        tokens->append(response.Token);
        return response.Token == u"EOF~";
    }
    QStringList *tokens;
    QList<ReadStatus> *statuses;
};

qint64 waitingInSocket()
{
    return frmWinsock::Form().CSock->BytesAvailable();
}
} // namespace

/// How exchanges begin and how their replies are read: over a network that does what the test says,
/// and over a real one.
class tst_Exchange : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void beginsWithNothingLeft_data();
    void beginsWithNothingLeft();
    void whatTheSocketStillHoldsGoesToo();
    void aPingAmongTheRestIsAnswered();
    void whatAFullBufferLeftWithTheSocketGoesToo();
    void aServerThatNeverStopsIsNotWaitedFor();
    void withoutALinkOnlyTheBufferIsEmptied();
    void theStatusIsThatOfTheSend_data();
    void theStatusIsThatOfTheSend();
    void anInterruptionLeavesWhatHasArrived();

    void readsToTheEndMark();
    void whatStandsBehindTheEndMarkStays();
    void endsWithSilence();
    void endsWithTheLink();
    void endsWithASocketThatDoesNotClose();
    void eachRoundYieldsOnce_data();
    void eachRoundYieldsOnce();
    void aLongReplyLetsTheEventLoopHaveTurns_data();
    void aLongReplyLetsTheEventLoopHaveTurns();
    void behindAWholeTokenTheSocketWaits();
    void whatTakingThrowsComesThrough();

    void aReplyThatIsLeftUnreadHidesNothingFromTheLink_data();
    void aReplyThatIsLeftUnreadHidesNothingFromTheLink();
    void aStaleReplyOnARealLineIsNotRead_data();
    void aStaleReplyOnARealLineIsNotRead();

private:
    static void connectTo(const ScriptedCourt &court);
    ReadStatus read(EachRound round = EachRound::Yields)
    {
        return ReadReply(Taken{&tokens, &statuses}, round);
    }
    QByteArray buffered() const { return Global.strRecvBuffer.View().toByteArray(); }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
    FakeSocket *socket = nullptr;
    QStringList tokens;
    QList<ReadStatus> statuses;
};

void tst_Exchange::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    FakeSocket::Install();
    frmWinsock::Form();
    socket = FakeSocket::Last();
    tokens.clear();
    statuses.clear();
}

void tst_Exchange::cleanup()
{
    clock.reset();
    folder.reset();
}

void tst_Exchange::beginsWithNothingLeft_data()
{
    QTest::addColumn<QByteArray>("left");
    QTest::newRow("an end mark") << QByteArray("|EOF~|");
    QTest::newRow("a whole reply") << QByteArray("|A~||B~||EOF~|");
    QTest::newRow("half a token") << QByteArray("|HALF");
    QTest::newRow("a lone bar") << QByteArray("|");
    QTest::newRow("the second half of an empty token") << QByteArray("||");
    QTest::newRow("nothing") << QByteArray();
}

void tst_Exchange::beginsWithNothingLeft()
{
    QFETCH(QByteArray, left);
    if (!left.isEmpty())
        socket->Arrive(left);
    QCOMPARE(BeginExchange(u"ASK¦"_s), SendStatus::Sent);
    QCOMPARE(buffered(), QByteArray());
    QCOMPARE(socket->sent, QByteArrayList{"|ASK\xA6|"});
    socket->Arrive("|NEW~||EOF~|");
    QCOMPARE(read(), ReadStatus::Token);
    QCOMPARE(tokens, (QStringList{u"NEW~"_s, u"EOF~"_s}));
}

void tst_Exchange::whatTheSocketStillHoldsGoesToo()
{
    socket->HoldBack("|OLD~||EOF~|");
    QCOMPARE(BeginExchange(u"ASK¦"_s), SendStatus::Sent);
    QCOMPARE(socket->BytesAvailable(), 0);
    socket->Arrive("|NEW~||EOF~|");
    QCOMPARE(read(), ReadStatus::Token);
    QCOMPARE(tokens, (QStringList{u"NEW~"_s, u"EOF~"_s}));
}

void tst_Exchange::aPingAmongTheRestIsAnswered()
{
    socket->HoldBack("|DIAG001|");
    BeginExchange(u"ASK¦"_s);
    QCOMPARE(socket->sent, (QByteArrayList{"|IMALIVE\xA6|", "|ASK\xA6|"}));
}

void tst_Exchange::whatAFullBufferLeftWithTheSocketGoesToo()
{
    socket->Arrive(QByteArray(maximumBacklogBytes, 'x'));
    socket->Arrive("|OLD~|");
    QCOMPARE(socket->BytesAvailable(), 6);
    BeginExchange(u"ASK¦"_s);
    QCOMPARE(buffered(), QByteArray());
    QCOMPARE(socket->BytesAvailable(), 0);
}

void tst_Exchange::aServerThatNeverStopsIsNotWaitedFor()
{
    socket->HoldBack(QByteArray(1024 * 1024, 'x'));
    socket->refills = true;
    QCOMPARE(BeginExchange(u"ASK¦"_s), SendStatus::Sent);
    QCOMPARE(buffered(), QByteArray());
}

void tst_Exchange::withoutALinkOnlyTheBufferIsEmptied()
{
    frmWinsock::Unload();
    Global.strRecvBuffer.Append("|OLD~|");
    QCOMPARE(BeginExchange(u"ASK¦"_s), SendStatus::NotConnected);
    QCOMPARE(buffered(), QByteArray());
    QVERIFY(!frmWinsock::IsLoaded());
}

void tst_Exchange::theStatusIsThatOfTheSend_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<bool>("busy");
    QTest::addColumn<bool>("completes");
    QTest::addColumn<int>("status");
    QTest::newRow("sent") << true << false << true << 0;
    QTest::newRow("never completed") << true << false << false << 1;
    QTest::newRow("busy") << true << true << false << 2;
    QTest::newRow("not connected") << false << false << true << -1;
}

void tst_Exchange::theStatusIsThatOfTheSend()
{
    QFETCH(bool, connected);
    QFETCH(bool, busy);
    QFETCH(bool, completes);
    QFETCH(int, status);
    clock->Run(1.0);
    for (const bool interrupts : {false, true}) {
        socket->state = connected ? SocketState::Connected : SocketState::Closing;
        socket->completesSends = completes;
        Global.bSendBusy = busy;
        const SendStatus sent =
            interrupts ? InterruptExchange(u"STOP¦"_s) : BeginExchange(u"ASK¦"_s);
        QCOMPARE(int(Number(sent)), status);
    }
}

void tst_Exchange::anInterruptionLeavesWhatHasArrived()
{
    socket->Arrive("|ROW~|");
    QCOMPARE(InterruptExchange(u"STOP¦"_s), SendStatus::Sent);
    QCOMPARE(socket->sent, QByteArrayList{"|STOP\xA6|"});
    socket->Arrive("|EOF~|");
    QCOMPARE(read(), ReadStatus::Token);
    QCOMPARE(tokens, (QStringList{u"ROW~"_s, u"EOF~"_s}));
}

void tst_Exchange::readsToTheEndMark()
{
    socket->ArriveLater({"|A", "~||B~|", "|EOF~|"});
    QCOMPARE(read(), ReadStatus::Token);
    QCOMPARE(tokens, (QStringList{u"A~"_s, u"B~"_s, u"EOF~"_s}));
}

void tst_Exchange::whatStandsBehindTheEndMarkStays()
{
    socket->Arrive("|A~||EOF~||BEHIND~|");
    QCOMPARE(read(), ReadStatus::Token);
    QCOMPARE(buffered(), QByteArray("|BEHIND~|"));
}

void tst_Exchange::endsWithSilence()
{
    clock->Run(1.0);
    socket->Arrive("|A~|");
    QCOMPARE(read(), ReadStatus::TimedOutOrLost);
    QCOMPARE(statuses, (QList{ReadStatus::Token, ReadStatus::TimedOutOrLost}));
    QCOMPARE(tokens, (QStringList{u"A~"_s, QString()}));
}

void tst_Exchange::endsWithTheLink()
{
    QTimer::singleShot(0, socket, [this] { socket->PeerCloses(); });
    QCOMPARE(read(), ReadStatus::TimedOutOrLost);
    QCOMPARE(statuses, QList{ReadStatus::TimedOutOrLost});
}

void tst_Exchange::endsWithASocketThatDoesNotClose()
{
    // Connected when the round begins, and not any more when it is looked at again.
    socket->connectedAnswers = 1;
    socket->state = SocketState::Closing;
    socket->closes = false;
    QCOMPARE(read(), ReadStatus::NotClosed);
    QCOMPARE(statuses, QList{ReadStatus::NotClosed});
}

void tst_Exchange::eachRoundYieldsOnce_data()
{
    QTest::addColumn<bool>("yields");
    QTest::addColumn<int>("count");
    QTest::newRow("with a turn after each token") << true << 3;
    QTest::newRow("without") << false << 0;
}

void tst_Exchange::eachRoundYieldsOnce()
{
    QFETCH(bool, yields);
    QFETCH(int, count);
    socket->Arrive("|A~||B~||C~||EOF~|");
    const unsigned long long before = YieldCount();
    QCOMPARE(read(yields ? EachRound::Yields : EachRound::GoesOn), ReadStatus::Token);
    QCOMPARE(int(YieldCount() - before), count);
}

void tst_Exchange::aLongReplyLetsTheEventLoopHaveTurns_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("turns");
    QTest::newRow("many tokens") << 2 << 3'500 << 3;
    QTest::newRow("long tokens") << 50'000 << 14 << 3;
    QTest::newRow("a few") << 10 << 900 << 0;
}

/// Without a turn of its own after each.
void tst_Exchange::aLongReplyLetsTheEventLoopHaveTurns()
{
    QFETCH(int, length);
    QFETCH(int, count);
    QFETCH(int, turns);
    const QByteArray token = '|' + QByteArray(length, 'x') + '|';
    socket->Arrive(token.repeated(count) + "|EOF~|");
    const unsigned long long before = YieldCount();
    QCOMPARE(read(EachRound::GoesOn), ReadStatus::Token);
    QCOMPARE(tokens.size(), count + 1);
    QCOMPARE(int(YieldCount() - before), turns);
}

void tst_Exchange::behindAWholeTokenTheSocketWaits()
{
    constexpr int pieces = 100;
    const QByteArray piece = QByteArray("|A~|").repeated(16 * 1024);
    socket->Arrive(piece);
    qsizetype most = 0;
    int arrived = 1;
    int taken = 0;
    const auto take = [&](const Response &response) {
        ++taken;
        // Faster than anybody reads.
        if (arrived++ < pieces)
            socket->Arrive(piece);
        else if (arrived == pieces + 1)
            socket->Arrive("|EOF~|");
        // What the socket has kept comes when all of that is read.
        if (arrived <= pieces)
            most = std::max(most, Global.strRecvBuffer.Size());
        return response.Token == u"EOF~";
    };
    QCOMPARE(ReadReply(take), ReadStatus::Token);
    QCOMPARE(taken, pieces * 16 * 1024 + 1);
    QVERIFY2(most <= maximumUnreadBytes + piece.size(), qPrintable(QString::number(most)));
}

void tst_Exchange::whatTakingThrowsComesThrough()
{
    socket->Arrive("|A~||EOF~|");
    const auto take = [](const Response &) -> bool { throw RunTimeError::SubscriptOutOfRange(); };
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ReadReply(take));
    QCOMPARE(buffered(), QByteArray("|EOF~|"));
}

/// A real connection, in place of the one without a network.
void tst_Exchange::connectTo(const ScriptedCourt &court)
{
    frmWinsock::Unload();
    frmWinsock::SetSocketFactory({});
    Global.lngServerPort = court.Port();
    QVERIFY(ConnectToRouter(u"127.0.0.1"_s));
    QTRY_VERIFY(court.HasClient());
}

void tst_Exchange::aReplyThatIsLeftUnreadHidesNothingFromTheLink_data()
{
    QTest::addColumn<bool>("drops");
    QTest::newRow("the server asks whether we are there") << false;
    QTest::newRow("the server ends the connection") << true;
}

/// More of it than is taken and the socket may hold for us, so that it listens no more.
void tst_Exchange::aReplyThatIsLeftUnreadHidesNothingFromTheLink()
{
    QFETCH(bool, drops);
    ScriptedCourt court;
    connectTo(court);
    court.Expect(u"ASK¦"_s).ReplyBytes(QByteArray("|A~|").repeated(1024 * 1024));
    QCOMPARE(BeginExchange(u"ASK¦"_s), SendStatus::Sent);
    const auto takeOne = [](const Response &) {
        qint64 held = -1;
        return QTest::qWaitFor([&held] {
            const qint64 before = std::exchange(held, IsLinkUp() ? waitingInSocket() : 0);
            return held > 0 && held == before && Global.strRecvBuffer.Size() >= maximumUnreadBytes;
        });
    };
    QCOMPARE(ReadReply(takeOne), ReadStatus::Token);
    QVERIFY(Global.strRecvBuffer.Size() >= maximumUnreadBytes);
    QVERIFY(waitingInSocket() > 0);
    if (drops) {
        court.DropClient();
        QTRY_VERIFY(!IsLinkUp());
        return;
    }
    court.SendTokens({u"DIAG001"_s});
    QTRY_VERIFY(court.Requests().contains(u"IMALIVE¦"_s));
    QCOMPARE(court.Complaints(), QString());
}

void tst_Exchange::aStaleReplyOnARealLineIsNotRead_data()
{
    QTest::addColumn<bool>("noticed");
    QTest::newRow("it is in the buffer") << true;
    QTest::newRow("it has just reached the machine") << false;
}

void tst_Exchange::aStaleReplyOnARealLineIsNotRead()
{
    QFETCH(bool, noticed);
    ScriptedCourt court;
    connectTo(court);
    court.Expect(u"ASK¦"_s).Reply({u"NEW~"_s, u"EOF~"_s});
    court.SendTokens({u"OLD~"_s, u"EOF~"_s});
    if (noticed)
        QTRY_VERIFY(!Global.strRecvBuffer.IsEmpty());
    QCOMPARE(BeginExchange(u"ASK¦"_s), SendStatus::Sent);
    QCOMPARE(read(), ReadStatus::Token);
    QCOMPARE(tokens, (QStringList{u"NEW~"_s, u"EOF~"_s}));
    QCOMPARE(court.Complaints(), QString());
}

HALVANE_TEST(tst_Exchange)
#include "tst_Exchange.moc"
