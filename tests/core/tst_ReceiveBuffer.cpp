#include "core/ReceiveBuffer.h"
#include "support/HalvaneTest.h"

#include <QRandomGenerator>
#include <QTest>

#include <cstring>
#include <optional>

// The linker sends the product's calls of memchr here, so that the bytes it looks at are counted.
namespace {
qint64 bytesSearched = 0;
}

extern "C" {
void *__real_memchr(const void *where, int what, size_t size);
void *__wrap_memchr(const void *where, int what, size_t size);

void *__wrap_memchr(const void *where, int what, size_t size)
{
    void *found = __real_memchr(where, what, size);
    bytesSearched += found ? static_cast<char *>(found) - static_cast<const char *>(where) + 1
                           : static_cast<qint64>(size);
    return found;
}
}

namespace {
/// The same, done in the plainest way.
class NaiveBuffer
{
public:
    void Append(const QByteArray &added) { bytes += added; }
    void Clear()
    {
        bytes.clear();
        afterEmpty = '\0';
    }
    std::optional<QByteArray> Extract(char delimiter)
    {
        const bool opened =
            afterEmpty == delimiter && !bytes.isEmpty() && bytes.front() != delimiter;
        const qsizetype first = opened ? -1 : bytes.indexOf(delimiter);
        const qsizetype second = !opened && first < 0 ? -1 : bytes.indexOf(delimiter, first + 1);
        if (second < 0)
            return std::nullopt;
        const QByteArray token = bytes.mid(first + 1, second - first - 1);
        bytes.remove(0, second + 1);
        afterEmpty = token.isEmpty() ? delimiter : '\0';
        return token;
    }
    char afterEmpty = '\0';
    QByteArray bytes;
};

QByteArray randomPiece(QRandomGenerator &random, qsizetype longest)
{
    static const QByteArray letters = "ab~|||\xA6";
    QByteArray piece;
    const qsizetype length = random.bounded(static_cast<int>(longest));
    for (qsizetype i = 0; i < length; ++i)
        piece += letters[random.bounded(static_cast<int>(letters.size()))];
    return piece;
}
} // namespace

class tst_ReceiveBuffer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewBufferIsEmpty();
    void extract_data();
    void extract();
    void anIncompleteTokenIsCompletedLater();
    void clearForgetsAnOpenToken();
    void anotherDelimiterStartsAnew();
    void aTokenMayHoldAnyByte();
    void aTokenSurvivesLaterChanges();
    void randomAppendsAndExtractsAgreeWithTheNaiveBuffer_data();
    void randomAppendsAndExtractsAgreeWithTheNaiveBuffer();
    void consumedBytesAreThrownAwayInLargePieces();
    void aTokenOf64MegabytesIsSearchedOnce();
    void allIsTakenOut();
    void aPieceIsTakenOver();
    void takingTokensCostsTheirLengthNotTheBacklog();
    void whatStandsBeforeATokenIsSearchedOnce();
};

void tst_ReceiveBuffer::aNewBufferIsEmpty()
{
    ReceiveBuffer buffer;
    QVERIFY(buffer.IsEmpty());
    QCOMPARE(buffer.Size(), 0);
    QCOMPARE(buffer.View().size(), 0);
    QVERIFY(!buffer.Extract('|').has_value());
}

void tst_ReceiveBuffer::extract_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QByteArray>("token");
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("no delimiter") << QByteArray("abc") << false << QByteArray()
                                  << QByteArray("abc");
    QTest::newRow("one") << QByteArray("x|abc") << false << QByteArray() << QByteArray("x|abc");
    QTest::newRow("a token") << QByteArray("|abc|") << true << QByteArray("abc") << QByteArray();
    QTest::newRow("an empty token") << QByteArray("||") << true << QByteArray() << QByteArray();
    QTest::newRow("junk before") << QByteArray("x|a|y") << true << QByteArray("a")
                                 << QByteArray("y");
    QTest::newRow("two tokens") << QByteArray("|a||b|") << true << QByteArray("a")
                                << QByteArray("|b|");
}

void tst_ReceiveBuffer::extract()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, found);
    QFETCH(QByteArray, token);
    QFETCH(QByteArray, rest);
    ReceiveBuffer buffer;
    buffer.Append(content);
    for (int i = 0; i < (found ? 1 : 3); ++i) {
        const auto taken = buffer.Extract('|');
        QCOMPARE(taken.has_value(), found);
        QCOMPARE(taken.value_or(QByteArray()), token);
        QCOMPARE(buffer.View().toByteArray(), rest);
        QCOMPARE(buffer.Size(), rest.size());
        QCOMPARE(buffer.IsEmpty(), rest.isEmpty());
    }
}

void tst_ReceiveBuffer::anIncompleteTokenIsCompletedLater()
{
    ReceiveBuffer buffer;
    buffer.Append("junk|A~");
    QVERIFY(!buffer.Extract('|').has_value());
    buffer.Append("B~");
    QVERIFY(!buffer.Extract('|').has_value());
    buffer.Append("|C");
    QCOMPARE(buffer.Extract('|').value_or("none"), QByteArray("A~B~"));
    QCOMPARE(buffer.View().toByteArray(), QByteArray("C"));
}

void tst_ReceiveBuffer::clearForgetsAnOpenToken()
{
    ReceiveBuffer buffer;
    buffer.Append("|half of a token");
    QVERIFY(!buffer.Extract('|').has_value());
    buffer.Clear();
    QVERIFY(buffer.IsEmpty());
    buffer.Append("x|");
    QVERIFY(!buffer.Extract('|').has_value());
    buffer.Append("whole|");
    QCOMPARE(buffer.Extract('|').value_or("none"), QByteArray("whole"));
}

void tst_ReceiveBuffer::anotherDelimiterStartsAnew()
{
    ReceiveBuffer buffer;
    buffer.Append("~|a~b");
    QVERIFY(!buffer.Extract('|').has_value());
    QCOMPARE(buffer.Extract('~').value_or("none"), QByteArray("|a"));
    QCOMPARE(buffer.View().toByteArray(), QByteArray("b"));
    QVERIFY(!buffer.Extract('|').has_value());
}

void tst_ReceiveBuffer::aTokenMayHoldAnyByte()
{
    QByteArray all;
    for (int code = 0; code < 256; ++code) {
        if (code != '|')
            all.append(static_cast<char>(code));
    }
    ReceiveBuffer buffer;
    buffer.Append(QByteArray('|' + all + '|'));
    QCOMPARE(buffer.Extract('|').value_or("none"), all);
}

void tst_ReceiveBuffer::aTokenSurvivesLaterChanges()
{
    ReceiveBuffer buffer;
    buffer.Append("|first||second|");
    const QByteArray first = buffer.Extract('|').value_or("none");
    buffer.Append(QByteArray(1'000'000, 'x'));
    buffer.Clear();
    QCOMPARE(first, QByteArray("first"));
}

void tst_ReceiveBuffer::randomAppendsAndExtractsAgreeWithTheNaiveBuffer_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<int>("longestPiece");
    QTest::addColumn<int>("rounds");
    QTest::newRow("short pieces") << 1 << 12 << 20000;
    QTest::newRow("longer pieces") << 2 << 300 << 3000;
    QTest::newRow("pieces as long as a compaction") << 3 << 400'000 << 12;
}

void tst_ReceiveBuffer::randomAppendsAndExtractsAgreeWithTheNaiveBuffer()
{
    QFETCH(int, seed);
    QFETCH(int, longestPiece);
    QFETCH(int, rounds);
    QRandomGenerator random(static_cast<quint32>(seed));
    ReceiveBuffer buffer;
    NaiveBuffer naive;
    for (int i = 0; i < rounds; ++i) {
        const int action = random.bounded(100);
        if (action < 50) {
            const QByteArray piece = randomPiece(random, longestPiece);
            buffer.Append(piece);
            naive.Append(piece);
        } else if (action < 99) {
            const char delimiter = action < 95 ? '|' : '~';
            const int tokens = random.bounded(longestPiece / 2 + 1);
            for (int n = 0; n < std::min(tokens, 500); ++n)
                QCOMPARE(buffer.Extract(delimiter), naive.Extract(delimiter));
        } else {
            buffer.Clear();
            naive.Clear();
        }
        QCOMPARE(buffer.Size(), naive.bytes.size());
        QCOMPARE(buffer.IsEmpty(), naive.bytes.isEmpty());
        QCOMPARE(buffer.View().toByteArray(), naive.bytes);
    }
}

void tst_ReceiveBuffer::consumedBytesAreThrownAwayInLargePieces()
{
    // More passes through than could ever be kept, with something always left over.
    ReceiveBuffer buffer;
    const QByteArray token = '|' + QByteArray(998, 'x') + '|';
    buffer.Append(token);
    const char *lowest = nullptr;
    const char *highest = nullptr;
    for (int i = 0; i < 20'000; ++i) {
        buffer.Append(token);
        QCOMPARE(buffer.Extract('|')->size(), 998);
        const char *start = buffer.View().data();
        lowest = lowest ? std::min(lowest, start) : start;
        highest = std::max(highest, start);
        QCOMPARE(buffer.Size(), token.size());
    }
    // 20 MB went through one spot of at most a megabyte or two, not through 20 MB of memory.
    QVERIFY(highest > lowest);
    buffer.Append(QByteArray(3'000'000, 'y').append('|'));
    QCOMPARE(buffer.Extract('|')->size(), 998);
    QCOMPARE(buffer.Size(), 3'000'001);
}

void tst_ReceiveBuffer::aTokenOf64MegabytesIsSearchedOnce()
{
    constexpr qint64 total = 64LL * 1024 * 1024;
    const QByteArray piece(64 * 1024, 'x');
    ReceiveBuffer buffer;
    buffer.Append("|");
    bytesSearched = 0;
    for (qint64 arrived = 0; arrived < total; arrived += piece.size()) {
        buffer.Append(piece);
        QVERIFY(!buffer.Extract('|').has_value());
    }
    buffer.Append("|");
    QCOMPARE(buffer.Extract('|')->size(), total);
    // Each byte once, give or take the bars; searching anew at each piece would be 500 times that.
    QVERIFY2(bytesSearched >= total && bytesSearched < total + 100'000,
             qPrintable(QString::number(bytesSearched)));
    QVERIFY(buffer.IsEmpty());
}

void tst_ReceiveBuffer::takingTokensCostsTheirLengthNotTheBacklog()
{
    constexpr int tokens = 200'000;
    QByteArray backlog;
    for (int i = 0; i < tokens; ++i)
        backlog += "|SMITH, JOHN~02-2-02029-9~|";
    ReceiveBuffer buffer;
    buffer.Append(backlog);
    bytesSearched = 0;
    for (int i = 0; i < tokens; ++i)
        QVERIFY(buffer.Extract('|').has_value());
    QVERIFY(buffer.IsEmpty());
    QCOMPARE(bytesSearched, qint64(backlog.size()));
}

void tst_ReceiveBuffer::whatStandsBeforeATokenIsSearchedOnce()
{
    constexpr int pieces = 1'000;
    const QByteArray junk(1'000, 'x');
    ReceiveBuffer buffer;
    bytesSearched = 0;
    for (int i = 0; i < pieces; ++i) {
        buffer.Append(junk);
        QVERIFY(!buffer.Extract('|').has_value());
    }
    QCOMPARE(bytesSearched, qint64(pieces) * junk.size());
    buffer.Append("|A~|");
    QCOMPARE(buffer.Extract('|').value_or("none"), QByteArray("A~"));
}

void tst_ReceiveBuffer::allIsTakenOut()
{
    ReceiveBuffer buffer;
    QCOMPARE(buffer.TakeAll(), QByteArray());
    buffer.Append("|A|rest|of");
    QCOMPARE(buffer.Extract('|'), QByteArray("A"));
    // A token that is open goes as well.
    QVERIFY(!buffer.Extract('~'));
    QCOMPARE(buffer.TakeAll(), QByteArray("rest|of"));
    QVERIFY(buffer.IsEmpty());
    buffer.Append("|B|");
    QCOMPARE(buffer.Extract('|'), QByteArray("B"));
}

void tst_ReceiveBuffer::aPieceIsTakenOver()
{
    ReceiveBuffer buffer;
    const QByteArray piece = "|A|";
    buffer.TakeOver(piece);
    buffer.TakeOver("|B|");
    QCOMPARE(piece, QByteArray("|A|"));
    QCOMPARE(buffer.Extract('|'), QByteArray("A"));
    buffer.TakeOver("|C|");
    QCOMPARE(buffer.Extract('|'), QByteArray("B"));
    QCOMPARE(buffer.Extract('|'), QByteArray("C"));
    QVERIFY(buffer.IsEmpty());
}

HALVANE_TEST(tst_ReceiveBuffer)
#include "tst_ReceiveBuffer.moc"
