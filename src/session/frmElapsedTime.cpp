#include "session/frmElapsedTime.h"

#include "controls/WindowPlace.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "ui_frmElapsedTime.h"

frmElapsedTime::frmElapsedTime(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmElapsedTime>())
{
    ui->setupUi(this);
    CentreOnScreen(this);
    ui->lblElapsedTime->setText(Session.strSessionTime);
    connect(ui->cmdPrint, &QPushButton::clicked, this,
            [this] { Q_EMIT SessionEvents::Of().SessionReportWanted(this); });
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [] { Session.strSessionTime.clear(); });
}

frmElapsedTime::~frmElapsedTime() = default;
