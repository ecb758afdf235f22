#include "casedetails/frmNCCaseDetails.h"

#include "ui_frmNCCaseDetails.h"

frmNCCaseDetails::frmNCCaseDetails(QWidget *parent)
    : DiscisCaseWindow(parent), ui(std::make_unique<Ui::frmNCCaseDetails>())
{
    ui->setupUi(this);
    UseDiscisControls(*ui);
}

frmNCCaseDetails::~frmNCCaseDetails() = default;
