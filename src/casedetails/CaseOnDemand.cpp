// The later runs of a case window, which fetch what the user ticked on the on-demand panel.

#include "casedetails/CaseWindow.h"
#include "casedetails/OnDemandPanel.h"
#include "controls/JobVoice.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "session/LoginOffer.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
constexpr int onDemandBlink = 500;
constexpr int brokenDown = 911;
} // namespace

void CaseWindow::setOnDemandPanel()
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (Tab(tab).Frame)
            panel->Offer(CaseTabRowOf(tab).check, TabExists(tab) && !Tab(tab).TabDone);
    }
}

void CaseWindow::cmdSearchNow_Click()
{
    const RunScope scope(this);
    Global.bStopRequested = false;
    if (!Global.bLoggedIn) {
        if (OfferLogin(this)) {
            SetWarning({});
            ShowLogin();
        }
        return;
    }
    // A run that broke down has kept its place in the queue: nobody else could remove it any more.
    WithdrawKey(txtMasterKey);
    FatalError = 0;
    panel->SetCommandsEnabled(false);
    txtMasterKey = MakeMasterKey();
    HasTurn = false;
    onDemand = true;
    SetStatusText(u"Pending .."_s);
    lblStatus->show();
    printButton->setEnabled(false);
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
                     printButton->setEnabled(false);
                     processOnDemandSearchRequests();
                     ran = true;
                 },
             .Stopped = stopped});
    if (ran && Global.bStopRequested && !IsUnloaded())
        stopped();
}

void CaseWindow::processOnDemandSearchRequests()
{
    lboxResponses.Clear();
    CaseInvalid = false;
    WriteAppInfo(u"On Demand Search Started.."_s);
    voice->SayState();
    try {
        endOnDemand(runOnDemandTabs());
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"ERROR EXIT - from ProcessOnDemandSearchReqeusts. Error: "_s
                     + error.Description());
    }
}

/// The tabs of the panel in the order of its boxes. What is ticked is asked for when its box is
/// reached: until then the user can change it.
CaseWindow::RunEnd CaseWindow::runOnDemandTabs()
{
    for (int box = 0; box < OnDemandPanel::BoxCount; ++box) {
        const std::optional<CaseTab> tab = tabOfBox(box);
        if (!tab || !panel->IsChosen(box))
            continue;
        TabOf(*tab).TabNotRetrieved = false;
        if (*tab != CaseTab::Summary)
            rewriteForArbitration(*tab);
        // The Summary may have come only now, and the lines of a bankruptcy case with it.
        if (IsBankruptcy() && Tab(*tab).TabRequest.isEmpty())
            takeBankruptcyRequest(*tab);
        retrieveTab(*tab, Tab(*tab).TabRequest);
        ActivateTab(CaseTabRowOf(*tab).caption.toString());
        if (FatalError == brokenDown)
            return RunEnd::Fatal;
        const RunEnd end = endOf(testStopFlags());
        if (end != RunEnd::Normal)
            return end;
    }
    return RunEnd::Normal;
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
        setOnDemandPanel();
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
    setOnDemandPanel();
    panel->SetCommandsEnabled(true);
    printButton->setEnabled(true);
    StopButton()->setEnabled(false);
}
