// A reply that is read as bytes: in the pieces in which it comes, each on the turn on which it
// came, without spinning, and to its end, its limit or the end of its link.

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "link/Exchange.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>
#include <QTimer>

class tst_ReadBytes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void eachPieceAsItCame();
    void whatHasArrivedIsTakenAtOnce();
    void aPieceAndTheEndOfTheLink();
    void silenceEndsIt();
    void dataRestartTheClock();
    void theLimitMayChange();
    void aLostLinkEndsItAtOnce();
    void anotherLinkIsSomebodyElses();
    void withoutALink();
    void whatTheSocketHoldsIsTakenUp();
    void lessGathersWhileBytesAreRead();
    void aTurnASecond();
    void itDoesNotSpin();
    void whatTakingThrowsComesThrough();
    void theRestIsDropped();

private:
    BytesStatus read(qsizetype toTheEnd = -1);

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
    FakeSocket *socket = nullptr;
    QByteArrayList pieces; ///< those with something in them
    int turns = 0;
    float limit = 60.0F;
};

void tst_ReadBytes::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    FakeSocket::Install();
    frmWinsock::Form();
    socket = FakeSocket::Last();
    pieces.clear();
    turns = 0;
    limit = 60.0F;
}

void tst_ReadBytes::cleanup()
{
    clock.reset();
    folder.reset();
}

/// Reads until so many pieces have come.
BytesStatus tst_ReadBytes::read(qsizetype toTheEnd)
{
    return ReadBytes(
        [this, toTheEnd](const QByteArray &piece) {
            ++turns;
            if (!piece.isEmpty())
                pieces.append(piece);
            return pieces.size() == toTheEnd;
        },
        [this] { return limit; });
}

void tst_ReadBytes::eachPieceAsItCame()
{
    const QByteArrayList sent{"|one", QByteArray("\0\xFF|", 3), "|", "|EOF~|"};
    socket->ArriveLater(sent);
    QCOMPARE(read(4), BytesStatus::Over);
    QCOMPARE(pieces, sent);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_ReadBytes::whatHasArrivedIsTakenAtOnce()
{
    socket->Arrive("here already");
    const unsigned long long yields = YieldCount();
    QCOMPARE(read(1), BytesStatus::Over);
    QCOMPARE(YieldCount(), yields);
    QCOMPARE(pieces, QByteArrayList{"here already"});
}

void tst_ReadBytes::aPieceAndTheEndOfTheLink()
{
    QTimer::singleShot(0, socket, [this] {
        socket->Arrive("the last");
        socket->PeerCloses();
    });
    QCOMPARE(read(), BytesStatus::Lost);
    QCOMPARE(pieces, QByteArrayList{"the last"});
}

void tst_ReadBytes::silenceEndsIt()
{
    clock->Run(10.0);
    const float start = clock->SecondsOfDay();
    QCOMPARE(read(), BytesStatus::Silent);
    QVERIFY(clock->SecondsOfDay() - start >= 60.0F);
    QCOMPARE(socket->state, SocketState::Connected);
}

void tst_ReadBytes::dataRestartTheClock()
{
    int sent = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        clock->Advance(50.0);
        socket->Arrive(QByteArray::number(++sent));
    });
    timer.start(1);
    QCOMPARE(read(4), BytesStatus::Over);
    QCOMPARE(pieces, (QByteArrayList{"1", "2", "3", "4"}));
}

void tst_ReadBytes::theLimitMayChange()
{
    QTimer::singleShot(0, this, [this] {
        limit = 5.0F;
        clock->Advance(6.0);
    });
    QCOMPARE(read(), BytesStatus::Silent);
}

void tst_ReadBytes::aLostLinkEndsItAtOnce()
{
    QTimer::singleShot(0, socket, [this] { socket->PeerCloses(); });
    QCOMPARE(read(), BytesStatus::Lost);
    QVERIFY(Global.bConnectionClosed);
    QCOMPARE(socket->state, SocketState::Closed);
    QCOMPARE(clock->Sleeps(), QList<int>());
}

void tst_ReadBytes::anotherLinkIsSomebodyElses()
{
    QTimer::singleShot(0, this, [] {
        frmWinsock::Unload();
        frmWinsock::Form();
        FakeSocket::Last()->Arrive("of another session");
    });
    QCOMPARE(read(), BytesStatus::Lost);
    QCOMPARE(pieces, QByteArrayList());
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("of another session"));
    QCOMPARE(FakeSocket::Last()->state, SocketState::Connected);
}

void tst_ReadBytes::withoutALink()
{
    frmWinsock::Unload();
    QCOMPARE(read(), BytesStatus::Lost);
    QVERIFY(!frmWinsock::IsLoaded());
}

/// An arrival that found the buffer full leaves its data with the socket, and no event tells of
/// them again.
void tst_ReadBytes::whatTheSocketHoldsIsTakenUp()
{
    Global.strRecvBuffer.Append(QByteArray(maximumBacklogBytes, 'x'));
    socket->Arrive("left behind");
    QCOMPARE(socket->BytesAvailable(), 11);
    QCOMPARE(read(2), BytesStatus::Over);
    QCOMPARE(pieces.at(0).size(), maximumBacklogBytes);
    QCOMPARE(pieces.at(1), QByteArray("left behind"));
}

/// What has gathered, as behind an open box, is handed over as one piece.
void tst_ReadBytes::lessGathersWhileBytesAreRead()
{
    QList<qint64> gathered;
    socket->Arrive("the first");
    const BytesStatus status = ReadBytes(
        [&](const QByteArray &piece) {
            if (gathered.isEmpty()) {
                socket->Arrive(QByteArray(maximumPieceBytes, 'x'));
                socket->Arrive("left behind");
                gathered = {Global.strRecvBuffer.Size(), socket->BytesAvailable()};
            }
            return piece.endsWith("left behind");
        },
        [this] { return limit; });
    QCOMPARE(status, BytesStatus::Over);
    QCOMPARE(gathered, (QList<qint64>{maximumPieceBytes, 11}));
    // A reply of tokens has its room again.
    socket->Arrive(QByteArray(maximumPieceBytes, 'x'));
    socket->Arrive("and more");
    QCOMPARE(Global.strRecvBuffer.Size(), maximumPieceBytes + 8);
}

/// Whoever reads can show that it still waits. The clock stands still here, and real time is asked.
void tst_ReadBytes::aTurnASecond()
{
    clock.reset();
    const auto start = Clock::Current().SecondsOfDay();
    ReadBytes([this](const QByteArray &) { return ++turns == 3; }, [] { return 60.0F; });
    QVERIFY(ElapsedSeconds(start) < 10.0F);
    clock = std::make_unique<TestClock>();
}

void tst_ReadBytes::itDoesNotSpin()
{
    QTimer::singleShot(300, socket, [this] { socket->Arrive("late"); });
    QCOMPARE(read(1), BytesStatus::Over);
    QVERIFY2(turns < 10, qPrintable(QString::number(turns)));
}

void tst_ReadBytes::whatTakingThrowsComesThrough()
{
    socket->Arrive("x");
    QVERIFY_THROWS_EXCEPTION(
        RunTimeError, ReadBytes([](const QByteArray &) -> bool { throw RunTimeError::DiskFull(); },
                                [] { return 60.0F; }));
}

void tst_ReadBytes::theRestIsDropped()
{
    socket->Arrive("in the buffer");
    socket->HoldBack("and on its way");
    DropRestOfReply();
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(socket->BytesAvailable(), 0);
}

HALVANE_TEST(tst_ReadBytes)
#include "tst_ReadBytes.moc"
