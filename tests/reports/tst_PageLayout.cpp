#include "reports/PageLayout.h"
#include "support/HalvaneTest.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

// From the blocks of a report to the texts on its pages.

namespace {
constexpr int letterWidth = 100;
constexpr int lineHeight = 200; ///< of the body
constexpr Paper letter{};
/// Lines of the body from the upper margin down to where a page ends behind a row.
constexpr int rowsOfAPage = 58;

/// Every sign is as wide as the next one.
class EvenRuler : public FontRuler
{
public:
    double Width(const QString &text, ReportFont) const override
    {
        ++Asked;
        return letterWidth * static_cast<double>(text.size());
    }
    int LineHeight(ReportFont font) const override { return font.Points * 20 + 20; }
    int Ascent(ReportFont font) const override { return font.Points * 18; }

    mutable int Asked = 0;
};

/// A text on a page by its line from the upper margin, in lines of the body.
QString at(const ReportPage &page, const QString &text)
{
    for (const PlacedText &one : page.Texts)
        if (one.Text == text)
            return QString::number(qRound(one.Left) - Paper::LeftMargin) + u','
                   + QString::number((one.BaseLine - one.Font.Points * 18 - Paper::TopMargin));
    return u"is not there"_s;
}

/// The lines of a page from top to bottom, without its footer; the texts of a line from left to
/// right.
QStringList linesOf(const ReportPage &page)
{
    QList<PlacedText> texts = page.Texts;
    std::stable_sort(texts.begin(), texts.end(), [](const PlacedText &a, const PlacedText &b) {
        return std::pair(a.BaseLine, a.Left) < std::pair(b.BaseLine, b.Left);
    });
    QStringList lines;
    int before = -1;
    for (const PlacedText &text : std::as_const(texts)) {
        if (text.BaseLine > letter.Height - Paper::BottomMargin)
            continue;
        if (std::exchange(before, text.BaseLine) == text.BaseLine)
            lines.last() += u'|' + text.Text;
        else
            lines.append(text.Text);
    }
    return lines;
}

ReportFont fontOf(const ReportPage &page, const QString &text)
{
    for (const PlacedText &one : page.Texts)
        if (one.Text == text)
            return one.Font;
    return {0, false};
}

/// A report of one table with rows "row 1" to "row n".
Report rows(int count)
{
    Report report;
    report.Title = u"Title"_s;
    const int table = report.AddTable({{.Width = 3000, .Gap = 50}, {.Width = 1400, .Gap = 50}});
    report.Add(BlockKind::ColumnHeads, {u"Name"_s, u"Number"_s}, table);
    for (int i = 1; i <= count; ++i)
        report.Add(BlockKind::Row, {u"row "_s + QString::number(i), QString::number(i)}, table);
    return report;
}

/// One row of cells in columns of these formats.
Report oneRow(const QList<ColumnFormat> &formats, const QStringList &cells)
{
    Report report;
    report.Add(BlockKind::Row, cells, report.AddTable(formats));
    return report;
}
} // namespace

class tst_PageLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void looks_data();
    void looks();
    void titleIsCentred();
    void labelsOfTheHeadAreBold();
    void rightAlignedCells();
    void cellsAreWrappedToTheirColumns();
    void nameIsWrappedBeforeItsColumnEnds();
    void lineEndsInACell();
    void headOfAYieldingColumnIsNotBroken();
    void textIsWrappedAtThePrintableWidth();
    void lineOfARowKeepsItsIndent();
    void noTextReachesTheRightMargin();
    void pageEndsTwelveLinesBeforeItsMargin();
    void lastRowNeedsNoFurtherPage();
    void pageEndsWhenSomethingFollowsTheLastRow();
    void linesOfARowStayWithIt();
    void rowThatDoesNotFitGoesToTheNextPage();
    void rowLongerThanAPageIsTorn();
    void furtherPagesRepeatTheHead();
    void headsOfTheTableThatGoesOn();
    void headingStaysWithItsRows();
    void pageDoesNotBeginWithEmptyLines();
    void closingStandsTogether();
    void closingIsTestedLikeARow();
    void legalTextIsNotTornByItsRow();
    void footer();
    void gridLines();
    void noGridLinesUnlessWanted();
    void gridOnlyWhereColumnsHaveHeads();
    void emptyReport();
    void headOfThePageLeavesRoom();
    void pagesAreLaidOutAgainAsTheyWere();
    void shortCellsAreNotMeasured();

private:
    ReportPage firstPage(const Report &report) const { return pages(report).value(0); }
    QList<ReportPage> pages(const Report &report) const
    {
        PageLayout layout(report, letter, &ruler);
        QList<ReportPage> all;
        ReportPage page;
        while (layout.AddPage(&page))
            all.append(std::exchange(page, {}));
        return all;
    }

    const EvenRuler ruler{};
};

void tst_PageLayout::looks_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("points");
    QTest::addColumn<bool>("bold");
    const auto row = [](const char *name, BlockKind kind, int points, bool bold) {
        QTest::newRow(name) << static_cast<int>(kind) << points << bold;
    };
    row("title", BlockKind::Title, 16, true);
    row("warning", BlockKind::Warning, 12, true);
    row("heading", BlockKind::Heading, 10, true);
    row("column heads", BlockKind::ColumnHeads, 12, true);
    row("row", BlockKind::Row, 12, false);
    row("line of a row", BlockKind::RowLine, 12, false);
    row("text", BlockKind::Text, 12, false);
    row("total", BlockKind::Total, 12, true);
}

void tst_PageLayout::looks()
{
    QFETCH(int, kind);
    QFETCH(int, points);
    QFETCH(bool, bold);
    Report report;
    report.TitlePoints = 16;
    report.BodyPoints = 12;
    report.Add(static_cast<BlockKind>(kind), {u"text"_s}, report.AddTable({{.Width = 3000}}));
    QCOMPARE(fontOf(firstPage(report), u"text"_s), (ReportFont{points, bold}));
}

void tst_PageLayout::titleIsCentred()
{
    Report report;
    report.Add(BlockKind::Title, {u"12345678"_s});
    QCOMPARE(at(firstPage(report), u"12345678"_s), u"5000,0"_s);
}

void tst_PageLayout::labelsOfTheHeadAreBold()
{
    Report report;
    report.Add(BlockKind::HeadRow, {u"Label:"_s, u"value"_s},
               report.AddTable({{Qt::AlignRight, 1200, 200}, {Qt::AlignLeft, 3000, 200}}));
    const ReportPage page = firstPage(report);
    QCOMPARE(fontOf(page, u"Label:"_s), (ReportFont{9, true}));
    QCOMPARE(fontOf(page, u"value"_s), (ReportFont{9, false}));
    QCOMPARE(at(page, u"Label:"_s), u"600,0"_s);
    QCOMPARE(at(page, u"value"_s), u"1400,0"_s);
}

void tst_PageLayout::rightAlignedCells()
{
    const ReportPage page = firstPage(
        oneRow({{Qt::AlignRight, 1000, 100}, {Qt::AlignRight, 1000, 100}}, {u"1"_s, u"12345"_s}));
    QCOMPARE(at(page, u"1"_s), u"900,0"_s);
    QCOMPARE(at(page, u"12345"_s), u"1600,0"_s);
}

void tst_PageLayout::cellsAreWrappedToTheirColumns()
{
    const ReportPage page =
        firstPage(oneRow({{.Width = 1000, .Gap = 50}, {.Width = 1000}, {.Width = 1000}},
                         {u"one two three"_s, u"four"_s, u"abcdefghijklm"_s}));
    QCOMPARE(linesOf(page), (QStringList{u"one two|four|abcdefghij"_s, u"  three|  klm"_s}));
    QCOMPARE(at(page, u"  klm"_s), u"2050,200"_s);
}

void tst_PageLayout::nameIsWrappedBeforeItsColumnEnds()
{
    const ReportPage page = firstPage(oneRow(
        {{.Width = 3000, .Gap = 50, .WrapAt = 700}, {.Width = 1000}}, {u"JONES, PAUL"_s, u"1"_s}));
    QCOMPARE(linesOf(page), (QStringList{u"JONES,|1"_s, u"  PAUL"_s}));
    QCOMPARE(at(page, u"1"_s), u"3050,0"_s);
}

void tst_PageLayout::lineEndsInACell()
{
    QCOMPARE(linesOf(firstPage(
                 oneRow({{.Width = 1000}, {.Width = 1000}}, {u"a\r\nb"_s, u"c\td\n\u2028e"_s}))),
             (QStringList{u"a|c d"_s, u"b| e"_s}));
}

void tst_PageLayout::headOfAYieldingColumnIsNotBroken()
{
    Report report;
    const int table = report.AddTable(
        {{.Width = 1000, .Gap = 50}, {.Width = 300, .Gap = 50, .Yields = true}, {.Width = 1000}});
    report.Add(BlockKind::ColumnHeads, {u"Name"_s, u"Description"_s, u"Role"_s}, table);
    report.Add(BlockKind::Row, {u"A"_s, u"B"_s, u"C"_s}, table);
    const ReportPage page = firstPage(report);
    QCOMPARE(linesOf(page), (QStringList{u"Name|Description|Role"_s, u"A|B|C"_s}));
    QCOMPARE(at(page, u"Role"_s), u"2200,0"_s);
    // One that does not yield keeps the width that it was given.
    report.Tables[table][1].Yields = false;
    QCOMPARE(at(firstPage(report), u"Role"_s), u"1400,0"_s);
}

void tst_PageLayout::textIsWrappedAtThePrintableWidth()
{
    Report report;
    report.Add(BlockKind::Text, {QString(100, u'a') + u" bbbb cccccc"_s});
    QCOMPARE(linesOf(firstPage(report)),
             (QStringList{QString(100, u'a') + u" bbbb"_s, u"  cccccc"_s}));
}

void tst_PageLayout::lineOfARowKeepsItsIndent()
{
    Report report = oneRow({{.Width = 1000}}, {u"a"_s});
    report.Add(BlockKind::RowLine, {u"     "_s + QString(100, u'a') + u" bbbb"_s});
    QCOMPARE(linesOf(firstPage(report)),
             (QStringList{u"a"_s, u"     "_s + QString(100, u'a'), u"       bbbb"_s}));
}

void tst_PageLayout::noTextReachesTheRightMargin()
{
    Report report;
    QList<ColumnFormat> formats;
    QStringList cells;
    for (int i = 0; i < 12; ++i) {
        formats.append({.Width = 1000 + 200 * i, .Gap = 350, .Yields = i == 3});
        cells.append(QString(20 + i, u'x') + u" y "_s + QString(20, u'z'));
    }
    report.Add(BlockKind::Row, cells, report.AddTable(formats));
    for (const BlockKind kind : {BlockKind::Title, BlockKind::Warning, BlockKind::Heading,
                                 BlockKind::RowLine, BlockKind::Text, BlockKind::Total})
        report.Add(kind, {QString(200, u'x')});
    int texts = 0;
    for (const ReportPage &page : pages(report))
        for (const PlacedText &text : page.Texts) {
            QVERIFY(text.Left >= Paper::LeftMargin);
            QVERIFY(text.Left + ruler.Width(text.Text, text.Font)
                    <= letter.Width - Paper::RightMargin + 0.001);
            ++texts;
        }
    QVERIFY(texts > 30);
}

void tst_PageLayout::pageEndsTwelveLinesBeforeItsMargin()
{
    const QList<ReportPage> all = pages(rows(rowsOfAPage + 5));
    QCOMPARE(all.size(), 2);
    // The heads are a line of the page, too.
    QCOMPARE(linesOf(all[0]).size(), rowsOfAPage);
    QCOMPARE(linesOf(all[0]).last(), u"row 57|57"_s);
    QCOMPARE(linesOf(all[1]).value(2), u"row 58|58"_s);
    QCOMPARE(linesOf(all[1]).last(), u"row 63|63"_s);
}

void tst_PageLayout::lastRowNeedsNoFurtherPage()
{
    QCOMPARE(pages(rows(rowsOfAPage - 1)).size(), 1);
    Report report = rows(rowsOfAPage - 1);
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Closing);
    QCOMPARE(pages(report).size(), 1);
}

void tst_PageLayout::pageEndsWhenSomethingFollowsTheLastRow()
{
    Report report = rows(rowsOfAPage - 1);
    report.Add(BlockKind::Total, {u"This search found 57"_s});
    const QList<ReportPage> all = pages(report);
    QCOMPARE(all.size(), 2);
    QCOMPARE(linesOf(all[1]),
             (QStringList{u"Title"_s, u"Name|Number"_s, u"This search found 57"_s}));
}

void tst_PageLayout::linesOfARowStayWithIt()
{
    Report report = rows(rowsOfAPage - 1);
    report.Add(BlockKind::RowLine, {u"its line"_s});
    report.Add(BlockKind::Row, {u"another"_s}, 0);
    const QList<ReportPage> all = pages(report);
    QCOMPARE(all.size(), 2);
    QCOMPARE(linesOf(all[0]).last(), u"its line"_s);
    QCOMPARE(linesOf(all[1]).last(), u"another"_s);
}

void tst_PageLayout::rowThatDoesNotFitGoesToTheNextPage()
{
    Report report = rows(50);
    // Twenty lines, where eighteen are left.
    report.Add(BlockKind::Row, {u"long"_s + u"\nx"_s.repeated(19), u"1"_s}, 0);
    const QList<ReportPage> all = pages(report);
    QCOMPARE(all.size(), 2);
    QCOMPARE(linesOf(all[0]).last(), u"row 50|50"_s);
    QCOMPARE(linesOf(all[1]).mid(1, 2), (QStringList{u"Name|Number"_s, u"long|1"_s}));
    QCOMPARE(linesOf(all[1]).size(), 22);
}

void tst_PageLayout::rowLongerThanAPageIsTorn()
{
    Report report = rows(1);
    QString lines = u"1"_s;
    for (int i = 2; i <= 100; ++i)
        lines += u'\n' + QString::number(i);
    report.Add(BlockKind::Row, {lines}, 0);
    const QList<ReportPage> all = pages(report);
    QCOMPARE(all.size(), 3);
    QStringList printed = linesOf(all[1]).mid(2) + linesOf(all[2]).mid(2);
    QCOMPARE(printed, lines.split(u'\n'));
    QCOMPARE(linesOf(all[2]).mid(0, 2), (QStringList{u"Title"_s, u"Name|Number"_s}));
    for (const PlacedText &text : all[1].Texts)
        QVERIFY(text.BaseLine <= letter.Height - Paper::BottomMargin
                || text.Text.startsWith(u"Page"));
}

void tst_PageLayout::furtherPagesRepeatTheHead()
{
    Report report = rows(2 * rowsOfAPage);
    report.Blocks.prepend({BlockKind::Warning, {u"WARNING:  two"_s}});
    report.Blocks.prepend({BlockKind::Warning, {u"WARNING:  one"_s}});
    report.Blocks.prepend({BlockKind::Title, {u"Title"_s}});
    const QList<ReportPage> all = pages(report);
    QCOMPARE(all.size(), 3);
    for (const ReportPage &page : all.mid(1)) {
        QCOMPARE(linesOf(page).mid(0, 4), (QStringList{u"Title"_s, u"WARNING:  one"_s,
                                                       u"WARNING:  two"_s, u"Name|Number"_s}));
        QCOMPARE(fontOf(page, u"Title"_s), (ReportFont{10, true}));
        QCOMPARE(at(page, u"Title"_s), u"5150,0"_s);
        QCOMPARE(fontOf(page, u"WARNING:  one"_s), (ReportFont{9, true}));
        // The title's line, and an empty one before each.
        QCOMPARE(at(page, u"WARNING:  one"_s), u"0,420"_s);
        QCOMPARE(at(page, u"WARNING:  two"_s), u"0,820"_s);
        QCOMPARE(at(page, u"Name"_s), u"0,1220"_s);
        QCOMPARE(fontOf(page, u"Name"_s), (ReportFont{9, true}));
    }
}

void tst_PageLayout::headsOfTheTableThatGoesOn()
{
    Report report = rows(10);
    report.Add(BlockKind::Heading, {u"Docket"_s});
    const int table = report.AddTable({{.Width = 3000}});
    report.Add(BlockKind::ColumnHeads, {u"Docket Date"_s}, table);
    for (int i = 0; i < 60; ++i)
        report.Add(BlockKind::Row, {u"docket row"_s}, table);
    QCOMPARE(linesOf(pages(report).value(1)).mid(0, 3),
             (QStringList{u"Title"_s, u"Docket Date"_s, u"docket row"_s}));
    // Behind a heading without a table the table above it is over.
    Report other = rows(10);
    other.Add(BlockKind::Heading, {u"Schedule"_s});
    other.Add(BlockKind::Text, {u"x\n"_s.repeated(100)});
    QVERIFY(!linesOf(pages(other).value(2)).contains(u"Name|Number"_s));
}

void tst_PageLayout::headingStaysWithItsRows()
{
    Report report;
    report.Title = u"Title"_s;
    for (int i = 0; i < 66; ++i)
        report.Add(BlockKind::Text, {u"text"_s});
    report.Add(BlockKind::Heading, {u"Docket"_s});
    report.Add(BlockKind::Blank);
    const int table = report.AddTable({{.Width = 3000}});
    report.Add(BlockKind::ColumnHeads, {u"Date"_s}, table);
    report.Add(BlockKind::Row, {u"the row"_s}, table);
    const QList<ReportPage> all = pages(report);
    QCOMPARE(linesOf(all.value(0)).last(), u"text"_s);
    QCOMPARE(linesOf(all.value(1)),
             (QStringList{u"Title"_s, u"Docket"_s, u"Date"_s, u"the row"_s}));
}

void tst_PageLayout::pageDoesNotBeginWithEmptyLines()
{
    Report report = rows(rowsOfAPage - 1);
    for (int i = 0; i < 3; ++i)
        report.Add(BlockKind::Blank);
    report.Add(BlockKind::Total, {u"total"_s});
    // The title's line, an empty one, the heads.
    QCOMPARE(at(pages(report).value(1), u"total"_s), u"0,620"_s);
}

void tst_PageLayout::closingStandsTogether()
{
    Report report;
    report.Title = u"Title"_s;
    for (int i = 0; i < 50; ++i)
        report.Add(BlockKind::Text, {u"text"_s});
    report.Add(BlockKind::Closing);
    for (int i = 0; i < 20; ++i)
        report.Add(BlockKind::Text, {u"the end"_s});
    const QList<ReportPage> all = pages(report);
    QCOMPARE(all.size(), 2);
    QCOMPARE(linesOf(all[0]).last(), u"text"_s);
    QCOMPARE(linesOf(all[1]).count(u"the end"_s), 20);
}

void tst_PageLayout::closingIsTestedLikeARow()
{
    const auto pagesFor = [this](int lines) {
        Report report;
        for (int i = 0; i < lines; ++i)
            report.Add(BlockKind::Text, {u"text"_s});
        report.Add(BlockKind::Closing);
        report.Add(BlockKind::Text, {u"the end"_s});
        return pages(report).size();
    };
    QCOMPARE(pagesFor(rowsOfAPage - 1), 1);
    QCOMPARE(pagesFor(rowsOfAPage), 2);
}

void tst_PageLayout::legalTextIsNotTornByItsRow()
{
    Report report;
    for (int i = 0; i < rowsOfAPage - 1; ++i)
        report.Add(BlockKind::Text, {u"text"_s});
    report.Add(BlockKind::Closing);
    AddLegalText(report);
    AddClosingLine(report, false);
    QCOMPARE(pages(report).size(), 1);
}

void tst_PageLayout::footer()
{
    const QList<ReportPage> all = pages(rows(rowsOfAPage * 12));
    QVERIFY(all.size() > 10);
    const PlacedText &foot = all[9].Texts.last();
    QCOMPARE(foot.Text, u"Page 10"_s);
    QCOMPARE(foot.Font, (ReportFont{9, false}));
    QCOMPARE(foot.Left, 720 + (10800 - 700) / 2.0);
    // Its foot is what is below the base line, 38 here.
    QCOMPARE(foot.BaseLine, 15840 - 350 - 38);
}

void tst_PageLayout::gridLines()
{
    Report report = rows(1);
    report.GridLines = true;
    report.Add(BlockKind::RowLine, {u"its line"_s});
    const ReportPage page = firstPage(report);
    const auto hasRule = [&page](int left, int top, int right, int bottom) {
        return std::any_of(page.Rules.begin(), page.Rules.end(), [=](const PlacedRule &rule) {
            return rule.Left == 720 + left && rule.Top == 1000 + top && rule.Right == 720 + right
                   && rule.Bottom == 1000 + bottom;
        });
    };
    // A line of text has 30 above and below it.
    QVERIFY(hasRule(-40, 0, 4490, 0));
    QVERIFY(hasRule(-40, 260, 4490, 260));
    QVERIFY(hasRule(-40, 520, 4490, 520));
    QVERIFY(hasRule(-40, 780, 4490, 780));
    QVERIFY(hasRule(3025, 0, 3025, 260));
    QVERIFY(hasRule(3025, 260, 3025, 520));
    QVERIFY(!hasRule(3025, 520, 3025, 780));
    QVERIFY(hasRule(-40, 520, -40, 780));
    QVERIFY(hasRule(4490, 520, 4490, 780));
    QCOMPARE(at(page, u"Name"_s), u"0,30"_s);
    QCOMPARE(at(page, u"row 1"_s), u"0,290"_s);
    QCOMPARE(at(page, u"its line"_s), u"0,550"_s);
}

void tst_PageLayout::noGridLinesUnlessWanted()
{
    QVERIFY(firstPage(rows(3)).Rules.isEmpty());
}

void tst_PageLayout::gridOnlyWhereColumnsHaveHeads()
{
    Report report = oneRow({{.Width = 5000}}, {u"a sentence in a table"_s});
    report.GridLines = true;
    QVERIFY(firstPage(report).Rules.isEmpty());
}

void tst_PageLayout::emptyReport()
{
    PageLayout layout(Report(), letter, &ruler);
    QCOMPARE(layout.PageCount(), 0);
    QVERIFY(layout.AddPage());
    QVERIFY(layout.IsComplete());
    QVERIFY(!layout.AddPage());
    QCOMPARE(layout.PageCount(), 1);
    QCOMPARE(layout.Page(0).Texts.size(), 1);
}

void tst_PageLayout::headOfThePageLeavesRoom()
{
    Report report = rows(3);
    report.Title = QString(20'000, u'x');
    report.Add(BlockKind::Text, {u"y\n"_s.repeated(200)});
    const QList<ReportPage> all = pages(report);
    QVERIFY(all.size() > 2 && all.size() < 20);
    for (const ReportPage &page : all)
        for (const PlacedText &text : page.Texts)
            QVERIFY(text.BaseLine < letter.Height - Paper::BottomMargin
                    || text.Text.startsWith(u"Page"));
}

void tst_PageLayout::pagesAreLaidOutAgainAsTheyWere()
{
    Report report = rows(500);
    report.Blocks[30].Cells[0] = u"a b "_s.repeated(2000);
    PageLayout layout(report, letter, &ruler);
    QList<QStringList> first;
    ReportPage page;
    while (layout.AddPage(&page))
        first.append(linesOf(std::exchange(page, {})));
    QCOMPARE(layout.PageCount(), first.size());
    QVERIFY(first.size() > 8);
    for (int i = layout.PageCount() - 1; i >= 0; --i)
        QCOMPARE(linesOf(layout.Page(i)), first[i]);
}

void tst_PageLayout::shortCellsAreNotMeasured()
{
    const int before = ruler.Asked;
    const auto count = pages(rows(5000)).size();
    // A title and a footer for each page, and each sign once in each font.
    QVERIFY(ruler.Asked - before < 2 * count + 50);
}

HALVANE_TEST(tst_PageLayout)
#include "tst_PageLayout.moc"
