// The ways out of the program and out of a session: exit, disconnect, idle logout.

#include "session/frmMain.h"

#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "core/Clock.h"
#include "core/EndProgram.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "session/SessionState.h"
#include "session/frmElapsedTime.h"
#include "session/frmInactivity.h"
#include "ui_frmMain.h"

#include <QApplication>
#include <QCloseEvent>

using namespace Qt::StringLiterals;

namespace {
constexpr float idleWaitSeconds = 18.0F;

bool confirmed(QWidget *parent, const QString &text, const QString &title, const QObject *matter)
{
    return MsgBox(parent, text, title, MsgButtons::YesNo, MsgIcon::Question, matter)
           == MsgAnswer::Yes;
}
} // namespace

SessionResult frmMain::Logout()
{
    Global.bStopRequested = true;
    CloseServerLink();
    WriteAppInfo(u"Logout Successful"_s);
    Global.bLoggedIn = false;
    Global.bStopRequested = false;
    Global.ClientAcctgCode.clear();
    SessionChanged();
    return SessionResult::LoggedOut;
}

void frmMain::logoutAndReport(bool modal)
{
    if (Logout() != SessionResult::LoggedOut) {
        Session.strSessionTime = u"Lost Connection"_s;
        if (!modal && Global.bShowAlerts)
            MsgBox(this, u"You have been logged out of Halvane"_s,
                   u"Halvane - Logout Confirmation .."_s);
        return;
    }
    if (!Global.bShowAlerts)
        return;
    if (modal) {
        ModalDialog<frmElapsedTime>(this).Run();
        return;
    }
    auto *report = new frmElapsedTime(this);
    report->setAttribute(Qt::WA_DeleteOnClose);
    report->show();
}

void frmMain::mnuConnectionDisConnect_Click()
{
    ui->mnuConnectionDisConnect->setChecked(false);
    if (!Global.bLoggedIn)
        return;
    if (Global.bSearchInProgress) {
        MsgBox(this,
               u"You must wait for the current search to complete before disconnecting. All "
               "Pending Searches will be stopped."_s,
               u"Disconnect From Halvane .."_s);
        Global.bStopRequested = true;
        return;
    }
    if (!Session.bAutoLogout && Global.bShowAlerts
        && !confirmed(this, u"Are you sure you want to disconnect from the Halvane Server?"_s,
                      u"Disconnect From Halvane .."_s, ui->mnuConnectionDisConnect))
        return;
    // Not by a job that has begun meanwhile, which the question prevents; but one may have been
    // running when it was asked, and gone on.
    if (Global.bSearchInProgress) {
        Global.bStopRequested = true;
        return;
    }
    if (Global.bLoggedIn)
        logoutAndReport(false);
    ShowConnection(false);
    SetTxtConnectStatus(u"NOT CONNECTED"_s);
}

void frmMain::autologout()
{
    const QPointer<frmMain> self(this);
    Session.bAutoLogout = false;
    QApplication::beep();
    QApplication::beep();
    frmInactivity::ShowWarning(this);
    const int session = sessionChanges;
    const float start = Clock::Current().SecondsOfDay();
    for (;;) {
        const float elapsed = ElapsedSeconds(start);
        if (elapsed >= idleWaitSeconds || Session.bAutoLogout)
            break;
        YieldUntilEvent(static_cast<double>(idleWaitSeconds - elapsed));
        // The session that was warned of is over; the next one is not to be logged out for it.
        if (!self || sessionChanges != session)
            return;
    }
    if (!self || !Session.bAutoLogout)
        return;
    mnuConnectionDisConnect_Click();
    Session.bAutoLogout = false;
    WriteAppInfo(u"Auto Logout Complete .."_s);
}

void frmMain::mnuFileExit_Click()
{
    if (exiting)
        return;
    if (Global.bSearchInProgress) {
        Global.bStopRequested = true;
        MsgBox(this,
               u"You must wait for the current search to complete or be stopped before Exiting. "
               "All Pending Searches will be stopped."_s,
               u"Exit Halvane .."_s);
        return;
    }
    if (Global.bShowAlerts
        && !confirmed(this,
                      u"You are about to exit the Halvane Application.\r\n\r\nAny data that has "
                      "not been printed or saved will be lost! Are you sure you want to Exit from "
                      "Halvane?"_s,
                      u"Exit From Halvane?"_s, ui->mnuFileExit))
        return;
    if (Global.bLoggedIn) {
        Global.bStopRequested = true;
        TimerExit->start();
        exiting = true;
        return;
    }
    Unload(UnloadMode::Code);
}

bool frmMain::QueryUnload(UnloadMode mode)
{
    WriteAppInfo(QString::number(static_cast<int>(mode)));
    if (exiting) {
        TimerExit->start();
        return true;
    }
    if (Global.bSearchInProgress) {
        Global.bStopRequested = true;
        MsgBox(this,
               u"You must wait for the current search to complete before Exiting Halvane.  All "
               "Pending Searches will be stopped."_s,
               u"Exit Halvane .."_s);
        return false;
    }
    // Whoever ends the program has not waited for the answer.
    SettleQuestions(ui->mnuFileExit);
    if (mode == UnloadMode::Code || mode == UnloadMode::MdiParent || !Global.bLoggedIn)
        return true;
    Global.bStopRequested = true;
    TimerExit->start();
    exiting = true;
    return false;
}

bool frmMain::Unload(UnloadMode mode)
{
    if (unloaded)
        return true;
    if (!QueryUnload(mode))
        return false;
    UnloadNow();
    return true;
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->setAccepted(
        Unload(qApp->isSavingSession() ? UnloadMode::SessionEnd : UnloadMode::ControlMenu));
}

void frmMain::TimerExit_Tick()
{
    TimerExit->stop();
    if (Global.bSearchInProgress) {
        // Whatever has begun since the exit was confirmed has taken back that all are to stop.
        Global.bStopRequested = true;
        TimerExit->start();
        return;
    }
    UpdateStatusBarText(1, u"Disconnecting From Halvane .."_s);
    logoutAndReport(true);
    Unload(UnloadMode::Code);
}

void frmMain::UnloadNow()
{
    unloaded = true;
    TimerExit->stop();
    tmrConnectStatus->stop();
    SavePosition();
    hide();
    frmQueue::Unload();
    EndProgram();
}
