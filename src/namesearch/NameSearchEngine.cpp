// The run of a search: frmNameSearchResults::ProcessSearchRequests and what it is made of.

#include "controls/MsgBox.h"
#include "controls/Twips.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "jobs/ClientCode.h"
#include "jobs/TurnTaking.h"
#include "link/Comm.h"
#include "namesearch/Replies.h"
#include "namesearch/SearchCriteria.h"
#include "namesearch/frmNameSearchResults.h"
#include "ui_frmNameSearchResults.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int printButton = 2;
constexpr int listMarginTwips = 100;
} // namespace

void frmNameSearchResults::ProcessSearchRequests()
{
    if (lboxQueue.ListCount() == 0) {
        ReportEmptyQueue();
        return;
    }
    SearchOutcome outcome = SearchOutcome::ConnectionLost;
    try {
        outcome = RunRequests();
    } catch (const RunTimeError &) {
        // Whatever went wrong inside a run, its results cannot be trusted to be all.
    }
    EndSearch(outcome);
}

void frmNameSearchResults::ReportEmptyQueue()
{
    MsgBox(this,
           u"No Search Requests Can Be Located! This Form will be closed when you select OK. The "
           "Request Queue Appears to be Empty."_s,
           u"Search Queue Empty .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
    ReleaseTurn();
    lbl911 = u"T"_s;
    Unload();
}

SearchOutcome frmNameSearchResults::RunRequests()
{
    showCount(RowCount());
    int runningTotal = 0;
    rowsOfRequest = 0;
    for (int i = 0; i < lboxQueue.ListCount(); ++i) {
        runningTotal += std::exchange(rowsOfRequest, 0);
        if (i >= 1)
            ShowSearchCriteria(i);
        Global.strRecvBuffer.Clear();
        if (!SendLine(i))
            return SearchOutcome::ConnectionLost;
        const QString line = lboxQueue.List(i);
        countyOfRequest = CountyOfRequest(line);
        bool tooManyHits = false;
        bool ended = false;
        const SearchOutcome early = ReadReplies(tooManyHits, ended);
        if (!ended)
            return early;
        if (StopRequested) {
            WriteAppInfo(u"Searching Stopped by User. Request Was: "_s + line);
            return SearchOutcome::Stopped;
        }
        WriteAppInfo(u"All Responses Received For Request: "_s + line);
        if (tooManyHits)
            return SearchOutcome::MaxNames;
        if (i + 1 < lboxQueue.ListCount()) {
            WriteAppInfo(u"Starting Next Request: "_s + lboxQueue.List(i + 1));
            // What the requests before this one gave; the next row shows all rows again.
            showCount(runningTotal);
        }
    }
    return SearchIncomplete ? SearchOutcome::Incomplete : SearchOutcome::Completed;
}

bool frmNameSearchResults::SendLine(int index)
{
    QString line = TrimBlanks(lboxQueue.List(index));
    if (!ClientAcctgCode.isEmpty())
        line = EmbedClientCode(line, ClientAcctgCode);
    return SendReq(line) == SendStatus::Sent;
}

/// Reads the replies of one request. `ended` says whether its end mark came; otherwise the answer
/// is the outcome of the whole search.
SearchOutcome frmNameSearchResults::ReadReplies(bool &tooManyHits, bool &ended)
{
    for (;;) {
        const Response response = ReadResponse();
        if (response.Status != ReadStatus::Token) {
            const QString reason = response.Status == ReadStatus::TimedOutOrLost
                                       ? u"Timed Out Waiting For Response from Server."_s
                                       : u"Halvane Server Connection was Dropped!"_s;
            WriteAppInfo(u"Search Error! Reason: "_s + reason);
            return SearchOutcome::ConnectionLost;
        }
        const QString &reply = response.Token;
        WriteAppInfo(u"Current Response: --> "_s + reply);
        switch (ClassifyReply(reply)) {
        case ReplyKind::EndOfReply:
            ended = true;
            return SearchOutcome::Completed;
        case ReplyKind::MaxResults:
            return SearchOutcome::MaxResults;
        case ReplyKind::TooManyHits:
            tooManyHits = true;
            break;
        case ReplyKind::Error:
            SearchIncomplete = true;
            WriteAppInfo(u"Error Response Received in Task Processor.."_s);
            break;
        case ReplyKind::Progress:
            if (const QString text = ProgressText(reply); !text.isEmpty())
                setSearchStatus(text, StatusStyle::Unchanged);
            break;
        case ReplyKind::Row:
            TakeRow(reply);
            break;
        }
        Yield();
    }
}

void frmNameSearchResults::TakeRow(const QString &reply)
{
    AddResultRow(reply);
    ++rowsOfRequest;
    WriteAppInfo(u"Sent response to caller: "_s + reply);
}

void frmNameSearchResults::EndSearch(SearchOutcome outcome)
{
    const OutcomeRow &row = OutcomeRowOf(outcome);
    WriteAppInfo(row.log.toString());
    ui->cmdStopSearching->setEnabled(false);
    stopBlinking();
    ui->listview1->List()->Flush();
    const int rows = RowCount();
    setStatus(OutcomeText(row.status, rows, countyOfRequest), row.statusStyle);
    setSearchStatus(OutcomeText(row.searchStatus, rows, countyOfRequest), row.searchStatusStyle);
    if (row.setsCount)
        ui->Label3->setText(row.count.toString());
    if (row.setsIncomplete)
        SearchIncomplete = true;
    if (outcome == SearchOutcome::MaxResults)
        AddMaxResultsRows();
    if (row.swapsButtons) {
        showPageButton(false);
        Global.strRecvBuffer.Clear();
    }
    cmdSearchResults[printButton]->setEnabled(true);
    ReleaseTurn();
}

void frmNameSearchResults::AddMaxResultsRows()
{
    ResultListModel *list = ui->listview1->List();
    const QString warning = u"**Warning**"_s;
    if (list->Count() > 0) {
        list->AddRow({warning, warning, warning,
                      u"Too many results. Refine criteria and search again."_s,
                      countyOfRequest + u" Cty"_s, warning});
    } else {
        ui->listview1->SetColumns(
            {{u"NOTE:    This Search Returned More Than The Maximum Number Allowed (200)."_s,
              TwipsFromPixels(ui->listview1->width()) - listMarginTwips}});
        list->AddRow({u"More than 200 results were found for this name search. Please retry your "
                      "search."_s});
        list->AddRow({u"Tip: Be sure to include a full first name and/or middle initial in the "
                      "search criteria."_s});
    }
    list->Flush();
}
