#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/RunSettings.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QPointer>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
enum class Outcome { Accepts, Refuses, Silent, Fails };

/// What the network does with each attempt, in order, and what was attempted.
struct Network
{
    QList<Outcome> outcomes; ///< attempts beyond the last are refused
    QStringList attempts;    ///< "address:port"
    QList<quint16> localPorts;
};
Network network;

void dial(FakeSocket *socket)
{
    const Outcome outcome = network.outcomes.value(network.attempts.size(), Outcome::Refuses);
    network.attempts.append(socket->connectedTo.last());
    network.localPorts.append(socket->LocalPort);
    socket->refuses = outcome == Outcome::Refuses;
    socket->connects = outcome == Outcome::Accepts;
    if (outcome == Outcome::Fails)
        QTimer::singleShot(0, socket, [socket] {
            Q_EMIT socket->Error(10060, u"Attempt to connect timed out"_s);
        });
}

const QString attempting = u"Attempting to Connect to Router"_s;
const QString connected = u"Successfully connected to router"_s;
const QString notRunning = u"Router is not running"_s;
const QString failed = u"Error connecting to router"_s;
const QString swappedTo85 = u"Note: Swapping Connection Port to: 85"_s;
const QString socketError = u"attempting to close and reconnect to router.."_s;

bool never()
{
    return false;
}

QString savedPort()
{
    return GetOptionStr(u"Communications"_s, u"HVServerPort"_s);
}
} // namespace

class tst_Router : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theServerListHasFiveEntries_data();
    void theServerListHasFiveEntries();
    void loadingTheServerListAgainReplacesIt();

    void aConnectThatSucceeds();
    void aConnectThatIsRefused();
    void aConnectThatIsSilentEndsAfterSevenSeconds();
    void anotherErrorWaitsForTheSevenSeconds();
    void theWaitHoldsOverMidnight();
    void theAddressIsTrimmedAndTheLocalPortFree();
    void aFormThatIsLoadedIsUsed();
    void unloadingUnderTheWaitEndsIt();
    void aNewAttemptUnderTheWaitIsLeftAlone();

    void tenAttemptsInTheirOrder_data();
    void tenAttemptsInTheirOrder();
    void eachSwapIsLogged();
    void whatIsSaved_data();
    void whatIsSaved();
    void aSuccessIsFollowedByAShortSleep();
    void aMissingListIsTriedLikeAddresses();
    void cancelBeforeTheFirstAttempt();
    void cancelBetweenAddresses();
    void cancelDuringAnAttemptTakesEffectBehindIt_data();
    void cancelDuringAnAttemptTakesEffectBehindIt();
    void aRealRefusalAndARealServer();

    void hasNetworkAddress_data();
    void aPortThatIsHeldIsNotSaved();
    void hasNetworkAddress();
    void closeServerLink();
    void closingALinkThatIsNotOpen();

private:
    double secondsGone() const { return static_cast<double>(began.msecsTo(clock->Now())) / 1000.0; }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
    QDateTime began;
};

void tst_Router::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    network = Network();
    FakeSocket::Install([](FakeSocket *socket) { socket->dialled = [socket] { dial(socket); }; });
    folder->Write(u"options.ini"_s,
                  "[Communications]\r\nHVServerIP1=a1\r\nHVServerIP2=a2\r\nHVServerIP3=a3\r\n"
                  "HVServerIP4=a4\r\nHVServerIP5=a5\r\nHVServerPort=80\r\n");
    began = clock->Now();
    clock->Run(0.05);
}

void tst_Router::cleanup()
{
    clock.reset();
    folder.reset();
}

void tst_Router::theServerListHasFiveEntries_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("list");
    QTest::newRow("no settings") << QByteArray()
                                 << QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s};
    QTest::newRow("the second is missing")
        << QByteArray("[Communications]\r\nHVServerIP1=a\r\nHVServerIP3=c\r\nHVServerIP4=d\r\n"
                      "HVServerIP5=e\r\nHVServerIP6=f\r\n")
        << QStringList{u"a"_s, u"0"_s, u"c"_s, u"d"_s, u"e"_s};
    QTest::newRow("in another order")
        << QByteArray("[communications]\r\nhvserverip5=e\r\nhvserverip4=d\r\nhvserverip3=c\r\n"
                      "hvserverip2=b\r\nhvserverip1=a\r\n")
        << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s};
}

void tst_Router::theServerListHasFiveEntries()
{
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, list);
    folder->Write(u"options.ini"_s, settings);
    QCOMPARE(LoadServerList(), list);
}

void tst_Router::loadingTheServerListAgainReplacesIt()
{
    LoadServerList();
    folder->Write(u"options.ini"_s, "[Communications]\r\nHVServerIP1=new\r\n");
    QCOMPARE(LoadServerList(), (QStringList{u"new"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
}

void tst_Router::aConnectThatSucceeds()
{
    network.outcomes = {Outcome::Accepts};
    QVERIFY(ConnectToRouter(u"a1"_s));
    QCOMPARE(Global.intConnectState, int(ConnectDone));
    QVERIFY(frmWinsock::IsLoaded());
    QCOMPARE(Global.sckServer->State(), SocketState::Connected);
    QCOMPARE(folder->Log(), (QStringList{attempting, connected}));
}

void tst_Router::aConnectThatIsRefused()
{
    QVERIFY(!ConnectToRouter(u"a1"_s));
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(Global.sckServer, nullptr);
    QVERIFY(secondsGone() < 7.0);
    QCOMPARE(folder->Log(), (QStringList{attempting, socketError, notRunning}));
}

void tst_Router::aConnectThatIsSilentEndsAfterSevenSeconds()
{
    network.outcomes = {Outcome::Silent};
    QVERIFY(!ConnectToRouter(u"a1"_s));
    QVERIFY2(secondsGone() >= 7.0 && secondsGone() <= 9.0,
             qPrintable(QString::number(secondsGone())));
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(folder->Log(), (QStringList{attempting, failed}));
}

void tst_Router::anotherErrorWaitsForTheSevenSeconds()
{
    network.outcomes = {Outcome::Fails};
    QVERIFY(!ConnectToRouter(u"a1"_s));
    QVERIFY(secondsGone() >= 7.0 && secondsGone() <= 9.0);
    QCOMPARE(folder->Log(), (QStringList{attempting, socketError, failed}));
}

void tst_Router::theWaitHoldsOverMidnight()
{
    clock->Set(QDateTime({2026, 3, 10}, {23, 59, 57}));
    began = clock->Now();
    network.outcomes = {Outcome::Silent};
    QVERIFY(!ConnectToRouter(u"a1"_s));
    QVERIFY(secondsGone() >= 6.9 && secondsGone() <= 9.0);
}

void tst_Router::theAddressIsTrimmedAndTheLocalPortFree()
{
    frmWinsock::Form().CSock->LocalPort = 1234;
    Global.lngServerPort = 8080;
    ConnectToRouter(u"  192.0.2.7 "_s);
    QCOMPARE(network.attempts, QStringList{u"192.0.2.7:8080"_s});
    QCOMPARE(network.localPorts, QList<quint16>{0});
}

void tst_Router::aFormThatIsLoadedIsUsed()
{
    const frmWinsock *form = &frmWinsock::Form();
    network.outcomes = {Outcome::Accepts};
    QVERIFY(ConnectToRouter(u"a1"_s));
    QCOMPARE(&frmWinsock::Form(), form);
}

void tst_Router::unloadingUnderTheWaitEndsIt()
{
    network.outcomes = {Outcome::Silent};
    QTimer::singleShot(10, this, [] { LoadSocketForm(false); });
    QVERIFY(!ConnectToRouter(u"a1"_s));
    QVERIFY(secondsGone() < 7.0);
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(folder->Log(), (QStringList{attempting, failed}));
}

void tst_Router::aNewAttemptUnderTheWaitIsLeftAlone()
{
    // The user gives up, and connects anew while the first wait is still on the stack.
    network.outcomes = {Outcome::Silent, Outcome::Accepts};
    bool second = false;
    QTimer::singleShot(10, this, [&] {
        LoadSocketForm(false);
        second = ConnectToRouter(u"a2"_s);
    });
    QVERIFY(!ConnectToRouter(u"a1"_s));
    QVERIFY(second);
    QCOMPARE(Global.intConnectState, int(ConnectDone));
    QVERIFY(frmWinsock::IsLoaded());
    QCOMPARE(Global.sckServer->State(), SocketState::Connected);
}

void tst_Router::tenAttemptsInTheirOrder_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<QStringList>("attempts");
    QTest::addColumn<int>("portAfter");
    QTest::newRow("from 80") << 80 << QStringList{u"a1:80"_s, u"a1:85"_s, u"a2:85"_s, u"a2:80"_s,
                                                  u"a3:80"_s, u"a3:85"_s, u"a4:85"_s, u"a4:80"_s,
                                                  u"a5:80"_s, u"a5:85"_s}
                             << 85;
    QTest::newRow("from 85") << 85 << QStringList{u"a1:85"_s, u"a1:80"_s, u"a2:80"_s, u"a2:85"_s,
                                                  u"a3:85"_s, u"a3:80"_s, u"a4:80"_s, u"a4:85"_s,
                                                  u"a5:85"_s, u"a5:80"_s}
                             << 80;
    QTest::newRow("8080 becomes 80 and never comes back")
        << 8080 << QStringList{u"a1:8080"_s, u"a1:80"_s, u"a2:80"_s, u"a2:85"_s, u"a3:85"_s,
                               u"a3:80"_s,   u"a4:80"_s, u"a4:85"_s, u"a5:85"_s, u"a5:80"_s}
        << 80;
}

void tst_Router::tenAttemptsInTheirOrder()
{
    QFETCH(int, port);
    QFETCH(QStringList, attempts);
    QFETCH(int, portAfter);
    Global.lngServerPort = port;
    QCOMPARE(SelectServer(never), ServerSelection::NotAvailable);
    QCOMPARE(network.attempts, attempts);
    QCOMPARE(Global.lngServerPort, portAfter);
    QCOMPARE(savedPort(), u"80"_s);
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(clock->Sleeps(), QList<int>());
}

void tst_Router::eachSwapIsLogged()
{
    SelectServer(never);
    QCOMPARE(folder->TimesLogged(u"Note: Swapping Connection Port to: 85"_s), 3);
    QCOMPARE(folder->TimesLogged(u"Note: Swapping Connection Port to: 80"_s), 2);
    QCOMPARE(folder->TimesLogged(attempting), 10);
    QCOMPARE(folder->TimesLogged(notRunning), 10);
}

void tst_Router::whatIsSaved_data()
{
    QTest::addColumn<int>("refusals");
    QTest::addColumn<QString>("last");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("saved");
    QTest::newRow("the first at once") << 0 << u"a1:80"_s << 80 << u"80"_s;
    QTest::newRow("the first after a swap") << 1 << u"a1:85"_s << 85 << u"85"_s;
    QTest::newRow("the second on the swapped port is used, not saved")
        << 2 << u"a2:85"_s << 85 << u"80"_s;
    QTest::newRow("the second after a swap back") << 3 << u"a2:80"_s << 80 << u"80"_s;
    QTest::newRow("the fourth on the swapped port") << 6 << u"a4:85"_s << 85 << u"80"_s;
    QTest::newRow("the last attempt") << 9 << u"a5:85"_s << 85 << u"85"_s;
}

void tst_Router::whatIsSaved()
{
    QFETCH(int, refusals);
    QFETCH(QString, last);
    QFETCH(int, port);
    QFETCH(QString, saved);
    network.outcomes = QList<Outcome>(refusals, Outcome::Refuses) << Outcome::Accepts;
    QCOMPARE(SelectServer(never), ServerSelection::Contacted);
    QCOMPARE(int(network.attempts.size()), refusals + 1);
    QCOMPARE(network.attempts.last(), last);
    QCOMPARE(Global.lngServerPort, port);
    QCOMPARE(savedPort(), saved);
    QCOMPARE(Global.intConnectState, int(ConnectDone));
}

void tst_Router::aSuccessIsFollowedByAShortSleep()
{
    network.outcomes = {Outcome::Accepts};
    QCOMPARE(SelectServer(never), ServerSelection::Contacted);
    QCOMPARE(clock->Sleeps(), QList<int>{100});
    frmWinsock::Unload();
    network = Network();
    network.outcomes = {Outcome::Refuses, Outcome::Accepts};
    QCOMPARE(SelectServer(never), ServerSelection::Contacted);
    QCOMPARE(clock->Sleeps(), (QList<int>{100, 100}));
}

void tst_Router::aMissingListIsTriedLikeAddresses()
{
    folder->Write(u"options.ini"_s, {});
    QCOMPARE(SelectServer(never), ServerSelection::NotAvailable);
    QCOMPARE(int(network.attempts.size()), 10);
    QCOMPARE(network.attempts.first(), u"0:80"_s);
}

void tst_Router::cancelBeforeTheFirstAttempt()
{
    QCOMPARE(SelectServer([] { return true; }), ServerSelection::Cancelled);
    QCOMPARE(network.attempts, QStringList());
    QCOMPARE(Global.lngServerPort, 80);
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Router::cancelBetweenAddresses()
{
    const auto afterTwo = [] { return network.attempts.size() >= 2; };
    QCOMPARE(SelectServer(afterTwo), ServerSelection::Cancelled);
    QCOMPARE(network.attempts, (QStringList{u"a1:80"_s, u"a1:85"_s}));
    QCOMPARE(Global.lngServerPort, 85);
    QCOMPARE(savedPort(), u"80"_s);
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QCOMPARE(folder->Log(), (QStringList{attempting, socketError, notRunning, swappedTo85,
                                         attempting, socketError, notRunning}));
}

void tst_Router::cancelDuringAnAttemptTakesEffectBehindIt_data()
{
    QTest::addColumn<int>("refusals");
    QTest::addColumn<QStringList>("attempts");
    QTest::addColumn<int>("port");
    QTest::addColumn<QStringList>("log");
    const QStringList silent{attempting, failed};
    const QStringList refused{attempting, socketError, notRunning};
    const QStringList one = refused + QStringList{swappedTo85};
    QTest::newRow("the first try of an address: before the port is swapped")
        << 0 << QStringList{u"a1:80"_s} << 80 << silent;
    QTest::newRow("the second try of an address: the swapped port stays")
        << 1 << QStringList{u"a1:80"_s, u"a1:85"_s} << 85 << one + silent;
    QTest::newRow("the first try of the second address")
        << 2 << QStringList{u"a1:80"_s, u"a1:85"_s, u"a2:85"_s} << 85 << one + refused + silent;
}

void tst_Router::cancelDuringAnAttemptTakesEffectBehindIt()
{
    QFETCH(int, refusals);
    network.outcomes = QList<Outcome>(refusals, Outcome::Refuses) << Outcome::Silent;
    bool cancelled = false;
    // The user loses patience a second into the attempt that gets no answer.
    QTimer user;
    QDateTime silentSince;
    connect(&user, &QTimer::timeout, this, [&] {
        if (network.attempts.size() <= refusals)
            return;
        if (!silentSince.isValid())
            silentSince = clock->Now();
        cancelled = silentSince.msecsTo(clock->Now()) >= 1000;
    });
    user.start(1);
    QCOMPARE(SelectServer([&] { return cancelled; }), ServerSelection::Cancelled);
    QVERIFY(cancelled);
    QVERIFY(secondsGone() >= 7.0);
    QTEST(network.attempts, "attempts");
    QTEST(Global.lngServerPort, "port");
    QCOMPARE(savedPort(), u"80"_s);
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QVERIFY(!frmWinsock::IsLoaded());
    QTEST(folder->Log(), "log");
}

void tst_Router::aRealRefusalAndARealServer()
{
    clock->Stop();
    frmWinsock::SetSocketFactory({});
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    Global.lngServerPort = server.serverPort();
    QVERIFY(ConnectToRouter(u"127.0.0.1"_s));
    QCOMPARE(Global.sckServer->State(), SocketState::Connected);
    CloseServerLink();
    server.close();
    QVERIFY(!ConnectToRouter(u"127.0.0.1"_s));
    QCOMPARE(folder->Log(),
             (QStringList{attempting, connected, u"Closed connection to Halvane Server"_s,
                          attempting, socketError, notRunning}));
}

void tst_Router::hasNetworkAddress_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("has");
    QTest::newRow("loopback only") << u"127.0.0.1"_s << false;
    QTest::newRow("an address") << u"192.0.2.1"_s << true;
    QTest::newRow("another loopback address") << u"127.0.0.2"_s << true;
}

void tst_Router::aPortThatIsHeldIsNotSaved()
{
    HoldForThisRun(u"Communications"_s, u"HVServerPort"_s, u"4711"_s);
    HoldForThisRun(u"Communications"_s, u"HVServerIP1"_s, u"127.0.0.1"_s);
    const QByteArray before = "[Communications]\r\nHVServerIP1=a1\r\nHVServerPort=85\r\n";
    folder->Write(u"options.ini"_s, before);
    LoadAppOptions();
    network.outcomes = {Outcome::Refuses, Outcome::Accepts};
    QCOMPARE(SelectServer([] { return false; }), ServerSelection::Contacted);
    QCOMPARE(network.attempts, (QStringList{u"127.0.0.1:4711"_s, u"127.0.0.1:80"_s}));
    QVERIFY(folder->Read(u"options.ini"_s).startsWith(before));
}

void tst_Router::hasNetworkAddress()
{
    QFETCH(QString, address);
    QFETCH(bool, has);
    FakeSocket::Install([address](FakeSocket *socket) { socket->localIP = address; });
    QCOMPARE(HasNetworkAddress(), has);
    QVERIFY(frmWinsock::IsLoaded());
}

void tst_Router::closeServerLink()
{
    network.outcomes = {Outcome::Accepts};
    QVERIFY(ConnectToRouter(u"a1"_s));
    const QPointer<ServerSocket> socket(Global.sckServer);
    CloseServerLink();
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(Global.sckServer, nullptr);
    QVERIFY(!socket || socket->State() == SocketState::Closed);
    QCOMPARE(folder->Log(),
             (QStringList{attempting, connected, u"Closed connection to Halvane Server"_s}));
}

void tst_Router::closingALinkThatIsNotOpen()
{
    Global.intConnectState = ConnectDone;
    CloseServerLink();
    QCOMPARE(Global.intConnectState, int(ConnectIdle));
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(folder->Log(), QStringList{u"Closed connection to Halvane Server"_s});
}

HALVANE_TEST(tst_Router)
#include "tst_Router.moc"
