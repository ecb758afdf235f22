#include "casedetails/CaseLinks.h"

#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"
#include "courts/CourtTable.h"
#include "link/RequestLine.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
/// The request in a line of List1, which holds the command and the number of its row, each closed
/// by "^". "" for a row without a command.
QString requestIn(const QString &line)
{
    const QString command = line.section(u'^', 0, -3);
    return HoldsRetrieveCommand(command) ? TrimBlanks(WithoutRetrieveCommand(command)) : QString();
}

QStringList cellsOf(const GridTable &table, int row)
{
    return row < 1 ? QStringList() : table.Rows.value(table.HasHeader ? row - 1 : row);
}
} // namespace

std::optional<CaseStart> ListedCase(const CaseRecord &record, int row)
{
    // The second column is the type, and a row without one is no case.
    const QString type = cellsOf(record.Tab(CaseTab::Summary).Table, row).value(1);
    const QString request = requestIn(record.List1.value(row - 1));
    if (!record.chkBKYass || type.isEmpty() || request.isEmpty())
        return std::nullopt;
    CaseStart start;
    start.lblCourtName = record.lblCourtName;
    start.lblState = record.lblState;
    start.txtCaseNumber = record.txtCaseNumber;
    start.SetHeading(record.lblCaseDetailsHdr);
    start.Caption = record.Caption;
    start.chkBK = true;
    start.SetTitle(u"Bankruptcy"_s);
    start.ClientAcctgCode = record.ClientAcctgCode;
    start.tboxCaseNumberQueue = request;
    start.TabRequests = {request};
    return start;
}

QString AssociatedCase(const CaseRecord &record, int row)
{
    const QStringList cells = cellsOf(record.Tab(CaseTab::Summary).Table, row);
    const bool associated = !record.chkBKYass && cells.value(0) == u"Associated Case:";
    return associated ? cells.value(1) : QString();
}

QString CaseOfJudgment(const CaseRecord &record, int row)
{
    static const QRegularExpression pattern(u"^\\d{2}-\\d-\\d{5}-\\d$"_s);
    if (record.lblState != u"WA")
        return {};
    const GridTable &table = record.Tab(CaseTab::Judgments).Table;
    for (const QString &text : cellsOf(table, row).mid(0, table.Columns.size())) {
        const QString cell = TrimBlanks(text);
        if (pattern.match(cell).hasMatch())
            return cell;
    }
    return {};
}

CaseStart CaseOfCounty(const CaseRecord &record, const QString &number)
{
    const QString asked = TrimBlanks(number).toUpper();
    CaseStart start;
    start.lblState = u"WA"_s;
    start.txtCountyName = record.txtCountyName;
    start.txtCaseNumber = asked;
    start.tboxCaseNumberQueue =
        ComposeLine(fieldBar, {CourtOf(CourtFamily::Superior).Word.toString(), u"SUMMARY"_s})
        + asked;
    start.SetHeading(u"Case Details ("_s + asked + u')');
    start.lblCourtName = CourtsOfCounty(record.txtCountyName, CourtFamily::Superior);
    start.SetTitle(u"Pending .. "_s);
    start.ClientAcctgCode = record.ClientAcctgCode;
    return start;
}
