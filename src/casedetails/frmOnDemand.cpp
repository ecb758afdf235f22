#include "casedetails/frmOnDemand.h"

#include "controls/FormWindow.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "ui_frmOnDemand.h"

#include <QPointer>

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
    // The parent may go while the window is open, and takes it along.
    const QPointer<frmOnDemand> form = new frmOnDemand(parent);
    connect(parent, &FormWindow::Unloaded, form, &frmOnDemand::reject);
    const TurnHold hold;
    form->exec();
    delete form;
}

void frmOnDemand::reject()
{
    answer(false);
}

void frmOnDemand::answer(bool retry)
{
    Global.bOnDemandRetry = retry;
    Global.bOnDemandPrompt = true;
    accept();
}
