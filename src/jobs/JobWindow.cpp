#include "jobs/JobWindow.h"

#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "jobs/JobVoice.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
QList<JobWindow *> &allWindows()
{
    static QList<JobWindow *> windows;
    return windows;
}
} // namespace

JobWindow::JobWindow(Job *ownJob, QString *state, QString *code, QWidget *parent)
    : FormWindow(parent), job(ownJob), txtMasterKey(job->txtMasterKey),
      StopRequested(job->StopRequested), Timer1(job->Timer1), lblState(*state),
      ClientAcctgCode(*code), tmrBlink(new QTimer(this))
{
    tmrBlink->setObjectName(u"tmrBlink"_s);
    tmrBlink->setInterval(job->Kind().Blink);
    connect(tmrBlink, &QTimer::timeout, this, &JobWindow::tmrBlink_Tick);
    allWindows().append(this);
}

JobWindow::~JobWindow()
{
    allWindows().removeOne(this);
    job->disconnect(this);
    job->Release();
}

JobWindow *JobWindow::Of(const Job *shown)
{
    const QList<JobWindow *> &windows = allWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), [shown](const JobWindow *one) {
        return one->job == shown && !one->IsUnloaded();
    });
    return found == windows.end() ? nullptr : *found;
}

void JobWindow::PressStop()
{
    if (job->CanBeStopped())
        stopButton->click();
}

void JobWindow::StartJob(const JobControls &controls)
{
    statusLabel = controls.lblStatus;
    stopButton = controls.cmdStopSearching;
    homeOfFocus = controls.home;
    // Nothing around a blinking label may jump.
    QSizePolicy keepsPlace = statusLabel->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    statusLabel->setSizePolicy(keepsPlace);
    voice = new JobVoice(this, statusLabel, controls.rows);
    connect(stopButton, &QPushButton::clicked, this, &JobWindow::cmdStopSearching_Click);
    connect(job, &Job::StateChanged, this, [this] { ShowState(); });
    connect(job, &Job::Changed, this, [this] { ShowStatus(); });
    connect(job, &Job::Ended, voice, &JobVoice::Ended);
    ShowStatus();
    Timer1->start();
    tmrBlink->start();
}

void JobWindow::AlsoFills(QTableView *rows)
{
    voice->AlsoFills(rows);
}

void JobWindow::ShowState()
{
    const JobState before = std::exchange(shownState, job->State());
    switch (shownState) {
    case JobState::Pending:
        // A job that still has its turn goes on with the next one.
        if (before != JobState::Pending && !job->HasTurn())
            showBeginning();
        else if (job->LinkWasTaken())
            tmrBlink->setInterval(job->Kind().TakenBlink);
        break;
    case JobState::Taken:
        break;
    case JobState::Running:
        tmrBlink->setInterval(job->Kind().WorkingBlink);
        if (blinking)
            tmrBlink->start();
        break;
    case JobState::Stopping:
    case JobState::Over:
        showEnd();
        break;
    }
}

void JobWindow::showBeginning()
{
    stopButton->setEnabled(true);
    blinking = true;
    BlinkOn = false;
    tmrBlink->start();
    voice->Started();
}

void JobWindow::showEnd()
{
    SettleQuestions(stopButton);
    DisableStop();
    StopBlinking();
}

void JobWindow::ShowStatus()
{
    SetStatusStyle(statusLabel, job->Status.Trouble ? StatusColour::Trouble : StatusColour::Normal);
    statusLabel->setText(job->Status.Text);
    voice->SayState();
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
    if (job->CanBeStopped() && !IsUnloaded())
        job->Stop();
}

bool JobWindow::MayClose(UnloadMode mode, const QString &question)
{
    if (mode != UnloadMode::ControlMenu && mode != UnloadMode::Code)
        return true;
    if (Global.bSearchInProgress && job->HasTurn()) {
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
    job->GiveUp();
    StopBlinking();
}
