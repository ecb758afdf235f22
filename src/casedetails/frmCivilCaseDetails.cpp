#include "casedetails/frmCivilCaseDetails.h"

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
}

frmCivilCaseDetails::~frmCivilCaseDetails() = default;

void frmCivilCaseDetails::ShowHeader()
{
    DiscisCaseWindow::ShowHeader();
    ui->lblCause->setText(Record().lblCause);
    ui->lblSuitAmt->setText(Record().lblSuitAmt);
}
