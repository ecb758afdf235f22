// What double clicks in a case window open: other cases, each in a window of its own.

#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/CaseMarks.h"
#include "courts/CourtTable.h"
#include "link/RequestLine.h"
#include "session/LoginOffer.h"
#include "session/NewWindow.h"
#include "tables/FlexGrid.h"

#include <QLabel>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
/// The request in a line of List1, which holds the command and the number of its row, each closed
/// by
/// "^". "" for a row without a command.
QString requestIn(const QString &line)
{
    const QString command = line.section(u'^', 0, -3);
    return HoldsRetrieveCommand(command) ? TrimBlanks(WithoutRetrieveCommand(command)) : QString();
}

/// The first cell of a row that reads like a number of the Superior Courts, "" when none does.
QString caseNumberIn(const FlexGrid &grid, int row)
{
    static const QRegularExpression pattern(u"^\\d{2}-\\d-\\d{5}-\\d$"_s);
    for (int column = 0; column < grid.Cols(); ++column) {
        const QString cell = TrimBlanks(grid.Cell(row, column));
        if (pattern.match(cell).hasMatch())
            return cell;
    }
    return {};
}

/// The code that a further retrieval is billed to: the one in force, which the user may have
/// changed since the case was opened.
QString codeInForce(const QString &codeOfCase)
{
    const QString code = FoldToUpper(TrimBlanks(Global.ClientAcctgCode));
    return code.isEmpty() ? codeOfCase : code;
}

/// Whether a search may begin; asks for the login otherwise.
bool mayBegin(QWidget *window)
{
    if (Global.bLoggedIn)
        return true;
    if (OfferLogin(window))
        ShowLoginModally();
    return Global.bLoggedIn;
}
} // namespace

void frmCaseDetails::GridSummary_DblClick(int row)
{
    const RunScope scope(this);
    const FlexGrid &grid = *Tab(CaseTab::Summary).Grid;
    if (row < 1 || (grid.Cell(row, 0) != u"Associated Case:" && !chkBKYass))
        return;
    // In a list of several cases this is the type, and a row without one is no case.
    const QString number = grid.Cell(row, 1);
    const QString listed = requestIn(List1.value(row - 1));
    if (number.isEmpty() || (chkBKYass && listed.isEmpty()) || !mayBegin(this))
        return;
    if (chkBKYass)
        openListedCase(listed);
    else
        DoCaseNumberSearchAss(number);
}

void frmCaseDetails::GridJudgment_DblClick(int row)
{
    const RunScope scope(this);
    const FlexGrid &grid = *Tab(CaseTab::Judgments).Grid;
    const QString number = row < 1 ? QString() : caseNumberIn(grid, row);
    if (lblState != u"WA" || number.isEmpty() || !mayBegin(this))
        return;
    DoCaseNumberSearchJudgment(number);
}

void frmCaseDetails::openListedCase(const QString &request)
{
    NewWindow form(new frmCaseDetails);
    form->SetCourtName(lblCourtName());
    form->lblState = lblState;
    form->txtCaseNumber = txtCaseNumber;
    form->SetCaseDetailsHdr(lblCaseDetailsHdr());
    form->setWindowTitle(windowTitle());
    form->chkBK = true;
    form->SetCaseTitle(u"Bankruptcy"_s);
    form->ClientAcctgCode = codeInForce(ClientAcctgCode);
    form->tboxCaseNumberQueue = request;
    form->lboxTabReqQueue.Clear();
    form->lboxTabReqQueue.AddItem(request);
    form.GiveKey();
    form.Launch();
}

bool frmCaseDetails::DoCaseNumberSearchAss(const QString &number)
{
    return openCaseOfCounty(number, u"DoCaseNumberSearchAss"_s);
}

bool frmCaseDetails::DoCaseNumberSearchJudgment(const QString &number)
{
    return openCaseOfCounty(number, u"DoCaseNumberSearchJudgment"_s);
}

bool frmCaseDetails::openCaseOfCounty(const QString &number, const QString &procedure)
{
    try {
        const QString asked = TrimBlanks(number).toUpper();
        NewWindow form(new frmCaseDetails);
        form->lblState = u"WA"_s;
        form->txtCountyName = txtCountyName;
        form->txtCaseNumber = asked;
        form->tboxCaseNumberQueue =
            ComposeLine(fieldBar, {CourtOf(CourtFamily::Superior).Word.toString(), u"SUMMARY"_s})
            + asked;
        form->SetCaseDetailsHdr(u"Case Details ("_s + asked + u')');
        form->SetCourtName(CourtsOfCounty(txtCountyName, CourtFamily::Superior));
        form->SetCaseTitle(u"Pending .. "_s);
        form->ClientAcctgCode = codeInForce(ClientAcctgCode);
        form.GiveKey();
        form.Launch();
        return true;
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error Executing Case Number Search: frmCaseDetails::"_s + procedure
                     + u"(): Error: "_s + error.Description());
        return false;
    }
}
