// The report of a case, as blocks.

#include "reports/CaseReport.h"
#include "reports/ColumnPlaces.h"
#include "reports/PageLayout.h"
#include "reports/SampleCases.h"
#include "support/HalvaneTest.h"

#include <QTest>

namespace {
const QString stopped = u"WARNING:  This Search was Stopped by the User. Some results may not have "
                        "been retrieved."_s;
const QString archived = u"* Indicates the case is archived. Some details are offline and not "
                         "available electronically at this time."_s;
const QString notCompleted = u"WARNING:  This Search was NOT completed. Some results may not have "
                             "been retrieved."_s;
const QString associated = u"WARNING:  This Search Found Assoicated Cases for the Case Entered. "
                           "Please Select a Case to Review."_s;
const QString incomplete = u"< WARNING:  Information Incomplete > "_s;

Report reportOf(const CaseRecord &record, const QList<CaseTab> &tabs,
                const ReportSituation &situation = AtNoon())
{
    return ComposeCase(record, tabs, situation, Paper().PrintableWidth());
}

QList<QStringList> cellsOf(const Report &report, BlockKind kind)
{
    QList<QStringList> cells;
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind == kind)
            cells.append(block.Cells);
    }
    return cells;
}

QStringList textsOf(const Report &report, BlockKind kind)
{
    QStringList texts;
    for (const QStringList &cells : cellsOf(report, kind))
        texts.append(cells.join(u'|'));
    return texts;
}

/// What stands behind the head and the warnings, and before the closing lines, each block as its
/// kind and its cells.
QStringList bodyOf(const Report &report)
{
    QStringList body;
    bool begun = false;
    for (const ReportBlock &block : report.Blocks) {
        begun = begun || block.Kind == BlockKind::Heading;
        if (block.Kind == BlockKind::Closing)
            break;
        if (begun && block.Kind != BlockKind::Blank)
            body.append(block.Cells.join(u'|'));
    }
    return body;
}

/// The columns of the only table that the Names of a case have, when they claim these hundredths.
QList<ColumnFormat> columnsFor(const QList<double> &percents)
{
    CaseRecord record = SuperiorCase();
    QList<GridColumn> columns;
    for (const double percent : percents)
        columns.append({u"Head"_s, percent});
    Give(record, CaseTab::Names, columns, {});
    return reportOf(record, {CaseTab::Names}).Tables.value(1);
}
} // namespace

class tst_CaseReport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theHead_data();
    void theHead();
    void anArchivedCaseHasItsMark();
    void theWarnings_data();
    void theWarnings();
    void theTabsInTheirOrder();
    void onlyWhatIsChosen();
    void theTableOfATab();
    void aMessageInThePlaceOfATable();
    void nothingHasComeYet();
    void aSummaryThatBrokeDown();
    void notesAndAnUnfinishedTab_data();
    void notesAndAnUnfinishedTab();
    void theSuitOfACivilCase();
    void columnsOfEveryWidthFitThePage_data();
    void columnsOfEveryWidthFitThePage();
    void columnsHaveTheSharesOfTheRecord();
    void columnsHaveTheirSharesOnOtherPaper();
    void everyRowHasTheCellsOfItsTable();
    void aCellIsOneLine();
    void theEnd_data();
    void theEnd();
    void whatCanBeReported_data();
    void whatCanBeReported();
};

void tst_CaseReport::theHead_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QString>("reportedBy");
    QTest::addColumn<QStringList>("rows");
    const QString printed = u"Date Printed:|3/15/2024 12:00:00 PM"_s;
    QTest::newRow("superior") << u"superior"_s << u""_s
                              << QStringList{u"Case Title:|STATE OF WASHINGTON VS SMITH & SONS, "
                                             "JOHN"_s,
                                             u"Court:|King County, Washington Superior Courts"_s,
                                             u"Date Filed:|01/15/2002"_s, printed};
    QTest::newRow("client code and name") << u"civil"_s << u"Ann Clerk"_s
                                          << QStringList{u"Case Title:|ACME RENTALS VS DOE, JANE"_s,
                                                         u"Court:|Seattle Municipal Court"_s,
                                                         u"Date Filed:|06/30/2003"_s,
                                                         printed,
                                                         u"Client Matter:|SMITH-12"_s,
                                                         u"Reported By:|Ann Clerk"_s};
    QTest::newRow("a name for a title")
        << u"non-civil"_s << u""_s
        << QStringList{u"Case Title:|DOE, JOHN Q"_s, u"Court:|King County District Court"_s,
                       u"Date Filed:|Not on File"_s, printed};
}

void tst_CaseReport::theHead()
{
    QFETCH(QString, sample);
    QFETCH(QString, reportedBy);
    QFETCH(QStringList, rows);
    ReportSituation situation = AtNoon();
    situation.ReportedBy = reportedBy;
    const Report report = reportOf(SampleCase(sample), {}, situation);
    QCOMPARE(textsOf(report, BlockKind::HeadRow), rows);
    const QList<ColumnFormat> columns{ColumnFormatOf(u"r 2000;200"), ColumnFormatOf(u"l 6000;200")};
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind == BlockKind::HeadRow)
            QCOMPARE(report.Tables.value(block.Table), columns);
    }
}

void tst_CaseReport::anArchivedCaseHasItsMark()
{
    QCOMPARE(reportOf(SuperiorCase(), {}).Title, u"Halvane Case Details for: 02-1-00123-4"_s);
    const Report report = reportOf(NonCivilCase(), {});
    QCOMPARE(report.Title, u"Halvane Case Details for: *CR0012345"_s);
    QCOMPARE(textsOf(report, BlockKind::Title), QStringList{report.Title});
}

void tst_CaseReport::theWarnings_data()
{
    QTest::addColumn<bool>("isStopped");
    QTest::addColumn<bool>("isArchived");
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<bool>("tabIncomplete");
    QTest::addColumn<bool>("listed");
    QTest::addColumn<QStringList>("warnings");
    QTest::newRow("none") << false << false << false << false << false << QStringList{};
    QTest::newRow("stopped") << true << false << false << false << false << QStringList{stopped};
    QTest::newRow("archived") << false << true << false << false << false << QStringList{archived};
    QTest::newRow("goes on") << false << false << true << false << false
                             << QStringList{notCompleted};
    QTest::newRow("a tab failed") << false << false << false << true << false
                                  << QStringList{notCompleted};
    QTest::newRow("a list of cases")
        << false << false << false << false << true << QStringList{associated};
    QTest::newRow("all") << true << true << true << true << true
                         << QStringList{stopped, archived, notCompleted, associated};
}

void tst_CaseReport::theWarnings()
{
    QFETCH(bool, isStopped);
    QFETCH(bool, isArchived);
    QFETCH(bool, goesOn);
    QFETCH(bool, tabIncomplete);
    QFETCH(bool, listed);
    QFETCH(QStringList, warnings);
    CaseRecord record = SuperiorCase();
    record.SearchStopped = isStopped;
    record.Archived = isArchived;
    record.Tab(CaseTab::Schedule).TabIncomplete = tabIncomplete;
    record.chkBKYass = listed;
    ReportSituation situation = AtNoon();
    situation.GoesOn = goesOn;
    const Report report = reportOf(record, {}, situation);
    QCOMPARE(textsOf(report, BlockKind::Warning), warnings);
    for (qsizetype i = 0; i < report.Blocks.size(); ++i) {
        if (report.Blocks[i].Kind == BlockKind::Warning)
            QCOMPARE(report.Blocks[i - 1].Kind, BlockKind::Blank);
    }
}

void tst_CaseReport::theTabsInTheirOrder()
{
    CaseRecord record = SuperiorCase();
    Give(record, CaseTab::Finance, {{u"Item"_s, 100}}, {});
    QList<CaseTab> tabs;
    for (int tab = caseTabCount - 1; tab >= 0; --tab)
        tabs.append(static_cast<CaseTab>(tab));
    QCOMPARE(
        textsOf(reportOf(record, tabs), BlockKind::Heading),
        (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s, u"Judgments"_s, u"Charges"_s,
                     u"Sentence"_s, u"Accounting"_s, u"Finance"_s, u"Schedule"_s, u"Documents"_s}));
    QCOMPARE(textsOf(reportOf(NonCivilCase(), tabs), BlockKind::Heading),
             (QStringList{u"Summary"_s, u"Names"_s, u"Violations"_s}));
}

void tst_CaseReport::onlyWhatIsChosen()
{
    const Report report = reportOf(SuperiorCase(), {CaseTab::Charges, CaseTab::Names});
    QCOMPARE(textsOf(report, BlockKind::Heading), (QStringList{u"Names"_s, u"Charges"_s}));
}

void tst_CaseReport::theTableOfATab()
{
    const Report report = reportOf(SuperiorCase(), {CaseTab::Docket});
    QCOMPARE(
        bodyOf(report),
        (QStringList{u"Docket"_s, u"Sub#|Date|Description|Misc"_s, u"1|01/15/2002|Information|"_s,
                     u"12|02/01/2002|Order for Arraignment|Dept. 3"_s, u"End of Docket"_s}));
    QCOMPARE(textsOf(report, BlockKind::ColumnHeads), QStringList{u"Sub#|Date|Description|Misc"_s});
}

void tst_CaseReport::aMessageInThePlaceOfATable()
{
    const Report report = reportOf(SuperiorCase(), {CaseTab::Judgments});
    QCOMPARE(bodyOf(report),
             (QStringList{u"Judgments"_s, u"No Judgments Were Found For This Case."_s}));
    QVERIFY(cellsOf(report, BlockKind::ColumnHeads).isEmpty());
}

void tst_CaseReport::nothingHasComeYet()
{
    CaseRecord record(CaseKind::State);
    record.txtCaseNumber = u"02-1-00123-4"_s;
    ReportSituation situation = AtNoon();
    situation.GoesOn = true;
    const Report report = reportOf(record, {CaseTab::Summary}, situation);
    QCOMPARE(bodyOf(report), (QStringList{u"Summary"_s, incomplete}));
    QCOMPARE(textsOf(report, BlockKind::Warning), QStringList{notCompleted});
}

void tst_CaseReport::aSummaryThatBrokeDown()
{
    CaseRecord record = SuperiorCase();
    record.Tab(CaseTab::Summary).TabDone = false;
    QCOMPARE(textsOf(reportOf(record, {}), BlockKind::Warning), QStringList{notCompleted});
    // The court has answered, and this is all of it.
    GiveMessage(record, CaseTab::Summary, u"02-1-00123-4 is not a valid case number"_s);
    record.Tab(CaseTab::Summary).TabDone = false;
    QCOMPARE(textsOf(reportOf(record, {}), BlockKind::Warning), QStringList());
}

void tst_CaseReport::notesAndAnUnfinishedTab_data()
{
    QTest::addColumn<bool>("done");
    QTest::addColumn<bool>("failed");
    QTest::addColumn<bool>("message");
    QTest::addColumn<bool>("marked");
    QTest::newRow("done") << true << false << false << false;
    QTest::newRow("failed") << false << true << false << true;
    QTest::newRow("failed, and says so") << false << true << true << true;
    QTest::newRow("not done") << false << false << false << true;
    QTest::newRow("says why there is nothing") << false << false << true << false;
}

void tst_CaseReport::notesAndAnUnfinishedTab()
{
    QFETCH(bool, done);
    QFETCH(bool, failed);
    QFETCH(bool, message);
    QFETCH(bool, marked);
    CaseRecord record = CivilCase();
    if (message)
        GiveMessage(record, CaseTab::Names, u"Not a valid case number"_s);
    record.Tab(CaseTab::Names).TabDone = done;
    record.Tab(CaseTab::Names).TabIncomplete = failed;
    QStringList remarks{u"Names"_s, u"Names may be incomplete before 1990."_s,
                        u"Minors are not listed."_s};
    if (marked)
        remarks.append(incomplete);
    const QStringList body = bodyOf(reportOf(record, {CaseTab::Names}));
    QCOMPARE(body.mid(0, remarks.size()), remarks);
    QCOMPARE(body.contains(incomplete), marked);
}

void tst_CaseReport::theSuitOfACivilCase()
{
    const QStringList body = bodyOf(reportOf(CivilCase(), {CaseTab::Summary}));
    QCOMPARE(body.value(5), u"Suit Amt: |$3,000.00|"_s);
    // The words of a court that has this for something else stay.
    CaseRecord other = SuperiorCase();
    Give(other, CaseTab::Summary, {{u"Item"_s, 100}}, {{u"Suit Amount: "_s}});
    QCOMPARE(bodyOf(reportOf(other, {CaseTab::Summary})).value(2), u"Suit Amount: "_s);
}

void tst_CaseReport::columnsOfEveryWidthFitThePage_data()
{
    QTest::addColumn<QList<double>>("percents");
    QTest::newRow("a whole") << QList<double>{10, 15, 60, 15};
    QTest::newRow("thirds") << QList<double>{33, 33, 33};
    QTest::newRow("part of a page") << QList<double>{10, 20};
    QTest::newRow("one wide, many narrow") << QList<double>{80, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    QTest::newRow("twice a page") << QList<double>{100, 60, 40};
    QTest::newRow("absurd") << QList<double>{1e9, -5, 0.001, 1};
    QTest::newRow("all hidden") << QList<double>{0, 0, 0};
    QTest::newRow("one") << QList<double>{100};
    QTest::newRow("a hundred") << QList<double>(100, 1.0);
}

void tst_CaseReport::columnsOfEveryWidthFitThePage()
{
    QFETCH(QList<double>, percents);
    const QList<ColumnFormat> columns = columnsFor(percents);
    QCOMPARE(columns.size(), percents.size());
    int taken = 0;
    for (const ColumnFormat &column : columns) {
        QVERIFY2(column.Width > 0, qPrintable(QString::number(column.Width)));
        QCOMPARE(column.Alignment, Qt::Alignment(Qt::AlignLeft));
        if (percents.size() < 12)
            QCOMPARE(column.Gap, 350);
        taken += column.Width + column.Gap;
    }
    QVERIFY2(taken <= Paper().PrintableWidth(), qPrintable(QString::number(taken)));
}

void tst_CaseReport::columnsHaveTheSharesOfTheRecord()
{
    const auto widthsFor = [](const QList<double> &percents) {
        QList<int> widths;
        for (const ColumnFormat &column : columnsFor(percents))
            widths.append(column.Width);
        return widths;
    };
    // 10800 twips, without a gap of 350 for each.
    QCOMPARE(widthsFor({10, 15, 60, 15}), (QList<int>{940, 1410, 5640, 1410}));
    QCOMPARE(widthsFor({10, 20}), (QList<int>{1010, 2020}));
    QCOMPARE(widthsFor({100, 60, 40}), (QList<int>{4875, 2925, 1950}));
    // The one without a width is out of sight.
    QCOMPARE(widthsFor({50, 0, 50}), (QList<int>{5050, 5050}));
}

/// The paper may be changed while the report is looked at, or when it is printed.
void tst_CaseReport::columnsHaveTheirSharesOnOtherPaper()
{
    const QList<ColumnFormat> columns = columnsFor({10, 15, 60, 15});
    const int width = Paper().PrintableWidth();
    const QList<ColumnPlace> places = PlaceColumns(columns, width);
    for (const int other : {width * 4 / 3, width / 2}) {
        const QList<ColumnPlace> onOther = PlaceColumns(columns, other);
        for (qsizetype i = 0; i < places.size(); ++i) {
            const double wanted = places[i].Right() * other / width;
            QVERIFY2(std::abs(onOther[i].Right() - wanted) < 10,
                     qPrintable(QString::number(onOther[i].Right())));
        }
    }
}

void tst_CaseReport::everyRowHasTheCellsOfItsTable()
{
    CaseRecord record = SuperiorCase();
    record.Tab(CaseTab::Names).Table.Rows.append({u"A"_s, u"B"_s, u"C"_s, u"too many"_s});
    const Report report = reportOf(record, TabsToReport(record));
    int rows = 0;
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind != BlockKind::Row && block.Kind != BlockKind::ColumnHeads)
            continue;
        QCOMPARE(block.Cells.size(), report.Tables.value(block.Table).size());
        ++rows;
    }
    QVERIFY2(rows > 20, qPrintable(QString::number(rows)));
}

void tst_CaseReport::aCellIsOneLine()
{
    CaseRecord record = SuperiorCase();
    Give(record, CaseTab::Names, {{u"Na\nme"_s, 50}, {u"B"_s, 50}},
         {{u"SMITH\r\nJOHN"_s, u"tab\there"_s}});
    QCOMPARE(bodyOf(reportOf(record, {CaseTab::Names})),
             (QStringList{u"Names"_s, u"Na me|B"_s, u"SMITH  JOHN|tab here"_s}));
}

void tst_CaseReport::theEnd_data()
{
    QTest::addColumn<bool>("stopRequested");
    QTest::addColumn<QString>("last");
    QTest::newRow("ended") << false << u"<------ End of Report ------>"_s;
    QTest::newRow("stopped") << true
                             << u"<------ End of Report: User Stopped Search. Some Results may not "
                                "have been retrieved! ------>"_s;
}

void tst_CaseReport::theEnd()
{
    QFETCH(bool, stopRequested);
    QFETCH(QString, last);
    ReportSituation situation = AtNoon();
    situation.StopRequested = stopRequested;
    const Report report = reportOf(SuperiorCase(), {CaseTab::Summary}, situation);
    QCOMPARE(report.Blocks.last().Cells, QStringList{last});
    // The legal text belongs to what stays together at the end.
    QList<QStringList> end;
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind == BlockKind::Closing || !end.isEmpty())
            end.append(block.Cells);
    }
    QVERIFY(end.contains(QStringList{legalHead.toString()}));
    QVERIFY(end.contains(QStringList{legalSentence.toString()}));
}

void tst_CaseReport::whatCanBeReported_data()
{
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("done");
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<bool>("notRetrieved");
    QTest::addColumn<bool>("can");
    QTest::newRow("the Summary, always")
        << CaseTab::Summary << true << false << false << true << true;
    QTest::newRow("has come") << CaseTab::Docket << true << true << false << false << true;
    QTest::newRow("not asked for") << CaseTab::Docket << true << false << false << true << false;
    QTest::newRow("comes") << CaseTab::Docket << true << false << false << false << false;
    QTest::newRow("failed, to be tried again")
        << CaseTab::Docket << true << false << true << true << false;
    QTest::newRow("failed and kept") << CaseTab::Docket << true << false << true << false << true;
    QTest::newRow("came for a case that has it no more")
        << CaseTab::Docket << false << true << false << false << false;
}

void tst_CaseReport::whatCanBeReported()
{
    QFETCH(CaseTab, tab);
    QFETCH(bool, exists);
    QFETCH(bool, done);
    QFETCH(bool, incomplete);
    QFETCH(bool, notRetrieved);
    QFETCH(bool, can);
    CaseRecord record = SuperiorCase();
    record.Tab(tab).TabDone = done;
    record.Tab(tab).TabIncomplete = incomplete;
    record.Tab(tab).TabNotRetrieved = notRetrieved;
    if (!exists)
        record.TabCaptions.removeAll(u"Docket"_s);
    QCOMPARE(CanBeReported(record, tab), can);
    QCOMPARE(TabsToReport(record).contains(tab), can);
}

HALVANE_TEST(tst_CaseReport)
#include "tst_CaseReport.moc"
