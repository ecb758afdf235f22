// The stream of a document, piece by piece: what is learned from it and where it ends.

#include "documents/DocumentLines.h"
#include "documents/DocumentStream.h"
#include "support/HalvaneTest.h"

#include <QTest>

using Next = DocumentStream::Next;
Q_DECLARE_METATYPE(DocumentStream::Next)

namespace {
constexpr int manyNotices = 12;

/// Takes the pieces, and gives what belongs into the file.
QByteArray takeAll(DocumentStream &stream, const QByteArrayList &pieces, Next *last = nullptr)
{
    QByteArray all;
    for (QByteArray piece : pieces) {
        const Next next = stream.Take(piece);
        all += piece;
        if (last)
            *last = next;
    }
    return all;
}
} // namespace

class tst_DocumentStream : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anyPieces_data();
    void anyPieces();
    void theEstimate();
    void noEstimateOfWhatCameInOnePiece();
    void aHeadThatIsCutIsNotSeen_data();
    void aHeadThatIsCutIsNotSeen();
    void anEndThatIsCutIsNotSeen();
    void theFirstWordHolds();
    void aTypeThatCannotBeUsed();
    void thirteenNoticesAreTooMany();
    void noticesAreLeftOut();
    void progress_data();
    void progress();
    void pages_data();
    void pages();
};

void tst_DocumentStream::anyPieces_data()
{
    QTest::addColumn<qsizetype>("piece");
    for (const qsizetype piece : {1, 2, 3, 7, 64, 1000, 4096, 100'000})
        QTest::addRow("%lld", static_cast<long long>(piece)) << piece;
}

/// The head and the end mark come whole, the body in pieces of any size.
void tst_DocumentStream::anyPieces()
{
    QFETCH(qsizetype, piece);
    const QByteArray body = DocumentBody(5'000);
    QByteArrayList pieces{DocumentHead(body.size())};
    for (qsizetype at = 0; at < body.size(); at += piece)
        pieces.append(body.mid(at, piece));
    pieces.append(DocumentTail);
    DocumentStream stream(3, manyNotices);
    Next last = Next::More;
    QCOMPARE(takeAll(stream, pieces, &last), DocumentReply(body));
    QCOMPARE(last, Next::Over);
    QVERIFY(stream.IsUsable());
    QCOMPARE(stream.FileLength(), 5'000);
    QCOMPARE(stream.FileType(), u"PDF"_s);
    QCOMPARE(stream.Head(), DocumentHead(5'000));
    QCOMPARE(stream.Total(), DocumentReply(body).size());
    // All in one, too: a short document comes so.
    DocumentStream one(3, manyNotices);
    takeAll(one, {DocumentReply(body)}, &last);
    QCOMPARE(last, Next::Over);
    QVERIFY(one.IsUsable() && one.FileLength() == 5'000);
}

void tst_DocumentStream::theEstimate()
{
    DocumentStream stream(3, manyNotices);
    takeAll(stream, {"something"});
    QVERIFY(!stream.LengthKnown() && !stream.TypeKnown() && !stream.IsUsable());
    QCOMPARE(stream.FileLength(), 48'000);
    QCOMPARE(stream.FileType(), u"N/A"_s);
}

void tst_DocumentStream::noEstimateOfWhatCameInOnePiece()
{
    DocumentStream stream(3, manyNotices);
    QCOMPARE(stream.FileLength(), 0);
    takeAll(stream, {"something" + DocumentTail});
    QVERIFY(!stream.LengthKnown());
    QCOMPARE(stream.FileLength(), 0);
}

void tst_DocumentStream::aHeadThatIsCutIsNotSeen_data()
{
    QTest::addColumn<qsizetype>("at");
    // In the bars at either end it is whole enough.
    for (qsizetype at = 2; at < DocumentHead(123).size() - 1; ++at)
        QTest::addRow("at %lld", static_cast<long long>(at)) << at;
}

void tst_DocumentStream::aHeadThatIsCutIsNotSeen()
{
    QFETCH(qsizetype, at);
    const QByteArray head = DocumentHead(123);
    DocumentStream stream(1, manyNotices);
    Next last = Next::More;
    takeAll(stream, {head.left(at), head.mid(at), QByteArray(123, 'x'), DocumentTail}, &last);
    QCOMPARE(last, Next::Over);
    QVERIFY(!stream.IsUsable());
}

void tst_DocumentStream::anEndThatIsCutIsNotSeen()
{
    for (qsizetype at = 7; at < DocumentTail.size(); ++at) {
        DocumentStream stream(1, manyNotices);
        Next last = Next::Over;
        takeAll(stream, {DocumentHead(1) + "x" + DocumentTail.left(at), DocumentTail.mid(at)},
                &last);
        QCOMPARE(last, Next::More);
    }
}

void tst_DocumentStream::theFirstWordHolds()
{
    DocumentStream stream(1, manyNotices);
    takeAll(stream, {DocumentHead(50), "|FILELEN=7~TYPE=EXE~|", DocumentTail});
    QCOMPARE(stream.FileLength(), 50);
    QCOMPARE(stream.FileType(), u"PDF"_s);
    DocumentStream bad(1, manyNotices);
    takeAll(bad, {"|FILELEN=x~TYPE=~|", DocumentHead(50), DocumentTail});
    QVERIFY(!bad.IsUsable());
    QVERIFY(bad.LengthKnown() && bad.FileLength() == 0);
}

void tst_DocumentStream::aTypeThatCannotBeUsed()
{
    for (const char *type : {"", "../../x", "PDF EXE", "abcdefghijk", "a/b", "\xC4"}) {
        DocumentStream stream(1, manyNotices);
        takeAll(stream, {DocumentReply("body", type)});
        QVERIFY2(!stream.IsUsable() && stream.FileType().isEmpty(), type);
    }
}

void tst_DocumentStream::thirteenNoticesAreTooMany()
{
    DocumentStream stream(1, manyNotices);
    const QByteArray notice = "|Searching~King County For Documents~|";
    for (int i = 1; i <= 12; ++i) {
        QByteArray piece = notice;
        QCOMPARE(stream.Take(piece), Next::More);
        QCOMPARE(piece, QByteArray());
    }
    QByteArray piece = notice;
    QCOMPARE(stream.Take(piece), Next::TooManyNotices);
    // Pieces are counted, and not what is in them.
    DocumentStream another(1, manyNotices);
    piece = notice.repeated(50);
    QCOMPARE(another.Take(piece), Next::More);
}

void tst_DocumentStream::noticesAreLeftOut()
{
    DocumentStream stream(1, manyNotices);
    Next last = Next::More;
    const QByteArray file =
        takeAll(stream,
                {"|Searching~King Superior Court~|",
                 "|Searching~King For Documents~|" + DocumentHead(4), "body", DocumentTail},
                &last);
    QCOMPARE(last, Next::Over);
    QCOMPARE(file, DocumentReply("body"));
    QCOMPARE(stream.Total(), file.size());
}

void tst_DocumentStream::progress_data()
{
    QTest::addColumn<qint64>("total");
    QTest::addColumn<qint64>("length");
    QTest::addColumn<int>("shown");
    const auto row = [](qint64 total, qint64 length, int shown) {
        QTest::addRow("%lld of %lld", static_cast<long long>(total), static_cast<long long>(length))
            << total << length << shown;
    };
    row(0, 10'000, 1);
    row(99, 10'000, 1);
    row(100, 10'000, 1);
    row(149, 10'000, 1);
    row(150, 10'000, 2);
    row(250, 10'000, 2);
    row(5'000, 10'000, 50);
    row(10'000, 10'000, 100);
    row(10'060, 10'000, 100);
    row(10'100, 10'000, 100);
    row(90'000, 10'000, 100);
    row(0, 0, 1);
    row(1, 0, 1);
    row(50, 0, 50);
    row(500, 0, 100);
    row(10, 49, 10);
    row(2'147'483'647, 2'147'483'647, 100);
    row(1'000'000'000'000, 1, 100);
}

void tst_DocumentStream::progress()
{
    QFETCH(qint64, total);
    QFETCH(qint64, length);
    QTEST(TransferProgress(total, length), "shown");
}

void tst_DocumentStream::pages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("a number") << u"12"_s << 12;
    QTest::newRow("blanks") << u"  7 "_s << 7;
    QTest::newRow("with words") << u"3 pages"_s << 3;
    QTest::newRow("words") << u"many"_s << 0;
    QTest::newRow("nothing") << QString() << 0;
    QTest::newRow("negative") << u"-3"_s << 0;
    QTest::newRow("endless") << QString(5000, u'9') << 1'000'000;
}

void tst_DocumentStream::pages()
{
    QFETCH(QString, text);
    QTEST(PagesOf(text), "count");
}

HALVANE_TEST(tst_DocumentStream)
#include "tst_DocumentStream.moc"
