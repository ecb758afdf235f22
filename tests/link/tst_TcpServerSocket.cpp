#include "core/EventLoop.h"
#include "link/TcpServerSocket.h"
#include "support/HalvaneTest.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {
/// A port of this machine on which nobody listens.
quint16 closedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

/// How many segments with data in them have arrived at this end of a connection.
unsigned segmentsReceived(const QTcpSocket &end)
{
    tcp_info info = {};
    socklen_t size = sizeof info;
    ::getsockopt(static_cast<int>(end.socketDescriptor()), IPPROTO_TCP, TCP_INFO, &info, &size);
    return info.tcpi_data_segs_in;
}
} // namespace

class tst_TcpServerSocket : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void anUnusedSocketIsClosed();
    void connectingTellsByItsEvent();
    void aRefusedConnectSaysSoInTheWordsThatTheLogicKnows();
    void aRefusalComesFromTheEventLoopOnly();
    void anImpossibleAddressIsReportedFromTheEventLoopOnly_data();
    void anImpossibleAddressIsReportedFromTheEventLoopOnly();
    void whatAConnectHadToTellEndsWithIt();
    void takingUpFindsWhatNoEventHasReported();
    void takingUpNothingIsNoError();
    void takingUpTheEndOfTheConnectionTellsItFromTheEventLoopOnly();
    void anUnknownHostIsAnErrorButNoRefusal();
    void dataArriveAndAreTakenInPieces();
    void sendCompleteComesFromTheEventLoopOnly();
    void eachSendCompletes();
    void aFrameIsOneWrite();
    void aLargeSendCompletesOnceItHasLeft();
    void theServersCloseIsAnEventAndState8();
    void closeAfterTheServersCloseGoesToIdle();
    void dataBeforeTheServersCloseAreStillDelivered();
    void ourOwnCloseIsNoEvent();
    void aResetByTheServerEndsTheConnection();
    void sendingIntoADeadConnectionTellsFromTheEventLoopOnly();
    void aSendCompletesWhenTheLinkDiesWithUnsentBytes();
    void closingWhileConnectingIsQuiet();
    void connectingAgainAfterTheServersClose();
    void closingAClosedSocketIsNothing();
    void sendingOnAClosedSocketIsNoCrash();
    void noProxyIsUsed();
    void aFloodStaysWithTheServer();
    void localIP();
    void aLocalPortIsTaken();

private:
    void connectToServer();

    std::unique_ptr<QTcpServer> server;
    std::unique_ptr<TcpServerSocket> socket;
    QTcpSocket *peer = nullptr;
};

void tst_TcpServerSocket::init()
{
    server = std::make_unique<QTcpServer>();
    QVERIFY(server->listen(QHostAddress::LocalHost));
    socket = std::make_unique<TcpServerSocket>();
    socket->RemoteHost = u"127.0.0.1"_s;
    socket->RemotePort = server->serverPort();
}

void tst_TcpServerSocket::cleanup()
{
    socket.reset();
    server.reset();
    peer = nullptr;
    AssumeNetworkAddress(false);
}

void tst_TcpServerSocket::connectToServer()
{
    socket->Connect();
    QTRY_COMPARE(socket->State(), SocketState::Connected);
    QTRY_VERIFY(server->hasPendingConnections());
    peer = server->nextPendingConnection();
}

void tst_TcpServerSocket::anUnusedSocketIsClosed()
{
    QCOMPARE(socket->State(), SocketState::Closed);
    QCOMPARE(socket->BytesAvailable(), 0);
}

void tst_TcpServerSocket::connectingTellsByItsEvent()
{
    QSignalSpy connected(socket.get(), &ServerSocket::Connected);
    socket->Connect();
    QCOMPARE(connected.count(), 0);
    QVERIFY(socket->State() != SocketState::Connected);
    QTRY_COMPARE(connected.count(), 1);
    QCOMPARE(socket->State(), SocketState::Connected);
}

void tst_TcpServerSocket::aRefusedConnectSaysSoInTheWordsThatTheLogicKnows()
{
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    socket->RemotePort = closedPort();
    socket->Connect();
    QTRY_COMPARE(error.count(), 1);
    QVERIFY(error.first().at(1).toString().contains(u"forcefully rejected"_s));
    QVERIFY(socket->State() != SocketState::Connected);
    QCOMPARE(closed.count(), 0);
}

void tst_TcpServerSocket::aRefusalComesFromTheEventLoopOnly()
{
    // An address given as a number is tried at once, and this machine refuses at once.
    for (int i = 0; i < 20; ++i) {
        QSignalSpy error(socket.get(), &ServerSocket::Error);
        socket->RemotePort = closedPort();
        socket->Connect();
        QCOMPARE(error.count(), 0);
        QTRY_COMPARE(error.count(), 1);
    }
}

void tst_TcpServerSocket::anImpossibleAddressIsReportedFromTheEventLoopOnly_data()
{
    QTest::addColumn<QString>("host");
    QTest::newRow("the key that is missing") << u"0"_s;
    QTest::newRow("nobody's address") << u"255.255.255.255"_s;
    QTest::newRow("one that this machine has no road to") << u"2001:db8::1"_s;
    QTest::newRow("the many") << u"224.0.0.1"_s;
}

void tst_TcpServerSocket::anImpossibleAddressIsReportedFromTheEventLoopOnly()
{
    QFETCH(QString, host);
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    QSignalSpy connected(socket.get(), &ServerSocket::Connected);
    socket->RemoteHost = host;
    socket->RemotePort = closedPort();
    socket->Connect();
    QCOMPARE(error.count(), 0);
    QTRY_COMPARE(error.count(), 1);
    QCOMPARE(connected.count(), 0);
}

void tst_TcpServerSocket::whatAConnectHadToTellEndsWithIt()
{
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    QSignalSpy connected(socket.get(), &ServerSocket::Connected);
    socket->RemoteHost = u"255.255.255.255"_s;
    socket->Connect();
    socket->RemoteHost = u"127.0.0.1"_s;
    socket->Connect();
    QTRY_COMPARE(connected.count(), 1);
    QCOMPARE(error.count(), 0);
}

void tst_TcpServerSocket::takingUpFindsWhatNoEventHasReported()
{
    connectToServer();
    QSignalSpy arrival(socket.get(), &ServerSocket::DataArrival);
    peer->write("|A~|");
    peer->flush();
    QCOMPARE(socket->BytesAvailable(), 0);
    socket->TakeUpArrived();
    QCOMPARE(socket->BytesAvailable(), 4);
    QCOMPARE(arrival.count(), 0);
    // What nobody takes meanwhile is reported as ever.
    QTRY_COMPARE(arrival.count(), 1);
    QCOMPARE(socket->GetData(4), QByteArray("|A~|"));
    // And what was taken is not reported again.
    peer->write("|B~|");
    peer->flush();
    socket->TakeUpArrived();
    QCOMPARE(socket->GetData(4), QByteArray("|B~|"));
    Yield();
    Yield();
    QCOMPARE(arrival.count(), 1);
}

void tst_TcpServerSocket::takingUpNothingIsNoError()
{
    connectToServer();
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    socket->TakeUpArrived();
    QCOMPARE(socket->BytesAvailable(), 0);
    Yield();
    Yield();
    QCOMPARE(error.count(), 0);
    QCOMPARE(socket->State(), SocketState::Connected);
}

void tst_TcpServerSocket::takingUpTheEndOfTheConnectionTellsItFromTheEventLoopOnly()
{
    connectToServer();
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    peer->disconnectFromHost();
    socket->TakeUpArrived();
    QCOMPARE(closed.count(), 0);
    QTRY_COMPARE(closed.count(), 1);
}

void tst_TcpServerSocket::anUnknownHostIsAnErrorButNoRefusal()
{
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    socket->RemoteHost = u"no such host"_s;
    socket->Connect();
    QTRY_COMPARE_WITH_TIMEOUT(error.count(), 1, 20000);
    QVERIFY(!error.first().at(1).toString().contains(u"forcefully rejected"_s));
    QCOMPARE(socket->State(), SocketState::Closed);
}

void tst_TcpServerSocket::dataArriveAndAreTakenInPieces()
{
    connectToServer();
    QSignalSpy arrival(socket.get(), &ServerSocket::DataArrival);
    peer->write(QByteArray("|A~\0\xA6|", 6));
    QTRY_COMPARE(socket->BytesAvailable(), 6);
    QCOMPARE(arrival.last().first().toLongLong(), 6);
    QCOMPARE(socket->GetData(2), QByteArray("|A"));
    QCOMPARE(socket->GetData(100), QByteArray("~\0\xA6|", 4));
    QCOMPARE(socket->GetData(100), QByteArray());
}

void tst_TcpServerSocket::sendCompleteComesFromTheEventLoopOnly()
{
    connectToServer();
    QSignalSpy complete(socket.get(), &ServerSocket::SendComplete);
    socket->SendData("|GETMSG\xA6|");
    QCOMPARE(complete.count(), 0);
    QTRY_COMPARE(complete.count(), 1);
    QTRY_COMPARE(peer->bytesAvailable(), 9);
    QCOMPARE(peer->readAll(), QByteArray("|GETMSG\xA6|"));
}

void tst_TcpServerSocket::eachSendCompletes()
{
    connectToServer();
    QSignalSpy complete(socket.get(), &ServerSocket::SendComplete);
    for (int i = 1; i <= 5; ++i) {
        socket->SendData("|x|");
        QTRY_COMPARE(complete.count(), i);
    }
    for (int i = 0; i < 20; ++i)
        Yield();
    QCOMPARE(complete.count(), 5);
}

void tst_TcpServerSocket::aFrameIsOneWrite()
{
    // Every write leaves at once and alone, so the segments that the other end has received are the
    // writes. A second small write would have to wait for the acknowledgement of the first.
    connectToServer();
    const unsigned before = segmentsReceived(*peer);
    constexpr int frames = 20;
    for (int i = 1; i <= frames; ++i) {
        socket->SendData("|SEARCH\xA6SMITH\xA6|");
        QTRY_COMPARE(peer->bytesAvailable(), qint64{15} * i);
    }
    QCOMPARE(segmentsReceived(*peer) - before, unsigned{frames});
}

void tst_TcpServerSocket::aLargeSendCompletesOnceItHasLeft()
{
    connectToServer();
    QSignalSpy complete(socket.get(), &ServerSocket::SendComplete);
    const QByteArray large(20'000'000, 'x');
    socket->SendData(large);
    QCOMPARE(complete.count(), 0);
    qint64 arrived = 0;
    connect(peer, &QTcpSocket::readyRead, this, [&] {
        if (arrived == 0)
            QCOMPARE(complete.count(), 0);
        arrived += peer->readAll().size();
    });
    QTRY_COMPARE(arrived, qint64(large.size()));
    QTRY_COMPARE(complete.count(), 1);
}

void tst_TcpServerSocket::theServersCloseIsAnEventAndState8()
{
    connectToServer();
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    peer->close();
    QTRY_COMPARE(closed.count(), 1);
    QCOMPARE(int(socket->State()), 8);
    QCOMPARE(error.count(), 0);
}

void tst_TcpServerSocket::closeAfterTheServersCloseGoesToIdle()
{
    connectToServer();
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    peer->close();
    QTRY_COMPARE(closed.count(), 1);
    socket->Close();
    QCOMPARE(socket->State(), SocketState::Closed);
    QCOMPARE(closed.count(), 1);
}

void tst_TcpServerSocket::dataBeforeTheServersCloseAreStillDelivered()
{
    connectToServer();
    QByteArray arrived;
    connect(socket.get(), &ServerSocket::DataArrival, this, [&](qint64 bytes) {
        QCOMPARE(socket->State(), SocketState::Connected);
        arrived += socket->GetData(bytes);
    });
    const QByteArray reply = '|' + QByteArray(2'000'000, 'x') + "~||EOF~|";
    peer->write(reply);
    peer->disconnectFromHost();
    QTRY_COMPARE(int(socket->State()), 8);
    QCOMPARE(arrived, reply);
}

void tst_TcpServerSocket::ourOwnCloseIsNoEvent()
{
    connectToServer();
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    socket->Close();
    QCOMPARE(socket->State(), SocketState::Closed);
    QTRY_COMPARE(peer->state(), QAbstractSocket::UnconnectedState);
    QCOMPARE(closed.count(), 0);
    QCOMPARE(error.count(), 0);
}

void tst_TcpServerSocket::aResetByTheServerEndsTheConnection()
{
    connectToServer();
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    const linger hard{1, 0};
    QCOMPARE(::setsockopt(static_cast<int>(peer->socketDescriptor()), SOL_SOCKET, SO_LINGER, &hard,
                          sizeof hard),
             0);
    peer->abort();
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(socket->State() != SocketState::Connected);
    socket->Close();
    QCOMPARE(socket->State(), SocketState::Closed);
}

void tst_TcpServerSocket::sendingIntoADeadConnectionTellsFromTheEventLoopOnly()
{
    connectToServer();
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    QSignalSpy complete(socket.get(), &ServerSocket::SendComplete);
    const linger hard{1, 0};
    QCOMPARE(::setsockopt(static_cast<int>(peer->socketDescriptor()), SOL_SOCKET, SO_LINGER, &hard,
                          sizeof hard),
             0);
    peer->abort();
    // The connection is dead, and nobody here knows of it.
    QCOMPARE(socket->State(), SocketState::Connected);
    while (socket->State() == SocketState::Connected)
        socket->SendData("|x|");
    QCOMPARE(closed.count() + error.count() + complete.count(), 0);
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(socket->State() != SocketState::Connected);
}

void tst_TcpServerSocket::aSendCompletesWhenTheLinkDiesWithUnsentBytes()
{
    // Nobody may wait for what can never leave any more.
    connectToServer();
    QStringList events;
    connect(socket.get(), &ServerSocket::SendComplete, this, [&] { events.append(u"complete"_s); });
    connect(socket.get(), &ServerSocket::Closed, this, [&] { events.append(u"closed"_s); });
    connect(socket.get(), &ServerSocket::Error, this, [&] { events.append(u"error"_s); });
    peer->setReadBufferSize(1);
    socket->SendData(QByteArray(20'000'000, 'x'));
    YieldUntilEvent(0.05);
    QCOMPARE(events, QStringList());
    peer->abort();
    QTRY_VERIFY(events.contains(u"complete"_s) && events.contains(u"closed"_s));
    for (int i = 0; i < 20; ++i)
        Yield();
    QCOMPARE(events.count(u"complete"_s), 1);
    QCOMPARE(events.count(u"closed"_s), 1);
    QVERIFY(socket->State() != SocketState::Connected);
}

void tst_TcpServerSocket::closingWhileConnectingIsQuiet()
{
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    QSignalSpy error(socket.get(), &ServerSocket::Error);
    QSignalSpy connected(socket.get(), &ServerSocket::Connected);
    socket->Connect();
    socket->Close();
    for (int i = 0; i < 50; ++i)
        Yield();
    QCOMPARE(socket->State(), SocketState::Closed);
    QCOMPARE(closed.count() + error.count() + connected.count(), 0);
}

void tst_TcpServerSocket::connectingAgainAfterTheServersClose()
{
    connectToServer();
    peer->close();
    QTRY_COMPARE(int(socket->State()), 8);
    connectToServer();
    QCOMPARE(socket->State(), SocketState::Connected);
    peer->write("|A~|");
    QTRY_COMPARE(socket->BytesAvailable(), 4);
}

void tst_TcpServerSocket::closingAClosedSocketIsNothing()
{
    QSignalSpy closed(socket.get(), &ServerSocket::Closed);
    socket->Close();
    socket->Close();
    QCOMPARE(socket->State(), SocketState::Closed);
    QCOMPARE(closed.count(), 0);
}

void tst_TcpServerSocket::sendingOnAClosedSocketIsNoCrash()
{
    QSignalSpy complete(socket.get(), &ServerSocket::SendComplete);
    QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QTcpSocket): device not open");
    socket->SendData("|x|");
    for (int i = 0; i < 20; ++i)
        Yield();
    QCOMPARE(complete.count(), 0);
}

void tst_TcpServerSocket::noProxyIsUsed()
{
    qputenv("http_proxy", "http://127.0.0.1:1");
    connectToServer();
    qunsetenv("http_proxy");
    QCOMPARE(socket->State(), SocketState::Connected);
}

void tst_TcpServerSocket::aFloodStaysWithTheServer()
{
    connectToServer();
    peer->write(QByteArray(30'000'000, 'x'));
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 200) {
        YieldUntilEvent(0.02);
        QVERIFY(socket->BytesAvailable() <= 512 * 1024);
    }
    QVERIFY(socket->BytesAvailable() > 0);
    QVERIFY(peer->bytesToWrite() > 10'000'000);
    // Nothing of it is lost when it is taken.
    qint64 taken = 0;
    time.restart();
    while (taken < 30'000'000 && time.elapsed() < 20'000) {
        taken += socket->GetData(1'000'000).size();
        YieldUntilEvent(0.02);
    }
    QCOMPARE(taken, 30'000'000);
}

void tst_TcpServerSocket::localIP()
{
    AssumeNetworkAddress(true);
    QVERIFY(socket->LocalIP() != u"127.0.0.1"_s);
    AssumeNetworkAddress(false);
    const QHostAddress address(socket->LocalIP());
    QVERIFY(!address.isNull());
    // With no network there is the loopback address, and no other spelling of it.
    QVERIFY(!address.isLoopback() || socket->LocalIP() == u"127.0.0.1"_s);
}

void tst_TcpServerSocket::aLocalPortIsTaken()
{
    const quint16 port = closedPort();
    socket->LocalPort = port;
    connectToServer();
    QCOMPARE(peer->peerPort(), port);
}

HALVANE_TEST(tst_TcpServerSocket)
#include "tst_TcpServerSocket.moc"
