#include "session/frmConnect.h"

#include "controls/ModalDialog.h"
#include "controls/WindowPlace.h"
#include "core/GlobalState.h"
#include "ui_frmConnect.h"

frmConnect::frmConnect(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmConnect>())
{
    ui->setupUi(this);
    Global.bConnectChosen = false;
    CentreOnScreen(this);
    connect(ui->cmdConnect, &QPushButton::clicked, this, [this] {
        Global.bConnectChosen = true;
        accept();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, [this] {
        Global.bConnectChosen = false;
        reject();
    });
}

frmConnect::~frmConnect() = default;

void frmConnect::ShowModal(QWidget *parent)
{
    ModalDialog<frmConnect>(parent).Run();
}
