// Searching by a rare sign finds what searching plainly finds.

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
};

void tst_ByteSearch::marks()
{
    QCOMPARE(FindMark("a|b|", "|b|"), 1);
    QCOMPARE(FindMark("||b|", "|b|"), 1);
    QCOMPARE(FindMark("|b", "|b|"), -1);
    QCOMPARE(FindMark("", "|b|"), -1);
    QCOMPARE(FindMark("|b||b|", "|b|", 1), 3);
    QCOMPARE(FindMark("|b|", "|b|", 9), -1);
    QCOMPARE(FindSign("abca", 'a', 1), 3);
    QCOMPARE(FindSign("abca", 'a', 4), -1);
}

void tst_ByteSearch::words_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("holds");
    QTest::newRow("alone") << QByteArray("DIAG001") << true;
    QTest::newRow("in small letters") << QByteArray("xdiag001x") << true;
    QTest::newRow("mixed, behind zeros") << QByteArray("000diAG00DiAg001") << true;
    QTest::newRow("cut at the end") << QByteArray("xDIAG00") << false;
    QTest::newRow("cut at the beginning") << QByteArray("IAG001") << false;
    QTest::newRow("other signs") << QByteArray("DIAG002 DIAH001") << false;
    QTest::newRow("signs that differ by the same bit") << QByteArray("DI\x01G001") << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void tst_ByteSearch::words()
{
    QFETCH(QByteArray, bytes);
    QTEST(HoldsWord(bytes, "DIAG001", 4), "holds");
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
        QByteArray word = "0";
        for (int i = 0; i < 2; ++i) {
            mark.append(signs[random.bounded(signs.size())]);
            word.prepend("A|~"[random.bounded(3)]);
        }
        const qsizetype from = random.bounded(14);
        QCOMPARE(FindMark(bytes, mark, from), bytes.indexOf(mark, from));
        QCOMPARE(HoldsWord(bytes, word, 2), bytes.toUpper().contains(word));
    }
}

HALVANE_TEST(tst_ByteSearch)
#include "tst_ByteSearch.moc"
