#include "history/UsageReport.h"

#include "core/TextUtilities.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView title = u"Halvane - Usage by Client Code";
constexpr int textColumns = 2; ///< the others are numbers

struct UsageColumn
{
    QStringView Head;
    QStringView Format; ///< on paper
    int Characters;     ///< in a text file
};
constexpr std::array<UsageColumn, 7> columns{{
    {u"Month", u"l 1100;100", 8},
    {u"Client Code", u"l 3000;100", 30},
    {u"Searches", u"r 1000;150", 10},
    {u"Requests", u"r 1000;150", 10},
    {u"Cases", u"r 1000;150", 10},
    {u"Tabs", u"r 1000;150", 10},
    {u"Documents", u"r 1100;150", 10},
}};

QStringList headLines(const ReportSituation &situation)
{
    QStringList lines{title.toString(), u" "_s, u" Date Printed: "_s + situation.DatePrinted};
    if (!situation.ReportedBy.isEmpty())
        lines << u"  Reported By: "_s + situation.ReportedBy;
    lines << u" "_s;
    return lines;
}

QString textLine(const QStringList &cells)
{
    QStringList padded;
    for (size_t i = 0; i < columns.size(); ++i)
        padded.append(PadString(cells.value(static_cast<qsizetype>(i)), columns.at(i).Characters,
                                i < textColumns ? PadAlignment::Left : PadAlignment::Right));
    return padded.join(u"  "_s);
}
} // namespace

QStringList UsageHeads()
{
    QStringList heads;
    for (const UsageColumn &column : columns)
        heads.append(column.Head.toString());
    return heads;
}

QStringList UsageCells(const HistoryUsage &line)
{
    QStringList cells{line.Month, line.ClientCode.isEmpty() ? u"(none)"_s : line.ClientCode};
    for (const int figure : {line.Searches, line.Requests, line.Cases, line.Tabs, line.Documents})
        cells.append(QString::number(figure));
    return cells;
}

HistoryUsage TotalUsage(const QList<HistoryUsage> &lines)
{
    HistoryUsage total;
    total.Month = u"Total"_s;
    total.ClientCode = u"all codes"_s;
    for (const HistoryUsage &line : lines) {
        total.Searches += line.Searches;
        total.Requests += line.Requests;
        total.Cases += line.Cases;
        total.Tabs += line.Tabs;
        total.Documents += line.Documents;
    }
    return total;
}

Report ComposeUsage(const QList<HistoryUsage> &lines, const ReportSituation &situation)
{
    Report report;
    report.Title = title.toString();
    report.Add(BlockKind::Title, {report.Title});
    report.Add(BlockKind::Blank);
    const int head = report.AddTable({ColumnFormatOf(u"r 1200;200"), ColumnFormatOf(u"l 6000;0")});
    report.Add(BlockKind::HeadRow, {u"Date Printed:"_s, situation.DatePrinted}, head);
    if (!situation.ReportedBy.isEmpty())
        report.Add(BlockKind::HeadRow, {u"Reported By:"_s, situation.ReportedBy}, head);
    report.Add(BlockKind::Blank);
    QList<ColumnFormat> formats;
    for (const UsageColumn &column : columns)
        formats.append(ColumnFormatOf(column.Format));
    const int table = report.AddTable(formats);
    report.Add(BlockKind::ColumnHeads, UsageHeads(), table);
    for (const HistoryUsage &line : lines)
        report.Add(BlockKind::Row, UsageCells(line), table);
    report.Add(BlockKind::Closing);
    report.Add(BlockKind::Row, UsageCells(TotalUsage(lines)), table);
    AddClosingLine(report, false);
    return report;
}

ReportText UsageText(const QList<HistoryUsage> &lines, const ReportSituation &situation)
{
    ReportText text(headLines(situation));
    const QString heads = textLine(UsageHeads());
    const QString rule(heads.size(), u'_');
    text.AddLine(heads);
    text.AddLine(rule);
    for (const HistoryUsage &line : lines)
        text.AddLine(textLine(UsageCells(line)));
    text.AddLine(rule);
    text.AddLine(textLine(UsageCells(TotalUsage(lines))));
    text.AddLine(u" "_s);
    text.AddLine(ClosingLine(false));
    return text;
}
