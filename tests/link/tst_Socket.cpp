#include "core/GlobalState.h"
#include "core/Options.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString pingAnswered = u"Replied to Ping Request from Halvane Server.."_s;
const QByteArray alive = "|IMALIVE\xA6|";

QByteArray received()
{
    return Global.strRecvBuffer.View().toByteArray();
}

/// One minute goes by.
void tick()
{
    QMetaObject::invokeMethod(frmWinsock::Form().TmrInactivity, "timeout", Qt::DirectConnection);
}

/// Minutes until the idle limit is reached; 0 when it is not within an hour.
int minutesUntilLimit()
{
    QSignalSpy limit(&LinkEvents::Of(), &LinkEvents::IdleLimitReached);
    for (int minute = 1; minute <= 60; ++minute) {
        tick();
        if (!limit.isEmpty())
            return minute;
    }
    return 0;
}
} // namespace

class tst_Socket : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void loadingSetsTheStateOfAStart();
    void loadingTwiceIsOneForm();
    void unloadingKeepsTheBufferAndTheBusyFlag();
    void unloadingClosesTheSocketAndDropsTheReference();
    void unloadingWhatIsNotLoadedIsNothing();
    void eventsOfAnUnloadedSocketAreNotHeard();
    void unloadingInsideAnEventOfTheSocketIsSafe();
    void anUnloadedFormCanBeLoadedAgain();

    void connectEventSetsTheState();
    void closeEventOnlySetsItsFlag();
    void refusedConnectSetsTheState_data();
    void refusedConnectSetsTheState();
    void sendCompleteFreesTheSocket();
    void connectionRequestAndSendProgressDoNothing();

    void arrivalsAreAppended();
    void arrivalThatIsNotTaken_data();
    void arrivalThatIsNotTaken();
    void arrivalRestartsTheIdleCount();
    void ping_data();
    void ping();
    void aPingBetweenChunksIsNone();
    void aPingPassesTheBusyFlag();
    void documentEnd_data();
    void documentEnd();
    void aPingBesideADocumentEndIsAPingOnly();

    void theIdleTimerTicksOnceAMinute();
    void idleLimit_data();
    void idleLimit();
    void theInstalledSettingAndWhatIsSaidOfItAreTrue();
    void aMissingIdleSettingEndsAtTheFirstTick();
    void theIdleTimerStaysStoppedAtTheLimit();
    void theSettingIsReadAtEachTick();
    void aFalseSettingIsReplacedInMemoryOnly();
    void trafficStartsTheIdleTimerAgain_data();
    void trafficStartsTheIdleTimerAgain();
    void restartAndStopOfTheIdleCount();
    void theFormMayBeUnloadedAtTheLimit();

private:
    std::unique_ptr<TestFolder> folder;
    FakeSocket *socket = nullptr;
};

void tst_Socket::init()
{
    folder = std::make_unique<TestFolder>();
    FakeSocket::Install();
    LoadSocketForm(true);
    socket = FakeSocket::Last();
}

void tst_Socket::cleanup()
{
    folder.reset();
}

void tst_Socket::loadingSetsTheStateOfAStart()
{
    LoadSocketForm(false);
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"12"_s);
    Global.intConnectState = ConnectDone;
    Global.bConnectionClosed = true;
    Global.strRecvBuffer.Append("stale");
    frmWinsock &form = frmWinsock::Form();
    QCOMPARE(Global.intConnectState, 0);
    QCOMPARE(Global.sckServer, form.CSock);
    QCOMPARE(frmWinsock::Form().strInactivityTimeOut, u"12"_s);
    QVERIFY(!Global.bConnectionClosed);
    QCOMPARE(form.TmrInactivityTag, u"0"_s);
    QVERIFY(form.TmrInactivity->isActive());
    QCOMPARE(received(), QByteArray("stale"));
    QCOMPARE(form.objectName(), u"frmWinsock"_s);
    QCOMPARE(form.CSock->objectName(), u"CSock"_s);
    QCOMPARE(form.TmrInactivity->objectName(), u"TmrInactivity"_s);
}

void tst_Socket::loadingTwiceIsOneForm()
{
    frmWinsock *first = &frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    LoadSocketForm(true);
    QCOMPARE(&frmWinsock::Form(), first);
    QCOMPARE(Global.intConnectState, 10);
}

void tst_Socket::unloadingKeepsTheBufferAndTheBusyFlag()
{
    socket->Arrive("|half");
    Global.bSendBusy = true;
    Global.intConnectState = ConnectDone;
    LoadSocketForm(false);
    QCOMPARE(received(), QByteArray("|half"));
    QVERIFY(Global.bSendBusy);
    QCOMPARE(Global.intConnectState, 10);
}

void tst_Socket::unloadingClosesTheSocketAndDropsTheReference()
{
    const QPointer<FakeSocket> old(socket);
    LoadSocketForm(false);
    QCOMPARE(Global.sckServer, nullptr);
    QVERIFY(!frmWinsock::IsLoaded());
    QVERIFY(old);
    QCOMPARE(old->State(), SocketState::Closed);
    QTRY_VERIFY(!old);
}

void tst_Socket::unloadingWhatIsNotLoadedIsNothing()
{
    LoadSocketForm(false);
    LoadSocketForm(false);
    frmWinsock::Unload();
    QVERIFY(!frmWinsock::IsLoaded());
}

void tst_Socket::eventsOfAnUnloadedSocketAreNotHeard()
{
    const QPointer<FakeSocket> old(socket);
    LoadSocketForm(false);
    Global.bSendBusy = true;
    old->state = SocketState::Connected;
    old->Arrive("|late|");
    Q_EMIT old->Connected();
    Q_EMIT old->SendComplete();
    old->PeerCloses();
    QCOMPARE(received(), QByteArray());
    QCOMPARE(Global.intConnectState, 0);
    QVERIFY(Global.bSendBusy);
    QVERIFY(!Global.bConnectionClosed);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Socket::unloadingInsideAnEventOfTheSocketIsSafe()
{
    connect(socket, &ServerSocket::DataArrival, this, [] { LoadSocketForm(false); });
    socket->Arrive("|A~|");
    QVERIFY(!frmWinsock::IsLoaded());
    QCOMPARE(received(), QByteArray("|A~|"));
}

void tst_Socket::anUnloadedFormCanBeLoadedAgain()
{
    LoadSocketForm(false);
    LoadSocketForm(true);
    QVERIFY(FakeSocket::Last() != socket);
    QCOMPARE(Global.sckServer, FakeSocket::Last());
    FakeSocket::Last()->Arrive("|A~|");
    QCOMPARE(received(), QByteArray("|A~|"));
}

void tst_Socket::connectEventSetsTheState()
{
    Global.intConnectState = ConnectUnderWay;
    Q_EMIT socket->Connected();
    QCOMPARE(Global.intConnectState, 10);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Socket::closeEventOnlySetsItsFlag()
{
    Global.intConnectState = ConnectDone;
    socket->PeerCloses();
    QVERIFY(Global.bConnectionClosed);
    QCOMPARE(Global.intConnectState, 10);
    QCOMPARE(socket->State(), SocketState::Closing);
    QVERIFY(frmWinsock::IsLoaded());
    QCOMPARE(folder->Log(), QStringList{u"Client Connection was Closed"_s});
}

void tst_Socket::refusedConnectSetsTheState_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("state");
    QTest::newRow("refused") << u"Connection is forcefully rejected"_s << 2;
    QTest::newRow("only the words") << u"forcefully rejected"_s << 2;
    QTest::newRow("timed out") << u"Attempt to connect timed out"_s << 1;
    QTest::newRow("no host") << u"Host not found"_s << 1;
    QTest::newRow("no text") << u""_s << 1;
}

void tst_Socket::refusedConnectSetsTheState()
{
    QFETCH(QString, description);
    QFETCH(int, state);
    Global.intConnectState = ConnectUnderWay;
    Q_EMIT socket->Error(10061, description);
    QCOMPARE(Global.intConnectState, state);
    QVERIFY(!Global.bConnectionClosed);
    QVERIFY(frmWinsock::IsLoaded());
    QCOMPARE(socket->connectedTo, QStringList());
    QCOMPARE(folder->Log(), QStringList{u"attempting to close and reconnect to router.."_s});
}

void tst_Socket::sendCompleteFreesTheSocket()
{
    Global.bSendBusy = true;
    frmWinsock::Form().TmrInactivityTag = u"3"_s;
    frmWinsock::Form().StopInactivity();
    Q_EMIT socket->SendComplete();
    QVERIFY(!Global.bSendBusy);
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"0"_s);
    QVERIFY(frmWinsock::Form().TmrInactivity->isActive());
}

void tst_Socket::connectionRequestAndSendProgressDoNothing()
{
    Global.bSendBusy = true;
    frmWinsock::Form().TmrInactivityTag = u"3"_s;
    Q_EMIT socket->ConnectionRequest();
    Q_EMIT socket->SendProgress();
    QVERIFY(Global.bSendBusy);
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"3"_s);
    QCOMPARE(Global.intConnectState, 0);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Socket::arrivalsAreAppended()
{
    socket->Arrive("|A~");
    socket->Arrive(QByteArray("B\0\xA6\xFF|", 5));
    QCOMPARE(received(), QByteArray("|A~B\0\xA6\xFF|", 8));
    QCOMPARE(socket->BytesAvailable(), 0);
    QCOMPARE(socket->sent, QByteArrayList());
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Socket::arrivalThatIsNotTaken_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("bytes");
    QTest::newRow("closed") << 0 << 5;
    QTest::newRow("connecting") << 6 << 5;
    QTest::newRow("the server has closed") << 8 << 5;
    QTest::newRow("no bytes") << 7 << 0;
    QTest::newRow("fewer than none") << 7 << -1;
}

void tst_Socket::arrivalThatIsNotTaken()
{
    QFETCH(int, state);
    QFETCH(int, bytes);
    frmWinsock::Form().TmrInactivityTag = u"3"_s;
    socket->state = SocketState::Closed;
    socket->Arrive("DIAG001");
    socket->state = static_cast<SocketState>(state);
    Q_EMIT socket->DataArrival(bytes);
    QCOMPARE(received(), QByteArray());
    QCOMPARE(socket->sent, QByteArrayList());
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"3"_s);
}

void tst_Socket::arrivalRestartsTheIdleCount()
{
    frmWinsock::Form().TmrInactivityTag = u"3"_s;
    frmWinsock::Form().StopInactivity();
    socket->Arrive("|A~|");
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"0"_s);
    QVERIFY(frmWinsock::Form().TmrInactivity->isActive());
}

void tst_Socket::ping_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("chunk");
    QTest::newRow("alone") << QByteArray() << QByteArray("|DIAG001|");
    QTest::newRow("a half token in the buffer") << QByteArray("|A~") << QByteArray("|DIAG001|");
    QTest::newRow("whole tokens in the buffer")
        << QByteArray("|A~||B~|") << QByteArray("|DIAG001|");
    QTest::newRow("without bars") << QByteArray() << QByteArray("DIAG001");
    QTest::newRow("lower case") << QByteArray() << QByteArray("|diag001|");
    QTest::newRow("mixed case") << QByteArray() << QByteArray("|DiAg001|");
    QTest::newRow("inside a result line")
        << QByteArray() << QByteArray("|SMITH~diag001 ROAD~||EOF~|");
    QTest::newRow("behind a token") << QByteArray() << QByteArray("|A~||DIAG001|");
    QTest::newRow("before a token") << QByteArray() << QByteArray("|DIAG001||A~|");
    QTest::newRow("between NULs") << QByteArray() << QByteArray("\0DIAG001\0", 9);
    QTest::newRow("in a longer word") << QByteArray() << QByteArray("xxDIAG0012");
    QTest::newRow("deep in a large chunk, behind the end of a document")
        << QByteArray() << QByteArray(700, '0') + "|EOD~||" + QByteArray(700, '0') + "diag001|";
}

void tst_Socket::ping()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, chunk);
    if (!before.isEmpty())
        socket->Arrive(before);
    frmWinsock::Form().TmrInactivityTag = u"3"_s;
    frmWinsock::Form().StopInactivity();
    socket->Arrive(chunk);
    QCOMPARE(received(), QByteArray());
    QCOMPARE(socket->sent, QByteArrayList{alive});
    QCOMPARE(folder->Log(), QStringList{pingAnswered});
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"0"_s);
    QVERIFY(frmWinsock::Form().TmrInactivity->isActive());
    // What arrives behind it is whole again.
    socket->Arrive("|C~|");
    QCOMPARE(received(), QByteArray("|C~|"));
}

void tst_Socket::aPingBetweenChunksIsNone()
{
    socket->Arrive("|DIAG");
    socket->Arrive("001|");
    QCOMPARE(received(), QByteArray("|DIAG001|"));
    QCOMPARE(socket->sent, QByteArrayList());
}

void tst_Socket::aPingPassesTheBusyFlag()
{
    Global.bSendBusy = true;
    socket->completesSends = false;
    socket->Arrive("|DIAG001|");
    QCOMPARE(socket->sent, QByteArrayList{alive});
    QVERIFY(Global.bSendBusy);
}

void tst_Socket::documentEnd_data()
{
    QTest::addColumn<QByteArray>("chunk");
    QTest::addColumn<bool>("logged");
    QTest::newRow("the end") << QByteArray("|EOD~||EOF~|") << true;
    QTest::newRow("behind document bytes") << QByteArray("\x01\xFF|EOD~||EOF~|") << true;
    QTest::newRow("lower case") << QByteArray("|eod~|") << true;
    QTest::newRow("deep in a large chunk, behind what begins like it")
        << QByteArray("|E").repeated(700) + "|EOd~|" + QByteArray(700, 'x') << true;
    QTest::newRow("without its bars") << QByteArray("EOD~") << false;
    QTest::newRow("another token") << QByteArray("|EOF~|") << false;
}

void tst_Socket::documentEnd()
{
    QFETCH(QByteArray, chunk);
    QFETCH(bool, logged);
    socket->Arrive(chunk);
    QCOMPARE(received(), chunk);
    const QStringList log =
        logged ? QStringList{u"|EOD~||EOF~| found in Doc Server response"_s} : QStringList();
    QCOMPARE(folder->Log(), log);
}

void tst_Socket::aPingBesideADocumentEndIsAPingOnly()
{
    socket->Arrive("|EOD~||DIAG001|");
    QCOMPARE(folder->Log(), QStringList{pingAnswered});
    QCOMPARE(received(), QByteArray());
}

void tst_Socket::theIdleTimerTicksOnceAMinute()
{
    QCOMPARE(frmWinsock::Form().TmrInactivity->interval(), 60000);
    QVERIFY(!frmWinsock::Form().TmrInactivity->isSingleShot());
}

void tst_Socket::idleLimit_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("minutes");
    const auto row = [](const QString &setting, int minutes) {
        QTest::addRow("\"%s\"", qPrintable(setting)) << setting << minutes;
    };
    row(u"0"_s, 1);
    row(u"1"_s, 2);
    row(u"2"_s, 3);
    row(u"3"_s, 4);
    // Everything that begins with 4 to 9 is above "30" as text, and counts as "5".
    for (int minutes = 4; minutes <= 9; ++minutes)
        row(QString::number(minutes), 6);
    for (int minutes = 10; minutes <= 19; ++minutes)
        row(QString::number(minutes), 3);
    for (int minutes = 20; minutes <= 29; ++minutes)
        row(QString::number(minutes), 4);
    row(u"30"_s, 5);
    row(u"31"_s, 6);
    row(u"45"_s, 6);
    row(u"60"_s, 6);
    row(u"100"_s, 3);
    row(u""_s, 6);
    row(u"never"_s, 6);
    row(u"-1"_s, 6);
}

void tst_Socket::idleLimit()
{
    QFETCH(QString, setting);
    QFETCH(int, minutes);
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, setting);
    QCOMPARE(minutesUntilLimit(), minutes);
}

void tst_Socket::theInstalledSettingAndWhatIsSaidOfItAreTrue()
{
    QCOMPARE(GetOptionStr(u"General"_s, u"InactivityTimeOut"_s), u"4"_s);
    QCOMPARE(minutesUntilLimit(), 6);
    const QString options = QString::fromLatin1(folder->Read(u"options.ini"_s));
    const QString said = options.section(u"Setting and minutes:"_s, 1).section(u'\n', 1, 1);
    static const QRegularExpression pair(u"(\\d+)(?: to (\\d+))?: (\\d+)"_s);
    int settings = 0;
    for (const QRegularExpressionMatch &match : pair.globalMatch(said)) {
        const int first = match.captured(1).toInt();
        const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        for (int setting = first; setting <= last; ++setting, ++settings) {
            SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, QString::number(setting));
            frmWinsock::Form().TmrInactivityTag = u"0"_s;
            QCOMPARE(minutesUntilLimit(), match.captured(3).toInt());
        }
    }
    // From 0 to 30.
    QCOMPARE(settings, 31);
}

void tst_Socket::aMissingIdleSettingEndsAtTheFirstTick()
{
    folder->Write(u"options.ini"_s, {});
    QCOMPARE(minutesUntilLimit(), 1);
}

void tst_Socket::theIdleTimerStaysStoppedAtTheLimit()
{
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"2"_s);
    tick();
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"1"_s);
    QVERIFY(frmWinsock::Form().TmrInactivity->isActive());
    tick();
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"2"_s);
    QVERIFY(frmWinsock::Form().TmrInactivity->isActive());
    QSignalSpy limit(&LinkEvents::Of(), &LinkEvents::IdleLimitReached);
    tick();
    QCOMPARE(limit.count(), 1);
    QVERIFY(!frmWinsock::Form().TmrInactivity->isActive());
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"2"_s);
}

void tst_Socket::theSettingIsReadAtEachTick()
{
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"5"_s);
    tick();
    tick();
    QSignalSpy limit(&LinkEvents::Of(), &LinkEvents::IdleLimitReached);
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"2"_s);
    tick();
    QCOMPARE(limit.count(), 1);
}

void tst_Socket::aFalseSettingIsReplacedInMemoryOnly()
{
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"45"_s);
    tick();
    QCOMPARE(frmWinsock::Form().strInactivityTimeOut, u"5"_s);
    QCOMPARE(GetOptionStr(u"General"_s, u"InactivityTimeOut"_s), u"45"_s);
}

void tst_Socket::trafficStartsTheIdleTimerAgain_data()
{
    QTest::addColumn<int>("event");
    QTest::newRow("data") << 0;
    QTest::newRow("a ping") << 1;
    QTest::newRow("a send that completed") << 2;
}

void tst_Socket::trafficStartsTheIdleTimerAgain()
{
    QFETCH(int, event);
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"0"_s);
    QCOMPARE(minutesUntilLimit(), 1);
    QVERIFY(!frmWinsock::Form().TmrInactivity->isActive());
    if (event == 2)
        Q_EMIT socket->SendComplete();
    else
        socket->Arrive(event == 0 ? "|A~|" : "|DIAG001|");
    QVERIFY(frmWinsock::Form().TmrInactivity->isActive());
    QCOMPARE(frmWinsock::Form().TmrInactivityTag, u"0"_s);
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"2"_s);
    QCOMPARE(minutesUntilLimit(), 3);
}

void tst_Socket::restartAndStopOfTheIdleCount()
{
    frmWinsock &form = frmWinsock::Form();
    form.TmrInactivityTag = u"4"_s;
    form.StopInactivity();
    QVERIFY(!form.TmrInactivity->isActive());
    QCOMPARE(form.TmrInactivityTag, u"4"_s);
    form.RestartInactivity();
    QVERIFY(form.TmrInactivity->isActive());
    QCOMPARE(form.TmrInactivityTag, u"0"_s);
}

void tst_Socket::theFormMayBeUnloadedAtTheLimit()
{
    SaveOptionStr(u"General"_s, u"InactivityTimeOut"_s, u"0"_s);
    const auto logout = connect(&LinkEvents::Of(), &LinkEvents::IdleLimitReached, this,
                                [] { LoadSocketForm(false); });
    tick();
    disconnect(logout);
    QVERIFY(!frmWinsock::IsLoaded());
}

HALVANE_TEST(tst_Socket)
#include "tst_Socket.moc"
