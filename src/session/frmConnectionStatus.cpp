#include "session/frmConnectionStatus.h"

#include "controls/WindowPlace.h"
#include "core/GlobalState.h"
#include "ui_frmConnectionStatus.h"

using namespace Qt::StringLiterals;

frmConnectionStatus::frmConnectionStatus(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmConnectionStatus>())
{
    ui->setupUi(this);
    CentreOnScreen(this);
    ui->lblStatus->setText(Global.bLoggedIn ? u"You are Connected to Halvane"_s
                                            : u"You are NOT Connected to Halvane"_s);
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::accept);
}

frmConnectionStatus::~frmConnectionStatus() = default;
