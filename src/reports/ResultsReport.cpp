#include "reports/ResultsReport.h"

#include "core/Windows1252.h"
#include "reports/ResultsTables.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView incompleteWarning =
    u"WARNING:  This Search is Incomplete! Some results may not have been retrieved.";
constexpr QStringView labelFormat = u"r 1200;200";
constexpr QStringView valueFormat = u"l 3000;200";
constexpr QStringView emptyDescriptionFormat = u"l 2001;50";
constexpr int numberCell = 1;

// On paper
constexpr int descriptionRoom = 100; ///< twips behind the longest description
constexpr int nameWrap = 2700;       ///< twips; a wider name is broken

// In a text file
constexpr int countyCharacters = 110;
constexpr QStringView countyIndent = u"               ";

/// What a report says in its head, in both of its forms.
struct ResultsHead
{
    QString Title;
    QString ClientMatter;
    QStringList Warnings;
    bool Incomplete = false;
};

bool isMarkedArchived(QByteArrayView number)
{
    return number.startsWith('*') || number.startsWith(">>*");
}

bool holdsArchived(const RowTable &rows)
{
    std::array<QByteArrayView, numberCell + 1> cells;
    for (int row = 0; row < rows.Count(); ++row) {
        rows.ViewCells(row, cells);
        if (isMarkedArchived(cells[numberCell]))
            return true;
    }
    return false;
}

ResultsHead headOf(const ResultsRecord &record, const ReportedList &list,
                   const ReportSituation &situation)
{
    ResultsHead head;
    head.Title = (record.chkIndexSearch ? u"Halvane Search Index Results for: "_s
                                        : u"Halvane Search Results for: "_s)
                 + record.lblNameVal;
    head.ClientMatter = FoldToUpper(TrimBlanks(record.ClientAcctgCode));
    head.Incomplete = record.SearchIncomplete || situation.GoesOn;
    if (head.Incomplete)
        head.Warnings.append(incompleteWarning.toString());
    if (record.StopWarningFlag)
        head.Warnings.append(stoppedWarning.toString());
    if (holdsArchived(*list.Rows))
        head.Warnings.append(archivedNote.toString());
    return head;
}

QString totalOf(int rows, bool incomplete)
{
    return (incomplete ? u"This Incomplete Search Found "_s : u"This search found "_s)
           + QString::number(rows) + u" Matching Records"_s;
}

bool isIndex(const ReportedList &list)
{
    return list.Kind == ResultKind::Index;
}

// The printed report

void addHeadTable(Report &report, const ResultsRecord &record, const ResultsHead &head,
                  const ReportSituation &situation, const TextMeasure &textWidth)
{
    const ColumnFormat value = ColumnFormatOf(valueFormat);
    const int table = report.AddTable({ColumnFormatOf(labelFormat), value});
    const auto add = [&](const QString &label, const QString &text) {
        report.Add(BlockKind::HeadRow, {label, text}, table);
    };
    add(u"Date Printed:"_s, situation.DatePrinted);
    add(u"Sorted By:"_s, TrimBlanks(record.SortColumnName));
    add(u"Case Types:"_s, record.lblCaseTypeVals);
    QStringList counties;
    WrapTextByWidth(record.txtCountyList, value.Width, textWidth, counties);
    add(u"Court(s):"_s, TrimBlanks(counties.value(0)));
    for (qsizetype i = 1; i < counties.size(); ++i)
        add({}, TrimBlanks(counties.at(i)));
    if (!head.ClientMatter.isEmpty())
        add(u"Client Matter:"_s, head.ClientMatter);
    if (!situation.ReportedBy.isEmpty())
        add(u"Reported By:"_s, situation.ReportedBy);
}

/// The one with the most characters: measuring each would cost more than the column is worth.
QString longestCell(const RowTable &rows, int cell)
{
    QString longest;
    for (int row = 0; row < rows.Count(); ++row)
        if (QString text = rows.Cell(row, cell); text.size() > longest.size())
            longest = std::move(text);
    return longest;
}

ColumnFormat formatOf(const ReportColumn &column, const RowTable &rows,
                      const TextMeasure &textWidth)
{
    if (!column.Format.isEmpty())
        return ColumnFormatOf(column.Format);
    const QString longest = longestCell(rows, column.Cell);
    ColumnFormat format = ColumnFormatOf(emptyDescriptionFormat);
    if (!longest.isEmpty())
        format.Width = static_cast<int>(textWidth(longest)) + descriptionRoom;
    format.Yields = true;
    return format;
}

void addRows(Report &report, const ReportedList &list, const TextMeasure &textWidth)
{
    const std::span<const ReportColumn> columns = ReportColumnsOf(list.Kind);
    QList<ColumnFormat> formats;
    QStringList heads;
    for (const ReportColumn &column : columns) {
        formats.append(formatOf(column, *list.Rows, textWidth));
        heads.append(column.Head.toString());
    }
    formats.first().WrapAt = std::min(nameWrap, formats.first().Width);
    const int table = report.AddTable(formats);
    report.Add(BlockKind::ColumnHeads, heads, table);
    report.Blocks.reserve(report.Blocks.size() + list.Rows->Count());
    for (int row = 0; row < list.Rows->Count(); ++row) {
        const QStringList all = list.Rows->Cells(row);
        QStringList cells;
        cells.reserve(static_cast<qsizetype>(columns.size()));
        for (const ReportColumn &column : columns)
            cells.append(all.value(column.Cell));
        report.Add(BlockKind::Row, cells, table);
        if (isIndex(list))
            report.Add(BlockKind::RowLine,
                       {u"              Case Title:   "_s + all.value(indexTitleCell)
                        + u"               Effective Date:  "_s + all.value(indexDateCell)});
    }
}

// The text file

QStringList headLines(const ResultsRecord &record, const ResultsHead &head,
                      const ReportSituation &situation)
{
    QStringList lines{head.Title, u" "_s, u" Date Printed: "_s + situation.DatePrinted,
                      u"    Sorted By: "_s + record.SortColumnName,
                      u"   Case Types: "_s + record.lblCaseTypeVals};
    QStringList counties;
    WrapTextByLength(record.txtCountyList, countyCharacters, counties);
    lines << u"     Court(s): "_s + counties.value(0);
    for (qsizetype i = 1; i < counties.size(); ++i)
        lines << countyIndent + counties.at(i);
    if (!head.ClientMatter.isEmpty())
        lines << u"Client Matter: "_s + head.ClientMatter;
    if (!situation.ReportedBy.isEmpty())
        lines << u"Reported By: "_s + situation.ReportedBy;
    lines << u" "_s;
    for (const QString &warning : head.Warnings)
        lines << u" "_s << warning;
    lines << u" "_s;
    return lines;
}

/// The cells of the rows of a list, one row at a time.
class RowReader
{
public:
    explicit RowReader(const ReportedList &reported)
        : list(reported), columns(ReportColumnsOf(list.Kind))
    {
    }

    size_t Columns() const { return columns.size(); }
    /// The cells of this row in the order of the columns.
    std::span<const QByteArrayView> Read(int row)
    {
        list.Rows->ViewCells(row, all);
        for (size_t i = 0; i < columns.size(); ++i)
            shown[i] = all[static_cast<size_t>(columns[i].Cell)];
        return {shown.data(), columns.size()};
    }
    /// Any cell of the row that was read.
    QString Cell(int cell) const { return QString::fromUtf8(all[static_cast<size_t>(cell)]); }

private:
    ReportedList list;
    std::span<const ReportColumn> columns;
    std::array<QByteArrayView, mostReportCells> all;
    std::array<QByteArrayView, mostReportCells> shown;
};

/// The longest cell of each column, in characters.
QList<int> columnWidths(const ReportedList &list)
{
    QList<int> widths;
    for (const ReportColumn &column : ReportColumnsOf(list.Kind))
        widths.append(list.Rows->LongestCell(column.Cell));
    return widths;
}

/// The heads of the columns, each filled up to the width of its column.
QString headLine(const ReportedList &list, const QList<int> &widths)
{
    QStringList heads;
    for (const ReportColumn &column : ReportColumnsOf(list.Kind))
        heads.append(PadString(column.FileHead.toString(), widths.at(heads.size())));
    return heads.join(u"  "_s);
}

void addRowLines(ReportText &text, const ReportedList &list)
{
    const int rows = list.Rows->Count();
    RowReader reader(list);
    const QList<int> widths = columnWidths(list);
    const QString head = headLine(list, widths);
    const QString rule(head.size(), u'_');
    text.AddLine(head);
    text.AddLine(rule);
    text.Reserve(rows, std::accumulate(widths.begin(), widths.end(), 2 * widths.size()));
    for (int row = 0; row < rows; ++row) {
        text.AddCells(reader.Read(row), widths);
        if (!isIndex(list))
            continue;
        text.AddLine(QString(widths.first(), u' ') + u"     Case Title:   "_s
                     + reader.Cell(indexTitleCell) + u"    Effective Date:  "_s
                     + reader.Cell(indexDateCell));
        text.AddLine(u" "_s);
    }
    text.AddLine(rule);
}
} // namespace

ReportedList CasesOf(const ResultsRecord &record)
{
    return {&record.Rows, record.Kind};
}

Report ComposeResults(const ResultsRecord &record, const ReportedList &list,
                      const ReportSituation &situation, const TextMeasure &textWidth)
{
    const ResultsHead head = headOf(record, list, situation);
    Report report;
    report.Title = head.Title;
    report.Add(BlockKind::Title, {head.Title});
    report.Add(BlockKind::Blank);
    addHeadTable(report, record, head, situation, textWidth);
    for (const QString &warning : head.Warnings) {
        report.Add(BlockKind::Blank);
        report.Add(BlockKind::Warning, {warning});
    }
    report.Add(BlockKind::Blank);
    addRows(report, list, textWidth);
    report.Add(BlockKind::Closing);
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Total, {totalOf(list.Rows->Count(), head.Incomplete)});
    AddLegalText(report);
    AddClosingLine(report, situation.StopRequested);
    return report;
}

ReportText ResultsText(const ResultsRecord &record, const ReportedList &list,
                       const ReportSituation &situation)
{
    const ResultsHead head = headOf(record, list, situation);
    ReportText text(headLines(record, head, situation));
    addRowLines(text, list);
    // The same sentence for every search: that it is incomplete stands in the head.
    QStringList closing{u" "_s, totalOf(list.Rows->Count(), false), u" "_s};
    AppendClosingLines(closing, situation.StopRequested);
    for (const QString &line : std::as_const(closing))
        text.AddLine(line);
    return text;
}
