#include "reports/ResultsReport.h"

#include "reports/ResultsTables.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView incompleteWarning =
    u"WARNING:  This Search is Incomplete! Some results may not have been retrieved.";
constexpr QStringView labelFormat = u"r 1200;200";
constexpr QStringView valueFormat = u"l 3000;200";
constexpr int numberCell = 1;

// On paper
constexpr int descriptionRoom = 100;        ///< twips behind the longest description
constexpr int emptyDescriptionWidth = 2001; ///< twips
constexpr int descriptionGap = 50;          ///< twips
constexpr int nameWrap = 2700;              ///< twips; a wider name is broken

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

bool isMarkedArchived(const QString &number)
{
    return number.startsWith(u'*') || number.startsWith(u">>*");
}

bool holdsArchived(const RowTable &rows)
{
    for (int row = 0; row < rows.Count(); ++row)
        if (isMarkedArchived(rows.Cell(row, numberCell)))
            return true;
    return false;
}

ResultsHead headOf(const ResultsRecord &record, const ReportedList &list,
                   const ReportSituation &situation)
{
    ResultsHead head;
    head.Title = (record.chkIndexSearch ? u"Halvane Search Index Results for: "_s
                                        : u"Halvane Search Results for: "_s)
                 + record.lblNameVal;
    head.ClientMatter = TrimBlanks(record.ClientAcctgCode).toUpper();
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
    ColumnFormat format;
    format.Width = longest.isEmpty() ? emptyDescriptionWidth
                                     : static_cast<int>(textWidth(longest)) + descriptionRoom;
    format.Gap = descriptionGap;
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

int characterCount(const RowTable &rows, int cell)
{
    return static_cast<int>(longestCell(rows, cell).size());
}

void appendHead(QStringList &lines, const ResultsRecord &record, const ResultsHead &head,
                const ReportSituation &situation)
{
    lines << head.Title << u" "_s << u" Date Printed: "_s + situation.DatePrinted
          << u"    Sorted By: "_s + record.SortColumnName
          << u"   Case Types: "_s + record.lblCaseTypeVals;
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
}

/// The cells of a line, each filled up to the width of its column, with two blanks between.
QString joined(const QStringList &cells, const QList<int> &widths)
{
    QString line;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0)
            line += u"  ";
        line += PadString(cells.at(i), widths.at(i));
    }
    return line;
}

void appendRows(QStringList &lines, const ReportedList &list)
{
    const std::span<const ReportColumn> columns = ReportColumnsOf(list.Kind);
    QList<int> widths;
    QStringList heads;
    for (const ReportColumn &column : columns) {
        widths.append(characterCount(*list.Rows, column.Cell));
        heads.append(column.FileHead.toString());
    }
    const QString head = joined(heads, widths);
    const QString rule(head.size(), u'_');
    lines << head << rule;
    lines.reserve(lines.size() + list.Rows->Count());
    for (int row = 0; row < list.Rows->Count(); ++row) {
        const QStringList all = list.Rows->Cells(row);
        QStringList cells;
        cells.reserve(static_cast<qsizetype>(columns.size()));
        for (const ReportColumn &column : columns)
            cells.append(all.value(column.Cell));
        lines << joined(cells, widths);
        if (isIndex(list))
            lines << QString(widths.first(), u' ') + u"     Case Title:   "_s
                         + all.value(indexTitleCell) + u"    Effective Date:  "_s
                         + all.value(indexDateCell)
                  << u" "_s;
    }
    lines << rule;
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

QStringList ResultsLines(const ResultsRecord &record, const ReportedList &list,
                         const ReportSituation &situation)
{
    const ResultsHead head = headOf(record, list, situation);
    QStringList lines;
    appendHead(lines, record, head, situation);
    appendRows(lines, list);
    // The same sentence for every search: of an incomplete one the head has told.
    lines << u" "_s << totalOf(list.Rows->Count(), false) << u" "_s;
    AppendClosingLines(lines, situation.StopRequested);
    return lines;
}
