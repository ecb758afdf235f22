// The run of a search: NameSearch::ProcessSearchRequests and what it is made of.

#include "namesearch/NameSearch.h"

#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "courts/CourtTable.h"
#include "jobs/TurnTaking.h"
#include "link/Exchange.h"
#include "link/RequestLine.h"
#include "namesearch/Replies.h"
#include "namesearch/ResultRows.h"
#include "namesearch/SearchCriteria.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype errorWordLength = 5;
} // namespace

NameSearch::NameSearch(JobKindName name, ResultsWindow window)
    : Job(name), jobKind(name), differences(ResultsWindowRowOf(window))
{
    Record.SortColumnName = FirstSortColumn();
    CountLater(0);
    Global.bUserStoppedSearch = false;
    ShowInProgress();
}

JobMatter NameSearch::Matter() const
{
    const QString &name = Record.lblNameVal;
    QString places = Record.txtCountyList.isEmpty() ? Record.lblCourtCounty : Record.txtCountyList;
    while (places.endsWith(u','))
        places.chop(1);
    return {name.isEmpty() ? NameOfRequest(lboxQueue.List(0), Record.chkIndexSearch) : name,
            places};
}

void NameSearch::ShowInProgress()
{
    SetSearchStatus(u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s,
                    StatusStyle::NormalBold);
}

void NameSearch::BeginSearching()
{
    FreeLink();
    SearchAgain();
}

void NameSearch::SearchAgain()
{
    stoppedByUser = false;
    courts.NewRun();
    listCourts();
    Restart(jobKind, Timer1);
}

/// A search whose starter has named it in its caption keeps that until its first tick.
void NameSearch::ShowCriteria()
{
    if (Record.Caption.isEmpty())
        BeginTick();
    else
        listCourts();
}

void NameSearch::BeginTick()
{
    if (CriteriaShown)
        return;
    CriteriaShown = true;
    try {
        ShowSearchCriteria(0);
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Cannot show the search criteria: "_s + error.Description());
    }
    listCourts();
}

void NameSearch::ProcessSearchRequests()
{
    if (retrying) {
        const SearchOutcome outcome = runSafely(&NameSearch::runRetry);
        EndRetry(outcome);
        Q_EMIT RunEnded(outcome == SearchOutcome::Completed && courts.IsWhole());
        return;
    }
    if (lboxQueue.ListCount() == 0) {
        reportEmptyQueue();
        return;
    }
    listCourts();
    const SearchOutcome outcome = runSafely(&NameSearch::runRequests);
    EndSearch(outcome);
    // A stop, and an error among the pages of an index, may end as if all had come.
    Q_EMIT RunEnded(outcome == SearchOutcome::Completed && !StopRequested && !errorSeen);
}

SearchOutcome NameSearch::runSafely(SearchOutcome (NameSearch::*run)())
{
    SearchOutcome outcome = SearchOutcome::ConnectionLost;
    try {
        outcome = (this->*run)();
    } catch (const RunTimeError &error) {
        // Whatever went wrong inside a run, its results cannot be trusted to be all.
        lostBecause = u"the answer cannot be read ("_s + error.Description() + u')';
    }
    noteOutcome(outcome);
    return outcome;
}

void NameSearch::reportEmptyQueue()
{
    if (talk)
        talk->TellEmptyQueue();
    WriteAppInfo(u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
    ReleaseTurnOf(txtMasterKey);
    if (talk)
        talk->CloseUnasked();
}

SearchOutcome NameSearch::runRequests()
{
    if (differences.logsQueueLength)
        WriteAppInfo(u"Items In this Queue: "_s + QString::number(lboxQueue.ListCount()));
    ShowCount(RowCount());
    int runningTotal = 0;
    rowsOfRequest = 0;
    for (int i = 0; i < lboxQueue.ListCount(); ++i) {
        runningTotal += std::exchange(rowsOfRequest, 0);
        courts.Ask(courts.OfRun(i));
        if (i >= 1)
            ShowSearchCriteria(i);
        if (const std::optional<SearchOutcome> end = askLine(lboxQueue.List(i)))
            return *end;
        if (i + 1 < lboxQueue.ListCount()) {
            WriteAppInfo(u"Starting Next Request: "_s + lboxQueue.List(i + 1));
            // What the requests before this one gave; the next row shows all rows again.
            ShowCount(runningTotal);
        }
    }
    return Record.SearchIncomplete ? SearchOutcome::Incomplete : SearchOutcome::Completed;
}

/// Asks one request. How it ends the whole search, or nothing when the next one can be asked.
std::optional<SearchOutcome> NameSearch::askLine(const QString &line)
{
    Q_EMIT CourtsChanged();
    if (!sendLine(line))
        return SearchOutcome::ConnectionLost;
    // A line without a county leaves that of the line before.
    countyOfRequest = CountyOfRequest(line).value_or(countyOfRequest);
    tooManyHits = false;
    if (const std::optional<SearchOutcome> early = readReplies())
        return early;
    // Behind a window that has gone nobody sees what the rest would bring, and be billed for.
    if (StopRequested || IsGivenUp()) {
        WriteAppInfo(u"Searching Stopped by User. Request Was: "_s + line);
        return SearchOutcome::Stopped;
    }
    WriteAppInfo(u"All Responses Received For Request: "_s + line);
    if (tooManyHits)
        return SearchOutcome::MaxNames;
    courts.Answered();
    return std::nullopt;
}

bool NameSearch::sendLine(const QString &request)
{
    QString line = TrimBlanks(request);
    if (!Record.ClientAcctgCode.isEmpty())
        line = EmbedClientCode(line, Record.ClientAcctgCode);
    const SendStatus status = BeginExchange(line);
    if (status == SendStatus::NotConnected)
        lostBecause = u"there is no connection to the court server"_s;
    else if (status != SendStatus::Sent)
        lostBecause = u"the request could not be sent"_s;
    return status == SendStatus::Sent;
}

/// Reads the replies of one request. Nothing when its end mark came; otherwise the outcome of the
/// whole search.
std::optional<SearchOutcome> NameSearch::readReplies()
{
    ReplyEffect effect;
    const ReadStatus status = ReadReply([this, &effect](const Response &response) {
        if (response.Status == ReadStatus::Token)
            effect = TakeReply(response.Token);
        return effect.EndsSearch || effect.EndsRequest;
    });
    if (status == ReadStatus::Token)
        return effect.EndsSearch;
    lostBecause = IsLinkUp() ? u"no answer came in time"_s : u"the connection was lost"_s;
    WriteAppInfo(u"Search Error! Reason: "_s
                 + (status == ReadStatus::TimedOutOrLost
                        ? u"Timed Out Waiting For Response from Server."_s
                        : u"Halvane Server Connection was Dropped!"_s));
    return SearchOutcome::ConnectionLost;
}

NameSearch::ReplyEffect NameSearch::TakeReply(const QString &reply)
{
    // A reply is only here when its status was that of a token.
    const QString number =
        differences.logsStatus ? QString::number(Number(ReadStatus::Token)) + u' ' : QString();
    WriteAppInfo(u"Current Response: --> "_s + number + reply);
    switch (ClassifyReply(reply, differences.replies)) {
    case ReplyKind::EndOfReply:
        return {.EndsRequest = true};
    case ReplyKind::MaxResults:
        return {.EndsSearch = SearchOutcome::MaxResults};
    case ReplyKind::TooManyHits:
        tooManyHits = true;
        break;
    case ReplyKind::Error:
        Record.SearchIncomplete = true;
        courts.TakeError(reply.sliced(errorWordLength));
        WriteAppInfo(u"Error Response Received in Task Processor.."_s);
        break;
    case ReplyKind::Progress:
        if (const QString text = ProgressText(reply, differences.progressAsItIs);
            !text.isEmpty() && !retrying)
            SetSearchStatus(text, StatusStyle::Unchanged);
        break;
    case ReplyKind::Row:
        takeRow(reply);
        break;
    }
    return {};
}

void NameSearch::takeRow(const QString &reply)
{
    AddRowOnce(reply);
    ++rowsOfRequest;
    WriteAppInfo(u"Sent response to caller: "_s + reply);
}

void NameSearch::AddRowOnce(const QString &row)
{
    if (courts.TakeRow(row, NamesPerson(row)))
        AddRow(row);
}

void NameSearch::AddParsedRow(const QString &row, ResultKind rowKind)
{
    ShowCaseColumnsAgain();
    const ResultRow parsed = ParseResultRow(row, rowKind);
    if (!parsed.Cells.isEmpty())
        Record.Rows.AddRow(parsed.Cells);
    if (!parsed.Complete)
        throw RunTimeError::SubscriptOutOfRange();
    CountLater(RowCount());
}

void NameSearch::EndSearch(SearchOutcome outcome)
{
    const OutcomeRow &row = OutcomeRowOf(outcome);
    const bool ownLog =
        outcome == SearchOutcome::ConnectionLost && !differences.connectionLostLog.isEmpty();
    WriteAppInfo((ownLog ? differences.connectionLostLog : row.log).toString());
    SetOver();
    const int rows = RowCount();
    SetStatus(OutcomeText(row.status, rows, countyOfRequest), row.statusStyle);
    SetSearchStatus(OutcomeText(row.searchStatus, rows, countyOfRequest), row.searchStatusStyle);
    if (row.setsCount)
        SetCount(row.count.toString());
    if (row.setsIncomplete)
        Record.SearchIncomplete = true;
    if (outcome == SearchOutcome::MaxResults)
        addMaxResultsRows();
    if (outcome == SearchOutcome::Completed)
        ShowCompletion();
    if (row.swapsButtons) {
        WithdrawOffer();
        Global.strRecvBuffer.Clear();
    }
    FinishRun();
}

void NameSearch::FinishRun()
{
    SetOver();
    Record.Printable = true;
    Q_EMIT Changed();
    ReleaseTurnOf(txtMasterKey);
    Q_EMIT Ended(stoppedByUser);
}

void NameSearch::ShowCaseColumnsAgain()
{
    if (!Record.TooManyToList)
        return;
    Record.Rows.Clear();
    Record.TooManyToList = false;
    Q_EMIT ColumnsChanged();
}

void NameSearch::addMaxResultsRows()
{
    const QString warning = u"**Warning**"_s;
    if (RowCount() > 0) {
        Record.Rows.AddRow({warning, warning, warning,
                            u"Too many results. Refine criteria and search again."_s,
                            countyOfRequest + u" Cty"_s, warning});
    } else {
        Record.TooManyToList = true;
        Q_EMIT ColumnsChanged();
        Record.Rows.AddRow({u"More than 200 results were found for this name search. Please retry "
                            "your search."_s});
        Record.Rows.AddRow({u"Tip: Be sure to include a full first name and/or middle initial in "
                            "the search criteria."_s});
    }
}

CaseStart NameSearch::OpenRow(int row)
{
    constexpr int number = 1;
    const QStringList cells = Record.Rows.Cells(row);
    CaseStart fields = CaseOf(cells);
    Record.Rows.SetCell(row, number, MarkedAsOpened(cells.at(number)));
    return fields;
}

QString NameSearch::StopRequest() const
{
    return SearchStopOf(Record.lblState);
}

void NameSearch::StopDone()
{
    Global.bUserStoppedSearch = true;
    stoppedByUser = true;
}

void NameSearch::ShowStopped(StopCase stopCase)
{
    if (stopCase == StopCase::AllJobs)
        LogStoppedByAll();
    ShowStoppedStatus();
    if (!retrying)
        showStoppedTexts(stopCase);
    // A run that is using the link still reads; otherwise nothing more comes.
    if (!HasTurn())
        leaveRequests();
}

void NameSearch::showStoppedTexts(StopCase stopCase)
{
    QString text;
    switch (stopCase) {
    case StopCase::AllJobs:
        text = u"Search Stopped By User: "_s + QString::number(RowCount()) + u" Cases Retrieved."_s;
        break;
    case StopCase::Pending:
        text = u"Search Stopped By User. No Results Were Retrieved."_s;
        break;
    case StopCase::Active:
        text = u"Search Stopped By User. Some Results May Not Have Been Retrieved."_s;
        break;
    }
    SetSearchStatus(text, StatusStyle::TroubleBold);
    SetCount({});
}

void NameSearch::SetSearchStatus(const QString &text, StatusStyle style)
{
    Record.lblSearchStatus.Set(text, style);
    Q_EMIT Changed();
}

void NameSearch::SetCount(const QString &text)
{
    Record.Label3 = text;
    Q_EMIT Changed();
}

void NameSearch::ShowCount(int rows)
{
    CountLater(rows);
    Q_EMIT Changed();
}

void NameSearch::CountLater(int rows)
{
    // The count stays that of the search.
    if (retrying)
        return;
    Record.Label3 = differences.countLabel.toString() + QString::number(rows);
}

void NameSearch::SetNameVal(const QString &text)
{
    SetText(&ResultsRecord::lblNameVal, text);
}

void NameSearch::SetText(QString ResultsRecord::*field, const QString &text)
{
    Record.*field = text;
    Q_EMIT Changed();
}
