// The first run of a case: CaseJob::ProcessSearchRequests and what it is made of.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseJob.h"
#include "casedetails/CaseTalk.h"
#include "core/Clock.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"
#include "jobs/TurnTaking.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {
constexpr float pauseBeforeTab = 0.15F; ///< seconds
} // namespace

void CaseJob::ProcessSearchRequests()
{
    // The run of a window that has gone meanwhile is over.
    const auto atEnd = qScopeGuard([this] {
        if (IsGivenUp())
            Withdraw();
    });
    lboxResponses.Clear();
    CaseInvalid = false;
    if (lboxTabReqQueue.ListCount() == 0) {
        reportEmptyQueue();
        return;
    }
    try {
        endRun(runTabs());
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Exiting ProcessSearchRequests via PROCERR in Case Details. Error: "_s
                     + error.Description());
        fatalText = error.Description();
    }
    Sheet.EndAnswers(fatalText, State() != JobState::Over);
    offerNextRun();
}

void CaseJob::reportEmptyQueue()
{
    if (talk)
        talk->TellEmptyQueue();
    WriteAppInfo(u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
    Q_EMIT CloseWanted();
}

CaseJob::RunEnd CaseJob::runTabs()
{
    const RunEnd summary = runSummary();
    if (summary != RunEnd::Normal)
        return summary;
    for (int i = 1; i < Record.TabCaptions.size(); ++i) {
        PauseSeconds(pauseBeforeTab);
        const std::optional<CaseTab> tab = CaseTabOf(Record.TabCaptions.value(i));
        if (!tab)
            continue;
        const RunEnd end = runTab(*tab);
        if (end != RunEnd::Normal)
            return end;
        // The run of a bankruptcy case is over behind its docket; a court that names something else
        // after it is asked for that when the user wants it.
        if (Record.IsBankruptcy() && *tab == CaseTab::Docket) {
            leaveUnretrieved();
            break;
        }
    }
    return RunEnd::Normal;
}

/// The Summary, and a second time with the answer when the court asks about arbitration.
CaseJob::RunEnd CaseJob::runSummary()
{
    CaseTabRecord &summary = Record.Tab(CaseTab::Summary);
    summary.TabRequest = TrimBlanks(lboxTabReqQueue.List(0));
    DoSummarySearch(summary.TabRequest);
    if (InvalidNumber)
        return RunEnd::InvalidCase;
    askAgainWithAnswer();
    if (Record.NotLocated) {
        // A stop goes before what the reply said.
        const RunEnd end = testStopFlags();
        return end == RunEnd::Normal ? RunEnd::NotLocated : end;
    }
    if (CaseInvalid || FatalError == brokenDown)
        return RunEnd::Error;
    if (lboxTabReqQueue.ListCount() > 0)
        lboxTabReqQueue.RemoveItem(0);
    // The list of a bankruptcy court has no mark for what is archived.
    if (Record.Archived && !Record.IsBankruptcy()) {
        Sheet.SetHeading(u"Case Details (*"_s + CaseNumberOf(Record.txtCaseNumber) + u')');
        Sheet.SetHeader(&CaseRecord::Caption, Record.lblCaseDetailsHdr);
    }
    return testStopFlags();
}

/// The Summary asked about arbitration: it is asked for once more, with the answer. Not when nobody
/// wants the case any more: it has not come then.
void CaseJob::askAgainWithAnswer()
{
    if (!UserQuestion || isToEnd())
        return;
    CaseTabRecord &summary = Record.Tab(CaseTab::Summary);
    summary.TabRequest = WithArbitration(summary.TabRequest, arbitration);
    UserQuestion = false;
    CaseAnswers.ArbitrationChosen = false;
    DoSummarySearch(summary.TabRequest);
}

CaseJob::RunEnd CaseJob::runTab(CaseTab tab)
{
    rewriteForArbitration(tab);
    if (Record.IsBankruptcy())
        Record.Tab(tab).TabRequest = BankruptcyRequest(lboxTabReqQueue.Lines(), tab);
    const CaseTabRecord &ofTab = Record.Tab(tab);
    const bool nothingToAsk = Record.IsBankruptcy() && ofTab.TabRequest.isEmpty();
    if (!ofTab.TabNotRetrieved && !nothingToAsk)
        retrieveTab(tab, ofTab.TabRequest);
    if (FatalError == brokenDown)
        return RunEnd::Fatal;
    return testStopFlags();
}

/// The answer goes into the line every time that the line is about to be used; the court reads the
/// end of the field.
void CaseJob::rewriteForArbitration(CaseTab tab)
{
    if (arbitration == ArbitrationMode::NotAsked || tab == CaseTab::Documents)
        return;
    Record.Tab(tab).TabRequest = WithArbitration(Record.Tab(tab).TabRequest, arbitration);
    CaseAnswers.ArbitrationChosen = false;
}

bool CaseJob::isToEnd() const
{
    return Global.bStopRequested || CloseRequested || StopRequested;
}

CaseJob::RunEnd CaseJob::testStopFlags() const
{
    if (Global.bStopRequested) {
        WriteAppInfo(u"Searching Stopped - Yielding to Logout Process."_s);
        return RunEnd::Stopped;
    }
    if (CloseRequested) {
        WriteAppInfo(u"Searching Stopped - Yielding to Form Close Request by User."_s);
        return RunEnd::Closed;
    }
    if (StopRequested) {
        WriteAppInfo(u"Searching Stopped - Yielding to Stop Command from User."_s);
        return RunEnd::Stopped;
    }
    return RunEnd::Normal;
}

void CaseJob::endRun(RunEnd end)
{
    switch (end) {
    case RunEnd::Normal:
        WriteAppInfo(u"NORMAL EXIT - from ProcessSearchReqeusts."_s);
        endNormally();
        break;
    case RunEnd::InvalidCase:
        WriteAppInfo(u"NORMAL EXIT - INVALID CASE NUMBER in ProcessSearchReqeusts."_s);
        endInvalid();
        break;
    case RunEnd::Stopped:
        WriteAppInfo(u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in "
                     "Case Details."_s);
        endStopped();
        break;
    case RunEnd::Closed:
        WriteAppInfo(
            u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s);
        endClosed();
        return;
    case RunEnd::Error:
        WriteAppInfo(u"SEARCH ERROR EXIT - from ProcessSearchReqeusts."_s);
        endInError();
        break;
    case RunEnd::NotLocated:
        WriteAppInfo(u"NORMAL EXIT - CASE NOT LOCATED in ProcessSearchReqeusts."_s);
        // Its turn is given back and its status said already.
        Sheet.AllowPrint(true);
        leaveUnretrieved();
        printIfAsked();
        break;
    case RunEnd::Fatal:
        // The link broke under it: it keeps its place until it is closed, so that nothing is sent
        // into a conversation in an unknown ofTab.
        return;
    }
    Q_EMIT Ended(StopRequested);
}

void CaseJob::showEndStatus()
{
    if (Record.AnyTabIncomplete()) {
        SetStatus(u"Search Incomplete!"_s, StatusStyle::TroubleBold);
    } else {
        SetStatus(u"Search Complete"_s, StatusStyle::NormalBold);
        Sheet.SetWarning({});
    }
}

void CaseJob::endNormally()
{
    ReleaseTurnOf(txtMasterKey);
    SetOver();
    showEndStatus();
    Sheet.AllowPrint(true);
    Q_EMIT FlashWanted();
    printIfAsked();
}

void CaseJob::endInvalid()
{
    ReleaseTurnOf(txtMasterKey);
    SetOver();
    Record.NoSuchCase = true;
    SetStatus(u"Search Complete - Case Number Invalid"_s, StatusStyle::NormalBold);
    Sheet.SetWarning({});
    Sheet.AllowPrint(true);
    Sheet.ToBegin(CaseTab::Summary);
    printIfAsked();
}

void CaseJob::endStopped()
{
    Withdraw();
    SetOver();
    SetStatus(u"Search Stopped by User .."_s, StatusStyle::TroubleBold);
    Sheet.SetWarning(u"Warning: Some results may NOT have been retrieved .."_s);
    Sheet.AllowPrint(true);
    Record.SearchStopped = true;
    // The list of documents is no part of what a stop leaves out.
    leaveUnretrieved(Documents::AsTheyAre);
}

void CaseJob::endClosed()
{
    SetStatus(u"Search Stopped - Form Closing .."_s, StatusStyle::TroubleBold);
    SetOver();
    Sheet.SetWarning(u"Closing Form .."_s);
    ReleaseTurnOf(txtMasterKey);
    FreeLink();
    Q_EMIT CloseWanted();
}

void CaseJob::endInError()
{
    SetOver();
    ReleaseTurnOf(txtMasterKey);
    FreeLink();
    Sheet.AllowPrint(true);
    Q_EMIT FlashWanted();
}

void CaseJob::EndNotLocated(const QString &status, const QString &captionSuffix)
{
    Record.NotLocated = true;
    Record.NoSuchCase = true;
    ReleaseTurnOf(txtMasterKey);
    SetOver();
    SetStatus(status, StatusStyle::NormalBold);
    Q_EMIT FlashWanted();
    Sheet.SetHeader(&CaseRecord::Caption, Record.Caption + captionSuffix);
}

void CaseJob::printIfAsked()
{
    if (!Record.chkAutoPrint)
        return;
    Record.chkAutoPrint = false;
    // Behind the run: a box must not keep the link from the other cases of a batch.
    const auto print = [this] {
        if (talk)
            talk->Print();
    };
    QMetaObject::invokeMethod(this, print, Qt::QueuedConnection);
}
