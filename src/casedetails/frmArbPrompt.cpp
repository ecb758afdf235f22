#include "casedetails/frmArbPrompt.h"

#include "controls/FormWindow.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "ui_frmArbPrompt.h"

#include <QPointer>

frmArbPrompt::frmArbPrompt(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmArbPrompt>())
{
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, [this] {
        Global.ArbitrationChosen = true;
        accept();
    });
    connect(ui->Command2, &QPushButton::clicked, this, [this] {
        Global.ArbitrationChosen = false;
        accept();
    });
}

frmArbPrompt::~frmArbPrompt() = default;

void frmArbPrompt::ShowModal(FormWindow *parent)
{
    // Behind a parent that has gone already nobody is there to be asked.
    if (parent->IsUnloaded())
        return;
    // The parent may go while the window is open, and takes it along.
    const QPointer<frmArbPrompt> form = new frmArbPrompt(parent);
    connect(parent, &FormWindow::Unloaded, form, &frmArbPrompt::reject);
    const TurnHold hold;
    form->exec();
    delete form;
}
