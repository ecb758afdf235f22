// The later runs of a case window, which fetch what the user ticked on the on-demand panel.

#include "casedetails/CaseWindow.h"
#include "casedetails/OnDemandPanel.h"
#include "jobs/JobVoice.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "session/LoginOffer.h"

#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {
constexpr int onDemandBlink = 500;
} // namespace

/// What is missing is offered and ticked. While a run waits or goes on the ticks stay as the user
/// has made them: looking at another tab must not add to what is fetched.
void CaseWindow::SetOnDemandPanel()
{
    offerMissing(choiceStands);
}

void CaseWindow::offerMissing(bool keepTicks)
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        const bool missing = TabExists(tab) && !Tab(tab).TabDone;
        if (Tab(tab).Frame && !(missing && keepTicks))
            panel->Offer(CaseTabRowOf(tab).check, missing);
    }
}

/// No run of this window waits or goes on: another can be started.
void CaseWindow::offerNextRun()
{
    choiceStands = false;
    if (IsUnloaded())
        return;
    if (onDemand) {
        restoreOnDemandButtons();
        return;
    }
    // The panel may be in sight, with tabs on it that have come since.
    offerMissing(true);
    panel->SetCommandsEnabled(true);
}

void CaseWindow::cmdSearchNow_Click()
{
    const RunScope scope(this);
    Global.bStopRequested = false;
    if (!Global.bLoggedIn) {
        if (OfferLogin(this)) {
            SetWarning({});
            ShowLoginModally();
        }
        return;
    }
    // A run that broke down has kept its place in the queue: nobody else could remove it any more.
    WithdrawKey(txtMasterKey);
    FatalError = 0;
    // The button that was pressed is off from here; the tabs are what one turns to next.
    if (panel->isAncestorOf(window()->focusWidget()))
        tabStrip->setFocus(Qt::OtherFocusReason);
    panel->SetCommandsEnabled(false);
    txtMasterKey = MakeMasterKey();
    HasTurn = false;
    onDemand = true;
    choiceStands = true;
    SetStatusText(u"Pending .."_s);
    lblStatus->show();
    TurnOff(printButton);
    StopRequested = false;
    RestartJob(TmrSearchOnDemand);
    WriteAppInfo(u"Search On Demand Complete"_s);
    voice->Started();
}

void CaseWindow::TmrSearchOnDemand_Tick()
{
    const RunScope scope(this);
    TmrSearchOnDemand->stop();
    const auto stopped = [this] {
        ShowStopped(StopCase::AllJobs);
        WithdrawKey(txtMasterKey);
    };
    bool ran = false;
    AskTurn({.Timer = TmrSearchOnDemand,
             .WorkingBlink = onDemandBlink,
             .Run =
                 [this, &ran] {
                     TurnOff(printButton);
                     ProcessOnDemandSearchRequests();
                     ran = true;
                 },
             .Stopped = stopped});
    if (ran && Global.bStopRequested && !IsUnloaded())
        stopped();
}

void CaseWindow::ProcessOnDemandSearchRequests()
{
    const auto atEnd = qScopeGuard([this] { withdrawIfGone(); });
    lboxResponses.Clear();
    CaseInvalid = false;
    NotLocated = false;
    WriteAppInfo(u"On Demand Search Started.."_s);
    voice->SayState();
    try {
        endOnDemand(runOnDemandTabs());
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"ERROR EXIT - from ProcessOnDemandSearchReqeusts. Error: "_s
                     + error.Description());
    }
    // A run that broke down says nothing more, but it is over.
    choiceStands = false;
    panel->SetCommandsEnabled(true);
}

/// The tabs of the panel in the order of its boxes. What is ticked is asked for when its box is
/// reached: until then the user can change it.
CaseWindow::RunEnd CaseWindow::runOnDemandTabs()
{
    for (int box = 0; box < OnDemandPanel::BoxCount; ++box) {
        const std::optional<CaseTab> tab = tabOfBox(box);
        if (!tab || !panel->IsChosen(box) || !TabExists(*tab))
            continue;
        const RunEnd end = runOnDemandTab(*tab);
        if (end != RunEnd::Normal)
            return end;
    }
    return RunEnd::Normal;
}

CaseWindow::RunEnd CaseWindow::runOnDemandTab(CaseTab tab)
{
    prepareOnDemand(tab);
    if (!Tab(tab).TabRequest.isEmpty())
        retrieveTab(tab, Tab(tab).TabRequest);
    ActivateTab(CaseTabRowOf(tab).caption.toString());
    if (FatalError == brokenDown)
        return RunEnd::Fatal;
    if (NotLocated)
        return RunEnd::NotLocated;
    if (CaseInvalid)
        return RunEnd::Error;
    // A Summary that came only now has brought tabs that nobody has asked for yet.
    if (tab == CaseTab::Summary && Tab(tab).TabDone)
        leaveUnretrieved();
    return endOf(testStopFlags());
}

void CaseWindow::prepareOnDemand(CaseTab tab)
{
    CaseTabState &state = TabOf(tab);
    state.TabNotRetrieved = false;
    if (tab != CaseTab::Summary) {
        // The lines of a bankruptcy case came with its Summary.
        if (IsBankruptcy() && state.TabRequest.isEmpty())
            takeBankruptcyRequest(tab);
        if (!state.TabRequest.isEmpty())
            rewriteForArbitration(tab);
        return;
    }
    // The first run may have been stopped before its turn: its line is in the queue still.
    if (state.TabRequest.isEmpty() && lboxTabReqQueue.ListCount() > 0) {
        state.TabRequest = TrimBlanks(lboxTabReqQueue.List(0));
        lboxTabReqQueue.RemoveItem(0);
    }
    // A Summary that failed has left no other tab; the reply says which there are.
    if (!IsBankruptcy())
        CutTabsToCase();
}

std::optional<CaseTab> CaseWindow::tabOfBox(int box) const
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (Tab(tab).Frame && CaseTabRowOf(tab).check == box)
            return tab;
    }
    return std::nullopt;
}

void CaseWindow::endOnDemand(RunEnd end)
{
    choiceStands = false;
    switch (end) {
    case RunEnd::Stopped:
        WriteAppInfo(
            u"SEARCHING STOPPED DUE TO LOGOUT - from ProcessSearchReqeusts in Case Details."_s);
        endStopped();
        break;
    case RunEnd::Closed:
        WriteAppInfo(
            u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s);
        endClosed();
        return;
    case RunEnd::Fatal:
        return;
    case RunEnd::Normal:
    case RunEnd::InvalidCase:
    case RunEnd::Error:
    case RunEnd::NotLocated:
        SetOnDemandPanel();
        ReleaseTurnOf(txtMasterKey);
        EndJob();
        WriteAppInfo(u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s);
        if (!NotLocated)
            showEndStatus();
        break;
    }
    restoreOnDemandButtons();
    voice->Ended(StopRequested);
}

void CaseWindow::restoreOnDemandButtons()
{
    SetOnDemandPanel();
    panel->SetCommandsEnabled(true);
    printButton->setEnabled(true);
    DisableStop();
}
