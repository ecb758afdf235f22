#include "casedetails/frmOnDemand.h"

#include "casedetails/CaseAnswers.h"
#include "controls/FormWindow.h"
#include "controls/ModalDialog.h"
#include "ui_frmOnDemand.h"

namespace {
int loaded = 0;
}

frmOnDemand::frmOnDemand(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmOnDemand>())
{
    ++loaded;
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, [this] { answer(true); });
    connect(ui->Command2, &QPushButton::clicked, this, [this] { answer(false); });
}

frmOnDemand::~frmOnDemand()
{
    --loaded;
}

bool frmOnDemand::IsLoaded()
{
    return loaded > 0;
}

void frmOnDemand::ShowModal(FormWindow *parent)
{
    ModalDialog<frmOnDemand>(parent).Run();
}

void frmOnDemand::reject()
{
    answer(false);
}

void frmOnDemand::answer(bool retry)
{
    CaseAnswers.bOnDemandRetry = retry;
    CaseAnswers.bOnDemandPrompt = true;
    accept();
}
