#include "session/frmElapsedTime.h"

#include "controls/WindowPlace.h"
#include "core/GlobalState.h"
#include "ui_frmElapsedTime.h"

frmElapsedTime::frmElapsedTime(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmElapsedTime>())
{
    ui->setupUi(this);
    CentreOnScreen(this);
    ui->lblElapsedTime->setText(Global.strSessionTime);
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [] { Global.strSessionTime.clear(); });
}

frmElapsedTime::~frmElapsedTime() = default;
