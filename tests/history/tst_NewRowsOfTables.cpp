#include "history/NewRows.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

// Which rows were not there before.

namespace {
/// A row for each letter.
QList<quint64> rowsOf(const QString &letters)
{
    QList<QStringList> rows;
    for (const QChar letter : letters)
        rows.append({u"01/02/2003"_s, QString(letter)});
    return HashesOf(rows);
}

QString placesOf(const QSet<int> &places)
{
    QList<int> sorted(places.begin(), places.end());
    std::sort(sorted.begin(), sorted.end());
    QStringList text;
    for (const int place : sorted)
        text.append(QString::number(place));
    return text.join(u' ');
}
} // namespace

class tst_NewRowsOfTables : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rowsCountAsOftenAsTheyAreThere_data();
    void rowsCountAsOftenAsTheyAreThere();
    void inAListARowIsThereOrNot();
    void manyRowsThatAreAlike();
    void textsAndTheirBytesAreTheSameRow_data();
    void textsAndTheirBytesAreTheSameRow();
};

void tst_NewRowsOfTables::rowsCountAsOftenAsTheyAreThere_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("added");
    QTest::newRow("nothing before") << u""_s << u"AB"_s << u"0 1"_s;
    QTest::newRow("the same") << u"AB"_s << u"AB"_s << u""_s;
    QTest::newRow("another order") << u"AB"_s << u"BA"_s << u""_s;
    QTest::newRow("one more") << u"AB"_s << u"ACB"_s << u"1"_s;
    QTest::newRow("one less") << u"ABC"_s << u"AC"_s << u""_s;
    QTest::newRow("twice what was once") << u"AB"_s << u"AAB"_s << u"0"_s;
    QTest::newRow("once what was twice") << u"AAB"_s << u"AB"_s << u""_s;
    QTest::newRow("three times what was twice") << u"AAB"_s << u"ABAA"_s << u"0"_s;
    QTest::newRow("nothing now") << u"AB"_s << u""_s << u""_s;
}

void tst_NewRowsOfTables::rowsCountAsOftenAsTheyAreThere()
{
    QFETCH(const QString, before);
    QFETCH(const QString, now);
    QTEST(placesOf(RowsNotIn(rowsOf(now), CountsOf(rowsOf(before)))), "added");
}

void tst_NewRowsOfTables::inAListARowIsThereOrNot()
{
    // The count of rows of a number that is packed is not one itself.
    const RowSet rows = UnpackedRowSet(PackedRows(CountsOf({5, 7, 7, 7, 0})));
    QVERIFY(rows.Contains(0) && rows.Contains(5) && rows.Contains(7));
    QVERIFY(!rows.Contains(1) && !rows.Contains(3) && !rows.Contains(6));
    QVERIFY(!RowSet().Contains(0) && !RowSet({1}).Contains(0));
}

/// Numbers whose ends, or beginnings, are the same are found as fast as others.
void tst_NewRowsOfTables::manyRowsThatAreAlike()
{
    constexpr quint64 many = 300'000;
    for (const int moved : {0, 20, 44}) {
        RowSet rows(many);
        for (quint64 row = 0; row < many; ++row)
            rows.Insert(2 * row << moved);
        for (quint64 row = 0; row < many; ++row)
            QVERIFY(rows.Contains(2 * row << moved) && !rows.Contains((2 * row + 1) << moved));
    }
}

void tst_NewRowsOfTables::textsAndTheirBytesAreTheSameRow_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::newRow("none") << QStringList();
    QTest::newRow("empty ones") << QStringList{u""_s, u""_s};
    QTest::newRow("plain") << QStringList{u"SMITH, JOHN Q"_s, u"02-2-02029-1"_s, u"A"_s};
    QTest::newRow("long") << QStringList{QString(10'001, u'x'), u"y"_s};
    QTest::newRow("others") << QStringList{u"PE\u00D1A, JOS\u00C9"_s, u"\u2019 \u20AC"_s};
}

void tst_NewRowsOfTables::textsAndTheirBytesAreTheSameRow()
{
    QFETCH(const QStringList, cells);
    RowHash row;
    for (const QString &cell : cells)
        row.Add(QByteArrayView(cell.toUtf8()));
    QCOMPARE(row.Value(), HashOfCells(cells));
}

HALVANE_TEST(tst_NewRowsOfTables)
#include "tst_NewRowsOfTables.moc"
