#include "casedetails/frmNCCaseDetails.h"

#include "ui_frmNCCaseDetails.h"

frmNCCaseDetails::frmNCCaseDetails(QWidget *parent)
    : DiscisCaseWindow(CaseKind::NonCivil, parent), ui(std::make_unique<Ui::frmNCCaseDetails>())
{
    ui->setupUi(this);
    UseTab(CaseTab::Summary, ui->frameTabs_0, ui->GridSummary);
    UseTab(CaseTab::Names, ui->frameTabs_1, ui->GridNames);
    UseTab(CaseTab::Docket, ui->frameTabs_2, ui->GridDocket);
    UseTab(CaseTab::Violations, ui->frameTabs_5, ui->GridViolations);
    UseNotes(CaseTab::Summary, ui->lblNote, ui->lblSumNote2);
    UseNotes(CaseTab::Names, ui->lblNameNote1, ui->lblNameNote2);
    UseNotes(CaseTab::Docket, ui->lblNoteCDK1, ui->lblNoteCDK2);
    UseNotes(CaseTab::Violations, ui->lblNCVIONote1, ui->lblNCVIONote2);
    UseDiscisControls(*ui);
}

frmNCCaseDetails::~frmNCCaseDetails() = default;

void frmNCCaseDetails::ShowHeader()
{
    DiscisCaseWindow::ShowHeader();
    ui->lblName->setText(Record().lblName);
    ui->lblSex->setText(Record().lblSex);
    ui->lblCourtType->setText(Record().lblCourtType);
}
