// What stands around a document on the wire, read out of one piece.

#include "documents/DocumentHead.h"
#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"
#include "support/TestFolder.h"

#include <QTest>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
/// The least of three, in seconds of processor time.
double costOfStripping(const QByteArray &piece)
{
    double least = std::numeric_limits<double>::max();
    for (int i = 0; i < 3; ++i) {
        const double start = ProcessorSeconds();
        const QByteArray left = StripSearchingNotices(piece);
        least = std::min(least, ProcessorSeconds() - start);
        if (left != "rest")
            return std::numeric_limits<double>::max();
    }
    return least;
}
} // namespace

class tst_DocumentHead : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theLength_data();
    void theLength();
    void theType_data();
    void theType();
    void typesThatCanEndAName_data();
    void typesThatCanEndAName();
    void whatIsOpened();
    void notices_data();
    void notices();
    void marksAreFoundWhereverTheyStand_data();
    void marksAreFoundWhereverTheyStand();
    void manyNotices_data();
    void manyNotices();
    void aHeadAtTheStartOfAText_data();
    void aHeadAtTheStartOfAText();
};

void tst_DocumentHead::theLength_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("found");
    QTest::addColumn<qint64>("length"); // -1: none
    const auto row = [](const char *text, const char *found, qint64 length) {
        QTest::newRow(text) << QByteArray(text) << QByteArray(found) << length;
    };
    row("|FILELEN=1234~TYPE=PDF~|", "1234", 1234);
    row("before|FILELEN=0~TYPE=PDF~|", "0", 0);
    row("|FILELEN=00123~TYPE=PDF~|", "00123", 123);
    row("|FILELEN=~TYPE=PDF~|", "", -1);
    row("|FILELEN=-5~TYPE=PDF~|", "-5", -1);
    row("|FILELEN=+5~TYPE=PDF~|", "+5", -1);
    row("|FILELEN= 5~TYPE=PDF~|", " 5", -1);
    row("|FILELEN=1.5~TYPE=PDF~|", "1.5", -1);
    row("|FILELEN=1e3~TYPE=PDF~|", "1e3", -1);
    row("|FILELEN=0x10~TYPE=PDF~|", "0x10", -1);
    row("|FILELEN=2147483647~TYPE=PDF~|", "2147483647", 2147483647);
    row("|FILELEN=2147483648~TYPE=PDF~|", "2147483648", -1);
    row("|FILELEN=99999999999999999999~TYPE=P~|", "99999999999999999999", -1);
    row("|FILELEN=12~", "", -1);
    row("FILELEN=12", "", -1);
    row("nothing", "", -1);
    row("|FILELEN=1~TYPE=A~||FILELEN=2~TYPE=B~|", "1", 1);
}

void tst_DocumentHead::theLength()
{
    QFETCH(QByteArray, text);
    QFETCH(qint64, length);
    QTEST(FindFileLength(text), "found");
    QCOMPARE(FileLengthOf(FindFileLength(text)).value_or(-1), length);
}

void tst_DocumentHead::theType_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("whole") << QByteArray("|FILELEN=1~TYPE=PDF~|x~") << QByteArray("PDF");
    QTest::newRow("empty") << QByteArray("|FILELEN=1~TYPE=~|") << QByteArray();
    QTest::newRow("cut") << QByteArray("|FILELEN=1~TYPE=PD") << QByteArray();
    QTest::newRow("none") << QByteArray("|FILELEN=1~") << QByteArray();
    QTest::newRow("a path") << QByteArray("TYPE=../x~") << QByteArray("../x");
}

void tst_DocumentHead::theType()
{
    QFETCH(QByteArray, text);
    QTEST(FindFileType(text), "type");
}

void tst_DocumentHead::typesThatCanEndAName_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("can");
    const auto row = [](const QByteArray &type, bool can) {
        QTest::newRow(type.toPercentEncoding().constData()) << type << can;
    };
    row("PDF", true);
    row("7z", true);
    row("abcdefghij", true);
    row("abcdefghijk", false);
    row("", false);
    row("a b", false);
    row("../x", false);
    row("p.df", false);
    row(QByteArray("pdf\0", 4), false);
    row("\xE4", false);
    row("pdf\n", false);
}

void tst_DocumentHead::typesThatCanEndAName()
{
    QFETCH(QByteArray, type);
    QTEST(IsFileType(type), "can");
}

void tst_DocumentHead::whatIsOpened()
{
    for (const char *type :
         {"pdf", "PDF", "tif", "Tiff", "jpg", "JPEG", "png", "gif", "bmp", "txt", "rtf"})
        QVERIFY2(OpensByItself(QLatin1StringView(type)), type);
    for (const char *type : {"", "exe", "sh", "desktop", "html", "htm", "svg", "js", "lnk", "doc",
                             "docm", "zip", "N/A", "pdff", "pd"})
        QVERIFY2(!OpensByItself(QLatin1StringView(type)), type);
}

void tst_DocumentHead::notices_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<bool>("is");
    QTest::addColumn<QByteArray>("left");
    const auto row = [](const char *name, const QByteArray &piece, bool is,
                        const QByteArray &left) { QTest::newRow(name) << piece << is << left; };
    row("of documents", "|Searching~King County For Documents~|rest", true, "rest");
    row("of a court", "|Searching~King County Superior Court~|rest", true, "rest");
    row("two", "|Searching~A For Documents~||Searching~B For Documents~|rest", true, "rest");
    row("what stands before it goes", "before|Searching~A For Documents~|rest", true, "rest");
    row("of both kinds, the documents first",
        "|Searching~A For Documents~||Searching~B Superior Court~|rest", true, "rest");
    row("of both kinds, the court first: it goes with the other",
        "|Searching~A Superior Court~||Searching~B For Documents~|rest", true, "rest");
    row("in capitals it counts and stays", "|SEARCHING~A For Documents~|x", true,
        "|SEARCHING~A For Documents~|x");
    row("in small letters it counts", "|searching", true, "|searching");
    row("without its bar it is none", "Searching~A For Documents~|x", false,
        "Searching~A For Documents~|x");
    row("without an end nothing is left", "a|Searching~A", true, "");
    row("with an end that has no blank nothing is left", "|Searching~For Documents~|rest", true,
        "");
    row("cut", "a|Searchin", false, "a|Searchin");
    row("none", "any|thing", false, "any|thing");
    row("nothing", "", false, "");
}

void tst_DocumentHead::notices()
{
    QFETCH(QByteArray, piece);
    QFETCH(bool, is);
    QCOMPARE(MarksIn(piece).Searching, is);
    QTEST(StripSearchingNotices(piece), "left");
}

void tst_DocumentHead::marksAreFoundWhereverTheyStand_data()
{
    QTest::addColumn<QByteArray>("filling");
    QTest::newRow("among signs that begin no mark") << QByteArray("x");
    QTest::newRow("among signs that begin both") << QByteArray("|EOF|Searchin|s|E");
}

/// At each place of a piece that is searched in several goes, one mark, the other, or both.
void tst_DocumentHead::marksAreFoundWhereverTheyStand()
{
    QFETCH(QByteArray, filling);
    const QByteArray end = "|EOF~|";
    const QByteArray searching = "|sEaRCHING";
    const QByteArray nothing = filling.repeated(900 / static_cast<int>(filling.size()));
    QVERIFY(!MarksIn(nothing).End && !MarksIn(nothing).Searching);
    for (qsizetype at = 0; at <= nothing.size(); ++at) {
        QByteArray piece = nothing;
        piece.insert(at, end);
        QVERIFY(MarksIn(piece).End && !MarksIn(piece).Searching && HoldsEnd(piece));
        piece = nothing;
        piece.insert(at, searching);
        QVERIFY(!MarksIn(piece).End && MarksIn(piece).Searching && !HoldsEnd(piece));
        piece.insert(piece.size() - at, end);
        QVERIFY(MarksIn(piece).End);
    }
}

void tst_DocumentHead::manyNotices_data()
{
    QTest::addColumn<QByteArray>("notice");
    QTest::addColumn<QByteArray>("last");
    const QByteArray ofCourt = "|Searching~A Superior Court~|";
    const QByteArray ofDocuments = "|Searching~A For Documents~|";
    QTest::newRow("of a court") << ofCourt << QByteArray();
    QTest::newRow("of documents") << ofDocuments << QByteArray();
    QTest::newRow("ends alone, and one notice") << QByteArray(" For Documents~|") << ofDocuments;
    QTest::newRow("of a court, one of documents") << ofCourt << ofDocuments;
}

/// A court that sends nothing else must not hold up the program: eight times as much costs about
/// eight times as much.
void tst_DocumentHead::manyNotices()
{
    QFETCH(QByteArray, notice);
    QFETCH(QByteArray, last);
    constexpr qsizetype megabyte = 1024 * 1024;
    const auto costOf = [&](qsizetype bytes) {
        return costOfStripping(notice.repeated(bytes / notice.size()) + last + "rest");
    };
    const double one = costOf(megabyte);
    const double eight = costOf(8 * megabyte);
    QVERIFY2(eight < 0.05 + 24 * one, qPrintable(u"%1 s and %2 s"_s.arg(one).arg(eight)));
}

void tst_DocumentHead::aHeadAtTheStartOfAText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("type");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("whole") << u"|FILELEN=1234~TYPE=PDF~|"_s << u"PDF"_s << qint64(1234);
    QTest::newRow("without a type") << u"|FILELEN=1234~TYPE=~|"_s << QString() << qint64(1234);
    QTest::newRow("without a length") << u"|FILELEN=~TYPE=TIF~|"_s << u"TIF"_s << qint64(0);
    QTest::newRow("other words") << u"|A=1~B=2~|"_s << QString() << qint64(0);
    QTest::newRow("without bars") << u"FILELEN"_s << QString() << qint64(0);
    QTest::newRow("bars alone") << u"||"_s << QString() << qint64(0);
    QTest::newRow("empty") << QString() << QString() << qint64(0);
}

void tst_DocumentHead::aHeadAtTheStartOfAText()
{
    QFETCH(QString, text);
    QFETCH(QString, type);
    QFETCH(qint64, bytes);
    const TestFolder folder;
    QCOMPARE(GetDocFileType(text), type);
    QCOMPARE(GetDocFileByteCount(text), bytes);
    QStringList lines;
    if (type.isEmpty())
        lines.append(u"ERROR *** in GetDocFileType(). No Doc Type Found in: "_s + text);
    if (bytes == 0)
        lines.append(u"ERROR *** in GetDocFileByteCount(). No FILELEN value found in: "_s + text);
    QCOMPARE(folder.Log(), lines);
}

HALVANE_TEST(tst_DocumentHead)
#include "tst_DocumentHead.moc"
