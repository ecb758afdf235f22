#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "link/Comm.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype megabyte = 1024 * 1024;
const QString refused = u"Refused a token of more than 33554432 bytes. Closing the connection."_s;

/// Token number `n`, 1 KB long with its bars.
QByteArray numbered(int n)
{
    return '|' + QByteArray::number(n).rightJustified(1022, '.') + '|';
}

/// Tokens `first` to `last`, both included.
QByteArray tokens(int first, int last)
{
    QByteArray bytes;
    for (int n = first; n <= last; ++n)
        bytes += numbered(n);
    return bytes;
}

int numberOf(const QString &token)
{
    return token.mid(token.lastIndexOf(u'.') + 1).toInt();
}
} // namespace

class tst_Backlog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aFullBufferLeavesDataWithTheSocket();
    void whatStayedWithTheSocketIsTakenWhenTheBufferIsDrained();
    void aPartialTokenAtTheLimitIsStillCompleted();
    void anEndlessTokenIsRefused();
    void anEndlessRunOfJunkIsRefused();
    void anEmptyTokenBeforeAFullBufferIsNoEndlessToken();
    void anEndlessTokenTakesBoundedMemory();
    void theLinkCanBeUsedAnewAfterARefusal();
    void aPingInAFloodIsAnsweredAndEmptiesTheBuffer();
    void aPingIsNotAnsweredWhileTheServerReadsNothing();
    void aFloodOverARealConnectionLosesNothing();

private:
    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
    FakeSocket *socket = nullptr;
};

void tst_Backlog::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    FakeSocket::Install();
    frmWinsock::Form();
    socket = FakeSocket::Last();
}

void tst_Backlog::cleanup()
{
    clock.reset();
    folder.reset();
}

void tst_Backlog::aFullBufferLeavesDataWithTheSocket()
{
    socket->Arrive(QByteArray(maximumBacklogBytes, 'x'));
    QCOMPARE(socket->BytesAvailable(), 0);
    frmWinsock::Form().TmrInactivityTag = u"3"_s;
    socket->Arrive("|A~|");
    socket->Arrive("|B~|");
    QCOMPARE(socket->BytesAvailable(), 8);
    QCOMPARE(Global.strRecvBuffer.Size(), maximumBacklogBytes);
    Global.strRecvBuffer.Clear();
    frmWinsock::Form().TakeArrivedData();
    QCOMPARE(Global.strRecvBuffer.View().toByteArray(), QByteArray("|A~||B~|"));
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"0"_s);
}

void tst_Backlog::whatStayedWithTheSocketIsTakenWhenTheBufferIsDrained()
{
    constexpr int inAll = 40 * 1024;
    for (int n = 0; n < inAll; n += 1024) {
        socket->Arrive(tokens(n, n + 1023));
        QVERIFY(Global.strRecvBuffer.Size() <= maximumBacklogBytes + megabyte);
    }
    QVERIFY(socket->BytesAvailable() > 7 * megabyte);
    // Nothing more arrives: no event will say that there is something left to take.
    clock->Run(1.0);
    for (int n = 0; n < inAll; ++n) {
        const Response response = ReadResponse();
        QCOMPARE(response.Status, ReadStatus::Token);
        QCOMPARE(numberOf(response.Token), n);
    }
    QCOMPARE(socket->BytesAvailable(), 0);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Backlog::aPartialTokenAtTheLimitIsStillCompleted()
{
    socket->Arrive('|' + QByteArray(maximumBacklogBytes - 2, 'x'));
    socket->ArriveLater({"~|"});
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::Token);
    QCOMPARE(response.Token.size(), maximumBacklogBytes - 1);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Backlog::anEndlessTokenIsRefused()
{
    socket->Arrive('|' + QByteArray(maximumBacklogBytes - 1, 'x'));
    QSignalSpy dropped(&LinkEvents::Of(), &LinkEvents::LinkDropped);
    const Response response = ReadResponse();
    QCOMPARE(response.Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(response.Token, QString());
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(folder->Log(), (QStringList{refused, u"Closed connection to Halvane Server"_s,
                                         u"Connection Lost While Waiting for Response. "
                                         "Exiting Process ReadResponse()"_s}));
    // Nothing is left that the next login could take for a connection.
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(Global.sckServer, nullptr);
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QCOMPARE(dropped.count(), 1);
}

void tst_Backlog::anEndlessRunOfJunkIsRefused()
{
    socket->Arrive(QByteArray(maximumBacklogBytes, 'x'));
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QVERIFY(folder->Logged(refused));
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_Backlog::anEmptyTokenBeforeAFullBufferIsNoEndlessToken()
{
    constexpr int inAll = 33 * 1024;
    socket->Arrive("||" + tokens(1, inAll));
    QVERIFY(Global.strRecvBuffer.Size() > maximumBacklogBytes);
    for (int n = 1; n <= inAll; ++n) {
        const Response response = ReadResponse();
        QCOMPARE(response.Status, ReadStatus::Token);
        QCOMPARE(numberOf(response.Token), n);
    }
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Backlog::anEndlessTokenTakesBoundedMemory()
{
    QByteArrayList pieces{"|"};
    for (int i = 0; i < 64; ++i)
        pieces.append(QByteArray(megabyte, 'x'));
    qsizetype most = 0;
    connect(socket, &ServerSocket::DataArrival, this,
            [&] { most = std::max(most, Global.strRecvBuffer.Size()); });
    socket->ArriveLater(pieces);
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    QCOMPARE(folder->TimesLogged(refused), 1);
    for (int i = 0; i < 200; ++i)
        Yield();
    QVERIFY(most >= maximumBacklogBytes);
    QVERIFY(most <= maximumBacklogBytes + 2 * megabyte);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

void tst_Backlog::theLinkCanBeUsedAnewAfterARefusal()
{
    socket->Arrive(QByteArray(maximumBacklogBytes, 'x'));
    QCOMPARE(ReadResponse().Status, ReadStatus::TimedOutOrLost);
    CloseServerLink();
    frmWinsock::Form();
    FakeSocket::Last()->Arrive("|A~|");
    QCOMPARE(ReadResponse().Token, u"A~"_s);
}

void tst_Backlog::aPingInAFloodIsAnsweredAndEmptiesTheBuffer()
{
    socket->Arrive(tokens(0, 20 * 1024));
    socket->Arrive("|DIAG001|");
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(socket->sent, QByteArrayList{"|IMALIVE\xA6|"});
}

void tst_Backlog::aPingIsNotAnsweredWhileTheServerReadsNothing()
{
    socket->unsent = 4096;
    socket->Arrive("|DIAG001|");
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    QCOMPARE(socket->sent, QByteArrayList());
    socket->unsent = 4095;
    socket->Arrive("|DIAG001|");
    QCOMPARE(socket->sent, QByteArrayList{"|IMALIVE\xA6|"});
}

void tst_Backlog::aFloodOverARealConnectionLosesNothing()
{
    frmWinsock::Unload();
    frmWinsock::SetSocketFactory({});
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    Global.lngServerPort = server.serverPort();
    QVERIFY(ConnectToRouter(u"127.0.0.1"_s));
    QTRY_VERIFY(server.hasPendingConnections());
    QTcpSocket *court = server.nextPendingConnection();
    constexpr int inAll = 48 * 1024;
    court->write(tokens(0, inAll - 1));
    // Nobody reads for as long as there is room.
    QElapsedTimer time;
    time.start();
    while (Global.strRecvBuffer.Size() < maximumBacklogBytes && time.elapsed() < 20'000)
        YieldUntilEvent(0.05);
    for (int i = 0; i < 20; ++i)
        YieldUntilEvent(0.005);
    QVERIFY(Global.strRecvBuffer.Size() >= maximumBacklogBytes);
    QVERIFY(Global.strRecvBuffer.Size() <= maximumBacklogBytes + megabyte);
    QVERIFY(court->bytesToWrite() > 0);
    for (int n = 0; n < inAll; ++n) {
        const Response response = ReadResponse();
        QCOMPARE(response.Status, ReadStatus::Token);
        QCOMPARE(numberOf(response.Token), n);
    }
    QVERIFY(Global.strRecvBuffer.IsEmpty());
}

HALVANE_TEST(tst_Backlog)
#include "tst_Backlog.moc"
