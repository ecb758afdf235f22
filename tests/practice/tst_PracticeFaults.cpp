#include "practice/PracticeExchange.h"
#include "practice/PracticeProcess.h"
#include "support/HalvaneTest.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The switches that make the court misbehave.
class tst_PracticeFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitWritesSmallChunks();
    void dripTakesItsTime();
    void dropAfter_data();
    void dropAfter();
    void leaveBehind();
    void stallAfter_data();
    void stallAfter();
    void pingsAnIdleClient();
    void complainsOnceOfPingsNotAnswered();
    void aReplyWaitsForThePingsAnswer();
    void noPingDuringAReply();
    void refuseClosesAtOnce();
};

void tst_PracticeFaults::splitWritesSmallChunks()
{
    constexpr int rounds = 20;
    for (const int size : {1, 5}) {
        const PracticeProcess whole;
        const PracticeProcess split({u"--split"_s, QString::number(size)});
        WireClient wholeClient(whole);
        WireClient splitClient(split);
        for (WireClient *client : {&wholeClient, &splitClient}) {
            client->LogOn();
            client->arrivals.clear();
            for (int i = 0; i < rounds; ++i) {
                client->Send(guideSearch);
                QCOMPARE(client->ReadBytes(guideReply.size()), guideReply);
            }
        }
        // A busy client finds some chunks together, but never all of them.
        QCOMPARE(wholeClient.arrivals.size(), rounds);
        QVERIFY(splitClient.arrivals.size() > rounds);
    }
}

void tst_PracticeFaults::dripTakesItsTime()
{
    const PracticeProcess court({u"--drip"_s, u"1000"_s});
    WireClient client(court);
    client.LogOn();
    QElapsedTimer timer;
    timer.start();
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
    // 50 bytes may have been saved up.
    QVERIFY(timer.elapsed() >= guideReply.size() - 60);
}

void tst_PracticeFaults::dropAfter_data()
{
    QTest::addColumn<int>("bytes");
    for (const int bytes : {0, 1, 5, 6, 7, 100, 300})
        QTest::addRow("%d", bytes) << bytes;
}

void tst_PracticeFaults::dropAfter()
{
    QFETCH(int, bytes);
    const PracticeProcess court({u"--drop-after"_s, QString::number(bytes)});
    for (int round = 0; round < 2; ++round) { // each connection has its own count
        WireClient client(court);
        client.Send(u"LOGON¦ann¦pw¦v¦"_s);
        client.Send(guideSearch);
        QCOMPARE(client.ReadToClose(), QByteArray("|EOF~|" + guideReply).first(bytes));
        QVERIFY(!client.IsConnected());
    }
}

void tst_PracticeFaults::leaveBehind()
{
    const PracticeProcess court({u"--leave-behind"_s});
    WireClient client(court);
    const QByteArray stray = "|A ROW OF ANOTHER REPLY~||EOF~|";
    client.Send(u"LOGON¦ann¦pw¦v¦"_s);
    QCOMPARE(client.ReadBytes(6 + stray.size()), "|EOF~|" + stray);
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size() + stray.size()), guideReply + stray);
}

void tst_PracticeFaults::stallAfter_data()
{
    dropAfter_data();
}

void tst_PracticeFaults::stallAfter()
{
    QFETCH(int, bytes);
    const PracticeProcess court({u"--stall-after"_s, QString::number(bytes)});
    for (int round = 0; round < 2; ++round) {
        WireClient client(court);
        client.Send(u"LOGON¦ann¦pw¦v¦"_s);
        client.Send(guideSearch);
        QCOMPARE(client.ReadBytes(bytes), QByteArray("|EOF~|" + guideReply).first(bytes));
        client.Send(u"STOP¦"_s);
        client.Send(guideSearch);
        QCOMPARE(client.ReadFor(200), QByteArray());
        QVERIFY(client.IsConnected());
    }
}

void tst_PracticeFaults::pingsAnIdleClient()
{
    PracticeProcess court({u"--ping-every"_s, u"50"_s});
    WireClient client(court);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(client.ReadTo(u"DIAG001"_s), QStringList{u"DIAG001"_s});
        client.Send(u"IMALIVE¦"_s);
    }
    QCOMPARE(court.Errors(), QString());
}

void tst_PracticeFaults::complainsOnceOfPingsNotAnswered()
{
    PracticeProcess court({u"--ping-every"_s, u"50"_s});
    WireClient client(court);
    for (int i = 0; i < 5; ++i)
        client.ReadTo(u"DIAG001"_s);
    const QString errors = court.Errors(u"a ping was not answered"_s);
    QCOMPARE(errors.count(u"a ping was not answered"_s), 1);
    QVERIFY(client.IsConnected());
    client.Send(u"IMALIVE¦"_s);
    for (int i = 0; i < 5; ++i)
        client.ReadTo(u"DIAG001"_s);
    QCOMPARE(court.Errors(u"answered\nhalvane"_s).count(u"a ping was not answered"_s), 2);
}

/// A client that finds a reply behind a ping in what arrives throws both away.
void tst_PracticeFaults::aReplyWaitsForThePingsAnswer()
{
    const PracticeProcess court({u"--ping-every"_s, u"50"_s});
    WireClient client(court);
    qint64 fastest = 1'000'000;
    for (int round = 0; round < 3; ++round) { // one of them finds the machine at leisure
        client.ReadTo(u"DIAG001"_s);
        QElapsedTimer answered;
        answered.start();
        client.Send(u"LOGON¦ann¦pw¦v¦"_s);
        QCOMPARE(client.ReadFor(200), QByteArray());
        client.Send(u"IMALIVE¦"_s);
        QCOMPARE(client.ReadTo().last(), u"EOF~"_s);
        fastest = std::min(fastest, answered.elapsed());
    }
    QVERIFY(fastest < 700);

    // A client that never answers gets its reply all the same, a second later.
    client.ReadTo(u"DIAG001"_s);
    QElapsedTimer timer;
    timer.start();
    client.Send(u"GETMSG¦"_s);
    QCOMPARE(client.ReadTo().last(), u"EOF~"_s);
    QVERIFY(timer.elapsed() >= 500);
}

void tst_PracticeFaults::noPingDuringAReply()
{
    const PracticeProcess court({u"--ping-every"_s, u"10"_s});
    WireClient client(court);
    client.Send(u"LOGON¦ann¦pw¦v¦"_s);
    client.Send(SearchFor(u"SLOW"_s, u"2"_s));
    const QStringList tokens = client.ReadTo() + client.ReadTo();
    QCOMPARE(tokens.count(u"EOF~"_s), 2);
    QCOMPARE(CountRows(tokens), 3);
    QVERIFY(!tokens.contains(u"DIAG001"_s));
    QVERIFY(!client.ReadFor(300).contains("DIAG001")); // nor right behind one
    client.ReadTo(u"DIAG001"_s);
    QVERIFY(client.IsConnected());
}

void tst_PracticeFaults::refuseClosesAtOnce()
{
    const PracticeProcess court({u"--refuse"_s});
    for (int i = 0; i < 3; ++i) {
        WireClient client(court);
        QCOMPARE(client.ReadToClose(), QByteArray());
        QVERIFY(!client.IsConnected());
    }
    QVERIFY(court.IsRunning());
}

HALVANE_TEST(tst_PracticeFaults)
#include "tst_PracticeFaults.moc"
