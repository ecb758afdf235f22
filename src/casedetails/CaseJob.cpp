// The life of a case's job: how it begins, what is in sight, the ways in which it stops.

#include "casedetails/CaseJob.h"

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseTalk.h"
#include "casedetails/TabGrids.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/Settings.h"
#include "courts/CaseMarks.h"
#include "courts/CourtTable.h"

using namespace Qt::StringLiterals;

namespace {
QString captionOf(const CaseRecord &record)
{
    return u"Case Details ("_s + record.txtCaseNumber + u')';
}

CaseOfRequest requestFields(const CaseRecord &record)
{
    return {.Kind = record.Kind,
            .State = record.lblState,
            .CaseNumber = record.txtCaseNumber,
            .CountyName = record.txtCountyName,
            .OrCourtType = record.lblOrCourtType,
            .CaseType = record.txtCaseType,
            .CourtCode = record.txtCourtCode};
}

QList<CaseTab> requestOrder(const CaseRecord &record)
{
    if (record.Kind == CaseKind::State)
        return RequestOrder(record.lblState);
    QList<CaseTab> order;
    for (const QString &caption : DiscisTabs(record.Kind)) {
        if (const std::optional<CaseTab> tab = CaseTabOf(caption); tab && tab != CaseTab::Summary)
            order.append(*tab);
    }
    return order;
}
} // namespace

CaseJob::CaseJob(CaseKind caseKind)
    : Job(JobKindName::Case), Sheet(caseKind), Record(Sheet.Record),
      TmrSearchOnDemand(new QTimer(this))
{
    TmrSearchOnDemand->setObjectName(u"TmrSearchOnDemand"_s);
    TmrSearchOnDemand->setInterval(JobKindOf(JobKindName::CaseOnDemand).Turn);
    connect(TmrSearchOnDemand, &QTimer::timeout, this, &CaseJob::askTurnOnDemand);
    CaseAnswers.bOnDemandPrompt = true;
    CaseAnswers.bOnDemandRetry = true;
}

void CaseJob::Take(const CaseStart &start)
{
    for (const QString &line : start.TabRequests)
        lboxTabReqQueue.AddItem(line);
    Sheet.Take(start);
}

JobMatter MatterOf(const CaseStart &start)
{
    const QString &court = start.lblCourtName;
    return {CaseNumberOf(start.txtCaseNumber), court.isEmpty() ? start.txtCountyName : court};
}

JobMatter CaseJob::Matter() const
{
    return MatterOf(Record);
}

void CaseJob::ShowTab(CaseTab tab, bool incomplete, const QString &request)
{
    const QStringList &lines = lboxResponses.Lines();
    if (tab == CaseTab::Documents) {
        Sheet.EndDocuments(lines, incomplete, request);
        return;
    }
    const TabView view =
        ShowTabResponse(Record.Kind, Record.lblState, tab, lines, incomplete, request);
    for (const QString &line : view.LogLines)
        WriteAppInfo(line);
    Record.Tab(tab).Notes = view.Notes;
    Sheet.ShowTable(tab, view.Grid);
}

/// Asks whether an incomplete tab shall be retrieved again. False when the window went meanwhile.
bool CaseJob::askOnDemand(CaseTabRecord &ofTab)
{
    if (!ofTab.TabIncomplete || !CaseAnswers.bOnDemandPrompt || !talk)
        return true;
    if (const std::optional<bool> retry = talk->AskOnDemand())
        ofTab.TabNotRetrieved = *retry;
    return !IsGivenUp();
}

void CaseJob::ActivateTab(const QString &caption)
{
    // A run goes on behind a window that has gone, and there is nobody to be asked.
    if (IsGivenUp())
        return;
    const RunScope scope(this);
    const std::optional<CaseTab> tab = CaseTabOf(caption);
    if (!tab || !Record.Tab(*tab).Exists || !askOnDemand(Record.Tab(*tab)))
        return;
    if (Record.TabExists(*tab))
        Sheet.Select(CaseTabRowOf(*tab).caption.toString());
    Sheet.BringIntoSight(*tab);
    if (Record.Tab(*tab).TabIncomplete)
        Sheet.SetWarning(CaseTabRowOf(*tab).review.toString());
}

void CaseJob::BuildTabRequests()
{
    lboxTabReqQueue.Clear();
    const CaseOfRequest fields = requestFields(Record);
    lboxTabReqQueue.AddItem(CaseTabRequest(fields, CaseTab::Summary));
    const QString section = CaseTabsSection(Record.Kind, Record.lblState);
    for (const CaseTab tab : requestOrder(Record)) {
        if (!Record.TabExists(tab))
            continue;
        CaseTabRecord &ofTab = Record.Tab(tab);
        ofTab.TabRequest = CaseTabRequest(fields, tab);
        const QString key = CaseTabRowOf(tab).caption.toString();
        ofTab.TabNotRetrieved = !TabIsFetchedAtOnce(section, key);
        if (ofTab.TabNotRetrieved)
            continue;
        lboxTabReqQueue.AddItem(ofTab.TabRequest);
        Sheet.SetAnswer(tab, AnswerState::Waiting);
    }
}

/// A case that was opened from a row has a caption of its own until its first tick.
void CaseJob::ShowCriteria()
{
    if (Record.Caption == CaseStart().Caption)
        Sheet.SetHeader(&CaseRecord::Caption, captionOf(Record));
}

void CaseJob::BeginTick()
{
    Sheet.SetHeader(&CaseRecord::Caption, captionOf(Record));
    if (Record.IsBankruptcy()) {
        RequestsBuilt = true;
        Record.chkBK = true;
        // Before the Summary brings those of the other tabs: the first tells the case from others.
        if (Record.TabRequests.isEmpty())
            Record.TabRequests = lboxTabReqQueue.Lines();
        Sheet.RemoveAllTabsButFirst();
        return;
    }
    if (TabsPending) {
        CutTabsToCase();
        TabsPending = false;
    }
    if (!RequestsBuilt) {
        BuildTabRequests();
        RequestsBuilt = true;
    }
}

QString CaseJob::StopRequest() const
{
    return CaseStopOf(Record.lblState);
}

/// Every tab of the strip that has neither been left out nor come offers to be fetched, one in
/// sight at once: an empty grid would be taken for the whole. What has failed has something to be
/// read, and asks when it is clicked.
void CaseJob::leaveUnretrieved(Documents documents)
{
    const std::optional<CaseTab> inSight = CaseTabOf(Record.SelectedTab);
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        CaseTabRecord &ofTab = Record.Tab(tab);
        if (ofTab.TabNotRetrieved || ofTab.TabDone || !Record.TabExists(tab)
            || (tab == CaseTab::Documents && documents == Documents::AsTheyAre))
            continue;
        ofTab.TabNotRetrieved = true;
        if (tab == inSight && !ofTab.TabIncomplete && !IsGivenUp())
            Sheet.BringIntoSight(tab);
    }
}

void CaseJob::ShowStopped(StopCase stopCase)
{
    Record.SearchStopped = true;
    ShowStoppedStatus();
    TmrSearchOnDemand->stop();
    if (stopCase == StopCase::AllJobs) {
        LogStoppedByAll();
        Sheet.SetWarning(u"Search Stopped .."_s);
    }
    // A run that is using the link ends in its own time.
    if (HasTurn())
        return;
    // Nothing more comes by itself. Before its first tick the case has neither its tabs nor the
    // lines that they are asked for with.
    if (!RequestsBuilt)
        BeginTick();
    leaveUnretrieved();
    Sheet.EndAnswers(Record.Breakdown, false);
    offerNextRun();
}

void CaseJob::GivenUp()
{
    talk = nullptr;
    TmrSearchOnDemand->stop();
    // A run keeps its place until its reply has come: the next job would read what is left of it.
    if (HasTurn())
        CloseRequested = true;
    else
        Withdraw();
}
