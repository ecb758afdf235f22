#include "practice/DocumentChecks.h"
#include "practice/DocumentReply.h"
#include "practice/PdfBytes.h"
#include "practice/PracticeAsk.h"
#include "practice/TiffBytes.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QString refusal = u"ERROR~Document not found~"_s;
const QString end = u"EOF~"_s;
const QByteArray tail = "|EOD~||EOF~|";
const QString troubled = u"WASUPDOC¦GETDOCTAB¦King¦90-2-99035-0¦"_s;
constexpr qint64 megabyte = 1'000'000;

/// A stream as it goes out, and what stands between its bytes.
struct Stream
{
    QList<QByteArray> pieces;
    QByteArray body;
    QStringList others; ///< pauses, silence, drop, tokens

    QByteArray Head() const
    {
        const auto head = std::find_if(pieces.begin(), pieces.end(), [](const QByteArray &piece) {
            return piece.startsWith("|FILELEN=");
        });
        return head == pieces.end() ? QByteArray() : *head;
    }
    QByteArray Type() const { return Head().mid(Head().indexOf("TYPE=") + 5).chopped(2); }
    qint64 Length() const { return Head().mid(9).split('~').first().toLongLong(); }
};

Stream streamOf(Reply reply, qint64 most = 4 * megabyte)
{
    using Kind = ReplyStep::Kind;
    Stream stream;
    for (ReplyStep step = reply.Next(); step.kind != Kind::End && stream.body.size() < most;
         step = reply.Next()) {
        if (step.kind == Kind::Piece)
            stream.pieces.append(step.bytes);
        else if (step.kind == Kind::Bytes)
            stream.body += step.bytes;
        else if (step.kind == Kind::Pause)
            stream.others.append(u"pause"_s);
        else
            stream.others.append(step.kind == Kind::Drop      ? u"drop"_s
                                 : step.kind == Kind::Silence ? u"silence"_s
                                                              : step.text);
    }
    return stream;
}

QStringList rowsOf(const QString &list)
{
    Conversation court = LoggedIn();
    QStringList lines = Ask(court, list);
    lines.removeLast();
    return lines.mid(4);
}

/// What the program sends for a row of a list.
QString requestOf(const QString &row)
{
    return QString(row).remove(u"RETRIEVEDOC="_s);
}

Reply replyTo(const QString &row, qint64 pace = 0)
{
    Conversation court(People(), someDay, std::make_shared<TabMemory>(), pace);
    court.Answer(ToWindows1252(u"LOGON¦ann¦pw¦AppVer-9.00¦"_s));
    return court.Answer(ToWindows1252(requestOf(row)));
}

QString troubledRow(const QString &description)
{
    for (const QString &row : rowsOf(troubled)) {
        if (row.contains(u'~' + description + u'~'))
            return row;
    }
    return {};
}

const Paper paper{u"King"_s, u"98-2-00017-7"_s, u"Answer (amended) \\"_s, {1998, 3, 16}, 4, 3, 7};
} // namespace

/// The documents of the practice court, and how it sends them.
class tst_PracticeDocuments : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aPdf();
    void aLongPdf();
    void aTiff();
    void anyPartOfADocument();
    void noLineIsTooLong();
    void everyListedDocumentComes_data();
    void everyListedDocumentComes();
    void theCommandAloneIsEnough();
    void theSameAgain();
    void whatIsNotListed_data();
    void whatIsNotListed();
    void notLoggedIn();
    void troubles_data();
    void troubles();
    void theHugeOneIsNotHeldInMemory();
    void aPaceBetweenThePieces();
    void aSlowDocumentIsSlowAtAnyPace();
    void aStopEndsTheStreamAsItEndsItself();
    void theTroubledListHasEveryKind();
};

void tst_PracticeDocuments::aPdf()
{
    const DocumentBytes pdf = PdfBytes(paper);
    const QByteArray bytes = pdf.Part(0, pdf.Size());
    const PdfPages pages = ReadPdf(bytes);
    QCOMPARE(pages.error, QString());
    QCOMPARE(pages.texts.size(), 3);
    for (int page = 0; page < 3; ++page) {
        QVERIFY(pages.texts[page].contains(u"98-2-00017-7"));
        QVERIFY(pages.texts[page].contains(u"Answer (amended) "));
        QVERIFY(pages.texts[page].contains(u"Page %1 of 3"_s.arg(page + 1)));
    }
    QCOMPARE(ViewersComplaint(bytes, u"pdf"_s), QString());
    // What trips the check would trip a viewer.
    QVERIFY(!ReadPdf(QByteArray(bytes).insert(40, 'x')).error.isEmpty());
}

void tst_PracticeDocuments::aLongPdf()
{
    const DocumentBytes pdf = PdfBytes(paper, megabyte);
    const QByteArray bytes = pdf.Part(0, pdf.Size());
    QVERIFY(bytes.size() >= megabyte && bytes.size() < megabyte + 10'000);
    const PdfPages pages = ReadPdf(bytes);
    QCOMPARE(pages.error, QString());
    QCOMPARE(pages.texts.size(), 3);
    QCOMPARE(ViewersComplaint(bytes, u"pdf"_s), QString());
    // As long as it is by itself, it needs no more.
    const DocumentBytes shorter = PdfBytes(paper, 100);
    QCOMPARE(shorter.filling, 0);
    QCOMPARE(shorter.start, PdfBytes(paper).start);
}

void tst_PracticeDocuments::aTiff()
{
    const DocumentBytes tiff = TiffBytes(paper);
    const QByteArray bytes = tiff.Part(0, tiff.Size());
    const TiffPages pages = ReadTiff(bytes);
    QCOMPARE(pages.error, QString());
    QCOMPARE(pages.pixels.size(), 3);
    // Something is written on each, and each has another number.
    for (const QByteArray &pixels : pages.pixels)
        QVERIFY(pixels.count('\0') < pixels.size() - 1'000);
    QVERIFY(pages.pixels[0] != pages.pixels[1]);
    // White is most of a page.
    QVERIFY(pages.pixels[0].count('\0') > pages.pixels[0].size() * 3 / 4);
    QCOMPARE(ViewersComplaint(bytes, u"tif"_s), QString());
    QVERIFY(!ReadTiff(QByteArray(bytes).insert(20, 'x')).error.isEmpty());
}

void tst_PracticeDocuments::anyPartOfADocument()
{
    const DocumentBytes document{"start", 200'000, "the end"};
    const QByteArray whole = document.Part(0, document.Size());
    QCOMPARE(whole.size(), 200'012);
    QVERIFY(whole.startsWith("start") && whole.endsWith("the end"));
    QVERIFY(!whole.contains('|'));
    for (const qint64 chunk : {1'000, 1'001, 65'521, 199'999, 200'011}) {
        QByteArray together;
        while (together.size() < whole.size())
            together += document.Part(together.size(), chunk);
        QVERIFY(together == whole);
    }
    for (qint64 from = 199'990; from < 200'012; ++from)
        QCOMPARE(document.Part(from, 3), whole.mid(from, 3));
    QCOMPARE(document.Part(whole.size(), 5), QByteArray());
}

void tst_PracticeDocuments::noLineIsTooLong()
{
    Paper wordy = paper;
    wordy.text = u"word "_s.repeated(40);
    for (const QString &line : PaperLines(wordy, 1))
        QVERIFY2(line.size() <= 60, qPrintable(line));
}

void tst_PracticeDocuments::everyListedDocumentComes_data()
{
    QTest::addColumn<QString>("county");
    QTest::newRow("King") << u"King"_s;
    QTest::newRow("Pierce") << u"Pierce"_s;
    QTest::newRow("Spokane") << u"Spokane"_s;
}

void tst_PracticeDocuments::everyListedDocumentComes()
{
    QFETCH(QString, county);
    int pdfs = 0;
    int tiffs = 0;
    int unavailable = 0;
    for (const QString &found :
         Search(u"WASUP¦SEARCH¦LEE¦¦¦¦%1,¦Civil,Criminal,¦¦¦"_s.arg(county)).first(4)) {
        const QString number = WithoutMarks(found.section(u'~', 1, 1));
        const QStringList rows = rowsOf(u"WASUPDOC¦GETDOCTAB¦%1¦%2¦"_s.arg(county, number));
        for (const QString &row : rows) {
            if (!row.startsWith(u"RETRIEVEDOC=")) {
                ++unavailable;
                continue;
            }
            const int pages =
                row.section(u'~', county == u"Pierce" ? 2 : 3).section(u'~', 0, 0).toInt();
            const Stream stream = streamOf(replyTo(row));
            QCOMPARE(stream.pieces.size(), 2);
            QCOMPARE(stream.pieces.last(), tail);
            QCOMPARE(stream.Length(), stream.body.size());
            QVERIFY(!stream.body.contains("|EOF~|") && !stream.body.contains("|EOD~|"));
            if (stream.Type() == "pdf") {
                const PdfPages pdf = ReadPdf(stream.body);
                QCOMPARE(pdf.error, QString());
                QCOMPARE(pdf.texts.size(), pages);
                QVERIFY(pdf.texts.last().contains(number));
                ++pdfs;
            } else {
                QCOMPARE(stream.Type(), "tif");
                const TiffPages tiff = ReadTiff(stream.body);
                QCOMPARE(tiff.error, QString());
                QCOMPARE(tiff.pixels.size(), pages);
                ++tiffs;
            }
        }
    }
    QVERIFY2(pdfs > 5 && tiffs > 1 && unavailable > 0,
             qPrintable(u"%1 %2 %3"_s.arg(pdfs).arg(tiffs).arg(unavailable)));
}

void tst_PracticeDocuments::theCommandAloneIsEnough()
{
    const QString row = rowsOf(u"WASUPDOC¦GETDOCTAB¦King¦98-2-00017-7¦"_s).first();
    const Stream whole = streamOf(replyTo(row));
    QVERIFY(!whole.body.isEmpty());
    const Stream alone = streamOf(replyTo(row.section(u'~', 0, 0)));
    QVERIFY(alone.body == whole.body);
}

void tst_PracticeDocuments::theSameAgain()
{
    const QString row = rowsOf(u"WASUPDOC¦GETDOCTAB¦King¦98-2-00017-7¦"_s).first();
    QVERIFY(streamOf(replyTo(row)).body == streamOf(replyTo(row)).body);
}

void tst_PracticeDocuments::whatIsNotListed_data()
{
    QTest::addColumn<QString>("request");
    QTest::newRow("no such place") << u"WASUPDOC¦GETDOC¦King¦98-2-00017-7¦99¦~"_s;
    QTest::newRow("place 0") << u"WASUPDOC¦GETDOC¦King¦98-2-00017-7¦0¦~"_s;
    QTest::newRow("one that is unavailable") << u"WASUPDOC¦GETDOC¦King¦98-2-00017-7¦3¦~"_s;
    QTest::newRow("another county") << u"WASUPDOC¦GETDOC¦Pierce¦98-2-00017-7¦1¦~"_s;
    QTest::newRow("no such county") << u"WASUPDOC¦GETDOC¦Kong¦98-2-00017-7¦1¦~"_s;
    QTest::newRow("no such case") << u"WASUPDOC¦GETDOC¦King¦98-2-00018-5¦1¦~"_s;
    QTest::newRow("of the troubled case") << u"WASUPDOC¦GETDOC¦King¦90-2-99035-0¦99¦~"_s;
}

void tst_PracticeDocuments::whatIsNotListed()
{
    QFETCH(QString, request);
    QCOMPARE(ScriptOf(replyTo(request)), (QStringList{refusal, end}));
}

void tst_PracticeDocuments::notLoggedIn()
{
    Conversation court(People(), someDay);
    QCOMPARE(Ask(court, u"WASUPDOC¦GETDOC¦King¦98-2-00017-7¦1¦~"_s),
             (QStringList{u"ERROR~Not logged in~"_s, end}));
}

void tst_PracticeDocuments::troubles_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("length"); // what the head says, in hundredths of the body
    QTest::addColumn<QString>("ending");
    QTest::addColumn<int>("notices");
    const auto row = [](const char *description, const char *type, int length = 100,
                        const QString &ending = {}, int notices = 0) {
        QTest::newRow(description) << QByteArray(type) << length << ending << notices;
    };
    row("Complaint", "pdf");
    row("Exhibit As TIFF", "tif");
    row("Declaration Of Mailing<BR>and of publication", "pdf");
    row("12 Progress Notices", "pdf", 100, {}, 12);
    row("13 Progress Notices", "pdf", 100, {}, 13);
    row("Type That Is Not Opened", "wpd");
    row("Runnable Type sh", "sh");
    row("Runnable Type desktop", "desktop");
    row("Type With A Path", "../../pdf");
    row("No Type", "");
    row("Length Too Large", "pdf", 101);
    row("Length Too Small", "pdf", 50);
    row("No Length", "pdf", 0);
    row("Link Dropped In The Middle", "pdf", 200, u"drop"_s);
    row("Stall In The Middle", "pdf", 200, u"silence"_s);
}

void tst_PracticeDocuments::troubles()
{
    QFETCH(QByteArray, type);
    QFETCH(int, length);
    QFETCH(QString, ending);
    QFETCH(int, notices);
    const QString description = QString::fromLatin1(QTest::currentDataTag());
    const Stream stream = streamOf(replyTo(troubledRow(description)));
    QCOMPARE(stream.Type(), type);
    const qint64 body = stream.body.size();
    const qint64 hundredths = (stream.Length() * 100 + body / 2) / body;
    if (length == 101)
        QCOMPARE(stream.Length(), body + 1'000);
    else
        QCOMPARE(hundredths, length);
    QCOMPARE(stream.Head().contains("FILELEN=~"), description == u"No Length");
    QCOMPARE(stream.pieces.size(), notices + (ending.isEmpty() ? 2 : 1));
    QCOMPARE(stream.pieces.last() == tail, ending.isEmpty());
    QCOMPARE(stream.others.value(stream.others.size() - 1), ending.isEmpty() ? u"pause"_s : ending);
    for (int notice = 0; notice < notices; ++notice)
        QVERIFY(stream.pieces[notice] == "|Searching~King For Documents~|"
                || stream.pieces[notice] == "|Searching~King Superior Court~|");
    // A pause behind each, so that the client finds them in chunks of their own.
    QCOMPARE(stream.others.count(u"pause"_s), notices + (ending.isEmpty() ? 1 : 0));
}

void tst_PracticeDocuments::theHugeOneIsNotHeldInMemory()
{
    Reply reply = replyTo(troubledRow(u"200 Megabytes"_s));
    const QByteArray head = reply.Next().bytes;
    const qint64 length = head.mid(9).split('~').first().toLongLong();
    QVERIFY(length >= 200 * megabyte && length < 201 * megabyte);
    qint64 came = 0;
    qsizetype largest = 0;
    QByteArray last;
    for (ReplyStep step = reply.Next(); step.kind == ReplyStep::Kind::Bytes; step = reply.Next()) {
        came += step.bytes.size();
        largest = std::max(largest, step.bytes.size());
        last = step.bytes;
    }
    QCOMPARE(came, length);
    QVERIFY(largest <= 64 * 1'024);
    QVERIFY(last.endsWith("%%EOF\n"));
}

void tst_PracticeDocuments::aPaceBetweenThePieces()
{
    const QString row = rowsOf(u"WASUPDOC¦GETDOCTAB¦King¦98-2-00017-7¦"_s).first();
    const Stream slow = streamOf(replyTo(row, 20'000));
    const Stream fast = streamOf(replyTo(row));
    QVERIFY(slow.body == fast.body);
    // 20 chunks a second of 1,000 bytes, and one pause more before the tail.
    QCOMPARE(slow.others.size(), (slow.body.size() + 999) / 1'000);
    QCOMPARE(fast.others.size(), 1);
}

void tst_PracticeDocuments::aSlowDocumentIsSlowAtAnyPace()
{
    const QString row = troubledRow(u"Slow Document"_s);
    for (const qint64 pace : {0, 1'000'000}) {
        const qsizetype pauses = streamOf(replyTo(row, pace)).others.size();
        QVERIFY(pauses >= 380 && pauses <= 420); // 20 a second, for 20 seconds
    }
}

void tst_PracticeDocuments::aStopEndsTheStreamAsItEndsItself()
{
    Reply document = replyTo(rowsOf(u"WASUPDOC¦GETDOCTAB¦King¦98-2-00017-7¦"_s).first());
    QCOMPARE(document.Next().kind, ReplyStep::Kind::Piece);
    QCOMPARE(document.Next().kind, ReplyStep::Kind::Bytes);
    Reply rest = document.Stopped();
    QCOMPARE(rest.Next().bytes, tail);
    QCOMPARE(rest.Next().kind, ReplyStep::Kind::End);
    // Any other reply ends with its end mark.
    QCOMPARE(ScriptOf(Reply().Say(u"x"_s).Stopped()), QStringList{end});
}

void tst_PracticeDocuments::theTroubledListHasEveryKind()
{
    const QStringList rows = rowsOf(troubled);
    QCOMPARE(rows.size(), qsizetype{documentTroubles.size()});
    QCOMPARE(rows.filter(u"RETRIEVEDOC="_s).size(), rows.size() - 1);
    QSet<DocumentTrouble> kinds;
    for (const DocumentTroubleRow &row : documentTroubles)
        kinds.insert(row.trouble);
    QCOMPARE(kinds.size(), static_cast<int>(DocumentTrouble::Unavailable) + 1);
    QCOMPARE(ScriptOf(replyTo(troubledRow(u"Document That Is Gone"_s))),
             (QStringList{refusal, end}));
}

HALVANE_TEST(tst_PracticeDocuments)
#include "tst_PracticeDocuments.moc"
