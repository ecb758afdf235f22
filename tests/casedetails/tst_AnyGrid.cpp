// What holds for every grid: any table comes out of its reply as it went in, and no reply costs
// more than its length.

#include "casedetails/AnyTable.h"
#include "casedetails/GridGrammar.h"
#include "casedetails/GridTexts.h"
#include "support/HalvaneTest.h"

#include <QElapsedTimer>
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
    QTest::newRow("GRIDDEF") << static_cast<int>(TableGrammar::GridDef);
    QTest::newRow("COLDEF grouped") << static_cast<int>(TableGrammar::ColDefGrouped);
    QTest::newRow("COLDEF interleaved") << static_cast<int>(TableGrammar::ColDefInterleaved);
    QTest::newRow("names") << static_cast<int>(TableGrammar::Names);
}

void tst_AnyGrid::anyTableSurvivesItsReply()
{
    QFETCH(int, grammar);
    const auto chosen = static_cast<TableGrammar>(grammar);
    for (quint32 seed = 1; seed <= 400; ++seed) {
        QRandomGenerator random(seed);
        const QString delimiters = chosen == TableGrammar::Names ? u"¦;^|\t~"_s : u"~"_s;
        const QChar delimiter = delimiters[random.bounded(delimiters.size())];
        const GridTable table = AnyTable(random, u"~"_s + delimiter);
        const QStringList lines = ReplyOfTable(table, chosen, delimiter);
        GridTable read;
        switch (chosen) {
        case TableGrammar::GridDef:
            read = GridDefTable(lines, RowOrder::LastFirst);
            std::reverse(read.Rows.begin(), read.Rows.end());
            break;
        case TableGrammar::Names:
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

HALVANE_TEST(tst_AnyGrid)
#include "tst_AnyGrid.moc"
