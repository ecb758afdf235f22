#include "session/frmMsg.h"

#include "controls/WindowPlace.h"
#include "session/SessionState.h"
#include "ui_frmMsg.h"

#include <QPointer>

namespace {
QPointer<frmMsg> loaded;
}

frmMsg &frmMsg::ShowForm(QWidget *parent)
{
    // One that was closed is about to be deleted.
    if (!loaded || loaded->isHidden())
        loaded = new frmMsg(parent);
    else
        loaded->SetText1(Session.strSystemMsg);
    BringToFront(loaded);
    return *loaded;
}

frmMsg::frmMsg(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmMsg>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    SetText1(Session.strSystemMsg);
    SetTopMostWindow(this, true);
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::close);
}

frmMsg::~frmMsg() = default;

void frmMsg::SetText1(const QString &text)
{
    ui->Text1->setPlainText(text);
}
