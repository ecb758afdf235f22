#include "session/frmMsg.h"

#include "controls/WindowPlace.h"
#include "core/GlobalState.h"
#include "ui_frmMsg.h"

frmMsg::frmMsg(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmMsg>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    SetText1(Global.strSystemMsg);
    SetTopMostWindow(this, true);
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::close);
}

frmMsg::~frmMsg() = default;

void frmMsg::SetText1(const QString &text)
{
    ui->Text1->setPlainText(text);
}
