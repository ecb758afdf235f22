#include "session/LoginOffer.h"

#include "controls/MsgBox.h"
#include "session/SessionEvents.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

using namespace Qt::StringLiterals;

namespace {
/// What these questions are about.
const QObject *loginOffers()
{
    return &SessionEvents::Of();
}
} // namespace

bool OfferLogin(QWidget *parent)
{
    return MsgBox(parent,
                  u"This Search Cannot be Started!\r\nThis is because you are not currently "
                  "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
                  u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgButtons::YesNo,
                  MsgIcon::Exclamation, loginOffers())
           == MsgAnswer::Yes;
}

void ShowLogin()
{
    frmLogin::ShowForm(frmMain::Form());
}

void ShowLoginModally()
{
    frmLogin::ShowModal(frmMain::Form());
}

void SettleLoginOffers()
{
    SettleQuestions(loginOffers());
}
