// The run of a search: NameResultsWindow::ProcessSearchRequests and what it is made of.

#include "controls/MsgBox.h"
#include "controls/Twips.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/JobVoice.h"
#include "jobs/TurnTaking.h"
#include "link/Exchange.h"
#include "link/RequestLine.h"
#include "namesearch/NameResultsWindow.h"
#include "namesearch/SearchCriteria.h"
#include "tables/ResultListView.h"

#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int listMarginTwips = 100;
} // namespace

void NameResultsWindow::ProcessSearchRequests()
{
    voice->SayState();
    if (lboxQueue.ListCount() == 0) {
        reportEmptyQueue();
        return;
    }
    SearchOutcome outcome = SearchOutcome::ConnectionLost;
    try {
        outcome = runRequests();
    } catch (const RunTimeError &) {
        // Whatever went wrong inside a run, its results cannot be trusted to be all.
    }
    EndSearch(outcome);
}

void NameResultsWindow::reportEmptyQueue()
{
    MsgBox(this,
           u"No Search Requests Can Be Located! This Form will be closed when you select OK. The "
           "Request Queue Appears to be Empty."_s,
           u"Search Queue Empty .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
    WriteAppInfo(u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s);
    ReleaseTurnOf(txtMasterKey);
    closesUnasked = true;
    Unload();
}

SearchOutcome NameResultsWindow::runRequests()
{
    if (differences.logsQueueLength)
        WriteAppInfo(u"Items In this Queue: "_s + QString::number(lboxQueue.ListCount()));
    ShowCount(RowCount());
    int runningTotal = 0;
    rowsOfRequest = 0;
    for (int i = 0; i < lboxQueue.ListCount(); ++i) {
        runningTotal += std::exchange(rowsOfRequest, 0);
        if (i >= 1)
            ShowSearchCriteria(i);
        if (!sendLine(i))
            return SearchOutcome::ConnectionLost;
        const QString line = lboxQueue.List(i);
        // A line without a county leaves that of the line before.
        countyOfRequest = CountyOfRequest(line).value_or(countyOfRequest);
        tooManyHits = false;
        if (const std::optional<SearchOutcome> early = readReplies())
            return *early;
        // Behind a window that has gone nobody sees what the rest would bring, and be billed for.
        if (StopRequested || IsUnloaded()) {
            WriteAppInfo(u"Searching Stopped by User. Request Was: "_s + line);
            return SearchOutcome::Stopped;
        }
        WriteAppInfo(u"All Responses Received For Request: "_s + line);
        if (tooManyHits)
            return SearchOutcome::MaxNames;
        if (i + 1 < lboxQueue.ListCount()) {
            WriteAppInfo(u"Starting Next Request: "_s + lboxQueue.List(i + 1));
            // What the requests before this one gave; the next row shows all rows again.
            ShowCount(runningTotal);
        }
    }
    return SearchIncomplete ? SearchOutcome::Incomplete : SearchOutcome::Completed;
}

bool NameResultsWindow::sendLine(int index)
{
    QString line = TrimBlanks(lboxQueue.List(index));
    if (!ClientAcctgCode.isEmpty())
        line = EmbedClientCode(line, ClientAcctgCode);
    return BeginExchange(line) == SendStatus::Sent;
}

/// Reads the replies of one request. Nothing when its end mark came; otherwise the outcome of the
/// whole search.
std::optional<SearchOutcome> NameResultsWindow::readReplies()
{
    ReplyEffect effect;
    const ReadStatus status = ReadReply([this, &effect](const Response &response) {
        if (response.Status == ReadStatus::Token)
            effect = TakeReply(response.Token);
        return effect.EndsSearch || effect.EndsRequest;
    });
    if (status == ReadStatus::Token)
        return effect.EndsSearch;
    WriteAppInfo(u"Search Error! Reason: "_s
                 + (status == ReadStatus::TimedOutOrLost
                        ? u"Timed Out Waiting For Response from Server."_s
                        : u"Halvane Server Connection was Dropped!"_s));
    return SearchOutcome::ConnectionLost;
}

NameResultsWindow::ReplyEffect NameResultsWindow::TakeReply(const QString &reply)
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
        SearchIncomplete = true;
        WriteAppInfo(u"Error Response Received in Task Processor.."_s);
        break;
    case ReplyKind::Progress:
        if (const QString text = ProgressText(reply, differences.progressAsItIs); !text.isEmpty())
            SetSearchStatus(text, StatusStyle::Unchanged);
        break;
    case ReplyKind::Row:
        takeRow(reply);
        break;
    }
    return {};
}

void NameResultsWindow::takeRow(const QString &reply)
{
    AddRow(reply);
    ++rowsOfRequest;
    WriteAppInfo(u"Sent response to caller: "_s + reply);
}

void NameResultsWindow::EndSearch(SearchOutcome outcome)
{
    const OutcomeRow &row = OutcomeRowOf(outcome);
    const bool ownLog =
        outcome == SearchOutcome::ConnectionLost && !differences.connectionLostLog.isEmpty();
    WriteAppInfo((ownLog ? differences.connectionLostLog : row.log).toString());
    EndJob();
    listview1->List()->Flush();
    const int rows = RowCount();
    SetStatus(OutcomeText(row.status, rows, countyOfRequest), row.statusStyle);
    SetSearchStatus(OutcomeText(row.searchStatus, rows, countyOfRequest), row.searchStatusStyle);
    if (row.setsCount)
        SetCount(row.count.toString());
    if (row.setsIncomplete)
        SearchIncomplete = true;
    if (outcome == SearchOutcome::MaxResults)
        addMaxResultsRows();
    if (outcome == SearchOutcome::Completed)
        ShowCompletion();
    if (row.swapsButtons) {
        PutButtonsBack();
        Global.strRecvBuffer.Clear();
    }
    FinishRun();
}

void NameResultsWindow::FinishRun()
{
    EndJob();
    printButton->setEnabled(true);
    ReleaseTurnOf(txtMasterKey);
    voice->Ended(stoppedByUser);
}

void NameResultsWindow::addMaxResultsRows()
{
    ResultListModel *list = listview1->List();
    const QString warning = u"**Warning**"_s;
    if (list->Count() > 0) {
        list->AddRow({warning, warning, warning,
                      u"Too many results. Refine criteria and search again."_s,
                      countyOfRequest + u" Cty"_s, warning});
    } else {
        listview1->SetColumns(
            {{u"NOTE:    This Search Returned More Than The Maximum Number Allowed (200)."_s,
              TwipsFromPixels(listview1->width()) - listMarginTwips}});
        list->AddRow({u"More than 200 results were found for this name search. Please retry your "
                      "search."_s});
        list->AddRow({u"Tip: Be sure to include a full first name and/or middle initial in the "
                      "search criteria."_s});
    }
    list->Flush();
}
