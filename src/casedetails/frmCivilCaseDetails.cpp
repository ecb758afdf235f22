#include "casedetails/frmCivilCaseDetails.h"

#include "casedetails/DiscisSummary.h"
#include "ui_frmCivilCaseDetails.h"

frmCivilCaseDetails::frmCivilCaseDetails(QWidget *parent)
    : DiscisCaseWindow(CaseKind::Civil, parent), ui(std::make_unique<Ui::frmCivilCaseDetails>())
{
    ui->setupUi(this);
    UseTab(CaseTab::Summary, ui->frameTabs_0, ui->GridSummary);
    UseTab(CaseTab::Names, ui->frameTabs_1, ui->GridNames);
    UseTab(CaseTab::Docket, ui->frameTabs_2, ui->GridDocket);
    UseTab(CaseTab::Judgments, ui->frameTabs_4, ui->GridJudgment);
    UseNotes(CaseTab::Summary, ui->lblNote, nullptr);
    UseNotes(CaseTab::Names, ui->lblNameNote1, ui->lblNameNote2);
    UseNotes(CaseTab::Docket, ui->lblNoteCDK1, ui->lblNoteCDK2);
    UseNotes(CaseTab::Judgments, ui->lblCvjiNote1, ui->lblCvjiNote2);
    UseCaseTitle(ui->lblCaseTitle);
    UseDiscisControls(*ui);
    SetCaseType(QStringLiteral("CIVIL  CV"));
}

frmCivilCaseDetails::~frmCivilCaseDetails() = default;

void frmCivilCaseDetails::ShowOwnFields(const DiscisSummaryView &view)
{
    SetText(ui->lblCause, view.Cause);
    SetText(ui->lblSuitAmt, view.SuitAmt);
}
