#include "reports/CaseReport.h"

#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/CaseMarks.h"
#include "tables/ColumnShares.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView incompleteMark = u"< WARNING:  Information Incomplete > ";
constexpr QStringView docketEnd = u"End of Docket";
constexpr QStringView notCompletedWarning =
    u"WARNING:  This Search was NOT completed. Some results may not have been retrieved.";
constexpr QStringView associatedWarning =
    u"WARNING:  This Search Found Assoicated Cases for the Case Entered. Please Select a Case to "
    "Review.";

constexpr QStringView labelFormat = u"r 2000;200";
constexpr QStringView valueFormat = u"l 6000;200";
constexpr int columnGap = 350;  ///< twips
constexpr int leastWidth = 400; ///< of a column, as long as there is room
constexpr double whole = 100.0;

constexpr int labelLength = 14;        ///< of the longest label in a text file
constexpr qsizetype longestCell = 250; ///< that makes the column of a text file wider
constexpr QStringView emptyLine = u" ";
constexpr QStringView betweenColumns = u"  ";

/// A row at the head of a report.
struct HeadRow
{
    QString Label;
    QString Value;
};

/// The name of a party stands where other cases have their title.
QList<HeadRow> headOf(const CaseRecord &record, const ReportSituation &situation)
{
    QList<HeadRow> head{{u"Case Title:"_s,
                         record.Kind == CaseKind::NonCivil ? record.lblName : record.lblCaseTitle},
                        {u"Court:"_s, record.lblCourtName},
                        {u"Date Filed:"_s, record.lblDateFiled},
                        {u"Date Printed:"_s, situation.DatePrinted}};
    if (const QString code = FoldToUpper(TrimBlanks(record.ClientAcctgCode)); !code.isEmpty())
        head.append({u"Client Matter:"_s, code});
    if (!situation.ReportedBy.isEmpty())
        head.append({u"Reported By:"_s, situation.ReportedBy});
    return head;
}

/// A Summary whose message says why there is none has nothing more to say, and lacks nothing.
bool isUnfinished(const CaseTabRecord &tab)
{
    return tab.TabIncomplete || (!tab.TabDone && !tab.Table.IsMessage());
}

QStringList warningsOf(const CaseRecord &record, const ReportSituation &situation)
{
    QStringList warnings;
    const auto add = [&warnings](bool applies, QStringView text) {
        if (applies)
            warnings.append(text.toString());
    };
    add(record.SearchStopped, stoppedWarning);
    add(record.Archived, archivedNote);
    // A search whose Summary broke down has come to no end of its own.
    add(situation.GoesOn || record.AnyTabIncomplete() || isUnfinished(record.Tab(CaseTab::Summary)),
        notCompletedWarning);
    add(record.chkBKYass, associatedWarning);
    return warnings;
}

/// What stands between the name of a tab and its table.
QStringList remarksOn(const CaseTabRecord &tab)
{
    QStringList remarks;
    for (const QString &note : tab.Notes) {
        if (!note.isEmpty())
            remarks.append(note);
    }
    if (isUnfinished(tab))
        remarks.append(incompleteMark.toString());
    return remarks;
}

QList<CaseTab> inReportOrder(const CaseRecord &record, const QList<CaseTab> &tabs)
{
    QList<CaseTab> ordered;
    for (const CaseTab tab : caseReportOrder) {
        if (tabs.contains(tab) && record.TabExists(tab))
            ordered.append(tab);
    }
    return ordered;
}

/// A table as it is reported: the columns that are in sight, and no row longer than they.
struct SeenTable
{
    QList<ColumnShare> Shares;
    QStringList Heads; ///< none when the table has no header
    QList<QStringList> Rows;
    bool Message = false; ///< words in the place of a table
};

QList<qsizetype> columnsInSight(const QList<ColumnShare> &shares)
{
    QList<qsizetype> columns;
    for (qsizetype column = 0; column < shares.size(); ++column) {
        if (shares[column].Fixed != 0)
            columns.append(column);
    }
    return columns;
}

/// The screen has more room for this label than paper.
QString reportedCell(const QString &cell, bool civilSummary)
{
    return civilSummary && cell == u"Suit Amount: " ? u"Suit Amt: "_s : OneLine(cell);
}

SeenTable seenTable(const CaseRecord &record, CaseTab tab)
{
    const GridTable &table = record.Tab(tab).Table;
    QList<double> percents;
    for (const GridColumn &column : table.Columns)
        percents.append(column.Percent);
    const QList<ColumnShare> shares = SharesOf(percents);
    const QList<qsizetype> columns = columnsInSight(shares);
    const bool civilSummary = record.Kind == CaseKind::Civil && tab == CaseTab::Summary;
    SeenTable seen;
    seen.Message = table.IsMessage();
    for (const qsizetype column : columns) {
        seen.Shares.append(shares[column]);
        if (table.HasHeader && !seen.Message)
            seen.Heads.append(OneLine(table.Columns[column].Header));
    }
    for (const QStringList &row : table.Rows) {
        QStringList cells;
        cells.reserve(columns.size());
        for (const qsizetype column : columns)
            cells.append(reportedCell(row.value(column), civilSummary && column == 0));
        seen.Rows.append(cells);
    }
    return seen;
}

/// The shares as parts of a whole page: what the columns leave free stays free, and those that ask
/// for more than there is get less, in proportion.
QList<ColumnShare> asWhole(QList<ColumnShare> shares)
{
    if (FillsGrid(shares))
        return shares;
    double sum = 0.0;
    for (ColumnShare &share : shares) {
        share.Percent = std::clamp(share.Percent, 0.0, 2 * whole);
        sum += share.Percent;
    }
    if (sum < whole) {
        shares.append(ColumnShare{whole - sum});
        return shares;
    }
    for (ColumnShare &share : shares)
        share.Percent *= whole / sum;
    return shares;
}

QList<ColumnFormat> formatsOf(const QList<ColumnShare> &shares, int printableWidth)
{
    const int count = static_cast<int>(shares.size());
    if (count == 0)
        return {};
    const int gap = std::min(columnGap, printableWidth / (2 * count));
    const int room = printableWidth - count * gap;
    const QList<ColumnShare> parts = asWhole(shares);
    const int least = std::min(leastWidth, room / static_cast<int>(parts.size()));
    const QList<int> widths = ColumnPixels(parts, room, least);
    QList<ColumnFormat> formats;
    for (int column = 0; column < count; ++column)
        formats.append({.Width = widths[column],
                        .Gap = gap,
                        .Share = static_cast<double>(widths[column]) / room});
    return formats;
}

void addHead(Report &report, const CaseRecord &record, const ReportSituation &situation)
{
    report.Add(BlockKind::Title, {report.Title});
    report.Add(BlockKind::Blank);
    const int table = report.AddTable({ColumnFormatOf(labelFormat), ColumnFormatOf(valueFormat)});
    for (const HeadRow &row : headOf(record, situation))
        report.Add(BlockKind::HeadRow, {row.Label, OneLine(row.Value)}, table);
    for (const QString &warning : warningsOf(record, situation)) {
        report.Add(BlockKind::Blank);
        report.Add(BlockKind::Warning, {warning});
    }
}

void addTab(Report &report, const CaseRecord &record, CaseTab tab, int printableWidth)
{
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Heading, {CaseTabRowOf(tab).caption.toString()});
    for (const QString &remark : remarksOn(record.Tab(tab)))
        report.Add(BlockKind::Text, {OneLine(remark)});
    const SeenTable seen = seenTable(record, tab);
    if (!seen.Shares.isEmpty()) {
        const int table = report.AddTable(formatsOf(seen.Shares, printableWidth));
        if (!seen.Heads.isEmpty())
            report.Add(BlockKind::ColumnHeads, seen.Heads, table);
        for (const QStringList &row : seen.Rows)
            report.Add(BlockKind::Row, row, table);
    }
    if (tab == CaseTab::Docket)
        report.Add(BlockKind::Text, {docketEnd.toString()});
}

/// As TrimBlanks does it, without a copy: a case has many cells.
QStringView withoutBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QList<int> columnLengths(const SeenTable &seen)
{
    QList<int> lengths(seen.Shares.size(), 0);
    const auto measure = [&lengths](const QStringList &cells) {
        for (qsizetype column = 0; column < cells.size(); ++column) {
            const qsizetype length = std::min(withoutBlanks(cells[column]).size(), longestCell);
            lengths[column] = std::max(lengths[column], static_cast<int>(length));
        }
    };
    measure(seen.Heads);
    for (const QStringList &row : seen.Rows)
        measure(row);
    return lengths;
}

int totalLength(const QList<int> &lengths)
{
    int total = static_cast<int>(betweenColumns.size() * (lengths.size() - 1));
    for (const int length : lengths)
        total += length;
    return total;
}

/// The cells as PadString has them, and two blanks between. Blanks behind the last word are nothing
/// that anybody could see.
QString paddedRow(const QStringList &cells, const QList<int> &lengths)
{
    QString line;
    line.reserve(totalLength(lengths));
    for (qsizetype column = 0; column < cells.size(); ++column) {
        const QStringView cell = withoutBlanks(cells[column]);
        if (column > 0)
            line.append(betweenColumns);
        line.append(cell);
        line.resize(line.size() + std::max<qsizetype>(lengths[column] - cell.size(), 0), u' ');
    }
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

void appendHead(QStringList &lines, const CaseRecord &record, const ReportSituation &situation)
{
    lines << CaseReportTitle(record) << emptyLine.toString();
    for (const HeadRow &row : headOf(record, situation))
        lines.append(PadString(row.Label, labelLength, PadAlignment::Right) + u' '
                     + OneLine(row.Value));
    for (const QString &warning : warningsOf(record, situation))
        lines << emptyLine.toString() << warning;
}

void appendTab(QStringList &lines, const CaseRecord &record, CaseTab tab)
{
    lines << emptyLine.toString() << CaseTabRowOf(tab).caption.toString();
    for (const QString &remark : remarksOn(record.Tab(tab)))
        lines.append(OneLine(remark));
    const SeenTable seen = seenTable(record, tab);
    const QList<int> lengths = columnLengths(seen);
    if (!seen.Heads.isEmpty())
        lines << paddedRow(seen.Heads, lengths) << QString(totalLength(lengths), u'_');
    for (const QStringList &row : seen.Rows)
        lines.append(paddedRow(row, lengths));
    if (tab == CaseTab::Docket)
        lines.append(docketEnd.toString());
}
} // namespace

bool CanBeReported(const CaseRecord &record, CaseTab tab)
{
    if (tab == CaseTab::Summary)
        return true;
    const CaseTabRecord &ofTab = record.Tab(tab);
    const bool keptIncomplete = ofTab.TabIncomplete && !ofTab.TabNotRetrieved;
    return record.TabExists(tab) && (ofTab.TabDone || keptIncomplete);
}

QList<CaseTab> TabsToReport(const CaseRecord &record)
{
    QList<CaseTab> tabs;
    for (const CaseTab tab : caseReportOrder) {
        if (CanBeReported(record, tab))
            tabs.append(tab);
    }
    return tabs;
}

QString CaseReportTitle(const CaseRecord &record)
{
    return u"Halvane Case Details for: "_s + (record.Archived ? u"*"_s : QString())
           + OneLine(CaseNumberOf(record.txtCaseNumber));
}

Report ComposeCase(const CaseRecord &record, const QList<CaseTab> &tabs,
                   const ReportSituation &situation, int printableWidth)
{
    Report report;
    report.Title = CaseReportTitle(record);
    addHead(report, record, situation);
    for (const CaseTab tab : inReportOrder(record, tabs))
        addTab(report, record, tab, printableWidth);
    report.Add(BlockKind::Closing);
    AddLegalText(report);
    AddClosingLine(report, situation.StopRequested);
    return report;
}

QStringList CaseReportLines(const CaseRecord &record, const QList<CaseTab> &tabs,
                            const ReportSituation &situation)
{
    QStringList lines;
    appendHead(lines, record, situation);
    for (const CaseTab tab : inReportOrder(record, tabs))
        appendTab(lines, record, tab);
    lines.append(emptyLine.toString());
    AppendClosingLines(lines, situation.StopRequested);
    return lines;
}
