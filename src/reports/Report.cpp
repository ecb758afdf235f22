#include "reports/Report.h"

#include "core/Clock.h"
#include "core/GeneralDate.h"
#include "core/GlobalState.h"
#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView legalFormat = u"l 5000;25";
} // namespace

ColumnFormat ColumnFormatOf(QStringView text)
{
    ColumnFormat format;
    format.Alignment = text.startsWith(u'r') ? Qt::AlignRight : Qt::AlignLeft;
    const qsizetype semicolon = text.indexOf(u';');
    constexpr int letterAndBlank = 2;
    format.Width = text.mid(letterAndBlank, semicolon - letterAndBlank).toInt();
    format.Gap = text.mid(semicolon + 1).toInt();
    return format;
}

int Report::AddTable(const QList<ColumnFormat> &columns)
{
    Tables.append(columns);
    return static_cast<int>(Tables.size()) - 1;
}

void Report::Add(BlockKind kind, const QStringList &cells, int table)
{
    Blocks.append({kind, cells, table});
}

ReportSituation SituationNow(bool stopRequested, bool goesOn)
{
    ReportSituation situation;
    situation.DatePrinted = GeneralDate(Clock::Current().Now());
    if (Global.strPrintHdr == u"1")
        situation.ReportedBy = TrimBlanks(Global.strPrintHdrVal);
    situation.StopRequested = stopRequested;
    situation.GoesOn = goesOn;
    return situation;
}

QString ClosingLine(bool stopRequested)
{
    return stopRequested ? u"<------ End of Report: User Stopped Search. Some Results may not have "
                           "been retrieved! ------>"_s
                         : u"<------ End of Report ------>"_s;
}

void AddLegalText(Report &report)
{
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Text, {legalHead.toString()});
    report.Add(BlockKind::Row, {legalSentence.toString()},
               report.AddTable({ColumnFormatOf(legalFormat)}));
}

void AddClosingLine(Report &report, bool stopRequested)
{
    report.Add(BlockKind::Blank);
    report.Add(BlockKind::Text, {ClosingLine(stopRequested)});
}

void AppendClosingLines(QStringList &lines, bool stopRequested)
{
    lines << legalHead.toString() << u" "_s << legalSentence.toString() << u" "_s
          << ClosingLine(stopRequested);
}
