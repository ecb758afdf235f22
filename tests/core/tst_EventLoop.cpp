#include "core/EventLoop.h"
#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QThread>
#include <QTimer>

namespace {
void drain()
{
    for (int i = 0; i < 10; ++i)
        Yield();
}
} // namespace

class tst_EventLoop : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void yieldHandlesWhatIsPendingAndReturns();
    void yieldWithNothingPendingReturnsAtOnce();
    void aYieldBetweenTokensHandlesWhatWasPostedAtOnce();
    void aYieldBetweenTokensForgetsNoTimer();
    void aYieldBetweenTokensThatIsWatchedHandlesItAtOnce();
    void aWaitSleepsInsteadOfTurning();
    void aWaitWakesAtOnceForAnEventFromAnotherThread();
    void aWaitWakesForATimer();
    void aWaitWakesForDataOnASocket();
    void aWaitEndsAtItsDeadline_data();
    void aWaitEndsAtItsDeadline();
    void aWaitWithNoTimeLeftReturns_data();
    void aWaitWithNoTimeLeftReturns();
    void aWaitReturnsWhenSomethingWasPending();
    void waitsMayBeNested();
    void everyYieldIsCounted();
    void everyYieldCanBeWatched();
};

void tst_EventLoop::init()
{
    // Wakes whoever sleeps where nobody should.
    QTimer waker;
    waker.start(20);
    drain();
}

void tst_EventLoop::yieldHandlesWhatIsPendingAndReturns()
{
    int handled = 0;
    for (int i = 0; i < 3; ++i)
        QMetaObject::invokeMethod(
            this, [&handled] { ++handled; }, Qt::QueuedConnection);
    QCOMPARE(handled, 0);
    Yield();
    QCOMPARE(handled, 3);
}

void tst_EventLoop::yieldWithNothingPendingReturnsAtOnce()
{
    const QSignalSpy sleeps(QAbstractEventDispatcher::instance(),
                            &QAbstractEventDispatcher::aboutToBlock);
    QTimer waker;
    waker.start(20);
    for (int i = 0; i < 100; ++i)
        Yield();
    QCOMPARE(sleeps.size(), 0);
}

void tst_EventLoop::aYieldBetweenTokensHandlesWhatWasPostedAtOnce()
{
    for (int i = 0; i < 100; ++i) {
        bool handled = false;
        QMetaObject::invokeMethod(
            this, [&handled] { handled = true; }, Qt::QueuedConnection);
        YieldBetween();
        QVERIFY(handled);
    }
}

void tst_EventLoop::aYieldBetweenTokensForgetsNoTimer()
{
    constexpr qint64 muchLonger = 5'000;
    QTimer timer;
    bool handled = false;
    connect(&timer, &QTimer::timeout, this, [&handled] { handled = true; });
    timer.start(0);
    QElapsedTimer working;
    working.start();
    while (!handled && working.elapsed() < muchLonger)
        YieldBetween();
    QVERIFY(handled);
}

void tst_EventLoop::aYieldBetweenTokensThatIsWatchedHandlesItAtOnce()
{
    int handled = 0;
    const auto unwatched = qScopeGuard([] { WatchYields({}); });
    WatchYields([] {});
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&handled] { ++handled; });
    timer.start(0);
    for (int yields = 1; yields <= 3; ++yields) {
        YieldBetween();
        QCOMPARE(handled, yields);
    }
}

void tst_EventLoop::aWaitSleepsInsteadOfTurning()
{
    const double before = ProcessorSeconds();
    QElapsedTimer time;
    time.start();
    YieldUntilEvent(0.4);
    while (time.elapsed() < 400)
        YieldUntilEvent(0.4 - static_cast<double>(time.elapsed()) / 1000.0);
    // A loop that turns would have used all of the 0.4 seconds.
    QVERIFY2(ProcessorSeconds() - before < 0.1,
             qPrintable(QString::number(ProcessorSeconds() - before)));
}

void tst_EventLoop::aWaitWakesAtOnceForAnEventFromAnotherThread()
{
    bool arrived = false;
    QThread *other = QThread::create([&] {
        QThread::msleep(30);
        QMetaObject::invokeMethod(
            this, [&arrived] { arrived = true; }, Qt::QueuedConnection);
    });
    QElapsedTimer time;
    time.start();
    other->start();
    while (!arrived && time.elapsed() < 20000)
        YieldUntilEvent(20.0);
    const qint64 waited = time.elapsed();
    other->wait();
    delete other;
    QVERIFY(arrived);
    QVERIFY2(waited < 5000, qPrintable(QString::number(waited)));
}

void tst_EventLoop::aWaitWakesForATimer()
{
    bool fired = false;
    QTimer::singleShot(20, this, [&fired] { fired = true; });
    QElapsedTimer time;
    time.start();
    while (!fired && time.elapsed() < 20000)
        YieldUntilEvent(20.0);
    QVERIFY(fired);
    QVERIFY(time.elapsed() < 5000);
}

void tst_EventLoop::aWaitWakesForDataOnASocket()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QTcpSocket client;
    client.connectToHost(server.serverAddress(), server.serverPort());
    QVERIFY(client.waitForConnected());
    QVERIFY(server.waitForNewConnection(5000));
    QTcpSocket *peer = server.nextPendingConnection();
    QTimer::singleShot(20, this, [peer] {
        peer->write("|EOF~|");
        peer->flush();
    });
    QElapsedTimer time;
    time.start();
    while (client.bytesAvailable() < 6 && time.elapsed() < 20000)
        YieldUntilEvent(20.0);
    QCOMPARE(client.readAll(), QByteArray("|EOF~|"));
    QVERIFY(time.elapsed() < 5000);
}

void tst_EventLoop::aWaitEndsAtItsDeadline_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("1") << 1;
    QTest::newRow("30") << 30;
    QTest::newRow("150") << 150;
}

void tst_EventLoop::aWaitEndsAtItsDeadline()
{
    QFETCH(int, milliseconds);
    QElapsedTimer time;
    time.start();
    int turns = 0;
    while (time.elapsed() < milliseconds) {
        YieldUntilEvent(static_cast<double>(milliseconds - time.elapsed()) / 1000.0);
        ++turns;
    }
    // A deadline in other units than meant would be a thousand times as far away, or as near.
    QVERIFY(time.elapsed() < milliseconds + 20'000);
    // It slept to the deadline instead of coming back over and over.
    QVERIFY2(turns < 30, qPrintable(QString::number(turns)));
}

void tst_EventLoop::aWaitWithNoTimeLeftReturns_data()
{
    QTest::addColumn<double>("seconds");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -5.0;
    QTest::newRow("far negative") << -1e30;
}

void tst_EventLoop::aWaitWithNoTimeLeftReturns()
{
    QFETCH(double, seconds);
    const QSignalSpy sleeps(QAbstractEventDispatcher::instance(),
                            &QAbstractEventDispatcher::aboutToBlock);
    QTimer waker;
    waker.start(20);
    YieldUntilEvent(seconds);
    QCOMPARE(sleeps.size(), 0);
}

void tst_EventLoop::aWaitReturnsWhenSomethingWasPending()
{
    bool handled = false;
    QMetaObject::invokeMethod(
        this, [&handled] { handled = true; }, Qt::QueuedConnection);
    QElapsedTimer time;
    time.start();
    YieldUntilEvent(1e30);
    QVERIFY(handled);
    QVERIFY(time.elapsed() < 5000);
}

void tst_EventLoop::waitsMayBeNested()
{
    bool inner = false;
    bool outer = false;
    QTimer::singleShot(5, this, [&] {
        QTimer::singleShot(5, this, [&inner] { inner = true; });
        while (!inner)
            YieldUntilEvent(5.0);
        outer = true;
    });
    QElapsedTimer time;
    time.start();
    while (!outer && time.elapsed() < 10000)
        YieldUntilEvent(5.0);
    QVERIFY(inner);
    QVERIFY(outer);
}

void tst_EventLoop::everyYieldIsCounted()
{
    const unsigned long long before = YieldCount();
    Yield();
    YieldUntilEvent(0.0);
    Yield();
    QCOMPARE(YieldCount() - before, 3ULL);
}

void tst_EventLoop::everyYieldCanBeWatched()
{
    // What the watcher posts is handled in that very yield.
    int watched = 0;
    int handled = 0;
    WatchYields([&] {
        ++watched;
        QMetaObject::invokeMethod(
            this, [&handled] { ++handled; }, Qt::QueuedConnection);
    });
    Yield();
    QCOMPARE(watched, 1);
    QCOMPARE(handled, 1);
    YieldUntilEvent(0.0);
    QCOMPARE(watched, 2);
    QCOMPARE(handled, 2);
    WatchYields({});
    Yield();
    QCOMPARE(watched, 2);
}

HALVANE_TEST(tst_EventLoop)
#include "tst_EventLoop.moc"
