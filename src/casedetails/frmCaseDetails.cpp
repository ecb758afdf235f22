#include "casedetails/frmCaseDetails.h"

#include "ui_frmCaseDetails.h"

frmCaseDetails::frmCaseDetails(QWidget *parent)
    : CaseWindow(parent), ui(std::make_unique<Ui::frmCaseDetails>())
{
    ui->setupUi(this);
    UseControls(*ui);
}

frmCaseDetails::~frmCaseDetails() = default;
