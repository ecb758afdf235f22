// Searching block by block finds what searching plainly finds.

#include "core/ByteSearch.h"
#include "support/HalvaneTest.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QTest>

class tst_ByteSearch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void marks();
    void words_data();
    void words();
    void asSearchingPlainly();
    void acrossBlocks();
    void placesThatDoNotStand();
};

void tst_ByteSearch::marks()
{
    QCOMPARE(FindMark("a|b|", "|b|"), 1);
    QCOMPARE(FindMark("||b|", "|b|"), 1);
    QCOMPARE(FindMark("|b", "|b|"), -1);
    QCOMPARE(FindMark("", "|b|"), -1);
    QCOMPARE(FindMark("|b||b|", "|b|", 1), 3);
    QCOMPARE(FindMark("|b|", "|b|", 9), -1);
    QCOMPARE(FindMark("|", "|b|"), -1);
    QCOMPARE(FindMark("a|", "||"), -1);
}

void tst_ByteSearch::words_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qsizetype>("at");
    QTest::addColumn<bool>("stands");
    const auto row = [](const char *name, const QByteArray &bytes, qsizetype at, bool stands) {
        QTest::newRow(name) << bytes << at << stands;
    };
    row("alone", "DIAG001", 0, true);
    row("in small letters", "xdiag001x", 1, true);
    row("mixed", "000diAG00DiAg001", 9, true);
    row("elsewhere", "xdiag001x", 0, false);
    row("cut at the end", "xDIAG00", 1, false);
    row("cut at the beginning", "IAG001", -1, false);
    row("other signs", "DIAG002 DIAH001", 0, false);
    row("signs that differ by the same bit", "DI\x01G001", 0, false);
    row("nothing", "", 0, false);
}

void tst_ByteSearch::words()
{
    QFETCH(QByteArray, bytes);
    QFETCH(qsizetype, at);
    QTEST(StandsAt(bytes, at, "DIAG001"), "stands");
}

void tst_ByteSearch::asSearchingPlainly()
{
    QRandomGenerator random(3);
    const QByteArray signs = "|aA0~";
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes;
        for (int i = 0; i < 12; ++i)
            bytes.append(signs[random.bounded(signs.size())]);
        QByteArray mark = "|";
        for (int i = 0; i < 2; ++i)
            mark.append(signs[random.bounded(signs.size())]);
        const qsizetype from = random.bounded(14);
        QCOMPARE(FindMark(bytes, mark, from), bytes.indexOf(mark, from));
    }
}

/// A mark at every place of three blocks and the end of a fourth, searched from before it, from its
/// place and from behind it.
void tst_ByteSearch::acrossBlocks()
{
    const QByteArray mark = "|EOF~|";
    const qsizetype size = 3 * SearchedBlock + mark.size() + 3;
    for (qsizetype at = 0; at + mark.size() <= size; ++at) {
        // Full of what a mark begins with, and of nothing like it.
        for (const QByteArray &filling : {QByteArray("|E"), QByteArray("xx")}) {
            QByteArray bytes = filling.repeated(size).first(size);
            bytes.replace(at, mark.size(), mark);
            for (const qsizetype from : {qsizetype(0), qsizetype(1), at / 2, at})
                QCOMPARE(FindMark(bytes, mark, from), from <= at ? at : -1);
            QCOMPARE(FindMark(bytes, mark, at + 1), -1);
        }
    }
}

/// Each place that fits is asked about once, first to last, until one stands.
void tst_ByteSearch::placesThatDoNotStand()
{
    QByteArray bytes(2 * SearchedBlock + 9, 'x');
    const QList<qsizetype> pairs{0, 7, SearchedBlock - 1, SearchedBlock + 1, 2 * SearchedBlock + 7};
    for (const qsizetype at : pairs)
        bytes.replace(at, 2, "ab");
    const auto fit = [](char sign, char next) { return (sign == 'a') & (next == 'b'); };
    QList<qsizetype> asked;
    const auto note = [&asked](qsizetype at) {
        asked.append(at);
        return false;
    };
    QCOMPARE(FindPlace(bytes, 0, fit, note), -1);
    QCOMPARE(asked, pairs);
    QCOMPARE(FindPlace(bytes, 0, fit, [&pairs](qsizetype at) { return at == pairs[3]; }), pairs[3]);
}

HALVANE_TEST(tst_ByteSearch)
#include "tst_ByteSearch.moc"
