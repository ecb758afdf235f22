#include "casedetails/frmCaseDetails.h"

#include "ui_frmCaseDetails.h"

frmCaseDetails::frmCaseDetails(QWidget *parent)
    : CaseWindow(parent), ui(std::make_unique<Ui::frmCaseDetails>())
{
    ui->setupUi(this);
    UseControls(*ui);
}

frmCaseDetails::~frmCaseDetails() = default;

void frmCaseDetails::SetTopFrameCaseType(const QString &text)
{
    ui->lblTopFrameCaseType->setText(text);
}

QString frmCaseDetails::lblTopFrameCaseType() const
{
    return ui->lblTopFrameCaseType->text();
}
