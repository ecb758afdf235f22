#include "casedetails/TabDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QTest>

#include <algorithm>

namespace {
const QString endMark = u"EOF~"_s;

/// A window whose tabs are filled by hand.
struct CaseByHand : frmCaseDetails
{
    void FillTab(CaseTab tab, bool incomplete, const QString &request)
    {
        caseJob->ShowTab(tab, incomplete, request);
    }
};
} // namespace

/// The exchange of one tab, for every tab of every court, when it ends as it should.
class tst_CaseTabRetrieval : public TabTest
{
    Q_OBJECT
private Q_SLOTS:
    void aTable_data() { Members(); }
    void aTable();
    void theEndMarkAloneGivesTheEmptyMessageAndTheTabIsDone_data() { Members(); }
    void theEndMarkAloneGivesTheEmptyMessageAndTheTabIsDone();
    void aDefinitionWithoutRowsGivesTheEmptyMessage_data() { tableForms(); }
    void aDefinitionWithoutRowsGivesTheEmptyMessage();
    void linesWithoutADefinitionLeaveTheGridEmpty_data() { gridDefForms(); }
    void linesWithoutADefinitionLeaveTheGridEmpty();
    void progressLinesAreReadOver_data() { Members(); }
    void progressLinesAreReadOver();
    void wordsCountInCapitalsAndInFront_data() { Members(); }
    void wordsCountInCapitalsAndInFront();
    void onlySummaryAndNamesCarryTheClientCode_data() { Members(); }
    void onlySummaryAndNamesCarryTheClientCode();
    void aDataLineIsTrimmed();
    void anotherTabsLinesDoNotStay();
    void scheduleOfOregonHasTheWordsOfJudgments_data();
    void scheduleOfOregonHasTheWordsOfJudgments();
    void countsOfIdahosChargesStandAgainstTheirText_data();
    void countsOfIdahosChargesStandAgainstTheirText();
    void aMessageInPlaceOfTheChargesStandsLeft();
    void aWidthOfZeroHidesItsColumn_data();
    void aWidthOfZeroHidesItsColumn();
    void aCopiedGridIsTheGrid();

private:
    static void tableForms();
    static void gridDefForms();
};

void tst_CaseTabRetrieval::tableForms()
{
    QTest::addColumn<int>("row");
    for (const FamilyMember &row : family) {
        if (TableHead(row).size() > 1)
            QTest::newRow(row.name) << 0;
    }
}

void tst_CaseTabRetrieval::gridDefForms()
{
    QTest::addColumn<int>("row");
    for (const FamilyMember &row : family) {
        if (TableHead(row).size() == 1)
            QTest::newRow(row.name) << 0;
    }
}

void tst_CaseTabRetrieval::aTable()
{
    const FamilyMember &row = Member();
    const QStringList reply = WholeTable(row) + QStringList{endMark};
    const frmCaseDetails *window = Retrieved(row, reply);
    QCOMPARE(CellsOf(window, row.tab), WholeCells(row));
    VerifyDone(window, row);
    const FamilyTexts texts = TextsOfMember(row);
    QCOMPARE(
        LogOf(row),
        (QStringList{texts.Retrieving, u"SendReq: "_s + row.request} + LoggedReply(row, reply)
         + QStringList{u"All Responses For "_s + row.word + u" were Received: "_s + row.request,
                       texts.NormalExit}));
}

void tst_CaseTabRetrieval::theEndMarkAloneGivesTheEmptyMessageAndTheTabIsDone()
{
    const FamilyMember &row = Member();
    const frmCaseDetails *window = Retrieved(row, {endMark});
    QCOMPARE(CellsOf(window, row.tab), Message(row.empty));
    VerifyDone(window, row);
    const FamilyTexts texts = TextsOfMember(row);
    QStringList log{texts.Retrieving, u"SendReq: "_s + row.request};
    log += LoggedReply(row, {endMark});
    log += u"All Responses For "_s + row.word + u" were Received: "_s + row.request;
    if (!row.emptyLog.isEmpty())
        log += row.emptyLog + row.request.toString();
    log += texts.NormalExit;
    QCOMPARE(LogOf(row), log);
}

void tst_CaseTabRetrieval::aDefinitionWithoutRowsGivesTheEmptyMessage()
{
    const FamilyMember &row = Member();
    const frmCaseDetails *window = Retrieved(row, TableHead(row) + QStringList{endMark});
    QCOMPARE(CellsOf(window, row.tab), Message(row.empty));
    VerifyDone(window, row);
}

void tst_CaseTabRetrieval::linesWithoutADefinitionLeaveTheGridEmpty()
{
    const FamilyMember &row = Member();
    const frmCaseDetails *window = Retrieved(row, {u"01/02/2003~First~"_s, endMark});
    QCOMPARE(CellsOf(window, row.tab), QList<QStringList>());
    VerifyDone(window, row);
}

void tst_CaseTabRetrieval::progressLinesAreReadOver()
{
    const FamilyMember &row = Member();
    QStringList reply = WholeTable(row);
    reply.prepend(u"SEARCHING~King Superior Court~"_s);
    reply.insert(2, u"Searching~ EOF~"_s);
    reply += u"searchingEOF~"_s;
    reply += endMark;
    const frmCaseDetails *window = Retrieved(row, reply);
    QCOMPARE(CellsOf(window, row.tab), WholeCells(row));
    VerifyDone(window, row);
    QCOMPARE(LogOf(row).mid(2, LoggedReply(row, reply).size()), LoggedReply(row, reply));
}

void tst_CaseTabRetrieval::wordsCountInCapitalsAndInFront()
{
    const FamilyMember &row = Member();
    QStringList reply = TableHead(row);
    // None of these is an end mark, an error or progress, and the line behind the end is no row.
    for (const QString &line : {u"eof~2~"_s, u"Error~3~"_s, u"4~EOF~"_s, u"5~ERROR~"_s,
                                u"6~Searching~"_s, u"research~7~"_s})
        reply += TableRow(row, line);
    reply += u"EOF~that was all"_s;
    const frmCaseDetails *window = Retrieved(row, reply);
    QList<QStringList> cells{{u"eof"_s, u"2"_s},       {u"Error"_s, u"3"_s},
                             {u"4"_s, u"EOF"_s},       {u"5"_s, u"ERROR"_s},
                             {u"6"_s, u"Searching"_s}, {u"research"_s, u"7"_s}};
    if (row.lastFirst)
        std::reverse(cells.begin(), cells.end());
    QCOMPARE(CellsOf(window, row.tab), QList<QStringList>({{u"Date"_s, u"Entry"_s}}) + cells);
    VerifyDone(window, row);
}

void tst_CaseTabRetrieval::onlySummaryAndNamesCarryTheClientCode()
{
    const FamilyMember &row = Member();
    const auto coded = [](const QString &line) -> QString {
        return line.chopped(1) + u"^^CAC:ACME 7^^"_s + line.back();
    };
    const QString request = row.request.toString();
    FetchAtOnce(u"CaseSearchTabs"_s, {CaptionOf(row)});
    FetchAtOnce(u"OrCaseSearchTabs"_s, {CaptionOf(row)});
    FetchAtOnce(u"IdCaseSearchTabs"_s, {CaptionOf(row)});
    court->Expect(coded(SummaryLineOf(row))).Reply(SummaryReplyOf(row));
    court->Expect(row.tab == CaseTab::Names ? coded(request) : request)
        .Reply(WholeTable(row) + QStringList{endMark});
    frmCaseDetails *window = WindowOf(row);
    window->ClientAcctgCode = u" ACME 7 "_s;
    Run(window);
    QVERIFY(window->Tab(row.tab).TabDone);
    // The tab's own line stays as it is: it would carry the code twice the next time.
    QCOMPARE(window->Tab(row.tab).TabRequest, request);
}

void tst_CaseTabRetrieval::aDataLineIsTrimmed()
{
    const FamilyMember &docket = family[1];
    const frmCaseDetails *window =
        Retrieved(docket, {u"  GRIDDEF~Date~Entry~20~80~ "_s, u" ERROR~in a row~ "_s, endMark});
    QCOMPARE(window->lboxResponses.Lines(),
             (QStringList{u"GRIDDEF~Date~Entry~20~80~"_s, u"ERROR~in a row~"_s}));
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             (QList<QStringList>{{u"Date"_s, u"Entry"_s}, {u"ERROR"_s, u"in a row"_s}}));
}

void tst_CaseTabRetrieval::anotherTabsLinesDoNotStay()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SummaryReplyOf(family[1]));
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply(GridDef({u"A~Smith~"_s}));
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({endMark});
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(window->lboxResponses.ListCount(), 0);
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             Message(u"No Docket Information Found For This Case."));
}

void tst_CaseTabRetrieval::scheduleOfOregonHasTheWordsOfJudgments_data()
{
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<QString>("words");
    QTest::newRow("empty") << false << u"No Judgments Were Found For This Case."_s;
    QTest::newRow("incomplete") << true << u"Judgments Search Incomplete. Please Retry Search"_s;
}

/// Oregon's strip has no such tab; should it get one, this is what it says.
void tst_CaseTabRetrieval::scheduleOfOregonHasTheWordsOfJudgments()
{
    QFETCH(bool, incomplete);
    QFETCH(QString, words);
    CaseByHand window;
    window.lblState = u"OR"_s;
    window.FillTab(CaseTab::Schedule, incomplete, u"OREGON@SCHEDULE,@"_s);
    QCOMPARE(CellsOf(&window, CaseTab::Schedule), Message(words));
}

void tst_CaseTabRetrieval::countsOfIdahosChargesStandAgainstTheirText_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<bool>("right");
    QTest::newRow("Idaho, charges") << u"ID"_s << CaseTab::Charges << true;
    QTest::newRow("Idaho, docket") << u"ID"_s << CaseTab::Docket << false;
    QTest::newRow("Idaho, judgments") << u"ID"_s << CaseTab::Judgments << false;
    QTest::newRow("Oregon, charges") << u"OR"_s << CaseTab::Charges << false;
    QTest::newRow("Superior, charges") << u"WA"_s << CaseTab::Charges << false;
}

void tst_CaseTabRetrieval::countsOfIdahosChargesStandAgainstTheirText()
{
    QFETCH(QString, state);
    QFETCH(CaseTab, tab);
    QFETCH(bool, right);
    CaseByHand window;
    window.lblState = state;
    const QStringList table =
        state == u"WA" ? GridDef({u"1~Theft~"_s}) : TableForm({u"1~Theft~"_s});
    for (const QString &line : table.first(table.size() - 1))
        window.lboxResponses.AddItem(line);
    window.FillTab(tab, false, u"OREGON@CHARGES,@"_s);
    const QAbstractItemModel *model = window.Tab(tab).Grid->model();
    const auto isRight = [model](int column) {
        return model->index(0, column)
            .data(Qt::TextAlignmentRole)
            .value<Qt::Alignment>()
            .testFlag(Qt::AlignRight);
    };
    QCOMPARE(isRight(0), right);
    QVERIFY(!isRight(1));
}

/// Whatever stood there before, and whatever comes afterwards.
void tst_CaseTabRetrieval::aMessageInPlaceOfTheChargesStandsLeft()
{
    CaseByHand window;
    window.lblState = u"ID"_s;
    const QAbstractItemModel *model = window.Tab(CaseTab::Charges).Grid->model();
    const auto alignments = [model] {
        return QList<Qt::Alignment>{
            model->index(0, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
            model->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>()};
    };
    const QList<Qt::Alignment> left{Qt::AlignLeft | Qt::AlignTop, Qt::AlignLeft | Qt::AlignVCenter};
    const QStringList table = TableForm({u"1~Theft~"_s});
    for (const bool incomplete : {false, true}) {
        window.lboxResponses.Clear();
        window.FillTab(CaseTab::Charges, incomplete, {});
        QCOMPARE(CellsOf(&window, CaseTab::Charges).size(), 2);
        QCOMPARE(alignments(), left);
        for (const QString &line : table.first(table.size() - 1))
            window.lboxResponses.AddItem(line);
        window.FillTab(CaseTab::Charges, incomplete, {});
        QVERIFY(alignments().front().testFlag(Qt::AlignRight));
    }
}

void tst_CaseTabRetrieval::aWidthOfZeroHidesItsColumn_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QStringList>("lines");
    const auto tableForm = [](const QString &columns) {
        return QStringList{u"TABNAME~x~"_s, u"TABDEF~x~"_s, columns, u"COLALIGNMENT~L~L~"_s,
                           u"1~secret~Theft~"_s};
    };
    QTest::newRow("Superior") << u"WA"_s << CaseTab::Docket
                              << QStringList{u"GRIDDEF~No~Id~Entry~20~0~80~"_s,
                                             u"1~secret~Theft~"_s};
    QTest::newRow("Oregon") << u"OR"_s << CaseTab::Docket
                            << tableForm(u"COLDEF~No~20~Id~0~Entry~80~"_s);
    QTest::newRow("names of Idaho")
        << u"ID"_s << CaseTab::Names << tableForm(u"COLDEF~No~Id~Entry~20~0~80~"_s);
    QTest::newRow("documents") << u"WA"_s << CaseTab::Documents
                               << tableForm(u"COLDEF~No~Id~Entry~20~0~80~"_s);
}

void tst_CaseTabRetrieval::aWidthOfZeroHidesItsColumn()
{
    QFETCH(QString, state);
    QFETCH(CaseTab, tab);
    QFETCH(QStringList, lines);
    CaseByHand window;
    window.lblState = state;
    for (const QString &line : std::as_const(lines))
        window.lboxResponses.AddItem(line);
    window.FillTab(tab, false, {});
    const FlexGrid *grid = window.Tab(tab).Grid;
    QVERIFY(!grid->isColumnHidden(0));
    QVERIFY(grid->isColumnHidden(1));
    QVERIFY(!grid->isColumnHidden(2));
    QCOMPARE(grid->Cell(1, 1), u"secret"_s);
}

/// Whatever the target showed before; and what is shown in the source later stays there.
void tst_CaseTabRetrieval::aCopiedGridIsTheGrid()
{
    const GridTable table{{{u"Count"_s, 20}, {u"Charge"_s, 55.5}},
                          {{u"1"_s, u"<b>Theft</b>"_s}, {u"2"_s}}};
    const GridTable bare{{{{}, 100}}, {{u"a message"_s}}, false};
    FlexGrid source;
    source.SetColumnAlignment(0, Qt::AlignRight | Qt::AlignTop);
    source.Show(table);
    FlexGrid target;
    target.SetColumnAlignment(1, Qt::AlignCenter);
    target.Show(bare);
    CaseWindow::CopyGrid(source, target);
    CaseWindow::SetColumnWidthsAndInsertHeaderText();
    QCOMPARE(target.Table(), table);
    QCOMPARE(target.ColumnAlignment(0), Qt::AlignRight | Qt::AlignTop);
    QCOMPARE(target.ColumnAlignment(1), Qt::AlignLeft | Qt::AlignTop);
    source.Show(bare);
    QCOMPARE(target.Table(), table);
    CaseWindow::CopyGrid(source, target);
    QCOMPARE(target.Table(), bare);
    QCOMPARE(target.Cell(0, 0), u"a message"_s);
}

HALVANE_TEST(tst_CaseTabRetrieval)
#include "tst_CaseTabRetrieval.moc"
