#include "core/Windows1252.h"
#include "practice/CommandLine.h"
#include "practice/Conversation.h"
#include "practice/FrameReader.h"
#include "practice/Request.h"
#include "practice/SendGate.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Practice;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(Practice::CommandLine::Outcome)
Q_DECLARE_METATYPE(Practice::Conversation::Turn)

class tst_PracticeWire : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frames_data();
    void frames();
    void aFrameInPieces();
    void theLongestFrame();
    void requests_data();
    void requests();
    void turns_data();
    void turns();
    void commandLines_data();
    void commandLines();
    void switchesAreStored();
    void everySwitchIsInTheHelp();
    void gateWithoutFaults();
    void gateSplits();
    void gateDrips();
    void gateDripSavesLittleUp();
    void gateDropsAndStalls_data();
    void gateDropsAndStalls();
};

void tst_PracticeWire::frames_data()
{
    QTest::addColumn<QByteArrayList>("chunks");
    QTest::addColumn<QByteArrayList>("frames");

    QTest::newRow("one") << QByteArrayList{"|A|"} << QByteArrayList{"A"};
    QTest::newRow("two in one chunk") << QByteArrayList{"|A||B|"} << QByteArrayList{"A", "B"};
    QTest::newRow("in halves") << QByteArrayList{"|A", "B|"} << QByteArrayList{"AB"};
    QTest::newRow("split at the bars")
        << QByteArrayList{"|", "A", "|", "|", "B", "|"} << QByteArrayList{"A", "B"};
    QTest::newRow("half a frame") << QByteArrayList{"|A||B"} << QByteArrayList{"A"};
    QTest::newRow("rubbish before a frame") << QByteArrayList{"junk|A|"} << QByteArrayList{"A"};
    QTest::newRow("rubbish between frames")
        << QByteArrayList{"|A|\r\n|B|"} << QByteArrayList{"A", "B"};
    QTest::newRow("empty frames") << QByteArrayList{"|||||A|"} << QByteArrayList{"A"};
    QTest::newRow("an empty frame first") << QByteArrayList{"|||A|"} << QByteArrayList{"A"};
    QTest::newRow("nothing but rubbish") << QByteArrayList{"junk", "more"} << QByteArrayList{};
    QTest::newRow("NULs") << QByteArrayList{QByteArray("|A\0B|", 5)}
                          << QByteArrayList{QByteArray("A\0B", 3)};
    QTest::newRow("nothing") << QByteArrayList{""} << QByteArrayList{};
}

void tst_PracticeWire::frames()
{
    QFETCH(QByteArrayList, chunks);
    QFETCH(QByteArrayList, frames);

    FrameReader reader;
    QByteArrayList found;
    for (const QByteArray &chunk : chunks) {
        reader.Append(chunk);
        while (const std::optional<QByteArray> frame = reader.Next())
            found.append(*frame);
    }
    QCOMPARE(found, frames);
    QVERIFY(!reader.TooLong());
}

void tst_PracticeWire::aFrameInPieces()
{
    const QByteArray wire = "|LOGON\xA6"
                            "a\xA6"
                            "b\xA6"
                            "c\xA6||STOP\xA6|";
    for (qsizetype cut = 0; cut <= wire.size(); ++cut) {
        FrameReader reader;
        reader.Append(wire.first(cut));
        reader.Append(wire.sliced(cut));
        QCOMPARE(reader.Next(), QByteArray("LOGON\xA6"
                                           "a\xA6"
                                           "b\xA6"
                                           "c\xA6"));
        QCOMPARE(reader.Next(), QByteArray("STOP\xA6"));
        QCOMPARE(reader.Next(), std::nullopt);
    }
}

void tst_PracticeWire::theLongestFrame()
{
    const QByteArray longest(FrameReader::longestFrame, 'x');
    FrameReader fits;
    fits.Append(QByteArray("|" + longest + "|"));
    QVERIFY(!fits.TooLong());
    QCOMPARE(fits.Next(), longest);

    FrameReader bursts;
    bursts.Append("|A||");
    bursts.Append(longest);
    QVERIFY(!bursts.TooLong());
    bursts.Append("x");
    QVERIFY(bursts.TooLong());
    QCOMPARE(bursts.Next(), QByteArray("A")); // what was whole before it is still there
    bursts.Append("|B||C|");
    QCOMPARE(bursts.Next(), std::nullopt);

    FrameReader rubbish; // outside a frame nothing grows
    for (int i = 0; i < 3; ++i)
        rubbish.Append(longest);
    QVERIFY(!rubbish.TooLong());
}

void tst_PracticeWire::requests_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("code"); // null: no tag

    QTest::newRow("no fields") << u"GETMSG¦"_s << u"GETMSG"_s << QStringList{} << QString();
    QTest::newRow("a tilde") << u"GETCLIENTACCTGOPT~"_s << u"GETCLIENTACCTGOPT"_s << QStringList{}
                             << QString();
    QTest::newRow("fields") << u"LOGON¦ann¦pw¦AppVer-9.00¦"_s << u"LOGON"_s
                            << QStringList{u"ann"_s, u"pw"_s, u"AppVer-9.00"_s} << QString();
    QTest::newRow("empty fields at the end")
        << u"A¦b¦¦¦"_s << u"A"_s << QStringList{u"b"_s, u""_s, u""_s} << QString();
    QTest::newRow("a tilde in a field")
        << u"A¦b~c¦"_s << u"A"_s << QStringList{u"b~c"_s} << QString();
    QTest::newRow("a tag") << u"A¦b¦^^CAC:ABC^^¦"_s << u"A"_s << QStringList{u"b"_s, u""_s}
                           << u"ABC"_s;
    QTest::newRow("a tag behind a filled field")
        << u"A¦b^^CAC:ABC^^¦"_s << u"A"_s << QStringList{u"b"_s} << u"ABC"_s;
    QTest::newRow("a tag before a tilde")
        << u"A~b~c^^CAC:A B^^~"_s << u"A"_s << QStringList{u"b"_s, u"c"_s} << u"A B"_s;
    QTest::newRow("an empty tag") << u"A¦b¦^^CAC:^^¦"_s << u"A"_s << QStringList{u"b"_s, u""_s}
                                  << u""_s;
    QTest::newRow("a tag elsewhere is text")
        << u"A¦^^CAC:X^^b¦"_s << u"A"_s << QStringList{u"^^CAC:X^^b"_s} << QString();
    QTest::newRow("half a tag is text")
        << u"A¦CAC:X^^¦"_s << u"A"_s << QStringList{u"CAC:X^^"_s} << QString();
    QTest::newRow("a tag that closes with its opening is text")
        << u"A¦^^CAC:^¦"_s << u"A"_s << QStringList{u"^^CAC:^"_s} << QString();
    QTest::newRow("no delimiter") << u"GETMSG"_s << u"GETMSG"_s << QStringList{} << QString();
    QTest::newRow("only a delimiter") << u"¦"_s << u""_s << QStringList{} << QString();
    QTest::newRow("nothing") << u""_s << u""_s << QStringList{} << QString();
}

void tst_PracticeWire::requests()
{
    QFETCH(QString, text);
    QFETCH(QString, keyword);
    QFETCH(QStringList, fields);
    QFETCH(QString, code);

    const Request request = ParseRequest(ToWindows1252(text));
    QCOMPARE(request.keyword, keyword);
    QCOMPARE(request.fields, fields);
    QCOMPARE(request.tagged, !code.isNull());
    QCOMPARE(request.accountingCode, code);
    const bool delimited = text.endsWith(u'¦') || text.endsWith(u'~');
    QCOMPARE(request.delimiter, delimited ? text.back() : QChar());
}

void tst_PracticeWire::turns_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Conversation::Turn>("turn");
    using Turn = Conversation::Turn;

    QTest::newRow("stop") << u"STOP¦"_s << Turn::Stops;
    QTest::newRow("stop of the bankruptcy courts") << u"BKRPT~STOP~"_s << Turn::Stops;
    QTest::newRow("stop with a tilde is none") << u"STOP~"_s << Turn::Waits;
    QTest::newRow("stop with a field is none") << u"STOP¦x¦"_s << Turn::Waits;
    QTest::newRow("another bankruptcy request") << u"BKRPT~SUMMARY~"_s << Turn::Waits;
    QTest::newRow("alive") << u"IMALIVE¦"_s << Turn::Alive;
    QTest::newRow("alive with a tilde is none") << u"IMALIVE~"_s << Turn::Waits;
    QTest::newRow("login") << u"LOGON¦STOP¦IMALIVE¦v¦"_s << Turn::Waits;
    QTest::newRow("a long one") << u"WASUP¦%1¦"_s.arg(QString(1'000, u'x')) << Turn::Waits;
    QTest::newRow("rubbish") << u"\u0001\u0002"_s << Turn::Waits;
}

void tst_PracticeWire::turns()
{
    QFETCH(QString, text);
    QFETCH(Conversation::Turn, turn);
    QCOMPARE(Conversation::TurnOf(ToWindows1252(text)), turn);
}

void tst_PracticeWire::commandLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<CommandLine::Outcome>("outcome");
    QTest::addColumn<QString>("message");
    using Outcome = CommandLine::Outcome;

    const auto wrong = [](const char *name, const QStringList &arguments, const QString &message) {
        QTest::newRow(name) << arguments << Outcome::Wrong << message;
    };
    QTest::newRow("none") << QStringList{} << Outcome::Run << QString();
    QTest::newRow("port 0") << QStringList{u"--port"_s, u"0"_s} << Outcome::Run << QString();
    QTest::newRow("the last port") << QStringList{u"--port=65535"_s} << Outcome::Run << QString();
    QTest::newRow("version") << QStringList{u"--version"_s, u"--rubbish"_s} << Outcome::ShowVersion
                             << QString();
    QTest::newRow("help") << QStringList{u"--help"_s} << Outcome::ShowHelp << QString();
    wrong("port too high", {u"--port"_s, u"65536"_s},
          u"--port needs a whole number from 0 to 65535, not \"65536\""_s);
    wrong("port is a word", {u"--port"_s, u"http"_s},
          u"--port needs a whole number from 0 to 65535, not \"http\""_s);
    wrong("a sign", {u"--port"_s, u"+1"_s},
          u"--port needs a whole number from 0 to 65535, not \"+1\""_s);
    wrong("port is missing", {u"--port"_s},
          u"--port needs a whole number from 0 to 65535, not \"\""_s);
    wrong("no data file", {u"--data"_s}, u"--data needs a file name"_s);
    wrong("an empty data file", {u"--data="_s}, u"--data needs a file name"_s);
    wrong("seed too high", {u"--seed"_s, u"4294967296"_s},
          u"--seed needs a whole number from 0 to 4294967295, not \"4294967296\""_s);
    wrong("chunks of nothing", {u"--split"_s, u"0"_s},
          u"--split needs a whole number from 1 up, not \"0\""_s);
    wrong("no drip", {u"--drip"_s, u"0"_s},
          u"--drip needs a whole number from 1 to 1000000000, not \"0\""_s);
    wrong("drop before the start", {u"--drop-after"_s, u"-1"_s},
          u"--drop-after needs a whole number from 0 up, not \"-1\""_s);
    wrong("stall is a word", {u"--stall-after=x"_s},
          u"--stall-after needs a whole number from 0 up, not \"x\""_s);
    wrong("more than a number holds", {u"--stall-after"_s, u"9223372036854775808"_s},
          u"--stall-after needs a whole number from 0 up, not \"9223372036854775808\""_s);
    wrong("ping all the time", {u"--ping-every"_s, u"0"_s},
          u"--ping-every needs a whole number from 1 to 86400000, not \"0\""_s);
    wrong("an argument too many", {u"--refuse=yes"_s}, u"--refuse takes no argument"_s);
    wrong("an unknown switch", {u"--rubbish"_s}, u"unknown argument \"--rubbish\""_s);
    wrong("an unknown word", {u"rubbish"_s}, u"unknown argument \"rubbish\""_s);
    wrong("nothing", {QString()}, u"unknown argument \"\""_s);
}

void tst_PracticeWire::commandLines()
{
    QFETCH(QStringList, arguments);
    QFETCH(CommandLine::Outcome, outcome);
    QFETCH(QString, message);

    const CommandLine line = ParseCommandLine(QStringList{u"halvane-practice"_s} + arguments);
    QCOMPARE(line.outcome, outcome);
    QCOMPARE(line.message, message);
}

void tst_PracticeWire::switchesAreStored()
{
    const Switches none = ParseCommandLine({u"halvane-practice"_s}).switches;
    QCOMPARE(none.port, quint16{0});
    QCOMPARE(none.seed, quint32{1});
    QVERIFY(none.dataFile.isEmpty());
    QVERIFY(!none.split && !none.drip && !none.dropAfter && !none.stallAfter && !none.pingEvery);
    QVERIFY(!none.leaveBehind && !none.refuse && !none.untilInputCloses);

    const Switches all =
        ParseCommandLine({u"halvane-practice"_s, u"--port"_s, u"8085"_s, u"--data=a=b.txt"_s,
                          u"--seed"_s, u"7"_s, u"--split"_s, u"3"_s, u"--drip"_s, u"400"_s,
                          u"--drop-after"_s, u"500"_s, u"--stall-after"_s, u"0"_s,
                          u"--ping-every"_s, u"60"_s, u"--leave-behind"_s, u"--refuse"_s,
                          u"--until-stdin-closes"_s})
            .switches;
    QCOMPARE(all.port, quint16{8085});
    QCOMPARE(all.dataFile, u"a=b.txt"_s);
    QCOMPARE(all.seed, quint32{7});
    QCOMPARE(all.split, 3);
    QCOMPARE(all.drip, 400);
    QCOMPARE(all.dropAfter, 500);
    QCOMPARE(all.stallAfter, 0);
    QCOMPARE(all.pingEvery, 60);
    QVERIFY(all.leaveBehind);
    QVERIFY(all.refuse);
    QVERIFY(all.untilInputCloses);
}

void tst_PracticeWire::everySwitchIsInTheHelp()
{
    const QString help = HelpText();
    for (const char16_t *name :
         {u"--port N", u"--data FILE", u"--seed N", u"--split N", u"--drip N", u"--drop-after N",
          u"--stall-after N", u"--ping-every MS", u"--leave-behind", u"--refuse",
          u"--until-stdin-closes", u"--version", u"--help"})
        QVERIFY2(help.contains(QStringView(name)), qPrintable(QString::fromUtf16(name)));
}

void tst_PracticeWire::gateWithoutFaults()
{
    SendGate gate{Switches()};
    QCOMPARE(gate.Allowance(1'000'000, 0), 1'000'000);
    gate.Sent(1'000'000);
    QCOMPARE(gate.Allowance(5, 1), 5);
    QVERIFY(!gate.MustDrop());
    QVERIFY(!gate.Stalled());
}

void tst_PracticeWire::gateSplits()
{
    Switches switches;
    switches.split = 7;
    SendGate gate(switches);
    QCOMPARE(gate.Allowance(100, 0), 7);
    gate.Sent(7);
    QCOMPARE(gate.Allowance(3, 0), 3);
}

void tst_PracticeWire::gateDrips()
{
    Switches switches;
    switches.drip = 10; // a byte in 100 ms
    SendGate gate(switches);
    QCOMPARE(gate.Allowance(50, 1'000), 0);
    QVERIFY(gate.Wait() > 90 && gate.Wait() <= 101);
    QCOMPARE(gate.Allowance(50, 1'050), 0);
    QCOMPARE(gate.Allowance(50, 1'100), 1);
    gate.Sent(1);
    QCOMPARE(gate.Allowance(50, 1'110), 0);
    QCOMPARE(gate.Allowance(50, 1'200), 1);
}

void tst_PracticeWire::gateDripSavesLittleUp()
{
    Switches switches;
    switches.drip = 1'000;
    SendGate gate(switches);
    gate.Allowance(1, 0);
    QCOMPARE(gate.Allowance(1'000'000, 60'000), 50);
    gate.Sent(50);
    QCOMPARE(gate.Allowance(1'000'000, 60'010), 10);
}

void tst_PracticeWire::gateDropsAndStalls_data()
{
    QTest::addColumn<int>("drop"); // -1: not set
    QTest::addColumn<int>("stall");
    QTest::addColumn<int>("passes");
    QTest::addColumn<bool>("drops");

    QTest::newRow("drop") << 10 << -1 << 10 << true;
    QTest::newRow("stall") << -1 << 10 << 10 << false;
    QTest::newRow("drop at once") << 0 << -1 << 0 << true;
    QTest::newRow("stall at once") << -1 << 0 << 0 << false;
    QTest::newRow("drop before stall") << 5 << 9 << 5 << true;
    QTest::newRow("stall before drop") << 9 << 5 << 5 << false;
}

void tst_PracticeWire::gateDropsAndStalls()
{
    QFETCH(int, drop);
    QFETCH(int, stall);
    QFETCH(int, passes);
    QFETCH(bool, drops);

    Switches switches;
    if (drop >= 0)
        switches.dropAfter = drop;
    if (stall >= 0)
        switches.stallAfter = stall;
    SendGate gate(switches);
    int passed = 0;
    while (passed < 100 && gate.Allowance(4, 0) > 0) {
        QVERIFY(!gate.MustDrop() && !gate.Stalled());
        const auto allowed = static_cast<int>(gate.Allowance(4, 0));
        gate.Sent(allowed);
        passed += allowed;
    }
    QCOMPARE(passed, passes);
    QCOMPARE(gate.MustDrop(), drops);
    QCOMPARE(gate.Stalled(), !drops);
}

HALVANE_TEST(tst_PracticeWire)
#include "tst_PracticeWire.moc"
