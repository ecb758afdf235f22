// The later runs of a case, which fetch what the user ticked on the on-demand panel.

#include "casedetails/CaseJob.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {
/// The tab that a box of the panel stands for.
std::optional<CaseTab> tabOfBox(const CaseRecord &record, int box)
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (record.Tab(tab).Exists && CaseTabRowOf(tab).check == box)
            return tab;
    }
    return std::nullopt;
}
} // namespace

/// No run of this case waits or goes on: another can be started.
void CaseJob::offerNextRun()
{
    Sheet.ChoiceStands = false;
    if (IsGivenUp())
        return;
    if (onDemand) {
        Sheet.OfferOnDemand();
        return;
    }
    // The panel may be in sight, with tabs on it that have come since.
    Sheet.OfferMissing(true);
    Sheet.AllowSearchNow(true);
}

void CaseJob::SearchNow()
{
    const RunScope scope(this);
    Global.bStopRequested = false;
    // A run that broke down has kept its place in the queue: nobody else could remove it any more.
    Withdraw();
    FatalError = 0;
    fatalText.clear();
    Sheet.SetBreakdown({}, false);
    Sheet.AllowSearchNow(false);
    txtMasterKey = MakeMasterKey();
    onDemand = true;
    Sheet.ChoiceStands = true;
    SetStatus(JobKindOf(JobKindName::CaseOnDemand).Pending.toString(), StatusStyle::NormalBold);
    Q_EMIT StatusToBeSeen();
    Sheet.AllowPrint(false);
    StopRequested = false;
    Restart(JobKindName::CaseOnDemand, TmrSearchOnDemand);
    WriteAppInfo(u"Search On Demand Complete"_s);
}

void CaseJob::askTurnOnDemand()
{
    const RunScope scope(this);
    TmrSearchOnDemand->stop();
    const auto stopped = [this] {
        ShowStopped(StopCase::AllJobs);
        Withdraw();
    };
    bool ran = false;
    AskTurn({.Timer = TmrSearchOnDemand,
             .Run =
                 [this, &ran] {
                     Sheet.AllowPrint(false);
                     ProcessOnDemandSearchRequests();
                     ran = true;
                 },
             .Stopped = stopped});
    if (ran && Global.bStopRequested && !IsGivenUp())
        stopped();
}

void CaseJob::ProcessOnDemandSearchRequests()
{
    // The run of a window that has gone meanwhile is over.
    const auto atEnd = qScopeGuard([this] {
        if (IsGivenUp())
            Withdraw();
    });
    lboxResponses.Clear();
    CaseInvalid = false;
    Record.NotLocated = false;
    WriteAppInfo(u"On Demand Search Started.."_s);
    try {
        endOnDemand(runOnDemandTabs());
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"ERROR EXIT - from ProcessOnDemandSearchReqeusts. Error: "_s
                     + error.Description());
        fatalText = error.Description();
    }
    Sheet.EndAnswers(fatalText, State() != JobState::Over);
    // A run that broke down says nothing more, but it is over.
    Sheet.ChoiceStands = false;
    Sheet.AllowSearchNow(true);
}

/// The tabs of the panel in the order of its boxes. What is ticked is asked for when its box is
/// reached: until then the user can change it.
CaseJob::RunEnd CaseJob::runOnDemandTabs()
{
    // Each box stands for a tab, so there are no more of them.
    for (int box = 0; box < caseTabCount; ++box) {
        const std::optional<CaseTab> tab = tabOfBox(Record, box);
        if (!tab || !Record.Tab(*tab).Offered || !Record.Tab(*tab).Chosen
            || !Record.TabExists(*tab))
            continue;
        const RunEnd end = runOnDemandTab(*tab);
        if (end != RunEnd::Normal)
            return end;
    }
    return RunEnd::Normal;
}

CaseJob::RunEnd CaseJob::runOnDemandTab(CaseTab tab)
{
    prepareOnDemand(tab);
    // A copy: the Summary makes another when the court asks about arbitration.
    const QString request = Record.Tab(tab).TabRequest;
    if (!request.isEmpty())
        retrieveTab(tab, request);
    ActivateTab(CaseTabRowOf(tab).caption.toString());
    if (FatalError == brokenDown)
        return RunEnd::Fatal;
    if (Record.NotLocated)
        return RunEnd::NotLocated;
    if (CaseInvalid)
        return RunEnd::Error;
    // A Summary that came only now has brought tabs that nobody has asked for yet.
    if (tab == CaseTab::Summary && Record.Tab(tab).TabDone)
        leaveUnretrieved();
    return testStopFlags();
}

void CaseJob::prepareOnDemand(CaseTab tab)
{
    CaseTabRecord &ofTab = Record.Tab(tab);
    ofTab.TabNotRetrieved = false;
    if (tab != CaseTab::Summary) {
        // The lines of a bankruptcy case came with its Summary.
        if (Record.IsBankruptcy() && ofTab.TabRequest.isEmpty())
            ofTab.TabRequest = BankruptcyRequest(lboxTabReqQueue.Lines(), tab);
        if (!ofTab.TabRequest.isEmpty())
            rewriteForArbitration(tab);
        return;
    }
    // The first run may have been stopped before its turn: its line is in the queue still.
    if (ofTab.TabRequest.isEmpty() && lboxTabReqQueue.ListCount() > 0) {
        ofTab.TabRequest = TrimBlanks(lboxTabReqQueue.List(0));
        lboxTabReqQueue.RemoveItem(0);
    }
    // A Summary that failed has left no other tab; the reply says which there are.
    if (!Record.IsBankruptcy())
        CutTabsToCase();
}

void CaseJob::endOnDemand(RunEnd end)
{
    Sheet.ChoiceStands = false;
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
        Sheet.SetOnDemandPanel();
        ReleaseTurnOf(txtMasterKey);
        SetOver();
        WriteAppInfo(u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s);
        if (!Record.NotLocated)
            showEndStatus();
        break;
    }
    Sheet.OfferOnDemand();
    Q_EMIT Ended(StopRequested);
}
