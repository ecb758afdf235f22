#include "casedetails/frmArbPrompt.h"

#include "casedetails/CaseAnswers.h"
#include "controls/FormWindow.h"
#include "controls/ModalDialog.h"
#include "ui_frmArbPrompt.h"

frmArbPrompt::frmArbPrompt(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmArbPrompt>())
{
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, [this] {
        CaseAnswers.ArbitrationChosen = true;
        accept();
    });
    connect(ui->Command2, &QPushButton::clicked, this, [this] {
        CaseAnswers.ArbitrationChosen = false;
        accept();
    });
}

frmArbPrompt::~frmArbPrompt() = default;

void frmArbPrompt::ShowModal(FormWindow *parent)
{
    ModalDialog<frmArbPrompt>(parent).Run();
}
