#include "casedetails/frmCivilCaseDetails.h"

#include "ui_frmCivilCaseDetails.h"

frmCivilCaseDetails::frmCivilCaseDetails(QWidget *parent)
    : DiscisCaseWindow(parent), ui(std::make_unique<Ui::frmCivilCaseDetails>())
{
    ui->setupUi(this);
    UseDiscisControls(*ui);
}

frmCivilCaseDetails::~frmCivilCaseDetails() = default;
