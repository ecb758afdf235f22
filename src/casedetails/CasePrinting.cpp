// The reports of a case window: which tabs are wanted, and where they go.

#include "casedetails/AutomaticPrinting.h"
#include "casedetails/CaseWindow.h"
#include "controls/ModalDialog.h"
#include "core/GlobalState.h"
#include "reports/CaseReport.h"
#include "reports/SaveReport.h"
#include "session/frmMain.h"

/// Nothing when no report is wanted, or the window has gone meanwhile. A later run that waits does
/// not ask for its turn while the user chooses: what is offered would go on changing.
std::optional<QList<CaseTab>> CaseWindow::chooseTabs(dlgPrintMgr::Purpose purpose)
{
    ModalDialog<dlgPrintMgr> dialog(this);
    dialog->SetPurpose(purpose);
    dialog->Offer(Record());
    const bool waits = TmrSearchOnDemand->isActive();
    TmrSearchOnDemand->stop();
    dialog.Run();
    if (waits && !caseJob->IsGivenUp() && caseJob->State() == JobState::Pending)
        TmrSearchOnDemand->start();
    if (dialog.IsGone() || IsUnloaded() || dialog->Tag != u"true")
        return std::nullopt;
    return dialog->Chosen();
}

ReportSituation CaseWindow::situation() const
{
    return SituationNow(StopRequested, caseJob->State() != JobState::Over);
}

Report CaseWindow::composed(const QList<CaseTab> &tabs) const
{
    Report report = ComposeCase(Record(), tabs, situation(), preview->PrintableWidth());
    report.GridLines = printGridLines;
    return report;
}

void CaseWindow::PrintDirect()
{
    const RunScope scope(this);
    const std::optional<QList<CaseTab>> tabs = chooseTabs(dlgPrintMgr::Purpose::Print);
    if (tabs && preview)
        preview->Show(composed(*tabs));
}

void CaseWindow::PrintToFile(const QString &path)
{
    const RunScope scope(this);
    const std::optional<QList<CaseTab>> tabs = chooseTabs(dlgPrintMgr::Purpose::Save);
    if (tabs)
        SaveReport(this, path, [&] { return CaseReportLines(Record(), *tabs, situation()); });
}

void CaseWindow::Print()
{
    lboxReportsToPrint.AddItem(CaseReportTitle(Record()));
    AutomaticPrinting::Of().Add(this);
}

void CaseWindow::PrintWaiting()
{
    const RunScope scope(this);
    lboxReportsToPrint.RemoveItem(0);
    std::optional<QList<CaseTab>> tabs = TabsToReport(Record());
    if (Global.bShowAlerts) {
        // The question does not name its case: the window that it is about stands behind it.
        if (frmMain *main = frmMain::Form())
            main->ShowChildAgain(this);
        tabs = chooseTabs(dlgPrintMgr::Purpose::Print);
    }
    if (tabs && preview)
        preview->PrintAndClose(composed(*tabs));
}
