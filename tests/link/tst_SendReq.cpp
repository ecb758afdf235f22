#include "core/GlobalState.h"
#include "link/Comm.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
/// Seconds of the test's clock a millisecond of the test.
constexpr double pace = 0.25;

/// How far beyond a limit the clock may have run when the limit is noticed.
constexpr double slack = 3.0;
} // namespace

class tst_SendReq : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void statusesHaveTheirNumbers();
    void aRequestIsFramedAndLeavesInOnePiece();
    void status_data();
    void status();
    void everyStatusIsLogged_data();
    void everyStatusIsLogged();
    void thePasswordOfALogonIsLogged();
    void theWireIsWindows1252();
    void anySocketStateButConnectedIsNotConnected_data();
    void anySocketStateButConnectedIsNotConnected();
    void withoutASocketNothingIsSent();
    void theIdleCountStartsOver_data();
    void theIdleCountStartsOver();
    void withoutAConnectionTheIdleTimerStops();
    void aBusySocketIsWaitedFor();
    void theLimitIsOneForBothWaits();
    void afterASendThatNeverCompletesEveryRequestIsBusy();
    void aLinkLostWhileTheSocketIsBusyIsNotConnected();
    void aLinkUnloadedWhileTheSendIsUnderWayIsNotWaitedFor();
    void theWaitEndsWhenTheSendCompletes();
    void theLimitHoldsOverMidnight();
    void trySend_data();
    void trySend();
    void sendWithTimeoutTakesItsLimit_data();
    void sendWithTimeoutTakesItsLimit();

private:
    double secondsGone() const { return static_cast<double>(began.msecsTo(clock->Now())) / 1000.0; }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
    FakeSocket *socket = nullptr;
    QDateTime began;
};

void tst_SendReq::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    FakeSocket::Install();
    frmWinsock::Form();
    socket = FakeSocket::Last();
    began = clock->Now();
    clock->Run(pace);
}

void tst_SendReq::cleanup()
{
    clock.reset();
    folder.reset();
}

void tst_SendReq::statusesHaveTheirNumbers()
{
    QCOMPARE(int(Number(SendStatus::Sent)), 0);
    QCOMPARE(int(Number(SendStatus::TimedOut)), 1);
    QCOMPARE(int(Number(SendStatus::Busy)), 2);
    QCOMPARE(int(Number(SendStatus::NotConnected)), -1);
    QCOMPARE(int(Number(ReadStatus::Token)), 0);
    QCOMPARE(int(Number(ReadStatus::TimedOutOrLost)), 1);
    QCOMPARE(int(Number(ReadStatus::NotClosed)), -1);
}

void tst_SendReq::aRequestIsFramedAndLeavesInOnePiece()
{
    QCOMPARE(SendReq(u"GETMSG¦"_s), SendStatus::Sent);
    QCOMPARE(socket->sent, QByteArrayList{"|GETMSG\xA6|"});
    QVERIFY(!Global.bSendBusy);
}

void tst_SendReq::status_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<bool>("busyBefore");
    QTest::addColumn<bool>("completes");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("sent");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<bool>("busyAfter");
    QTest::newRow("0 sent") << true << false << true << 0 << 1 << 0.0 << false;
    QTest::newRow("1 not seen to leave") << true << false << false << 1 << 1 << 30.0 << true;
    QTest::newRow("2 busy") << true << true << true << 2 << 0 << 30.0 << true;
    QTest::newRow("-1 not connected") << false << false << true << -1 << 0 << 0.0 << false;
    QTest::newRow("-1 goes before busy") << false << true << true << -1 << 0 << 0.0 << true;
}

void tst_SendReq::status()
{
    QFETCH(bool, connected);
    QFETCH(bool, busyBefore);
    QFETCH(bool, completes);
    QFETCH(int, status);
    QFETCH(int, sent);
    QFETCH(double, seconds);
    QFETCH(bool, busyAfter);
    socket->state = connected ? SocketState::Connected : SocketState::Closed;
    socket->completesSends = completes;
    Global.bSendBusy = busyBefore;
    QCOMPARE(int(Number(SendReq(u"GETMSG¦"_s))), status);
    QCOMPARE(int(socket->sent.size()), sent);
    QVERIFY2(secondsGone() >= seconds, qPrintable(QString::number(secondsGone())));
    QVERIFY2(secondsGone() <= seconds + slack, qPrintable(QString::number(secondsGone())));
    QCOMPARE(bool(Global.bSendBusy), busyAfter);
}

void tst_SendReq::everyStatusIsLogged_data()
{
    status_data();
}

void tst_SendReq::everyStatusIsLogged()
{
    QFETCH(bool, connected);
    QFETCH(bool, busyBefore);
    QFETCH(bool, completes);
    clock->Run(5.0);
    socket->state = connected ? SocketState::Connected : SocketState::Closed;
    socket->completesSends = completes;
    Global.bSendBusy = busyBefore;
    SendReq(u"COURT_STATUS¦"_s);
    QCOMPARE(folder->Log(), QStringList{u"SendReq: COURT_STATUS¦"_s});
}

void tst_SendReq::thePasswordOfALogonIsLogged()
{
    SendReq(u"LOGON¦USER¦secret¦AppVer-9.00¦"_s);
    QCOMPARE(folder->Log(), QStringList{u"SendReq: LOGON¦USER¦secret¦AppVer-9.00¦"_s});
}

void tst_SendReq::theWireIsWindows1252()
{
    SendReq(u"A¦\u20AC\u00E9\u4E2D\U0001F600¦"_s);
    QCOMPARE(socket->sent, QByteArrayList{"|A\xA6\x80\xE9??\xA6|"});
}

void tst_SendReq::anySocketStateButConnectedIsNotConnected_data()
{
    QTest::addColumn<int>("state");
    for (const int state : {0, 1, 2, 3, 4, 5, 6, 8, 9})
        QTest::addRow("%d", state) << state;
}

void tst_SendReq::anySocketStateButConnectedIsNotConnected()
{
    QFETCH(int, state);
    socket->state = static_cast<SocketState>(state);
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::NotConnected);
    QCOMPARE(socket->sent, QByteArrayList());
}

void tst_SendReq::withoutASocketNothingIsSent()
{
    frmWinsock::Unload();
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::NotConnected);
    QCOMPARE(folder->Log(), QStringList{u"SendReq: X¦"_s});
    QVERIFY(!frmWinsock::IsLoaded());
}

void tst_SendReq::theIdleCountStartsOver_data()
{
    QTest::addColumn<bool>("busyBefore");
    QTest::addColumn<bool>("completes");
    QTest::newRow("sent") << false << true;
    QTest::newRow("not seen to leave") << false << false;
    QTest::newRow("busy") << true << true;
}

void tst_SendReq::theIdleCountStartsOver()
{
    QFETCH(bool, busyBefore);
    QFETCH(bool, completes);
    clock->Run(5.0);
    frmWinsock &form = frmWinsock::Form();
    form.TmrInactivityTag = u"4"_s;
    form.StopInactivity();
    socket->completesSends = completes;
    Global.bSendBusy = busyBefore;
    SendReq(u"X¦"_s);
    QCOMPARE(form.TmrInactivityTag, u"0"_s);
    QVERIFY(form.TmrInactivity->isActive());
    QVERIFY(form.TmrInactivity->remainingTime() > 50'000);
}

void tst_SendReq::withoutAConnectionTheIdleTimerStops()
{
    frmWinsock &form = frmWinsock::Form();
    form.TmrInactivityTag = u"4"_s;
    socket->state = SocketState::Closing;
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::NotConnected);
    QVERIFY(!form.TmrInactivity->isActive());
    QCOMPARE(form.TmrInactivityTag, u"4"_s);
    QCOMPARE(folder->Log(), QStringList{u"SendReq: X¦"_s});
}

void tst_SendReq::aBusySocketIsWaitedFor()
{
    Global.bSendBusy = true;
    QTimer::singleShot(20, this, [this] { Q_EMIT socket->SendComplete(); });
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::Sent);
    QCOMPARE(socket->sent, QByteArrayList{"|X\xA6|"});
    QVERIFY(!Global.bSendBusy);
}

void tst_SendReq::theLimitIsOneForBothWaits()
{
    // Free after some 20 seconds; the request then never leaves.
    Global.bSendBusy = true;
    socket->completesSends = false;
    QTimer free;
    connect(&free, &QTimer::timeout, this, [&] {
        if (secondsGone() < 20.0)
            return;
        free.stop();
        Q_EMIT socket->SendComplete();
    });
    free.start(0);
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::TimedOut);
    QCOMPARE(int(socket->sent.size()), 1);
    QVERIFY(secondsGone() >= 30.0 && secondsGone() <= 30.0 + slack);
}

void tst_SendReq::afterASendThatNeverCompletesEveryRequestIsBusy()
{
    clock->Run(1.0);
    socket->completesSends = false;
    QCOMPARE(SendReq(u"1¦"_s), SendStatus::TimedOut);
    QCOMPARE(SendReq(u"2¦"_s), SendStatus::Busy);
    QCOMPARE(SendReq(u"3¦"_s), SendStatus::Busy);
    QCOMPARE(socket->sent, QByteArrayList{"|1\xA6|"});
    // The late event frees it.
    socket->completesSends = true;
    Q_EMIT socket->SendComplete();
    QCOMPARE(SendReq(u"4¦"_s), SendStatus::Sent);
}

void tst_SendReq::aLinkLostWhileTheSocketIsBusyIsNotConnected()
{
    Global.bSendBusy = true;
    QTimer::singleShot(5, this, [this] { socket->PeerCloses(); });
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::NotConnected);
    QVERIFY(secondsGone() < 30.0);
    QVERIFY(!frmWinsock::Form().TmrInactivity->isActive());
}

void tst_SendReq::aLinkUnloadedWhileTheSendIsUnderWayIsNotWaitedFor()
{
    socket->completesSends = false;
    QTimer::singleShot(5, this, [] { frmWinsock::Unload(); });
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::TimedOut);
    QVERIFY(secondsGone() < 30.0);
    QVERIFY(!Global.bSendBusy);
    QVERIFY(!frmWinsock::IsLoaded());
}

void tst_SendReq::theWaitEndsWhenTheSendCompletes()
{
    socket->completesSends = false;
    QTimer::singleShot(10, this, [this] { Q_EMIT socket->SendComplete(); });
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::Sent);
    QVERIFY(secondsGone() < 30.0);
}

void tst_SendReq::theLimitHoldsOverMidnight()
{
    clock->Set(QDateTime({2026, 3, 10}, {23, 59, 50}));
    began = clock->Now();
    socket->completesSends = false;
    QCOMPARE(SendReq(u"X¦"_s), SendStatus::TimedOut);
    QVERIFY(secondsGone() >= 29.9 && secondsGone() <= 30.0 + slack);
    QCOMPARE(clock->Now().date(), QDate(2026, 3, 11));
}

void tst_SendReq::trySend_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("busy");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("busyAfter");
    QTest::newRow("free") << 7 << false << 0 << true;
    QTest::newRow("busy") << 7 << true << 1 << true;
    QTest::newRow("not connected") << 0 << false << -1 << false;
    QTest::newRow("not connected and busy") << 8 << true << -1 << true;
}

void tst_SendReq::trySend()
{
    QFETCH(int, state);
    QFETCH(bool, busy);
    QFETCH(int, status);
    QFETCH(bool, busyAfter);
    socket->state = static_cast<SocketState>(state);
    Boolean flag(busy);
    QCOMPARE(int(Number(TrySend("|X|", socket, flag))), status);
    QCOMPARE(bool(flag), busyAfter);
    QCOMPARE(int(socket->sent.size()), status == 0 ? 1 : 0);
    QCOMPARE(TrySend("|X|", nullptr, flag), SendStatus::NotConnected);
}

void tst_SendReq::sendWithTimeoutTakesItsLimit_data()
{
    QTest::addColumn<bool>("busy");
    QTest::addColumn<float>("limit");
    QTest::addColumn<int>("status");
    QTest::newRow("busy, 5 seconds") << true << 5.0F << 2;
    QTest::newRow("under way, 5 seconds") << false << 5.0F << 1;
    QTest::newRow("busy, no time") << true << 0.0F << 2;
    QTest::newRow("under way, no time") << false << 0.0F << 1;
}

void tst_SendReq::sendWithTimeoutTakesItsLimit()
{
    QFETCH(bool, busy);
    QFETCH(float, limit);
    QFETCH(int, status);
    socket->completesSends = false;
    Boolean flag(busy);
    QCOMPARE(int(Number(SendWithTimeout("|X|", Global.sckServer, flag, limit))), status);
    QVERIFY(secondsGone() >= static_cast<double>(limit));
    QVERIFY(secondsGone() <= static_cast<double>(limit) + slack);
}

HALVANE_TEST(tst_SendReq)
#include "tst_SendReq.moc"
