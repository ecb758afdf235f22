#include "core/VersionText.h"
#include "core/Windows1252.h"
#include "practice/FrameReader.h"
#include "practice/PracticeExchange.h"
#include "practice/PracticeProcess.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

class tst_PracticeServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listensOnThisMachineOnly();
    void listensOnThePortAskedFor();
    void endsWhenThePortIsTaken();
    void runsThatEnd_data();
    void runsThatEnd();
    void endsWithItsInput();
    void staysWithoutItsInput();
    void theGuidesSearchByteForByte();
    void seedMakesOtherPeople();
    void dataAddsPeople();
    void usersThatGetNoAnswer();
    void dropLinkSendsRowsFirst();
    void stopEndsTheReply_data();
    void stopEndsTheReply();
    void stopDoesNotWaitForAPause();
    void stopWithNothingRunningSaysNothing();
    void requestsAreAnsweredInOrder();
    void aNewRequestGivesASilentReplyUp();
    void manyClientsAtOnce();
    void aReplyIsMadeNoFasterThanItIsRead();
    void survivesRubbish_data();
    void survivesRubbish();
    void dropsAnEndlessRequest();
    void dropsAFloodOfRequests();
    void survivesDisconnects();
};

void tst_PracticeServer::listensOnThisMachineOnly()
{
    const PracticeProcess court;
    QVERIFY(court.Port() != 0);
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, court.Port());
    QVERIFY(socket.waitForConnected());
    QTcpSocket other; // another address of the same machine
    other.connectToHost(u"127.0.0.2"_s, court.Port());
    QVERIFY(!other.waitForConnected(2'000));
}

void tst_PracticeServer::listensOnThePortAskedFor()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const quint16 port = server.serverPort();
    server.close();
    const PracticeProcess court({u"--port"_s, QString::number(port)});
    QCOMPARE(court.Port(), port);
    WireClient client(court);
    QCOMPARE(client.LogOn(), justEnd);
}

void tst_PracticeServer::endsWhenThePortIsTaken()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const FinishedRun run = RunPractice({u"--port"_s, QString::number(server.serverPort())});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(
                 u"halvane-practice: cannot listen on 127.0.0.1:%1: "_s.arg(server.serverPort())),
             qPrintable(run.errors));
    QCOMPARE(run.out, QString());
}

void tst_PracticeServer::runsThatEnd_data()
{
    QTest::addColumn<QStringList>("switches");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("errors");

    QTest::newRow("version") << QStringList{u"--version"_s} << 0
                             << VersionText(u"halvane-practice"_s) + u'\n' << QString();
    QTest::newRow("help") << QStringList{u"--help"_s} << 0
                          << u"Usage: halvane-practice [switches]\n"_s << QString();
    QTest::newRow("bad number")
        << QStringList{u"--split"_s, u"0"_s} << 2 << QString()
        << u"halvane-practice: --split needs a whole number from 1 up, not \"0\" (see --help)\n"_s;
    QTest::newRow("unknown switch")
        << QStringList{u"--rubbish"_s} << 2 << QString()
        << u"halvane-practice: unknown argument \"--rubbish\" (see --help)\n"_s;
    QTest::newRow("no such file")
        << QStringList{u"--data"_s, u"/no/such/file"_s} << 2 << QString()
        << u"halvane-practice: cannot read /no/such/file: No such file or directory\n"_s;
}

void tst_PracticeServer::runsThatEnd()
{
    QFETCH(QStringList, switches);
    QFETCH(int, exitCode);
    QFETCH(QString, out);
    QFETCH(QString, errors);

    const FinishedRun run = RunPractice(switches);
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.out.startsWith(out), qPrintable(run.out));
    QCOMPARE(run.out.isEmpty(), out.isEmpty());
    QCOMPARE(run.errors, errors);
}

void tst_PracticeServer::endsWithItsInput()
{
    PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    QCOMPARE(court.EndByInput(), 0);
    QCOMPARE(client.ReadToClose(), QByteArray());
}

void tst_PracticeServer::staysWithoutItsInput()
{
    QProcess process;
    process.start(ProgramPath(u"halvane-practice"_s), QStringList());
    QVERIFY(process.waitForReadyRead());
    process.closeWriteChannel();
    QVERIFY(!process.waitForFinished(300));
    process.kill();
    QVERIFY(process.waitForFinished());
}

void tst_PracticeServer::theGuidesSearchByteForByte()
{
    const PracticeProcess court;
    WireClient client(court);
    client.Send(u"LOGON¦ann¦pw¦AppVer-9.00¦"_s);
    QCOMPARE(client.ReadBytes(6), QByteArray("|EOF~|"));
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
    client.Send(u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦^^CAC:ABC^^¦"_s);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
    client.Send(SearchFor(u"MUÑOZ"_s));
    QVERIFY(client.ReadBytes(200).contains("|MU\xD1OZ, "));
}

void tst_PracticeServer::seedMakesOtherPeople()
{
    const PracticeProcess one;
    const PracticeProcess same({u"--seed"_s, u"1"_s});
    const PracticeProcess other({u"--seed"_s, u"2"_s});
    QList<QStringList> replies;
    for (const PracticeProcess *court : {&one, &same, &other}) {
        WireClient client(*court);
        client.LogOn();
        replies.append(client.Ask(SearchFor(u"NGUYEN"_s)));
        QVERIFY(CountRows(replies.last()) > 10);
    }
    QCOMPARE(replies[1], replies[0]);
    QVERIFY(replies[2] != replies[0]);
}

void tst_PracticeServer::dataAddsPeople()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("# ours\nHalvorsen\tTilde\t\tKing\tCivil\t02/03/1994\nrubbish\n");
    file.close();
    PracticeProcess court({u"--data"_s, file.fileName()});
    WireClient client(court);
    client.LogOn();
    QCOMPARE(CountRows(client.Ask(SearchFor(u"HALVORSEN"_s, u"TILDE"_s))), 1);
    QCOMPARE(client.LogOn(), justEnd);
    const QString complaint = u"halvane-practice: %1, line 3: 1 fields, where 6 to 9 are needed, "
                              "skipped\n"_s.arg(file.fileName());
    QCOMPARE(court.Errors(complaint), complaint);
}

void tst_PracticeServer::usersThatGetNoAnswer()
{
    const PracticeProcess court;
    WireClient client(court);
    client.Send(u"LOGON¦silent¦pw¦v¦"_s);
    QCOMPARE(client.ReadFor(200), QByteArray());
    client.Send(u"LOGON¦noend¦pw¦v¦"_s);
    const QByteArray refused = "|ERROR~Invalid User Name and/or PW~|";
    QCOMPARE(client.ReadBytes(refused.size()), refused);
    QCOMPARE(client.ReadFor(200), QByteArray());
    QCOMPARE(client.LogOn(), justEnd);
    client.Send(u"LOGON¦droplink¦pw¦v¦"_s);
    QCOMPARE(client.ReadToClose(), QByteArray());
    QVERIFY(!client.IsConnected());
}

void tst_PracticeServer::dropLinkSendsRowsFirst()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(SearchFor(u"DROPLINK"_s));
    const QByteArray bytes = client.ReadToClose();
    QCOMPARE(bytes.count("|DROPLINK, "), 5);
    QVERIFY(bytes.endsWith("~|"));
    QVERIFY(!bytes.contains("EOF~"));
}

void tst_PracticeServer::stopEndsTheReply_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("stop");

    QTest::newRow("a slow one") << SearchFor(u"SLOW"_s) << u"STOP¦"_s;
    QTest::newRow("a silent one") << SearchFor(u"STALL"_s) << u"STOP¦"_s;
    QTest::newRow("a long one") << SearchFor(u"MANY"_s, u"200000"_s) << u"STOP¦"_s;
    QTest::newRow("by the bankruptcy courts' stop") << SearchFor(u"SLOW"_s) << u"BKRPT~STOP~"_s;
}

void tst_PracticeServer::stopEndsTheReply()
{
    QFETCH(QString, search);
    QFETCH(QString, stop);

    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(search);
    client.ReadTo(u"SEARCHING~the~index~of~cases~.."_s);
    QElapsedTimer timer;
    timer.start();
    client.Send(stop);
    const QStringList rest = client.ReadTo();
    QCOMPARE(rest.last(), u"EOF~"_s);
    QVERIFY(timer.elapsed() < 15'000); // the slow one takes 30 seconds
    QVERIFY(CountRows(rest) < 200'000);
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
}

void tst_PracticeServer::stopDoesNotWaitForAPause()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    qint64 fastest = 1'000'000;
    for (int round = 0; round < 5; ++round) { // one of them finds the machine at leisure
        client.Send(SearchFor(u"SLOW"_s));
        client.ReadTo(u"SEARCHING~King~County~Superior~Court~1~of~30~.."_s);
        QElapsedTimer timer;
        timer.start();
        client.Send(u"STOP¦"_s);
        QCOMPARE(client.ReadTo(), justEnd);
        fastest = std::min(fastest, timer.elapsed());
    }
    QVERIFY(fastest < 500); // a line of progress comes every second
}

/// An end mark now would be taken for the end of the next reply.
void tst_PracticeServer::stopWithNothingRunningSaysNothing()
{
    const PracticeProcess court;
    WireClient client(court);
    client.Send(u"STOP¦"_s);
    client.LogOn();
    client.Send(u"STOP¦"_s);
    client.Send(u"BKRPT~STOP~"_s);
    client.Send(u"IMALIVE¦"_s);
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
    QCOMPARE(client.ReadFor(100), QByteArray());
}

void tst_PracticeServer::requestsAreAnsweredInOrder()
{
    const PracticeProcess court;
    WireClient client(court);
    client.SendRaw("|LOGON\xA6"
                   "ann\xA6pw\xA6v\xA6||COURT_STATUS\xA6||GETCLIENTACCTGOPT~|");
    QCOMPARE(client.ReadTo(), justEnd);
    QCOMPARE(client.ReadTo(), (QStringList{u"All practice courts are available."_s, u"EOF~"_s}));
    QCOMPARE(client.ReadTo(), (QStringList{u"FALSE~"_s, u"EOF~"_s}));
    // A stop ends the reply that runs, not the ones that wait; it may come along with them.
    const QString all = u"|"_s + SearchFor(u"SLOW"_s) + u"||COURT_STATUS¦||STOP¦|"_s;
    QElapsedTimer timer;
    timer.start();
    client.SendRaw(ToWindows1252(all));
    QCOMPARE(client.ReadTo().last(), u"EOF~"_s);
    QCOMPARE(client.ReadTo(), (QStringList{u"All practice courts are available."_s, u"EOF~"_s}));
    QVERIFY(timer.elapsed() < 15'000);
}

void tst_PracticeServer::aNewRequestGivesASilentReplyUp()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(SearchFor(u"STALL"_s));
    client.Send(u"COURT_STATUS¦"_s);
    const QStringList tokens = client.ReadTo();
    QCOMPARE(CountRows(tokens), 5);
    QCOMPARE(tokens[tokens.size() - 2], u"All practice courts are available."_s);
}

void tst_PracticeServer::manyClientsAtOnce()
{
    const PracticeProcess court;
    std::vector<std::unique_ptr<WireClient>> clients;
    clients.reserve(60);
    for (int i = 0; i < 60; ++i)
        clients.push_back(std::make_unique<WireClient>(court));
    WireClient slow(court);
    slow.LogOn();
    slow.Send(SearchFor(u"MANY"_s, u"200000"_s)); // and does not read
    for (const auto &client : clients)
        client->SendRaw("|LOGON\xA6"
                        "ann\xA6pw");
    for (const auto &client : clients)
        client->SendRaw("\xA6v\xA6|");
    for (const auto &client : clients)
        client->Send(guideSearch);
    for (const auto &client : clients)
        QCOMPARE(client->ReadBytes(6 + guideReply.size()), QByteArray("|EOF~|" + guideReply));
}

/// The rows behind a stop are those that were made before it came: were all 20 MB made at once,
/// they would all be there.
void tst_PracticeServer::aReplyIsMadeNoFasterThanItIsRead()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(SearchFor(u"MANY"_s, u"200000"_s));
    QVERIFY(court.ComesToRest());
    client.Send(u"STOP¦"_s);
    const QStringList tokens = client.ReadTo();
    QCOMPARE(tokens.last(), u"EOF~"_s);
    QVERIFY2(CountRows(tokens) < 150'000, qPrintable(QString::number(CountRows(tokens))));

    client.Send(SearchFor(u"MANY"_s, u"200000"_s));
    QCOMPARE(CountRows(client.ReadTo()), 200'000);
}

void tst_PracticeServer::survivesRubbish_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("replies");

    QTest::newRow("NULs") << QByteArray(1'000, '\0') << 0;
    QTest::newRow("NULs in a frame") << '|' + QByteArray(1'000, '\0') + '|' << 1;
    QTest::newRow("a thousand fields")
        << "|WASUP\xA6" + QByteArray("SEARCH\xA6").repeated(1'000) + '|' << 1;
    QTest::newRow("the longest frame")
        << '|' + QByteArray(Practice::FrameReader::longestFrame, 'x') + '|' << 1;
    QTest::newRow("empty frames") << QByteArray(100'000, '|') << 0;
    QTest::newRow("half a frame") << QByteArray("|LOGON\xA6") << 0;
    QTest::newRow("rubbish before a frame") << QByteArray("GET / HTTP/1.1\r\n\r\n|GETMSG|") << 1;
    QTest::newRow("frames of rubbish") << QByteArray("|a||b||c|") << 3;
}

void tst_PracticeServer::survivesRubbish()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, replies);

    const PracticeProcess court;
    {
        WireClient client(court);
        client.SendRaw(bytes);
        for (int i = 0; i < replies; ++i)
            QCOMPARE(client.ReadTo(), (QStringList{replies == 1 && bytes.startsWith("|WASUP")
                                                       ? u"ERROR~Not logged in~"_s
                                                       : u"ERROR~Unknown request~"_s,
                                                   u"EOF~"_s}));
        QVERIFY(client.IsConnected());
    }
    WireClient next(court);
    QCOMPARE(next.LogOn(), justEnd);
}

void tst_PracticeServer::dropsAnEndlessRequest()
{
    PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.SendRaw("|LOGON");
    const QByteArray part(128 * 1024, 'x');
    for (int i = 0; i < 16 && client.IsConnected(); ++i)
        client.SendRaw(part);
    QCOMPARE(client.ReadToClose(), QByteArray());
    QVERIFY(!client.IsConnected());
    const QString errors = court.Errors(u"\n"_s);
    QVERIFY2(errors.endsWith(u": a request of more than 1048576 bytes, connection closed\n"_s),
             qPrintable(errors));
    WireClient next(court);
    QCOMPARE(next.LogOn(), justEnd);
}

void tst_PracticeServer::dropsAFloodOfRequests()
{
    PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(SearchFor(u"SLOW"_s));
    client.ReadTo(u"SEARCHING~the~index~of~cases~.."_s);
    client.SendRaw(QByteArray("|GETMSG\xA6|").repeated(1'001));
    client.ReadToClose();
    QVERIFY(!client.IsConnected());
    const QString errors = court.Errors(u"\n"_s);
    QVERIFY2(errors.endsWith(u": more than 1000 requests at a time, connection closed\n"_s),
             qPrintable(errors));
}

void tst_PracticeServer::survivesDisconnects()
{
    const PracticeProcess court;
    const QByteArray conversation = "|LOGON\xA6"
                                    "ann\xA6pw\xA6v\xA6||WASUP\xA6SEARCH\xA6MANY\xA6"
                                    "9000\xA6\xA6\xA6King,\xA6\xA6\xA6\xA6||STOP\xA6|";
    for (qsizetype sent = 0; sent <= conversation.size(); sent += 3) {
        WireClient client(court);
        client.SendRaw(conversation.first(sent));
        client.Drop();
    }
    for (const int bytes : {1, 6, 100, 5'000, 100'000}) {
        WireClient client(court);
        client.LogOn();
        client.Send(SearchFor(u"MANY"_s));
        client.ReadBytes(bytes);
        client.Drop();
    }
    for (const QString &name : {u"SLOW"_s, u"STALL"_s}) {
        WireClient client(court);
        client.LogOn();
        client.Send(SearchFor(name));
        client.ReadBytes(50);
        client.Drop();
    }
    WireClient next(court);
    QCOMPARE(next.LogOn(), justEnd);
    QVERIFY(court.IsRunning());
}

HALVANE_TEST(tst_PracticeServer)
#include "tst_PracticeServer.moc"
