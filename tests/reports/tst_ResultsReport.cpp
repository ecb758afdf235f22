// The printed report of a search, block by block.

#include "core/GlobalState.h"
#include "reports/ReportedSearch.h"
#include "reports/ResultsReport.h"
#include "reports/ResultsTables.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>

#include <algorithm>

namespace {
constexpr double characterTwips = 100;

double byCharacters(const QString &text)
{
    return characterTwips * static_cast<double>(text.size());
}

Report compose(const ResultsRecord &record, const ReportSituation &situation = OnAMorning())
{
    return ComposeResults(record, CasesOf(record), situation, &byCharacters);
}

QList<QStringList> cellsOf(const Report &report, BlockKind kind)
{
    QList<QStringList> cells;
    for (const ReportBlock &block : report.Blocks)
        if (block.Kind == kind)
            cells.append(block.Cells);
    return cells;
}

QStringList firstCells(const Report &report, BlockKind kind)
{
    QStringList first;
    for (const QStringList &cells : cellsOf(report, kind))
        first.append(cells.value(0));
    return first;
}

/// The value that stands behind a label of the head, "-" when there is no such label.
QString valueOf(const Report &report, const QString &label)
{
    for (const QStringList &cells : cellsOf(report, BlockKind::HeadRow))
        if (cells.value(0) == label)
            return cells.value(1);
    return u"-"_s;
}

QList<ColumnFormat> formatsOfRows(const Report &report)
{
    const auto heads =
        std::find_if(report.Blocks.begin(), report.Blocks.end(),
                     [](const ReportBlock &block) { return block.Kind == BlockKind::ColumnHeads; });
    return report.Tables.at(heads->Table);
}

QString written(const ColumnFormat &format)
{
    return (format.Alignment == Qt::AlignRight ? u"r "_s : u"l "_s) + QString::number(format.Width)
           + u';' + QString::number(format.Gap);
}
} // namespace

class tst_ResultsReport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fromHeadToFoot();
    void theTitle_data();
    void theTitle();
    void theClientMatter_data();
    void theClientMatter();
    void whoReports_data();
    void whoReports();
    void manyCourtsTakeSeveralRows();
    void theSortColumnIsTrimmed();
    void warnings_data();
    void warnings();
    void columns_data();
    void columns();
    void everyKindHasItsCells_data();
    void everyKindHasItsCells();
    void theDescriptionIsAsWideAsItsLongest();
    void noDescriptions();
    void aNameIsBrokenAt2700();
    void anIndexRowHasALineMore();
    void theCount_data();
    void theCount();
    void theLastLine();
    void noRows();
    void aListThatBecameANote();
    void peopleOfOneName();
    void columnFormats_data();
    void columnFormats();
};

void tst_ResultsReport::fromHeadToFoot()
{
    const auto record = ReportedSearch();
    record->Rows.AddRow(RowOf(record->Kind));
    const Report report = compose(*record);
    QCOMPARE(report.Title, u"Halvane Search Results for: SMITH, JOHN"_s);
    QCOMPARE(report.Footer, u"Page ??"_s);
    const QList<ReportBlock> expected{
        {BlockKind::Title, {u"Halvane Search Results for: SMITH, JOHN"_s}},
        {BlockKind::Blank},
        {BlockKind::HeadRow, {u"Date Printed:"_s, u"3/10/2026 10:00:00 AM"_s}, 0},
        {BlockKind::HeadRow, {u"Sorted By:"_s, u"Participant Name"_s}, 0},
        {BlockKind::HeadRow, {u"Case Types:"_s, u"Civil, Criminal"_s}, 0},
        {BlockKind::HeadRow, {u"Court(s):"_s, u"King County - Washington"_s}, 0},
        {BlockKind::HeadRow, {{}, u"Superior Courts"_s}, 0},
        {BlockKind::Blank},
        {BlockKind::ColumnHeads,
         {u"Participant Name"_s, u"Case Number"_s, u"Date Filed"_s, u"Description"_s, u"Location"_s,
          u"Role"_s},
         1},
        {BlockKind::Row,
         {u"SMITH, JOHN A"_s, u"02-2-00123-4"_s, u"01/02/2002"_s, u"TORT"_s, u"KING"_s, u"PLA"_s},
         1},
        {BlockKind::Closing},
        {BlockKind::Blank},
        {BlockKind::Total, {u"This search found 1 Matching Records"_s}},
        {BlockKind::Blank},
        {BlockKind::Text,
         {u"This output may contain results from the Federal, Idaho, Oregon or Washington State "
          "Courts. Please Note:"_s}},
        {BlockKind::Row,
         {u"Neither the court nor clerk makes any representation as to the accuracy and "
          "completeness of the Federal, Idaho, Oregon, or Washington Court data except for court "
          "purposes."_s},
         2},
        {BlockKind::Blank},
        {BlockKind::Text, {u"<------ End of Report ------>"_s}},
    };
    for (qsizetype i = 0; i < std::min(expected.size(), report.Blocks.size()); ++i) {
        QCOMPARE(report.Blocks.at(i).Kind, expected.at(i).Kind);
        QCOMPARE(report.Blocks.at(i).Cells, expected.at(i).Cells);
        QCOMPARE(report.Blocks.at(i).Table, expected.at(i).Table);
    }
    QCOMPARE(report.Blocks.size(), expected.size());
    QCOMPARE(written(report.Tables.at(0).at(0)), u"r 1200;200"_s);
    QCOMPARE(written(report.Tables.at(0).at(1)), u"l 3000;200"_s);
    QCOMPARE(written(report.Tables.at(2).at(0)), u"l 5000;25"_s);
}

void tst_ResultsReport::theTitle_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("title");
    QTest::newRow("a name") << ResultKind::Superior << u"Halvane Search Results for: SMITH, JOHN"_s;
    QTest::newRow("in the index") << ResultKind::Index
                                  << u"Halvane Search Index Results for: SMITH, JOHN"_s;
}

void tst_ResultsReport::theTitle()
{
    QFETCH(ResultKind, kind);
    const Report report = compose(*ReportedSearch(kind));
    QTEST(report.Title, "title");
    QTEST(firstCells(report, BlockKind::Title).value(0), "title");
}

void tst_ResultsReport::theClientMatter_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << QString() << u"-"_s;
    QTest::newRow("blanks") << u"   "_s << u"-"_s;
    QTest::newRow("trimmed, in capitals") << u" smith-12 "_s << u"SMITH-12"_s;
    // As the report of a case of this client has it.
    QTest::newRow("a letter without a capital") << u"weiß-µ"_s << u"WEIß-µ"_s;
}

void tst_ResultsReport::theClientMatter()
{
    QFETCH(QString, code);
    const auto record = ReportedSearch();
    record->ClientAcctgCode = code;
    QTEST(valueOf(compose(*record), u"Client Matter:"_s), "shown");
}

void tst_ResultsReport::whoReports_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("wanted") << u"1"_s << u" Pat Doe "_s << u"Pat Doe"_s;
    QTest::newRow("not wanted") << u"0"_s << u"Pat Doe"_s << u"-"_s;
    QTest::newRow("another value") << u"2"_s << u"Pat Doe"_s << u"-"_s;
    QTest::newRow("no value") << QString() << u"Pat Doe"_s << u"-"_s;
    QTest::newRow("wanted, but nobody") << u"1"_s << u"  "_s << u"-"_s;
}

void tst_ResultsReport::whoReports()
{
    QFETCH(QString, wanted);
    QFETCH(QString, name);
    const TestFolder folder;
    const TestClock clock(QDateTime({2026, 3, 10}, {10, 0, 0}));
    Global.strPrintHdr = wanted;
    Global.strPrintHdrVal = name;
    const ReportSituation situation = SituationNow(false, false);
    QVERIFY(situation.DatePrinted.contains(u"2026"));
    QTEST(valueOf(compose(*ReportedSearch(), situation), u"Reported By:"_s), "shown");
}

void tst_ResultsReport::manyCourtsTakeSeveralRows()
{
    const auto record = ReportedSearch();
    record->txtCountyList = QStringList(39, u"County"_s).join(u", "_s);
    const QList<QStringList> rows = cellsOf(compose(*record), BlockKind::HeadRow);
    QCOMPARE(rows.at(3).at(0), u"Court(s):"_s);
    QVERIFY(rows.size() > 10);
    QStringList counties;
    for (const QStringList &row : rows.mid(3)) {
        counties.append(row.at(1));
        QVERIFY(byCharacters(row.at(1)) <= 3000);
    }
    QCOMPARE(counties.join(u' '), record->txtCountyList);
    for (const QStringList &row : rows.mid(4))
        QCOMPARE(row.at(0), QString());
}

void tst_ResultsReport::theSortColumnIsTrimmed()
{
    QCOMPARE(valueOf(compose(*ReportedSearch()), u"Sorted By:"_s), u"Participant Name"_s);
}

void tst_ResultsReport::warnings_data()
{
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<bool>("stopFlag");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QStringList>("warnings");
    const QString incomplete = u"WARNING:  This Search is Incomplete! Some results may not have "
                               "been retrieved."_s;
    const QString stopped = u"WARNING:  This Search was Stopped by the User. Some results may not "
                            "have been retrieved."_s;
    const QString archived = u"* Indicates the case is archived. Some details are offline and not "
                             "available electronically at this time."_s;
    const QString plain = u"02-2-00123-4"_s;
    QTest::newRow("none") << false << false << false << plain << QStringList();
    QTest::newRow("incomplete") << true << false << false << plain << QStringList(incomplete);
    QTest::newRow("goes on") << false << true << false << plain << QStringList(incomplete);
    QTest::newRow("stopped") << false << false << true << plain << QStringList(stopped);
    QTest::newRow("archived") << false << false << false << u"*02-2-00123-4"_s
                              << QStringList(archived);
    QTest::newRow("archived and opened")
        << false << false << false << u">>*02-2-00123-4"_s << QStringList(archived);
    QTest::newRow("opened") << false << false << false << u">>02-2-00123-4"_s << QStringList();
    QTest::newRow("a star behind") << false << false << false << u"02-2*"_s << QStringList();
    QTest::newRow("all") << true << true << true << u"*1"_s
                         << QStringList{incomplete, stopped, archived};
}

void tst_ResultsReport::warnings()
{
    QFETCH(bool, incomplete);
    QFETCH(bool, goesOn);
    QFETCH(bool, stopFlag);
    QFETCH(QString, number);
    const auto record = ReportedSearch();
    record->SearchIncomplete = incomplete;
    record->StopWarningFlag = stopFlag;
    record->Rows.AddRow(RowOf(record->Kind));
    record->Rows.AddRow({u"SMITH, JOHN B"_s, number});
    ReportSituation situation = OnAMorning();
    situation.GoesOn = goesOn;
    const Report report = compose(*record, situation);
    QTEST(firstCells(report, BlockKind::Warning), "warnings");
    // Each behind an empty line.
    for (qsizetype i = 0; i < report.Blocks.size(); ++i)
        if (report.Blocks.at(i).Kind == BlockKind::Warning)
            QCOMPARE(report.Blocks.at(i - 1).Kind, BlockKind::Blank);
}

void tst_ResultsReport::columns_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("heads");
    QTest::addColumn<QString>("formats");
    const QString court = u"Participant Name|Case Number|Date Filed|Description|Location|Role"_s;
    const QString plain = u"l 3000;50|l 1400;50|l 1250;25|l 500;50|l 2000;50|l 1500;50"_s;
    QTest::newRow("superior") << ResultKind::Superior << court << plain;
    QTest::newRow("idaho") << ResultKind::Idaho << court
                           << u"l 3000;50|l 1800;50|l 1250;25|l 500;50|l 2000;50|l 1500;50"_s;
    QTest::newRow("bankruptcy")
        << ResultKind::Bankruptcy
        << u"Participant Name|Case Number|Date Filed|Description|Location|Role/Parties"_s << plain;
    QTest::newRow("index") << ResultKind::Index << court << plain;
    QTest::newRow("district, civil")
        << ResultKind::DiscisCivil << u"Name|Case No.|LEA|Court|Type|Status|Party|Vio./File Date"_s
        << u"l 2700;50|l 1200;50|l 700;50|l 2000;50|l 600;25|l 800;25|l 800;25|l 1250;50"_s;
    const QString nonCivil =
        u"Participant Name|Case Number|L.E.A.|Court|Type|Status|Party|Vio./File Date"_s;
    const QString nonCivilFormats =
        u"l 2800;50|l 1600;50|l 1200;50|l 1200;50|l 700;25|l 700;25|l 700;25|l 1250;25"_s;
    QTest::newRow("district, statewide")
        << ResultKind::DiscisStatewide << nonCivil << nonCivilFormats;
    QTest::newRow("district, addresses")
        << ResultKind::DiscisAddresses << nonCivil << nonCivilFormats;
    QTest::newRow("names, statewide")
        << ResultKind::NamesStatewide
        << u"Participant Name|Sex|D.O.B.|Race|Height|Weight|Physical Desc.|Notes"_s
        << u"l 2800;50|l 600;50|l 1150;50|l 800;50|l 800;50|l 800;50|l 1900;50|l 1200;25"_s;
    QTest::newRow("names, addresses")
        << ResultKind::NamesAddresses
        << u"Participant Name|Sex|D.O.B.|Adddress|Race|Ht.|Wt.|Phys. Desc."_s
        << u"l 2700;50|l 600;50|l 1150;50|l 2400;50|l 700;50|l 600;50|l 600;50|l 1300;25"_s;
}

void tst_ResultsReport::columns()
{
    QFETCH(ResultKind, kind);
    const auto record = ReportedSearch(kind);
    record->Rows.AddRow(RowOf(kind));
    const Report report = compose(*record);
    QTEST(cellsOf(report, BlockKind::ColumnHeads).value(0).join(u'|'), "heads");
    QStringList formats;
    int yielding = 0;
    for (const ColumnFormat &format : formatsOfRows(report)) {
        formats.append(written(format));
        yielding += format.Yields ? 1 : 0;
    }
    QTEST(formats.join(u'|'), "formats");
    // Where there is a description, it gives way; the others fit a page of either size.
    QCOMPARE(yielding, report.Blocks.at(0).Cells.value(0).isEmpty() || formats.size() == 8 ? 0 : 1);
}

void tst_ResultsReport::everyKindHasItsCells_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("cells");
    const QString six = u"0|1|2|3|4|5"_s;
    const QString eight = u"0|1|2|3|4|5|6|7"_s;
    QTest::newRow("superior") << ResultKind::Superior << six;
    QTest::newRow("idaho") << ResultKind::Idaho << six;
    QTest::newRow("bankruptcy, without its command") << ResultKind::Bankruptcy << six;
    QTest::newRow("index, without title and date") << ResultKind::Index << u"0|1|2|3|5|6"_s;
    QTest::newRow("district, civil") << ResultKind::DiscisCivil << eight;
    QTest::newRow("district, statewide") << ResultKind::DiscisStatewide << eight;
    QTest::newRow("district, addresses: the agency under its head")
        << ResultKind::DiscisAddresses << u"0|1|3|2|4|5|6|7"_s;
    QTest::newRow("names, statewide") << ResultKind::NamesStatewide << eight;
    QTest::newRow("names, addresses") << ResultKind::NamesAddresses << eight;
}

void tst_ResultsReport::everyKindHasItsCells()
{
    QFETCH(ResultKind, kind);
    const auto record = ReportedSearch(kind);
    QStringList numbers;
    for (int i = 0; i < 8; ++i)
        numbers.append(QString::number(i));
    record->Rows.AddRow(numbers);
    QTEST(cellsOf(compose(*record), BlockKind::Row).value(0).join(u'|'), "cells");
}

void tst_ResultsReport::theDescriptionIsAsWideAsItsLongest()
{
    const auto record = ReportedSearch();
    for (const QString &description : {u"TORT"_s, u"DISSOLUTION WITH CHILDREN"_s, u"MINOR"_s})
        record->Rows.AddRow({u"A"_s, u"1"_s, {}, description});
    const ColumnFormat format = formatsOfRows(compose(*record)).at(3);
    QCOMPARE(format.Width, 25 * 100 + 100);
    QVERIFY(format.Yields);
}

void tst_ResultsReport::noDescriptions()
{
    const auto record = ReportedSearch();
    record->Rows.AddRow({u"A"_s, u"1"_s});
    QCOMPARE(written(formatsOfRows(compose(*record)).at(3)), u"l 2001;50"_s);
}

void tst_ResultsReport::aNameIsBrokenAt2700()
{
    const auto record = ReportedSearch();
    QCOMPARE(formatsOfRows(compose(*record)).at(0).WrapAt, 2700);
    const auto names = ReportedSearch(ResultKind::NamesAddresses);
    QCOMPARE(formatsOfRows(compose(*names)).at(0).WrapAt, 2700);
}

void tst_ResultsReport::anIndexRowHasALineMore()
{
    const auto record = ReportedSearch(ResultKind::Index);
    record->Rows.AddRow(RowOf(record->Kind));
    const Report report = compose(*record);
    QCOMPARE(firstCells(report, BlockKind::RowLine),
             QStringList(u"              Case Title:   SMITH VS JONES               Effective "
                         "Date:  03/04/2002"_s));
    QVERIFY(firstCells(compose(*ReportedSearch()), BlockKind::RowLine).isEmpty());
}

void tst_ResultsReport::theCount_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("none") << 0 << false << u"This search found 0 Matching Records"_s;
    QTest::newRow("three, one of them in two rows")
        << 3 << false << u"This search found 3 Matching Records"_s;
    QTest::newRow("incomplete") << 2 << true
                                << u"This Incomplete Search Found 2 Matching Records"_s;
}

void tst_ResultsReport::theCount()
{
    QFETCH(int, rows);
    QFETCH(bool, incomplete);
    const auto record = ReportedSearch();
    record->SearchIncomplete = incomplete;
    for (int i = 0; i < rows; ++i)
        record->Rows.AddRow({QString(60, u'N'), u"1"_s});
    QTEST(firstCells(compose(*record), BlockKind::Total).join(u'|'), "sentence");
}

void tst_ResultsReport::theLastLine()
{
    ReportSituation situation = OnAMorning();
    situation.StopRequested = true;
    const Report report = compose(*ReportedSearch(), situation);
    QCOMPARE(report.Blocks.last().Cells,
             QStringList(u"<------ End of Report: User Stopped Search. Some Results may not have "
                         "been retrieved! ------>"_s));
    // The line says it, and no warning does.
    QVERIFY(firstCells(report, BlockKind::Warning).isEmpty());
}

void tst_ResultsReport::noRows()
{
    const Report report = compose(*ReportedSearch());
    QCOMPARE(cellsOf(report, BlockKind::ColumnHeads).size(), 1);
    QCOMPARE(report.Blocks.last().Cells, QStringList(u"<------ End of Report ------>"_s));
}

void tst_ResultsReport::aListThatBecameANote()
{
    const auto record = ReportedSearch();
    record->TooManyToList = true;
    record->Rows.AddRow({u"More than 200 results were found."_s});
    const Report report = compose(*record);
    QCOMPARE(cellsOf(report, BlockKind::ColumnHeads).value(0).value(0), u"Participant Name"_s);
    QCOMPARE(cellsOf(report, BlockKind::Row).value(0),
             (QStringList{u"More than 200 results were found."_s, {}, {}, {}, {}, {}}));
}

void tst_ResultsReport::peopleOfOneName()
{
    const auto record = ReportedSearch(ResultKind::DiscisStatewide);
    record->Rows.AddRow({u"A CASE"_s});
    RowTable names;
    names.AddRow({u"SMITH, JOHN"_s, u"M"_s, u"01/02/1960"_s, u"W"_s, u"600"_s, u"180"_s, u"SCAR"_s,
                  u"none"_s});
    names.AddRow({u"SMITH, JON"_s});
    const Report report =
        ComposeResults(*record, {&names, ResultKind::NamesStatewide}, OnAMorning(), &byCharacters);
    QCOMPARE(cellsOf(report, BlockKind::Row).value(0).join(u'|'),
             u"SMITH, JOHN|M|01/02/1960|W|600|180|SCAR|none"_s);
    QCOMPARE(firstCells(report, BlockKind::Total),
             QStringList(u"This search found 2 Matching Records"_s));
}

void tst_ResultsReport::columnFormats_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("right");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("gap");
    QTest::newRow("right") << u"r 1200;200"_s << true << 1200 << 200;
    QTest::newRow("left") << u"l 3000;50"_s << false << 3000 << 50;
}

void tst_ResultsReport::columnFormats()
{
    QFETCH(QString, text);
    const ColumnFormat format = ColumnFormatOf(text);
    QTEST(format.Alignment == Qt::AlignRight, "right");
    QTEST(format.Width, "width");
    QTEST(format.Gap, "gap");
}

HALVANE_TEST(tst_ResultsReport)
#include "tst_ResultsReport.moc"
