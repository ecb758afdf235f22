#include "session/LoginOffer.h"

#include "controls/MsgBox.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

using namespace Qt::StringLiterals;

bool OfferLogin(QWidget *parent)
{
    return MsgBox(parent,
                  u"This Search Cannot be Started!\r\nThis is because you are not currently "
                  "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
                  u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgButtons::YesNo,
                  MsgIcon::Exclamation)
           == MsgAnswer::Yes;
}

void ShowLogin()
{
    frmLogin::ShowForm(frmMain::Form());
}
