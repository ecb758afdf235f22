#include "practice/PracticeExchange.h"
#include "practice/PracticeProcess.h"
#include "support/HalvaneTest.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QByteArray tail = "|EOD~||EOF~|";

/// A document of the case in which each has a trouble of its own, by its description.
QString requestFor(WireClient &client, const QString &description)
{
    for (const QString &row : client.Ask(u"WASUPDOC¦GETDOCTAB¦King¦90-2-99035-0¦"_s)) {
        if (row.contains(u'~' + description + u'~'))
            return QString(row).remove(u"RETRIEVEDOC="_s);
    }
    return {};
}

/// Reads a stream to its tail, or until nothing more comes.
QByteArray readStream(WireClient &client)
{
    QByteArray stream;
    while (!stream.endsWith(tail)) {
        const QByteArray more = client.ReadBytes(1);
        if (more.isEmpty())
            break;
        stream += more;
    }
    return stream;
}

QByteArray headOf(const QByteArray &stream)
{
    const qsizetype head = stream.indexOf("|FILELEN=");
    return stream.sliced(head, stream.indexOf("~|", head) + 2 - head);
}

qint64 lengthOf(const QByteArray &stream)
{
    return headOf(stream).mid(9).split('~').first().toLongLong();
}

/// The most memory that the process has had at a time, in bytes; nothing where there is no telling.
std::optional<qint64> mostMemory(qint64 process)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("VmHWM:");
    return text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toLongLong() * 1'024;
}
} // namespace

/// Documents as they come over the wire.
class tst_PracticeDocumentWire : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aDocumentIsTheBytesBetweenHeadAndTail();
    void headNoticesAndTailComeInOnePiece();
    void aStopEndsTheStream_data();
    void aStopEndsTheStream();
    void whatIsAskedBehindADocument();
    void aStrayReplyComesWithTheTail();
    void theLinkIsDroppedInTheMiddle();
    void aPaceThatIsSet();
    void twoHundredMegabytes();
};

void tst_PracticeDocumentWire::aDocumentIsTheBytesBetweenHeadAndTail()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(requestFor(client, u"Complaint"_s));
    const QByteArray stream = readStream(client);
    QCOMPARE(headOf(stream), "|FILELEN=" + QByteArray::number(lengthOf(stream)) + "~TYPE=pdf~|");
    QCOMPARE(stream.size(), headOf(stream).size() + lengthOf(stream) + tail.size());
    QVERIFY(stream.mid(headOf(stream).size()).startsWith("%PDF-"));
}

void tst_PracticeDocumentWire::headNoticesAndTailComeInOnePiece()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    const QString request = requestFor(client, u"12 Progress Notices"_s);
    client.arrivals.clear();
    client.Send(request);
    const QByteArray stream = readStream(client);
    // The ends of what arrived; a piece that is cut has one within.
    QList<qsizetype> ends;
    qsizetype arrived = 0;
    for (const qsizetype arrival : client.arrivals)
        ends.append(arrived += arrival);
    QCOMPARE(stream.count("|Searching~King"), 12);
    qsizetype at = 0;
    for (int piece = 0; piece < 13; ++piece) {
        const qsizetype end = stream.indexOf("~|", at) + 2;
        QVERIFY(std::none_of(ends.begin(), ends.end(),
                             [&](qsizetype cut) { return cut > at && cut < end; }));
        // A notice has an arrival of its own.
        QVERIFY(piece == 12 || ends.contains(end));
        at = end;
    }
    QVERIFY(std::none_of(ends.begin(), ends.end(), [&](qsizetype cut) {
        return cut > stream.size() - tail.size() && cut < stream.size();
    }));
}

void tst_PracticeDocumentWire::aStopEndsTheStream_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("stop");
    for (const char *description :
         {"Slow Document", "13 Progress Notices", "Stall In The Middle", "200 Megabytes"}) {
        QTest::addRow("%s", description) << QString::fromLatin1(description) << u"¦STOP"_s;
        QTest::addRow("%s, the bar behind", description)
            << QString::fromLatin1(description) << u"STOP¦"_s;
    }
}

void tst_PracticeDocumentWire::aStopEndsTheStream()
{
    QFETCH(QString, description);
    QFETCH(QString, stop);
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(requestFor(client, description));
    QVERIFY(client.WaitForBytes(20));
    client.Send(stop);
    client.Send(guideSearch);
    QByteArray came;
    while (!came.endsWith(guideReply)) {
        const QByteArray more = client.ReadBytes(1);
        QVERIFY(!more.isEmpty());
        came += more;
    }
    came.chop(guideReply.size());
    QVERIFY(came.endsWith(tail));
    QCOMPARE(came.count(tail), 1);
    // Behind a stop there is nothing but what lay in the socket.
    QVERIFY(came.size() < 20'000'000);
}

void tst_PracticeDocumentWire::whatIsAskedBehindADocument()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    const QString request = requestFor(client, u"Exhibit As TIFF"_s);
    client.Send(request);
    client.Send(guideSearch);
    client.Send(request);
    QByteArray came;
    while (came.count(tail) < 2) {
        const QByteArray more = client.ReadBytes(1);
        QVERIFY(!more.isEmpty());
        came += more;
    }
    QVERIFY(headOf(came).endsWith("TYPE=tif~|"));
    QVERIFY(came.contains(QByteArray(tail + guideReply)));
    QCOMPARE(came.size(), 2 * (came.indexOf(tail) + tail.size()) + guideReply.size());
}

/// Later it would meet the next request, which no honest court lets happen.
void tst_PracticeDocumentWire::aStrayReplyComesWithTheTail()
{
    const QByteArray stray = "|A ROW OF ANOTHER REPLY~||EOF~|";
    const PracticeProcess court({u"--leave-behind"_s});
    WireClient client(court);
    client.LogOn();
    client.ReadBytes(stray.size());
    const QString request = requestFor(client, u"Complaint"_s);
    client.ReadBytes(stray.size());
    for (int round = 0; round < 5; ++round) {
        client.arrivals.clear();
        client.Send(request);
        QByteArray stream;
        while (!stream.contains(tail)) {
            const QByteArray more = client.ReadBytes(1);
            QVERIFY(!more.isEmpty());
            stream += more;
        }
        QVERIFY(stream.endsWith(QByteArray(tail + stray)));
        QCOMPARE(stream.count(stray), 1);
    }
}

void tst_PracticeDocumentWire::theLinkIsDroppedInTheMiddle()
{
    const PracticeProcess court;
    WireClient client(court);
    client.LogOn();
    client.Send(requestFor(client, u"Link Dropped In The Middle"_s));
    const QByteArray stream = client.ReadToClose();
    QVERIFY(!client.IsConnected());
    QCOMPARE(stream.size() - headOf(stream).size(), lengthOf(stream) / 2);
    QVERIFY(!stream.contains("EOF~"));
}

void tst_PracticeDocumentWire::aPaceThatIsSet()
{
    const PracticeProcess court({u"--document-pace"_s, u"20000"_s});
    WireClient client(court);
    client.LogOn();
    const QString request = requestFor(client, u"Complaint"_s);
    QElapsedTimer timer;
    timer.start();
    client.Send(request);
    const QByteArray stream = readStream(client);
    QVERIFY(stream.endsWith(tail));
    // 20 chunks a second; a timer may be a little early.
    QVERIFY(timer.elapsed() >= (lengthOf(stream) / 1'000 - 1) * 45);
}

void tst_PracticeDocumentWire::twoHundredMegabytes()
{
    // A court that is built with sanitizers would keep what it has freed.
    qputenv("ASAN_OPTIONS", "quarantine_size_mb=1:thread_local_quarantine_size_kb=64");
    const PracticeProcess court;
    qunsetenv("ASAN_OPTIONS");
    WireClient client(court);
    client.LogOn();
    client.Send(requestFor(client, u"200 Megabytes"_s));
    const QByteArray begin = client.ReadBytes(1);
    qint64 came = begin.size();
    const qint64 all = headOf(begin).size() + lengthOf(begin) + tail.size();
    QByteArray last = begin;
    while (came < all) {
        const QByteArray more = client.ReadBytes(1);
        QVERIFY(!more.isEmpty());
        came += more.size();
        last = QByteArray(last + more).last(64);
    }
    QCOMPARE(came, all);
    QVERIFY(last.endsWith(QByteArray("%%EOF\n" + tail)));
    if (const std::optional<qint64> memory = mostMemory(court.ProcessId()))
        QVERIFY2(*memory < 150'000'000, qPrintable(QString::number(*memory)));
}

HALVANE_TEST(tst_PracticeDocumentWire)
#include "tst_PracticeDocumentWire.moc"
