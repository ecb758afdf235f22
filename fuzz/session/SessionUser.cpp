#include "session/SessionUser.h"

#include "casedetails/CaseTalk.h"
#include "casedetails/DiscisCaseJob.h"
#include "casedetails/DocumentList.h"
#include "casedetails/StateCaseJob.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "core/TurnHold.h"
#include "documents/AllDocumentsJob.h"
#include "documents/DocumentJob.h"
#include "documents/DocumentTalk.h"
#include "jobs/TurnTaking.h"
#include "link/ConnectState.h"
#include "link/Exchange.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/DiscisSearch.h"
#include "session/LoginExchange.h"
#include "session/SessionKinds.h"
#include "session/SessionState.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr std::size_t mostJobs = 10;
constexpr int turnsOfQuestion = 3;
const QString version = u"AppVer-9.00"_s;

void showNothing(const QString & /*text*/) {}
} // namespace

/// What the window of a job asks and tells its user.
class SessionAnswers : public SearchTalk, public CaseTalk, public DocumentTalk
{
public:
    SessionAnswers(SessionUser *asked) : user(asked) {}

    void TellEmptyQueue() override { user->Ask(); }
    void CloseUnasked() override
    {
        if (whenUnasked)
            whenUnasked();
    }
    bool AskArbitration() override { return user->Ask(); }
    std::optional<bool> AskOnDemand() override
    {
        static bool asking = false;
        if (std::exchange(asking, true))
            return std::nullopt;
        const bool yes = user->Ask();
        asking = false;
        return yes;
    }
    void Print() override {}
    void TellFailure() override { user->Ask(); }
    void TellDenied() override { user->Ask(); }

    std::function<void()> whenUnasked;

private:
    SessionUser *user;
};

SessionUser::SessionUser()
{
    connect(&LinkEvents::Of(), &LinkEvents::IdleLimitReached, this, &SessionUser::Disconnect);
    connect(&LinkEvents::Of(), &LinkEvents::LinkDropped, this, &SessionUser::CheckConnection);
}

SessionUser::~SessionUser() = default;

/// The job of this number, when it is one of this kind and somebody looks at it.
template<class Kind>
Kind *SessionUser::jobAt(int number) const
{
    if (jobs.empty())
        return nullptr;
    Job *job = jobs.at(static_cast<std::size_t>(number) % jobs.size()).What;
    return job && !job->IsGivenUp() ? qobject_cast<Kind *>(job) : nullptr;
}

bool SessionUser::mayOpen() const
{
    return Global.bLoggedIn && jobs.size() < mostJobs;
}

void SessionUser::launch(Job *job, std::unique_ptr<SessionAnswers> spoken)
{
    Global.bStopRequested = false;
    job->txtMasterKey = MakeMasterKey();
    EnqueueKey(job->txtMasterKey);
    job->ShowCriteria();
    job->Timer1->start();
    jobs.push_back({job, std::move(spoken)});
    job->AnnounceLaunch();
}

void SessionUser::Open(int kind, int variant)
{
    if (!mayOpen())
        return;
    const int chosen = kind % (searchKinds + caseKinds);
    if (chosen >= searchKinds) {
        openCase(MakeCaseStart(chosen - searchKinds, variant));
        return;
    }
    NameSearch *search = MakeSearch(chosen, variant);
    auto spoken = std::make_unique<SessionAnswers>(this);
    spoken->whenUnasked = [this, search] { closeUnasked(search); };
    search->UseTalk(spoken.get());
    launch(search, std::move(spoken));
}

void SessionUser::openCase(const CaseStart &start)
{
    CaseJob *job = start.Kind == CaseKind::State ? static_cast<CaseJob *>(new StateCaseJob)
                                                 : new DiscisCaseJob(start.Kind);
    auto spoken = std::make_unique<SessionAnswers>(this);
    job->UseTalk(spoken.get());
    job->Take(start);
    connect(job, &CaseJob::CloseWanted, this, [this, job] { closeUnasked(job); });
    launch(job, std::move(spoken));
}

void SessionUser::OpenRow(int job, int row)
{
    auto *search = jobAt<NameSearch>(job);
    if (!search || !mayOpen() || search->RowCount() == 0)
        return;
    const int chosen = row % search->RowCount();
    if (IsCaseRow(search->Record.Rows.Cells(chosen)))
        openCase(search->OpenRow(chosen));
}

void SessionUser::OpenDocument(int job, int row)
{
    const auto *ofCase = jobAt<CaseJob>(job);
    if (!ofCase || !mayOpen())
        return;
    const std::optional<DocumentStart> start = DocumentOfRow(ofCase->Record, row);
    if (!start || !IsRetrievable(*start))
        return;
    auto *document = new DocumentJob;
    auto spoken = std::make_unique<SessionAnswers>(this);
    document->UseTalk(spoken.get());
    document->Take(*start);
    connect(document, &DocumentJob::CloseWanted, this,
            [this, document] { closeUnasked(document); });
    launch(document, std::move(spoken));
}

void SessionUser::OpenAllDocuments(int job)
{
    const auto *ofCase = jobAt<CaseJob>(job);
    if (!ofCase || !mayOpen())
        return;
    constexpr int mostRows = 40;
    QList<int> rows;
    for (int row = 1; row < mostRows; ++row) {
        if (DocumentOfRow(ofCase->Record, row))
            rows.append(row);
    }
    const QList<DocumentStart> starts = DocumentsOfRows(ofCase->Record, rows);
    if (starts.isEmpty())
        return;
    auto *all = new AllDocumentsJob;
    all->Take(starts);
    launch(all, nullptr);
}

void SessionUser::Stop(int job)
{
    auto *stopped = jobAt<Job>(job);
    if (stopped && stopped->CanBeStopped())
        stopped->Stop();
}

void SessionUser::Close(int job)
{
    auto *closed = jobAt<Job>(job);
    if (!closed || (Global.bSearchInProgress && closed->HasTurn()))
        return;
    closeUnasked(closed);
}

void SessionUser::closeUnasked(Job *job)
{
    if (job->IsGivenUp())
        return;
    job->GiveUp();
    job->Release();
}

void SessionUser::RetryFailed(int job)
{
    auto *search = jobAt<NameSearch>(job);
    if (search && Global.bLoggedIn && search->CanRetry())
        search->RetryFailed();
}

void SessionUser::NextPage(int job)
{
    auto *search = jobAt<CourtSearch>(job);
    if (search && Global.bLoggedIn && search->CanTakePage())
        search->GetNextPage();
}

void SessionUser::RetrieveNames(int job)
{
    auto *search = jobAt<NonCivilSearch>(job);
    if (!search || !Global.bLoggedIn || !search->NamesRetrievable() || search->Names.Count() == 0)
        return;
    search->Names.SetChecked(0, true);
    search->RetrieveCheckedNames();
}

void SessionUser::ToggleNames(int job)
{
    auto *search = jobAt<NonCivilSearch>(job);
    if (search && search->CanToggle())
        search->ToggleDupesView();
}

void SessionUser::ActivateTab(int job, int tab)
{
    auto *ofCase = jobAt<CaseJob>(job);
    if (!ofCase || ofCase->Record.TabCaptions.isEmpty())
        return;
    const QStringList captions = ofCase->Record.TabCaptions;
    const QString caption = captions.at(tab % captions.size());
    ofCase->Sheet.Select(caption);
    ofCase->ActivateTab(caption);
}

void SessionUser::SearchNow(int job, int tabs)
{
    auto *ofCase = jobAt<CaseJob>(job);
    if (!ofCase || !Global.bLoggedIn || !ofCase->Record.CanSearchNow)
        return;
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (ofCase->Record.Tab(tab).Offered)
            ofCase->Sheet.Choose(tab, (tabs >> i & 1) != 0);
    }
    ofCase->SearchNow();
}

void SessionUser::RetryDocuments(int job)
{
    auto *all = jobAt<AllDocumentsJob>(job);
    if (!all || !Global.bLoggedIn)
        return;
    all->RetryFailed();
    all->RetrieveAgain();
}

void SessionUser::SkipHeld()
{
    waiting.Refresh();
    const QList<WaitingRow> rows = waiting.Rows();
    for (const WaitingRow &row : rows) {
        if (!row.Holds())
            continue;
        // Only a search that is closed before its turn leaves its key, and only a case keeps its
        // place behind a run that broke down.
        if (row.Kind != (row.State == WaitingState::Closed ? u"Search"_s : u"Case"_s))
            qFatal("a key is left by: %s, %s", qPrintable(row.Text()), qPrintable(StateText(row)));
        waiting.Skip(row.Key);
    }
}

bool SessionUser::Ask()
{
    const TurnHold hold;
    for (int i = 0; i < turnsOfQuestion; ++i)
        Yield();
    const bool yes = (answers & 1) != 0;
    answers >>= 1;
    return yes;
}

void SessionUser::BeLoggedIn()
{
    Global.bLoggedIn = ConnectToRouter(u"192.0.2.7"_s);
}

void SessionUser::LogIn()
{
    CheckConnection();
    if (Global.bLoggedIn || loggingIn)
        return;
    loggingIn = true;
    cancelled = false;
    const TurnHold hold;
    const auto atEnd = qScopeGuard([this] {
        if (cancelled)
            Global.bLoggedIn = false;
        if (!Global.bLoggedIn)
            frmWinsock::Unload();
        loggingIn = false;
    });
    if (!reachServer() || cancelled)
        return;
    Global.bCheckingServer = true;
    GetPrivateMessage(u"ann"_s, u"pw"_s, version, showNothing);
    Global.bCheckingServer = false;
    if (cancelled)
        return;
    Global.bLoginBusy = true;
    const SessionResult result = Login(u"ann"_s, u"pw"_s, version, showNothing);
    if (result == SessionResult::LoggedIn && !cancelled)
        exchangeAfterLogin();
    Global.bLoginBusy = false;
}

void SessionUser::CancelLogin()
{
    if (!loggingIn)
        return;
    cancelled = true;
    Global.bLoggedIn = false;
    frmWinsock::Unload();
}

bool SessionUser::reachServer()
{
    if (Global.intConnectState == ConnectDone && !Global.bConnectionClosed)
        return true;
    CloseServerLink();
    return ConnectToRouter(u"192.0.2.7"_s);
}

void SessionUser::exchangeAfterLogin()
{
    Global.bLoginBusy = true;
    GetIniValues(showNothing);
    Global.bGettingParams = false;
    if (!cancelled)
        GetSystemMessage(showNothing);
    if (!cancelled)
        GetClientAcctgOption();
}

void SessionUser::Disconnect()
{
    if (!Global.bLoggedIn)
        return;
    Global.bStopRequested = true;
    if (Global.bSearchInProgress)
        return;
    CloseServerLink();
    Global.bLoggedIn = false;
    Global.bStopRequested = false;
}

void SessionUser::WantExit()
{
    if (Global.bSearchInProgress)
        Global.bStopRequested = true;
}

void SessionUser::CheckConnection()
{
    if (!Global.bConnectionClosed && Global.intConnectState == ConnectDone)
        return;
    Global.bLoggedIn = false;
    Global.bLoginBusy = false;
    Global.bGettingParams = false;
    Global.bGettingMessages = false;
}

bool SessionUser::AllIsOver() const
{
    return !loggingIn && std::all_of(jobs.begin(), jobs.end(), [](const Opened &one) {
        return !one.What || one.What->IsGivenUp()
                   ? !one.What || !one.What->HasTurn()
                   : one.What->State() == JobState::Over && !one.What->HasTurn();
    });
}

void SessionUser::CloseAll()
{
    for (const Opened &one : jobs) {
        if (one.What)
            closeUnasked(one.What);
    }
}
