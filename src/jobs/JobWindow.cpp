#include "jobs/JobWindow.h"

#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TurnHold.h"
#include "jobs/TurnTaking.h"
#include "link/Exchange.h"

#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

JobWindow::JobWindow(const JobPace &jobPace, QWidget *parent)
    : FormWindow(parent), Timer1(new QTimer(this)), tmrBlink(new QTimer(this)), pace(jobPace)
{
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(pace.turn);
    tmrBlink->setObjectName(u"tmrBlink"_s);
    tmrBlink->setInterval(pace.blink);
    connect(Timer1, &QTimer::timeout, this, &JobWindow::Timer1_Tick);
    connect(tmrBlink, &QTimer::timeout, this, &JobWindow::tmrBlink_Tick);
}

void JobWindow::StartJob(QLabel *lblStatus, QPushButton *cmdStopSearching, QWidget *home)
{
    statusLabel = lblStatus;
    stopButton = cmdStopSearching;
    homeOfFocus = home;
    // Nothing around a blinking label may jump.
    QSizePolicy keepsPlace = statusLabel->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    statusLabel->setSizePolicy(keepsPlace);
    connect(stopButton, &QPushButton::clicked, this, &JobWindow::cmdStopSearching_Click);
    Timer1->start();
    tmrBlink->start();
}

void JobWindow::RestartJob(QTimer *timer)
{
    EnqueueKey(txtMasterKey);
    stopButton->setEnabled(true);
    over = false;
    blinking = true;
    BlinkOn = false;
    timer->start();
    tmrBlink->start();
}

void JobWindow::Timer1_Tick()
{
    const RunScope scope(this);
    Timer1->stop();
    BeginTick();
    AskTurn({.Timer = Timer1,
             .WorkingBlink = pace.workingBlink,
             .Run = [this] { ProcessSearchRequests(); },
             .Stopped =
                 [this] {
                     ShowStopped(StopCase::AllJobs);
                     WithdrawKey(txtMasterKey);
                 }});
}

void JobWindow::AskTurn(const TurnRequest &request)
{
    switch (AskForTurn(txtMasterKey)) {
    case Turn::Stopped:
        request.Stopped();
        return;
    case Turn::Taken:
        request.Timer->start();
        tmrBlink->setInterval(pace.takenBlink);
        return;
    case Turn::Mine: {
        Global.bSearchInProgress = true;
        HasTurn = true;
        const auto end = qScopeGuard([this] {
            Global.bSearchInProgress = false;
            HasTurn = false;
        });
        statusLabel->setText(WorkingText());
        tmrBlink->setInterval(request.WorkingBlink);
        if (blinking)
            tmrBlink->start();
        request.Run();
        return;
    }
    case Turn::NotYet:
        request.Timer->start();
        return;
    }
}

void JobWindow::tmrBlink_Tick()
{
    const RunScope scope(this);
    tmrBlink->stop();
    {
        const TurnHold hold;
        Yield();
    }
    // The yield may have run the whole job: blinking is over then, and the text stays on.
    if (!blinking || IsUnloaded())
        return;
    BlinkOn = !BlinkOn;
    statusLabel->setVisible(BlinkOn);
    tmrBlink->start();
}

void JobWindow::StopBlinking()
{
    blinking = false;
    tmrBlink->stop();
    if (!IsUnloaded())
        statusLabel->show();
}

void JobWindow::EndJob()
{
    over = true;
    SettleQuestions(stopButton);
    DisableStop();
    StopBlinking();
}

void JobWindow::TurnOff(QPushButton *button)
{
    if (window()->focusWidget() == button)
        HomeOfFocus()->setFocus(Qt::OtherFocusReason);
    button->setEnabled(false);
}

void JobWindow::DisableStop()
{
    TurnOff(stopButton);
}

void JobWindow::cmdStopSearching_Click()
{
    const RunScope scope(this);
    StopPressed();
    if (Global.bShowAlerts
        && MsgBox(this, u"Stop This Search?"_s, u"Stop Search Verification"_s, MsgButtons::YesNo,
                  MsgIcon::Question, stopButton)
               != MsgAnswer::Yes)
        return;
    // It may have ended, or gone, while the question was open.
    if (over || IsUnloaded())
        return;
    StopRequested = true;
    bool stopped = false;
    if (statusLabel->text().trimmed().contains(u"Pending", Qt::CaseInsensitive)) {
        stopped = StopPendingSearch();
        if (!stopped) {
            WriteAppInfo(u"Cannot Stop Pending Search"_s);
            stopped = StopActiveSearch();
        }
    } else {
        stopped = StopActiveSearch();
    }
    if (!stopped)
        WriteAppInfo(u"Cannot Stop Active Search"_s);
    Global.bSearchInProgress = false;
    // A run that broke down has kept its place, and nobody comes back to give it away.
    if (!HasTurn)
        WithdrawKey(txtMasterKey);
    StopDone();
}

bool JobWindow::StopPendingSearch()
{
    if (statusLabel->text() != u"Pending ..")
        return false;
    ShowStopped(StopCase::Pending);
    WithdrawKey(txtMasterKey);
    return true;
}

bool JobWindow::StopActiveSearch()
{
    ShowStopped(StopCase::Active);
    StopCurrentSearch();
    return true;
}

void JobWindow::ShowStoppedStatus()
{
    EndJob();
    Timer1->stop();
    SetStatusStyle(statusLabel, StatusColour::Trouble);
    statusLabel->setText(u"Search Stopped By User .. "_s);
}

void JobWindow::StopCurrentSearch()
{
    QString error;
    try {
        if (InterruptExchange(StopRequest()) == SendStatus::Sent)
            return;
    } catch (const RunTimeError &raised) {
        error = raised.Description();
    }
    ReleaseTurnOf(txtMasterKey);
    WriteAppInfo(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s + error);
}

bool JobWindow::MayClose(UnloadMode mode, const QString &question)
{
    if (mode != UnloadMode::ControlMenu && mode != UnloadMode::Code)
        return true;
    if (Global.bSearchInProgress && HasTurn) {
        MsgBox(this, u"This form cannot be closed until the current search completes."_s,
               u"Stop Current Search .."_s);
        return false;
    }
    return !Global.bShowAlerts
           || MsgBox(this, question, u"Close Search Form .."_s, MsgButtons::YesNo,
                     MsgIcon::Question)
                  == MsgAnswer::Yes;
}

void JobWindow::Unloading()
{
    Timer1->stop();
    StopBlinking();
}
