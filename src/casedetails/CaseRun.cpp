// The first run of a case window: CaseWindow::ProcessSearchRequests and what it is made of.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseWindow.h"
#include "controls/MsgBox.h"
#include "controls/TabStrip.h"
#include "core/Clock.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"
#include "jobs/JobVoice.h"
#include "jobs/TurnTaking.h"
#include "tables/FlexGrid.h"

#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {
constexpr float pauseBeforeTab = 0.15F; ///< seconds
} // namespace

void CaseWindow::ProcessSearchRequests()
{
    const auto atEnd = qScopeGuard([this] { withdrawIfGone(); });
    lboxResponses.Clear();
    voice->SayState();
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
    }
    offerNextRun();
}

void CaseWindow::reportEmptyQueue()
{
    MsgBox(this,
           u"No Search Requests For Case Details Can Be Located! This Form will be closed when you "
           "select OK. The Request Queue Appears to be Empty."_s,
           u"Search Queue Empty .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
    WriteAppInfo(u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
    closesUnasked = true;
    Unload();
}

CaseWindow::RunEnd CaseWindow::runTabs()
{
    const RunEnd summary = runSummary();
    if (summary != RunEnd::Normal)
        return summary;
    for (int i = 1; i < tabStrip->count(); ++i) {
        PauseSeconds(pauseBeforeTab);
        const std::optional<CaseTab> tab = CaseTabOf(tabCaptions.value(i));
        if (!tab)
            continue;
        const RunEnd end = runTab(*tab);
        if (end != RunEnd::Normal)
            return end;
        // The run of a bankruptcy case is over behind its docket; a court that names something else
        // after it is asked for that when the user wants it.
        if (IsBankruptcy() && *tab == CaseTab::Docket) {
            leaveUnretrieved();
            break;
        }
    }
    return RunEnd::Normal;
}

/// The Summary, and a second time with the answer when the court asks about arbitration.
CaseWindow::RunEnd CaseWindow::runSummary()
{
    CaseTabState &summary = TabOf(CaseTab::Summary);
    summary.TabRequest = TrimBlanks(lboxTabReqQueue.List(0));
    DoSummarySearch(summary.TabRequest);
    if (summary.Grid->Cell(0, 0).contains(u"not a valid case number", Qt::CaseInsensitive))
        return RunEnd::InvalidCase;
    askAgainWithAnswer();
    if (NotLocated) {
        // A stop goes before what the reply said.
        const RunEnd end = endOf(testStopFlags());
        return end == RunEnd::Normal ? RunEnd::NotLocated : end;
    }
    if (CaseInvalid || FatalError == brokenDown)
        return RunEnd::Error;
    if (lboxTabReqQueue.ListCount() > 0)
        lboxTabReqQueue.RemoveItem(0);
    if (Archived) {
        SetCaseDetailsHdr(u"Case Details (*"_s + CaseNumberOf(txtCaseNumber) + u')');
        setWindowTitle(lblCaseDetailsHdr());
    }
    if (lblCaseDetailsHdr().contains(u'*'))
        Archived = true;
    return endOf(testStopFlags());
}

void CaseWindow::retrieveSummary()
{
    DoSummarySearch(Tab(CaseTab::Summary).TabRequest);
    askAgainWithAnswer();
}

/// The Summary asked about arbitration: it is asked for once more, with the answer. Not when nobody
/// wants the case any more: it has not come then.
void CaseWindow::askAgainWithAnswer()
{
    if (!UserQuestion || isToEnd())
        return;
    CaseTabState &summary = TabOf(CaseTab::Summary);
    summary.TabRequest = WithArbitration(summary.TabRequest, arbitration);
    UserQuestion = false;
    ArbitrationAnswer = false;
    CaseAnswers.ArbitrationChosen = false;
    DoSummarySearch(summary.TabRequest);
}

CaseWindow::RunEnd CaseWindow::endOf(StopPoint point)
{
    switch (point) {
    case StopPoint::Stop:
        return RunEnd::Stopped;
    case StopPoint::Close:
        return RunEnd::Closed;
    case StopPoint::GoOn:
        break;
    }
    return RunEnd::Normal;
}

CaseWindow::RunEnd CaseWindow::runTab(CaseTab tab)
{
    rewriteForArbitration(tab);
    if (IsBankruptcy())
        takeBankruptcyRequest(tab);
    const CaseTabState &state = Tab(tab);
    const bool nothingToAsk = IsBankruptcy() && state.TabRequest.isEmpty();
    if (!state.TabNotRetrieved && !nothingToAsk)
        retrieveTab(tab, state.TabRequest);
    if (FatalError == brokenDown)
        return RunEnd::Fatal;
    return endOf(testStopFlags());
}

/// The court has given the lines of a bankruptcy case in its Summary.
void CaseWindow::takeBankruptcyRequest(CaseTab tab)
{
    const QStringView word = CaseTabRowOf(tab).caption;
    TabOf(tab).TabRequest.clear();
    for (const QString &line : lboxTabReqQueue.Lines()) {
        if (line.contains(word, Qt::CaseInsensitive)) {
            TabOf(tab).TabRequest = line;
            return;
        }
    }
}

/// The answer goes into the line every time that the line is about to be used; the court reads the
/// end of the field.
void CaseWindow::rewriteForArbitration(CaseTab tab)
{
    if (arbitration == ArbitrationMode::NotAsked || tab == CaseTab::Documents)
        return;
    TabOf(tab).TabRequest = WithArbitration(Tab(tab).TabRequest, arbitration);
    CaseAnswers.ArbitrationChosen = false;
}

bool CaseWindow::isToEnd() const
{
    return Global.bStopRequested || CloseRequested || StopRequested;
}

CaseWindow::StopPoint CaseWindow::testStopFlags()
{
    if (Global.bStopRequested) {
        WriteAppInfo(u"Searching Stopped - Yielding to Logout Process."_s);
        return StopPoint::Stop;
    }
    if (CloseRequested) {
        WriteAppInfo(u"Searching Stopped - Yielding to Form Close Request by User."_s);
        return StopPoint::Close;
    }
    if (StopRequested) {
        WriteAppInfo(u"Searching Stopped - Yielding to Stop Command from User."_s);
        return StopPoint::Stop;
    }
    return StopPoint::GoOn;
}

void CaseWindow::endRun(RunEnd end)
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
        printButton->setEnabled(true);
        leaveUnretrieved();
        printIfAsked();
        break;
    case RunEnd::Fatal:
        // The link broke under it: it keeps its place until it is closed, so that nothing is sent
        // into a conversation in an unknown state.
        return;
    }
    voice->Ended(StopRequested);
}

void CaseWindow::showEndStatus()
{
    if (AnyTabIncomplete()) {
        SetStatusText(u"Search Incomplete!"_s, true);
    } else {
        SetStatusText(u"Search Complete"_s);
        SetWarning({});
    }
}

void CaseWindow::endNormally()
{
    ReleaseTurnOf(txtMasterKey);
    EndJob();
    showEndStatus();
    printButton->setEnabled(true);
    startFlash();
    printIfAsked();
}

void CaseWindow::endInvalid()
{
    ReleaseTurnOf(txtMasterKey);
    EndJob();
    SetStatusText(u"Search Complete - Case Number Invalid"_s);
    SetWarning({});
    printButton->setEnabled(true);
    FlexGrid *grid = TabOf(CaseTab::Summary).Grid;
    grid->SetColumnAlignment(0, Qt::AlignLeft | Qt::AlignTop);
    grid->scrollToTop();
    printIfAsked();
}

void CaseWindow::endStopped()
{
    WithdrawKey(txtMasterKey);
    EndJob();
    SetStatusText(u"Search Stopped by User .."_s, true);
    SetWarning(u"Warning: Some results may NOT have been retrieved .."_s);
    printButton->setEnabled(true);
    SearchStopped = true;
    // The list of documents is no part of what a stop leaves out.
    leaveUnretrieved(Documents::AsTheyAre);
}

void CaseWindow::endClosed()
{
    SetStatusText(u"Search Stopped - Form Closing .."_s, true);
    StopBlinking();
    SetWarning(u"Closing Form .."_s);
    ReleaseTurnOf(txtMasterKey);
    Global.bSearchInProgress = false;
    HasTurn = false;
    closesUnasked = true;
    Unload();
}

void CaseWindow::endInError()
{
    EndJob();
    ReleaseTurnOf(txtMasterKey);
    Global.bSearchInProgress = false;
    HasTurn = false;
    printButton->setEnabled(true);
    startFlash();
}

void CaseWindow::EndNotLocated(const QString &status, const QString &captionSuffix)
{
    NotLocated = true;
    ReleaseTurnOf(txtMasterKey);
    EndJob();
    SetStatusText(status);
    startFlash();
    setWindowTitle(windowTitle() + captionSuffix);
}

void CaseWindow::printIfAsked()
{
    if (!chkAutoPrint)
        return;
    chkAutoPrint = false;
    // Behind the run: a box must not keep the link from the other cases of a batch.
    const auto print = [this] {
        if (!IsUnloaded())
            PrintDirect();
    };
    QMetaObject::invokeMethod(this, print, Qt::QueuedConnection);
}
