#include "reports/SampleReports.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<QStringView, 6> names{
    u"ADAMS, JOHN QUINCY", u"BAKER, ANNE",
    u"CLARK, MARY LOU",    u"VAN DER WESTHUIZEN, MAXIMILIAN ALEXANDER",
    u"O'BRIEN, WILLIAM",   u"EVANS, AVA"};
constexpr std::array<QStringView, 5> descriptions{
    u"Tort - Motor Vehicle", u"Dissolution with Children", u"Property Fairness",
    u"Administrative Law Review of a Decision of the Department", u"Probate/Estate"};
constexpr std::array<QStringView, 4> locations{u"King County Superior", u"Pierce County Superior",
                                               u"Snohomish County", u"Walla Walla County"};

void addHead(Report &report)
{
    report.Title = u"Halvane Search Results for: ADAMS, JOHN"_s;
    report.Add(BlockKind::Title, {report.Title});
    report.Add(BlockKind::Blank);
    const int table =
        report.AddTable({ColumnFormatOf(u"r 1200;200"), ColumnFormatOf(u"l 3000;200")});
    report.Add(BlockKind::HeadRow, {u"Date Printed:"_s, u"7/1/2003 2:15:00 PM"_s}, table);
    report.Add(BlockKind::HeadRow, {u"Sorted By:"_s, u"Participant Name"_s}, table);
    report.Add(BlockKind::HeadRow, {u"Case Types:"_s, u"All Case Types"_s}, table);
    report.Add(BlockKind::HeadRow, {u"Court(s):"_s, u"King, Pierce, Snohomish"_s}, table);
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Warning, {stoppedWarning.toString()});
    report.Add(BlockKind::Blank);
}
} // namespace

Report SampleResults(int rows)
{
    Report report;
    addHead(report);
    QList<ColumnFormat> formats;
    for (const QStringView format :
         {u"l 3000;50", u"l 1400;50", u"l 1250;25", u"l 4300;50", u"l 2000;50", u"l 1500;50"})
        formats.append(ColumnFormatOf(format));
    formats[0].WrapAt = 2700;
    formats[3].Yields = true;
    const int table = report.AddTable(formats);
    report.Add(BlockKind::ColumnHeads,
               {u"Participant Name"_s, u"Case Number"_s, u"Date Filed"_s, u"Description"_s,
                u"Location"_s, u"Role"_s},
               table);
    for (int i = 0; i < rows; ++i) {
        const auto pick = [i](const auto &of) {
            return of[static_cast<size_t>(i) % of.size()].toString();
        };
        const QString number = QString::number(i + 1).rightJustified(6, u'0');
        report.Add(BlockKind::Row,
                   {pick(names), u"03-2-"_s + number + u"-1"_s, u"02/11/2003"_s, pick(descriptions),
                    pick(locations), i % 3 ? u"Plaintiff"_s : u"Defendant"_s},
                   table);
    }
    report.Add(BlockKind::Closing);
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Total,
               {u"This search found "_s + QString::number(rows) + u" Matching Records"_s});
    AddLegalText(report);
    AddClosingLine(report, false);
    return report;
}
