// The rows of a list, as they are kept.

#include "records/RowTable.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

class tst_RowTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatGoesInComesOut_data();
    void whatGoesInComesOut();
    void cellsInSight();
    void theLongestCell();
    void theLongestCellGoes();
    void aRowKeepsItsPlaceInTheOrderOfComing();
};

void tst_RowTable::whatGoesInComesOut_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one, empty") << QStringList(QString());
    QTest::newRow("empty ones between") << QStringList{u"a"_s, {}, {}, u"b"_s, {}};
    QTest::newRow("every length around 128")
        << QStringList{QString(127, u'a'), QString(128, u'b'), QString(129, u'c')};
    QTest::newRow("a long one") << QStringList{u"x"_s, QString(100'000, u'y'), u"z"_s};
    QTest::newRow("characters of several bytes")
        << QStringList{u"Müller §"_s, u"\U0001F600 €"_s, QString(70, u'é')};
    QTest::newRow("a NUL and a line end") << QStringList{u"a"_s + QChar(0) + u"b"_s, u"c\r\nd"_s};
    QTest::newRow("300 cells") << QStringList(300, u"cell"_s);
}

void tst_RowTable::whatGoesInComesOut()
{
    QFETCH(QStringList, cells);
    RowTable table;
    table.AddRow({u"before"_s});
    table.AddRow(cells);
    table.AddRow({u"behind"_s});
    QCOMPARE(table.Cells(1), cells);
    for (int column = 0; column < cells.size(); ++column)
        QCOMPARE(table.Cell(1, column), cells.at(column));
    QCOMPARE(table.Cell(1, static_cast<int>(cells.size())), QString());
    QCOMPARE(table.Cells(2), QStringList(u"behind"_s));
}

void tst_RowTable::cellsInSight()
{
    RowTable table;
    table.AddRow({u"ä"_s, {}, QString(200, u'c')});
    std::array<QByteArrayView, 2> fewer;
    table.ViewCells(0, fewer);
    QCOMPARE(fewer[0].toByteArray(), QByteArray("\xC3\xA4"));
    QCOMPARE(fewer[1].size(), 0);
    std::array<QByteArrayView, 5> more;
    more[4] = "left over";
    table.ViewCells(0, more);
    QCOMPARE(more[2].toByteArray(), QByteArray(200, 'c'));
    QVERIFY(more[3].isEmpty() && more[4].isEmpty());
}

void tst_RowTable::theLongestCell()
{
    RowTable table;
    QCOMPARE(table.LongestCell(0), 0);
    table.AddRow({u"Müller"_s, u"1"_s});
    table.AddRow({u"abc"_s, u"12345"_s, u"x"_s});
    // Characters, not bytes.
    QCOMPARE(table.LongestCell(0), 6);
    QCOMPARE(table.LongestCell(1), 5);
    QCOMPARE(table.LongestCell(2), 1);
    QCOMPARE(table.LongestCell(3), 0);
    table.SetCell(1, 0, u"abcdefgh"_s);
    QCOMPARE(table.LongestCell(0), 8);
    table.Rearrange({1, 0});
    QCOMPARE(table.LongestCell(0), 8);
    table.Clear();
    QCOMPARE(table.LongestCell(0), 0);
}

void tst_RowTable::theLongestCellGoes()
{
    RowTable table;
    table.AddRow({u"a"_s, u"four"_s});
    table.AddRow({u"a"_s, u"sixsix"_s});
    table.AddRow({u"a"_s, u"five!"_s});
    table.SetCell(1, 1, u"x"_s);
    QCOMPARE(table.LongestCell(1), 5);
    // As long as another one.
    table.SetCell(0, 1, u"equal"_s);
    table.SetCell(2, 1, u"y"_s);
    QCOMPARE(table.LongestCell(1), 5);
}

void tst_RowTable::aRowKeepsItsPlaceInTheOrderOfComing()
{
    RowTable table;
    for (const QString &cell : {u"a"_s, u"b"_s, u"c"_s})
        table.AddRow({cell});
    table.Rearrange({2, 0, 1});
    table.AddRow({u"d"_s});
    const auto arrivals = [&table] {
        QList<int> all;
        for (int row = 0; row < table.Count(); ++row)
            all.append(table.Arrival(row));
        return all;
    };
    QCOMPARE(arrivals(), QList<int>({2, 0, 1, 3}));
    table.SetMarks(QDate(2026, 1, 2), [&table](int row) { return table.Arrival(row) % 2 == 0; });
    QVERIFY(table.IsNew(0) && table.IsNew(1) && !table.IsNew(2) && !table.IsNew(3));
    QCOMPARE(table.NewCount(), 2);
    QCOMPARE(table.NewSince(), QDate(2026, 1, 2));
    table.Clear();
    table.AddRow({u"e"_s});
    QCOMPARE(arrivals(), QList<int>({0}));
}

HALVANE_TEST(tst_RowTable)
#include "tst_RowTable.moc"
