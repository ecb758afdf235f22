// What holds for every grid: any table comes out of its reply as it went in, and no reply costs
// more than its length.

#include "casedetails/GridGrammar.h"
#include "casedetails/GridTexts.h"
#include "core/Windows1252.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class tst_AnyGrid : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void moreColumnsThanAGridHasAreLeftOut();
    void costGrowsWithTheReplyAndNotWithItsSquare();
    void anyTableSurvivesItsReply_data();
    void anyTableSurvivesItsReply();
};

namespace {
const QString definition = u"TABNAME~Docket~\nTABDEF~Docket~\nCOLDEF~Date~Entry~20~80~\n"
                           "COLALIGNMENT~L~L~"_s;

enum class Grammar { GridDef, ColDefGrouped, ColDefInterleaved, Names };

/// A field of any character that a line can carry, but what delimits or marks, and the blanks at
/// either end that a cell loses.
QString anyField(QRandomGenerator &random, const QString &without)
{
    // What marks are made of comes more often than by chance, so that halves of them are met.
    static const QByteArray ofMarks = "<BRC> ";
    QByteArray bytes;
    for (int length = static_cast<int>(random.bounded(12)); length > 0; --length) {
        const bool any = random.bounded(3) > 0;
        bytes.append(any ? static_cast<char>(random.bounded(256))
                         : ofMarks[random.bounded(ofMarks.size())]);
    }
    QString field = FromWindows1252(bytes);
    for (const QChar delimiter : without)
        field.remove(delimiter);
    field.remove(u"<BR>"_s).remove(u"<CR>"_s);
    while (field.startsWith(u' '))
        field.remove(0, 1);
    while (field.endsWith(u' '))
        field.chop(1);
    return field;
}

GridTable anyTable(QRandomGenerator &random, const QString &without)
{
    GridTable table;
    for (int columns = static_cast<int>(random.bounded(1, 9)); columns > 0; --columns) {
        // A header that is a number would be a width.
        table.Columns.append(
            {u"h"_s + anyField(random, without), static_cast<double>(random.bounded(101))});
    }
    for (int rows = static_cast<int>(random.bounded(1, 20)); rows > 0; --rows) {
        QStringList cells;
        for (qsizetype column = 0; column < table.Columns.size(); ++column)
            cells.append(anyField(random, without));
        table.Rows.append(cells);
    }
    return table;
}

QString closedBy(QChar delimiter, const QStringList &fields)
{
    return fields.join(delimiter) + delimiter;
}

QStringList replyOf(const GridTable &table, Grammar grammar, QChar delimiter)
{
    QStringList headers;
    QStringList widths;
    QStringList both;
    for (const GridColumn &column : table.Columns) {
        headers.append(column.Header);
        widths.append(QString::number(column.Percent));
        both += {headers.last(), widths.last()};
    }
    QStringList lines{u"TABNAME~x~"_s, u"TABDEF~x~"_s,
                      u"COLDEF~"_s + closedBy(u'~', headers + widths),
                      u"COLALIGNMENT"_s + QString(table.Columns.size(), u'~')};
    if (grammar == Grammar::GridDef)
        lines = QStringList{u"GRIDDEF~"_s + closedBy(u'~', headers + widths)};
    if (grammar == Grammar::ColDefInterleaved)
        lines[2] = u"COLDEF~"_s + closedBy(u'~', both);
    for (const QStringList &row : table.Rows)
        lines.append(closedBy(delimiter, row));
    return lines;
}
} // namespace

void tst_AnyGrid::moreColumnsThanAGridHasAreLeftOut()
{
    constexpr int defined = maximumGridColumns + 20;
    QString headers;
    QString widths;
    QString row;
    for (int column = 0; column < defined; ++column) {
        headers += u'h' + QString::number(column) + u'~';
        widths += QString::number(column) + u'~';
        row += u'c' + QString::number(column) + u'~';
    }
    const QString colDef = u"COLDEF~"_s + headers + widths;
    const QString broken = QString(row).replace(u"c5~"_s, u"x<BR>y~"_s);
    const GridTable wide =
        GridDefTable({u"GRIDDEF~"_s + headers + widths, row, u"whole"_s}, RowOrder::AsSent);
    for (const GridTable &table :
         {wide, ColDefTable({u"TABDEF"_s, u"TABDEF"_s, colDef, u"TABDEF"_s, row, broken}),
          NamesTable({u"TABDEF"_s, u"TABDEF"_s, colDef, u"TABDEF"_s, row, broken})}) {
        QCOMPARE(table.Columns.size(), maximumGridColumns);
        QCOMPARE(table.Columns.last(), (GridColumn{u"h99"_s, 99}));
        for (const QStringList &cells : table.Rows)
            QCOMPARE(cells.size(), maximumGridColumns);
        QCOMPARE(table.Rows[0].last(), u"c99"_s);
    }
    QCOMPARE(wide.Rows[1].last(), u"whole"_s);
    QCOMPARE(ColDefColumns({}, defined).size(), maximumGridColumns);
    QCOMPARE(ColDefColumns({}, -3).size(), 0);
}

void tst_AnyGrid::costGrowsWithTheReplyAndNotWithItsSquare()
{
    // Each of these would take minutes, or all the memory there is.
    constexpr int many = 200'000;
    QElapsedTimer timer;
    timer.start();
    const QStringList head = definition.split(u'\n');
    QCOMPARE(ExpandGridRows({u"<BR>~"_s.repeated(many)}).size(), 2 * maximumGridColumns);
    QCOMPARE(ExpandGridRows({u"a<BR>"_s.repeated(many) + u'~' + u"b~"_s.repeated(many)}).size(),
             many + 1);
    QCOMPARE(ColDefTable(head + QStringList(many, u"a~b<BR>c~"_s)).Rows.size(), 2 * many);
    QCOMPARE(NamesTable(head + QStringList(many, u"a;b<BR>c;"_s)).Rows.size(), 2 * many);
    const QString widths = u"1~"_s.repeated(many);
    QCOMPARE(GridDefTable(QStringList{u"GRIDDEF~"_s + widths} + QStringList(1000, u"x"_s),
                          RowOrder::LastFirst)
                 .Rows.size(),
             1000);
    QCOMPARE(ApplyColDef(u"COLDEF~"_s + widths)->size(), maximumGridColumns);
    QVERIFY2(timer.elapsed() < 20'000, qPrintable(QString::number(timer.elapsed())));
}

void tst_AnyGrid::anyTableSurvivesItsReply_data()
{
    QTest::addColumn<int>("grammar");
    QTest::newRow("GRIDDEF") << static_cast<int>(Grammar::GridDef);
    QTest::newRow("COLDEF grouped") << static_cast<int>(Grammar::ColDefGrouped);
    QTest::newRow("COLDEF interleaved") << static_cast<int>(Grammar::ColDefInterleaved);
    QTest::newRow("names") << static_cast<int>(Grammar::Names);
}

void tst_AnyGrid::anyTableSurvivesItsReply()
{
    QFETCH(int, grammar);
    const auto chosen = static_cast<Grammar>(grammar);
    for (quint32 seed = 1; seed <= 400; ++seed) {
        QRandomGenerator random(seed);
        const QString delimiters = chosen == Grammar::Names ? u"\u00A6;^|\t~"_s : u"~"_s;
        const QChar delimiter = delimiters[random.bounded(delimiters.size())];
        const GridTable table = anyTable(random, u"~"_s + delimiter);
        const QStringList lines = replyOf(table, chosen, delimiter);
        GridTable read;
        switch (chosen) {
        case Grammar::GridDef:
            read = GridDefTable(lines, RowOrder::LastFirst);
            std::reverse(read.Rows.begin(), read.Rows.end());
            break;
        case Grammar::Names:
            read = NamesTable(lines);
            break;
        default:
            read = ColDefTable(lines);
            break;
        }
        QVERIFY2(read == table, qPrintable(u"seed "_s + QString::number(seed) + u'\n'
                                           + GridText(table) + u'\n' + GridText(read)));
    }
}

QTEST_APPLESS_MAIN(tst_AnyGrid)
#include "tst_AnyGrid.moc"
